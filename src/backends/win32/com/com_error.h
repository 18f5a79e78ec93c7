// Run-time errors as automation errors, and back.
#pragma once

#include <new>
#include <string>

#include "backends/win32/windows_api.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

/// The automation error for run-time error n: 0x800A0000 + n. A negative number is such a code itself.
[[nodiscard]] constexpr HRESULT ErrorCode(int number) noexcept {
  return number < 0 ? number : static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}
/// The other way: n, or the code itself where another component or the system raised it.
[[nodiscard]] constexpr int ErrorNumber(HRESULT code) noexcept {
  return HRESULT_FACILITY(code) == FACILITY_CONTROL ? HRESULT_CODE(code) : code;
}

/// Hands description and source of an error to the caller's side (IErrorInfo); returns the error's code.
HRESULT PublishError(const RunTimeError& error, const IID& source) noexcept;
/// The same for any exception.
HRESULT PublishFailure(const std::exception& error, const IID& source) noexcept;

/// The one wall between our exceptions and COM: runs the body of a method and turns what it throws into a code with
/// description and source. Nothing is allocated before the wall. @param source the interface that the method belongs to
template <typename Body>
HRESULT Guarded(const IID& source, const Body& body) noexcept {
  SetErrorInfo(0, nullptr);  // what an earlier failure left would be taken for the words of a later one
  try {
    body();
    return S_OK;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    return PublishFailure(error, source);
  } catch (...) {
    return E_UNEXPECTED;
  }
}

/// What a failed call said of itself (IErrorInfo), else the system's words for its code.
[[nodiscard]] std::string FailureText(HRESULT result);

/// Throws the RunTimeError of a failed call, with the description that the called object gave.
/// @param what the call, for our own description when the object gave none
void RequireSuccess(HRESULT result, const char* what);

}  // namespace chartproject::win32
