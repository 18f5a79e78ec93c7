// Which control stands where in the chart window.
#include "chart/window/chart_form.h"

namespace chartproject {
namespace {

constexpr double kSwatchSize = 16;
constexpr double kInfoWidth = 300;
constexpr double kInfoHeight = 172;
constexpr double kNameWidth = 200;
/// Share of the height that is left over: the box is as high as its row, but the chart takes the rest.
constexpr double kFillsItsRow = 1e-6;
/// Room for four digits more, so that nothing moves while the slider does.
constexpr double kPointsPerDivisionWidth = 190;
/// Room for the longest status.
constexpr double kStatusWidth = 270;
constexpr int kScaleCharacters = 6;

}  // namespace

void ChartForm::PlaceControls() {
  lblStatus.SetTextAlign(Align::kRight);
  rtfInfo.SetReadOnly(true);
  rtfInfo.SetMultiLine(true);
  std::vector<LayoutBox> cells;
  for (const SeriesControls& series : series_) {
    series.scale->SetWidthInCharacters(kScaleCharacters);
    cells.push_back(AtLeast(Cell(*series.swatch), kSwatchSize, kSwatchSize));
    cells.push_back(Cell(*series.number));
    cells.push_back(AtLeast(Cell(*series.function, 1), kNameWidth));
    cells.push_back(Joined(Row({Cell(*series.scale), Cell(*series.arrows)})));
  }
  LayoutBox legend = Column({Grid(4, std::move(cells)), Row({Space(), Cell(lblScaleMsg), Cell(cmdUpdateChart)})});
  LayoutBox top =
      Row({AtLeast(Cell(rtfInfo, 1, kFillsItsRow), kInfoWidth, kInfoHeight), Stretched(std::move(legend), 0, 0)});
  LayoutBox division = Row({AtLeast(Cell(lblPointsPerDivision), kPointsPerDivisionWidth), Cell(sldPointsPerDivision, 1),
                            AtLeast(Cell(lblStatus), kStatusWidth)});
  LayoutBox bottom = Row({Cell(lblChartType), Cell(cboChartType), Cell(chkGrid), Cell(chkLine), Cell(chkMarker),
                          Space(), Cell(cmdExport), Cell(cmdPrint), Cell(cmdOK)});
  SetLayout(Column({std::move(top), Cell(mscChart1, 1, 1), Cell(hsbGraph, 1), std::move(division), std::move(bottom)}));
}

}  // namespace chartproject
