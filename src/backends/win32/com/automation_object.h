// What every object of our servers has in common: reference count, late binding, error information.
#pragma once

#include <atomic>

#include "backends/win32/com/type_information.h"
#include "backends/win32/com_module.h"

#include <ocidl.h>

namespace chartproject::win32 {

/// Implements all but the own methods of a dual interface. Objects are made by new and destroy themselves.
template <typename Interface>
class AutomationObject : public Interface, public ISupportErrorInfo, public IProvideClassInfo2 {
 public:
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = Find(id);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) {
      references_ = 1;  // what the end of the object shows to the user may hold it for a while
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) noexcept override {
    return types_.Get(index, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID /*locale*/,
                                          DISPID* ids) noexcept override {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return types_.FindIds(names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID /*locale*/, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept override {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return types_.Invoke(static_cast<Interface*>(this), id, flags, arguments, result, exception, badArgument);
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override {
    return IsEqualIID(id, interfaceId_) ? S_OK : S_FALSE;
  }

  /// From here script hosts take the name of the class.
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override { return class_.Get(0, info); }
  /// The class raises no events: there is no interface for them.
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD /*kind*/, GUID* id) noexcept override {
    if (id == nullptr) return E_POINTER;
    *id = GUID_NULL;
    return E_INVALIDARG;
  }

 protected:
  AutomationObject(const IID& interfaceId, const CLSID& classId)
      : interfaceId_(interfaceId), types_(interfaceId), class_(classId) {}
  virtual ~AutomationObject() = default;

  /// The object as another interface that it offers; null when it has none of that id.
  [[nodiscard]] virtual void* Find(const IID& id) noexcept {
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, interfaceId_)) {
      return static_cast<Interface*>(this);
    }
    if (IsEqualIID(id, IID_ISupportErrorInfo)) return static_cast<ISupportErrorInfo*>(this);
    if (IsEqualIID(id, IID_IProvideClassInfo) || IsEqualIID(id, IID_IProvideClassInfo2)) {
      return static_cast<IProvideClassInfo2*>(this);
    }
    return nullptr;
  }
  [[nodiscard]] const IID& InterfaceId() const noexcept { return interfaceId_; }

 private:
  std::atomic<ULONG> references_{1};
  const IID& interfaceId_;
  ModuleUse use_;
  TypeInformation types_;
  TypeInformation class_;
};

}  // namespace chartproject::win32
