// One row a key: its name, what it takes, and how it is set and written.
#include "links/serial/link_url.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>
#include <vector>

#include "platform/run_time_error.h"

namespace chartproject {

namespace {

struct Key {
  std::string_view name;
  std::string values;  ///< for the sentence that refuses another one
  bool serialOnly;
  std::function<bool(LineSettings&, std::string_view)> set;
  std::function<std::string(const LineSettings&)> text;
};

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

Key NumberKey(std::string_view name, int LineSettings::*field, int least, int most, bool serialOnly = false) {
  return {name, std::to_string(least) + " - " + std::to_string(most), serialOnly,
          [field, least, most](LineSettings& settings, std::string_view text) {
            const auto number = WholeNumber(text);
            if (!number || *number < least || *number > most) return false;
            settings.*field = *number;
            return true;
          },
          [field](const LineSettings& settings) { return std::to_string(settings.*field); }};
}

std::string BaudList() {
  std::vector<int> bauds(std::begin(kBauds), std::end(kBauds));
  std::ranges::sort(bauds);
  std::string list;
  for (const int baud : bauds) list += (list.empty() ? "" : ", ") + std::to_string(baud);
  return list;
}

Key BaudKey() {
  return {"baud", BaudList(), true,
          [](LineSettings& settings, std::string_view text) {
            const auto number = WholeNumber(text);
            if (!number || std::ranges::find(kBauds, *number) == std::end(kBauds)) return false;
            settings.baud = *number;
            return true;
          },
          [](const LineSettings& settings) { return std::to_string(settings.baud); }};
}

struct NamedParity {
  std::string_view name;
  Parity parity;
};
constexpr NamedParity kParities[] = {{"none", Parity::kNone}, {"even", Parity::kEven}, {"odd", Parity::kOdd}};

Key ParityKey() {
  return {"parity", "none, even, odd", true,
          [](LineSettings& settings, std::string_view text) {
            const auto* const found = std::ranges::find(kParities, text, &NamedParity::name);
            if (found == std::end(kParities)) return false;
            settings.parity = found->parity;
            return true;
          },
          [](const LineSettings& settings) {
            return std::string(std::ranges::find(kParities, settings.parity, &NamedParity::parity)->name);
          }};
}

Key TableKey() {
  return {"function", "holding, input", false,
          [](LineSettings& settings, std::string_view text) {
            if (text != "holding" && text != "input") return false;
            settings.table = text == "input" ? RegisterTable::kInput : RegisterTable::kHolding;
            return true;
          },
          [](const LineSettings& settings) {
            return std::string(settings.table == RegisterTable::kInput ? "input" : "holding");
          }};
}

const std::vector<Key>& Keys() {
  constexpr int kShortestTimeout = 10;
  constexpr int kLongestTimeout = 60000;
  constexpr int kMostRetries = 10;
  constexpr int kLongestGap = 1000;
  constexpr int kLastOffset = 65535 - 999;  // of the last parameter
  static const std::vector<Key> keys{BaudKey(),
                                     ParityKey(),
                                     NumberKey("stop", &LineSettings::stopBits, 1, 2, true),
                                     NumberKey("timeout", &LineSettings::timeout, kShortestTimeout, kLongestTimeout),
                                     NumberKey("retries", &LineSettings::retries, 0, kMostRetries),
                                     NumberKey("gap", &LineSettings::gap, 0, kLongestGap),
                                     NumberKey("offset", &LineSettings::offset, -1, kLastOffset),
                                     TableKey()};
  return keys;
}

std::string KeyList(bool network) {
  std::string list;
  for (const Key& key : Keys()) {
    if (!network || !key.serialOnly) list.append(list.empty() ? "" : ", ").append(key.name);
  }
  return list;
}

void TakeKey(LineSettings& settings, std::string_view link, std::string_view pair) {
  const std::size_t equals = pair.find('=');
  const std::string_view name = pair.substr(0, equals);
  const auto key = std::ranges::find(Keys(), name, &Key::name);
  if (key == Keys().end() || (settings.network && key->serialOnly)) {
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kLinkKeyUnknown,
                       {std::string(link), std::string(name), KeyList(settings.network)});
  }
  const std::string_view value = equals == std::string_view::npos ? std::string_view() : pair.substr(equals + 1);
  if (!key->set(settings, value)) {
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kLinkValueRefused,
                       {std::string(link), std::string(name), std::string(value), key->values});
  }
}

