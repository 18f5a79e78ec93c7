// Centimetres become dots of the printer; the origin is the corner of the paper.
#include "backends/qt/qt_printer.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImageReader>
#include <QLocale>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinterInfo>
#include <algorithm>
#include <array>

#include "backends/qt/print_queue.h"
#include "backends/qt/qt_canvas.h"
#include "backends/qt/qt_text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr double kCentimetresPerInch = 2.54;
constexpr double kPixelsPerInch = 96;
constexpr double kSmallestMargin = 0.5;  // centimetres; printers without a margin still clip a little
constexpr double kLargestIcon = 1.4;     // centimetres; text after an icon begins 1.5 from its left edge

[[noreturn]] void ThrowPrinterError(const std::string& reason) {
  throw RunTimeError(error_number::kPrinter, Text::kPrinterError, {reason});
}

double DotsPerCentimetre(const QPrinter& printer) {
  return printer.resolution() / kCentimetresPerInch;
}

/// What a printer is filled with where the user lives: Letter in most of America, else A4.
QPageSize::PageSizeId PaperOfCountry(QLocale::Territory country) {
  static constexpr std::array kLetter = {
      QLocale::Belize,      QLocale::Canada,     QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica,
      QLocale::ElSalvador,  QLocale::Guatemala,  QLocale::Mexico,       QLocale::Nicaragua, QLocale::Panama,
      QLocale::Philippines, QLocale::PuertoRico, QLocale::UnitedStates, QLocale::Venezuela};
  return std::find(kLetter.begin(), kLetter.end(), country) != kLetter.end() ? QPageSize::Letter : QPageSize::A4;
}

QFont FontOf(const PrintFont& font) {
  QFont result(ToQt(font.family));
  result.setPointSizeF(font.points);
  result.setBold(font.bold);
  result.setItalic(font.italic);
  return result;
}

}  // namespace

QtPrinter::~QtPrinter() {
  AbandonDocument();
}

/// Paper when there is a printer, else a file. False when the user declined.
bool QtPrinter::ChooseTarget() {
  target_ = fileName_;
  if (!target_.empty()) return true;
  const QPrinterInfo queue = QPrinterInfo::defaultPrinter();
  if (!queue.isNull()) {
    const std::string refusal = QueueRefusal(FromQt(queue.printerName()));
    if (!refusal.empty()) ThrowPrinterError(FromQt(queue.printerName()) + ": " + refusal);
    return true;
  }
  if (!askForPdfName_) ThrowPrinterError("there is no printer");
  const auto chosen = askForPdfName_(proposal_);
  target_ = chosen.value_or("");
  return !target_.empty();
}

bool QtPrinter::StartDocument(const std::string& title) {
  AbandonDocument();
  if (!ChooseTarget()) return false;
  printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (!target_.empty()) {
    printer_->setOutputFormat(QPrinter::PdfFormat);
    part_ = std::make_unique<PartFile>(target_);
    printer_->setOutputFileName(FileNameToQt(part_->OpenName()));
  }
  ChoosePaper();
  printer_->setFullPage(true);
  printer_->setDocName(ToQt(title));
  painter_ = std::make_unique<QPainter>();
  if (!painter_->begin(printer_.get())) {
    AbandonDocument();
    ThrowPrinterError(target_.empty() ? "the printer cannot be opened" : target_ + " cannot be written");
  }
  // Charts are lines on a plain ground: a lossy picture would blur them.
  painter_->setRenderHint(QPainter::LosslessImageRendering);
  y_ = lineHeight_ = 0;
  return true;
}

void QtPrinter::ChoosePaper() {
  if (paper_) {
    constexpr double kMillimetres = 10;
    const QSizeF size(paper_->width * kMillimetres, paper_->height * kMillimetres);
    printer_->setPageSize(QPageSize(size, QPageSize::Millimeter));
  } else if (!target_.empty()) {
    printer_->setPageSize(QPageSize(PaperOfCountry(QLocale::system().territory())));
  } else {
    const QPageSize own = QPrinterInfo::defaultPrinter().defaultPageSize();
    if (own.isValid()) printer_->setPageSize(own);
  }
}

