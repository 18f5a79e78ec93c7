// Putting the back ends together for one run of the program.
#include "host/session/session.h"

#include <ostream>

#include "backends/headless/absent_devices.h"
#include "backends/headless/code_page_1252.h"
#include "backends/headless/virtual_clock.h"
#include "backends/posix/files/posix_file_system.h"
#include "backends/posix/keyboard_signals.h"
#include "backends/posix/posix_clock.h"
#include "backends/posix/posix_locale.h"
#include "backends/posix/posix_settings_store.h"
#include "backends/spreadsheet/embedded_spreadsheet.h"

namespace chartproject {

namespace {

/// The clock of a run, and how its timers wait.
struct SessionClock {
  explicit SessionClock(const GlobalOptions& options) {
    if (options.clock == ClockChoice::kVirtual) {
      auto jumping = std::make_unique<VirtualClock>(options.start.value_or(PosixClock().LocalNow()));
      wait = [at = jumping.get()](Instant moment) { at->AdvanceTo(moment); };
      clock = std::move(jumping);
    } else {
      wait = SleepUntil;
      clock = std::make_unique<PosixClock>();
    }
  }
  std::unique_ptr<Clock> clock;
  WaitUntil wait;
};

}  // namespace

struct Session::Outside {
  Outside(const GlobalOptions& options, std::ostream& err, std::function<Language()> language)
      : clock(options),
        settings(files, options.profileFolder.empty() ? PosixSettingsStore::UserFolder() : options.profileFolder),
        dialogs(err, options.answerYes, kApplicationTitle),
        forms(*clock.clock, clock.wait),
        links(options.link.empty() ? StoredLink(settings) : options.link,
              {files, settings, *clock.clock, clock.wait, locale, std::move(language), options.trace,
               options.clock == ClockChoice::kReal}) {
    settings.lineSkipped = [&err](const std::string& sentence) { err << "chartproject: " << sentence << std::endl; };
  }

  PosixFileSystem files;
  SessionClock clock;
  PosixSettingsStore settings;
  PosixLocale locale = PosixLocale::FromEnvironment();
  CodePage1252 codePage;
  ConsoleDialogs dialogs;
  SilentSound sound;
  KeyboardSignals keyboard;
  NoHelp help;
  ProcessClipboard clipboard;
  NoPrinter printer;
  EmbeddedSpreadsheets spreadsheets{locale};
  HeadlessFormHost forms;
  ChosenLinks links;
};

Session::Session(const GlobalOptions& options, std::ostream& out, std::ostream& err)
    : options_(options),
      out_(out),
      err_(err),
      outside_(std::make_unique<Outside>(options, err, [this] { return CurrentLanguage(); })) {}

Session::~Session() = default;

Language Session::CurrentLanguage() {
  if (instance_) return instance_->State().language;  // what was chosen since is not in the store yet
  return LanguageNamed(outside_->settings.Read("MyConf", "strLanguage").value_or("")).value_or(Language::kEnglish);
}

Desktop& Session::UseDesktop(DesktopMode mode) {
  desktop_ = OpenDesktop(mode, *outside_->clock.clock, [this] { return CurrentLanguage(); });
  onScreen_ = mode == DesktopMode::kScreen;
  ports_.reset();
  return *desktop_;
}

Ports& Session::ThePorts() {
  if (ports_) return *ports_;
  Outside& own = *outside_;
  // Off the screen only paper and pictures come from the windowing system; boxes stay texts.
  Desktop* const screen = onScreen_ ? desktop_.get() : nullptr;
  ports_ = std::make_unique<Ports>(
      Ports{own.settings, own.files, *own.clock.clock, own.locale, own.codePage,
            screen != nullptr ? screen->Boxes() : own.dialogs, screen != nullptr ? screen->Sounds() : own.sound,
            screen != nullptr ? screen->Keys() : own.keyboard, screen != nullptr ? screen->HelpViewer() : own.help,
            screen != nullptr ? screen->ClipboardPicture() : own.clipboard, desktop_ ? desktop_->Paper() : own.printer,
            own.spreadsheets});
  return *ports_;
}

FormHost& Session::Forms() noexcept {
  return onScreen_ ? desktop_->Forms() : outside_->forms;
}

HeadlessFormHost& Session::Headless() noexcept {
  return outside_->forms;
}

ConsoleDialogs& Session::Console() noexcept {
  return outside_->dialogs;
}

ChosenLinks& Session::Links() {
  if (!options_.link.empty()) outside_->links.Make();
  return outside_->links;
}

ChartClass& Session::Instance() {
  if (!instance_) {
    state_ = process_.NewState(ThePorts(), Forms(), Links());
    state_->profileFolder = outside_->settings.Folder();
    instance_ = std::make_unique<ChartClass>(*state_, process_);
  }
  return *instance_;
}

void Session::Release() {
  if (!instance_) return;
  instance_->Release();
  instance_.reset();
  state_.reset();
}

}  // namespace chartproject
