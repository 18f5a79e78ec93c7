// IDispatch by type information.
#include "backends/win32/com/type_information.h"

#include "backends/win32/com/com_error.h"
#include "backends/win32/com_module.h"

namespace chartproject::win32 {

TypeInformation::TypeInformation(const GUID& id) {
  ComRef<ITypeLib> library;
  RequireSuccess(LoadTypeLibEx(ModuleFile().c_str(), REGKIND_NONE, library.Receive()), "Loading the type library");
  RequireSuccess(library->GetTypeInfoOfGuid(id, info_.Receive()), "Reading the type library");
}

HRESULT TypeInformation::Get(unsigned index, ITypeInfo** info) const noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  *info = info_.Get();
  (*info)->AddRef();
  return S_OK;
}

HRESULT TypeInformation::FindIds(LPOLESTR* names, unsigned count, DISPID* ids) const noexcept {
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  return DispGetIDsOfNames(info_.Get(), names, count, ids);
}

bool TypeInformation::TooMany(DISPID id, unsigned count) const noexcept {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info_->GetTypeAttr(&attributes))) return false;
  bool tooMany = false;
  for (UINT index = 0; index < attributes->cFuncs; ++index) {
    FUNCDESC* function = nullptr;
    if (FAILED(info_->GetFuncDesc(index, &function))) continue;
    if (function->memid == id) {
      unsigned taken = 0;
      for (int parameter = 0; parameter < function->cParams; ++parameter) {
        const USHORT flags = function->lprgelemdescParam[parameter].paramdesc.wParamFlags;
        if ((flags & PARAMFLAG_FRETVAL) == 0) ++taken;
      }
      tooMany = count > taken;
    }
    info_->ReleaseFuncDesc(function);
  }
  info_->ReleaseTypeAttr(attributes);
  return tooMany;
}

HRESULT TypeInformation::Invoke(void* object, DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                EXCEPINFO* exception, unsigned* badArgument) const noexcept {
  if (result != nullptr) VariantInit(result);
  if (arguments == nullptr) return E_POINTER;
  if (TooMany(id, arguments->cArgs)) return DISP_E_BADPARAMCOUNT;
  for (UINT index = 0; index < arguments->cArgs; ++index) {
    if (arguments->rgvarg[index].vt != VT_NULL) continue;
    if (badArgument != nullptr) *badArgument = index;
    return DISP_E_TYPEMISMATCH;
  }
  return info_->Invoke(object, id, flags, arguments, result, exception, badArgument);
}

}  // namespace chartproject::win32
