// Windows-1252, the 8-bit code page of the files away from Windows.
#pragma once

#include "platform/code_page.h"

namespace chartproject {

/// The five bytes that the code page leaves undefined (81, 8D, 8F, 90, 9D) are the control characters of the same
/// numbers, so that every byte comes back as it was.
class CodePage1252 : public CodePage {
 public:
  [[nodiscard]] std::string Decode(std::string_view bytes) const override;
  [[nodiscard]] std::string Encode(std::string_view text) const override;
};

}  // namespace chartproject
