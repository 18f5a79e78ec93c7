// IDispatch from the caller's side.
#include "platform/win32/com/automation_call.h"

#include <algorithm>

#include "platform/run_time_error.h"
#include "platform/win32/com/com_error.h"
#include "platform/win32/wide_text.h"

namespace chartproject::win32 {

namespace {

constexpr int kObjectRequired = 424;

/// Ids of a member and of the named arguments, as one question to the object.
std::vector<DISPID> IdsOf(IDispatch* object, const wchar_t* name, const AutomationArguments& arguments) {
  std::vector<std::wstring> names{name};
  for (const AutomationArgument& argument : arguments) {
    if (!argument.name.empty()) names.push_back(argument.name);
  }
  std::vector<wchar_t*> pointers;
  pointers.reserve(names.size());
  for (std::wstring& text : names) pointers.push_back(text.data());
  std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
  const HRESULT result = object->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(pointers.size()),
                                               LOCALE_USER_DEFAULT, ids.data());
  if (result == DISP_E_UNKNOWNNAME) {
    throw RunTimeError(error_number::kPropertyNotSupported, ToUtf8(name) + ": the object has no such member");
  }
  RequireSuccess(result, ToUtf8(name).c_str());
  return ids;
}

[[noreturn]] void ThrowException(EXCEPINFO& exception, const wchar_t* name) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  const std::string description = BstrToUtf8(exception.bstrDescription);
  const std::string source = BstrToUtf8(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  const int number = exception.wCode != 0 ? exception.wCode : ErrorNumber(exception.scode);
  throw RunTimeError(number, description.empty() ? ToUtf8(name) + " failed" : description,
                     source.empty() ? "Excel.Application" : source);
}

ComVariant Invoke(IDispatch* object, const wchar_t* name, AutomationArguments& arguments, WORD flags) {
  std::vector<DISPID> ids = IdsOf(object, name, arguments);
  const DISPID member = ids.front();
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
  EXCEPINFO exception{};
  const HRESULT called = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                        isPut ? nullptr : result.Get(), &exception, nullptr);
  if (called == DISP_E_EXCEPTION) ThrowException(exception, name);
  RequireSuccess(called, ToUtf8(name).c_str());
  return result;
}

}  // namespace

ComVariant CallMember(IDispatch* object, const wchar_t* name, AutomationArguments arguments, WORD flags) {
  return Invoke(object, name, arguments, flags);
}

void SetMember(IDispatch* object, const wchar_t* name, ComVariant value) {
  AutomationArguments arguments;
  arguments.push_back({L"", std::move(value)});
  Invoke(object, name, arguments, DISPATCH_PROPERTYPUT);
}

ComRef<IDispatch> GetObjectMember(IDispatch* object, const wchar_t* name, AutomationArguments arguments) {
  const ComVariant result = CallMember(object, name, std::move(arguments));
  if (result.Value().vt != VT_DISPATCH || result.Value().pdispVal == nullptr) {
    throw RunTimeError(kObjectRequired, ToUtf8(name) + " gave no object");
  }
  return ComRef<IDispatch>(result.Value().pdispVal);
}

}  // namespace chartproject::win32
