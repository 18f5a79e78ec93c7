// frmChart, the chart window: one chart file, a slice of it as a chart, and the controls that change what is shown.
// Its body is split by subject: chart_form.cpp (life), _layout (places), _file (opening, slices), _scroll (scroll bar,
// slider, keys), _switches (scales, type, grid, lines, markers), _readout (pointer, cursors), _output (print, export).
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/file/chart_source.h"
#include "chart/output/chart_page.h"
#include "chart/window/chart_control.h"
#include "chart/window/readout.h"
#include "common/environment/language.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "recording/component.h"

namespace chartproject {

class ChartForm : public Form {
 public:
  /// @param component outlives the form
  explicit ChartForm(Component& component);
  ~ChartForm() override;

  // Controls, in tab order. ------------------------------------------------------------------------------------------
  RichTextBox rtfInfo{*this, "rtfInfo"};
  Label lblPXXX1{*this, "lblPXXX1"}, lblPXXX2{*this, "lblPXXX2"}, lblPXXX3{*this, "lblPXXX3"},
      lblPXXX4{*this, "lblPXXX4"};
  Label lblPXXX1Function{*this, "lblPXXX1Function"}, lblPXXX2Function{*this, "lblPXXX2Function"},
      lblPXXX3Function{*this, "lblPXXX3Function"}, lblPXXX4Function{*this, "lblPXXX4Function"};
  PictureBox picPXXX1{*this, "picPXXX1"}, picPXXX2{*this, "picPXXX2"}, picPXXX3{*this, "picPXXX3"},
      picPXXX4{*this, "picPXXX4"};
  ChartControl mscChart1{*this, "mscChart1"};
  HScrollBar hsbGraph{*this, "hsbGraph"};
  Label lblPointsPerDivision{*this, "lblPointsPerDivision"};
  Slider sldPointsPerDivision{*this, "sldPointsPerDivision"};
  Label lblScaleMsg{*this, "lblScaleMsg"};
  TextBox txtScale1{*this, "txtScale1"};
  UpDown upd1{*this, "upd1"};
  TextBox txtScale2{*this, "txtScale2"};
  UpDown upd2{*this, "upd2"};
  TextBox txtScale3{*this, "txtScale3"};
  UpDown upd3{*this, "upd3"};
  TextBox txtScale4{*this, "txtScale4"};
  UpDown upd4{*this, "upd4"};
  CommandButton cmdUpdateChart{*this, "cmdUpdateChart"};
  Label lblChartType{*this, "lblChartType"};
  ComboBox cboChartType{*this, "cboChartType"};
  CheckBox chkGrid{*this, "chkGrid"};
  CheckBox chkLine{*this, "chkLine"};
  CheckBox chkMarker{*this, "chkMarker"};
  CommandButton cmdExport{*this, "cmdExport"};
  CommandButton cmdPrint{*this, "cmdPrint"};
  CommandButton cmdOK{*this, "cmdOK"};
  Label lblStatus{*this, "lblStatus"};  ///< how far a long reading is

  /// Reads the header, checks the drive, finds the points and shows the first slice. An error is logged and shown.
  /// False when nothing can be shown: then the window is not worth showing either.
  bool OpenFile(const std::string& strFileName);

  /// Check boxes and chart type as they were when a chart window was closed last.
  void ApplySavedSwitches();

  /// The user left the window by its print button.
  [[nodiscard]] bool PrintRequested() const noexcept { return printRequested_; }
  /// What the printed page shows of the window.
  [[nodiscard]] ChartPage DescribePage(Bitmap picture) const;

  // The slice shown. -------------------------------------------------------------------------------------------------
  [[nodiscard]] std::int32_t SliceStartLine() const noexcept { return sliceStart_; }
  [[nodiscard]] std::int32_t SliceEndLine() const noexcept { return sliceEnd_; }
  [[nodiscard]] std::int16_t PointsPerDivision() const noexcept { return pointsPerDivision_; }
  [[nodiscard]] const ChartSource& Source() const noexcept { return source_; }

 protected:
  void OnLoad() override;
  void OnActivate() override;
  bool OnQueryClose() override;
  void OnUnload() override;

