// The rules of each control type: which values it takes and which event a new value raises.
#include "forms/controls.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

#include "forms/form.h"
#include "forms/form_host.h"

namespace chartproject {

namespace {

[[noreturn]] void ThrowInvalidValue(const Control& control) {
  throw RunTimeError(error_number::kInvalidPropertyValue, "Invalid property value: " + control.Name());
}

void RequireInteger16(const Control& control, int value, int minimum) {
  if (value < minimum || value > std::numeric_limits<std::int16_t>::max()) ThrowInvalidValue(control);
}

}  // namespace

void PictureBox::SetBackColor(Color color) {
  hasColor_ = true;
  backColor_ = color;
  Changed(Property::kColor);
}

void CommandButton::Press() {
  if (EffectivelyEnabled() && EffectivelyVisible()) Raise(click);
}

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) ThrowInvalidValue(*this);
  if (value_ == value) return;
  value_ = value;
  Changed(Property::kValue);
  Raise(click);
}

std::string ComboBox::List(int index) const {
  return index >= 0 && index < ListCount() ? items_[static_cast<std::size_t>(index)] : std::string();
}

void ComboBox::AddItem(std::string item) {
  items_.push_back(std::move(item));
  Changed(Property::kList);
}

void ComboBox::AddItems(std::vector<std::string> items) {
  items_.insert(items_.end(), std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
  Changed(Property::kList);
}

void ComboBox::Clear() {
  if (items_.empty() && listIndex_ == -1) return;
  items_.clear();
  available_.clear();
  listIndex_ = -1;
  Changed(Property::kList);
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) ThrowInvalidValue(*this);
  if (listIndex_ == index) return;
  listIndex_ = index;
  Changed(Property::kListIndex);
  Raise(click);
}

void ComboBox::SetAvailable(std::vector<bool> available) {
  if (available_ == available) return;
  available_ = std::move(available);
  Changed(Property::kAvailability);
}

bool ComboBox::IsAvailable(int index) const {
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && index < ListCount() && (place >= available_.size() || available_[place]);
}

int ComboBox::NextAvailable(int index, int direction) const {
  for (int next = index + direction; next >= 0 && next < ListCount(); next += direction) {
    if (IsAvailable(next)) return next;
  }
  return index;
}

void TextControl::SetText(std::string_view text) {
  if (text_ == text) return;
  text_ = text;
  allSelected_ = false;
  Changed(Property::kText);
  Raise(change);
}

void TextControl::SelectAll() {
  allSelected_ = true;
  Changed(Property::kSelection);
}

Timer::Timer(Form& form, std::string_view name) : Control(form, "Timer", name) {
  Control::SetEnabled(false);
}

Timer::~Timer() {
  Owner().Host().Timers().Disarm(*this);
}

void Timer::SetInterval(int milliseconds) {
  if (milliseconds < 0 || milliseconds > std::numeric_limits<std::uint16_t>::max()) ThrowInvalidValue(*this);
  if (interval_ == milliseconds) return;
  interval_ = milliseconds;
  Reschedule();
}

void Timer::SetEnabled(bool enabled) {
  if (Enabled() == enabled) return;
  Control::SetEnabled(enabled);
  Reschedule();
}

void Timer::Reschedule() {
  FormHost& host = Owner().Host();
  if (Armed()) {
    host.Timers().Arm(*this);
  } else {
    host.Timers().Disarm(*this);
  }
  host.TimersChanged();
}

void Timer::Fire() {
  if (firing_) return;
  firing_ = true;
  Raise(tick);
  firing_ = false;
}

void ProgressBar::SetRange(double minimum, double maximum) {
  if (maximum < minimum) ThrowInvalidValue(*this);
  minimum_ = minimum;
  maximum_ = maximum;
  value_ = std::clamp(value_, minimum_, maximum_);
  Changed(Property::kRange);
}

void ProgressBar::SetValue(double value) {
  if (value < minimum_ || value > maximum_) ThrowInvalidValue(*this);
  if (value_ == value) return;
  value_ = value;
  Changed(Property::kValue);
}

void RangeControl::SetMinimum(int minimum) {
  minimum_ = minimum;
  Changed(Property::kRange);
  KeepValueInRange();
}

void RangeControl::SetMaximum(int maximum) {
  maximum_ = maximum;
  Changed(Property::kRange);
  KeepValueInRange();
}

void RangeControl::KeepValueInRange() {
  SetValue(std::clamp(value_, std::min(minimum_, maximum_), std::max(minimum_, maximum_)));
}

void RangeControl::SetValue(int value) {
  if (value < std::min(minimum_, maximum_) || value > std::max(minimum_, maximum_)) ThrowInvalidValue(*this);
  if (value_ == value) return;
  value_ = value;
  Changed(Property::kValue);
  ValueChanged();
  Raise(change);
}

void RangeControl::SetSmallChange(int step) {
  smallChange_ = step;
  Changed(Property::kRange);
}

void RangeControl::SetLargeChange(int step) {
  largeChange_ = step;
  Changed(Property::kRange);
}

void HScrollBar::SetMinimum(int minimum) {
  RequireInteger16(*this, minimum, std::numeric_limits<std::int16_t>::min());
  RangeControl::SetMinimum(minimum);
}

void HScrollBar::SetMaximum(int maximum) {
  RequireInteger16(*this, maximum, std::numeric_limits<std::int16_t>::min());
  RangeControl::SetMaximum(maximum);
}

void HScrollBar::SetSmallChange(int step) {
  RequireInteger16(*this, step, 1);
  RangeControl::SetSmallChange(step);
}

void HScrollBar::SetLargeChange(int step) {
  RequireInteger16(*this, step, 1);
  RangeControl::SetLargeChange(step);
}

void UpDown::Step(int direction) {
  if (!EffectivelyEnabled()) return;
  TakeBuddyValue();
  SetValue(std::clamp(Value() + direction, Minimum(), Maximum()));
}

void UpDown::TakeBuddyValue() {
  if (!syncBuddy_ || buddy_ == nullptr) return;
  const std::string& text = buddy_->Text();
  int typed = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), typed);
  const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
  if (whole && typed >= Minimum() && typed <= Maximum()) SetValue(typed);
}

void UpDown::ValueChanged() {
  if (syncBuddy_ && buddy_ != nullptr) buddy_->SetText(std::to_string(Value()));
}

void Image::Paint(Canvas& canvas) {
  const Size size = canvas.Extent();
  const double side = std::min(size.width, size.height) - 2;
  const Rect lamp{(size.width - side) / 2, (size.height - side) / 2, side, side};
  canvas.DrawEllipse(lamp, Color{255, 170, 0}, Pen{Color{150, 90, 0}, 1.5});
  const Rect shine{lamp.x + side * 0.22, lamp.y + side * 0.14, side * 0.36, side * 0.28};
  canvas.DrawEllipse(shine, Color{255, 240, 200, 200}, Pen{Color{}, 0, PenStyle::kNone});
}

}  // namespace chartproject
