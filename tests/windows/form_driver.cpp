// Finds windows and controls by class and id, sends them what a user's input would send.
#include "windows/form_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "backends/win32/drawing/gdiplus_api.h"
#include "backends/win32/handles.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/widget.h"

#include <psapi.h>
#include <winspool.h>

namespace chartproject::testing {

namespace {

struct Search {
  const wchar_t* windowClass;
  DWORD process;
  std::wstring caption;
  HWND found;
};

BOOL CALLBACK Match(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t name[64];
  GetClassNameW(window, name, 64);
  wchar_t caption[256];
  GetWindowTextW(window, caption, 256);
  const bool matches = process == search.process && IsWindowVisible(window) != 0 &&
                       std::wstring_view(name) == search.windowClass &&
                       std::wstring_view(caption).starts_with(search.caption);
  if (matches) search.found = window;
  return matches ? FALSE : TRUE;
}

HWND Find(const wchar_t* windowClass, DWORD process, const std::wstring& caption) {
  SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);  // over nothing that reacts
  Search search{windowClass, process, caption, nullptr};
  WaitFor([&search] {
    EnumWindows(Match, reinterpret_cast<LPARAM>(&search));
    return search.found != nullptr;
  });
  return search.found;
}

/// The window that has the focus of the thread that owns a window.
HWND FocusOf(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
  return info.hwndFocus;
}

}  // namespace

bool WaitFor(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    Sleep(5);
  }
  return true;
}

HWND WaitForWindow(const wchar_t* windowClass, DWORD process) {
  return Find(windowClass, process, L"");
}

FormDriver::FormDriver(DWORD process, const std::wstring& caption)
    : window_(Find(L"ChartProjectForm", process, caption)) {
  EXPECT_NE(window_, nullptr) << "no form came up";
}

HWND FormDriver::Control(const std::string& name) const {
  const HWND control = GetDlgItem(window_, win32::ControlId(name));
  EXPECT_NE(control, nullptr) << name << " is not there";
  return control;
}

bool FormDriver::Visible(const std::string& name) const {
  return IsWindowVisible(Control(name)) != 0;
}

bool FormDriver::Enabled(const std::string& name) const {
  return IsWindowEnabled(Control(name)) != 0;
}

long FormDriver::Send(const std::string& name, UINT message, WPARAM word, LPARAM data) const {
  return SendMessageW(Control(name), message, word, data);
}

std::string FormDriver::Text(const std::string& name) const {
  std::vector<wchar_t> text(static_cast<std::size_t>(Send(name, WM_GETTEXTLENGTH)) + 1);
  Send(name, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return win32::ToUtf8(text.data());
}

void FormDriver::Select(const std::string& name, const std::wstring& item) const {
  const long index = Send(name, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item.c_str()));
  ASSERT_GE(index, 0) << name << " has no item " << win32::ToUtf8(item);
  Choose(name, index);
}

