// Forms in words.
#include "support/transcript.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "common/values/text.h"
#include "forms/controls.h"
#include "forms/timer.h"

namespace chartproject {

namespace {

template <class Type, class Words>
void If(const Control& control, std::ostream& out, const Words& words) {
  if (const auto* typed = dynamic_cast<const Type*>(&control)) words(*typed, out);
}

std::string StateOf(const Control& control) {
  std::ostringstream out;
  out << control.TypeName();
  if (control.HasCaption()) out << " \"" << control.Caption() << '"';
  if (!control.Enabled()) out << " disabled";  // a disabled container says so itself
  If<TextControl>(control, out, [](const TextControl& text, std::ostream& to) {
    to << " [" << text.Text() << ']' << (text.AllSelected() ? " selected" : "")
       << (text.ReadOnly() ? " read-only" : "");
  });
  If<ComboBox>(control, out, [](const ComboBox& list, std::ostream& to) {
    to << " [" << list.Text() << "] " << list.ListIndex() + 1 << " of " << list.ListCount();
  });
  If<CheckBox>(control, out, [](const CheckBox& box, std::ostream& to) { to << ' ' << box.Value(); });
  If<ProgressBar>(control, out, [](const ProgressBar& bar, std::ostream& to) {
    to << ' ' << bar.Value() << " in " << bar.Minimum() << ".." << bar.Maximum();
  });
  If<RangeControl>(control, out, [](const RangeControl& range, std::ostream& to) {
    to << ' ' << range.Value() << " in " << range.Minimum() << ".." << range.Maximum() << ", steps "
       << range.SmallChange() << ' ' << range.LargeChange();
  });
  If<CommandButton>(control, out, [](const CommandButton& button, std::ostream& to) {
    to << (button.IsDefault() ? " default" : "") << (button.IsCancel() ? " cancel" : "");
  });
  If<PictureBox>(control, out, [](const PictureBox& box, std::ostream& to) {
    if (box.HasColor())
      to << " #" << int{box.BackColor().red} << ' ' << int{box.BackColor().green} << ' ' << int{box.BackColor().blue};
  });
  If<Timer>(control, out, [](const Timer& timer, std::ostream& to) { to << ' ' << timer.Interval() << " ms"; });
  if (!control.SpokenWords().empty()) out << " says \"" << control.SpokenWords() << '"';
  if (!control.ToolTipText().empty()) out << " tip \"" << control.ToolTipText() << '"';
  if (control.Pointer() != MousePointer::kDefault) out << " pointer " << static_cast<int>(control.Pointer());
  return out.str();
}

std::string ItemsOf(const ComboBox& list) {
  std::string items;
  for (int i = 0; i < list.ListCount(); ++i)
    items += (i > 0 ? " | " : "") + list.List(i) + (list.IsAvailable(i) ? "" : " (grey)");
  return items;
}

std::string FileOf(const std::string& name) {
  return CHARTPROJECT_SOURCE_DIR "/tests/transcripts/" + name + ".txt";
}

std::string InWords(const LayoutBox& box, const std::string& indent) {
  constexpr const char* kKinds[] = {"control", "row", "column", "grid", "stack", "space"};
  std::ostringstream out;
  out << indent << kKinds[static_cast<int>(box.kind)];
  if (box.control != nullptr) {
    out << ' ' << box.control->Name();
    If<Label>(*box.control, out, [](const Label& label, std::ostream& to) {
      to << " border " << label.BorderStyle() << " align " << static_cast<int>(label.TextAlign())
         << (label.WordWrap() ? " wraps" : "") << (label.Elided() ? " elided" : "");
    });
    If<TextControl>(*box.control, out, [](const TextControl& text, std::ostream& to) {
      to << ' ' << text.WidthInCharacters() << " wide" << (text.MultiLine() ? " lines" : "");
    });
  }
  out << " stretch " << box.stretchX << ' ' << box.stretchY << " least " << box.minimumWidth << ' ' << box.minimumHeight
      << " gap " << box.gap << " columns " << box.columns << " alignment " << box.alignment
      << (box.collapses ? " collapses" : "") << '\n';
  for (const LayoutBox& child : box.children) out << InWords(child, indent + "  ");
  return out.str();
}

}  // namespace

std::string LayoutOf(const Form& form) {
  std::ostringstream out;
  out << form.Name() << " at " << form.Left() << ' ' << form.Top() << ' ' << form.Width() << 'x' << form.Height()
      << '\n';
  return out.str() + InWords(form.Layout(), "  ");
}

std::map<std::string, std::string> SeenOf(const Form& form) {
  std::ostringstream own;
  own << '"' << form.Caption() << '"' << (form.IsShown() ? " shown" : "") << " height " << form.Height() << " help "
      << form.HelpContextId() << " state " << static_cast<int>(form.State()) << " pointer "
      << static_cast<int>(form.Pointer()) << " icon " << form.IconFile();
  std::map<std::string, std::string> seen{{"", own.str()}};
  for (const Control* control : form.Controls()) {
    const auto* timer = dynamic_cast<const Timer*>(control);
    if (timer != nullptr ? !timer->Armed() : !control->EffectivelyVisible()) continue;
    seen[control->Name()] = StateOf(*control);
    if (const auto* list = dynamic_cast<const ComboBox*>(control)) seen[control->Name() + " items"] = ItemsOf(*list);
  }
  return seen;
}

std::vector<std::string> StepsOf(const std::string& name) {
  std::ifstream file(FileOf(name), std::ios::binary);
  std::vector<std::string> steps;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("== ")) steps.push_back(line.substr(3));
  }
  EXPECT_FALSE(steps.empty()) << name;
  return steps;
}

