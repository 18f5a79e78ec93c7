// What the sections of the acquisition dialog have in common.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/environment/language.h"
#include "common/form_translation.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "recording/file/component.h"

namespace chartproject {

/// A group of controls with their handlers and rules. Its controls are made with the form, in tab order, and keep the
/// documented names. Its constructor receives the other sections that it needs.
class Section {
 public:
  Section(const Section&) = delete;
  Section& operator=(const Section&) = delete;

 protected:
  /// @param changed called whenever the form may have become ready to start, or not
  Section(Form& form, Component& component, std::function<void()> changed = {})
      : form_(form), component_(component), changed_(std::move(changed)) {}
  ~Section() = default;

  void Changed() const { changed_(); }
  /// Shows a text with the exclamation icon.
  void Warn(const std::string& text) const;
  [[nodiscard]] std::string Say(Text text) const { return LoadMessage(component_, text); }
  [[nodiscard]] const NumberFormat& Numbers() const { return component_.ports.locale.Numbers(); }

  Form& form_;
  Component& component_;

 private:
  std::function<void()> changed_;
};

/// A label at the start of its line. All of them share one width, so that their fields line up.
[[nodiscard]] LayoutBox LineStart(Label& label);
/// The same room without a label.
[[nodiscard]] LayoutBox LineStart();

/// Selects the first item of this text; false, and no change, when there is none.
bool SelectItem(ComboBox& list, std::string_view text);
/// Selects the first item, if there is one.
void SelectFirst(ComboBox& list);
/// Clears the list when it holds items, then fills it in one step.
void Refill(ComboBox& list, std::vector<std::string> items);
/// True for a list in use without a chosen item.
[[nodiscard]] bool LacksChoice(const ComboBox& list);

}  // namespace chartproject
