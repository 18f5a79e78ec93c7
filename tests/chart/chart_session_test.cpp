// Whole sessions in the chart window, held against texts that were read.
#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <sstream>

#include "chart/chart_window_fixture.h"
#include "chart/chart_words.h"
#include "support/transcript.h"
#include "support/typing.h"

namespace chartproject {
namespace {

/// "Ctrl+Shift+Left", "F", "Page Up".
KeyPress KeyOf(std::string name) {
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

void Choose(DrawnControl& control, const std::vector<MenuItem>& items, const std::string& text) {
  for (const MenuItem& item : items) {
    if (item.text == text && item.items.empty()) control.MenuChosen(item.id);
    Choose(control, item.items, text);
  }
}

std::string MenuInWords(const std::vector<MenuItem>& items, const std::string& indent) {
  std::string all;
  for (const MenuItem& item : items) {
    all += indent + item.text + (item.key.empty() ? "" : " | " + item.key) + (item.enabled ? "" : " (off)") +
           (item.checked ? " (on)" : "") + "\n" + MenuInWords(item.items, indent + "  ");
  }
  return all;
}

std::string InWords(const ChartModel& model) {
  std::ostringstream out;
  out << "kind " << static_cast<int>(model.kind) << ", from " << model.firstRowLabel << " by " << model.labelsPerRow
      << ", rows " << model.rowCount << ", division " << model.categoryScale.divisionsPerLabel << ' '
      << model.categoryScale.divisionsPerTick << ", unit " << static_cast<int>(model.categoryUnit) << ", grid "
      << model.categoryGrid << model.valueGrid << model.secondValueGrid << " wall " << model.wallPen << " frame "
      << static_cast<int>(model.frame) << (model.lanes ? ", lanes" : "") << (model.legendVisible ? ", legend" : "");
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

/// A session is a list of what the user does; after each step stands what differs.
struct ChartSession : ChartWindowTest {
  ChartSession() {
    component.settings.strBin = "/bin";
    fakes.printer.draw = [this](const std::function<void(Canvas&)>& paint) {
      testing::RecordingCanvas canvas({676, 397});
      paint(canvas);
      drawn += testing::InWords(canvas.drawn) + '\n';
    };
  }
  void Begin(const char* name) { transcript = std::make_unique<Transcript>(name, &fakes); }
  /// "NAME" presses a button, "NAME=VALUE" changes a control, "NAME>" leaves it; the others are words of the chart:
  /// "key Ctrl+G", "menu Grid", "mouse press 100 100 shift", "wheel 1 100 100 control", "strip press 100".
  void Use(Form& form, const std::string& what) {
    const std::size_t sign = what.find_first_of("=>");
    Control* const control = form.Find(what.substr(0, sign));
    const std::string value = sign == std::string::npos ? "" : what.substr(sign + 1);
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
      timer->Fire();
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
          << ' ' << text.font.points << (text.font.bold ? " bold " : " ") << text.font.color << ": " << text.text;
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
    Say("workbook", calls + (cells.size() > 2000 ? " cells " + std::to_string(cells.size()) : cells));
    fakes.spreadsheets.log = {};
    said["workbook"].clear();
    const auto picture = fakes.clipboard.Picture();
    Say("clipboard", fakes.clipboard.Text() + (picture ? " picture " + std::to_string(picture->width) : ""));
    Say("log", fakes.files.Bytes("/bin/Kestrel.log"));
  }
  void Do(ChartForm& form, const std::string& what) {
    transcript->Step(what);
    Use(form, what);
    LookAt(form);
    LookOutside();
  }
  void Do(ChartForm& form, std::initializer_list<const char*> steps) {
    for (const char* step : steps) Do(form, step);
  }
  /// What the user does in the small windows that come next.
  void Answer(std::initializer_list<std::vector<std::string>> steps) {
    answers = steps;
    asked = [this](Form& window) {
      transcript->Look(window);
      ASSERT_FALSE(answers.empty());
      const std::vector<std::string> mine = std::move(answers.front());
      answers.pop_front();
      for (const std::string& step : mine) {
        transcript->Add("> " + step);
        Use(window, step);
        transcript->Look(window);
      }
    };
  }
  std::unique_ptr<Transcript> transcript;
  std::map<std::string, std::string> said;
  std::deque<std::vector<std::string>> answers;
  std::string drawn;
  bool brief = false;  ///< of overlays nothing, of pages the texts alone
};

TEST_F(ChartSession, EachLanguage) {
  Begin("chart_languages");
  brief = true;
  Put("60", 60);
  for (const auto& [language, name] :
       {std::pair(Language::kPortuguese, "Portuguese"), std::pair(Language::kEnglish, "English"),
        std::pair(Language::kSpanish, "Spanish")}) {
    component.language = language;
    transcript->Step(name);
    Show([&](ChartForm& form) {
      LookAt(form);
      transcript->Add(MenuInWords(form.mscChart1.ContextMenu(), ""));
      Do(form, {"key Ctrl+Right", "key Ctrl+Shift+Right", "key S", "mouse hover 300 200"});
      Answer({{"cboUnit=1", "txtPlace=?", "cmdOK", "cmdCancel"}, {"cboWhat=3", "cmdNext"}, {"txtTitle=T", "cmdPrint"}});
      Do(form, {"key Ctrl+G", "key Ctrl+F", "key Ctrl+P", "cmdPrint"});
    });
    LookOutside();
  }
}

TEST_F(ChartSession, KeysMenuAndSmallWindows) {
  Begin("chart_actions");
  brief = true;
  Put("1000", 1000);
  fakes.files.Put(kFile, "Start Date=31/01/2026\r\nStart Time=08:00:00\r\n" + fakes.files.Bytes(kFile));
  fakes.files.Put(std::string(kFile) + ".readings",
                  "[CHART READINGS]\r\nStart Date=31/01/2026\r\nStart Time=08:00:00\r\nEnd Date=\r\nEnd Time=\r\n"
                  "Points=1000\r\n[FAILED]\r\n1 P003 30 34 5 no-answer\r\n[PACE]\r\nAsked=1000\r\nShortest=1000\r\n"
                  "Mean=2000\r\nLongest=3000\r\nLatest=99000\r\n[TIMES]\r\nWithin=5\r\n1 0\r\n1000 1998000\r\n");
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Do(form, {"tmrSurvey",     "key S",           "key Ctrl+C",  "key Esc",
              "key Backspace", "key 3",           "key Shift+F", "key +",
              "key +",         "key -",           "key Ctrl+0",  "key Backspace",
              "key Right",     "key Shift+Right", "key Left",    "key Page Down",
              "key Page Up",   "key End",         "key Home",    "key E",
              "key T",         "key P",           "key L",       "key 2",
              "key I",         "key O",           "key A",       "key K",
              "picPXXX2",      "key L",           "key I",       "menu Automatic range of values",
              "menu Grid",     "menu Line",       "menu Marker", "menu Overview",
              "menu Overview"});
    Do(form, {"key Ctrl+Right", "key Ctrl+Right", "key Ctrl+Left", "key Ctrl+Shift+Left", "key Ctrl+Shift+Left",
              "key S", "key Ctrl+C", "key End", "key Ctrl+Shift+Right", "key S", "key S", "key Esc", "key Esc"});
    Answer({{"txtPlace=500", "cmdOK"},
            {"txtPlace=0", "cmdOK", "txtPlace=1001", "cmdOK", "txtPlace=", "cmdOK", "cboUnit=1", "txtPlace=00:33:18",
             "cmdOK"},
            {"cboUnit=2", "txtPlace=1/2/2026 08:00:00", "cmdOK", "txtPlace=08:01:00.5", "cmdOK"},
            {"cmdCancel"}});
    Do(form, {"key Ctrl+G", "key Ctrl+G", "key Ctrl+G", "key Ctrl+G", "key Ctrl+Left", "key Esc"});
    Answer({{"cmdCancel"},
            {"txtValue=x", "cmdNext", "txtValue=12.5", "cmdNext"},
            {"cboSeries=1", "cboWhat=1", "cmdPrevious"},
            {"cboWhat=3", "cboSeries=0", "cmdNext"},
            {"cboWhat=2", "cmdPrevious"}});
    Do(form, {"key Home", "key N", "key Shift+N", "key N", "key Shift+N", "key Ctrl+F", "key N", "key Ctrl+F", "key N",
              "key Ctrl+F", "key Esc"});
    Do(form, {"key F", "mouse hover 300 200", "key Ctrl+Right", "key Ctrl+Shift+Right", "mouse leave", "cmdOK"});
  });
  LookOutside();
}

TEST_F(ChartSession, TypesSwitchesAndScales) {
  Begin("chart_switches");
  Put("60", 60);
  fakes.files.Put("/sounds/dummy", "");
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Do(form,
       {"cboChartType=0",  "cboChartType=1", "cboChartType=2", "cboChartType=4", "cboChartType=5",  "chkGrid=1",
        "chkGrid=2",       "chkLine=0",      "chkMarker=1",    "upd1=1",         "upd1=-1",         "upd1=1",
        "cmdUpdateChart",  "txtScale2=007",  "cmdUpdateChart", "txtScale2=0",    "mscChart1>",      "txtScale2=2.5",
        "hsbGraph=1",      "mscChart1>",     "txtScale2=",     "cmdUpdateChart", "txtScale2=32768", "cmdUpdateChart",
        "txtScale2=32767", "cmdUpdateChart", "upd3=1",         "cmdPrint"});
    fakes.dialogs.answers = {box_answer::kYes};
  });
  LookOutside();
  component.settings.intChartType = 9;
  component.settings.strGrid = "?";
  transcript->Step("stored settings that name nothing");
  Show([&](ChartForm& form) {
    LookAt(form);
    form.PlaceChangedByUser(300, 450, 15000, 12000);
  });
  transcript->Listen();
}

