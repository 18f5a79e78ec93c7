// The eight operations over our own link, on the real clock or on the caller's time.
#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

#include "backends/win32/com/automation_object.h"
#include "backends/win32/com/com_error.h"
#include "backends/win32/com/server_module.h"
#include "backends/win32/files/win32_file_system.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/win32_clock.h"
#include "backends/win32/win32_locale.h"
#include "links/scenario_link.h"
#include "links/simulated_link.h"

#include <drive_link.h>
#include <drive_link_sim.h>

namespace chartproject::win32 {

namespace {

/// The real clock until the caller sets a time; from then on the time that was set.
class FollowingClock : public Clock {
 public:
  DateTime LocalNow() override { return real_.LocalNow(); }
  Instant Now() override { return follows_ ? told_ : real_.Now(); }
  void Tell(Instant moment) noexcept {
    follows_ = true;
    told_ = moment;
  }
  /// Time passes: at once where the caller's time is followed, else with a message loop, as a link of a host does.
  void Wait(Instant until) {
    if (follows_) {
      told_ = std::max(told_, until);
      return;
    }
    for (Instant now = real_.Now(); now < until; now = real_.Now()) {
      for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0;) {
        if (message.message == WM_QUIT) {
          PostQuitMessage(static_cast<int>(message.wParam));
          return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - now);
      MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(left.count()), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
  }

 private:
  Win32Clock real_;
  bool follows_ = false;
  Instant told_{0};
};

constexpr short kSuccess = 0;  // a reply

constexpr const wchar_t* kScenarioValue = L"Scenario";

/// The scenario to replay: the environment variable CHARTPROJECT_SCENARIO, else the value of the class key. With
/// neither the drives are simulated.
std::string ScenarioFile() {
  std::wstring name(GetEnvironmentVariableW(L"CHARTPROJECT_SCENARIO", nullptr, 0), L'\0');
  name.resize(GetEnvironmentVariableW(L"CHARTPROJECT_SCENARIO", name.data(), static_cast<DWORD>(name.size())));
  if (name.empty()) {
    name = ReadRegistryText(HKEY_CLASSES_ROOT, L"CLSID\\" + IdText(CLSID_DriveLink), kScenarioValue)
               .value_or(std::wstring());
  }
  return ToUtf8(name);
}

class DriveLinkObject final : public AutomationObject<_DriveLink>, public ISimulatedTime {
 public:
  DriveLinkObject() : AutomationObject(IID__DriveLink, CLSID_DriveLink), link_(MakeLink()) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    return AutomationObject::QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AutomationObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return AutomationObject::Release(); }

  HRESULT STDMETHODCALLTYPE SetP210Value(short* value, short* reply) noexcept override {
    if (value == nullptr || reply == nullptr) return E_POINTER;
    *reply = kSuccess;
    return Guarded(InterfaceId(), [&] { link_->SetP210Value(*value); });
  }
  HRESULT STDMETHODCALLTYPE SetP529Value(short* value, short* reply) noexcept override {
    if (value == nullptr || reply == nullptr) return E_POINTER;
    *reply = kSuccess;
    return Guarded(InterfaceId(), [&] { link_->SetP529Value(*value); });
  }
  HRESULT STDMETHODCALLTYPE ReadParameter(short* address, BSTR* modelCode, short* parameter, short* unitCode,
                                          short* status) noexcept override {
    return Read(&DriveLink::ReadParameter, address, modelCode, parameter, unitCode, status);
  }
  HRESULT STDMETHODCALLTYPE ProbeParameter(short* address, BSTR* modelCode, short* parameter, short* unitCode,
                                           short* status) noexcept override {
    return Read(&DriveLink::ProbeParameter, address, modelCode, parameter, unitCode, status);
  }
  HRESULT STDMETHODCALLTYPE OpenLink(short* result) noexcept override {
    if (result == nullptr) return E_POINTER;
    *result = kSuccess;
    return Guarded(InterfaceId(), [&] { link_->OpenLink(); });
  }
  HRESULT STDMETHODCALLTYPE CloseLink(VARIANT* result) noexcept override {
    if (result == nullptr) return E_POINTER;
    VariantInit(result);
    return Guarded(InterfaceId(), [&] { link_->CloseLink(); });
  }
  HRESULT STDMETHODCALLTYPE GetValue(double* value) noexcept override {
    if (value == nullptr) return E_POINTER;
    return Guarded(InterfaceId(), [&] { *value = link_->GetValue(); });
  }
  HRESULT STDMETHODCALLTYPE GetText(BSTR* text) noexcept override {
    if (text == nullptr) return E_POINTER;
    return Guarded(InterfaceId(), [&] {
      const BSTR made = ComText(link_->GetText()).Release();
      SysFreeString(*text);
      *text = made;
    });
  }

  HRESULT STDMETHODCALLTYPE SetTime(double milliseconds) noexcept override {
    clock_.Tell(std::chrono::duration_cast<Instant>(std::chrono::duration<double, std::milli>(milliseconds)));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTime(double* milliseconds) noexcept override {
    if (milliseconds == nullptr) return E_POINTER;
    *milliseconds = std::chrono::duration<double, std::milli>(clock_.Now()).count();
    return S_OK;
  }

 protected:
  void* Find(const IID& id) noexcept override {
    if (IsEqualIID(id, IID_ISimulatedTime)) return static_cast<ISimulatedTime*>(this);
    return AutomationObject::Find(id);
  }

 private:
  using Operation = ReadOutcome (DriveLink::*)(std::int16_t, const std::string&, std::int16_t, std::int16_t);

  HRESULT Read(Operation operation, const short* address, const BSTR* modelCode, const short* parameter,
               const short* unitCode, short* status) noexcept {
    if (address == nullptr || modelCode == nullptr || parameter == nullptr || unitCode == nullptr ||
        status == nullptr) {
      return E_POINTER;
    }
    return Guarded(InterfaceId(), [&] {
      *status = StatusOfOutcome((link_.get()->*operation)(*address, BstrToUtf8(*modelCode), *parameter, *unitCode));
    });
  }

  std::unique_ptr<DriveLink> MakeLink() {
    const std::string scenario = ScenarioFile();
    if (scenario.empty()) return SimulatedLinkFactory(clock_, locale_).Create(wait_);
    return ScenarioLinkFactory(
               files_, clock_, [this](Instant moment) { clock_.Wait(moment); }, scenario)
        .Create(wait_);
  }

  Win32FileSystem files_;
  Win32Locale locale_;
  FollowingClock clock_;
  LinkWait wait_;  ///< the host's interface has no place for it
  std::unique_ptr<DriveLink> link_;
};

}  // namespace

ServerDescription DescribeServer() {
  return {CLSID_DriveLink,
          LIBID_DriveLinkSim,
          IID__DriveLink,
          L"_DriveLink",
          L"Simulated drives for ChartProject",
          L"DriveLinkSim.DriveLink",
          {{kScenarioValue, L""}}};
}

IUnknown* MakeServerObject() {
  return static_cast<_DriveLink*>(new DriveLinkObject());
}

}  // namespace chartproject::win32
