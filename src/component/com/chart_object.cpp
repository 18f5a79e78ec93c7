// AcquireVar and CreateChart for COM hosts, each behind the one wall that no exception passes.
#include "backends/win32/com/automation_object.h"
#include "backends/win32/com/com_error.h"
#include "backends/win32/com/server_module.h"
#include "backends/win32/com/win32_environment.h"
#include "component/chart_class.h"
#include "links/com/com_drive_link.h"

#include <chart_project.h>

namespace chartproject::win32 {

namespace {

/// The one of this process; it holds texts only, so it may go with the DLL.
ProcessState& TheProcess() {
  static ProcessState state;
  return state;
}

class ChartObject final : public AutomationObject<_ChartClass> {
 public:
  ChartObject()
      : AutomationObject(IID__ChartClass),
        links_(CLSID_ChartClass, environment_.SimulatedClock()),
        chart_(environment_.GetPorts(), environment_.Forms(), links_, TheProcess()) {}

  HRESULT STDMETHODCALLTYPE AcquireVar() noexcept override {
    const ComRef<_ChartClass> self(this);  // the host may let go of the object while the dialog is up
    return Guarded(InterfaceId(), [this] { chart_.AcquireVar(); });
  }
  HRESULT STDMETHODCALLTYPE CreateChart(BSTR strFileName) noexcept override {
    const ComRef<_ChartClass> self(this);
    return Guarded(InterfaceId(), [this, strFileName] { chart_.CreateChart(BstrToUtf8(strFileName)); });
  }

 private:
  Win32Environment environment_;
  ComDriveLinkFactory links_;
  ChartClass chart_;
};

}  // namespace

ServerDescription DescribeServer() {
  return {CLSID_ChartClass,
          LIBID_ChartProject,
          IID__ChartClass,
          L"_ChartClass",
          L"ChartProject: recording and charts of drives",
          L"ChartProject.ChartClass",
          {{kDriveLinkClassValue, IdText(StandInClass())}, {kDriveLinkInterfaceValue, IdText(DriveLinkInterface())}}};
}

/// Starts an instance of the component up.
IUnknown* MakeServerObject() {
  return static_cast<_ChartClass*>(new ChartObject());
}

}  // namespace chartproject::win32