TEST_F(ChartSession, MouseAndWheel) {
  Begin("chart_mouse");
  Put("500", 500);
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Do(form, {"tmrSurvey",
              "mouse press 200 100",
              "mouse release 200 100",
              "mouse press 400 100 shift",
              "mouse release 400 100",
              "key S",
              "key S",
              "mouse hover 100 100",
              "mouse hover 636 100",
              "mouse press 300 100",
              "mouse move 303 200",
              "mouse move 420 220",
              "key Esc",
              "mouse release 420 220",
              "mouse press 300 100",
              "mouse move 420 220",
              "mouse release 420 220",
              "key Esc",
              "key F",
              "mouse press 500 100 shift",
              "mouse move 200 103 shift",
              "mouse move 300 200 shift",
              "mouse release 300 200",
              "key Backspace",
              "mouse press 500 100 middle",
              "mouse move 480 100 middle",
              "mouse release 480 100",
              "key Ctrl+0",
              "mouse press 500 100 middle",
              "mouse move 450 100 middle",
              "mouse hover 400 100",
              "key Space",
              "mouse press 500 100",
              "mouse move 600 100",
              "mouse release 600 100",
              "wheel -2 300 100",
              "wheel 1 300 100 control",
              "wheel -3 500 100 control",
              "wheel -1 500 100 control",
              "key Backspace",
              "wheel 1 20 100",
              "wheel 1 20 300",
              "wheel -1 20 100 control",
              "wheel 1 20 100 shift",
              "key L",
              "wheel 2 20 60",
              "strip press 300 20",
              "strip move 320 20",
              "strip release 320 20",
              "strip hover 100 20",
              "strip press 318 20",
              "strip move 0 20",
              "strip press 10 20 middle",
              "strip twice 100 20",
              "strip twice 100 20 middle"});
  });
  transcript->Listen();
}

