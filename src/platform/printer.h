// Port: documents on the system's default printer. Positions are centimetres from the paper's top left corner.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/bitmap.h"

namespace chartproject {

class Canvas;  // of the forms, one floor up: a printer only hands it on

struct PrintFont {
  std::string family;
  double points = 12;
  bool bold = false;
  bool italic = false;
  std::int32_t color = 0;  ///< BGR number
};

/// A sheet upright, in centimetres.
struct PaperSize {
  double width = 0;
  double height = 0;
};

/// Centimetres.
struct PageArea {
  double width = 0;  ///< of the paper
  double height = 0;
  double right = 0;  ///< last position that the printer reaches
  double bottom = 0;
};

/// Operations throw RunTimeError 482 when the printer fails.
class Printer {
 public:
  virtual ~Printer() = default;
  /// The file to propose where the next document becomes a file that the user names.
  virtual void ProposeFile(const std::string& /*fileName*/) {}
  /// Begins a document and its first page. False when there is no printer and the user declined to save a file instead.
  [[nodiscard]] virtual bool StartDocument(const std::string& title) = 0;
  [[nodiscard]] virtual PageArea Page() const = 0;
  [[nodiscard]] virtual double TextWidth(std::string_view text, const PrintFont& font) const = 0;
  /// Prints one line of text with its top left corner at (x, y).
  virtual void PrintText(std::string_view text, double x, double y, const PrintFont& font) = 0;
  [[nodiscard]] virtual double CurrentY() const = 0;
  /// Advances the current vertical position by one line of the last font and returns to the left.
  virtual void NextLine() = 0;
  /// Paints a picture with its top left corner at (x, y). @param width,height its size on paper
  virtual void PaintPicture(const Bitmap& picture, double x, double y, double width, double height) = 0;
  /// Paints a picture file (icon) at its own size. Throws 53 when it is missing, 481 when it is not a picture.
  virtual void PaintPictureFile(const std::string& fileName, double x, double y) = 0;
  /// Draws into a box with its top left corner at (x, y), as lines, shapes and texts; nothing outside of it. The canvas
  /// is as large as the box and has 96 pixels to the inch. @param width,height of the box
  virtual void Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) = 0;
  /// Ends the page and begins another one.
  virtual void NextPage() = 0;
  /// Ends the document and hands it to the printer.
  virtual void EndDocument() = 0;
  /// Cancels the document; nothing is printed.
  virtual void AbandonDocument() noexcept = 0;
};

}  // namespace chartproject
