// Boxes, strokes, paper and clipboard, held against texts that were read. No display is needed, and no font matters.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <cmath>
#include <stdexcept>

#include "backends/qt/qt_application.h"
#include "backends/qt/qt_canvas.h"
#include "backends/qt/qt_clipboard.h"
#include "backends/qt/qt_dialogs.h"
#include "backends/qt/qt_help.h"
#include "backends/qt/qt_keyboard.h"
#include "backends/qt/qt_printer.h"
#include "backends/qt/qt_text.h"
#include "platform/temporary_folder.h"
#include "support/error_of.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

struct BoxSession : ::testing::Test {
  int argc = 1;
  char program[5] = "test";
  char* argv[2] = {program, nullptr};
  QtApplication application{argc, argv};
};

TEST_F(BoxSession, EveryBox) {
  Transcript transcript("window_boxes");
  const TemporaryFolder folder;
  for (const Language language : {Language::kPortuguese, Language::kEnglish}) {
    application.SetLanguage(language);
    QtHelp help{[&] { return language; }};
    QtDialogs dialogs{help, [&] { return language; }};
    int pressed = -1;
    const auto look = [&](const std::string& title, int button, const std::function<std::string()>& show) {
      transcript.Step(title);
      pressed = button;
      QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        if (auto* message = qobject_cast<QMessageBox*>(box))
          transcript.Say("icon ", message->icon(), " format ", message->textFormat(), " escape ",
                         (message->escapeButton() == nullptr ? "" : FromQt(message->escapeButton()->text())), " \"",
                         FromQt(message->text().replace(ToQt(folder.Path()), "FOLDER")), "\"");
        transcript.Say("\"", FromQt(box->windowTitle()), "\"");
        if (auto* files = qobject_cast<QFileDialog*>(box)) {
          transcript.Say("accept ", files->acceptMode(), " mode ", files->fileMode(), " confirms ",
                         !files->testOption(QFileDialog::DontConfirmOverwrite), " in ",
                         FromQt(files->directory().path()), " filters ", FromQt(files->nameFilters().join(", ")),
                         " chosen ", FromQt(files->selectedNameFilter()));
          for (int i = 0; i <= QFileDialog::Reject; ++i)
            transcript.Add(FromQt(files->labelText(static_cast<QFileDialog::DialogLabel>(i))));
        }
        for (auto* edit : box->findChildren<QLineEdit*>()) edit->setText("typed");
        const auto buttons = box->findChildren<QPushButton*>();
        for (const QPushButton* each : buttons)
          transcript.Say("button \"", FromQt(each->text()), "\"", (each->isDefault() ? " default" : ""));
        if (pressed < 0) return QTest::keyClick(box, Qt::Key_Escape), void();
        buttons.at(pressed)->click();
      });
      transcript.Say("answer ", show());
    };
    for (const std::int32_t style : {36, 0, 16, 48, 64, 80, 1}) {
      for (const int button : {0, 1, -1})
        if (style == 36 || (button == 0 && language == Language::kEnglish))
          look("style " + std::to_string(style) + (button < 0 ? " closed" : " button " + std::to_string(button)),
               button, [&] {
                 return std::to_string(dialogs.ShowMessageBox({"<b>prompt</b>", style, "title", "", 0}));
               });
    }
    for (const int button : {0, 1, -1})
      look("input " + std::to_string(button), button, [&] {
        return dialogs.ShowInputBox({"prompt", "title", "help.html"});
      });
    const std::string filters = "Chart Files (*.cht)|*.cht|All Files (*.*)|*.txt;*.x|odd";
    for (const std::int32_t flags : {0, 2, 4096})
      look("file " + std::to_string(flags), -1, [&] {
        return dialogs.ShowOpenFile({"/", flags == 2 ? "" : filters, 2, flags}).value_or("none");
      });
    PutFile(folder / "compiled.hlp", std::string("a\0b", 3));
    look("help of another system", 0, [&] { return help.ShowContext(folder / "compiled.hlp", 1), std::string(); });
    PutFile(folder / "help.html", "<p>Help</p><a name='7'>there</a>");
    help.ShowContext(folder / "help.html", 7);
    for (const QWidget* widget : QApplication::topLevelWidgets())
      if (widget->isVisible() && qobject_cast<const QTextBrowser*>(widget) != nullptr)
        transcript.Say("\"", FromQt(widget->windowTitle()), "\" ", widget->width(), " x ", widget->height(), " ",
                       FromQt(widget->property("plainText").toString()));
    look("no help file", 0, [&] { return help.ShowContext("/none/help.html", 1), std::string(); });
  }
}