PageArea QtPrinter::Page() const {
  const QPageLayout layout = printer_->pageLayout();
  const QSizeF paper = layout.pageSize().size(QPageSize::Millimeter) / 10;
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter) / 10;
  return {paper.width(), paper.height(), paper.width() - std::max(margins.right(), kSmallestMargin),
          paper.height() - std::max(margins.bottom(), kSmallestMargin)};
}

double QtPrinter::TextWidth(std::string_view text, const PrintFont& font) const {
  const QFontMetricsF metrics(FontOf(font), printer_.get());
  return metrics.horizontalAdvance(ToQt(text)) / DotsPerCentimetre(*printer_);
}

void QtPrinter::PrintText(std::string_view text, double x, double y, const PrintFont& font) {
  const double dots = DotsPerCentimetre(*printer_);
  const QFontMetricsF metrics(FontOf(font), printer_.get());
  const Color color = FromBgr(font.color);
  painter_->setFont(FontOf(font));
  painter_->setPen(QColor(color.red, color.green, color.blue));
  painter_->drawText(QPointF(x * dots, y * dots + metrics.ascent()), ToQt(text));
  y_ = y;
  lineHeight_ = metrics.lineSpacing() / dots;
}

void QtPrinter::NextLine() {
  y_ += lineHeight_;
}

void QtPrinter::PaintPicture(const Bitmap& picture, double x, double y, double width, double height) {
  const double dots = DotsPerCentimetre(*printer_);
  painter_->setRenderHint(QPainter::SmoothPixmapTransform);
  painter_->drawImage(QRectF(x * dots, y * dots, width * dots, height * dots), ToQImage(picture));
}

void QtPrinter::PaintPictureFile(const std::string& fileName, double x, double y) {
  const QString name = FileNameToQt(fileName);
  if (!QFileInfo(name).isFile()) throw RunTimeError(error_number::kFileNotFound, Text::kFileNotFound, {fileName});
  QImageReader reader(name);
  QImage largest;
  do {  // an icon file holds its picture in several sizes
    const QImage image = reader.read();
    if (image.width() > largest.width()) largest = image;
  } while (reader.jumpToNextImage());
  if (largest.isNull()) throw RunTimeError(error_number::kInvalidPicture, Text::kInvalidPicture, {fileName});
  const double side = std::min(largest.width() / kPixelsPerInch * kCentimetresPerInch, kLargestIcon);
  PaintPicture(FromQImage(largest), x, y, side, side * largest.height() / largest.width());
}

void QtPrinter::Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) {
  const double dots = DotsPerCentimetre(*printer_);
  const double pixels = kPixelsPerInch / kCentimetresPerInch;
  painter_->save();
  painter_->translate(x * dots, y * dots);
  painter_->scale(dots / pixels, dots / pixels);
  painter_->setClipRect(QRectF(0, 0, width * pixels, height * pixels));
  QtCanvas canvas(*painter_, {width * pixels, height * pixels});
  paint(canvas);
  painter_->restore();
}

void QtPrinter::NextPage() {
  if (!printer_->newPage()) ThrowPrinterError("another page could not be begun");
  y_ = lineHeight_ = 0;
}

void QtPrinter::EndDocument() {
  const bool ended = painter_->end();
  painter_.reset();
  printer_.reset();
  if (!ended) ThrowPrinterError("the document could not be ended");
  if (!target_.empty()) FinishFile();
}

/// The file is whole when its end mark is there: a full disk raises no error while it is written.
void QtPrinter::FinishFile() {
  const std::unique_ptr<PartFile> file = std::move(part_);  // goes with what was written unless it is committed
  QFile part(FileNameToQt(file->OpenName()));
  bool whole = part.open(QIODevice::ReadOnly);
  if (whole) {
    constexpr qint64 kTail = 16;
    part.seek(std::max<qint64>(0, part.size() - kTail));
    whole = part.readAll().contains("%%EOF");
    part.close();
  }
  if (!whole) ThrowPrinterError(target_ + " could not be written completely");
  file->Commit();  // one step: a file that had the name is there until the new one is
}

void QtPrinter::AbandonDocument() noexcept {
  if (!printer_) return;
  printer_->abort();
  if (painter_ && painter_->isActive()) painter_->end();
  painter_.reset();
  printer_.reset();
  part_.reset();
}

}  // namespace chartproject
