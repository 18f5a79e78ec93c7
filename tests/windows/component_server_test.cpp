// The component as a COM server: creation, late and early binding, errors, counts, registration, settings.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>
#include <vector>

#include "backends/win32/com/com_error.h"
#include "backends/win32/com/com_ref.h"
#include "backends/win32/handles.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/widget.h"
#include "windows/form_driver.h"

#include <chart_project.h>
#include <ocidl.h>

namespace chartproject::testing {
namespace {

using win32::ComRef;
using win32::ComText;

constexpr const wchar_t* kConf = L"Software\\VB and VB Program Settings\\Kestrel v5.60\\MyConf";

ComRef<_ChartClass> Create(HRESULT* result = nullptr) {
  ComRef<_ChartClass> object;
  const HRESULT created =
      CoCreateInstance(CLSID_ChartClass, nullptr, CLSCTX_INPROC_SERVER, IID__ChartClass, object.ReceiveUntyped());
  if (result != nullptr) *result = created;
  return object;
}

HRESULT CanUnload() {
  const HMODULE module = GetModuleHandleW(L"ChartProject.dll");
  if (module == nullptr) return S_OK;
  const auto ask =
      reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
  return ask();
}

void StoreConf(const wchar_t* name, const wchar_t* value) {
  win32::OwnedKey key;
  RegCreateKeyExW(HKEY_CURRENT_USER, kConf, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Receive(), nullptr);
  win32::WriteRegistryText(key.Get(), name, value);
}

TEST(ComponentServer, IsFoundByBothProgIds) {
  for (const wchar_t* progId : {L"ChartProject.ChartClass", L"ChartProject.ChartClass.1"}) {
    CLSID id{};
    EXPECT_EQ(CLSIDFromProgID(progId, &id), S_OK) << win32::ToUtf8(progId);
    EXPECT_TRUE(IsEqualCLSID(id, CLSID_ChartClass));
  }
}

TEST(ComponentServer, MethodsAreFoundByNameAndWrongCallsRefused) {
  const ComRef<_ChartClass> object = Create();
  ASSERT_TRUE(object);
  OLECHAR acquire[] = L"AcquireVar";
  OLECHAR create[] = L"createchart";  // names are found in any case
  for (OLECHAR* name : {acquire, create}) {
    DISPID id = 0;
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, name == acquire ? 1 : 2);
  }
  VARIANTARG arguments[2];
  VariantInit(&arguments[0]);
  VariantInit(&arguments[1]);
  DISPPARAMS tooMany{arguments, nullptr, 2, 0};
  VARIANT result;
  result.vt = VT_BSTR;  // what a caller left there is not our text
  const auto invoke = [&](DISPID id, REFIID reserved, DISPPARAMS* given) {
    return object->Invoke(id, reserved, LOCALE_USER_DEFAULT, DISPATCH_METHOD, given, &result, nullptr, nullptr);
  };
  EXPECT_EQ(invoke(2, IID_NULL, &tooMany), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(result.vt, VT_EMPTY);
  EXPECT_EQ(invoke(3, IID_NULL, &tooMany), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(invoke(2, IID_IDispatch, &tooMany), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(invoke(2, IID_NULL, nullptr), E_POINTER);
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, nullptr), E_INVALIDARG);
  ComRef<IProvideClassInfo2> provider;
  ASSERT_EQ(object->QueryInterface(IID_IProvideClassInfo2, provider.ReceiveUntyped()), S_OK);
  ComRef<ITypeInfo> description;
  ASSERT_EQ(provider->GetClassInfo(description.Receive()), S_OK);
  ComText name;
  description->GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr);
  EXPECT_EQ(name.Utf8(), "ChartClass") << "what script hosts show";
  void* other = &result;
  EXPECT_EQ(object->QueryInterface(IID_IStream, &other), E_NOINTERFACE);
  EXPECT_EQ(other, nullptr);
}

TEST(ComponentServer, UnloadsWhenEverythingIsReleased) {
  {
    const ComRef<_ChartClass> first = Create();
    const ComRef<_ChartClass> second = Create();
    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    EXPECT_EQ(CanUnload(), S_FALSE);
  }
  EXPECT_EQ(CanUnload(), S_OK);
  ComRef<IClassFactory> factory;
  ASSERT_EQ(
      CoGetClassObject(CLSID_ChartClass, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.ReceiveUntyped()),
      S_OK);
  ComRef<ISupportErrorInfo> errors;
  ASSERT_EQ(factory->QueryInterface(IID_ISupportErrorInfo, errors.ReceiveUntyped()), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IClassFactory), S_OK) << "a failed creation has a text";
  errors.Reset();
  void* part = &factory;
  EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &part), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(part, nullptr);
  factory->LockServer(TRUE);
  factory.Reset();
  EXPECT_EQ(CanUnload(), S_FALSE) << "a lock holds it as an object does";
  ASSERT_EQ(
      CoGetClassObject(CLSID_ChartClass, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.ReceiveUntyped()),
      S_OK);
  factory->LockServer(FALSE);
  factory->LockServer(FALSE);
  EXPECT_EQ(CanUnload(), S_FALSE) << "a surplus unlocking takes no object's use away";
  factory.Reset();
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST(ComponentServer, ReadsAndWritesBackItsSettings) {
  StoreConf(L"intTelegramTimeout", L"450");
  StoreConf(L"strOfAnotherModule", L"kept");
  Create();
  EXPECT_EQ(win32::ReadRegistryText(HKEY_CURRENT_USER, kConf, L"intTelegramTimeout"), L"450");
  EXPECT_EQ(win32::ReadRegistryText(HKEY_CURRENT_USER, kConf, L"lngMainBackColor"), L"-2147483636");
  EXPECT_EQ(win32::ReadRegistryText(HKEY_CURRENT_USER, kConf, L"strOfAnotherModule"), L"kept");
}