void ExpectTranscript(const std::string& name, const std::string& text) {
  const std::string file = FileOf(name);
  if (std::getenv("CHARTPROJECT_TAKE_TRANSCRIPTS") != nullptr) std::ofstream(file, std::ios::binary) << text;
  std::ostringstream expected;
  expected << std::ifstream(file, std::ios::binary).rdbuf();
  EXPECT_EQ(text, expected.str()) << file;
}

void Transcript::Step(std::string_view title) {
  text_.append("\n== ").append(title).append("\n");
}

void Transcript::Add(std::string_view line) {
  std::string text = VisibleLines(line);
  for (const auto& [from, to] : words) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
      text.replace(at, from.size(), to);
  }
  text_.append(text).append("\n");
}

void Transcript::Look(const Form& form) {
  std::map<std::string, std::string> now = SeenOf(form);
  std::map<std::string, std::string>& before = seen_[form.Name()];
  for (const auto& [name, state] : before) {
    if (!now.contains(name)) Add("- " + form.Name() + ' ' + name);
  }
  for (const auto& [name, state] : now) {
    const auto old = before.find(name);
    if (old == before.end() || old->second != state) Add("+ " + form.Name() + ' ' + name + ": " + state);
  }
  before = std::move(now);
  Listen();
}

void Transcript::Listen() {
  if (ports_ == nullptr) return;
  for (; boxes_ < ports_->dialogs.boxes.size(); ++boxes_) {
    const MessageBoxRequest& box = ports_->dialogs.boxes[boxes_];
    Add("box " + std::to_string(box.style) + " \"" + box.title + "\" help " + std::to_string(box.helpContext) + ": " +
        box.prompt);
  }
  std::string told;
  for (const std::string& note : ports_->forms.noted) told += (told.empty() ? "told " : ", ") + note;
  if (!told.empty()) Add(told);
  ports_->forms.noted.clear();
  for (const FakeSound::Played& sound : ports_->sound.played) {
    Add("sound " + sound.fileName + " " + std::to_string(sound.flags));
  }
  ports_->sound.played.clear();
  for (const auto& [section, keys] : ports_->settings.values) {
    for (const auto& [key, value] : keys) {
      std::string& stored = stored_[section][key];
      if (stored != value) Add("setting " + section + '.' + key + "=" + value);
      stored = value;
    }
  }
}

}  // namespace chartproject
