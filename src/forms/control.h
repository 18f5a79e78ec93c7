// What every control of a form has: its names, texts, state and events.
//
// Setting a property raises the event that the platform raises for it, at once and re-entrantly: a new text raises the
// change event, a new list index the click event, a new slider or scroll value the change event. Setting a property to
// the value that it has raises nothing. User input arrives through the same setters, so the order of handlers is the
// same in every back end and in every test.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "forms/geometry.h"

namespace chartproject {

class Form;

/// The properties whose change a back end shows.
enum class Property {
  kCaption,
  kToolTipText,
  kText,
  kEnabled,
  kVisible,
  kList,
  kListIndex,
  kValue,
  kRange,
  kTimer,
  kPicture,
  kColor,
  kMousePointer,
  kContent,       ///< an owner-drawn control must be painted again
  kSelection,     ///< the whole text of a field is selected
  kAvailability,  ///< other items of a list are available
  kOverlay,       ///< the overlay of an owner-drawn control must be painted again
};

/// Mouse pointers that the system uses, with the platform's numbers.
enum class MousePointer { kDefault = 0, kHourglass = 11, kCustom = 99 };

/// An event: the handler and the routine name under which its errors are reported.
struct Event {
  std::string routine;
  std::function<void()> handler;
};

class Control {
 public:
  /// Registers the control with its form. @param typeName the platform's type name, for example "ComboBox"
  Control(Form& form, std::string_view typeName, std::string_view name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] const std::string& TypeName() const noexcept { return typeName_; }
  [[nodiscard]] const std::string& Name() const noexcept { return name_; }
  [[nodiscard]] Form& Owner() const noexcept { return form_; }

  /// The message number of the control's caption, or empty (see form translation).
  [[nodiscard]] const std::string& Tag() const noexcept { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }

  /// False for types without a caption; then Caption and SetCaption throw RunTimeError 438.
  [[nodiscard]] virtual bool HasCaption() const noexcept { return false; }
  [[nodiscard]] const std::string& Caption() const;
  void SetCaption(std::string_view caption);

  /// What the control shows, in words, where that is not text that the system can read; empty for most types.
  [[nodiscard]] virtual std::string SpokenWords() const { return {}; }
  [[nodiscard]] const std::string& ToolTipText() const noexcept { return toolTipText_; }
  void SetToolTipText(std::string_view text);

  /// The control's own flag; a control in a disabled container is not usable either (see EffectivelyEnabled).
  [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
  virtual void SetEnabled(bool enabled);
  [[nodiscard]] bool Visible() const noexcept { return visible_; }
  void SetVisible(bool visible);
  /// Enabled/visible together with all the containers around it.
  [[nodiscard]] bool EffectivelyEnabled() const noexcept;
  [[nodiscard]] bool EffectivelyVisible() const noexcept;

  /// The container (frame, picture box) that holds the control; null when the form itself does.
  [[nodiscard]] Control* Container() const noexcept { return container_; }
  void SetContainer(Control* container) noexcept { container_ = container; }

  [[nodiscard]] MousePointer Pointer() const noexcept { return pointer_; }
  void SetPointer(MousePointer pointer);

  /// True when Tab stops here. Tab order is the order in which the form's controls were made.
  [[nodiscard]] virtual bool TabStop() const noexcept { return false; }
  void SetFocus();

  /// Where the layout put the control, relative to its container; set by Arrange.
  [[nodiscard]] const Rect& Place() const noexcept { return place_; }
  void SetPlace(const Rect& place) noexcept { place_ = place; }

  /// Raised when the focus leaves the control; the back end reports that with LeaveFocus.
  Event lostFocus;
  void LeaveFocus() { Raise(lostFocus); }

 protected:
  /// Reports to the back end that a property changed.
  void Changed(Property property);
  /// Runs an event's handler inside the form's error boundary.
  void Raise(const Event& event);

 private:
  friend class Form;
  Form& form_;
  std::string typeName_;
  std::string name_;
  std::string tag_;
  std::string caption_;
  std::string toolTipText_;
  Control* container_ = nullptr;
  Rect place_;
  MousePointer pointer_ = MousePointer::kDefault;
  bool enabled_ = true;
  bool visible_ = true;
};

/// Lets a routine of an object handle an event of a control; its name in the error log is "control_Event".
/// @param owner outlives the control
template <class Owner>
void Connect(Event& event, const Control& control, const char* eventName, Owner* owner, void (Owner::*handler)()) {
  event = {control.Name() + "_" + eventName, [owner, handler] { (owner->*handler)(); }};
}

}  // namespace chartproject
