// Texts between the core and automation.
#include "backends/win32/com/com_ref.h"

#include <new>

#include "backends/win32/wide_text.h"

namespace chartproject::win32 {

ComText::ComText(std::string_view utf8) {
  const std::wstring wide = ToWide(utf8);
  text_ = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (text_ == nullptr) throw std::bad_alloc();
}

std::string ComText::Utf8() const {
  return BstrToUtf8(text_);
}

ComVariant::ComVariant(std::string_view utf8) : ComVariant() {
  value_.bstrVal = ComText(utf8).Release();
  value_.vt = VT_BSTR;
}

std::string BstrToUtf8(BSTR text) {
  return text == nullptr ? std::string() : ToUtf8(std::wstring_view(text, SysStringLen(text)));
}

}  // namespace chartproject::win32