void FormDriver::Choose(const std::string& name, long index) const {
  Send(name, CB_SETCURSEL, static_cast<WPARAM>(index));
  SendMessageW(window_, WM_COMMAND, MAKEWPARAM(win32::ControlId(name), CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(Control(name)));
}

void FormDriver::Type(const std::string& name, const std::wstring& text) const {
  Send(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void FormDriver::Press(const std::string& name) const {
  PostMessageW(Control(name), BM_CLICK, 0, 0);
}

bool FormDriver::GetsFocus(const std::string& name) const {
  return WaitFor([&] { return FocusOf(window_) == Control(name); });
}

void FormDriver::Keys(const std::vector<WORD>& keys) const {
  PressKeys(window_, keys);
}

void FormDriver::PointAt(const std::string& name) const {
  RECT place;
  GetWindowRect(Control(name), &place);
  const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  // The display reports the pointer's earlier moves late, and so moves it back: it has to stay for a while.
  int still = 0;
  EXPECT_TRUE(WaitFor([&] {
    POINT at{};
    GetCursorPos(&at);
    still = at.x == middle.x && at.y == middle.y ? still + 1 : 0;
    if (still == 0) SetCursorPos(middle.x, middle.y);
    return still > 10;
  })) << "the pointer does not stay over "
      << name;
}

void FormDriver::Wheel(const std::string& name, int notches, bool sideways) const {
  PointAt(name);
  if (sideways) {  // this Wine makes no message of such an input
    RECT place;
    GetWindowRect(Control(name), &place);
    PostMessageW(window_, WM_MOUSEHWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA),
                 MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2));
    return;
  }
  INPUT turn{};
  turn.type = INPUT_MOUSE;
  turn.mi.dwFlags = MOUSEEVENTF_WHEEL;
  turn.mi.mouseData = static_cast<DWORD>(notches) * WHEEL_DELTA;
  SendInput(1, &turn, sizeof turn);
}

void FormDriver::Capture(const std::string& fileName) const {
  const win32::GdiplusSession session;
  // What was invalidated is painted now, and on the screen when its thread has waited for messages again.
  RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  for (int round = 0; round < 100; ++round) SendMessageW(window_, WM_NULL, 0, 0);
  RECT place;
  GetWindowRect(window_, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  const HDC screen = GetWindowDC(window_);
  const win32::OwnedDc memory(CreateCompatibleDC(screen));
  const win32::OwnedBitmap copy(CreateCompatibleBitmap(screen, width, height));
  const HGDIOBJ before = SelectObject(memory.Get(), copy.Get());
  BitBlt(memory.Get(), 0, 0, width, height, screen, 0, 0, SRCCOPY);
  SelectObject(memory.Get(), before);
  ReleaseDC(window_, screen);
  constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
  Gdiplus::Bitmap picture(copy.Get(), nullptr);
  EXPECT_EQ(picture.Save(win32::ToWide(fileName).c_str(), &kPngEncoder, nullptr), Gdiplus::Ok) << fileName;
}

BoxDriver::BoxDriver(DWORD process) : window_(Find(L"#32770", process, L"")) {
  EXPECT_NE(window_, nullptr) << "no message box came up";
}

std::string BoxDriver::Prompt() const {
  constexpr int kTextId = 0xFFFF;
  wchar_t text[1024];
  GetDlgItemTextW(window_, kTextId, text, 1024);
  return win32::ToUtf8(text);
}

void BoxDriver::Keys(const std::vector<WORD>& keys) const {
  PressKeys(window_, keys);
}

void BoxDriver::Answer(int answer) const {
  PostMessageW(window_, WM_COMMAND, MAKEWPARAM(answer, BN_CLICKED), 0);
  EXPECT_TRUE(WaitFor([this] { return IsWindow(window_) == 0; })) << "the box stays up";
}

ScriptHost::ScriptHost(const std::string& script, const std::string& arguments) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  std::wstring line = win32::ToWide("cscript.exe //nologo \"" + TestFolder() + "\\" + script + "\" " + arguments);
  EXPECT_NE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &information_),
            0)
      << "the script host did not start";
}

ScriptHost::~ScriptHost() {
  if (WaitForSingleObject(information_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(information_.hProcess, 99);
  CloseHandle(information_.hThread);
  CloseHandle(information_.hProcess);
}

int ScriptHost::ExitCode() const {
  const auto patience = std::chrono::milliseconds(kPatience).count();
  if (WaitForSingleObject(information_.hProcess, static_cast<DWORD>(patience)) != WAIT_OBJECT_0) return -1;
  DWORD code = 0;
  GetExitCodeProcess(information_.hProcess, &code);
  return static_cast<int>(code);
}

TestPrinter::TestPrinter(const std::string& port) {
  std::wstring name = L"Test Printer";
  std::wstring library = L"C:\\windows\\system32\\wineps.drv";
  std::wstring description = win32::ToWide(TestFolder() + "\\printer.ppd");
  std::wstring portName = win32::ToWide(port);
  std::wstring processor = L"winprint";
  std::wstring dataType = L"RAW";
  constexpr DWORD kCopy = APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY;
  DRIVER_INFO_3W driver{};
  driver.cVersion = 3;
  driver.pName = name.data();
  driver.pDriverPath = driver.pConfigFile = library.data();
  driver.pDataFile = description.data();
  EXPECT_NE(AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver), kCopy), 0) << GetLastError();
  PRINTER_INFO_2W printer{};
  printer.pPrinterName = printer.pDriverName = name.data();
  printer.pPortName = portName.data();
  printer.pPrintProcessor = processor.data();
  printer.pDatatype = dataType.data();
  printer_ = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
  EXPECT_NE(printer_, nullptr) << GetLastError();
  EXPECT_NE(SetDefaultPrinterW(name.c_str()), 0) << GetLastError();
}

TestPrinter::~TestPrinter() {
  DeletePrinter(printer_);
  ClosePrinter(printer_);
}

std::string TestFolder() {
  char folder[1024];
  const DWORD length = GetEnvironmentVariableA("CHARTPROJECT_TEST_DIR", folder, sizeof folder);
  return {folder, length};
}

