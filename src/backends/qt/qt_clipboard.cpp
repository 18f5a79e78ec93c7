// Pictures on the clipboard of the running QGuiApplication.
#include "backends/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

#include "backends/qt/qt_canvas.h"
#include "backends/qt/qt_text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

QClipboard& SystemClipboard() {
  QClipboard* clipboard = qApp == nullptr ? nullptr : QGuiApplication::clipboard();
  if (clipboard == nullptr) throw RunTimeError(error_number::kClipboard, Text::kClipboardInUse);
  return *clipboard;
}

}  // namespace

void QtClipboard::Clear() {
  SystemClipboard().clear();
}

void QtClipboard::SetPicture(const Bitmap& picture) {
  SystemClipboard().setImage(ToQImage(picture));
}

void QtClipboard::SetText(const std::string& text) {
  SystemClipboard().setText(ToQt(text).remove('\r'));
}

std::optional<Bitmap> QtClipboard::Picture() {
  const QImage image = SystemClipboard().image();
  if (image.isNull()) return std::nullopt;
  return FromQImage(image);
}

}  // namespace chartproject