/// A picture in the tones of its dots: 0 black to F white.
std::string Tones(const std::function<void(Canvas&)>& paint, double scale = 1) {
  const Bitmap picture = QtPictureRenderer().Render({16, 8}, scale, paint);
  std::string text = std::to_string(picture.width) + " x " + std::to_string(picture.height) + ", " +
                     std::to_string(std::lround(picture.dotsPerInch)) + " dots an inch";
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    if (i % static_cast<std::size_t>(picture.width) == 0) text += "\n";
    text += "0123456789ABCDEF"[(picture.pixels[i] & 0xFFU) >> 4U];
  }
  return text;
}

TEST_F(BoxSession, EveryStroke) {
  Transcript transcript("window_strokes");
  const PointF zigzag[] = {{1, 1}, {7, 6}, {8, 1}, {15, 4}};
  const Pen pens[] = {{},
                      {{}, 2},
                      {{}, 4},
                      {{}, 1, PenStyle::kDash},
                      {{}, 1, PenStyle::kDot},
                      {{}, 1, PenStyle::kNone},
                      {{0, 0, 0, 128}, 3},
                      {{}, 0.5}};
  const auto show = [&](const std::string& title, const std::function<void(Canvas&)>& paint) {
    transcript.Step(title);
    for (const double scale : {1.0, 2.0}) transcript.Add(Tones(paint, scale));
  };
  for (std::size_t i = 0; i < std::size(pens); ++i) {
    show("pen " + std::to_string(i), [&](Canvas& canvas) { canvas.DrawPolyline(zigzag, pens[i]); });
    transcript.Add(Tones([&](Canvas& canvas) { canvas.DrawLine({2, 4}, {14, 4.5}, pens[i]); }));
    transcript.Add(Tones([&](Canvas& canvas) {
      canvas.DrawPolygon(std::span(zigzag).first(3), {0, 0, 128}, pens[i]);
    }));
    transcript.Add(Tones([&](Canvas& canvas) { canvas.DrawEllipse({2, 1, 11, 6}, {255, 255, 160}, pens[i]); }));
  }
  show("whole and broken rectangles", [](Canvas& canvas) {
    canvas.FillRect({1, 1, 4, 3}, {}), canvas.FillRect({7.5, 1.5, 4, 3}, {}),
        canvas.FillRect({1, 6, 9, 1}, {0, 0, 0, 128}), canvas.FillRect({12.5, 0.5, 2.5, 3.5}, {});
  });
  show("crisp", [&](Canvas& canvas) {
    canvas.FillCrisp(std::span(zigzag).first(3), {}), canvas.FillRect({9.5, 5.5, 3, 2}, {});
  });
  show("a clip", [&](Canvas& canvas) {
    canvas.Clip({3, 2, 6, 4}), canvas.FillCrisp(zigzag, {}), canvas.DrawPolyline(zigzag, {}), canvas.Unclip(),
        canvas.DrawLine({1, 7.5}, {15, 7.5}, {});
  });
  transcript.Step("texts: where they begin");
  for (const Align align : {Align::kLeft, Align::kCenter, Align::kRight}) {
    const auto text = [&](double share, Align how) {
      return Tones(
          [&](Canvas& canvas) {
            canvas.DrawText("W", {8 - share * canvas.MeasureText("W", {{}, 6}).width, 0}, {{}, 6}, {}, how);
          },
          4);
    };
    transcript.Add(text(0, align) == text(static_cast<int>(align) / 2.0, Align::kLeft)
                       ? "as far left as their width says"
                       : "elsewhere");
  }
  (void)Tones([&](Canvas& canvas) {
    const auto width = [&](const char* text, const Font& font) { return canvas.MeasureText(text, font).width; };
    const double ten = width("WWWW", {"Liberation Sans", 10});
    transcript.Say(
        "20 points: ", std::lround(width("WWWW", {"Liberation Sans", 20}) / ten),
        " times 10; bold: ", width("iiii", {"Liberation Sans", 10, true}) > width("iiii", {"Liberation Sans", 10}),
        "; each letter as wide: ", width("iiii", {"Liberation Mono", 10}) == width("WWWW", {"Liberation Mono", 10}));
  });
  transcript.Add(Tones([](Canvas&) {}, 0).substr(0, 5));
}

