// A session in the chart window: a list of what a user does, and after each step what differs on the screen and
// outside.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <fstream>
#include <sstream>

#include "chart/chart_window_fixture.h"
#include "chart/chart_words.h"
#include "support/transcript.h"
#include "support/typing.h"

namespace chartproject {

/// "Ctrl+Shift+Left", "F", "Page Up".
inline KeyPress KeyOf(std::string name) {
  constexpr std::array<std::pair<const char*, Key>, 9> kNames{{{"Left", Key::kLeft},
                                                               {"Right", Key::kRight},
                                                               {"Page Up", Key::kPageUp},
                                                               {"Page Down", Key::kPageDown},
                                                               {"Home", Key::kHome},
                                                               {"End", Key::kEnd},
                                                               {"Backspace", Key::kBackspace},
                                                               {"Space", Key::kSpace},
                                                               {"Esc", Key::kEscape}}};
  const auto had = [&name](const std::string& prefix) {
    if (!name.starts_with(prefix)) return false;
    name.erase(0, prefix.size());
    return true;
  };
  KeyPress press;
  press.control = had("Ctrl+");
  press.shift = had("Shift+");
  for (const auto& [text, key] : kNames) {
    if (name == text) press.key = key;
  }
  if (press.key == Key::kNone) press = {Key::kCharacter, press.shift, press.control, name.at(0)};
  return press;
}

inline void Choose(DrawnControl& control, const std::vector<MenuItem>& items, const std::string& text) {
  for (const MenuItem& item : items) {
    if (item.text == text && item.items.empty()) control.MenuChosen(item.id);
    Choose(control, item.items, text);
  }
}

inline std::string MenuInWords(const std::vector<MenuItem>& items, const std::string& indent) {
  std::string all;
  for (const MenuItem& item : items) {
    all += indent + item.text + (item.key.empty() ? "" : " | " + item.key) + (item.enabled ? "" : " (off)") +
           (item.checked ? " (on)" : "") + "\n" + MenuInWords(item.items, indent + "  ");
  }
  return all;
}

/// The entries that are off or on.
inline std::string MenuState(const std::vector<MenuItem>& items) {
  std::string all;
  for (const MenuItem& item : items) {
    if (!item.enabled || item.checked) all += (item.enabled ? " +" : " -") + item.text;
    all += MenuState(item.items);
  }
  return all;
}

inline std::string InWords(const ChartModel& model) {
  std::ostringstream out;
  out << "kind " << static_cast<int>(model.kind) << ", from " << model.firstRowLabel << " by " << model.labelsPerRow
      << ", rows " << model.rowCount << ", division " << model.categoryScale.divisionsPerLabel << ' '
      << model.categoryScale.divisionsPerTick << ", unit " << static_cast<int>(model.categoryUnit) << ", grid "
      << model.categoryGrid << model.valueGrid << model.secondValueGrid << " wall " << model.wallPen << " frame "
      << static_cast<int>(model.frame) << ' ' << testing::InWords(model.backdrop) << (model.lanes ? ", lanes" : "")
      << (model.legendVisible ? ", legend" : "");
  for (const RowTime& time : model.rowTimes) out << ", row " << time.row << " at " << time.milliseconds;
  const auto range = [&out](const std::optional<ValueRange>& given) {
    if (given) out << ", range " << given->minimum << ".." << given->maximum;
  };
  range(model.valueRange);
  for (const ChartSeries& series : model.series) {
    double sum = 0;
    for (const double value : series.values) sum += std::isnan(value) ? 0 : value;
    out << "; \"" << series.label << "\" \"" << series.axisTitle << '"' << (series.visible ? "" : " hidden")
        << (series.showLine ? " line" : "") << (series.showMarker ? " marker" : "");
    if (!series.values.empty()) out << ' ' << series.values.front() << " .. " << series.values.back() << " sum " << sum;
    for (const RowRange& rows : series.failed) out << ", failed " << rows.first << ".." << rows.last;
    range(series.range);
  }
  return out.str();
}

/// The transcript has what the user does ("== " in the chart window, "> " in a window over it), and below each step
/// what differs then.
struct ChartSession : ChartWindowTest {
  ChartSession() {
    fakes.files.beforeBlock = [this] {
      ++blocks;
      fakes.clock.Advance(perBlock);
    };
    component.settings.strBin = "/bin";
    fakes.printer.draw = [this](const std::function<void(Canvas&)>& paint) {
      testing::RecordingCanvas canvas({676, 397});
      paint(canvas);
      drawn += testing::InWords(canvas.drawn) + '\n';
    };
  }
  void Begin(const std::string& name) {
    std::ifstream file(CHARTPROJECT_SOURCE_DIR "/tests/transcripts/" + name + ".txt");
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with("== ") || line.starts_with("> ")) steps.push_back(line);
    }
    transcript = std::make_unique<Transcript>(name, &fakes);
    asked = [this](Form& window) { Meet(window); };
  }
  /// "NAME" presses a button, "NAME=VALUE" changes a control, "NAME>" leaves it; the others are words of the chart:
  /// "key Ctrl+G", "menu Grid", "mouse press 100 100 shift", "wheel 1 100 100 control", "strip press 100".
  void Use(Form& form, const std::string& what) {
    const std::size_t sign = what.find_first_of("=>");
    Control* const control = form.Find(what.substr(0, sign));
    std::string value = sign == std::string::npos ? "" : what.substr(sign + 1);
    if (longTexts.contains(value)) value = longTexts[value];
    if (what.find('>') != std::string::npos) {
      control->SetFocus();
    } else if (auto* list = dynamic_cast<ComboBox*>(control)) {
      list->SetListIndex(std::stoi(value));
    } else if (auto* text = dynamic_cast<TextControl*>(control)) {
      text->SetFocus();
      TypeOver(*text, value);
    } else if (auto* box = dynamic_cast<CheckBox*>(control)) {
      box->SetValue(std::stoi(value));
    } else if (auto* arrows = dynamic_cast<UpDown*>(control)) {
      arrows->Step(std::stoi(value));
    } else if (auto* range = dynamic_cast<RangeControl*>(control)) {
      range->SetValue(std::stoi(value));
    } else if (auto* swatch = dynamic_cast<PictureBox*>(control)) {
      swatch->Press();
    } else if (auto* timer = dynamic_cast<Timer*>(control)) {
      for (int i = 0; i < (timer->Name() == "tmrSurvey" ? 2000 : 1) && timer->Armed(); ++i) timer->Fire();
    } else if (auto* button = dynamic_cast<CommandButton*>(control)) {
      button->Press();
    } else {
      UseChart(static_cast<ChartForm&>(form), what);
    }
  }
  void UseChart(ChartForm& form, const std::string& what) {
    std::istringstream words(what);
    std::string device, verb;
    words >> device;
    DrawnControl* over = &form.mscChart1;
    if (device == "key") {
      if (!over->KeyPressed(KeyOf(what.substr(4)))) transcript->Add("(not used)");
    } else if (device == "menu") {
      Choose(*over, over->ContextMenu(), what.substr(5));
    } else if (device == "cursor") {
      int number = 0;
      std::int64_t point = 0;
      words >> number >> point;
      form.mscChart1.SetCursor(MeasuringCursor{number - 1}, point > 0 ? std::optional(point) : std::nullopt);
    } else if (device == "wheel") {
      WheelInput input;
      words >> input.notches >> input.at.x >> input.at.y >> verb;
      input.control = verb == "control";
      input.shift = verb == "shift";
      if (!over->WheelTurned(input)) transcript->Add("(not used)");
    } else {
      if (device == "strip") over = &form.overview.ovwRecording;
      std::string with;
      MouseInput input;
      words >> verb >> input.at.x >> input.at.y >> with;
      const bool up = verb == "hover" || verb == "release";
      input.button = up ? MouseButton::kNone : with == "middle" ? MouseButton::kMiddle : MouseButton::kLeft;
      input.shift = with == "shift";
      if (verb == "press") over->MousePressed(input);
      if (verb == "move" || verb == "hover") over->MouseMoved(input);
      if (verb == "release") over->MouseReleased(input);
      if (verb == "twice") over->MouseDoubleClicked(input);
      if (verb == "leave") over->MouseLeft();
    }
  }
  /// What is new in a text since the step before.
  void Say(const std::string& what, const std::string& text) {
    if (said[what] != text) transcript->Add(what + ": " + text);
    said[what] = text;
  }
  void LookAt(ChartForm& form) {
    transcript->Look(form);
    Say("model", InWords(form.mscChart1.Model()));
    Say("menu", MenuState(form.mscChart1.ContextMenu()));
    testing::RecordingCanvas chart({640, 360}), overlay({640, 360}), strip({640, 56}), frame({640, 56});
    form.mscChart1.Paint(chart);
    form.mscChart1.PaintOverlay(overlay);
    std::string texts;
    for (const std::string& text : chart.Texts()) texts += " | " + text;
    Say("texts", texts);
    if (brief) overlay.drawn = {};
    Say("overlay", "\n" + testing::InWords(overlay.drawn));
    if (!form.overview.ovwRecording.Visible()) return;
    form.overview.ovwRecording.Paint(strip);
    form.overview.ovwRecording.PaintOverlay(frame);
    texts.clear();
    for (const std::string& text : strip.Texts()) texts += " | " + text;
    Say("strip", texts + " frame " + testing::InWords(frame.drawn));
  }
  /// What went to the printer, the clipboard, workbooks and files.
  void LookOutside() {
    std::ostringstream out;
    std::string texts;
    for (const FakePrinter::Text& text : fakes.printer.texts) {
      texts += " | " + text.text;
      out << "\n  page " << text.page << " at " << testing::Half(text.x * 10) << ' ' << testing::Half(text.y * 10)
          << ' ' << text.font.family << ' ' << text.font.points << (text.font.italic ? " italic" : "")
          << (text.font.bold ? " bold " : " ") << text.font.color << ": " << text.text;
    }
    for (const auto* boxes : {&fakes.printer.pictures, &fakes.printer.drawings}) {
      for (const FakePrinter::Picture& box : *boxes) {
        out << "\n  picture " << testing::InWords(Rect{box.x * 10, box.y * 10, box.width * 10, box.height * 10});
      }
    }
    if (!drawn.empty()) out << "\n  drawn:\n" << drawn;
    Say("printed", brief && out.tellp() > 0 ? texts : out.str());
    fakes.printer.texts.clear();
    fakes.printer.pictures.clear();
    fakes.printer.drawings.clear();
    drawn.clear();
    said["printed"].clear();
    std::string calls, cells;
    for (const std::string& call : fakes.spreadsheets.log.calls) calls += "\n  " + call;
    for (const auto& [cell, text] : fakes.spreadsheets.log.cells) cells += " " + cell + " [" + text + "]";
    auto& log = fakes.spreadsheets.log.cells;
    std::string last;
    for (int row = 22; log.contains("1!" + std::to_string(row) + ",2"); ++row)
      last = log["1!" + std::to_string(row) + ",2"];
    Say("workbook", calls + (cells.size() > 2000 ? " points " + log["1!22,2"] + " .. " + last : cells));
    fakes.spreadsheets.log = {};
    said["workbook"].clear();
    const auto picture = fakes.clipboard.Picture();
    Say("clipboard", fakes.clipboard.Text() + (picture ? " picture " + std::to_string(picture->width) : ""));
    Say("log", fakes.files.Bytes("/bin/Kestrel.log"));
  }
  /// Begins a step; what the transcript lays out goes on behind it.
  void Step(const std::string& title) {
    while (!steps.empty() && steps.front() != "== " + title) steps.pop_front();
    if (!steps.empty()) steps.pop_front();
    transcript->Step(title);
  }
  void Do(ChartForm& form, const std::string& what) {
    Step(what);
    fakes.forms.notes = true;
    fakes.forms.noted.clear();
    blocks = 0;
    Use(form, what);
    if (blocks > 0) transcript->Add(std::to_string(blocks) + " blocks read");
    LookAt(form);
    LookOutside();
  }
  /// Does so many of the next steps, or all that are for the chart window.
  void Play(ChartForm& form, int count = 1000) {
    for (; count > 0 && !steps.empty(); --count) {
      const std::string what = steps.front().substr(3), first = what.substr(0, what.find(' '));
      const bool known = form.Find(what.substr(0, what.find_first_of("=>"))) != nullptr || first == "key" ||
                         first == "menu" || first == "mouse" || first == "strip" || first == "wheel" ||
                         first == "cursor";
      if (!steps.front().starts_with("== ") || !known) return;
      Do(form, what);
    }
  }
  /// What the user does in a small window that came.
  void Meet(Form& window) {
    transcript->Look(window);
    Say("layout of " + window.Name(), LayoutOf(window));
    EXPECT_TRUE(!steps.empty() && steps.front().starts_with("> ")) << window.Name();
    while (window.IsShown() && !steps.empty() && steps.front().starts_with("> ")) {
      const std::string step = steps.front().substr(2);
      steps.pop_front();
      transcript->Add("> " + step);
      Use(window, step);
      transcript->Look(window);
    }
  }
  std::unique_ptr<Transcript> transcript;
  std::map<std::string, std::string> said;
  std::deque<std::string> steps;                 ///< of the transcript, those that are still to come
  std::map<std::string, std::string> longTexts;  ///< long ones, by the words that stand for them in steps
  std::string drawn;
  int blocks = 0;      ///< of files, read since the step began
  Instant perBlock{};  ///< that reading one takes
  bool brief = false;  ///< of overlays nothing, of pages the texts alone
};

}  // namespace chartproject
