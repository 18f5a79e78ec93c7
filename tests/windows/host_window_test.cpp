// Forms over a host that has its own window and work, in the test's own process: what only its thread can observe.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "backends/win32/com/com_ref.h"
#include "backends/win32/handles.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/wide_text.h"
#include "windows/form_driver.h"

#include <chart_project.h>

namespace chartproject::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

void Store(const std::wstring& section, const wchar_t* name, const std::wstring& value) {
  win32::OwnedKey key;
  RegCreateKeyExW(HKEY_CURRENT_USER, (L"Software\\VB and VB Program Settings\\Kestrel v5.60\\" + section).c_str(), 0,
                  nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Receive(), nullptr);
  win32::WriteRegistryText(key.Get(), name, value);
}

/// The host: its thread, its window, and a timer for its work; it opens a form and waits.
class WindowHost {
 public:
  /// @param chart file for CreateChart; empty: the acquisition dialog
  explicit WindowHost(const std::string& chart = {}) : thread_([this, chart] { Run(chart); }) {}
  ~WindowHost() { thread_.join(); }
  WindowHost(const WindowHost&) = delete;
  WindowHost& operator=(const WindowHost&) = delete;

  [[nodiscard]] bool Enabled() const { return IsWindowEnabled(window_) != 0; }
  [[nodiscard]] static int WorkDone() { return work; }

 private:
  static void CALLBACK Work(HWND, UINT, UINT_PTR, DWORD) { ++work; }

  void Run(const std::string& chart) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    window_ = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 100, nullptr, nullptr,
                              nullptr, nullptr);
    SetForegroundWindow(window_);
    SetTimer(window_, 1, 10, Work);
    win32::ComRef<_ChartClass> object;
    CoCreateInstance(CLSID_ChartClass, nullptr, CLSCTX_INPROC_SERVER, IID__ChartClass, object.ReceiveUntyped());
    EXPECT_EQ(chart.empty() ? object->AcquireVar() : object->CreateChart(win32::ComText(chart).Get()), S_OK);
    EXPECT_TRUE(Enabled());
    EXPECT_EQ(GetActiveWindow(), window_);
    object.Reset();
    const FARPROC canUnload = GetProcAddress(GetModuleHandleW(L"ChartProject.dll"), "DllCanUnloadNow");
    EXPECT_EQ(reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(canUnload))(), S_OK);
    DestroyWindow(window_);
    CoUninitialize();
  }

  inline static std::atomic<int> work = 0;
  std::atomic<HWND> window_ = nullptr;
  std::thread thread_;
};

DWORD LoopFlags(const FormDriver& form) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(form.Window(), nullptr), &info);
  return info.flags;
}

TEST(HostWithAWindow, AFormClosedMaximisedComesBackMaximised) {
  for (const std::string& chart : {std::string(), TestFolder() + "\\show.cht"}) {
    for (const bool reopened : {false, true}) {
      const WindowHost host(chart);
      const FormDriver form(GetCurrentProcessId(), L"");
      EXPECT_EQ(IsZoomed(form.Window()) != 0, reopened) << chart;
      ShowWindowAsync(form.Window(), reopened ? SW_RESTORE : SW_MAXIMIZE);
      EXPECT_TRUE(WaitFor([&] { return (IsZoomed(form.Window()) != 0) != reopened; }));
      form.Close();
    }
  }
}

TEST(HostWithAWindow, WaitsDisabledWhileTimersOfBothGoOnInLoopsOfTheSystem) {
  Store(L"MyConf", L"strLanguage", L"English");
  Store(L"MyKestrel", L"strHelps", L"P:\\nowhere");  // missing help is reported in a box
  auto host = std::make_unique<WindowHost>();
  const FormDriver form(GetCurrentProcessId(), L"");
  EXPECT_FALSE(host->Enabled());
  form.Type("rtfFileName", win32::ToWide(TestFolder() + "\\show.cht"));
  form.Press("cmdViewChart");
  const FormDriver chart(GetCurrentProcessId(), L"Chart File");
  EXPECT_EQ(IsWindowEnabled(form.Window()), 0);
  chart.Close();
  form.Keys({VK_TAB});  // when it is back in front
  EXPECT_FALSE(host->Enabled()) << "the chart leaves the host to the dialog";

  form.Type("rtfFileName", win32::ToWide(TestFolder() + "\\host.cht"));
  form.Select("cboTimeBetweenPointsUnit", L"ms");
  form.Type("txtTimeBetweenPoints", L"200");
  form.Type("txtNumberOfPoints", L"1000");
  form.Press("cmdStart");
  const auto goOn = [&](const char* loop) {
    const int point = std::atoi(form.Text("lblProgress").c_str());
    const int work = WindowHost::WorkDone();
    const auto both = [&] {
      return std::atoi(form.Text("lblProgress").c_str()) > point + 1 && WindowHost::WorkDone() > work;
    };
    EXPECT_TRUE(WaitFor(both)) << loop;
  };
  goOn("the form's own");
  const HWND elsewhere =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
  SetForegroundWindow(elsewhere);
  PostMessageW(form.Window(), WM_KEYDOWN, VK_F1, 0);
  const HWND box = WaitForWindow(L"#32770", GetCurrentProcessId());
  EXPECT_EQ(GetWindow(box, GW_OWNER), form.Window()) << "they come to the front together";
  goOn("a box");
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  DestroyWindow(elsewhere);
  SetForegroundWindow(form.Window());
  PostMessageW(form.Window(), WM_SYSCOMMAND, SC_KEYMENU, ' ');
  EXPECT_TRUE(WaitFor([&] { return (LoopFlags(form) & GUI_INMENUMODE) != 0; }));
  goOn("the window's menu");
  PostMessageW(form.Window(), WM_CANCELMODE, 0, 0);
  PostMessageW(form.Window(), WM_SYSCOMMAND, SC_MOVE, 0);
  EXPECT_TRUE(WaitFor([&] { return (LoopFlags(form) & GUI_INMOVESIZE) != 0; }));
  goOn("a move");
  form.Keys({VK_RETURN});
  form.Close();
  host.reset();
  EXPECT_THAT(FileContents(TestFolder() + "\\host.cht"), HasSubstr("Number of Points=1000")) << "what it had is kept";
  Store(L"MyKestrel", L"strHelps", win32::ToWide(TestFolder() + R"(\project\help)"));
}

