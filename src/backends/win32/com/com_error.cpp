// Both directions of the translation of errors.
#include "backends/win32/com/com_error.h"

#include <exception>

#include "backends/win32/com/com_ref.h"
#include "backends/win32/system_error.h"

namespace chartproject::win32 {

HRESULT PublishError(const RunTimeError& error, const IID& source) noexcept {
  try {
    ComRef<ICreateErrorInfo> details;
    ComRef<IErrorInfo> info;
    if (SUCCEEDED(CreateErrorInfo(details.Receive()))) {
      const ComText description(error.Description());
      const ComText origin(error.Source());
      details->SetGUID(source);
      details->SetDescription(description.Get());
      details->SetSource(origin.Get());
      if (SUCCEEDED(details->QueryInterface(IID_IErrorInfo, info.ReceiveUntyped()))) SetErrorInfo(0, info.Get());
    }
  } catch (const std::exception&) {
    SetErrorInfo(0, nullptr);  // the number alone still reaches the caller
  }
  return ErrorCode(error.Number());
}

HRESULT PublishFailure(const std::exception& error, const IID& source) noexcept {
  try {
    return PublishError(AsRunTimeError(error), source);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

namespace {

struct Failure {
  std::string description;
  std::string source;
};

Failure TakeFailure(HRESULT result) {
  ComText description;
  ComText source;
  ComRef<IErrorInfo> info;
  if (GetErrorInfo(0, info.Receive()) == S_OK) {
    info->GetDescription(description.Receive());
    info->GetSource(source.Receive());
  }
  Failure failure{description.Utf8(), source.Utf8()};
  if (failure.description.empty()) failure.description = SystemMessage(static_cast<DWORD>(result));
  return failure;
}

}  // namespace

std::string FailureText(HRESULT result) {
  return TakeFailure(result).description;
}

void RequireSuccess(HRESULT result, const char* what) {
  if (SUCCEEDED(result)) return;
  const Failure failure = TakeFailure(result);
  throw RunTimeError(ErrorNumber(result), std::string(what) + ": " + failure.description,
                     failure.source.empty() ? "ChartProject" : failure.source);
}

}  // namespace chartproject::win32
