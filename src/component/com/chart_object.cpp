// AcquireVar and CreateChart for COM hosts, each guarded, so that no exception leaves a COM method.
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "backends/win32/com/automation_object.h"
#include "backends/win32/com/com_error.h"
#include "backends/win32/com/server_module.h"
#include "backends/win32/widgets/dpi_scope.h"
#include "component/chart_class.h"
#include "component/com/substitutes.h"
#include "links/com/com_drive_link.h"

#include <chart_project.h>

namespace chartproject::win32 {

namespace {

/// The one of this process; it holds texts only, so it may go with the DLL.
ProcessState& TheProcess() {
  static ProcessState state;
  return state;
}

/// Shared by the objects of one thread: windows, ports, links and the state that the dialogs work on.
class Apartment {
 public:
  /// The state of the calling thread, made with its first object. Throws what making the ports throws.
  static std::shared_ptr<Apartment> OfThisThread() {
    static std::mutex mutex;
    static std::map<std::thread::id, std::weak_ptr<Apartment>> all;
    const std::lock_guard lock(mutex);
    std::erase_if(all, [](const auto& each) { return each.second.expired(); });
    std::weak_ptr<Apartment>& mine = all[std::this_thread::get_id()];
    std::shared_ptr<Apartment> apartment = mine.lock();
    if (!apartment) mine = apartment = std::make_shared<Apartment>();
    return apartment;
  }

  [[nodiscard]] Component& State() noexcept { return *state_; }

 private:
  Win32Environment environment_{TheSubstitutes(), [this] { return state_ ? state_->language : Language::kEnglish; }};
  ComDriveLinkFactory links_{CLSID_ChartClass, environment_.SimulatedClock()};
  std::unique_ptr<Component> state_ = TheProcess().NewState(environment_.GetPorts(), environment_.Forms(), links_);
};

class ChartObject final : public AutomationObject<_ChartClass> {
 public:
  ChartObject() : AutomationObject(IID__ChartClass, CLSID_ChartClass) {}

  HRESULT STDMETHODCALLTYPE AcquireVar() noexcept override {
    const ComRef<_ChartClass> self(this);  // the host may let go of the object while the dialog is up
    const DpiScope ownResolution;
    return Guarded(InterfaceId(), [this] { chart_.AcquireVar(); });
  }
  HRESULT STDMETHODCALLTYPE CreateChart(BSTR strFileName) noexcept override {
    const ComRef<_ChartClass> self(this);
    const DpiScope ownResolution;
    return Guarded(InterfaceId(), [this, strFileName] { chart_.CreateChart(BstrToUtf8(strFileName)); });
  }

 private:
  std::shared_ptr<Apartment> apartment_ = Apartment::OfThisThread();
  ChartClass chart_{apartment_->State(), TheProcess()};
};

}  // namespace

/// Never changed: it names the surrogate of every installed version.
constexpr GUID kSurrogateId{0x5A1C07E4, 0x93B2, 0x4D6F, {0xA8, 0x1E, 0x2C, 0x70, 0xD9, 0x46, 0x3B, 0x15}};

ServerDescription DescribeServer() {
  return {CLSID_ChartClass,
          LIBID_ChartProject,
          IID__ChartClass,
          L"_ChartClass",
          L"ChartProject: recording and charts of drives",
          L"ChartProject.ChartClass",
          {{kDriveLinkClassValue, IdText(StandInClass())}, {kDriveLinkInterfaceValue, IdText(DriveLinkInterface())}},
          kSurrogateId};
}

/// Starts an instance of the component.
IUnknown* MakeServerObject() {
  return static_cast<_ChartClass*>(new ChartObject());
}

}  // namespace chartproject::win32
