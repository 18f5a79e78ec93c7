// The window's part of QtFormView: sizes of texts, places of widgets, place and state of the window.
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "backends/qt/forms/qt_form_view.h"
#include "backends/qt/forms/qt_form_window.h"
#include "backends/qt/qt_text.h"
#include "forms/access_keys.h"
#include "forms/controls.h"
#include "forms/flag_scope.h"
#include "forms/spoken_name.h"

namespace chartproject {

namespace {

constexpr double kGroupPadding = 10;
constexpr double kDrawnShrinks = 0.5;  ///< a picture may be made this much smaller than it would like to be

int ToPixels(double twips) {
  return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

/// Edges are rounded, not sizes, so that neighbours keep their distances.
QRect ToPixelRect(const Rect& rect) {
  const auto left = static_cast<int>(std::lround(rect.x));
  const auto top = static_cast<int>(std::lround(rect.y));
  return {left, top, static_cast<int>(std::lround(rect.Right())) - left,
          static_cast<int>(std::lround(rect.Bottom())) - top};
}

}  // namespace

Size QtFormView::PreferredSize(const Control& control) const {
  const ControlWidget* widget = Find(control);
  if (widget == nullptr) return {};
  const QSize size = widget->Preferred();
  const bool shrinks = control.TabStop() && dynamic_cast<const DrawnControl*>(&control) != nullptr;
  const double factor = shrinks && !asksForComfort_ ? kDrawnShrinks : 1;
  return {size.width() * factor, size.height() * factor};
}

double QtFormView::HeightForWidth(const Control& control, double width) const {
  const auto* label = dynamic_cast<const Label*>(&control);
  if (label == nullptr || !label->WordWrap()) return PreferredSize(control).height;
  const ControlWidget* widget = Find(control);
  return widget == nullptr ? 0 : widget->HeightForWidth(static_cast<int>(width));
}

Insets QtFormView::ContainerInsets(const Control& container) const {
  const ControlWidget* widget = Find(container);
  if (widget == nullptr) return {};
  const bool titled = container.HasCaption() && !container.Caption().empty();
  const double title = titled ? widget->Widget().fontMetrics().height() : 0;
  const double padding = kGroupPadding * gapShare_;
  return {padding, title + padding, padding, padding};
}

void QtFormView::UpdateLayoutSoon() {
  if (layoutDue_) return;
  layoutDue_ = true;
  QTimer::singleShot(0, window_.get(), [this] {
    if (layoutDue_ && !closing_) UpdateLayout();
  });
}

void QtFormView::UpdateLayout() {
  layoutDue_ = false;
  ShowCaptions();
  bool moved = false;
  for (const auto& each : widgets_) {
    const Control* container = each->Model().Container();
    QWidget* parent = container == nullptr ? &window_->Content() : WidgetOf(*container);
    if (parent == nullptr || each->Widget().parentWidget() == parent) continue;
    each->Widget().setParent(parent);
    each->Show(Property::kVisible);
    moved = true;
  }
  if (moved || !sized_) SetTabOrder();
  if (form_.Layout().children.empty() && form_.Layout().control == nullptr) return;

  const FlagScope resizing(resizing_);  // a larger least size makes the window grow
  const QSize least = FitToScreen();
  window_->setMinimumSize(LeastWindow(least));
  if (!sized_) {
    asksForComfort_ = true;
    wanted_ = LeastWindow(LeastSize())
                  .expandedTo({ToPixels(form_.Width()), ToPixels(form_.Height())})
                  .boundedTo(ScreenRoom());
    asksForComfort_ = false;
    sized_ = true;
  }
  ResizeToNeed();
  window_->SetLeastContent(least);
  ArrangeControls();
  PlaceChanged();
}

QSize QtFormView::ScreenRoom() const {
  QSize frame = window_->frameSize() - window_->size();
  if (frame.isEmpty()) frame.setHeight(window_->style()->pixelMetric(QStyle::PM_TitleBarHeight));  // not known yet
  return window_->screen()->availableSize() - frame;
}

/// @return the least size with the largest gaps that the screen has room for
QSize QtFormView::FitToScreen() {
  const QSize room = ScreenRoom();
  QSize least;
  for (const double share : kGapShares) {
    gapShare_ = share;
    least = LeastSize();
    if (least.boundedTo(room) == least) break;
  }
  return least;
}

QSize QtFormView::LeastWindow(QSize content) const {
  const QSize room = ScreenRoom();
  const QSize bars(content.height() > room.height() ? window_->BarWidth() : 0,
                   content.width() > room.width() ? window_->BarWidth() : 0);
  return (content + bars).boundedTo(room);
}

void QtFormView::ResizeToNeed() {
  if (window_->isMaximized()) return;
  const FlagScope resizing(resizing_);
  window_->resize(wanted_.expandedTo(window_->minimumSize()));
}

void QtFormView::Resized() {
  if (!resizing_ && window_->isVisible() && !window_->isMaximized() && window_->size() != wanted_) {
    wanted_ = window_->size();
    sizedByUser_ = true;
  }
  PlaceChanged();
}

QSize QtFormView::LeastSize() const {
  const Size size = MinimumSize(form_.Layout(), *this);
  const double margins = 2 * kFormMargin * gapShare_;
  return {static_cast<int>(std::ceil(size.width + margins)), static_cast<int>(std::ceil(size.height + margins))};
}

void QtFormView::ShowCaptions() {
  const auto captions = CaptionsWithAccessKeys(form_);
  for (const auto& each : widgets_) {
    const Control& control = each->Model();
    if (!control.HasCaption()) continue;
    const auto found = captions.find(&control);
    each->ShowCaption(ToQt(found == captions.end() ? control.Caption() : found->second));
    auto* label = qobject_cast<QLabel*>(&each->Widget());
    if (label == nullptr) continue;
    const Control* field = FieldOf(form_, control);
    label->setBuddy(field == nullptr ? nullptr : WidgetOf(*field));
  }
}

void QtFormView::SetTabOrder() {
  QWidget* before = nullptr;
  for (const auto& each : widgets_) {
    if (!each->Model().TabStop()) continue;
    if (before != nullptr) QWidget::setTabOrder(before, &each->Widget());
    before = &each->Widget();
  }
}

void QtFormView::ArrangeControls() {
  const QSize content = window_->Content().size();
  const double margin = kFormMargin * gapShare_;
  const Rect area{margin, margin, content.width() - 2 * margin, content.height() - 2 * margin};
  Arrange(form_.Layout(), area, *this);
  for (const auto& each : widgets_) each->Widget().setGeometry(ToPixelRect(each->Model().Place()));
}

void QtFormView::Show() {
  for (const auto& each : widgets_) {
    if (!each->Model().HasCaption()) each->Widget().setAccessibleName(ToQt(SpokenName(each->Model())));
  }
  closing_ = false;
  UpdateLayout();
  window_->setWindowModality(Qt::ApplicationModal);
  window_->winId();  // makes the native window, which can then belong to the one below it
  below_ = QApplication::activeWindow();
  if (below_ == window_.get()) below_ = nullptr;
  if (below_ != nullptr) window_->windowHandle()->setTransientParent(below_->windowHandle());
  if (form_.State() == WindowState::kNormal) KeepOnScreen();
  ShowState();
  window_->show();
  window_->raise();
  window_->activateWindow();
  if (firstFocus_ != nullptr && firstFocus_->isVisible() && firstFocus_->isEnabled()) {
    firstFocus_->setFocus(Qt::TabFocusReason);
  } else {
    window_->FocusFirst();
  }
}

void QtFormView::Hide() {
  closing_ = true;  // fields that lose the focus now are not left by the user
  leaving_ = nullptr;
  window_->hide();
  if (below_ != nullptr && below_->isVisible()) below_->activateWindow();
}

void QtFormView::ShowState() {
  Qt::WindowStates state = window_->windowState() & ~(Qt::WindowMaximized | Qt::WindowMinimized);
  if (form_.State() == WindowState::kMaximized) state |= Qt::WindowMaximized;
  if (form_.State() == WindowState::kMinimized) state |= Qt::WindowMinimized;
  if (state != window_->windowState()) window_->setWindowState(state);
}

void QtFormView::StateChanged() {
  if (closing_) return;
  form_.StateChangedByUser(window_->isMinimized()   ? WindowState::kMinimized
                           : window_->isMaximized() ? WindowState::kMaximized
                                                    : WindowState::kNormal);
}

void QtFormView::ShowPlace() {
  window_->move(ToPixels(form_.Left()), ToPixels(form_.Top()));
}

void QtFormView::ShowHeight() {
  const int height = ToPixels(form_.Height());  // before the layout reports the window's height to the form
  if (layoutDue_) UpdateLayout();
  if (!sizedByUser_) wanted_.setHeight(std::min(height, ScreenRoom().height()));
  ResizeToNeed();
  if (window_->isVisible() && !window_->isMaximized()) KeepOnScreen();
  PlaceChanged();
}

void QtFormView::KeepOnScreen() {
  const QScreen* screen = QGuiApplication::screenAt(window_->frameGeometry().center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect area = screen->availableGeometry();
  const QRect frame = window_->frameGeometry();
  const int left = std::max(area.left(), std::min(frame.left(), area.right() - frame.width() + 1));
  const int top = std::max(area.top(), std::min(frame.top(), area.bottom() - frame.height() + 1));
  if (QPoint(left, top) != window_->pos()) window_->move(left, top);
}

void QtFormView::PlaceChanged() {
  if (closing_ || window_->isMaximized() || window_->isMinimized()) return;
  const bool seen = window_->isVisible();
  form_.PlaceChangedByUser(seen ? window_->x() * kTwipsPerPixel : form_.Left(),
                           seen ? window_->y() * kTwipsPerPixel : form_.Top(), window_->width() * kTwipsPerPixel,
                           window_->height() * kTwipsPerPixel);
}

}  // namespace chartproject
