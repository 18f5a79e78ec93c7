// The fake "Excel.Application": objects of any name with any members, which answer as the application would where the
// answer matters. The program ends when the last of its objects is released.
// Usage: fake_excel LOG FAILING [running|-Embedding]   LOG: file that takes a line for each call, such as
// "sheets(1).Cells(2,1).Value='x"; FAILING: the line that raises error 1004, or "difficult": understands US English
// alone and is busy at first; running: listed as a running instance
#include "windows/fake_excel.h"

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "backends/win32/com/class_factory.h"
#include "backends/win32/com/com_ref.h"
#include "backends/win32/wide_text.h"

namespace chartproject::testing {
namespace {

/// What all objects share.
struct Application {
  std::ofstream log;
  std::string failing;
  std::map<std::string, std::string> cells;  ///< values by path
  std::vector<std::string> names;            ///< of members; the same ids in all objects
  LCID locale = LOCALE_USER_DEFAULT;         ///< the only one that it understands
  int busyAnswers = 0;                       ///< how many more calls it puts off
  int objects = 0;
  DWORD running = 0;  ///< cookie of the list of running instances

  void Note(const std::string& line) { log << line << std::endl; }
};

class FakeObject final : public IDispatch {
 public:
  FakeObject(Application& application, std::string path) : application_(application), path_(std::move(path)) {
    ++application_.objects;
  }
  virtual ~FakeObject() {
    if (--application_.objects == 0) PostQuitMessage(0);
  }

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
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    if (const HRESULT now = Answers(locale); now != S_OK) return now;
    for (UINT index = 0; index < count; ++index) {
      application_.names.push_back(win32::ToUtf8(names[index]));
      ids[index] = static_cast<DISPID>(application_.names.size());
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override;

 private:
  [[nodiscard]] HRESULT Answers(LCID locale) const {
    if (locale != application_.locale) return TYPE_E_INVDATAREAD;
    return application_.busyAnswers > 0 && application_.busyAnswers-- % 2 == 0 ? RPC_E_SERVERCALL_RETRYLATER : S_OK;
  }
  [[nodiscard]] const std::string& NameOf(DISPID id) const {
    return application_.names[static_cast<std::size_t>(id - 1)];
  }
  [[nodiscard]] static std::string TextOf(const VARIANT& value);
  Application& application_;
  std::string path_;
  ULONG references_ = 1;
};

std::string FakeObject::TextOf(const VARIANT& value) {
  if (value.vt == VT_DISPATCH) return static_cast<FakeObject*>(value.pdispVal)->path_;
  win32::ComVariant text;
  VariantChangeType(text.Get(), const_cast<VARIANT*>(&value), VARIANT_ALPHABOOL, VT_BSTR);
  return (value.vt == VT_R8 ? "number " : "") + win32::BstrToUtf8(text.Value().bstrVal);
}

HRESULT FakeObject::Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
  if (const HRESULT now = Answers(locale); now != S_OK) return now;
  const std::string& member = NameOf(id);
  const std::string path = path_.empty() ? member : path_ + "." + member;
  const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
  std::string list;
  for (UINT index = arguments->cArgs; index-- > 0;) {
    list += list.empty() ? "" : ",";
    if (!isPut && index < arguments->cNamedArgs) list += NameOf(arguments->rgdispidNamedArgs[index]) + ":=";
    list += TextOf(arguments->rgvarg[index]);
  }
  const std::string call = isPut ? path + "=" + list : list.empty() ? path : path + "(" + list + ")";
  application_.Note(call);
  const bool formula = isPut && member == "Value" && list.find_first_of("=+-@") == 0;
  if (call == application_.failing || formula) {  // the fake understands no formula at all
    exception->scode = static_cast<SCODE>(0x800A03EC);
    exception->bstrDescription = SysAllocString(L"The fake refuses");
    exception->bstrSource = SysAllocString(L"Fake Excel");
    return DISP_E_EXCEPTION;
  }
  if (isPut) {
    application_.cells[path] = list.starts_with('\'') ? list.substr(1) : list;  // the sign that makes it a text
  } else if (member == "Count") {
    result->vt = VT_I4;
    result->lVal = 3;
  } else if (member == "Value") {
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(win32::ToWide(application_.cells[path]).c_str());
  } else if (member == "quit") {
    if (application_.running != 0) RevokeActiveObject(application_.running, nullptr);
  } else if (result != nullptr) {
    result->vt = VT_DISPATCH;
    result->pdispVal = new FakeObject(application_, member == "Add" ? "" : call);
  }
  return S_OK;
}

int Run(int count, char** arguments) {
  Application application;
  if (count < 4) return 2;
  application.log.open(arguments[1]);
  application.failing = arguments[2];
  if (application.failing == "difficult") {
    application.locale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    application.busyAnswers = 8;
  }
  application.Note("start");
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  DWORD created = 0;
  win32::ComRef<IUnknown> factory;
  if (std::string(arguments[3]) == "running") {
    IDispatch* object = new FakeObject(application, "");
    RegisterActiveObject(object, kFakeExcelClass, ACTIVEOBJECT_STRONG, &application.running);
    object->Release();
  } else {
    const auto make = [&application]() -> IUnknown* {
      application.Note("create");
      return new FakeObject(application, "");
    };
    win32::GetFactory(IID_IDispatch, make, IID_IUnknown, factory.ReceiveUntyped());
    CoRegisterClassObject(kFakeExcelClass, factory.Get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &created);
  }
  for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
  if (created != 0) CoRevokeClassObject(created);
  factory.Reset();
  application.Note("end");
  CoUninitialize();
  return 0;
}

}  // namespace
}  // namespace chartproject::testing

int main(int count, char** arguments) {
  return chartproject::testing::Run(count, arguments);
}
