// Bits of the status word, and the text that they come to.
#include "drive/drive_status.h"

#include "common/values/numbers.h"

namespace chartproject {

namespace {

/// Only these error codes are shown; others leave the text to the status bits.
bool IsShown(std::int16_t errorCode) {
  return errorCode < 14 || errorCode == 17 || errorCode == 32 || errorCode == 41;
}

std::string StatusText(const DriveStatus& status) {
  if (status.bShowError) return "E" + FormatDigits(status.intErrorCode, 2);
  if (status.bBit13) return "SUB";
  const bool running = status.bBit9 && (status.bBit8 || status.bBit11);
  return running ? "RUN" : "READY";
}

}  // namespace

void DecodeStatus(DriveStatus& status, double word) {
  const auto bits = static_cast<std::uint32_t>(RoundToInteger32(word));
  const auto bit = [bits](int n) { return ((bits >> n) & 1U) != 0; };
  status.bBit8 = bit(8);
  status.bBit9 = bit(9);
  status.bBit10 = bit(10);
  status.bBit11 = bit(11);
  status.bBit12 = bit(12);
  status.bBit13 = bit(13);
  status.bError = bit(15);
  if (status.bError) status.intErrorCode = static_cast<std::int16_t>(bits & 0xFFU);
  status.bShowError = status.bError && IsShown(status.intErrorCode);
  status.strStatus = StatusText(status);
}

}  // namespace chartproject
