// Filling the acquisition dialog as a user would: choosing in lists, typing in fields, pressing buttons.
#include "host/arguments/acquire_request.h"

#include <functional>

#include "acquire/dialog/input_rules.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"
#include "drive/unit_codes.h"
#include "host/arguments/command.h"
#include "recording/file/trigger_events.h"

namespace chartproject {

namespace {

class FormFiller {
 public:
  FormFiller(AcquireForm& form, const AcquireRequest& request, Component& component, const ConsoleDialogs& boxes)
      : form_(form), request_(request), component_(component), boxes_(boxes) {}

  void Fill() {
    form_.file.rtfFileName.SetText(request_.fileName);
    // A file that is already there brings its own settings along; the recording is to be the one that was asked for.
    form_.cmdReset.Press();
    if (!request_.address.empty()) ChooseDrive();
    CheckDriver();
    ChooseParameters();
    if (request_.every) TypeTime();
    if (!request_.points.empty()) Type("--points", form_.timing.txtNumberOfPoints, request_.points);
    if (!request_.trigger.empty()) ChooseTrigger();
  }

  void Press() {
    CommandButton& button = request_.trigger.empty() ? form_.panel.cmdStart : form_.panel.cmdTrigger;
    if (!button.EffectivelyVisible()) throw RefusedError(form_.panel.lblHint.Caption());
    const std::uint32_t before = form_.Run().Serial();
    Asked("the recording", [&] { button.Press(); });
    // Esc while the points of an interrupted recording were saved: nothing was started, and the user knows it.
    if (form_.Run().Serial() == before) throw RefusedError("the recording was not started");
  }

 private:
  /// Runs a step; a message box that it brings up is a refusal whose text the user has just read.
  void Asked(const std::string& what, const std::function<void()>& step) {
    const int boxes = boxes_.Count();
    const int errors = boxes_.ErrorCount();
    step();
    if (boxes_.Count() == boxes || form_.Run().Active()) return;
    if (boxes_.ErrorCount() > errors) throw StepFailed(what + " failed");
    throw RefusedError(what + " was refused");
  }

  void Type(const std::string& option, TextControl& field, const std::string& text) {
    Asked(option, [&] { field.SetText(text); });
    if (field.Text() != text) throw RefusedError(option + ": \"" + text + "\" is not accepted");
  }

  static int Find(const std::string& option, const ComboBox& list, const std::string& item,
                  const std::string& refusal) {
    for (int index = 0; index < list.ListCount(); ++index) {
      if (list.List(index) == item) return index;
    }
    throw RefusedError(option + ": " + refusal);
  }

  void Choose(const std::string& option, ComboBox& list, const std::string& item, const std::string& refusal) {
    const int index = Find(option, list, item, refusal);
    Asked(option, [&] { list.SetListIndex(index); });
  }

  void ChooseDrive() {
    const std::string address = FormatDigits(ParseNumber(request_.address, "--address", 0, kLastDriveAddress), 2);
    form_.drive.cboDriveAddress.SetListIndex(
        Find("--address", form_.drive.cboDriveAddress, address, "there is no drive " + address));
  }

  /// A driver file may have faulty lines and be good for the rest; one that cannot be used leaves the lists empty.
  void CheckDriver() const {
    const std::string drive = form_.drive.cboDriveAddress.Text();
    if (drive.empty() || form_.drive.cboPXXX1.ListCount() > 0) return;
    const std::string file = DriverFileName(component_, CheckedInteger16(std::stoi(drive)));
    const bool there = component_.ports.files.FileExists(file);
    throw StepFailed("drive " + drive + ": " +
                     (there ? "the driver file " + file + " gives no parameters" : "there is no driver file " + file));
  }

  void ChooseParameters() {
    Choose("--parameters", form_.drive.cboNumberOfParameters, std::to_string(request_.parameters.size()),
           "one to four parameters are recorded");
    const std::array lists{&form_.drive.cboPXXX1, &form_.drive.cboPXXX2, &form_.drive.cboPXXX3, &form_.drive.cboPXXX4};
    for (std::size_t column = 0; column < request_.parameters.size(); ++column) {
      ChooseParameter("--parameters", *lists[column], request_.parameters[column]);
    }
  }

  void ChooseParameter(const std::string& option, ComboBox& list, const std::string& text) {
    const int parameter = ParseParameter(text, option);
    if (parameter == kUnusedParameter) {
      throw RefusedError(option + ": 999 marks a column that is not in use; it cannot be recorded");
    }
    const std::string number = ParameterDigits(parameter);
    const std::string drive = form_.drive.cboDriveAddress.Text();
    Choose(option, list, number,
           drive.empty() ? "choose a drive with --address first" : "drive " + drive + " has no parameter P" + number);
  }

  void TypeTime() {
    const TimeBetweenPoints& every = *request_.every;
    Asked("--every", [&] { form_.timing.cboTimeBetweenPointsUnit.SetListIndex(static_cast<int>(every.unit)); });
    TextControl& field = every.unit == TimeUnit::kClockTime
                             ? static_cast<TextControl&>(form_.timing.mebTimeBetweenPoints)
                             : form_.timing.txtTimeBetweenPoints;
    field.SetFocus();
    Type("--every", field, every.text);
    // Some rules are settled on leaving the field.
    Asked("--every", [&] { form_.timing.txtNumberOfPoints.SetFocus(); });
  }

  void ChooseTrigger() {
    const TriggerEvent event = EventOfCode(request_.trigger);
    if (event == TriggerEvent::kNone) throw RefusedError("--trigger: there is no event \"" + request_.trigger + "\"");
    form_.trigger.cboTriggerMode.SetListIndex(static_cast<int>(TriggerMode::kEvent));
    Asked("--trigger", [&] { form_.trigger.cboEvent.SetListIndex(PositionOf(event)); });
    if (!IsCompareEvent(event)) return;
    ChooseParameter("--compare", form_.trigger.cboPXXX, request_.compare);
    if (!request_.content.empty()) Type("--content", form_.trigger.txtContent, request_.content);
  }

  AcquireForm& form_;
  const AcquireRequest& request_;
  Component& component_;
  const ConsoleDialogs& boxes_;
};

}  // namespace

void FillAndStart(AcquireForm& form, const AcquireRequest& request, Component& component, const ConsoleDialogs& boxes) {
  FormFiller filler(form, request, component, boxes);
  filler.Fill();
  filler.Press();
}

}  // namespace chartproject
