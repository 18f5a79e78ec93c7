// Controls made of items with texts of their own: menus, tabs, tool bars, list columns, status panels.
// The two forms have none; the host's forms that use the same translation do.
#pragma once

#include <string>
#include <vector>

#include "forms/control.h"

namespace chartproject {

/// A tab, button, column or panel.
struct ControlItem {
  std::string tag;      ///< message number of the caption
  std::string caption;  ///< tab caption, or column text
  std::string toolTipText;
};

class Menu : public Control {
 public:
  Menu(Form& form, std::string_view name) : Control(form, "Menu", name) {}
  [[nodiscard]] bool HasCaption() const noexcept override { return true; }
};

/// "TabStrip", "Toolbar", "ListView", "StatusBar" or "SSTab", by the type name given.
class ItemsControl : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::vector<ControlItem>& Items() noexcept { return items_; }

 private:
  std::vector<ControlItem> items_;
};

}  // namespace chartproject
