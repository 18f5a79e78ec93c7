// The control types of the two forms and of the host's start window.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/canvas.h"
#include "forms/control.h"
#include "forms/input.h"
#include "forms/timer.h"

namespace chartproject {

class Label : public Control {
 public:
  Label(Form& form, std::string_view name) : Control(form, "Label", name) {}
  [[nodiscard]] bool HasCaption() const noexcept override { return true; }
  [[nodiscard]] int BorderStyle() const noexcept { return borderStyle_; }
  void SetBorderStyle(int style) noexcept { borderStyle_ = style; }
  [[nodiscard]] Align TextAlign() const noexcept { return align_; }
  void SetTextAlign(Align align) noexcept { align_ = align; }
  /// A text that may take several lines; the layout gives it the width that is there.
  [[nodiscard]] bool WordWrap() const noexcept { return wordWrap_; }
  void SetWordWrap(bool wrap) noexcept { wordWrap_ = wrap; }
  /// A text that never widens the window: a longer text is cut and ends in an ellipsis.
  [[nodiscard]] bool Elided() const noexcept { return elided_; }
  void SetElided(bool elided) noexcept { elided_ = elided; }

 private:
  int borderStyle_ = 1;
  Align align_ = Align::kLeft;
  bool wordWrap_ = false;
  bool elided_ = false;
};

/// A group with a title around other controls.
class Frame : public Control {
 public:
  Frame(Form& form, std::string_view name) : Control(form, "Frame", name) {}
  [[nodiscard]] bool HasCaption() const noexcept override { return true; }
};

/// A group without a title, or a swatch of one colour.
class PictureBox : public Control {
 public:
  PictureBox(Form& form, std::string_view name) : Control(form, "PictureBox", name) {}
  /// True for a swatch; a plain group has the form's own background.
  [[nodiscard]] bool HasColor() const noexcept { return hasColor_; }
  [[nodiscard]] Color BackColor() const noexcept { return backColor_; }
  void SetBackColor(Color color);
  /// The user clicked on the swatch; nothing happens while it is disabled.
  void Press() {
    if (EffectivelyEnabled()) Raise(click);
  }
  Event click;

 private:
  bool hasColor_ = false;
  Color backColor_;
};

class CommandButton : public Control {
 public:
  CommandButton(Form& form, std::string_view name) : Control(form, "CommandButton", name) {}
  [[nodiscard]] bool HasCaption() const noexcept override { return true; }
  [[nodiscard]] bool TabStop() const noexcept override { return true; }
  /// Presses the button: nothing when it is hidden or disabled, its containers included.
  void Press();
  /// Pressed by Enter, or by Esc, anywhere in the form.
  [[nodiscard]] bool IsDefault() const noexcept { return isDefault_; }
  void SetDefault(bool isDefault) noexcept { isDefault_ = isDefault; }
  [[nodiscard]] bool IsCancel() const noexcept { return isCancel_; }
  void SetCancel(bool isCancel) noexcept { isCancel_ = isCancel; }

  Event click;

 private:
  bool isDefault_ = false;
  bool isCancel_ = false;
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string_view name) : Control(form, "CheckBox", name) {}
  [[nodiscard]] bool HasCaption() const noexcept override { return true; }
  [[nodiscard]] bool TabStop() const noexcept override { return true; }
  /// 0 unchecked, 1 checked, 2 grey; another value throws RunTimeError 380.
  [[nodiscard]] int Value() const noexcept { return value_; }
  void SetValue(int value);

  Event click;

 private:
  int value_ = 0;
};

