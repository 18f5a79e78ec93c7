// In-memory ports for the tests: everything that the core asks of the outside, with a hand-cranked clock.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "backends/headless/absent_devices.h"
#include "backends/headless/code_page_1252.h"
#include "backends/headless/headless_form_host.h"
#include "backends/headless/virtual_clock.h"
#include "platform/ports.h"
#include "support/fake_office.h"
#include "support/memory_file_system.h"

namespace chartproject {

class MemorySettings : public SettingsStore {
 public:
  std::optional<std::string> Read(std::string_view section, std::string_view key) override;
  void Write(std::string_view section, std::span<const StoredSetting> settings) override;

  std::map<std::string, std::map<std::string, std::string>> values;  ///< by section and key
  std::vector<std::string> written;                                  ///< "section.key", in the order of writing
};

/// Fixed texts: dates as dd/mm/yyyy, times as "8h05m09" (unlike hh:mm:ss, so that a mix-up shows).
class FakeLocale : public Locale {
 public:
  NumberFormat numbers;
  [[nodiscard]] const NumberFormat& Numbers() const override { return numbers; }
  [[nodiscard]] std::string DateText(const DateTime& moment) const override;
  [[nodiscard]] std::string TimeText(const DateTime& moment) const override;
  void UseComma() { numbers = {",", "."}; }
};

class FakeDialogs : public Dialogs {
 public:
  std::int16_t ShowMessageBox(const MessageBoxRequest& request) override;
  std::string ShowInputBox(const InputBoxRequest& request) override;
  std::optional<std::string> ShowOpenFile(const OpenFileRequest& request) override;

  std::vector<MessageBoxRequest> boxes;  ///< all boxes shown
  std::vector<InputBoxRequest> inputs;
  std::vector<OpenFileRequest> fileRequests;
  std::deque<std::int16_t> answers;                       ///< taken one a box; when empty OK, and No to a question
  std::function<void(const MessageBoxRequest&)> whileUp;  ///< what happens while a box is up
  std::string inputAnswer;
  std::optional<std::string> fileAnswer;

  /// The prompts of all boxes since the last call.
  [[nodiscard]] std::vector<std::string> TakePrompts();
};

class FakeSound : public Sound {
 public:
  unsigned OutputDeviceCount() override { return devices; }
  void Play(const std::string& fileName, std::uint32_t flags) override { played.push_back({fileName, flags}); }

  struct Played {
    std::string fileName;
    std::uint32_t flags;
  };
  unsigned devices = 1;
  std::vector<Played> played;
};

class FakeKeyboard : public Keyboard {
 public:
  bool EscapePressed() override { return std::exchange(escape, false); }
  bool escape = false;
};

/// Forms without windows that can note what their windows would be told beside the controls' values.
class NotedFormHost : public HeadlessFormHost {
 public:
  using HeadlessFormHost::HeadlessFormHost;
  std::unique_ptr<FormView> CreateView(Form& form) override;

  bool notes = false;
  std::vector<std::string> noted;  ///< "layout", "pointer 11", "focus cmdOne"; the same twice in a row is noted once
};

/// All of them together, with a headless form host on the virtual clock (2026-01-31 08:00:00 at moment 0).
struct FakePorts {
  MemorySettings settings;
  MemoryFileSystem files;
  VirtualClock clock{DateTime{2026, 1, 31, 8, 0, 0, 0}};
  FakeLocale locale;
  CodePage1252 codePage;
  FakeDialogs dialogs;
  FakeSound sound;
  FakeKeyboard keyboard;
  NoHelp help;
  ProcessClipboard clipboard;
  FakePrinter printer;
  FakeSpreadsheets spreadsheets;
  NotedFormHost forms{clock, [this](Instant moment) { clock.AdvanceTo(moment); }};
  Ports ports{settings, files,    clock, locale,    codePage, dialogs,
              sound,    keyboard, help,  clipboard, printer,  spreadsheets};
};

}  // namespace chartproject
