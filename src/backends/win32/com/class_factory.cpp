// IClassFactory over a function that makes objects.
#include "backends/win32/com/class_factory.h"

#include <atomic>
#include <new>
#include <utility>

#include "backends/win32/com/com_error.h"
#include "backends/win32/com/com_ref.h"

namespace chartproject::win32 {

namespace {

class ClassFactory final : public IClassFactory, public ISupportErrorInfo {
 public:
  ClassFactory(const IID& source, ObjectMaker make) : source_(source), make_(std::move(make)) {}
  virtual ~ClassFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory)) *object = static_cast<IClassFactory*>(this);
    if (IsEqualIID(id, IID_ISupportErrorInfo)) *object = static_cast<ISupportErrorInfo*>(this);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    IUnknown* made = nullptr;
    const HRESULT result = Guarded(source_, [this, &made] { made = make_(); });
    if (FAILED(result)) return result;
    const HRESULT found = made->QueryInterface(id, object);
    made->Release();
    return found;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
    if (lock != FALSE) {
      ServerLocks::Add();
    } else {
      ServerLocks::Remove();
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override {
    return IsEqualIID(id, IID_IClassFactory) ? S_OK : S_FALSE;
  }

 private:
  std::atomic<ULONG> references_{1};
  ModuleUse use_;
  const IID source_;
  ObjectMaker make_;
};

}  // namespace

HRESULT GetFactory(const IID& source, ObjectMaker make, REFIID id, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  auto* factory = new (std::nothrow) ClassFactory(source, std::move(make));
  if (factory == nullptr) return E_OUTOFMEMORY;
  const HRESULT result = factory->QueryInterface(id, object);
  factory->Release();
  return result;
}

}  // namespace chartproject::win32
