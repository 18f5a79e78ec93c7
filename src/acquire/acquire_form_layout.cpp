// Which control stands where in the dialog.
#include "acquire/acquire_form.h"

namespace chartproject {

namespace {

/// Labels of this number are equally wide, so that the fields behind them begin on one line.
constexpr int kLabels = 1;

}  // namespace

void AcquireForm::PlaceControls() {
  rtfFileName.SetWidthInCharacters(40);
  for (Label* label : {&lblHint, &lblEstimate, &lblStart, &lblTrigger}) label->SetWordWrap(true);
  mebTimeBetweenPoints.SetVisible(false);
  imgTrigger1.SetVisible(false);
  picProgress.SetVisible(false);
  HideStartButtons(false);

  const auto aligned = [](Label& label) { return Aligned(kLabels, Cell(label)); };
  LayoutBox file = Group(fraFileName, Row({Cell(rtfFileName, 1), Cell(cmdNewFile), Cell(cmdBrowse)}));
  LayoutBox drive = Group(picDriveAddress, Column({Row({aligned(lblDriveAddress), Cell(cboDriveAddress, 1)}),
                                                   Row({Aligned(kLabels, Space(0)), Cell(lblDriveModel, 1)})}));
  LayoutBox parameters =
      Group(picNumberOfParameters,
            Grid(2, {Cell(lblNumberOfParameters), Row({Cell(cboNumberOfParameters), Space()}), Cell(lblParameters),
                     Row({Cell(cboPXXX1, 1), Cell(cboPXXX2, 1), Cell(cboPXXX3, 1), Cell(cboPXXX4, 1)})}));
  // The two kinds of time fields share one place, and so do Start and Trigger: only one of each is ever visible.
  LayoutBox time =
      Group(picTime,
            Column({Row({aligned(lblNumberOfPoints), Cell(txtNumberOfPoints), Cell(lblNumberOfPointsRange, 1)}),
                    Row({aligned(lblTimeBetweenPoints), Stack({Cell(txtTimeBetweenPoints), Cell(mebTimeBetweenPoints)}),
                         Cell(cboTimeBetweenPointsUnit), Cell(lblTimeBetweenPointsRange, 1)})}));
  LayoutBox mode =
      Group(picMode, Column({Row({aligned(lblTriggerMode), Cell(cboTriggerMode), Space()}),
                             Row({aligned(lblEvent), Cell(cboEvent, 1)}),
                             Row({aligned(lblPXXX), Cell(cboPXXX), Cell(lblContent), Cell(txtContent), Space()})}));
  LayoutBox words = Column({Cell(lblEstimate, 1), Stack({Cell(lblStart, 1), Cell(lblTrigger, 1), Cell(lblHint, 1)})});
  LayoutBox buttons = Row({Stack({Cell(cmdStart), Cell(cmdTrigger)}), Cell(imgTrigger1), Space(), Cell(cmdViewChart),
                           Cell(cmdReset), Cell(cmdOK)});
  LayoutBox progress = Collapsing(
      Group(picProgress, Column({Row({Cell(lblAcquiring), Cell(lblProgress, 1)}), Cell(prgProgress, 1),
                                 Row({Cell(lblRunTimes, 1), Cell(lblTimeBetweenPointsPB), Cell(lblElapsedTime)})})));
  SetLayout(Column({std::move(file), Row({std::move(drive), Stretched(std::move(parameters), 1, 0)}), std::move(time),
                    std::move(mode), std::move(words), Space(0, 1), std::move(progress), std::move(buttons)}));
}

}  // namespace chartproject
