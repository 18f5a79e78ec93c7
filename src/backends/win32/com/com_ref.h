// Owners of COM references and texts.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "backends/win32/windows_api.h"

#include <ole2.h>
#include <oleauto.h>

namespace chartproject::win32 {

/// Holds one reference to an interface and gives it back.
template <typename Interface>
class ComRef {
 public:
  ComRef() noexcept = default;
  /// Adds a reference.
  explicit ComRef(Interface* object) noexcept : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComRef(ComRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComRef& operator=(ComRef&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComRef() { Reset(); }
  ComRef(const ComRef&) = delete;
  ComRef& operator=(const ComRef&) = delete;

  [[nodiscard]] Interface* Get() const noexcept { return object_; }
  Interface* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }
  /// Where a call that hands out a reference puts it.
  [[nodiscard]] Interface** Receive() noexcept {
    Reset();
    return &object_;
  }
  [[nodiscard]] void** ReceiveUntyped() noexcept { return reinterpret_cast<void**>(Receive()); }
  void Reset() noexcept {
    if (object_ != nullptr) std::exchange(object_, nullptr)->Release();
  }

 private:
  Interface* object_ = nullptr;
};

/// Owns a text of automation.
class ComText {
 public:
  ComText() noexcept = default;
  /// Throws std::bad_alloc.
  explicit ComText(std::string_view utf8);
  ~ComText() { SysFreeString(text_); }
  ComText(const ComText&) = delete;
  ComText& operator=(const ComText&) = delete;
  [[nodiscard]] BSTR Get() const noexcept { return text_; }
  [[nodiscard]] BSTR* Receive() noexcept { return &text_; }
  BSTR Release() noexcept { return std::exchange(text_, nullptr); }
  /// Empty for the null text, by which automation passes an empty one.
  [[nodiscard]] std::string Utf8() const;

 private:
  BSTR text_ = nullptr;
};

/// Owns a variant.
class ComVariant {
 public:
  ComVariant() noexcept { VariantInit(&value_); }
  explicit ComVariant(std::int32_t number) noexcept : ComVariant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  explicit ComVariant(bool flag) noexcept : ComVariant() {
    value_.vt = VT_BOOL;
    value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit ComVariant(std::string_view utf8);
  explicit ComVariant(IDispatch* object) noexcept : ComVariant() {
    value_.vt = VT_DISPATCH;
    value_.pdispVal = object;
    if (object != nullptr) object->AddRef();
  }
  ComVariant(ComVariant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  ComVariant& operator=(ComVariant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~ComVariant() { VariantClear(&value_); }
  ComVariant(const ComVariant&) = delete;
  ComVariant& operator=(const ComVariant&) = delete;
  [[nodiscard]] VARIANT* Get() noexcept { return &value_; }
  [[nodiscard]] const VARIANT& Value() const noexcept { return value_; }

 private:
  VARIANT value_;
};

/// A text of automation as UTF-8; a null one is empty.
[[nodiscard]] std::string BstrToUtf8(BSTR text);

}  // namespace chartproject::win32
