// The user's 8-bit code page (or double-byte one), such that every byte survives reading and writing.
#pragma once

#include <array>

#include "platform/code_page.h"

namespace chartproject::win32 {

class Win32CodePage : public CodePage {
 public:
  /// @param codePage number of the system's code page; 0 is the active one
  explicit Win32CodePage(unsigned codePage = 0);
  [[nodiscard]] std::string Decode(std::string_view bytes) const override;
  [[nodiscard]] std::string Encode(std::string_view text) const override;

 private:
  [[nodiscard]] std::size_t CharacterAt(std::string_view bytes, std::wstring& wide) const;

  unsigned codePage_;
  std::size_t longest_ = 1;            ///< bytes of the longest character
  std::array<wchar_t, 256> single_{};  ///< character of each byte that is one by itself; 0 for the others
};

}  // namespace chartproject::win32
