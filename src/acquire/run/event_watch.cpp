// How each event is looked for on the drive.
#include "acquire/run/event_watch.h"

#include <array>
#include <optional>

#include "common/environment/language.h"
#include "common/values/numbers.h"
#include "drive/parameter_read.h"

namespace chartproject {

namespace {

constexpr std::int16_t kInputParameter = 12;

EventTest TestState(DriveContext& context, std::string_view state) {
  if (!ReadWithUnit(context, kStatusParameter, kDirectUnitCode).Answered()) return {watch_code::kNoAnswer, {}};
  DecodeStatus(context.status, context.driveLink->GetValue());
  const std::string& shown = context.status.strStatus;
  return {shown == state ? watch_code::kOccurred : watch_code::kNotYet, shown};
}

/// @param input 1 to 8; @param level 'I' for 0, 'A' for 1
EventTest TestInput(DriveContext& context, std::size_t input, char level) {
  if (!ReadWithUnit(context, kInputParameter, UnitCodeOf(context, kInputParameter)).Answered()) {
    return {watch_code::kInputNotYet, {}};
  }
  const std::string text = context.driveLink->GetText();
  if (text.size() < input) return {watch_code::kInputNotYet, {}};
  const char shown = text[input - 1];
  return {shown == level ? watch_code::kOccurred : watch_code::kInputNotYet, shown == 'A' ? "1" : "0"};
}

bool Compare(TriggerEvent event, double value, double content) {
  switch (event) {
    case TriggerEvent::kGreater:
      return value > content;
    case TriggerEvent::kLess:
      return value < content;
    case TriggerEvent::kEqual:
      return value == content;
    case TriggerEvent::kGreaterOrEqual:
      return value >= content;
    default:
      return value <= content;
  }
}

/// The number that a special read's text shows; nothing when it does not read as one.
std::optional<double> NumberOf(const DriveContext& context, const SpecialReading& reading) {
  const NumberFormat& numbers = context.ports.locale.Numbers();
  if (!reading.text || !IsTypedDecimal(*reading.text, numbers)) return std::nullopt;
  return ToTypedDecimal(*reading.text, numbers);
}

/// Compares the value that a recording would keep: the special read comes first.
EventTest TestComparison(DriveContext& context, const WatchedEvent& event) {
  const std::optional<SpecialReading> special = ReadSpecial(context, event.parameter);
  const ReadOutcome outcome = special ? special->outcome : ReadOrdinary(context, event.parameter);
  if (!outcome.Answered()) return {watch_code::kNoAnswer, {}};
  const std::optional<double> value = special ? NumberOf(context, *special) : context.driveLink->GetValue();
  const bool holds = value && Compare(event.event, *value, event.content);
  return {holds ? watch_code::kOccurred : watch_code::kNotYet,
          value ? DoubleText(*value, context.ports.locale.Numbers()) : special->text.value_or(std::string())};
}

}  // namespace

std::string EventWords(const Environment& environment, const WatchedEvent& event) {
  constexpr std::array kOperators{" > ", " < ", " = ", " >= ", " <= "};
  if (event.event == TriggerEvent::kNone) return {};
  if (!IsCompareEvent(event.event)) return LoadMessage(environment, EventName(event.event));
  const auto place = static_cast<std::size_t>(PositionOf(event.event) - PositionOf(TriggerEvent::kGreater));
  return "P" + FormatDigits(event.parameter, 3) + kOperators.at(place) +
         DoubleText(event.content, environment.ports.locale.Numbers());
}

EventTest TestEvent(DriveContext& context, const WatchedEvent& event) {
  if (event.event == TriggerEvent::kNone) return {};
  if (IsCompareEvent(event.event)) return TestComparison(context, event);
  const int input = PositionOf(event.event) - PositionOf(TriggerEvent::kFirstInput);
  if (input < 0) return TestState(context, EventCode(event.event));
  return TestInput(context, static_cast<std::size_t>(input) / 2 + 1, input % 2 == 0 ? 'I' : 'A');
}

}  // namespace chartproject
