// Numbers of the messages that the dialog shows from more than one place.
#pragma once

namespace chartproject {

inline constexpr int kTooLittleSpace = 86;  ///< "Insufficient disk space: "
inline constexpr int kPointsSavedOn = 87;   ///< ". Points were saved on file: "

}  // namespace chartproject