TEST_F(ChartSession, ScrollingAndDamagedFiles) {
  Begin("chart_files");
  brief = true;
  const std::tuple<const char*, int, const char*, const char*> cases[] = {
      {"100", 100, "2", ""},       {"10", 12, "2", ""},      {"20", 12, "2", ""},
      {"many", 40, "2", ""},       {"40", 40, "7", ""},      {"0", 0, "1", ""},
      {"30", 26, "2", "broken"},   {"30", 3, "2", "broken"}, {"60", 58, "4", "' note\r\n\r\n08:00:01#1#--#run####"},
      {"2000000000", 70, "3", ""}, {"26", 26, "1", ""}};
  for (const auto& [points, rows, parameters, end] : cases) {
    Put(points, rows, parameters);
    fakes.files.Append(kFile, end);
    transcript->Step(std::string("N ") + points + ", rows " + std::to_string(rows) + ", P " + parameters + ", then " +
                     end);
    Show([&](ChartForm& form) {
      LookAt(form);
      Do(form, {"key End", "hsbGraph=0", "sldPointsPerDivision=2", "sldPointsPerDivision=1310", "key Home"});
    });
  }
  Put("60", 60);
  Show([&](ChartForm& form) {
    Do(form, "hsbGraph=20");
    Put("50", 50, "1");
    transcript->Add("another file of the name");
    Do(form, "key Right");
    fakes.files.Delete(kFile);
    transcript->Add("no file");
    Do(form, {"key Right", "wheel -1 300 100", "cmdExport", "tmrFollow"});
    Put("60", 60, "1", "07");
    transcript->Add("a file of another drive");
    Do(form, "key Right");
  });
  for (const char* drive : {"31", "x", "07"}) {
    Put("9", 9, "1", drive);
    transcript->Step(std::string("drive ") + drive);
    Show([](ChartForm&) {});
    transcript->Listen();
  }
}

