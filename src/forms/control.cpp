// Properties that all controls share, and how they reach the form and its view.
#include "forms/control.h"

#include "forms/form.h"
#include "forms/form_host.h"

namespace chartproject {

Control::Control(Form& form, std::string_view typeName, std::string_view name)
    : form_(form), typeName_(typeName), name_(name) {
  form_.controls_.push_back(this);
}

Control::~Control() {
  std::erase(form_.controls_, this);
}

const std::string& Control::Caption() const {
  if (!HasCaption()) throw RunTimeError(error_number::kPropertyNotSupported, name_ + " has no caption");
  return caption_;
}

void Control::SetCaption(std::string_view caption) {
  if (!HasCaption()) throw RunTimeError(error_number::kPropertyNotSupported, name_ + " has no caption");
  if (caption_ == caption) return;
  caption_ = caption;
  Changed(Property::kCaption);
}

void Control::SetToolTipText(std::string_view text) {
  if (toolTipText_ == text) return;
  toolTipText_ = text;
  Changed(Property::kToolTipText);
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed(Property::kEnabled);
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed(Property::kVisible);
}

bool Control::EffectivelyEnabled() const noexcept {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->enabled_) return false;
  }
  return true;
}

bool Control::EffectivelyVisible() const noexcept {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->visible_) return false;
  }
  return true;
}

void Control::SetPointer(MousePointer pointer) {
  if (pointer_ == pointer) return;
  pointer_ = pointer;
  Changed(Property::kMousePointer);
}

void Control::SetFocus() {
  if (form_.View() != nullptr) form_.View()->MoveFocus(*this);
}

void Control::Changed(Property property) {
  if (form_.View() != nullptr) form_.View()->ControlChanged(*this, property);
}

void Control::Raise(const Event& event) {
  if (event.handler) form_.RunHandler(event.routine, event.handler);
}

}  // namespace chartproject
