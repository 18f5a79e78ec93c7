// IDispatch from the caller's side.
#include "backends/win32/com/automation_call.h"

#include <algorithm>

#include "backends/win32/com/com_error.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

constexpr int kObjectRequired = 424;
constexpr LCID kUsEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
constexpr int kBusyTries = 100;
constexpr DWORD kBusyMilliseconds = 100;
/// The application's own code for "not now", beside the two of the system.
constexpr auto kIgnored = static_cast<HRESULT>(0x800AC472);

bool IsBusy(HRESULT result) {
  return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER || result == kIgnored;
}

bool IsUnknownLocale(HRESULT result) {
  return result == TYPE_E_INVDATAREAD || result == DISP_E_UNKNOWNLCID || result == TYPE_E_LIBNOTREGISTERED;
}

void RequireAnswer(HRESULT result, const wchar_t* name) {
  if (!IsBusy(result)) return RequireSuccess(result, ToUtf8(name).c_str());
  throw RunTimeError(ErrorNumber(result), Text::kApplicationBusy);
}

void Forget(const EXCEPINFO& exception) {
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
}

[[noreturn]] void ThrowException(EXCEPINFO& exception, const wchar_t* name) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  const std::string description = BstrToUtf8(exception.bstrDescription);
  const std::string source = BstrToUtf8(exception.bstrSource);
  Forget(exception);
  const int number = exception.wCode != 0 ? exception.wCode : ErrorNumber(exception.scode);
  if (description.empty()) throw RunTimeError(number, Text::kApplicationFailed, {ToUtf8(name)});
  throw RunTimeError(number, description, source.empty() ? "Excel.Application" : source);
}

}  // namespace

HRESULT AutomationClient::Ask(const std::function<HRESULT(LCID locale)>& question) {
  HRESULT result = question(locale_);
  if (IsUnknownLocale(result) && locale_ != kUsEnglish) {
    locale_ = kUsEnglish;
    result = question(locale_);
  }
  for (int tries = 1; IsBusy(result) && tries < kBusyTries; ++tries) {
    Sleep(kBusyMilliseconds);
    result = question(locale_);
  }
  return result;
}

/// Ids of a member and of the named arguments, as one question to the object.
std::vector<DISPID> AutomationClient::IdsOf(IDispatch* object, const MemberName& name,
                                            const AutomationArguments& arguments) {
  if (name.id != DISPID_UNKNOWN) return {name.id};
  std::vector<std::wstring> names{name.text};
  for (const AutomationArgument& argument : arguments) {
    if (!argument.name.empty()) names.push_back(argument.name);
  }
  std::vector<wchar_t*> pointers;
  pointers.reserve(names.size());
  for (std::wstring& text : names) pointers.push_back(text.data());
  std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
  const HRESULT result = Ask([&](LCID locale) {
    return object->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(pointers.size()), locale, ids.data());
  });
  if (result == DISP_E_UNKNOWNNAME) {
    throw RunTimeError(error_number::kPropertyNotSupported, Text::kApplicationMember, {ToUtf8(name.text)});
  }
  RequireAnswer(result, name.text);
  return ids;
}

ComVariant AutomationClient::Invoke(IDispatch* object, MemberName& name, AutomationArguments& arguments, WORD flags) {
  std::vector<DISPID> ids = IdsOf(object, name, arguments);
  name.id = ids.front();
  std::vector<DISPID> named;
  std::vector<VARIANT> values;
  // Arguments travel last first; the named ones come before the others, with their ids in the same order.
  std::size_t nextName = ids.size();
  std::for_each(arguments.rbegin(), arguments.rend(), [&](const AutomationArgument& argument) {
    values.push_back(argument.value.Value());
    if (!argument.name.empty()) named.push_back(ids[--nextName]);
  });
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
  DISPPARAMS parameters{values.data(), isPut ? &put : named.data(), static_cast<UINT>(values.size()),
                        isPut ? 1U : static_cast<UINT>(named.size())};
  ComVariant result;
  const HRESULT called = Ask([&](LCID locale) {
    EXCEPINFO exception{};
    const HRESULT answer = object->Invoke(name.id, IID_NULL, locale, flags, &parameters, isPut ? nullptr : result.Get(),
                                          &exception, nullptr);
    if (answer != DISP_E_EXCEPTION) return answer;
    if (IsBusy(exception.scode)) {
      Forget(exception);
      return exception.scode;
    }
    ThrowException(exception, name.text);
  });
  RequireAnswer(called, name.text);
  return result;
}

void AutomationClient::Set(IDispatch* object, MemberName& name, ComVariant value) {
  AutomationArguments arguments;
  arguments.push_back({L"", std::move(value)});
  Invoke(object, name, arguments, DISPATCH_PROPERTYPUT);
}

ComRef<IDispatch> AutomationClient::Fetch(IDispatch* object, MemberName& name, AutomationArguments arguments) {
  const ComVariant result = Invoke(object, name, arguments, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
  if (result.Value().vt != VT_DISPATCH || result.Value().pdispVal == nullptr) {
    throw RunTimeError(kObjectRequired, Text::kWithoutObject, {ToUtf8(name.text)});
  }
  return ComRef<IDispatch>(result.Value().pdispVal);
}

}  // namespace chartproject::win32
