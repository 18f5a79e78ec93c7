// Late-bound calls: members found by name at run time, named arguments, errors as run-time errors.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backends/win32/com/com_ref.h"

namespace chartproject::win32 {

/// One argument of a call; with a name it is passed by it.
struct AutomationArgument {
  std::wstring name;
  ComVariant value;
};

/// Arguments in their written order; the named ones last.
using AutomationArguments = std::vector<AutomationArgument>;

/// Unnamed arguments.
template <typename... Values>
[[nodiscard]] AutomationArguments Positional(Values... values) {
  AutomationArguments arguments;
  (arguments.push_back({L"", ComVariant(values)}), ...);
  return arguments;
}

/// A member's name. One that is kept for many calls without named arguments keeps the id that the first object of its
/// kind gave: it is for objects of one kind only.
struct MemberName {
  const wchar_t* text;
  DISPID id = DISPID_UNKNOWN;
};

/// The caller's side of one application's objects. A call that the application puts off because it is busy (a cell is
/// being edited, a box is open) is repeated for up to ten seconds. Every call throws RunTimeError with the object's own
/// description: 438 when it has no such member, the object's number, or the failed call's code.
class AutomationClient {
 public:
  /// Calls a method or reads a property.
  ComVariant Call(IDispatch* object, MemberName&& name, AutomationArguments arguments = {},
                  WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET) {
    return Invoke(object, name, arguments, flags);
  }
  ComVariant Call(IDispatch* object, MemberName& name) {
    AutomationArguments none;
    return Invoke(object, name, none, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
  }
  /// Sets a property.
  void Set(IDispatch* object, MemberName&& name, ComVariant value) { Set(object, name, std::move(value)); }
  void Set(IDispatch* object, MemberName& name, ComVariant value);

  /// As Call, for a member that gives an object. Throws RunTimeError 424 when it gives none.
  ComRef<IDispatch> Fetch(IDispatch* object, MemberName&& name, AutomationArguments arguments = {}) {
    return Fetch(object, name, std::move(arguments));
  }
  ComRef<IDispatch> Fetch(IDispatch* object, MemberName& name, AutomationArguments arguments);

  /// Whether texts that are entered are read by the user's own locale. An application whose language pack lacks that
  /// locale refuses it; from then on it is spoken to in US English, the one that each has.
  [[nodiscard]] bool SpeaksUsersLocale() const noexcept { return locale_ == LOCALE_USER_DEFAULT; }

 private:
  ComVariant Invoke(IDispatch* object, MemberName& name, AutomationArguments& arguments, WORD flags);
  std::vector<DISPID> IdsOf(IDispatch* object, const MemberName& name, const AutomationArguments& arguments);
  HRESULT Ask(const std::function<HRESULT(LCID locale)>& question);

  LCID locale_ = LOCALE_USER_DEFAULT;
};

}  // namespace chartproject::win32
