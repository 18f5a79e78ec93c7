// What windows, boxes and paper show, and what the program makes of keys and clicks, held against texts that were read.
// No display is needed; nothing here depends on the fonts of the machine.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <sstream>

#include "backends/qt/forms/qt_form_view.h"
#include "backends/qt/qt_application.h"
#include "backends/qt/qt_text.h"
#include "chart/window/find_forms.h"
#include "host/window/drive_forms.h"
#include "qt/every_form.h"
#include "qt/program_windows.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

/// The properties of a widget that a user meets.
std::string WordsOf(const QWidget& widget) {
  std::string words = widget.metaObject()->className();
  std::istringstream names(
      "text title displayText plainText placeholderText inputMask maxLength readOnly toolTip accessibleName "
      "enabled focusPolicy alignment wordWrap frameShape frameShadow textFormat minimum maximum value "
      "singleStep pageStep invertedAppearance invertedControls textVisible currentIndex currentText count "
      "maxVisibleItems sizeAdjustPolicy checked tristate default tabChangesFocus mouseTracking "
      "autoFillBackground");
  for (std::string name; names >> name;) {
    const QVariant value = widget.property(name.c_str());
    const std::string text =
        FromQt(value.typeId() == QMetaType::QString ? value.toString() : QString::number(value.toInt()));
    if (value.isValid() && !text.empty() && text != "0" && text != "32767")
      words.append(" ").append(name).append("=").append(text);
  }
  if (!widget.isEnabled()) words += " disabled";
  if (const auto* label = qobject_cast<const QLabel*>(&widget); label != nullptr && label->buddy() != nullptr)
    words += " buddy=" + FromQt(label->buddy()->objectName());
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < std::min(list->count(), 12); ++i)
      words += (i == 0 ? " | " : ", ") + FromQt(list->itemText(i)) +
               (list->itemData(i, Qt::ForegroundRole).isValid() ? " (grey)" : "");
  }
  if (widget.cursor().shape() != Qt::ArrowCursor) words += " cursor=" + std::to_string(widget.cursor().shape());
  return words;
}

struct WindowSession : ::testing::Test {
  ~WindowSession() override { application.reset(); }
  void Look(Transcript& transcript, const Form& form, const User& user) {
    const QWidget& window = user.Window();
    transcript.Say("window \"", FromQt(window.windowTitle()), "\" icon ", !window.windowIcon().isNull(), " modal ",
                   window.windowModality(), " focus ",
                   (window.focusWidget() == nullptr ? "" : FromQt(window.focusWidget()->objectName())));
    for (Control* control : form.Controls()) {
      if (dynamic_cast<Timer*>(control) == nullptr && user.WidgetOf(*control).isVisible())
        transcript.Say(control->Name(), ": ", WordsOf(user.WidgetOf(*control)));
    }
    std::string order;
    const QWidget* at = &window;
    while ((at = at->nextInFocusChain()) != &window)
      if ((at->focusPolicy() & Qt::TabFocus) != 0 && !at->objectName().isEmpty() && !at->objectName().startsWith("qt_"))
        order += " " + FromQt(at->objectName());
    transcript.Say("tab order:", order);
  }
  void LookAt(Transcript& transcript, Form& form) {
    transcript.Step(form.Name());
    User user(form);
    user.Do([&] {
      Look(transcript, form, user);
      form.Unload();
    });
    user.GoThrough();
  }
  int argc = 1;
  char program[5] = "test";
  char* argv[2] = {program, nullptr};
  std::unique_ptr<QtApplication> application = std::make_unique<QtApplication>(argc, argv);
};

TEST_F(WindowSession, EveryWindow) {
  Transcript transcript("window_controls");
  DialogWindow project("English");
  AcquireForm dialog(project.component);
  LookAt(transcript, dialog);
  ChartViewer chart("English");
  transcript.Step("chart");
  chart.user.Do([&] { Look(transcript, chart.form, chart.user), chart.form.Unload(); }).GoThrough();
  Component& component = chart.outside.component;
  const PointClock clock;
  GoToForm goTo(component, clock, 40000, CategoryUnit::kPoints);
  LookAt(transcript, goTo);
  FindForm find(component, {"P003", "P005"}, {});
  LookAt(transcript, find);
  ProjectEdit edit(chart.outside.fakes.files, chart.outside.fakes.settings, chart.outside.fakes.codePage);
  AddDriveForm add(component, edit, {});
  LookAt(transcript, add);
  RemoveDriveForm remove(component, edit);
  LookAt(transcript, remove);
}

