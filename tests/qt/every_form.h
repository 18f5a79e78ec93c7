// A form with every kind of control, which logs what the user does.
#pragma once

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "forms/controls.h"
#include "forms/form.h"

namespace chartproject {

/// A control that tells what it is given.
class Probe : public DrawnControl {
 public:
  Probe(Form& form, std::function<void(const std::string&)> tell)
      : DrawnControl(form, "Probe", "drwProbe"), tell_(std::move(tell)) {}
  bool TabStop() const noexcept override { return true; }
  bool HasCaption() const noexcept override { return false; }
  void Paint(Canvas& canvas) override { tell_("paint " + std::to_string(canvas.Extent().width > 0)); }
  Size PreferredSize() const override { return {200, 100}; }
  void MouseMoved(const MouseInput& input) override { Tell("moved", input); }
  void MouseLeft() override { tell_("left"); }
  void MousePressed(const MouseInput& input) override { Tell("pressed", input); }
  void MouseDoubleClicked(const MouseInput& input) override { Tell("twice", input); }
  void MouseReleased(const MouseInput& input) override { Tell("released", input); }
  bool WheelTurned(const WheelInput& input) override {
    tell_("wheel " + std::to_string(input.notches) + " at " + std::to_string(std::lround(input.at.x)) +
          (input.shift ? " shift" : "") + (input.control ? " control" : ""));
    return input.notches > 0;
  }
  bool KeyPressed(const KeyPress& press) override { return Tell("key", press), press.key != Key::kEnd; }
  void KeyReleased(const KeyPress& press) override { Tell("key released", press); }
  std::vector<MenuItem> ContextMenu() override { return items; }
  void MenuChosen(int id) override { tell_("chosen " + std::to_string(id)); }
  std::vector<MenuItem> items;

 private:
  void Tell(const std::string& what, const MouseInput& input) {
    tell_(what + " " + std::to_string(std::lround(input.at.x)) + " " + std::to_string(std::lround(input.at.y)) +
          " button " + std::to_string(static_cast<int>(input.button)) + (input.shift ? " shift" : "") +
          (input.control ? " control" : ""));
  }
  void Tell(const std::string& what, const KeyPress& press) {
    tell_(what + " " + std::to_string(static_cast<int>(press.key)) + " " +
          (press.key == Key::kCharacter ? std::string(1, press.character) : "") + (press.shift ? " shift" : "") +
          (press.control ? " control" : ""));
  }
  std::function<void(const std::string&)> tell_;
};

class EveryForm : public Form {
 public:
  EveryForm(FormHost& host, std::vector<std::string>& log)
      : Form(host, "frmEvery",
             [&log](const std::string& routine, const RunTimeError& error) {
               log.push_back(routine + ": error " + std::to_string(error.Number()));
             }),
        probe(*this, [&log](const std::string& what) { log.push_back(what); }) {
    label.SetCaption("Name"), wrapped.SetCaption("Several words"), frame.SetCaption("Choice"), check.SetCaption("Grid"),
        go.SetCaption("Go"), leave.SetCaption("Leave");
    wrapped.SetWordWrap(true), wrapped.SetBorderStyle(0), wrapped.SetTextAlign(Align::kRight), elided.SetElided(true),
        elided.SetCaption("Long"), elided.SetToolTipText("Long"), elided.SetTextAlign(Align::kCenter);
    go.SetDefault(true), leave.SetCancel(true), lines.SetMultiLine(true), fixed.SetReadOnly(true),
        swatch.SetBackColor({1, 2, 3});
    lines.SetText("one\r\ntwo"), fixed.SetText("fixed"), name.SetToolTipText("<b>tip</b>"), go.SetToolTipText("plain"),
        bar.SetRange(10, 20), bar.SetValue(12.5);
    for (const char* item : {"one", "two", "three", "four"}) combo.AddItem(item);
    combo.SetAvailable({true, false, true, true}), scroll.SetMaximum(-30), upDown.SetBuddy(&scale),
        upDown.SetSyncBuddy(true);
    SetLayout(Column({Row({Cell(label), Cell(name, 1)}), Cell(wrapped), Cell(elided),
                      Group(frame, Row({Cell(combo), Cell(check), Cell(swatch)})),
                      Row({Cell(mask), Cell(scale), Cell(upDown), Cell(fixed)}), Cell(lines), Cell(slider),
                      Cell(scroll), Cell(bar), Cell(probe), Row({Space(), Cell(go), Cell(leave)})}));
    const auto tell = [&log](Event& event, const std::string& entry) {
      event = {entry, [&log, entry] { log.push_back(entry); }};
    };
    tell(name.change, "name"), tell(name.lostFocus, "name left"), tell(combo.click, "combo"),
        tell(check.click, "check"), tell(mask.change, "mask"), tell(lines.change, "lines"),
        tell(slider.change, "slider"), tell(scroll.change, "scroll");
    tell(go.click, "go"), tell(helpRequested, "help"), tell(swatch.click, "swatch"),
        leave.click = {"leave", [this] { Unload(); }};
  }
  Label label{*this, "lblName"};
  TextBox name{*this, "txtName"};
  Label wrapped{*this, "lblWrapped"}, elided{*this, "lblElided"};
  Frame frame{*this, "fraChoice"};
  ComboBox combo{*this, "cboChoice"};
  CheckBox check{*this, "chkGrid"};
  PictureBox swatch{*this, "picSwatch"};
  MaskEdBox mask{*this, "mebTime", "##:##:##"};
  TextBox scale{*this, "txtScale"}, fixed{*this, "txtFixed"}, lines{*this, "txtLines"};
  UpDown upDown{*this, "updScale"};
  Slider slider{*this, "sldDivision"};
  HScrollBar scroll{*this, "hsbGraph"};
  ProgressBar bar{*this, "prgBar"};
  CommandButton go{*this, "cmdGo"}, leave{*this, "cmdLeave"};
  Probe probe;
};

}  // namespace chartproject