TEST_F(ChartSession, LongReadings) {
  Begin("chart_reading");
  brief = true;
  Put("200000", 200000);
  fakes.files.beforeBlock = [&] { fakes.clock.Advance(std::chrono::milliseconds(90)); };
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    int reports = 0;
    int stopAt = 0;
    fakes.forms.onKeepAlive = [&] {
      transcript->Add(form.reading.lblStatus.Caption() + " pointer " +
                      std::to_string(static_cast<int>(form.Pointer())));
      for (const char* what :
           {"key Ctrl+G", "key Ctrl+F", "key Ctrl+P", "key Ctrl+S", "key Ctrl+Right", "key N", "cmdExport", "cmdPrint",
            "tmrSurvey", "tmrFollow", "sldPointsPerDivision=3", "hsbGraph=5"})
        Use(form, what);
      fakes.keyboard.escape = ++reports == stopAt;
    };
    const auto stop = [&](int report, const char* what) {
      reports = 0;
      stopAt = report;
      Do(form, what);
    };
    stop(1, "hsbGraph=32742");
    stop(9, "hsbGraph=32742");
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 1);
    form.mscChart1.SetCursor(MeasuringCursor::kSecond, 200000);
    for (const int report : {2, 9}) stop(report, "key S");
    form.mscChart1.SetCursor(MeasuringCursor::kSecond, 199000);
    for (const int report : {1, 9}) stop(report, "key Ctrl+C");
    Answer({{"txtValue=500000", "cmdNext"}, {"cboRange=0", "cmdPrint"}, {"cmdYes"}});
    stop(1, "key Ctrl+F");
    stop(9, "key N");
    stop(3, "key Ctrl+P");
    stop(2, "cmdExport");
    fakes.forms.onKeepAlive = [&] { Use(form, "cmdOK"); };
    Answer({{"cmdYes"}});
    Do(form, "cmdExport");
  });
  transcript->Listen();
}

TEST_F(ChartSession, Outputs) {
  Begin("chart_outputs");
  Put("60", 60);
  fakes.files.Append(kFile, "08:00:09#1,5#\xE9####\r\nrubbish\r\n");
  fakes.files.Put("/data/old.png", "\x89PNG\r\n\x1A\n");
  fakes.files.Put("/data/other.PNG", "[INFO]");
  Show([&](ChartForm& form) {
    transcript->Know(form);
    LookAt(form);
    Do(form, {"key Ctrl+Right", "key Ctrl+Shift+Left", "key Ctrl+Shift+C"});
    for (const char* name : {"/data/new", "/data/old.png", "/data/other.PNG"}) {
      for (const std::int16_t answer : {box_answer::kNo, box_answer::kYes}) {
        fakes.dialogs.fileAnswer = name;
        fakes.dialogs.answers = {answer};
        Do(form, "key Ctrl+S");
        transcript->Add(std::string(name) + " holds " + fakes.files.Bytes(name) +
                        fakes.files.Bytes(name + std::string(".png")));
      }
    }
    fakes.dialogs.fileAnswer.reset();
    Do(form, "key Ctrl+S");
    const OpenFileRequest& request = fakes.dialogs.fileRequests.back();
    transcript->Add(request.initialFolder + " " + request.filter + " " + std::to_string(request.flags));
    Answer({{"cmdNo"}, {"cboRange=1", "cmdYes"}, {"cboRange=2", "cmdYes"}, {"cmdYes"}});
    Do(form, {"cmdExport", "cmdExport", "cmdExport", "menu Export"});
    Answer({{"cmdCancel"}, {"txtTitle=Load test", "txtRemark=no\tfaults", "cboRange=0", "cmdPrint"}, {"cmdPrint"}});
    Do(form, {"key Ctrl+P", "key Ctrl+P"});
    fakes.printer.declined = true;
    Do(form, "key Ctrl+P");
    fakes.printer.declined = false;
    fakes.dialogs.answers = {box_answer::kYes};
    Do(form, "menu Print");
  });
  LookOutside();
  transcript->Listen();
}

}  // namespace
}  // namespace chartproject