 private:
  /// The controls of one series.
  struct SeriesControls {
    PictureBox* swatch;
    Label* number;
    Label* function;
    TextBox* scale;
    UpDown* arrows;
  };

  // Life (chart_form.cpp).
  void NumberTexts();
  void Connect();
  void LoadPictures();
  void RestorePlace();
  void SavePlace();
  void cmdOK_Click();
  [[nodiscard]] const std::array<SeriesControls, kColumnCount>& Series() const noexcept { return series_; }

  // Places (chart_form_layout.cpp).
  void PlaceControls();

  // Opening and slices (chart_form_file.cpp).
  [[nodiscard]] bool DriveIsKnown() const;
  void ShowFile(const std::string& strFileName);
  void LoadParameterNames();
  void LabelSeries();
  /// Reads the slice and shows it. False when the chart stays as it was.
  bool LoadSlice();
  /// Whether points were seen behind those that the header names.
  [[nodiscard]] bool GoesOnBehindItsHeader() const;
  /// Lets the scroll bar and its like reach them.
  void TakeFurtherPointsIn();
  [[nodiscard]] SliceReading ReadVisibleSlice();
  void ShowSlice(Slice slice);
  void FillInfoBox();
  void ReportMalformedLine(const SliceReading& reading);
  /// Runs a reading that may take long; its progress function is ShowReadingProgress.
  void WhileReading(const std::function<void()>& work);
  /// Hourglass and text, once it takes long enough to be noticed; false when the user gave the reading up.
  bool ShowReadingProgress(double part);
  void ShowHourglass();
  void EndReading();
  [[nodiscard]] std::int32_t LengthOfSlice() const;

  // Scroll bar, slider, keys (chart_form_scroll.cpp).
  void PrepareScrollBar();
  void ReturnToShownSlice();
  void hsbGraph_Change();
  void sldPointsPerDivision_Change();
  void ShowPointsPerDivision();
  void ScrollTo(std::int64_t startLine);
  void ScrollToEnd();
  bool ScrollByKey(Key key);

  // Scales, type, switches (chart_form_switches.cpp).
  void PrepareScales();
  [[nodiscard]] std::array<std::int16_t, kColumnCount> ReadScales() const;
  bool CheckScale(const SeriesControls& series);
  void EnableUpdate();
  void cmdUpdateChart_Click();
  void cboChartType_Click();
  void chkGrid_Click();
  void chkLine_Click();
  void chkMarker_Click();

  // Pointer and cursors (chart_form_readout.cpp).
  [[nodiscard]] std::vector<std::string> SeriesNames() const;
  void mscChart1_PointerRowChanged();
  void mscChart1_CursorsChanged();
  void ShowCursorReadout();
  void ForgetCursors();

  // Print and export (chart_form_output.cpp).
  void cmdPrint_Click();
  void cmdExport_Click();

  Component& component_;
  std::array<SeriesControls, kColumnCount> series_;
  ChartSource source_;
  Slice slice_;                       ///< as shown
  std::vector<std::string> notices_;  ///< what is to be said about the file as a whole
  std::array<std::string, kColumnCount> functionNames_;
  std::array<std::optional<PointReading>, 2> cursors_;
  std::int32_t points_ = 0;  ///< N, or what the file was found to hold
  bool allLinesCounted_ = false;
  int seriesCount_ = 0;  ///< P
  std::int32_t sliceStart_ = 0;
  std::int32_t sliceEnd_ = 0;
  std::int16_t pointsPerDivision_ = 1;  ///< D
  std::int16_t shownPointsPerDivision_ = 1;
  bool printRequested_ = false;
  bool settingScrollBar_ = false;  ///< the window itself moves the bar
  bool readingDeferred_ = false;   ///< the caller reads the slice when all is set
  bool walkingDown_ = false;       ///< the slider is stepped back to what fits

  // A reading that takes long enough to be seen.
  bool reading_ = false;
  bool progressShown_ = false;
  bool closeAfterReading_ = false;
  Instant readingBegan_{};
  Instant progressTold_{};
  MousePointer pointerBefore_ = MousePointer::kDefault;
};

}  // namespace chartproject
