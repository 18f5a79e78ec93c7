// Window events of a form.
#include "backends/qt/forms/qt_form_window.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QKeyEvent>

#include "backends/qt/forms/qt_form_view.h"

namespace chartproject {

FormWindow::FormWindow(QtFormView& view) : view_(view) {
  setAttribute(Qt::WA_QuitOnClose, false);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut || event->type() == QEvent::FocusIn) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // A list that opens, a menu or another window takes the focus only for a while.
    const bool stays =
        reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason;
    if (!stays && event->type() == QEvent::FocusIn) view_.FocusTaken();
    if (!stays && event->type() == QEvent::FocusOut) view_.FocusLeft(watched, reason == Qt::MouseFocusReason);
  }
  if (event->type() == QEvent::KeyPress && view_.StepArrowsOf(watched, static_cast<QKeyEvent*>(event)->key())) {
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form decides
  view_.CloseRequested();
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (!view_.KeyPressed(event->key(), focusWidget())) QWidget::keyPressEvent(event);
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  view_.PlaceChanged();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  view_.Resized();
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) view_.StateChanged();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) view_.UpdateLayoutSoon();
}

}  // namespace chartproject
