// The arithmetic of the layout: widths first, then the heights that these widths ask for, then the places.
#include "forms/layout.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "forms/control.h"

namespace chartproject {

namespace {

using Kind = LayoutBox::Kind;

/// One line of boxes along an axis: their least lengths and their shares of what is left over.
struct Track {
  double length = 0;
  double stretch = 0;
  bool absent = true;  ///< no box in it takes room, so it takes no gap either

  void Include(double boxLength, double boxStretch) {
    length = std::max(length, boxLength);
    stretch = std::max(stretch, boxStretch);
    absent = false;
  }
};

double GapsOf(const std::vector<Track>& tracks, double gap) {
  const auto present = std::count_if(tracks.begin(), tracks.end(), [](const Track& track) { return !track.absent; });
  return present > 1 ? static_cast<double>(present - 1) * gap : 0;
}

double LengthOf(const std::vector<Track>& tracks, double gap) {
  return std::accumulate(tracks.begin(), tracks.end(), GapsOf(tracks, gap),
                         [](double sum, const Track& track) { return sum + track.length; });
}

/// Gives what is left over of `room` to the tracks that stretch. A room too small leaves them as they are.
void ShareOut(std::vector<Track>& tracks, double gap, double room) {
  const double rest = room - LengthOf(tracks, gap);
  const double shares = std::accumulate(tracks.begin(), tracks.end(), 0.0,
                                        [](double sum, const Track& track) { return sum + track.stretch; });
  if (rest <= 0 || shares <= 0) return;
  for (Track& track : tracks) track.length += rest * track.stretch / shares;
}

/// Where each track begins.
std::vector<double> StartsOf(const std::vector<Track>& tracks, double gap, double origin) {
  std::vector<double> starts;
  starts.reserve(tracks.size());
  for (const Track& track : tracks) {
    starts.push_back(origin);
    if (!track.absent) origin += track.length + gap;
  }
  return starts;
}

bool AnyVisible(const LayoutBox& box) {
  if (box.control != nullptr) return box.control->Visible();
  return std::any_of(box.children.begin(), box.children.end(), AnyVisible);
}

bool IsGroup(const LayoutBox& box) {
  return box.control != nullptr && !box.children.empty();
}

/// The column (or row) of each child: what its box is made of decides how children line up.
struct Cells {
  std::size_t columns;
  std::size_t rows;
};

Cells CellsOf(const LayoutBox& box) {
  const std::size_t count = box.children.size();
  switch (box.kind) {
    case Kind::kRow:
      return {count, count == 0 ? 0U : 1U};
    case Kind::kColumn:
      return {count == 0 ? 0U : 1U, count};
    case Kind::kGrid: {
      const auto columns = static_cast<std::size_t>(std::max(box.columns, 1));
      return {columns, (count + columns - 1) / columns};
    }
    default:
      return {1, 1};  // a stack: all children in one cell
  }
}

class Arranger {
 public:
  Arranger(const LayoutBox& layout, const ControlMeasurer& measurer)
      : measurer_(measurer), gapShare_(measurer.GapShare()) {
    Align(layout);
    aligned_ = true;
  }

  bool Absent(const LayoutBox& box);
  double LeastWidth(const LayoutBox& box);
  double HeightAt(const LayoutBox& box, double width);
  void Place(const LayoutBox& box, const Rect& area);

 private:
  void Align(const LayoutBox& box);
  double Stretch(const LayoutBox& box, double LayoutBox::*share);
  double OwnLeastWidth(const LayoutBox& box);
  const Size& PreferredSize(const Control& control);
  std::vector<Track> ColumnsOf(const LayoutBox& box);
  std::vector<Track> RowsOf(const LayoutBox& box, const std::vector<Track>& columns);
  void PlaceControl(const LayoutBox& box, const Rect& area);
  [[nodiscard]] double GapOf(const LayoutBox& box) const { return box.gap * gapShare_; }
  static void PlaceNowhere(const LayoutBox& box);