TEST_F(WindowSession, EveryInput) {
  Transcript transcript("window_input");
  std::vector<std::string> log;
  PosixClock clock;
  QtFormHost host{clock};
  EveryForm form(host, log);
  User user(form);
  std::map<std::string, std::string> seen;
  const auto step = [&](const std::string& title, const std::function<void()>& action) {
    action();
    QApplication::processEvents();
    std::string line = title + ":";
    for (const std::string& entry : log)
      line += (entry.starts_with("paint") && line.ends_with(entry) ? "" : " " + entry + ";");
    log.clear();
    transcript.Say(line, " focus ",
                   (user.Window().focusWidget() == nullptr ? "" : FromQt(user.Window().focusWidget()->objectName())));
    std::map<std::string, std::string> now = SeenOf(form);
    now.erase("");  // the window's height depends on fonts
    for (const auto& [name, state] : now)
      if (seen[name] != state) transcript.Say("+ ", name, ": ", state);
    seen = std::move(now);
  };
  const auto named = [&](const std::string& name) -> QWidget& {
    const auto is = [&name](const Control* control) { return control->Name() == name; };
    return user.WidgetOf(**std::ranges::find_if(form.Controls(), is));
  };
  /// "letters", "key [Ctrl+]NAME", "click", "twice" (buttons 1, 2, 4) and "wheel ACROSS DOWN" to a control.
  const auto play = [&](const std::string& line) {
    std::istringstream words(line);
    std::string verb, control, what;
    words >> verb >> control >> what;
    QWidget& widget = named(control);
    const auto strokes = QKeySequence::fromString(QString::fromStdString(what));
    const auto button = static_cast<Qt::MouseButton>(std::atoi(what.c_str()));
    if (verb == "letters") QTest::keyClicks(&widget, QString::fromStdString(what));
    if (verb == "key") {
      widget.setFocus();
      QTest::keyClick(&widget, strokes[0].key(), strokes[0].keyboardModifiers());
    }
    if (verb == "click") QTest::mouseClick(&widget, button, Qt::ShiftModifier, QPoint(10, 7));
    if (verb == "twice") QTest::mouseDClick(&widget, button, Qt::ControlModifier, QPoint(3, 4));
    if (verb == "move") QTest::mouseMove(&widget, QPoint(std::atoi(what.c_str()), 30));
    if (verb != "wheel") return;
    int down = 0;
    words >> down;
    QWheelEvent event({30, 5}, widget.mapToGlobal(QPointF(30, 5)), {}, {std::atoi(what.c_str()), down}, Qt::NoButton,
                      control == "drwProbe" ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
    log.push_back(event.isAccepted() ? "taken" : "not taken");
  };
  const auto playAll = [&](const std::string& script) {
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line, ',');) step(line, [&] { play(line); });
  };
  const auto words = [&](Control& control) { transcript.Add(WordsOf(user.WidgetOf(control))); };
  Timer ticker(form, "tmrTick");
  bool ticked = false;
  ticker.tick = {"tick", [&] { ticked = true; }};
  user.Do([&] { ticker.SetInterval(1), ticker.SetEnabled(true); }).Until("a tick", [&] { return ticked; });
  user.Do([&] {
    ticker.SetEnabled(false);
    step("shown", [&] { Look(transcript, form, user); });
    playAll(
        "letters txtName ab,key txtName Tab,key cboChoice Down,key cboChoice Down,key cboChoice Up,"
        "key cboChoice End,key cboChoice Home,key cboChoice Home,key cboChoice Ctrl+End,wheel cboChoice 0 -120,"
        "click chkGrid 1");
    step("grey", [&] { form.check.SetValue(2), words(form.check); });
    playAll(
        "click chkGrid 1,click picSwatch 1,click picSwatch 2,key mebTime 1,key mebTime A,key mebTime 2,key mebTime 3");
    step("the mask set", [&] { form.mask.SetText("4_:5_:__"), words(form.mask); });
    playAll(
        "letters txtScale 7,key txtScale Up,key txtScale Up,key txtScale Down,key txtLines X,key txtLines Return,"
        "key txtLines Tab");
    for (const std::string range : {"sldDivision ", "hsbGraph "}) {
      for (const char* key : {"Right", "Right", "Left", "PgDown", "Down", "Up", "PgUp", "End", "Home"})
        playAll("key " + range + key);
      for (const char* angle : {"0 -120", "0 120", "-120 0", "120 0"}) playAll("wheel " + range + angle);
    }
    playAll("move drwProbe 20");
    for (const char* key : {"Left", "Right", "PgUp", "PgDown", "Home", "End", "Backspace", "Space", "A", "Z", "0", "9",
                            "+", "-", "/", "F5", "Ctrl+Shift+Z", "Alt+Left", "Shift+F10"})
      playAll(std::string("key drwProbe ") + key);
    playAll(
        "click drwProbe 1,click drwProbe 4,click drwProbe 2,twice drwProbe 1,wheel drwProbe 0 120,"
        "wheel drwProbe 0 -240,wheel drwProbe 0 60,wheel drwProbe 0 60,wheel drwProbe 120 0,wheel drwProbe 0 -119,"
        "wheel drwProbe -1 0");
    step("a menu", [&] {
      form.probe.items = {{.text = "A & B", .key = "Ctrl+A", .id = 7},
                          {},
                          {.text = "off", .id = 8, .enabled = false},
                          {.text = "on", .id = 9, .checked = true},
                          {.text = "more", .items = {{.text = "inner", .id = 10}}}};
      play("key drwProbe Shift+F10");
      for (QMenu* menu : user.Window().findChildren<QMenu*>()) {
        for (const QAction* action : menu->actions())
          transcript.Say("entry \"", FromQt(action->text()), "\"", (action->isEnabled() ? "" : " disabled"),
                         (action->isCheckable() && action->isChecked() ? " checked" : ""),
                         (action->isSeparator() ? " separator" : ""), (action->menu() != nullptr ? " menu" : ""));
      }
      QMenu* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (menu != nullptr) menu->actions().front()->trigger(), menu->close();
      user.Window().activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));  // the menu was the active window
    });
    playAll("key txtName Return,key cmdGo Enter,key txtName F1");
    step("disabled", [&] { form.name.SetFocus(), form.name.SetEnabled(false); });
    step("enabled", [&] { form.name.SetEnabled(true); });
    step("a disabled button", [&] { form.go.SetEnabled(false); });
    playAll("click cmdGo 1,key txtName Return");
    step("pointers", [&] {
      form.go.SetPointer(MousePointer::kCustom), form.name.SetPointer(MousePointer::kHourglass);
      transcript.Say(user.WidgetOf(form.go).cursor().shape(), " ", user.WidgetOf(form.name).cursor().shape());
      form.SetPointer(MousePointer::kHourglass), form.name.SetPointer(MousePointer::kDefault);
      transcript.Add(
          QApplication::overrideCursor() == nullptr ? "own" : std::to_string(QApplication::overrideCursor()->shape()));
      form.SetPointer(MousePointer::kDefault);
      transcript.Add(QApplication::overrideCursor() == nullptr ? "own" : "still waiting");
    });
    step("captions and lists", [&] {
      form.SetIconFile(CHARTPROJECT_SOURCE_DIR "/tests/qt/images/chart_type_0.png");
      form.SetCaption("New"), form.go.SetCaption("Start"), form.combo.Clear(), form.combo.AddItem("only"),
          form.bar.SetValue(20), form.slider.SetMaximum(50), form.slider.SetValue(40);
    });
    step("again", [&] { Look(transcript, form, user); });
    step("the window's state and place", [&] {
      QWidget& window = user.Window();
      for (const WindowState state :
           {WindowState::kMaximized, WindowState::kNormal, WindowState::kMinimized, WindowState::kNormal}) {
        form.SetState(state);
        transcript.Say(window.isMaximized(), window.isMinimized());
      }
      window.showMaximized();
      transcript.Say("state ", static_cast<int>(form.State()));
      window.showNormal();
      transcript.Say("state ", static_cast<int>(form.State()));
      form.SetLeft(750), form.SetTop(300);
      transcript.Say("at ", window.x(), " ", window.y());
      window.move(60, 30);
      transcript.Say("place ", form.Left(), " ", form.Top());
      window.resize(window.width() + 40, window.height());
      const int chosen = window.width();
      form.LayoutChanged();
      QApplication::processEvents();
      transcript.Say("the user's width is kept: ", window.width() == chosen);
      form.SetLeft(1e6), form.SetHeight(1e5);
      transcript.Say("on its screen ", window.screen()->availableGeometry().contains(window.frameGeometry()));
    });
    step("colours", [&] {
      for (const char* name : {"sldDivision", "hsbGraph", "chkGrid"}) {
        named(name).setFocus();
        const QImage with = named(name).grab().toImage();
        named("txtName").setFocus();
        transcript.Say("the focus of ", name, " is seen: ", named(name).grab().toImage() != with);
      }
      const auto color = [&] { return FromQt(user.WidgetOf(form.swatch).grab().toImage().pixelColor(8, 8).name()); };
      const std::string own = color();
      form.swatch.SetBackColor({200, 100, 50});
      transcript.Say(own, " ", color());
      form.swatch.SetEnabled(false);
      transcript.Say(color() == own ? "as before" : "another when disabled");
    });
    step("files", [&] {
      form.fileDropped = [&](const std::string& file) { log.push_back("dropped " + file); };
      for (const char* url : {"https://example.org/a", "file:///data/a.cht"}) {
        QMimeData data;
        data.setUrls({QUrl("mailto:x"), QUrl(url)});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&user.Window(), &enter);
        transcript.Say(url, " is ", enter.isAccepted() ? "taken" : "not taken");
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted()) QApplication::sendEvent(&user.Window(), &drop);
      }
    });
    step("the arrows", [&] {
      const auto arrows = user.WidgetOf(form.upDown).findChildren<QToolButton*>();
      for (const QToolButton* arrow : arrows)
        transcript.Say(WordsOf(*arrow), " repeats ", arrow->autoRepeat(), " arrow ", arrow->arrowType(), " from ",
                       arrow->y() == 0                          ? "the top"
                       : arrow->y() == arrows.front()->height() ? "the other"
                                                                : "elsewhere");
    });
    step("letters of another size", [&] {
      QFont font = QApplication::font();
      font.setPixelSize(2 * QFontInfo(font).pixelSize());
      QApplication::setFont(font);
      QTest::qWait(1);
      for (const std::string& cut : CutTexts(user.Window())) transcript.Say(cut, " is cut");
    });
    playAll("key txtName Esc");
  });
  user.GoThrough();
}

}  // namespace
}  // namespace chartproject
