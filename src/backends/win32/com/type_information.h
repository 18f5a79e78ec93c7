// The type library inside a server's DLL: what late-bound callers are answered from.
#pragma once

#include "backends/win32/com/com_ref.h"

namespace chartproject::win32 {

class TypeInformation {
 public:
  /// Loads the description of an interface or class from the DLL's own type library. Throws RunTimeError when it fails.
  explicit TypeInformation(const GUID& id);

  HRESULT Get(unsigned index, ITypeInfo** info) const noexcept;
  HRESULT FindIds(LPOLESTR* names, unsigned count, DISPID* ids) const noexcept;
  /// Calls a method of `object` by its id. More arguments than it takes are refused (DISP_E_BADPARAMCOUNT), and
  /// the value Null (DISP_E_TYPEMISMATCH): the system's own routine passes over them.
  HRESULT Invoke(void* object, DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                 unsigned* badArgument) const noexcept;

 private:
  [[nodiscard]] bool TooMany(DISPID id, unsigned count) const noexcept;
  ComRef<ITypeInfo> info_;
};

}  // namespace chartproject::win32
