// The text that chooses a line to real drives, as the option --link and the settings hold it.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace chartproject {

enum class Parity : char { kNone = 'N', kEven = 'E', kOdd = 'O' };

/// Which table of registers a drive keeps its parameters in; the value is the function that reads it.
enum class RegisterTable : std::uint8_t { kHolding = 3, kInput = 4 };

/// Everything that a link text says. The defaults are those of a drive as it is delivered.
struct LineSettings {
  bool network = false;  ///< a TCP connection instead of a serial port
  std::string port;      ///< device, or host name
  std::string service;   ///< TCP port; empty for a serial port
  int baud = 9600;       ///< one of kBauds
  Parity parity = Parity::kEven;
  int stopBits = 1;
  int timeout = 300;  ///< milliseconds that a drive has for its answer
  int retries = 1;    ///< further tries of a reading that failed, 0 to 10
  int gap = 5;        ///< milliseconds between an answer and the next request; 3.5 characters at least
  int offset = 0;     ///< register = parameter + offset
  RegisterTable table = RegisterTable::kHolding;
};

inline constexpr std::string_view kSerialScheme = "modbus:";
inline constexpr std::string_view kNetworkScheme = "modbus-tcp:";

/// Speeds of a serial port, the most usual first.
inline constexpr int kBauds[] = {9600, 19200, 38400, 57600, 115200, 4800, 2400, 1200};

/// True for a text that chooses real drives, well formed or not.
[[nodiscard]] bool IsLineText(std::string_view link) noexcept;

/// "modbus:PORT?baud=9600&parity=even&stop=1&timeout=300&retries=1&gap=5&offset=0&function=holding", or
/// "modbus-tcp:HOST:PORT?..." without the keys of a serial port. Every key may be left out.
/// Throws RunTimeError 5 with the list for an unknown key or value, and for a text without port or host.
/// @param defaults of what is left out, the serial port too
[[nodiscard]] LineSettings ParseLineText(std::string_view link, const LineSettings& defaults = {});

/// The text with every key that differs from the defaults.
[[nodiscard]] std::string LineText(const LineSettings& settings, const LineSettings& defaults = {});

/// "9600 8E1".
[[nodiscard]] std::string SpeedText(const LineSettings& settings);

/// The pause that ends a frame on a serial line: the gap of the settings, and 3.5 characters at least.
[[nodiscard]] std::chrono::microseconds FrameGap(const LineSettings& settings);

}  // namespace chartproject
