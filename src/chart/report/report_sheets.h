// Sheets that are filled from the top: what does not fit begins the next one. Nothing is printed before all is placed,
// so that each sheet can say how many there are.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/printer.h"

namespace chartproject {

/// Positions and sizes are centimetres.
class ReportSheets {
 public:
  static constexpr double kLeft = 2.5;

  /// @param printer has begun its document; it outlives the sheets
  /// @param bottom where the first sheet is empty from
  ReportSheets(Printer& printer, double bottom);

  [[nodiscard]] double Width() const noexcept { return right_ - kLeft; }
  [[nodiscard]] double Right() const noexcept { return right_; }
  /// Goes on to the next sheet where so much does not fit any more.
  void Need(double height);
  /// Leaves room empty, except at the top of a sheet.
  void Skip(double height);
  /// Where the next `height` centimetres are; they are taken.
  double Take(double height);
  /// Prints something at its place when the sheet's turn comes.
  void Add(std::function<void(Printer&)> print) { sheets_.back().push_back(std::move(print)); }

  void AddText(const std::string& text, double x, double y, const PrintFont& font);
  /// @param right where the text ends
  void AddTextUpTo(const std::string& text, double right, double y, const PrintFont& font);
  /// A thin line over the width.
  void AddRule(double y);

  /// @param foot of each sheet that has room for it, given its number and how many there are
  void Print(const std::function<std::string(std::size_t sheet, std::size_t sheets)>& foot, const std::string& name);

  /// From one line of a font to the next.
  [[nodiscard]] static double LineHeight(const PrintFont& font) noexcept;

 private:
  Printer& printer_;
  double right_ = 0;
  double bottom_ = 0;
  double y_ = 0;
  bool firstFull_ = false;  ///< down to its foot
  std::vector<std::vector<std::function<void(Printer&)>>> sheets_{1};
};

}  // namespace chartproject
