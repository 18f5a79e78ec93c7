// Each operation of the link as one call through the interface's table, failures as run-time errors.
#include "links/com/com_drive_link.h"

#include <array>

#include "backends/win32/com/com_error.h"
#include "backends/win32/com/com_ref.h"
#include "backends/win32/com/registration.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/wide_text.h"

#include <drive_link.h>
#include <drive_link_sim.h>

namespace chartproject::win32 {

namespace {

constexpr short kSuccess = 0;  // a read's status

/// Room for an output that nobody reads. A host's link may give it any type that automation can pass; only its place
/// in the call is known.
struct IgnoredOutput {
  alignas(VARIANT) std::array<short, sizeof(VARIANT) / sizeof(short)> room{};
};

class ComDriveLink : public DriveLink {
 public:
  /// @param time null for a link to drives  @param clock the virtual clock; null for the real one
  ComDriveLink(ComRef<_DriveLink> link, ComRef<ISimulatedTime> time, VirtualClock* clock, bool standIn)
      : link_(std::move(link)), time_(std::move(time)), clock_(clock), standIn_(standIn) {}

  void SetP210Value(std::int16_t value) override {
    IgnoredOutput reply;
    RequireSuccess(link_->SetP210Value(&value, reply.room.data()), "SetP210Value");
  }
  void SetP529Value(std::int16_t value) override {
    IgnoredOutput reply;
    RequireSuccess(link_->SetP529Value(&value, reply.room.data()), "SetP529Value");
  }
  ReadOutcome ReadParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                            std::int16_t unitCode) override {
    TellTime();
    ComText model(modelCode);
    short status = kSuccess;
    RequireSuccess(link_->ReadParameter(&address, model.Receive(), &parameter, &unitCode, &status), "ReadParameter");
    TakeTime();
    return OutcomeOf(status);
  }
  ReadOutcome ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                             std::int16_t unitCode) override {
    TellTime();
    ComText model(modelCode);
    short status = kSuccess;
    RequireSuccess(link_->ProbeParameter(&address, model.Receive(), &parameter, &unitCode, &status), "ProbeParameter");
    TakeTime();
    return OutcomeOf(status);
  }
  void OpenLink() override {
    TellTime();
    IgnoredOutput result;  // the link's own code; a line that does not answer shows in the first read
    RequireSuccess(link_->OpenLink(result.room.data()), "OpenLink");
  }
  void CloseLink() override {
    ComVariant ignored;
    RequireSuccess(link_->CloseLink(ignored.Get()), "CloseLink");
  }
  double GetValue() override {
    double value = 0;
    RequireSuccess(link_->GetValue(&value), "GetValue");
    return value;
  }
  std::string GetText() override {
    ComText fetched;
    RequireSuccess(link_->GetText(fetched.Receive()), "GetText");
    return fetched.Utf8();
  }
  [[nodiscard]] bool Simulated() const noexcept override { return static_cast<bool>(time_); }

 private:
  /// What the statuses of a host's link mean, apart from success, is not known here.
  [[nodiscard]] ReadOutcome OutcomeOf(short status) const {
    if (status == kSuccess) return {};
    return standIn_ ? OutcomeOfStatus(status) : ReadOutcome{ReadFailure::kStatus, std::to_string(status)};
  }

  void TellTime() {
    if (!time_ || clock_ == nullptr) return;
    const auto now = std::chrono::duration<double, std::milli>(clock_->Now()).count();
    RequireSuccess(time_->SetTime(now), "SetTime");
  }

  /// The virtual clock goes on by what a slow drive took.
  void TakeTime() {
    if (!time_ || clock_ == nullptr) return;
    double milliseconds = 0;
    RequireSuccess(time_->GetTime(&milliseconds), "GetTime");
    clock_->AdvanceTo(std::chrono::duration_cast<Instant>(std::chrono::duration<double, std::milli>(milliseconds)));
  }

  ComRef<_DriveLink> link_;
  ComRef<ISimulatedTime> time_;
  VirtualClock* clock_;
  bool standIn_;  ///< its statuses are those of the program's own links
};

[[noreturn]] void ThrowCannotCreate(const GUID& classId, const std::string& reason) {
  throw RunTimeError(error_number::kCannotCreateObject, Text::kDriveLinkNotMade, {ToUtf8(IdText(classId)), reason});
}

}  // namespace

const GUID& StandInClass() noexcept {
  return CLSID_DriveLink;
}

const GUID& DriveLinkInterface() noexcept {
  return IID__DriveLink;
}

ComDriveLinkFactory::ComDriveLinkFactory(const GUID& classId, VirtualClock* simulatedClock)
    : classKey_(L"CLSID\\" + IdText(classId)), simulatedClock_(simulatedClock) {}

GUID ComDriveLinkFactory::Configured(const wchar_t* value, const GUID& otherwise) const {
  const auto text = ReadRegistryText(HKEY_CLASSES_ROOT, classKey_, value);
  if (!text || text->empty()) return otherwise;
  GUID id;
  if (FAILED(CLSIDFromString(text->c_str(), &id))) {
    throw RunTimeError(error_number::kCannotCreateObject, Text::kDriveLinkNoId, {ToUtf8(*text)});
  }
  return id;
}

std::unique_ptr<DriveLink> ComDriveLinkFactory::Create(const LinkWait& /*wait*/) {
  const GUID classId = Configured(kDriveLinkClassValue, CLSID_DriveLink);
  const GUID interfaceId = Configured(kDriveLinkInterfaceValue, IID__DriveLink);
  ComRef<IUnknown> object;
  const HRESULT created = CoCreateInstance(classId, nullptr, CLSCTX_ALL, IID_IUnknown, object.ReceiveUntyped());
  if (created == REGDB_E_CLASSNOTREG) ThrowCannotCreate(classId, "the class is not registered");
  if (FAILED(created)) ThrowCannotCreate(classId, FailureText(created));
  ComRef<_DriveLink> link;
  const HRESULT found = object->QueryInterface(interfaceId, link.ReceiveUntyped());
  if (FAILED(found)) ThrowCannotCreate(classId, "it has no interface " + ToUtf8(IdText(interfaceId)));
  ComRef<ISimulatedTime> time;
  const HRESULT simulated = object->QueryInterface(IID_ISimulatedTime, time.ReceiveUntyped());
  if (simulatedClock_ != nullptr && FAILED(simulated)) {
    ThrowCannotCreate(classId, "the virtual clock needs a simulated link");
  }
  return std::make_unique<ComDriveLink>(std::move(link), std::move(time), simulatedClock_,
                                        IsEqualGUID(classId, CLSID_DriveLink) != 0);
}

}  // namespace chartproject::win32