[[noreturn]] void RefusePlace(std::string_view link) {
  throw RunTimeError(error_number::kInvalidProcedureCall, Text::kLinkWithoutPort, {std::string(link)});
}

/// "HOST", "HOST:PORT", "[ADDRESS]:PORT"; an address with colons needs its brackets.
void TakeHost(LineSettings& settings, std::string_view link, std::string_view place) {
  constexpr int kLastService = 65535;
  const bool bracketed = place.starts_with('[');
  const std::size_t end = bracketed ? place.find(']') : place.find(':');
  if (bracketed && end == std::string_view::npos) RefusePlace(link);
  settings.port = place.substr(bracketed ? 1 : 0, bracketed ? end - 1 : end);
  std::string_view rest = end == std::string_view::npos ? std::string_view() : place.substr(end + (bracketed ? 1 : 0));
  settings.service = "502";
  if (settings.port.empty()) RefusePlace(link);
  if (rest.empty()) return;
  const auto number = rest.front() == ':' ? WholeNumber(rest.substr(1)) : std::nullopt;
  if (!number || *number < 1 || *number > kLastService) RefusePlace(link);
  settings.service = std::to_string(*number);
}

}  // namespace

bool IsLineText(std::string_view link) noexcept {
  return link.starts_with(kSerialScheme) || link.starts_with(kNetworkScheme);
}

LineSettings ParseLineText(std::string_view link, const LineSettings& defaults) {
  if (!IsLineText(link)) RefusePlace(link);
  LineSettings settings = defaults;
  settings.network = link.starts_with(kNetworkScheme);
  std::string_view rest = link.substr(settings.network ? kNetworkScheme.size() : kSerialScheme.size());
  const std::size_t question = rest.find('?');
  const std::string_view place = rest.substr(0, question);
  if (settings.network) {
    settings.gap = 0;  // a line of its own to each drive's gateway
    TakeHost(settings, link, place);
  } else if (!place.empty()) {
    settings.port = place;
  }
  if (settings.port.empty()) RefusePlace(link);
  rest = question == std::string_view::npos ? std::string_view() : rest.substr(question + 1);
  while (!rest.empty()) {
    const std::size_t end = rest.find('&');
    TakeKey(settings, link, rest.substr(0, end));
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
  }
  return settings;
}

std::string LineText(const LineSettings& settings, const LineSettings& defaults) {
  LineSettings usual = defaults;
  std::string text(settings.network ? kNetworkScheme : kSerialScheme);
  if (settings.network) {
    usual.gap = 0;
    const bool brackets = settings.port.find(':') != std::string::npos;
    text += (brackets ? "[" + settings.port + "]" : settings.port) + ":" + settings.service;
  } else {
    text += settings.port;
  }
  char mark = '?';
  for (const Key& key : Keys()) {
    const std::string value = key.text(settings);
    if ((settings.network && key.serialOnly) || value == key.text(usual)) continue;
    text.append(1, mark).append(key.name).append("=").append(value);
    mark = '&';
  }
  return text;
}

std::string SpeedText(const LineSettings& settings) {
  return std::to_string(settings.baud) + " 8" + static_cast<char>(settings.parity) + std::to_string(settings.stopBits);
}

std::chrono::microseconds FrameGap(const LineSettings& settings) {
  const std::chrono::microseconds asked = std::chrono::milliseconds(settings.gap);
  if (settings.network) return asked;
  constexpr std::int64_t kMicrosPerSecond = 1'000'000;
  const int bits = 1 + 8 + (settings.parity == Parity::kNone ? 0 : 1) + settings.stopBits;
  return std::max(asked, std::chrono::microseconds(kMicrosPerSecond * bits * 7 / 2 / settings.baud));
}

}  // namespace chartproject
