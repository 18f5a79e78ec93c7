// The system's default printer, or a PDF file in its place.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "backends/posix/files/part_file.h"
#include "platform/printer.h"

namespace chartproject {

/// Asks the user where a PDF file should go, with a name to propose; nothing when declined.
using PdfNameSource = std::function<std::optional<std::string>(const std::string& proposal)>;

class QtPrinter : public Printer {
 public:
  /// @param askForPdfName asked when there is no printer; when empty, a missing printer is error 482
  explicit QtPrinter(PdfNameSource askForPdfName) : askForPdfName_(std::move(askForPdfName)) {}
  ~QtPrinter() override;

  /// The next documents go into a PDF file of that name, which appears when it is complete.
  void PrintToFile(std::string fileName) { fileName_ = std::move(fileName); }

  /// Paper of the next documents, in the place of the queue's own, or for PDF files that of the user's country.
  void UsePaper(const PaperSize& paper) { paper_ = paper; }

  void ProposeFile(const std::string& fileName) override { proposal_ = fileName; }
  [[nodiscard]] bool StartDocument(const std::string& title) override;
  [[nodiscard]] PageArea Page() const override;
  [[nodiscard]] double TextWidth(std::string_view text, const PrintFont& font) const override;
  void PrintText(std::string_view text, double x, double y, const PrintFont& font) override;
  [[nodiscard]] double CurrentY() const override { return y_; }
  void NextLine() override;
  void PaintPicture(const Bitmap& picture, double x, double y, double width, double height) override;
  void PaintPictureFile(const std::string& fileName, double x, double y) override;
  void Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) override;
  void NextPage() override;
  void EndDocument() override;
  void AbandonDocument() noexcept override;

 private:
  [[nodiscard]] bool ChooseTarget();
  void ChoosePaper();
  void FinishFile();

  PdfNameSource askForPdfName_;
  std::string fileName_;  ///< chosen for all documents
  std::optional<PaperSize> paper_;
  std::string proposal_;
  std::string target_;              ///< PDF file of this document; empty for paper
  std::unique_ptr<PartFile> part_;  ///< of the PDF file
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  double y_ = 0;
  double lineHeight_ = 0;  ///< of the last text, in centimetres
};

}  // namespace chartproject