TEST(KeyboardSession, EscAndErrors) {
  Transcript transcript("window_keyboard");
  int argc = 1;
  char program[] = "test";
  char* argv[] = {program, nullptr};
  QtApplication application(argc, argv, [&](const std::string& error) { transcript.Say("error: ", error); });
  QtKeyboard keyboard;
  QLineEdit field;
  const auto send = [&](const std::string& what, QEvent::Type type, int key, bool repeated = false) {
    QKeyEvent event(type, key, Qt::NoModifier, {}, repeated);
    QApplication::sendEvent(&field, &event);
    const bool first = keyboard.EscapePressed();
    transcript.Say(what, ": ", first, ", then ", keyboard.EscapePressed());
  };
  transcript.Say("at first: ", keyboard.EscapePressed());
  send("another key", QEvent::KeyPress, Qt::Key_A);
  send("Esc down", QEvent::KeyPress, Qt::Key_Escape);
  send("Esc repeated", QEvent::KeyPress, Qt::Key_Escape, true);
  send("another key up", QEvent::KeyRelease, Qt::Key_A);
  send("Esc up and down again", QEvent::KeyRelease, Qt::Key_Escape, true);
  send("Esc up", QEvent::KeyRelease, Qt::Key_Escape);
  send("Esc down once more", QEvent::ShortcutOverride, Qt::Key_Escape);
  QEvent away(QEvent::ApplicationDeactivate);
  QApplication::sendEvent(&application, &away);
  transcript.Say("in another program: ", keyboard.EscapePressed());
  struct : QObject {
    bool event(QEvent* event) override {
      if (event->type() == QEvent::User) throw std::runtime_error("one");
      throw 2;
    }
  } faulty;
  for (const int type : {int{QEvent::User}, int{QEvent::User} + 1}) {
    QEvent event(static_cast<QEvent::Type>(type));
    transcript.Say("taken: ", QApplication::sendEvent(&faulty, &event));
  }
}

TEST_F(BoxSession, PaperAndClipboard) {
  Transcript transcript("window_paper");
  const TemporaryFolder folder;
  QtClipboard clipboard;
  clipboard.Clear();
  transcript.Add(clipboard.Picture() ? "a picture" : "no picture");
  const Bitmap picture = QtPictureRenderer().Render({4, 2}, 1, [](Canvas& canvas) {
    canvas.FillRect({1, 0, 1, 2}, {10, 20, 30});
  });
  clipboard.SetPicture(picture);
  transcript.Add(clipboard.Picture() && clipboard.Picture()->pixels == picture.pixels ? "the same picture"
                                                                                      : "another one");
  clipboard.SetText("a\r\nb");
  transcript.Add(FromQt(QApplication::clipboard()->text()));
  QtPrinter none({});
  transcript.Add(ErrorTextOf([&] { (void)none.StartDocument("t"); }));
  for (const std::optional<std::string>& name : {std::optional<std::string>(), std::optional<std::string>(""),
                                                 std::optional<std::string>(folder / "asked.pdf")}) {
    QtPrinter printer([&](const std::string& proposal) { return transcript.Say("asked for ", proposal), name; });
    printer.ProposeFile("Test.pdf");
    printer.UsePaper({10, 20});
    transcript.Add(printer.StartDocument("title") ? "begun" : "declined");
    if (!name || name->empty()) continue;
    const PageArea page = printer.Page();
    char area[96];
    std::snprintf(area, sizeof area, "page %.2f x %.2f, to %.2f %.2f", page.width, page.height, page.right,
                  page.bottom);
    transcript.Add(area);
    const double width = printer.TextWidth("WWWW", {{}, 10});
    transcript.Add(std::abs(printer.TextWidth("WWWW", {{}, 20}) / width - 2) < 0.1 ? "twice as wide"
                                                                                   : "not twice as wide");
    printer.PrintText("W", 1, 3, {{}, 10});
    const double first = printer.CurrentY();
    printer.NextLine();
    transcript.Say("text at ", first, ", next line ",
                   (printer.CurrentY() > first + 0.3 && printer.CurrentY() < first + 0.7 ? "below" : "elsewhere"));
    printer.PaintPicture(picture, 1, 1, 2, 2);
    printer.Draw(1, 4, 5, 5, [&](Canvas& canvas) {
      transcript.Say("canvas ", std::lround(canvas.Extent().width), " x ", std::lround(canvas.Extent().height)),
          canvas.FillCrisp(std::array{PointF{0, 0}, PointF{9, 0}, PointF{0, 9}}, {});
    });
    printer.NextPage();
    transcript.Say("top ", printer.CurrentY());
    transcript.Add(ErrorTextOf([&] { printer.PaintPictureFile("/none.ico", 0, 0); }));
    transcript.Add(FileBytes(*name).empty() ? "no file yet" : "a file");
    printer.EndDocument();
    const std::string bytes = FileBytes(*name);
    transcript.Say(std::string(bytes.starts_with("%PDF") ? "a document" : "no document"), ", ",
                   (bytes.find("/Count 2") != std::string::npos ? "two pages" : "other pages"), ", ",
                   (bytes.find("/MediaBox [0 0 283") != std::string::npos ? "10 cm wide" : "another size"));
  }
}

}  // namespace
}  // namespace chartproject
