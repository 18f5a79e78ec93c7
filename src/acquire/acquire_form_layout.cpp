// Which control stands where in the dialog.
#include "acquire/acquire_form.h"

namespace chartproject {

void AcquireForm::PlaceControls() {
  rtfFileName.SetWidthInCharacters(40);
  lblHint.SetWordWrap(true);
  lblEstimate.SetWordWrap(true);
  lblStart.SetWordWrap(true);
  lblTrigger.SetWordWrap(true);
  mebTimeBetweenPoints.SetVisible(false);
  imgTrigger1.SetVisible(false);
  picProgress.SetVisible(false);
  HideStartButtons(false);

  // Start and Trigger, and the two kinds of time fields, share one place: only one of each pair is ever visible.
  const auto startPair = [this] {
    return Row({Stack({Cell(cmdStart), Cell(cmdTrigger)}),
                Stretched(Stack({Cell(lblStart, 1), Cell(lblTrigger, 1)}), 1, 0), Cell(imgTrigger1)});
  };
  LayoutBox file = Group(fraFileName, Row({Cell(rtfFileName, 1), Cell(cmdNewFile), Cell(cmdBrowse)}));
  LayoutBox drive = Group(picDriveAddress, Row({Cell(lblDriveAddress), Cell(cboDriveAddress), Cell(lblDriveModel, 1)}));
  LayoutBox parameters = Group(
      picNumberOfParameters,
      Column({Row({Cell(lblNumberOfParameters), Cell(cboNumberOfParameters), Space()}),
              Row({Cell(lblParameters), Cell(cboPXXX1), Cell(cboPXXX2), Cell(cboPXXX3), Cell(cboPXXX4), Space()})}));
  LayoutBox time = Group(
      picTime, Grid(4, {Cell(lblNumberOfPoints), Cell(txtNumberOfPoints), Space(0), Cell(lblNumberOfPointsRange, 1),
                        Cell(lblTimeBetweenPoints), Stack({Cell(txtTimeBetweenPoints), Cell(mebTimeBetweenPoints)}),
                        Cell(cboTimeBetweenPointsUnit), Cell(lblTimeBetweenPointsRange, 1)}));
  LayoutBox mode = Group(
      picMode,
      Column({Row({Cell(lblTriggerMode), Cell(cboTriggerMode), Space()}), Row({Cell(lblEvent), Cell(cboEvent, 1)}),
              Row({Cell(lblPXXX), Cell(cboPXXX), Cell(lblContent), Cell(txtContent), Space()})}));
  LayoutBox buttons = Row({Space(), Cell(cmdViewChart), Cell(cmdReset), Cell(cmdOK)});
  LayoutBox progress = Collapsing(
      Group(picProgress, Column({Row({Cell(lblAcquiring), Cell(lblProgress, 1)}), Cell(prgProgress, 1),
                                 Row({Cell(lblRunTimes, 1), Cell(lblTimeBetweenPointsPB), Cell(lblElapsedTime)})})));
  SetLayout(Column({std::move(file), std::move(drive), std::move(parameters), std::move(time), std::move(mode),
                    Cell(lblHint, 1), Cell(lblEstimate, 1), startPair(), Space(0, 1), std::move(buttons),
                    std::move(progress)}));
}

}  // namespace chartproject
