// Key state from the application's event stream.
#include "backends/qt/qt_keyboard.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <utility>

namespace chartproject {

QtKeyboard::QtKeyboard() {
  QCoreApplication::instance()->installEventFilter(this);
}

bool QtKeyboard::EscapePressed() {
  const bool reported = std::exchange(pressed_, false) || down_;
  spent_ = spent_ || (reported && down_);
  return reported;
}

bool QtKeyboard::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:  // comes before the press, also when a widget takes the key for itself
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) break;
      if (static_cast<QKeyEvent*>(event)->isAutoRepeat() && spent_) {
        event->accept();
        return true;
      }
      down_ = pressed_ = true;
      spent_ = false;
      break;
    case QEvent::KeyRelease: {
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() == Qt::Key_Escape && !key->isAutoRepeat()) down_ = spent_ = false;
      break;
    }
    case QEvent::ApplicationDeactivate:  // the release will go to another program
      down_ = spent_ = false;
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace chartproject
