// How many points a recording has, and the time between them.
#pragma once

#include <optional>

#include "acquire/dialog/drive_section.h"
#include "acquire/dialog/file_section.h"
#include "acquire/dialog/input_rules.h"

namespace chartproject {

/// Each new text of a field is accepted, corrected, or replaced by the last accepted one.
class TimingSection : public Section {
 public:
  /// @param file, drive the sections whose disk and columns the points need; they outlive this one
  TimingSection(Form& form, Component& component, const FileSection& file, const DriveSection& drive,
                std::function<void()> changed);

  PictureBox picTime{form_, "picTime"};
  Label lblNumberOfPoints{form_, "lblNumberOfPoints"};
  TextBox txtNumberOfPoints{form_, "txtNumberOfPoints"};
  Label lblNumberOfPointsRange{form_, "lblNumberOfPointsRange"};
  Label lblTimeBetweenPoints{form_, "lblTimeBetweenPoints"};
  TextBox txtTimeBetweenPoints{form_, "txtTimeBetweenPoints"};
  MaskEdBox mebTimeBetweenPoints{form_, "mebTimeBetweenPoints", "##:##:##"};
  ComboBox cboTimeBetweenPointsUnit{form_, "cboTimeBetweenPointsUnit"};
  Label lblTimeBetweenPointsRange{form_, "lblTimeBetweenPointsRange"};
  CommandButton cmdTimePoint{form_, "cmdTimePoint"};  ///< reads a point to see how long it takes

  [[nodiscard]] LayoutBox Layout();
  /// Shows the texts of the button that has no number, in the user's language.
  void Translate();
  void Reset();
  void ShowHeader(const ChartHeader& header);
  /// The points' part of a recording's plan and of its header.
  void FillPlan(RunPlan& plan) const;
  void FillHeader(ChartHeader& header) const;
  /// Checks the number of points again, because the size of the file changed with the number of parameters.
  void CheckPoints() { txtNumberOfPoints_Change(); }
  /// True for the unit hh:mm:ss, whose points a stopwatch spaces.
  [[nodiscard]] bool SpacedByStopwatch() const;
  /// Length and size of the recording that the fields describe; empty while one of them is not acceptable.
  [[nodiscard]] std::string Estimate() const;
  /// The hint that keeps Start away, if any.
  [[nodiscard]] std::optional<std::string> Missing() const;
  /// Checks all fields once more before a start. False after a box that gives the reason.
  [[nodiscard]] bool Holds();

 private:
  [[nodiscard]] std::optional<TimeUnit> Unit() const;
  [[nodiscard]] TextControl& TimeField();
  [[nodiscard]] NumberCheck CheckTime(const std::string& text) const;
  [[nodiscard]] std::int64_t MillisecondsBetweenPoints() const;
  [[nodiscard]] bool RoomFor(std::int32_t points) const;
  [[nodiscard]] bool PointsHold();
  [[nodiscard]] bool TimeRefusedJustNow() const;
  [[nodiscard]] bool CheckMaskedTime();
  void PutBack(TextControl& field, const std::string& text);
  void Round(TextControl& field, const NumberCheck& check);
  void SetUpTimeFields();
  void txtNumberOfPoints_Change();
  void txtNumberOfPoints_LostFocus();
  void txtTimeBetweenPoints_Change();
  void txtTimeBetweenPoints_LostFocus();
  void mebTimeBetweenPoints_Change();
  void mebTimeBetweenPoints_LostFocus();
  void cboTimeBetweenPointsUnit_Click();

  const FileSection& file_;
  const DriveSection& drive_;
  std::string lastAcceptedPoints_;
  std::string lastAcceptedTime_;
  RoundedEntry pointsEntry_;
  RoundedEntry timeEntry_;
  std::optional<Instant> timeRefusedAt_;  ///< when the box of a refused hh:mm:ss time was closed
  bool puttingBack_ = false;              ///< an accepted text comes back; it is not refused again
  bool emptyingTime_ = false;             ///< the ms rule empties the field; nothing is put back
};

}  // namespace chartproject
