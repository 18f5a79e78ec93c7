// ChartClass, the one creatable class: an instance of the component from its start-up to its release.
#pragma once

#include <string>

#include "component/process_state.h"
#include "recording/file/component.h"

namespace chartproject {

/// Creating an instance loads the whole environment: settings, language, help file, drive table. Releasing it writes
/// the settings back. Everything runs on the thread that shows the forms. Instances of one thread share one state: each
/// start reads the settings into it anew, each release saves what it holds then.
///
/// Release is a separate call, because it can fail and its caller must learn of it (the COM server's last Release,
/// the program's end). An instance that is destroyed without it still releases, so that no setting is lost on the way
/// out of an error; a failure is then logged and shown.
class ChartClass {
 public:
  /// Throws RunTimeError when a setting or a drive file cannot be read: then there is no instance.
  /// @param state of this thread, see ProcessState::NewState; it and `process` outlive the instance
  ChartClass(Component& state, ProcessState& process);
  ~ChartClass();
  ChartClass(const ChartClass&) = delete;
  ChartClass& operator=(const ChartClass&) = delete;

  /// Makes and opens a drive link, shows the acquisition dialog until it is closed, and ends the link.
  /// Throws RunTimeError when link or dialog fail; no link stays open.
  void AcquireVar();

  /// Remembers the name of a chart file and shows it in the chart window until that is closed.
  void CreateChart(const std::string& strFileName);

  /// Saves the settings and makes the project folder current. Only the first call does anything: a release that failed
  /// is not tried again. Throws RunTimeError when the store cannot be written or the folder cannot be entered.
  void Release();

  /// The state that the dialogs work on, for hosts that show or change it between calls.
  [[nodiscard]] Component& State() noexcept { return component_; }

 private:
  ProcessState& process_;
  Component& component_;
  bool released_ = false;
};

}  // namespace chartproject
