// Requests handed to the line's thread, replies written by unit code.
#include "links/serial/serial_link.h"

#include <array>
#include <utility>

#include "drive/drive_table.h"
#include "links/serial/line_thread.h"
#include "links/serial/serial_line.h"
#include "links/shown_value.h"
#include "texts/texts.h"

namespace chartproject {

namespace {

/// The names of the exceptions 1 to 11; the unused codes have none.
std::string ExceptionName(std::uint8_t code, Language language) {
  constexpr std::array<Text, 11> kNames{Text::kExceptionFunction, Text::kExceptionAddress, Text::kExceptionValue,
                                        Text::kExceptionDevice,   Text::kExceptionLater,   Text::kExceptionBusy,
                                        Text::kExceptionCode,     Text::kExceptionMemory,  Text::kExceptionCode,
                                        Text::kExceptionPath,     Text::kExceptionTarget};
  const bool named = code >= 1 && code <= kNames.size();
  const Text text = named ? kNames.at(code - 1U) : Text::kExceptionCode;
  return FillIn(TextIn(language, text), {std::to_string(code)});
}

/// The line with its port and its thread, from opening to closing.
class RunningLine {
 public:
  RunningLine(const LineSettings& settings, const LinePortMaker& makePort, Clock& clock)
      : thread_(std::make_unique<LineThread>(clock)),
        port_(makePort(settings, [thread = thread_.get()] { return thread->Stopping(); })),
        line_(*port_, {std::chrono::milliseconds(settings.timeout), settings.retries, FrameGap(settings)}, clock,
              [thread = thread_.get()](Instant moment) { return thread->WaitUntil(moment); }) {}
  ~RunningLine() {
    thread_.reset();  // first: its work uses the line
    line_.Close();
  }
  RunningLine(const RunningLine&) = delete;
  RunningLine& operator=(const RunningLine&) = delete;

  /// False when the caller gave up. Throws what the port throws.
  bool Open(const LinkWait& wait) {
    return thread_->Do([this] { line_.Open(); }, wait);
  }

  using Operation = LineReply (SerialLine::*)(const LineRequest&);
  /// Nothing when the caller gave up.
  std::optional<LineReply> Ask(Operation operation, const LineRequest& request, const LinkWait& wait) {
    const auto reply = std::make_shared<LineReply>();
    const bool done = thread_->Do([this, operation, request, reply] { *reply = (line_.*operation)(request); }, wait);
    return done ? std::optional(*reply) : std::nullopt;
  }

 private:
  std::unique_ptr<LineThread> thread_;
  std::unique_ptr<LinePort> port_;
  SerialLine line_;
};

class SerialLink : public DriveLink {
 public:
  SerialLink(LineSettings settings, LinePortMaker makePort, Clock& clock, const Locale& locale,
             std::function<Language()> language, const LinkWait& wait)
      : settings_(std::move(settings)),
        makePort_(std::move(makePort)),
        clock_(clock),
        writer_(locale),
        language_(std::move(language)),
        wait_(wait) {}

  void SetP210Value(std::int16_t value) override { writer_.SetSpeedDecimals(value); }
  void SetP529Value(std::int16_t value) override { writer_.SetProcessDecimals(value); }

  ReadOutcome ReadParameter(std::int16_t address, const std::string& /*modelCode*/, std::int16_t parameter,
                            std::int16_t unitCode) override {
    return Ask(&SerialLine::Read, address, parameter, unitCode);
  }
  ReadOutcome ProbeParameter(std::int16_t address, const std::string& /*modelCode*/, std::int16_t parameter,
                             std::int16_t unitCode) override {
    return Ask(&SerialLine::Probe, address, parameter, unitCode);
  }

  void OpenLink() override {
    CloseLink();
    auto line = std::make_unique<RunningLine>(settings_, makePort_, clock_);
    if (line->Open(wait_)) line_ = std::move(line);
  }
  void CloseLink() override { line_.reset(); }
  double GetValue() override { return value_.number; }
  std::string GetText() override { return value_.text; }

 private:
  ReadOutcome Ask(RunningLine::Operation operation, std::int16_t address, std::int16_t parameter,
                  std::int16_t unitCode) {
    constexpr int kLastRegister = 65535;
    if (!line_) return {ReadFailure::kPortGone, {}};
    const int number = parameter + settings_.offset;
    if (address < 1 || address > kLastDriveAddress || number < 0 || number > kLastRegister) {
      return {ReadFailure::kNoAnswer, {}};
    }
    const LineRequest request{static_cast<std::uint8_t>(address), static_cast<std::uint8_t>(settings_.table),
                              static_cast<std::uint16_t>(number)};
    const std::optional<LineReply> reply = line_->Ask(operation, request, wait_);
    if (!reply) return {ReadFailure::kGivenUp, {}};
    if (reply->kind == ReplyKind::kValue) value_ = writer_.WriteRegister(reply->value, unitCode);
    return OutcomeOfReply(*reply, language_());
  }

  LineSettings settings_;
  LinePortMaker makePort_;
  Clock& clock_;
  ValueWriter writer_;
  std::function<Language()> language_;
  const LinkWait& wait_;
  ShownValue value_;
  std::unique_ptr<RunningLine> line_;
};

}  // namespace

ReadOutcome OutcomeOfReply(const LineReply& reply, Language language) {
  switch (reply.kind) {
    case ReplyKind::kValue:
      return {};
    case ReplyKind::kException:
      return {ReadFailure::kException, ExceptionName(reply.exception, language)};
    case ReplyKind::kSilent:
      return {ReadFailure::kNoAnswer, {}};
    case ReplyKind::kIncomplete:
      return {ReadFailure::kTimeout, {}};
    case ReplyKind::kDamaged:
      return {ReadFailure::kChecksum, {}};
    case ReplyKind::kForeign:
      return {ReadFailure::kNoAnswer, std::string(TextIn(language, Text::kReadForeign))};
    case ReplyKind::kPortGone:
      return {ReadFailure::kPortGone, reply.detail};
    case ReplyKind::kStopped:
      break;
  }
  return {ReadFailure::kGivenUp, {}};
}

SerialLinkFactory::SerialLinkFactory(LineSettings settings, LinePortMaker makePort, Clock& clock, const Locale& locale,
                                     std::function<Language()> language)
    : settings_(std::move(settings)),
      makePort_(std::move(makePort)),
      clock_(clock),
      locale_(locale),
      language_(std::move(language)) {}

std::unique_ptr<DriveLink> SerialLinkFactory::Create(const LinkWait& wait) {
  return std::make_unique<SerialLink>(settings_, makePort_, clock_, locale_, language_, wait);
}

}  // namespace chartproject
