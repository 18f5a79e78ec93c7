// Entry points of DriveLinkSim.dll.
#include "links/com/com_drive_link.h"
#include "links/com/drive_link_object.h"
#include "platform/win32/com/class_factory.h"
#include "platform/win32/com/registration.h"

#include <drive_link.h>
#include <drive_link_sim.h>

namespace win32 = chartproject::win32;

namespace {

win32::ServerDescription Describe() {
  return {CLSID_DriveLink,
          LIBID_DriveLinkSim,
          IID__DriveLink,
          L"_DriveLink",
          L"Simulated drives for ChartProject",
          L"DriveLinkSim.DriveLink",
          {{win32::kScenarioValue, L""}}};
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(classId, CLSID_DriveLink)) return CLASS_E_CLASSNOTAVAILABLE;
  return win32::GetFactory(IID__DriveLink, win32::MakeDriveLinkObject, id, object);
}

STDAPI DllCanUnloadNow() {
  return win32::ModuleUse::Any() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return win32::RegisterServer(Describe());
}

STDAPI DllUnregisterServer() {
  return win32::UnregisterServer(Describe());
}
