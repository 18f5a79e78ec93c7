// Window events of a form.
#include "backends/qt/forms/qt_form_window.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QStyle>
#include <QTimer>
#include <QUrl>

#include "backends/qt/forms/qt_form_keys.h"
#include "backends/qt/forms/qt_form_view.h"

namespace chartproject {

void FormContent::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  view_.ArrangeControls();
}

FormWindow::FormWindow(QtFormView& view) : view_(view), content_(*new FormContent(view)) {
  setAttribute(Qt::WA_QuitOnClose, false);
  setAcceptDrops(true);
  area_.setFrameShape(QFrame::NoFrame);
  area_.setFocusPolicy(Qt::NoFocus);
  area_.setWidgetResizable(true);
  area_.setWidget(&content_);
}

void FormWindow::SetLeastContent(QSize size) {
  content_.setMinimumSize(size);
  if (!isVisible()) content_.resize(size.expandedTo(this->size()));  // the area follows with the first display
}

int FormWindow::BarWidth() const {
  return style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

namespace {

/// The first file of this machine that a drag brings; empty when it brings none.
QString FileOf(const QDropEvent& event) {
  for (const QUrl& url : event.mimeData()->urls()) {
    if (url.isLocalFile()) return url.toLocalFile();
  }
  return {};
}

}  // namespace

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut || event->type() == QEvent::FocusIn) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // A list that opens, a menu or another window takes the focus only for a while.
    const bool stays =
        reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason;
    if (!stays && event->type() == QEvent::FocusIn) {
      view_.FocusTaken();
      area_.ensureWidgetVisible(static_cast<QWidget*>(watched));
    }
    if (!stays && event->type() == QEvent::FocusOut) view_.FocusLeft(watched, reason == Qt::MouseFocusReason);
  }
  if (event->type() == QEvent::KeyPress && !view_.closing_ &&
      StepArrows(view_.form_, view_, view_.ControlOf(watched), static_cast<QKeyEvent*>(event)->key())) {
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form decides
  view_.CloseRequested();
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  const bool used = !view_.closing_ && UseFormKey(view_.form_, view_, event->key(), focusWidget());
  if (!used) QWidget::keyPressEvent(event);
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  view_.PlaceChanged();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  area_.setGeometry(rect());
  view_.Resized();
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) view_.StateChanged();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) view_.UpdateLayoutSoon();
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (view_.TakesFiles() && !FileOf(*event).isEmpty()) event->acceptProposedAction();
}

void FormWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  // Later: what the form opens must not hold up the program that the file is dragged from.
  QTimer::singleShot(0, this, [this, file = FileOf(*event)] { view_.FileDropped(file); });
}

}  // namespace chartproject
