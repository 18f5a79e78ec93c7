// What the sections of the acquisition dialog have in common.
#include "acquire/dialog/section.h"

#include <algorithm>

#include "common/message_box.h"

namespace chartproject {

namespace {

constexpr int kLineStarts = 1;  // alignment group of the layout

}  // namespace

void Section::Warn(const std::string& text) const {
  ShowMessage(component_, text, box_style::kExclamation, component_.helpFile);
}

LayoutBox LineStart(Label& label) {
  return Aligned(kLineStarts, Cell(label));
}

LayoutBox LineStart() {
  return Aligned(kLineStarts, Space(0));
}

bool SelectItem(ComboBox& list, std::string_view text) {
  const auto found = std::ranges::find(list.Items(), text);
  if (found == list.Items().end()) return false;
  list.SetListIndex(static_cast<int>(found - list.Items().begin()));
  return true;
}

void SelectFirst(ComboBox& list) {
  if (list.ListCount() > 0) list.SetListIndex(0);
}

void Refill(ComboBox& list, std::vector<std::string> items) {
  if (list.ListCount() > 0) list.Clear();
  list.AddItems(std::move(items));
}

bool LacksChoice(const ComboBox& list) {
  return list.Enabled() && list.ListIndex() < 0;
}

}  // namespace chartproject