  const ControlMeasurer& measurer_;
  const double gapShare_;
  bool aligned_ = false;
  /// What is asked once an arrangement: each box asks for those of all boxes in it.
  std::unordered_map<const Control*, Size> sizes_;
  std::unordered_map<const LayoutBox*, bool> absent_;
  std::unordered_map<const LayoutBox*, double> widths_;
  std::unordered_map<const LayoutBox*, double> stretchX_, stretchY_;
  std::unordered_map<int, double> alignments_;  ///< common widths by number
};

/// True when a box gives its room away.
bool Arranger::Absent(const LayoutBox& box) {
  if (box.kind == Kind::kSpace) return false;
  const auto [at, unknown] = absent_.try_emplace(&box, false);
  bool& absent = at->second;
  if (!unknown) return absent;
  if (box.control != nullptr || box.collapses) return absent = box.collapses && !AnyVisible(box);
  const auto isSpace = [](const LayoutBox& child) { return child.kind == Kind::kSpace; };
  if (std::ranges::all_of(box.children, isSpace)) return absent;
  return absent =
             std::ranges::all_of(box.children, [&](const LayoutBox& child) { return isSpace(child) || Absent(child); });
}

/// A box stretches by its own share, or else as the most stretching of its children does.
double Arranger::Stretch(const LayoutBox& box, double LayoutBox::*share) {
  auto& known = share == &LayoutBox::stretchX ? stretchX_ : stretchY_;
  const auto [at, unknown] = known.try_emplace(&box, box.*share);
  double& most = at->second;
  if (!unknown || most > 0) return most;
  for (const LayoutBox& child : box.children) {
    if (!Absent(child)) most = std::max(most, Stretch(child, share));
  }
  return most;
}

/// Children come first: a box that is aligned may hold others that are.
void Arranger::Align(const LayoutBox& box) {
  for (const LayoutBox& child : box.children) Align(child);
  if (box.alignment == 0 || Absent(box)) return;
  double& common = alignments_[box.alignment];
  common = std::max(common, LeastWidth(box));
}

const Size& Arranger::PreferredSize(const Control& control) {
  const auto found = sizes_.find(&control);
  if (found != sizes_.end()) return found->second;
  return sizes_.emplace(&control, measurer_.PreferredSize(control)).first->second;
}

std::vector<Track> Arranger::ColumnsOf(const LayoutBox& box) {
  const Cells cells = CellsOf(box);
  std::vector<Track> columns(cells.columns);
  for (std::size_t i = 0; i < box.children.size(); ++i) {
    const LayoutBox& child = box.children[i];
    if (Absent(child)) continue;
    columns[i % cells.columns].Include(LeastWidth(child), Stretch(child, &LayoutBox::stretchX));
  }
  // The only column of a column or stack is as wide as its box.
  if (box.kind == Kind::kColumn || box.kind == Kind::kStack) {
    for (Track& column : columns) column.stretch = 1;
  }
  return columns;
}

std::vector<Track> Arranger::RowsOf(const LayoutBox& box, const std::vector<Track>& columns) {
  const Cells cells = CellsOf(box);
  std::vector<Track> rows(cells.rows);
  for (std::size_t i = 0; i < box.children.size(); ++i) {
    const LayoutBox& child = box.children[i];
    if (Absent(child)) continue;
    rows[i / cells.columns % cells.rows].Include(HeightAt(child, columns[i % cells.columns].length),
                                                 Stretch(child, &LayoutBox::stretchY));
  }
  if (box.kind == Kind::kRow || box.kind == Kind::kStack) {
    for (Track& row : rows) row.stretch = 1;
  }
  return rows;
}

double Arranger::LeastWidth(const LayoutBox& box) {
  if (!aligned_) return OwnLeastWidth(box);  // the common widths still grow
  const auto found = widths_.find(&box);
  return found != widths_.end() ? found->second : widths_[&box] = OwnLeastWidth(box);
}

double Arranger::OwnLeastWidth(const LayoutBox& box) {
  double width = 0;
  if (IsGroup(box)) {
    const Insets insets = measurer_.ContainerInsets(*box.control);
    width = std::max(LeastWidth(box.children.front()) + insets.left + insets.right, PreferredSize(*box.control).width);
  } else if (box.control != nullptr) {
    width = PreferredSize(*box.control).width;
  } else {
    width = LengthOf(ColumnsOf(box), GapOf(box));
  }
  if (box.alignment != 0) width = std::max(width, alignments_[box.alignment]);
  return std::max(width, box.minimumWidth);
}

double Arranger::HeightAt(const LayoutBox& box, double width) {
  double height = 0;
  if (IsGroup(box)) {
    const Insets insets = measurer_.ContainerInsets(*box.control);
    height = HeightAt(box.children.front(), width - insets.left - insets.right) + insets.top + insets.bottom;
  } else if (box.control != nullptr) {
    height = measurer_.HeightForWidth(*box.control, width);
  } else {
    std::vector<Track> columns = ColumnsOf(box);
    ShareOut(columns, GapOf(box), width);
    height = LengthOf(RowsOf(box, columns), GapOf(box));
  }
  return std::max(height, box.minimumHeight);
}

void Arranger::PlaceControl(const LayoutBox& box, const Rect& area) {
  if (IsGroup(box)) {
    const Insets insets = measurer_.ContainerInsets(*box.control);
    box.control->SetPlace(area);
    Place(box.children.front(),
          {insets.left, insets.top, area.width - insets.left - insets.right, area.height - insets.top - insets.bottom});
    return;
  }
  Rect place = area;
  if (box.stretchY <= 0) {  // a control keeps its height and is centred in its row
    place.height = std::min(HeightAt(box, area.width), area.height);
    place.y += (area.height - place.height) / 2;
  }
  box.control->SetPlace(place);
}

void Arranger::PlaceNowhere(const LayoutBox& box) {
  if (box.control != nullptr) box.control->SetPlace({});
  for (const LayoutBox& child : box.children) PlaceNowhere(child);
}

void Arranger::Place(const LayoutBox& box, const Rect& area) {
  if (Absent(box)) {
    PlaceNowhere(box);
    return;
  }
  if (box.control != nullptr) {
    PlaceControl(box, area);
    return;
  }
  const Cells cells = CellsOf(box);
  std::vector<Track> columns = ColumnsOf(box);
  ShareOut(columns, GapOf(box), area.width);
  std::vector<Track> rows = RowsOf(box, columns);
  ShareOut(rows, GapOf(box), area.height);
  const std::vector<double> lefts = StartsOf(columns, GapOf(box), area.x);
  const std::vector<double> tops = StartsOf(rows, GapOf(box), area.y);
  for (std::size_t i = 0; i < box.children.size(); ++i) {
    const std::size_t column = i % cells.columns;
    const std::size_t row = i / cells.columns % cells.rows;
    Place(box.children[i], {lefts[column], tops[row], columns[column].length, rows[row].length});
  }
}

LayoutBox BoxOf(Kind kind, std::vector<LayoutBox> children) {
  LayoutBox box;
  box.kind = kind;
  box.children = std::move(children);
  return box;
}

void PutInto(Control& container, const LayoutBox& box) {
  if (box.control != nullptr) {
    box.control->SetContainer(&container);
    return;  // what is inside a group belongs to that group
  }
  for (const LayoutBox& child : box.children) PutInto(container, child);
}

}  // namespace

LayoutBox Cell(Control& control, double stretchX, double stretchY) {
  LayoutBox box;
  box.kind = Kind::kControl;
  box.control = &control;
  box.stretchX = stretchX;
  box.stretchY = stretchY;
  return box;
}

LayoutBox Row(std::vector<LayoutBox> children) {
  return BoxOf(Kind::kRow, std::move(children));
}

LayoutBox Column(std::vector<LayoutBox> children) {
  return BoxOf(Kind::kColumn, std::move(children));
}

LayoutBox Grid(int columns, std::vector<LayoutBox> children) {
  LayoutBox box = BoxOf(Kind::kGrid, std::move(children));
  box.columns = columns;
  return box;
}

LayoutBox Stack(std::vector<LayoutBox> children) {
  return BoxOf(Kind::kStack, std::move(children));
}

LayoutBox Space(double stretchX, double stretchY) {
  LayoutBox box;
  box.kind = Kind::kSpace;
  box.stretchX = stretchX;
  box.stretchY = stretchY;
  return box;
}

LayoutBox Group(Control& container, LayoutBox content) {
  PutInto(container, content);
  LayoutBox box = Cell(container);
  box.children.push_back(std::move(content));
  return box;
}

LayoutBox Stretched(LayoutBox box, double stretchX, double stretchY) {
  box.stretchX = stretchX;
  box.stretchY = stretchY;
  return box;
}

LayoutBox Collapsing(LayoutBox box) {
  box.collapses = true;
  return box;
}

LayoutBox Joined(LayoutBox box) {
  box.gap = 0;
  return box;
}

LayoutBox Aligned(int alignment, LayoutBox box) {
  box.alignment = alignment;
  return box;
}

LayoutBox AtLeast(LayoutBox box, double minimumWidth, double minimumHeight) {
  box.minimumWidth = minimumWidth;
  box.minimumHeight = minimumHeight;
  return box;
}

Size MinimumSize(const LayoutBox& box, const ControlMeasurer& measurer) {
  Arranger arranger(box, measurer);
  if (arranger.Absent(box)) return {};
  const double width = arranger.LeastWidth(box);
  return {width, arranger.HeightAt(box, width)};
}

void Arrange(const LayoutBox& box, const Rect& area, const ControlMeasurer& measurer) {
  Arranger(box, measurer).Place(box, area);
}

}  // namespace chartproject