/// A drop-down list: the user picks one of its items.
class ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string_view name) : Control(form, "ComboBox", name) {}
  [[nodiscard]] bool HasCaption() const noexcept override { return false; }
  [[nodiscard]] bool TabStop() const noexcept override { return true; }
  [[nodiscard]] int ListCount() const noexcept { return static_cast<int>(items_.size()); }
  /// The item's text; empty for an index that is not in the list.
  [[nodiscard]] std::string List(int index) const;
  [[nodiscard]] const std::vector<std::string>& Items() const noexcept { return items_; }
  void AddItem(std::string item);
  /// Adds all of them in one step, so that a window shows a list of a thousand once.
  void AddItems(std::vector<std::string> items);
  /// Empties the list and drops the selection without an event.
  void Clear();
  /// -1 when nothing is selected.
  [[nodiscard]] int ListIndex() const noexcept { return listIndex_; }
  /// Raises click when the index changes (to -1 too). An index outside -1..ListCount-1 throws RunTimeError 380.
  void SetListIndex(int index);
  /// The selected item's text; empty when nothing is selected.
  [[nodiscard]] std::string Text() const { return List(listIndex_); }

  /// Marks items that cannot be used at present: they are shown grey, and the arrow keys of a closed list pass them. A
  /// click still selects them, so that the form can say why not. @param available one for each item; empty for all
  void SetAvailable(std::vector<bool> available);
  [[nodiscard]] bool IsAvailable(int index) const;
  /// Whether items may become unavailable; a back end asks before it makes the list.
  [[nodiscard]] bool GreysItems() const noexcept { return greysItems_; }
  void SetGreysItems(bool greys) noexcept { greysItems_ = greys; }
  /// The next available item before (direction -1) or after (+1) an index; the index itself when there is none.
  [[nodiscard]] int NextAvailable(int index, int direction) const;

  Event click;

 private:
  std::vector<std::string> items_;
  std::vector<bool> available_;
  int listIndex_ = -1;
  bool greysItems_ = false;
};

/// Shared by the types that hold a text which the user may edit.
class TextControl : public Control {
 public:
  /// A text of several lines is scrolled by keys, also where it cannot be edited.
  [[nodiscard]] bool TabStop() const noexcept override { return !readOnly_ || multiLine_; }
  [[nodiscard]] const std::string& Text() const noexcept { return text_; }
  /// Raises change when the text differs from the one held.
  void SetText(std::string_view text);
  /// Selects the whole text, so that the next letter replaces it.
  void SelectAll();
  /// True from SelectAll to the next change of the text.
  [[nodiscard]] bool AllSelected() const noexcept { return allSelected_; }
  [[nodiscard]] bool ReadOnly() const noexcept { return readOnly_; }
  void SetReadOnly(bool readOnly) noexcept { readOnly_ = readOnly; }
  [[nodiscard]] bool MultiLine() const noexcept { return multiLine_; }
  void SetMultiLine(bool multiLine) noexcept { multiLine_ = multiLine; }
  /// Characters that the field should show at least; the layout's hint.
  [[nodiscard]] int WidthInCharacters() const noexcept { return widthInCharacters_; }
  void SetWidthInCharacters(int characters) noexcept { widthInCharacters_ = characters; }

  Event change;

 protected:
  using Control::Control;

 private:
  std::string text_;
  bool allSelected_ = false;
  bool readOnly_ = false;
  bool multiLine_ = false;
  int widthInCharacters_ = 12;
};

class TextBox : public TextControl {
 public:
  TextBox(Form& form, std::string_view name) : TextControl(form, "TextBox", name) {}
};

class RichTextBox : public TextControl {
 public:
  RichTextBox(Form& form, std::string_view name) : TextControl(form, "RichTextBox", name) {}
};

/// An edit field with fixed places: in the mask "##:##:##" each "#" takes a digit (or "_" while it is empty).
class MaskEdBox : public TextControl {
 public:
  MaskEdBox(Form& form, std::string_view name, std::string mask)
      : TextControl(form, "MaskEdBox", name), mask_(std::move(mask)) {}
  [[nodiscard]] const std::string& Mask() const noexcept { return mask_; }

 private:
  std::string mask_;
};

class ProgressBar : public Control {
 public:
  ProgressBar(Form& form, std::string_view name) : Control(form, "ProgressBar", name) {}
  void SetRange(double minimum, double maximum);
  [[nodiscard]] double Minimum() const noexcept { return minimum_; }
  [[nodiscard]] double Maximum() const noexcept { return maximum_; }
  [[nodiscard]] double Value() const noexcept { return value_; }
  /// A value outside the range throws RunTimeError 380.
  void SetValue(double value);

 private:
  double minimum_ = 0;
  double maximum_ = 100;
  double value_ = 0;
};

/// A number in a range that the user steps or drags; shared by slider, scroll bar and up-down.
class RangeControl : public Control {
 public:
  [[nodiscard]] bool TabStop() const noexcept override { return true; }
  [[nodiscard]] int Minimum() const noexcept { return minimum_; }
  [[nodiscard]] int Maximum() const noexcept { return maximum_; }
  /// Setting a bound moves the value into the range (raising change when it moves).
  virtual void SetMinimum(int minimum);
  virtual void SetMaximum(int maximum);
  [[nodiscard]] int Value() const noexcept { return value_; }
  /// Raises change when the value differs. A value outside the range throws RunTimeError 380.
  void SetValue(int value);
  [[nodiscard]] int SmallChange() const noexcept { return smallChange_; }
  virtual void SetSmallChange(int step);
  [[nodiscard]] int LargeChange() const noexcept { return largeChange_; }
  virtual void SetLargeChange(int step);