TEST(ComponentServer, ASettingThatIsNoNumberEndsTheCreationWithError13) {
  StoreConf(L"intTrials", L"five");
  HRESULT result = S_OK;
  EXPECT_FALSE(Create(&result));
  EXPECT_EQ(static_cast<unsigned>(result), 0x800A000DU);
  EXPECT_THAT(win32::FailureText(result), ::testing::HasSubstr("intTrials"));
  StoreConf(L"intTrials", L"5");
  EXPECT_TRUE(Create());
  EXPECT_EQ(CanUnload(), S_OK) << "nothing of the failed creation is left";
}

TEST(ComponentServer, CyclesLeakNeitherHandlesNorMemory) {
  ExpectNoGrowth(200, [] { ASSERT_TRUE(Create()); });
  const ComText file(TestFolder() + "\\show.cht");
  ExpectNoGrowth(20, [&file] {
    std::thread user([] { FormDriver(GetCurrentProcessId(), L"").Close(); });
    EXPECT_EQ(Create()->CreateChart(file.Get()), S_OK);
    user.join();
  });
}

/// A user of one thread's windows: closes charts, and lets a dialog record a point before it closes it.
class ThreadUser {
 public:
  explicit ThreadUser(std::string file) : file_(std::move(file)) {
    DeleteFileA(file_.c_str());
    current_ = this;
    timer_ = SetTimer(nullptr, 0, 10, Look);
  }
  ~ThreadUser() {
    KillTimer(nullptr, timer_);
    DeleteFileA(file_.c_str());
  }
  ThreadUser(const ThreadUser&) = delete;
  ThreadUser& operator=(const ThreadUser&) = delete;
  [[nodiscard]] bool Recorded() const { return FileContents(file_).find("##\r\n") != std::string::npos; }

 private:
  static void CALLBACK Look(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*time*/) {
    EnumThreadWindows(GetCurrentThreadId(), Visit, 0);
  }
  static BOOL CALLBACK Visit(HWND window, LPARAM /*unused*/) {
    if (IsWindowVisible(window) == 0) return TRUE;
    if (GetDlgItem(window, win32::ControlId("cmdStart")) == nullptr || current_->Finished(FormDriver(window))) {
      PostMessageW(window, WM_CLOSE, 0, 0);
    }
    return TRUE;
  }
  bool Finished(const FormDriver& dialog) {
    if (started_) return dialog.Enabled("cboDriveAddress") && dialog.Visible("cmdViewChart");
    if (!dialog.Enabled("cboDriveAddress")) return false;
    started_ = true;
    dialog.Type("rtfFileName", win32::ToWide(file_));
    dialog.Select("cboDriveAddress", L"01");
    dialog.Select("cboNumberOfParameters", L"1");
    dialog.Type("txtNumberOfPoints", L"1");
    dialog.Press("cmdStart");
    return false;
  }

  static thread_local ThreadUser* current_;  // a timer's procedure is given nothing of ours
  std::string file_;
  UINT_PTR timer_ = 0;
  bool started_ = false;
};

thread_local ThreadUser* ThreadUser::current_ = nullptr;

/// A host's thread that shows a chart and records a point, again and again.
void ShowAndRecord(int times, int host, std::atomic<int>& failures) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const ComText file(TestFolder() + "\\show.cht");
  for (int time = 0; time < times; ++time) {
    const ThreadUser user(TestFolder() + "\\thread" + std::to_string(host) + ".cht");
    const ComRef<_ChartClass> object = Create();
    if (!object || object->CreateChart(file.Get()) != S_OK || object->AcquireVar() != S_OK || !user.Recorded()) {
      ++failures;
    }
  }
  CoUninitialize();
}

TEST(ComponentServer, ThreadsWithObjectsOfTheirOwnDoNotDisturbEachOther) {
  std::atomic<int> failures = 0;
  const auto fourHosts = [&failures] {
    std::vector<std::thread> hosts;
    for (int host = 0; host < 4; ++host) hosts.emplace_back(ShowAndRecord, 2, host, std::ref(failures));
    for (std::thread& host : hosts) host.join();
  };
  {
    const ComRef<_ChartClass> keepsTheLibrary = Create();
    fourHosts();  // so many windows at once take numbers that nothing needed before
    // The heap of many threads settles after some ten rounds, 5 MB up; of 64 charts and dialogs those that leak take
    // more than 64 KB each.
    ExpectNoGrowth(4, fourHosts, 4 << 20);
  }
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST(ComponentServer, TwoLivingObjectsAndTheHostKeepEachOthersSettings) {
  StoreConf(L"strLanguage", L"English");
  ComRef<_ChartClass> older = Create();
  StoreConf(L"strLanguage", L"Spanish");
  ComRef<_ChartClass> newer = Create();
  ASSERT_TRUE(older);
  ASSERT_TRUE(newer);
  StoreConf(L"intTrials", L"9");
  newer.Reset();
  older.Reset();
  EXPECT_EQ(win32::ReadRegistryText(HKEY_CURRENT_USER, kConf, L"strLanguage"), L"Spanish");
  EXPECT_EQ(win32::ReadRegistryText(HKEY_CURRENT_USER, kConf, L"intTrials"), L"9");
}

TEST(ComponentServer, ScriptHostsSeeErrorsByNumberAndText) {
  ScriptHost host("errors.vbs", "");
  EXPECT_EQ(host.ExitCode(), 0) << "the exit code is the number of the check that failed";
}

}  // namespace
}  // namespace chartproject::testing
