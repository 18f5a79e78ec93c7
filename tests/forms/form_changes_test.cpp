// What a window is told of every property, and where every kind of box puts its controls.
#include <sstream>

#include "forms/access_keys.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/spoken_name.h"
#include "gtest/gtest.h"
#include "support/fake_ports.h"
#include "support/plain_measurer.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

struct FormChanges : ::testing::Test {
  FakePorts fakes;
  Form form{fakes.forms, "frmAny", [this](const std::string& routine, const RunTimeError& error) {
              fakes.forms.noted.push_back(routine + " fails: " + error.Description());
            }};
  Frame frame{form, "fraAll"};
  Label label{form, "lblOne"};
  TextBox text{form, "txtOne"};
  UpDown upDown{form, "updOne"};
  PictureBox picture{form, "picOne"};
  CommandButton button{form, "cmdOne"};
  CheckBox check{form, "chkOne"};
  ComboBox combo{form, "cboOne"};
  MaskEdBox masked{form, "mebOne", "##"};
  ProgressBar bar{form, "prgOne"};
  Slider slider{form, "sldOne"};
  HScrollBar scroll{form, "hsbOne"};
  Image image{form, "imgOne"};
  Timer timer{form, "tmrOne"};
  Transcript transcript{"form_changes", &fakes};

  Event Hear(const char* name) {
    return {name, [this, name] { fakes.forms.noted.emplace_back(name); }};
  }
  /// Does it twice: what is the same as before is told to nobody.
  void Do(const char* title, const std::function<void()>& change) {
    transcript.Step(title);
    for (int time = 0; time < 2; ++time) {
      try {
        change();
      } catch (const RunTimeError& error) {
        transcript.Add("error " + std::to_string(error.Number()) + ": " + error.Description());
      }
      transcript.Look(form);
    }
  }
};

