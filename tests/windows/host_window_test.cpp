// Forms over a host that has its own window and work, in the test's own process: what only its thread can observe.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <map>
#include <set>
#include <thread>

#include "backends/win32/com/com_ref.h"
#include "backends/win32/handles.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/wide_text.h"
#include "windows/form_driver.h"

#include <chart_project.h>
#include <oleacc.h>

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

TEST(HostWithAWindow, AFormClosedMaximisedComesBackMaximisedAndFromThereToItsPlace) {
  const auto zoomed = [](const FormDriver& form) { return IsZoomed(form.Window()) != 0; };
  for (const std::string& chart : {std::string(), TestFolder() + "\\show.cht"}) {
    for (const char* round : {"moved", "maximised", "restored"}) {
      const WindowHost host(chart);
      const FormDriver form(GetCurrentProcessId(), L"");
      const bool reopened = round == std::string("restored");
      EXPECT_EQ(zoomed(form), reopened) << chart << round;
      if (round == std::string("moved")) {
        SetWindowPos(form.Window(), nullptr, 31, 17, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
      } else {
        ShowWindowAsync(form.Window(), reopened ? SW_RESTORE : SW_MAXIMIZE);
        EXPECT_TRUE(WaitFor([&] { return zoomed(form) != reopened; }));
      }
      const bool maximised = round == std::string("maximised");
      EXPECT_TRUE(WaitFor([&] {
        RECT place;
        GetWindowRect(form.Window(), &place);
        return maximised || (place.left == 31 && place.top == 17);
      })) << chart
          << round;
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

/// What a screen reader says of a window: its name as the system's accessibility gives it.
std::string SpokenNameOf(HWND window) {
  win32::ComRef<IAccessible> object;
  AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, object.ReceiveUntyped());
  VARIANT self{};
  self.vt = VT_I4;
  win32::ComText name;
  if (object) object->get_accName(self, name.Receive());
  return name.Utf8();
}

/// Lists, sliders and bars get their names from the system's annotations, which this Wine has not.
TEST(ScreenReaders, HearANameOfEachControlAndTheChartsReadout) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  Store(L"MyConf", L"strLanguage", L"English");
  const std::pair<std::string, std::vector<std::pair<const char*, const char*>>> forms[] = {
      {"",
       {{"fraFileName", "File Name"},
        {"cmdNewFile", "New ..."},
        {"lblDriveAddress", "Drive Address"},
        {"lblPXXX1", "001  Speed reference"},
        {"txtNumberOfPoints", "Number of Points"},
        {"txtTimeBetweenPoints", "Time among Points"},
        {"txtContent", "Content"},
        {"cmdStart", "Start Data Acquisition"},
        {"cmdOK", "Ok"}}},
      {TestFolder() + "\\show.cht",
       {{"lblPXXX2Function", "Motor current"},
        {"ovwRecording", "Overview"},
        {"txtScale1", "Scale 1...32767"},
        {"chkGrid", "Grid"},
        {"cmdPrint", "Print"}}}};
  for (const auto& [chart, names] : forms) {
    const WindowHost host(chart);
    const FormDriver form(GetCurrentProcessId(), L"");
    form.Keys({});
    for (const auto& [control, name] : names) EXPECT_EQ(SpokenNameOf(form.Control(control)), name) << control;
    if (!chart.empty()) {
      const HWND picture = form.Control("mscChart1");
      EXPECT_EQ(SpokenNameOf(picture), "P002 Motor speed; P003 Motor current");
      RECT place;
      GetClientRect(picture, &place);
      EXPECT_TRUE(WaitFor([&] {
        PostMessageW(picture, WM_MOUSEMOVE, 0, MAKELPARAM(place.right / 2, place.bottom / 2));
        return SpokenNameOf(picture).starts_with("Point ");
      })) << SpokenNameOf(picture);
    }
    form.Close();
  }
  CoUninitialize();
}

TEST(HelpPages, AreShownByTheSystemsViewerInThreeLanguagesAndNothingElseIs) {
  // A viewer of the tests, without a window; this Wine has none.
  const std::string seen = TestFolder() + "\\seen.html";
  const std::pair<std::wstring, std::wstring> viewer[] = {
      {LR"(Software\Classes\.html)", L"TestPage"},
      {LR"(Software\Classes\TestPage\shell\open\command)",
       win32::ToWide("wscript.exe \"" + TestFolder() + "\\viewer.vbs\" \"%1\"")}};
  for (const auto& [path, value] : viewer) {
    win32::OwnedKey key;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Receive(), nullptr);
    win32::WriteRegistryText(key.Get(), L"", value);
  }
  const std::string linked = TestFolder() + "\\linked";
  CreateDirectoryA(linked.c_str(), nullptr);
  CopyFileA((TestFolder() + R"(\project\help\Kshelpe.HLP)").c_str(), (linked + "\\page").c_str(), FALSE);
  CreateHardLinkA((linked + "\\Kshelpe.HLP").c_str(), (linked + "\\page").c_str(), nullptr);
  const struct {
    const wchar_t* language;
    std::string folder;
    const char* title;    ///< of the page that the viewer gets
    const char* refusal;  ///< what a box says instead
  } cases[] = {{L"Portuguese", "project\\help", "<title>Ajuda do ChartProject</title>", nullptr},
               {L"Spanish", "project\\help", "<title>Ayuda de ChartProject</title>", nullptr},
               {L"English", "project\\help", "<title>ChartProject help</title>", nullptr},
               {L"Spanish", "nowhere", nullptr, "No se encontró el archivo de ayuda "},
               {L"English", "linked", nullptr, "Kshelpe.HLP cannot be shown here.\n"},
               {L"Portuguese", "project\\help", nullptr, " não pode ser mostrado aqui."}};  // without a viewer
  for (const auto& each : cases) {
    if (&each == std::end(cases) - 1) RegDeleteTreeW(HKEY_LOCAL_MACHINE, LR"(Software\Classes\.html)");
    Store(L"MyConf", L"strLanguage", each.language);
    Store(L"MyKestrel", L"strHelps", win32::ToWide(TestFolder() + "\\" + each.folder));
    DeleteFileA(seen.c_str());
    const WindowHost host;
    const FormDriver form(GetCurrentProcessId(), L"");
    form.Keys({VK_F1});
    if (each.title != nullptr) {
      EXPECT_TRUE(WaitFor([&] { return FileContents(seen).find(each.title) != std::string::npos; })) << each.title;
    } else {
      const BoxDriver box(GetCurrentProcessId());
      EXPECT_THAT(box.Prompt(), HasSubstr(each.refusal));
      box.Answer(IDOK);
      EXPECT_THAT(FileContents(seen), IsEmpty());
    }
    form.Close();
  }
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, LR"(Software\Classes\TestPage)");
  Store(L"MyKestrel", L"strHelps", win32::ToWide(TestFolder() + R"(\project\help)"));
}

