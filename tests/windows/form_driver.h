// A user's hands and eyes on the component's windows, from another process.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "backends/win32/windows_api.h"

namespace chartproject::testing {

inline constexpr std::chrono::seconds kPatience{60};  // a busy machine takes its time

/// Polls until a condition holds; false after kPatience.
bool WaitFor(const std::function<bool()>& condition);

/// A visible window of a process, by its class; null when none came in time.
[[nodiscard]] HWND WaitForWindow(const wchar_t* windowClass, DWORD process);

/// One form. Controls are named as in the system; every operation fails the test when the control is not there.
class FormDriver {
 public:
  /// Waits for a form (or the newest of several) of a process whose caption begins with `caption`.
  FormDriver(DWORD process, const std::wstring& caption);
  explicit FormDriver(HWND window) noexcept : window_(window) {}

  [[nodiscard]] HWND Window() const noexcept { return window_; }
  [[nodiscard]] bool IsUp() const { return IsWindow(window_) != 0 && IsWindowVisible(window_) != 0; }
  [[nodiscard]] HWND Control(const std::string& name) const;
  [[nodiscard]] bool Visible(const std::string& name) const;
  [[nodiscard]] bool Enabled(const std::string& name) const;
  [[nodiscard]] std::string Text(const std::string& name) const;
  long Send(const std::string& name, UINT message, WPARAM word = 0, LPARAM data = 0) const;

  /// Chooses the item of a drop-down list that has this text.
  void Select(const std::string& name, const std::wstring& item) const;
  void Choose(const std::string& name, long index) const;
  void Type(const std::string& name, const std::wstring& text) const;
  /// Presses a button and returns at once: what it opens stays up.
  void Press(const std::string& name) const;
  /// Waits for the focus to come to a control.
  [[nodiscard]] bool GetsFocus(const std::string& name) const;
  /// As PressKeys.
  void Keys(const std::vector<WORD>& keys) const;
  /// Moves the mouse over the middle of a control, and waits until it stays there.
  void PointAt(const std::string& name) const;
  /// Turns the mouse wheel over a control. @param notches positive away from the user, of one that lies to the right
  void Wheel(const std::string& name, int notches, bool sideways = false) const;
  void Close() const { PostMessageW(window_, WM_CLOSE, 0, 0); }
  /// Saves what the window shows as a PNG file.
  void Capture(const std::string& fileName) const;

 private:
  HWND window_ = nullptr;
};

/// A message box of a process.
class BoxDriver {
 public:
  explicit BoxDriver(DWORD process);
  [[nodiscard]] bool IsUp() const { return window_ != nullptr; }
  [[nodiscard]] std::string Prompt() const;
  void Keys(const std::vector<WORD>& keys) const;  ///< as PressKeys
  /// @param answer id of the button, for example IDYES
  void Answer(int answer) const;

 private:
  HWND window_;
};

/// A script host that runs one of our scripts; ended with the object.
class ScriptHost {
 public:
  /// @param arguments what follows the script's name
  ScriptHost(const std::string& script, const std::string& arguments);
  ~ScriptHost();
  ScriptHost(const ScriptHost&) = delete;
  ScriptHost& operator=(const ScriptHost&) = delete;
  [[nodiscard]] DWORD Process() const noexcept { return information_.dwProcessId; }
  /// The script's exit code; -1 when it did not end in time.
  [[nodiscard]] int ExitCode() const;

 private:
  PROCESS_INFORMATION information_{};
};

/// A PostScript printer of our own as the default one; when the object goes, no printer is left.
class TestPrinter {
 public:
  /// @param port a path of the system below Wine, or "|" and a command of its shell that reads the document
  explicit TestPrinter(const std::string& port);
  ~TestPrinter();
  TestPrinter(const TestPrinter&) = delete;
  TestPrinter& operator=(const TestPrinter&) = delete;

 private:
  HANDLE printer_;
};

/// Folder of the test's project and files: the environment variable CHARTPROJECT_TEST_DIR.
[[nodiscard]] std::string TestFolder();
[[nodiscard]] std::string FileContents(const std::string& name);

/// Repeats an action, and fails the test when this process holds more handles, windows or memory afterwards.
/// @param spareBytes what the system may keep, for example of ended threads
void ExpectNoGrowth(int cycles, const std::function<void()>& action, std::size_t spareBytes = 256 * 1024);

/// With a key's number: the key is pressed together with these.
inline constexpr WORD kAlt = 0x100;
inline constexpr WORD kShift = 0x200;
inline constexpr WORD kControl = 0x400;

/// Keys pressed and let go, as the keyboard does it, when a window has come to the front and has the focus. Without a
/// key: waits until then.
void PressKeys(HWND window, const std::vector<WORD>& keys);
/// Holds a key down until it shows; false when it does not.
[[nodiscard]] bool HoldKey(WORD virtualKey, const std::function<bool()>& shows);

}  // namespace chartproject::testing
