// Steps read from the file that they are held against.
#include "support/session_script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <utility>

#include "forms/controls.h"

namespace chartproject {

Words WordsOf(std::string_view line) {
  static const std::map<char, char> kEscapes{{'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'\\', '\\'}};
  Words words;
  bool quoted = false;
  bool open = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    char c = line[at];
    const bool ends = c == ' ' && !quoted;
    if (c == '\'') quoted = !quoted;
    if (ends || c == '\'') {
      if (!ends && quoted && !open) words.emplace_back();
      open = !ends;
      continue;
    }
    if (c == '\\' && line[++at] == 'x') {
      c = static_cast<char>(std::stoi(std::string(line.substr(at + 1, 2)), nullptr, 16));
      at += 2;
    } else if (c == '\\') {
      c = kEscapes.at(line[at]);
    }
    if (!std::exchange(open, true)) words.emplace_back();
    words.back() += c;
  }
  return words;
}

SessionScript::SessionScript(std::string name, FakePorts* ports) : transcript(name, ports) {
  std::ifstream file(CHARTPROJECT_SOURCE_DIR "/tests/transcripts/" + name + ".txt", std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("== ")) steps_.push_back(line.substr(3));
  }
  EXPECT_FALSE(steps_.empty()) << name;
}

void SessionScript::Run(Form* form) {
  for (const std::string& step : steps_) {
    transcript.Step(step);
    const Words words = WordsOf(step);
    if (words.front() == "in") {
      Words part;
      for (std::size_t at = 2; at <= words.size(); ++at) {
        if (at < words.size() && words[at] != ";") {
          part.push_back(words[at]);
        } else {
          laidOut_[words[1]].push_back(std::exchange(part, {}));
        }
      }
    } else if (const auto own = does.find(words.front()); own != does.end()) {
      own->second(words);
    } else if (form != nullptr) {
      Act(*form, words);
    } else {
      ADD_FAILURE() << "nobody does: " << step;
    }
    if (form != nullptr) transcript.Look(*form);
  }
  for (const auto& [name, left] : laidOut_) EXPECT_TRUE(left.empty()) << name << " did not open";
}

void SessionScript::Meet(Form& form) {
  std::deque<Words> all = std::exchange(laidOut_[form.Name()], {});
  transcript.Add("window " + form.Name());
  for (const Words& words : all) {
    if (!form.IsLoaded()) break;
    Act(form, words);
  }
}

void SessionScript::Act(Form& form, const Words& words) {
  const std::string& what = words.front();
  if (what == "look") return transcript.Look(form);
  if (what == "close") return form.Unload();
  if (what == "drop") return form.fileDropped(words.at(1));
  Control* const control = form.Find(words.at(1));
  ASSERT_NE(control, nullptr) << words.at(1);
  if (!control->EffectivelyVisible() || !control->EffectivelyEnabled()) {
    return transcript.Add(words.at(1) + " does not take that now");
  }
  if (what == "press") {
    dynamic_cast<CommandButton&>(*control).Press();
  } else if (what == "tick") {
    auto& box = dynamic_cast<CheckBox&>(*control);
    box.SetValue(1 - box.Value());
  } else if (what == "choose") {
    auto& list = dynamic_cast<ComboBox&>(*control);
    const auto found = std::ranges::find(list.Items(), words.at(2));
    ASSERT_NE(found, list.Items().end()) << words.at(2);
    list.SetListIndex(static_cast<int>(found - list.Items().begin()));
  } else if (what == "type") {
    auto& field = dynamic_cast<TextControl&>(*control);
    field.SetText(words.at(2));
    field.LeaveFocus();
  } else {
    FAIL() << what;
  }
}

}  // namespace chartproject
