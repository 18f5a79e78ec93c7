// Late-bound calls: members found by name at run time, named arguments, errors as run-time errors.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/com/com_ref.h"

namespace chartproject::win32 {

/// One argument of a call; with a name it is passed by it.
struct AutomationArgument {
  std::wstring name;
  ComVariant value;
};

/// Arguments in their written order; the named ones last.
using AutomationArguments = std::vector<AutomationArgument>;

/// Calls a method or reads a property of an object. Throws RunTimeError with the object's own description: 438 when it
/// has no such member, the object's number, or the failed call's code.
ComVariant CallMember(IDispatch* object, const wchar_t* name, AutomationArguments arguments = {},
                      WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET);

/// Sets a property. Throws as CallMember.
void SetMember(IDispatch* object, const wchar_t* name, ComVariant value);

/// As CallMember, for a member that gives an object. Throws RunTimeError 424 when it gives none.
ComRef<IDispatch> GetObjectMember(IDispatch* object, const wchar_t* name, AutomationArguments arguments = {});

/// Unnamed arguments.
template <typename... Values>
[[nodiscard]] AutomationArguments Positional(Values... values) {
  AutomationArguments arguments;
  (arguments.push_back({L"", ComVariant(values)}), ...);
  return arguments;
}

}  // namespace chartproject::win32
