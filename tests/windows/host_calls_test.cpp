// Ways in which hosts call the component: arguments of every form, other apartments, objects let go meanwhile.
#include <gmock/gmock.h>

#include <atomic>
#include <optional>
#include <thread>

#include "backends/win32/com/com_ref.h"
#include "windows/form_driver.h"

#include <chart_project.h>

namespace chartproject::testing {
namespace {

using win32::ComRef;
using win32::ComText;

constexpr DISPID kCreateChart = 2;

ComRef<_ChartClass> Create() {
  ComRef<_ChartClass> object;
  CoCreateInstance(CLSID_ChartClass, nullptr, CLSCTX_INPROC_SERVER, IID__ChartClass, object.ReceiveUntyped());
  return object;
}

/// Closes the next form as soon as it is up.
class User {
 public:
  ~User() { thread_.join(); }

 private:
  std::thread thread_{[] { FormDriver(GetCurrentProcessId(), L"").Close(); }};
};

TEST(HostCalls, TakeTheFileNameInEveryFormOfAnArgument) {
  const ComRef<_ChartClass> object = Create();
  ASSERT_TRUE(object);
  const ComText file(TestFolder() + "\\show.cht");
  BSTR text = file.Get();
  VARIANT direct{};
  direct.vt = VT_BSTR;
  direct.bstrVal = text;
  VARIANT textByReference{};
  textByReference.vt = VT_BYREF | VT_BSTR;
  textByReference.pbstrVal = &text;
  VARIANT variantByReference{};
  variantByReference.vt = VT_BYREF | VT_VARIANT;
  variantByReference.pvarVal = &direct;
  OLECHAR method[] = L"CreateChart";
  OLECHAR parameter[] = L"strfilename";
  OLECHAR* names[] = {method, parameter};
  DISPID ids[2] = {};
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), S_OK);
  for (VARIANT* argument : {&direct, &textByReference, &variantByReference}) {
    for (const bool named : {false, true}) {
      const User user;
      DISPPARAMS given{argument, named ? &ids[1] : nullptr, 1, named ? 1U : 0U};
      EXPECT_EQ(object->Invoke(kCreateChart, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given, nullptr, nullptr,
                               nullptr),
                S_OK)
          << argument->vt << (named ? " named" : "");
    }
  }
  VARIANT left{};  // what a script passes for an argument that it leaves out
  left.vt = VT_ERROR;
  left.scode = DISP_E_PARAMNOTFOUND;
  for (const UINT count : {0U, 1U}) {
    DISPPARAMS given{&left, nullptr, count, 0};
    EXPECT_TRUE(FAILED(object->Invoke(kCreateChart, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given, nullptr,
                                      nullptr, nullptr)))
        << count;
  }
}

std::optional<ComRef<_ChartClass>> held;
std::atomic<bool> letGo = false;  ///< by the host, from within the loop of its call

void CALLBACK LetGo(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
  KillTimer(nullptr, timer);
  held.reset();
  letGo = true;
}

TEST(HostCalls, TheHostMayLetGoOfTheObjectWhileItsWindowIsUp) {
  held.emplace(Create());
  _ChartClass* object = held->Get();
  SetTimer(nullptr, 0, 10, LetGo);  // raised by the window's own message loop
  std::thread user([] {
    const FormDriver form(GetCurrentProcessId(), L"");
    EXPECT_TRUE(WaitFor([] { return letGo.load(); }));
    EXPECT_TRUE(form.IsUp());
    form.Close();
  });
  EXPECT_EQ(object->CreateChart(ComText(TestFolder() + "\\show.cht").Get()), S_OK);
  user.join();
  const FARPROC canUnload = GetProcAddress(GetModuleHandleW(L"ChartProject.dll"), "DllCanUnloadNow");
  EXPECT_EQ(reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(canUnload))(), S_OK);
}

void CALLBACK CallAgain(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
  KillTimer(nullptr, timer);
  EXPECT_EQ((*held)->CreateChart(ComText(TestFolder() + "\\linux.cht").Get()), S_OK);
  letGo = true;
}

TEST(HostCalls, ACallWithinTheLoopOfAnotherShowsItsWindowOverTheFirstOne) {
  letGo = false;
  held.emplace(Create());
  SetTimer(nullptr, 0, 10, CallAgain);
  std::thread user([] {
    const FormDriver second(GetCurrentProcessId(), L"Chart File - linux.cht");
    const FormDriver first(GetCurrentProcessId(), L"Chart File - show.cht");
    EXPECT_EQ(IsWindowEnabled(first.Window()), 0);
    second.Close();
    EXPECT_TRUE(WaitFor([&] { return letGo && IsWindowEnabled(first.Window()) != 0; }));
    first.Close();
  });
  EXPECT_EQ((*held)->CreateChart(ComText(TestFolder() + "\\show.cht").Get()), S_OK);
  user.join();
  held.reset();
}

// Run by itself: the system keeps a thread for the objects of such clients, and with it the module in use.
TEST(HostInAnotherApartment, ReachesTheObjectByMarshalling) {
  HRESULT shown = E_FAIL;
  {
    const User user;
    std::thread host([&shown] {
      CoInitializeEx(nullptr, COINIT_MULTITHREADED);
      {
        const ComRef<_ChartClass> object = Create();
        if (object) shown = object->CreateChart(ComText(TestFolder() + "\\show.cht").Get());
      }
      CoUninitialize();
    });
    host.join();
  }
  EXPECT_EQ(shown, S_OK);
}

}  // namespace
}  // namespace chartproject::testing
