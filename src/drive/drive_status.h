// The status word of a drive (parameter 6) and its short status text.
#pragma once

#include <cstdint>
#include <string>

namespace chartproject {

/// The parameter that holds the status word in every model.
inline constexpr std::int16_t kStatusParameter = 6;

/// The last decoded status word.
struct DriveStatus {
  bool bBit8 = false;
  bool bBit9 = false;
  bool bBit10 = false;
  bool bBit11 = false;
  bool bBit12 = false;
  bool bBit13 = false;
  bool bError = false;            ///< bit 15: an error code is present
  std::int16_t intErrorCode = 0;  ///< bits 0 to 7, kept when bError is set
  bool bShowError = false;        ///< the error code is one that is shown
  std::string strStatus;          ///< "READY", "RUN", "SUB" or "E" and two digits
};

/// Decodes a status word given as a floating-point number (rounded to 32 bits, else RunTimeError 6).
void DecodeStatus(DriveStatus& status, double word);

}  // namespace chartproject
