// One run of the program: its ports and its instance of the component.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "backends/headless/headless_form_host.h"
#include "backends/posix/console_dialogs.h"
#include "component/chart_class.h"
#include "host/session/desktop.h"
#include "host/session/drive_links.h"
#include "platform/ports.h"

namespace chartproject {

/// How the program ends.
enum class ExitCode {
  kDone = 0,
  kRunTimeError = 1,  ///< something failed: a file, a setting, a drive
  kRefused = 2,       ///< wrong usage, or a value that the acquisition dialog refuses
  kEndedEarly = 3     ///< a recording that Esc, a signal or a full disk ended, its points kept; or a stopped export
};

enum class ClockChoice { kReal, kVirtual };

/// The options that come before the command.
struct GlobalOptions {
  std::string profileFolder;  ///< full name; empty for the user's configuration folder
  std::string link;           ///< "sim", "scenario:FILE" or the text of a line; empty for the stored choice
  std::string trace;          ///< file of the line's frames, "-" for the standard error; empty for none
  ClockChoice clock = ClockChoice::kReal;
  std::optional<DateTime> start;  ///< local time at which a virtual clock starts; the real time when not given
  bool answerYes = false;         ///< the answer to every question
  bool quiet = false;             ///< no progress on standard error
};

/// Made once the options are known. Ports are headless until UseDesktop; the instance is made when it is first asked
/// for, because creating it reads every setting and every drive file.
class Session {
 public:
  /// @param out,err outlive the session
  Session(const GlobalOptions& options, std::ostream& out, std::ostream& err);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Takes windows for all that follows; called before the instance is made. Off the screen, forms and boxes stay
  /// headless, and only Desktop::Forms().Pictures() and the printer are new. Throws as OpenDesktop does.
  Desktop& UseDesktop(DesktopMode mode);

  [[nodiscard]] std::ostream& Out() noexcept { return out_; }
  [[nodiscard]] std::ostream& Err() noexcept { return err_; }
  [[nodiscard]] const GlobalOptions& Options() const noexcept { return options_; }
  [[nodiscard]] Ports& ThePorts();
  [[nodiscard]] FormHost& Forms() noexcept;
  /// The form host and the message boxes of a session without windows.
  [[nodiscard]] HeadlessFormHost& Headless() noexcept;
  [[nodiscard]] ConsoleDialogs& Console() noexcept;

  /// The drive links by --link or by the stored choice. Those of --link are checked with the first call: throws as
  /// MakeDriveLinks does.
  [[nodiscard]] ChosenLinks& Links();
  /// The instance of the component; made with the first call. Throws RunTimeError.
  [[nodiscard]] ChartClass& Instance();
  /// Releases the instance, if there is one: settings are saved. The next call of Instance makes a new one.
  void Release();

 private:
  struct Outside;
  [[nodiscard]] Language CurrentLanguage();
  GlobalOptions options_;
  std::ostream& out_;
  std::ostream& err_;
  std::unique_ptr<Outside> outside_;
  std::unique_ptr<Desktop> desktop_;
  bool onScreen_ = false;
  std::unique_ptr<Ports> ports_;
  ProcessState process_;
  std::unique_ptr<Component> state_;  ///< of the instance
  std::unique_ptr<ChartClass> instance_;
};

}  // namespace chartproject