/// Whether a window has a bar that scrolls its content.
bool Scrolls(HWND window) {
  return std::ranges::any_of(std::array{SB_HORZ, SB_VERT}, [window](int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    return GetScrollInfo(window, bar, &info) != 0 && info.nMax >= static_cast<int>(info.nPage);
  });
}

struct Inspection {
  HFONT font = nullptr;   ///< of all labels and buttons; asking each of them takes the busy thread's time
  std::set<HWND> inside;  ///< the client area
  std::map<HWND, std::string> shown;
  std::set<std::string> faults;
};

BOOL CALLBACK Inspect(HWND control, LPARAM data) {
  auto& inspection = *reinterpret_cast<Inspection*>(data);
  if (IsWindowVisible(control) == 0) return TRUE;
  wchar_t type[32];
  wchar_t text[256];
  GetClassNameW(control, type, 32);
  InternalGetWindowText(control, text, 256);
  const std::string name = win32::ToUtf8(std::wstring(type) + L": " + text);
  inspection.shown[control] = name;
  const auto contains = [](const RECT& outer, const RECT& inner) {
    RECT both;
    UnionRect(&both, &inner, &outer);
    return EqualRect(&both, &outer) != 0;
  };
  RECT place;
  GetWindowRect(control, &place);
  const HWND window = GetAncestor(control, GA_ROOT);
  RECT client;
  GetClientRect(window, &client);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  if (contains(client, place)) inspection.inside.insert(control);
  RECT needed{0, 0, place.right - place.left, 0};
  const LONG style = GetWindowLongW(control, GWL_STYLE);
  const bool label = std::wstring_view(type) == L"Static";
  const bool wraps = label && (style & SS_CENTERIMAGE) == 0;
  const bool decorated = std::wstring_view(type) == L"Button" || std::wstring_view(type) == L"ComboBox";
  if (inspection.font == nullptr && (label || decorated))
    inspection.font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
  const HDC dc = GetDC(control);
  SelectObject(dc, inspection.font);
  DrawTextW(dc, text, -1, &needed, DT_CALCRECT | (wraps ? DT_WORDBREAK : 0U));
  ReleaseDC(control, dc);
  OffsetRect(&needed, place.left + (decorated ? 16 : 0), place.top);
  const bool ownText = (label && (style & SS_ELLIPSISMASK) == 0) || decorated;
  if (ownText && !contains(place, needed)) inspection.faults.insert(name + " is cut");
  return TRUE;
}