/// Adds a control whose text does not fit, or that sticks out of its window.
BOOL CALLBACK Inspect(HWND control, LPARAM unfit) {
  if (IsWindowVisible(control) == 0) return TRUE;
  wchar_t type[32];
  wchar_t text[256];
  GetClassNameW(control, type, 32);
  GetWindowTextW(control, text, 256);
  RECT place;
  RECT window;
  GetWindowRect(control, &place);
  GetWindowRect(GetAncestor(control, GA_ROOT), &window);
  RECT needed{0, 0, place.right - place.left, 0};
  const bool wraps = std::wstring_view(type) == L"Static" && (GetWindowLongW(control, GWL_STYLE) & SS_CENTERIMAGE) == 0;
  const HDC dc = GetDC(control);
  SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
  DrawTextW(dc, text, -1, &needed, DT_CALCRECT | (wraps ? DT_WORDBREAK : 0U));
  ReleaseDC(control, dc);
  const bool decorated = std::wstring_view(type) == L"Button" || std::wstring_view(type) == L"ComboBox";
  OffsetRect(&needed, place.left + (decorated ? 16 : 0), place.top);
  const bool elided =
      std::wstring_view(type) == L"Static" && (GetWindowLongW(control, GWL_STYLE) & SS_ELLIPSISMASK) != 0;
  const bool scrolls = elided || std::wstring_view(type) == L"Edit" || std::wstring_view(type).starts_with(L"Rich");
  for (const auto& [inner, outer] : {std::pair(scrolls ? place : needed, place), std::pair(place, window)}) {
    RECT both;
    UnionRect(&both, &inner, &outer);
    if (EqualRect(&both, &outer) != 0) continue;
    reinterpret_cast<std::vector<std::string>*>(unfit)->push_back(win32::ToUtf8(std::wstring(type) + L": " + text));
  }
  return TRUE;
}

/// What does not fit when the user makes the window as small as it gets.
std::vector<std::string> Unfit(const FormDriver& form) {
  SetWindowPos(form.Window(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  std::vector<std::string> unfit;
  EnumChildWindows(form.Window(), Inspect, reinterpret_cast<LPARAM>(&unfit));
  return unfit;
}

TEST(FormsInThreeLanguages, ShowEveryTextInFull) {
  const std::string picture = TestFolder() + "\\win_acquire_";
  const std::wstring file = win32::ToWide(TestFolder() + "\\language.cht");
  const std::pair<std::string, const char*> languages[] = {{"Portuguese", "pt"}, {"Spanish", "es"}, {"English", "en"}};
  for (const auto& language : languages) {
    Store(L"MyConf", L"strLanguage", win32::ToWide(language.first));
    {
      const WindowHost host;
      const FormDriver form(GetCurrentProcessId(), L"");
      const auto inspect = [&](const char* shown) {
        EXPECT_TRUE(WaitFor([&] { return form.Visible(shown); })) << language.first;
        EXPECT_THAT(Unfit(form), IsEmpty()) << language.first << " with " << shown;
      };
      form.Type("rtfFileName", file);
      form.Select("cboNumberOfParameters", L"2");
      form.Select("cboPXXX2", L"003");
      inspect("cmdStart");
      form.Capture(picture + language.second + ".png");
      RECT place;
      GetWindowRect(form.Window(), &place);
      for (const int dots : {96, 144, 192, 120}) {
        SendMessageW(form.Window(), WM_DPICHANGED, MAKELONG(dots, dots), reinterpret_cast<LPARAM>(&place));
        inspect("cmdStart");
      }
      form.Choose("cboTriggerMode", 0);
      form.Choose("cboTimeBetweenPointsUnit", 2);
      form.Choose("cboEvent", 2);  // the longest
      inspect("cmdTrigger");
      form.Type("rtfFileName", L"");
      inspect("lblHint");
      form.Type("rtfFileName", file);
      form.Press("cmdStart");
      inspect("prgProgress");
      form.Press("cmdCurve");
      inspect("crvPoints");
      EXPECT_TRUE(WaitFor([&] { return form.Text("lblProgress") == "3"; }));
      form.Capture(TestFolder() + "\\win_live_" + language.second + ".png");
      form.Press("cmdCurve");
      EXPECT_TRUE(WaitFor([&] { return !form.Visible("crvPoints"); }));
      form.Close();
    }
    const WindowHost host(TestFolder() + "\\show.cht");
    const FormDriver chart(GetCurrentProcessId(), L"");
    EXPECT_THAT(Unfit(chart), IsEmpty()) << language.first << ", chart";
    chart.Close();
  }
}

}  // namespace
}  // namespace chartproject::testing
