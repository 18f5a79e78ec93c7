// Every file goes through one door: ReadHelpFile.
#include "backends/qt/help_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace chartproject {

std::optional<QByteArray> ReadHelpFile(const QString& folder, const QString& name) {
  constexpr qint64 kLargest = qint64{16} * 1024 * 1024;
  const QString place = QDir(folder).canonicalPath();
  const QFileInfo info(QDir(folder).filePath(name));
  // A device or a pipe would be read without an end.
  if (place.isEmpty() || !info.isFile() || info.size() > kLargest) return std::nullopt;
  if (!info.canonicalFilePath().startsWith(place.endsWith('/') ? place : place + '/')) return std::nullopt;
  QFile file(info.canonicalFilePath());
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  return file.read(kLargest);
}

HelpPage::HelpPage(std::function<void(const QString&)> refused) : refused_(std::move(refused)) {
  setOpenLinks(false);
  connect(this, &QTextBrowser::anchorClicked, this, &HelpPage::Follow);
}

bool HelpPage::Show(const QByteArray& bytes, const QString& folder) {
  if (bytes.contains('\0')) return false;  // compiled help of another system, or no text at all
  folder_ = folder;
  const QString text = QString::fromUtf8(bytes);
  if (Qt::mightBeRichText(text)) {
    setHtml(text);
  } else {
    setPlainText(text);
  }
  return true;
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
  const auto bytes = name.isRelative() ? ReadHelpFile(folder_, name.path()) : std::nullopt;
  if (type != QTextDocument::ImageResource) return bytes ? QVariant(*bytes) : QVariant();
  // Without an image of ours the toolkit would open the name itself.
  const QImage picture = bytes ? QImage::fromData(*bytes) : QImage();
  return picture.isNull() ? NameAsPicture(name.toDisplayString()) : picture;
}

/// What is shown in the place of a picture that may not be, or cannot be, shown.
QImage HelpPage::NameAsPicture(const QString& name) const {
  constexpr int kWidest = 400;
  const QFontMetrics metrics(font());
  const QString text = metrics.elidedText(name, Qt::ElideMiddle, kWidest);
  QImage picture(std::max(1, metrics.horizontalAdvance(text)), metrics.height(), QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setFont(font());
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(0, metrics.ascent(), text);
  return picture;
}

void HelpPage::Follow(const QUrl& target) {
  if (!target.path().isEmpty() || !target.isRelative()) {
    const auto bytes = target.isRelative() ? ReadHelpFile(folder_, target.path()) : std::nullopt;
    if (!bytes || !Show(*bytes, folder_)) return refused_(target.toDisplayString());
  }
  if (target.hasFragment()) scrollToAnchor(target.fragment());
}

}  // namespace chartproject