/// What is wrong with a window as it is shown now.
std::set<std::string> Faults(HWND window, bool mayScroll) {
  Inspection inspection;
  // One that scrolls shows each control at one end or the other.
  for (const auto& [down, across] : {std::pair(SB_BOTTOM, SB_RIGHT), std::pair(SB_BOTTOM, SB_LEFT),
                                     std::pair(SB_TOP, SB_RIGHT), std::pair(SB_TOP, SB_LEFT)}) {
    SendMessageW(window, WM_VSCROLL, down, 0);
    SendMessageW(window, WM_HSCROLL, across, 0);
    EnumChildWindows(window, Inspect, reinterpret_cast<LPARAM>(&inspection));
    if (!Scrolls(window)) break;
  }
  for (const auto& [control, name] : inspection.shown) {
    if (!inspection.inside.contains(control)) inspection.faults.insert(name + " sticks out");
  }
  if (Scrolls(window) && !mayScroll) inspection.faults.insert("scrolls");
  RECT place;
  GetWindowRect(window, &place);
  const bool tooLarge = place.right - place.left > GetSystemMetrics(SM_CXSCREEN) ||
                        place.bottom - place.top > GetSystemMetrics(SM_CYSCREEN);
  if (tooLarge) inspection.faults.insert("larger than the screen");
  return inspection.faults;
}

/// Looks at a form at its smallest, in each resolution. @param height of a screen, in points of 1/96 inch, on which it
/// does not scroll
void ExpectFit(const FormDriver& form, const std::string& name, int height = 600) {
  const HWND window = form.Window();
  for (const int dots : {96, 120, 144, 192}) {
    RECT place;
    GetWindowRect(window, &place);
    SendMessageW(window, WM_DPICHANGED, MAKELONG(dots, dots), reinterpret_cast<LPARAM>(&place));
    SetWindowPos(window, nullptr, 0, 0, 10, 10, SWP_NOZORDER | SWP_NOACTIVATE);
    const int dotsOfWindow = GetSystemMetrics(SM_CYSCREEN) * 96 / dots;
    std::set<std::string> faults = Faults(window, dotsOfWindow < height);
    // A recording changes its texts while they are looked at: what it says next is seen with its own place.
    for (int again = 0; again < 3 && !faults.empty(); ++again) {
      SendMessageW(window, WM_NULL, 0, 0);
      faults = Faults(window, dotsOfWindow < height);
    }
    EXPECT_THAT(faults, IsEmpty()) << name << " at " << dots;
  }
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
      const auto inspect = [&](const char* shown, int height = 600) {
        EXPECT_TRUE(WaitFor([&] { return form.Visible(shown); })) << language.first;
        ExpectFit(form, language.first + " with " + shown, height);
      };
      form.Type("rtfFileName", file);
      form.Select("cboNumberOfParameters", L"2");
      form.Select("cboPXXX2", L"003");
      form.Capture(picture + language.second + ".png");
      inspect("cmdStart");
      form.Select("cboNumberOfParameters", L"4");
      form.Choose("cboTriggerMode", 0);
      form.Choose("cboTimeBetweenPointsUnit", 2);
      form.Choose("cboEvent", 2);  // the longest
      inspect("cmdTrigger");
      form.Press("cmdTrigger");
      inspect("imgTrigger1");
      EXPECT_TRUE(HoldKey(VK_ESCAPE, [&form] { return form.Enabled("cboDriveAddress"); }));
      form.Type("rtfFileName", L"");
      inspect("lblHint");
      form.Type("rtfFileName", file);
      form.Press("cmdNewFile");
      const HWND box = WaitForWindow(L"#32770", GetCurrentProcessId());
      EXPECT_THAT(Faults(box, false), IsEmpty()) << language.first << ", the name of a new file";
      PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
      form.Keys({});
      form.Type("txtNumberOfPoints", L"1000");
      form.Press("cmdStart");
      inspect("prgProgress");
      form.Press("cmdCurve");
      inspect("crvPoints", 768);
      EXPECT_TRUE(WaitFor([&] { return std::atoi(form.Text("lblProgress").c_str()) >= 3; }));
      form.Capture(TestFolder() + "\\win_live_" + language.second + ".png");
      form.Press("cmdCurve");
      EXPECT_TRUE(WaitFor([&] { return !form.Visible("crvPoints"); }));
      EXPECT_TRUE(HoldKey(VK_ESCAPE, [&form] { return form.Enabled("cboDriveAddress"); }));
      form.Close();
    }
    const WindowHost host(TestFolder() + "\\show.cht");
    const FormDriver chart(GetCurrentProcessId(), L"");
    ExpectFit(chart, language.first + ", chart");
    for (const char letter : {'G', 'F'}) {
      chart.Keys({});
      SendMessageW(chart.Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(chart.Control("mscChart1")), TRUE);
      chart.Keys({static_cast<WORD>(kControl | letter)});
      EXPECT_TRUE(WaitFor([&] { return GetWindow(GetForegroundWindow(), GW_OWNER) == chart.Window(); }));
      const FormDriver asking(GetCurrentProcessId(), L"");
      EXPECT_NE(asking.Window(), chart.Window());
      ExpectFit(asking, language.first + ", " + letter);
      asking.Close();
    }
    chart.Close();
  }
}

}  // namespace
}  // namespace chartproject::testing
