// A form: controls, layout, life and the boundary at which the errors of its handlers end.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/layout.h"
#include "platform/run_time_error.h"

namespace chartproject {

class FormHost;
class FormView;

enum class WindowState { kNormal = 0, kMinimized = 1, kMaximized = 2 };

/// The changes that a form reports to its view.
enum class FormProperty { kCaption, kIcon, kMousePointer, kPlace, kHeight, kWindowState, kLayout };

/// Shows and logs an error that a handler did not trap. @param routine the handler's name
using HandlerErrorReporter = std::function<void(const std::string& routine, const RunTimeError& error)>;

class Form {
 public:
  /// @param host the back end that shows forms; @param name the form's name, for example "frmChart"
  Form(FormHost& host, std::string name, HandlerErrorReporter reporter);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // Life. ------------------------------------------------------------------------------------------------------------
  /// Makes the window (hidden) and runs OnLoad, once.
  void Load();
  /// Loads when needed, runs OnActivate, shows, and returns when the form was hidden or unloaded.
  void ShowModal();
  /// Shows a form that only reports progress, and returns at once. It takes no input; Hide or Unload ends it.
  void ShowStatus();
  /// Ends the display; the form stays loaded.
  void Hide();
  /// Runs OnUnload and ends the modal display. The window itself goes with the form object, so this is safe inside a
  /// handler of the form.
  void Unload();
  /// The close box, Alt+F4 and the like: asks OnQueryClose, then unloads.
  void CloseByUser();
  [[nodiscard]] bool IsLoaded() const noexcept { return loaded_; }
  [[nodiscard]] bool IsShown() const noexcept { return shown_; }

  /// Runs a handler; an error that it lets out (RunTimeError, or any other exception, given the number 440) is reported
  /// and ends that handler only. Never throws.
  void RunHandler(const std::string& routine, const std::function<void()>& handler) noexcept;

  // Properties. ------------------------------------------------------------------------------------------------------
  [[nodiscard]] const std::string& Name() const noexcept { return name_; }
  [[nodiscard]] const std::string& Tag() const noexcept { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }
  [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
  void SetCaption(std::string_view caption);
  /// File of the form's icon; empty for the back end's own.
  [[nodiscard]] const std::string& IconFile() const noexcept { return iconFile_; }
  void SetIconFile(std::string fileName);
  /// File of the custom pointer that buttons with MousePointer::kCustom show; empty for the default hand.
  [[nodiscard]] const std::string& ButtonCursorFile() const noexcept { return buttonCursorFile_; }
  void SetButtonCursorFile(std::string fileName) { buttonCursorFile_ = std::move(fileName); }
  [[nodiscard]] MousePointer Pointer() const noexcept { return pointer_; }
  void SetPointer(MousePointer pointer);
  [[nodiscard]] int HelpContextId() const noexcept { return helpContextId_; }
  void SetHelpContextId(int context) noexcept { helpContextId_ = context; }
  /// Runs when the user asks for help (F1).
  Event helpRequested;
  /// Runs with the full name of a file that the user dropped onto the window. A window takes files only while this is
  /// set; of several it takes the first.
  std::function<void(const std::string& fileName)> fileDropped;

  /// Place and size of the window in twips.
  [[nodiscard]] double Left() const noexcept { return left_; }
  [[nodiscard]] double Top() const noexcept { return top_; }
  [[nodiscard]] double Width() const noexcept { return width_; }
  [[nodiscard]] double Height() const noexcept { return height_; }
  void SetLeft(double twips);
  void SetTop(double twips);
  /// As the height, never less than the layout needs; takes effect before the window's first display.
  void SetWidth(double twips) noexcept { width_ = twips; }
  /// The height that the form asks for; a window is never made smaller than its layout needs.
  void SetHeight(double twips);
  /// Called by the view when the user moved or sized the window: no notice goes back.
  void PlaceChangedByUser(double left, double top, double width, double height) noexcept;
  [[nodiscard]] WindowState State() const noexcept { return state_; }
  void SetState(WindowState state);
  void StateChangedByUser(WindowState state) noexcept { state_ = state; }

  // Controls. --------------------------------------------------------------------------------------------------------
  /// In the order in which they were made.
  [[nodiscard]] const std::vector<Control*>& Controls() const noexcept { return controls_; }
  /// Null when the form has no control of that name.
  [[nodiscard]] Control* Find(std::string_view name) const noexcept;
  [[nodiscard]] const LayoutBox& Layout() const noexcept { return layout_; }
  void SetLayout(LayoutBox layout);
  /// Lets the window find its layout again, after texts or the visibility of collapsing boxes changed.
  void LayoutChanged();
  [[nodiscard]] FormHost& Host() const noexcept { return host_; }
  /// Null while the form is not loaded.
  [[nodiscard]] FormView* View() const noexcept { return view_.get(); }

 protected:
  virtual void OnLoad() {}
  virtual void OnActivate() {}
  /// False keeps the window open.
  virtual bool OnQueryClose() { return true; }
  virtual void OnUnload() {}
  /// Lets a routine of the form handle an event of a control.
  template <class Derived>
  void On(Event& event, const Control& control, const char* eventName, void (Derived::*handler)()) {
    Connect(event, control, eventName, static_cast<Derived*>(this), handler);
  }

 private:
  friend class Control;
  void Notify(FormProperty property);

  FormHost& host_;
  std::string name_;
  HandlerErrorReporter reporter_;
  std::unique_ptr<FormView> view_;
  std::vector<Control*> controls_;
  LayoutBox layout_;
  std::string tag_;
  std::string caption_;
  std::string iconFile_;
  std::string buttonCursorFile_;
  double left_ = 0;
  double top_ = 0;
  double width_ = 0;
  double height_ = 0;
  int helpContextId_ = 0;
  MousePointer pointer_ = MousePointer::kDefault;
  WindowState state_ = WindowState::kNormal;
  bool loaded_ = false;
  bool shown_ = false;
  bool unloading_ = false;
};

/// Shows the hourglass on a form while it lives, and always restores the former pointer.
class HourglassScope {
 public:
  explicit HourglassScope(Form& form);
  ~HourglassScope();
  HourglassScope(const HourglassScope&) = delete;
  HourglassScope& operator=(const HourglassScope&) = delete;

 private:
  Form& form_;
  MousePointer before_;
};

}  // namespace chartproject