TEST_F(FormChanges, AreToldOnceAndRaiseTheirEvents) {
  fakes.forms.notes = fakes.forms.notesControls = true;
  combo.click = Hear("combo clicked");
  text.change = Hear("text changed");
  text.lostFocus = Hear("text left");
  button.click = Hear("button pressed");
  check.click = Hear("check clicked");
  picture.click = Hear("picture pressed");
  upDown.change = Hear("arrows changed");
  slider.change = Hear("slider changed");
  scroll.change = Hear("bar moved");
  timer.tick = Hear("tick");
  Do("before it is loaded", [&] { label.SetCaption("early"); });
  Do("load", [&] { form.Load(); });
  Do("form", [&] {
    form.SetCaption("Form");
    form.SetIconFile("a.ico");
    form.SetPointer(MousePointer::kHourglass);
    form.SetLeft(15);
    form.SetTop(30);
    form.SetHeight(300);
    form.SetState(WindowState::kMaximized);
    form.LayoutChanged();
  });
  Do("caption and tip", [&] { label.SetCaption("&Scale"), label.SetToolTipText("tip"); });
  Do("no caption", [&] { text.SetCaption("x"); });
  Do("text", [&] { text.SetText("12"); });
  Do("select", [&] { text.SelectAll(); });
  Do("text over it", [&] { text.SetText("13"), text.SelectAll(), text.SetText("13"); });
  Do("focus", [&] { text.SetFocus(), button.SetFocus(); });
  Do("arrows", [&] {
    upDown.SetBuddy(&text);
    upDown.SetSyncBuddy(true);
    upDown.SetMaximum(20);
    upDown.SetMinimum(5);
    upDown.Step(1);
  });
  Do("arrows from a typed number",
     [&] { text.SetText("19"), upDown.Step(1), upDown.Step(1), text.SetText("99"), upDown.Step(-1); });
  Do("arrows of a word",
     [&] { text.SetText("7x"), upDown.Step(1), upDown.SetEnabled(false), upDown.Step(1), upDown.SetEnabled(true); });
  Do("list", [&] { combo.AddItem("a"), combo.AddItems({"b", "c"}); });
  Do("choose", [&] { combo.SetListIndex(1); });
  Do("grey", [&] { combo.SetAvailable({true, false}); });
  Do("steps of a grey list", [&] {
    for (int at = -1; at < 6; ++at) {
      transcript.Add(std::to_string(at) + " [" + combo.List(at) + "] " + std::to_string(combo.IsAvailable(at)) +
                     " down " + std::to_string(combo.NextAvailable(at, 1)) + " up " +
                     std::to_string(combo.NextAvailable(at, -1)));
    }
  });
  Do("choose nothing", [&] { combo.SetListIndex(-1); });
  Do("choose too far", [&] { combo.SetListIndex(99); });
  Do("choose before nothing", [&] { combo.SetListIndex(-2); });
  Do("clear", [&] { combo.Clear(); });
  Do("check", [&] { check.SetValue(2); });
  for (const int value : {-1, 3}) Do("check out of range", [&] { check.SetValue(value); });
  Do("colour", [&] { picture.SetBackColor({1, 2, 3}), picture.Press(); });
  Do("bar",
     [&] { bar.SetRange(10, 20), bar.SetValue(12), bar.SetRange(0, 11), bar.SetRange(5, 5), bar.SetRange(0, 30); });
  for (const double value : {-1.0, 31.0}) Do("bar out of range", [&] { bar.SetValue(value); });
  Do("bar backwards", [&] { bar.SetRange(2, 1); });
  Do("slider", [&] {
    slider.SetMaximum(50), slider.SetMinimum(10), slider.SetValue(50), slider.SetMaximum(40), slider.SetSmallChange(2),
        slider.SetLargeChange(7);
  });
  for (const int value : {9, 41}) Do("slider out of range", [&] { slider.SetValue(value); });
  Do("scroll bar backwards",
     [&] { scroll.SetMaximum(-5), scroll.SetValue(-5), scroll.SetSmallChange(1), scroll.SetLargeChange(32767); });
  for (const int value : {-6, 1}) Do("scroll bar out of range", [&] { scroll.SetValue(value); });
  for (const int value : {-32769, 32768}) Do("scroll bar maximum", [&] { scroll.SetMaximum(value); });
  for (const int value : {-32769, 32768}) Do("scroll bar minimum", [&] { scroll.SetMinimum(value); });
  for (const int value : {0, 32768})
    Do("scroll bar steps", [&] { value == 0 ? scroll.SetSmallChange(value) : scroll.SetLargeChange(value); });
  Do("picture", [&] { image.Invalidate(), image.InvalidateOverlay(), image.SetPointer(MousePointer::kCustom); });
  Do("timer", [&] { timer.SetInterval(100), timer.SetEnabled(true); });
  Do("tick", [&] { fakes.clock.Advance(std::chrono::milliseconds(100)), (void)fakes.forms.Timers().FireOne(); });
  Do("timer off", [&] { timer.SetInterval(0), (void)fakes.forms.Timers().FireOne(); });
  for (const int value : {-1, 65536}) Do("timer out of range", [&] { timer.SetInterval(value); });
  Do("container off", [&] {
    button.SetContainer(&frame), picture.SetContainer(&frame), frame.SetEnabled(false), button.Press(), picture.Press();
  });
  Do("container on", [&] { frame.SetEnabled(true), button.Press(), picture.Press(); });
  Do("hidden", [&] { frame.SetVisible(false), button.Press(), picture.Press(), label.SetVisible(false); });
  Do("shown", [&] { frame.SetVisible(true), label.SetVisible(true), button.Press(); });
  Do("handler that fails", [&] {
    button.click = {"cmdOne_Click", [] { throw std::bad_alloc(); }};
    button.Press();
  });
  Do("names", [&] {
    for (const Control* control : form.Controls()) {
      const Control* field = FieldOf(form, *control);
      transcript.Add(control->Name() + " spoken [" + SpokenName(*control) + "]" + (control->TabStop() ? " stop" : "") +
                     (field == nullptr ? "" : " names " + field->Name()));
    }
    for (const char* caption : {"", "&", "&a", "a&&b", "a&&&b", "a&"})
      transcript.Add(std::string(caption) + " " + AccessLetter(caption).value_or('-'));
  });
  Do("status", [&] { form.ShowStatus(); });
  Do("hide", [&] { form.Hide(); });
  Do("unload", [&] { form.Unload(); });
}

}  // namespace
}  // namespace chartproject