  Event change;

 protected:
  using Control::Control;
  void SetSteps(int smallChange, int largeChange) noexcept {
    smallChange_ = smallChange;
    largeChange_ = largeChange;
  }
  /// The value is new; runs before the change event.
  virtual void ValueChanged() {}

 private:
  void KeepValueInRange();

  int minimum_ = 0;
  int maximum_ = 100;
  int value_ = 0;
  int smallChange_ = 1;
  int largeChange_ = 10;
};

class Slider : public RangeControl {
 public:
  Slider(Form& form, std::string_view name) : RangeControl(form, "Slider", name) {}
};

/// A horizontal scroll bar: bounds and value are 16-bit, steps 1 to 32767; anything else throws RunTimeError 380.
/// A maximum below the minimum is taken as it is (the bar then runs backwards), as the platform does.
class HScrollBar : public RangeControl {
 public:
  HScrollBar(Form& form, std::string_view name) : RangeControl(form, "HScrollBar", name) { SetSteps(1, 1); }
  void SetMinimum(int minimum) override;
  void SetMaximum(int maximum) override;
  void SetSmallChange(int step) override;
  void SetLargeChange(int step) override;
};

/// Up and down arrows beside a text field, its buddy.
class UpDown : public RangeControl {
 public:
  UpDown(Form& form, std::string_view name) : RangeControl(form, "UpDown", name) {}
  /// With synchronisation on, a new value is written into the buddy's text.
  void SetBuddy(TextControl* buddy) noexcept { buddy_ = buddy; }
  [[nodiscard]] TextControl* Buddy() const noexcept { return buddy_; }
  void SetSyncBuddy(bool sync) noexcept { syncBuddy_ = sync; }
  /// One step up (+1) or down (-1) as the user's arrow does, inside the range; starts from a number typed in the buddy.
  void Step(int direction);
  /// Takes the whole number typed into the buddy as the value, if it is one in the range.
  void TakeBuddyValue();

 protected:
  void ValueChanged() override;

 private:
  TextControl* buddy_ = nullptr;
  bool syncBuddy_ = false;
};

/// A control that paints itself through Canvas (the chart, the trigger lamp).
class DrawnControl : public Control {
 public:
  using Control::Control;
  /// Paints the whole control; the canvas' extent is the control's size. A back end keeps the picture until Invalidate
  /// or another size, because a long slice takes many milliseconds.
  virtual void Paint(Canvas& canvas) = 0;
  /// Paints the overlay that follows the mouse. Only after Paint at the same size.
  virtual void PaintOverlay(Canvas& /*canvas*/) {}
  [[nodiscard]] virtual Size PreferredSize() const = 0;
  virtual void MouseMoved(const MouseInput& /*input*/) {}
  virtual void MouseLeft() {}
  virtual void MousePressed(const MouseInput& /*input*/) {}
  /// The second press of a double click; for most controls a press like any other.
  virtual void MouseDoubleClicked(const MouseInput& input) { MousePressed(input); }
  virtual void MouseReleased(const MouseInput& /*input*/) {}
  /// False leaves the wheel to the window.
  virtual bool WheelTurned(const WheelInput& /*input*/) { return false; }
  /// False leaves the key to the window.
  virtual bool KeyPressed(const KeyPress& /*press*/) { return false; }
  virtual void KeyReleased(const KeyPress& /*press*/) {}
  /// What a right click, the menu key and Shift+F10 offer; nothing for a control without a menu.
  [[nodiscard]] virtual std::vector<MenuItem> ContextMenu() { return {}; }
  /// The user chose the item with this id.
  virtual void MenuChosen(int /*id*/) {}
  /// Asks the back end to paint again, soon.
  void Invalidate() { Changed(Property::kContent); }
  /// The same for the overlay alone.
  void InvalidateOverlay() { Changed(Property::kOverlay); }
};

/// A small lamp or picture: `imgTrigger1`. Drawn by the core, so that no picture file is needed.
class Image : public DrawnControl {
 public:
  Image(Form& form, std::string_view name) : DrawnControl(form, "Image", name) {}
  void Paint(Canvas& canvas) override;
  [[nodiscard]] Size PreferredSize() const override { return {28, 28}; }
};

}  // namespace chartproject