std::string FileContents(const std::string& name) {
  std::ifstream file(std::filesystem::path(win32::ToWide(name)), std::ios::binary);
  std::stringstream contents;
  contents << file.rdbuf();
  return contents.str();
}

namespace {

/// How many numbers of a table are in use, up to a constant. A freed number is given out again before a new one, in an
/// order that says nothing: so many objects are made at once that new numbers are needed, and the highest one counts.
template <typename Make, typename Destroy>
int NumbersInUse(Make make, Destroy destroy) {
  constexpr int kMoreThanAreFree = 3000;
  std::vector<decltype(make())> objects;
  int highest = 0;
  for (int object = 0; object < kMoreThanAreFree; ++object) {
    objects.push_back(make());
    EXPECT_NE(objects.back(), nullptr);
    highest = std::max<int>(highest, LOWORD(HandleToULong(objects.back())));
  }
  for (const auto object : objects) destroy(object);
  return highest;
}

}  // namespace

void ExpectNoGrowth(int cycles, const std::function<void()>& action, std::size_t spareBytes) {
  struct Use {
    DWORD handles;
    int windows;
    int drawing;
    SIZE_T bytes;
  };
  // This Wine counts no handles; but a new one gets the lowest free number. There is one row of numbers, two apart, for
  // windows, menus and cursors, and one for what is drawn with.
  const auto measure = [] {
    const HANDLE handle = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(handle);
    const int windows = NumbersInUse([] { return CreateMenu(); }, [](HMENU menu) { DestroyMenu(menu); }) / 2;
    const int drawing = NumbersInUse([] { return static_cast<HGDIOBJ>(CreateSolidBrush(RGB(1, 2, 3))); },
                                     [](HGDIOBJ brush) { DeleteObject(brush); });
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    return Use{HandleToULong(handle) / 4, windows, drawing, memory.PagefileUsage};
  };
  for (int warmUp = 0; warmUp < cycles / 10; ++warmUp) action();
  measure();  // its own objects take memory the first time
  Use before{};
  Use after{};
  const auto grew = [&] {
    return after.handles > before.handles + 2 || after.windows > before.windows + 2 ||
           after.drawing > before.drawing + 2 || after.bytes > before.bytes + spareBytes;
  };
  // A leak grows in every round. In one of them the system may take a large piece of memory, to give it out later, or
  // the numbers of a thread that has ended are not free yet.
  constexpr int kRounds = 4;
  for (int round = 0; round < kRounds && (round == 0 || grew()); ++round) {
    before = measure();
    for (int cycle = 0; cycle < cycles; ++cycle) action();
    after = measure();
  }
  EXPECT_LE(after.handles, before.handles + 2);
  EXPECT_LE(after.windows, before.windows + 2);
  EXPECT_LE(after.drawing, before.drawing + 2);
  EXPECT_LE(after.bytes, before.bytes + spareBytes);
}

namespace {

INPUT KeyInput(WORD virtualKey, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  const bool onNumberPadToo = virtualKey >= VK_PRIOR && virtualKey <= VK_DELETE;
  input.ki.dwFlags = flags | (onNumberPadToo ? KEYEVENTF_EXTENDEDKEY : 0);
  return input;
}

}  // namespace

void PressKeys(HWND window, const std::vector<WORD>& keys) {
  const auto ready = [window] {  // a window comes to the front before it gives one of its controls the focus
    const bool front = GetForegroundWindow() == window && IsWindowEnabled(window) != 0;
    return front && GetAncestor(FocusOf(window), GA_ROOT) == window;
  };
  EXPECT_TRUE(WaitFor(ready)) << "the window takes no keys";
  std::vector<INPUT> inputs;
  for (const WORD key : keys) {
    const auto modifiers = [&](DWORD flags) {
      for (const auto& [bit, modifier] : {std::pair(kAlt, VK_MENU), {kShift, VK_SHIFT}, {kControl, VK_CONTROL}}) {
        if ((key & bit) != 0) inputs.push_back(KeyInput(static_cast<WORD>(modifier), flags));
      }
    };
    modifiers(0);
    for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) inputs.push_back(KeyInput(key & 0xFF, flags));
    modifiers(KEYEVENTF_KEYUP);
  }
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

bool HoldKey(WORD virtualKey, const std::function<bool()>& shows) {
  INPUT down = KeyInput(virtualKey, 0);
  INPUT up = KeyInput(virtualKey, KEYEVENTF_KEYUP);
  SendInput(1, &down, sizeof(INPUT));
  const bool shown = WaitFor(shows);
  SendInput(1, &up, sizeof(INPUT));
  return shown;
}

}  // namespace chartproject::testing
