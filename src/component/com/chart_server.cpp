// Entry points of ChartProject.dll; they only hand over to class factory and registration.
#include "component/com/chart_object.h"
#include "links/com/com_drive_link.h"
#include "platform/win32/com/class_factory.h"
#include "platform/win32/com/registration.h"

#include <initguid.h>

#include <chart_project.h>

namespace win32 = chartproject::win32;

namespace {

win32::ServerDescription Describe() {
  return {CLSID_ChartClass,
          LIBID_ChartProject,
          IID__ChartClass,
          L"_ChartClass",
          L"ChartProject: recording and charts of drives",
          L"ChartProject.ChartClass",
          {{win32::kDriveLinkClassValue, win32::IdText(win32::StandInClass())},
           {win32::kDriveLinkInterfaceValue, win32::IdText(win32::DriveLinkInterface())}}};
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(classId, CLSID_ChartClass)) return CLASS_E_CLASSNOTAVAILABLE;
  return win32::GetFactory(IID__ChartClass, win32::MakeChartObject, id, object);
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
