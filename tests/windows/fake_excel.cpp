// IDispatch that takes every name, and answers as a spreadsheet application would where the answer matters.
#include "windows/fake_excel.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/win32/com/class_factory.h"
#include "platform/win32/handles.h"
#include "platform/win32/registry_text.h"
#include "platform/win32/wide_text.h"

namespace chartproject::testing {

namespace {

// An id of the tests' own.
constexpr CLSID kFakeClass = {0x3f5e27b4, 0x51f0, 0x4b7e, {0x92, 0x44, 0x6d, 0x1b, 0x0c, 0x83, 0x77, 0x1e}};
constexpr const wchar_t* kProgIdKey = L"Software\\Classes\\Excel.Application";

class FakeObject final : public IDispatch {
 public:
  FakeObject(FakeExcelLog& log, std::string path) : log_(log), path_(std::move(path)) { ++log_.objects; }
  virtual ~FakeObject() { --log_.objects; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    for (UINT index = 0; index < count; ++index) {
      names_.push_back(win32::ToUtf8(names[index]));
      ids[index] = static_cast<DISPID>(names_.size());
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override;

 private:
  [[nodiscard]] const std::string& NameOf(DISPID id) const { return names_[static_cast<std::size_t>(id - 1)]; }
  [[nodiscard]] static std::string TextOf(const VARIANT& value);
  FakeExcelLog& log_;
  std::string path_;
  std::vector<std::string> names_;
  ULONG references_ = 1;
};

std::string FakeObject::TextOf(const VARIANT& value) {
  if (value.vt == VT_DISPATCH) return static_cast<FakeObject*>(value.pdispVal)->path_;
  win32::ComVariant text;
  VariantChangeType(text.Get(), const_cast<VARIANT*>(&value), VARIANT_ALPHABOOL, VT_BSTR);
  return win32::BstrToUtf8(text.Value().bstrVal);
}

HRESULT FakeObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
  const std::string& member = NameOf(id);
  const std::string path = path_.empty() ? member : path_ + "." + member;
  std::string list;
  const UINT positional = arguments->cArgs - arguments->cNamedArgs;
  for (UINT index = arguments->cArgs; index-- > 0;) {
    const bool named = index < arguments->cArgs - positional && (flags & DISPATCH_PROPERTYPUT) == 0;
    list += list.empty() ? "" : ",";
    if (named) list += NameOf(arguments->rgdispidNamedArgs[index]) + ":=";
    list += TextOf(arguments->rgvarg[index]);
  }
  const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
  const std::string call = isPut ? path + "=" + list : list.empty() ? path : path + "(" + list + ")";
  log_.calls.push_back(call);
  if (call == log_.failing) {
    exception->scode = static_cast<SCODE>(0x800A03EC);
    exception->bstrDescription = SysAllocString(L"The fake refuses");
    exception->bstrSource = SysAllocString(L"Fake Excel");
    return DISP_E_EXCEPTION;
  }
  if (isPut) {
    log_.cells[path] = list;
  } else if (member == "Count") {
    result->vt = VT_I4;
    result->lVal = 3;
  } else if (member == "Value") {
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(win32::ToWide(log_.cells[path]).c_str());
  } else if (result != nullptr) {
    result->vt = VT_DISPATCH;
    result->pdispVal = new FakeObject(log_, member == "Add" ? "" : call);
  }
  return S_OK;
}

}  // namespace

IDispatch* MakeFakeExcel(FakeExcelLog& log) {
  return new FakeObject(log, "");
}

FakeExcelInstallation::FakeExcelInstallation(FakeExcelLog& log) : log_(log) {
  win32::OwnedKey key;
  RegCreateKeyExW(HKEY_LOCAL_MACHINE, (std::wstring(kProgIdKey) + L"\\CLSID").c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                  nullptr, key.Receive(), nullptr);
  wchar_t id[40];
  StringFromGUID2(kFakeClass, id, 40);
  win32::WriteRegistryText(key.Get(), L"", id);
  win32::GetFactory(
      IID_IDispatch, [this] { return MakeFakeExcel(log_); }, IID_IUnknown, factory_.ReceiveUntyped());
  EXPECT_EQ(CoRegisterClassObject(kFakeClass, factory_.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
            S_OK);
}

FakeExcelInstallation::~FakeExcelInstallation() {
  CoRevokeClassObject(cookie_);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kProgIdKey);
  RegDeleteKeyW(HKEY_LOCAL_MACHINE, kProgIdKey);
}

DWORD FakeExcelInstallation::Run() {
  DWORD cookie = 0;
  IDispatch* running = MakeFakeExcel(log_);
  EXPECT_EQ(RegisterActiveObject(running, kFakeClass, ACTIVEOBJECT_STRONG, &cookie), S_OK);
  running->Release();
  return cookie;
}

}  // namespace chartproject::testing
