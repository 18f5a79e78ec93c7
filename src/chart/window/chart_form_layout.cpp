// Which control is where in the chart window, and where the window is on the screen.
#include <algorithm>

#include "chart/window/chart_form.h"
#include "common/stored_place.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

constexpr double kSwatchSize = 16;
constexpr double kInfoWidth = 300;
constexpr double kInfoHeight = 172;
constexpr double kNameWidth = 200;
/// Share of the height that is left over, beside the chart's 1: a larger window shows more of the text.
constexpr double kInfoShare = 0.15;
/// Room for four digits more, so that nothing moves while the slider does.
constexpr double kPointsPerDivisionWidth = 190;
/// Room for the longest status.
constexpr double kStatusWidth = 270;
constexpr int kScaleCharacters = 6;

/// Size of the window before the user gave it another.
constexpr double kFirstWidth = 1000 * kTwipsPerPixel;
constexpr double kFirstHeight = 700 * kTwipsPerPixel;

}  // namespace

void ChartForm::PlaceControls() {
  reading.lblStatus.SetTextAlign(Align::kRight);
  rtfInfo.SetReadOnly(true);
  rtfInfo.SetMultiLine(true);
  std::vector<LayoutBox> cells;
  for (std::size_t s = 0; s < series.rows.size(); ++s) {
    const SeriesSection::Row& name = series.rows[s];
    const ScaleSection::Row& scale = scales.rows[s];
    scale.text->SetWidthInCharacters(kScaleCharacters);
    name.function->SetElided(true);
    cells.push_back(AtLeast(Cell(*name.swatch), kSwatchSize, kSwatchSize));
    cells.push_back(Cell(*name.number));
    cells.push_back(AtLeast(Cell(*name.function, 1), kNameWidth));
    cells.push_back(Joined(Row({Cell(*scale.text), Cell(*scale.arrows)})));
  }
  LayoutBox legend =
      Column({Grid(4, std::move(cells)), Row({Space(), Cell(scales.lblScaleMsg), Cell(scales.cmdUpdateChart)})});
  LayoutBox top =
      Row({AtLeast(Cell(rtfInfo, 1, kInfoShare), kInfoWidth, kInfoHeight), Stretched(std::move(legend), 0, 0)});
  LayoutBox division = Row({AtLeast(Cell(scroll.lblPointsPerDivision), kPointsPerDivisionWidth),
                            Cell(scroll.sldPointsPerDivision, 1), AtLeast(Cell(reading.lblStatus), kStatusWidth)});
  LayoutBox bottom =
      Row({Cell(switches.lblChartType), Cell(switches.cboChartType), Cell(switches.chkGrid), Cell(switches.chkLine),
           Cell(switches.chkMarker), Space(), Cell(output.cmdExport), Cell(output.cmdPrint), Cell(output.cmdOK)});
  SetLayout(Column({std::move(top), Cell(mscChart1, 1, 1), Collapsing(Cell(overview.ovwRecording, 1)),
                    Collapsing(Cell(scroll.hsbGraph, 1)), Collapsing(std::move(division)), std::move(bottom)}));
}

void ChartForm::RestorePlace() {
  const auto stored = [this](std::string_view key, double otherwise) {
    return StoredTwips(component_, Name(), key, otherwise);
  };
  const Size screen = component_.forms.ScreenSize();
  SetWidth(std::clamp(stored("Width", kFirstWidth), 0.0, screen.width));
  SetHeight(std::clamp(stored("Height", kFirstHeight), 0.0, screen.height));
  SetLeft(std::clamp(stored("Left", (screen.width - Width()) / 2), 0.0, screen.width - Width()));
  SetTop(std::clamp(stored("Top", (screen.height - Height()) / 2), 0.0, screen.height - Height()));
  if (component_.ports.settings.Read(Name(), "Maximized") == "Yes") SetState(WindowState::kMaximized);
}

void ChartForm::SavePlace() {
  SettingsStore& store = component_.ports.settings;
  store.Write(Name(), std::array{StoredSetting{"Maximized", State() == WindowState::kMaximized ? "Yes" : "No"}});
  if (State() != WindowState::kNormal) return;  // the place to go back to is the one stored before
  store.Write(Name(),
              std::array{StoredSetting{"Left", WholeTwips(Left())}, StoredSetting{"Top", WholeTwips(Top())},
                         StoredSetting{"Width", WholeTwips(Width())}, StoredSetting{"Height", WholeTwips(Height())}});
}

}  // namespace chartproject
