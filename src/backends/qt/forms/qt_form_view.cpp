// Between a form and its window: properties and input. Layout and place are in qt_form_layout.cpp.
#include "backends/qt/forms/qt_form_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QIcon>
#include <QTimer>

#include "backends/qt/forms/qt_form_window.h"
#include "backends/qt/qt_text.h"
#include "forms/controls.h"
#include "forms/flag_scope.h"
#include "forms/spoken_name.h"

namespace chartproject {

QtFormView::QtFormView(Form& form) : form_(form), window_(std::make_unique<FormWindow>(*this)) {
  window_->setObjectName(ToQt(form.Name()));
  window_->setWindowTitle(ToQt(form.Caption()));
  MakeWidgets();
}

QtFormView::~QtFormView() {
  closing_ = true;
  if (waitCursor_) QGuiApplication::restoreOverrideCursor();
  window_.reset();
}

void QtFormView::MakeWidgets() {
  for (Control* control : form_.Controls()) {
    auto made = MakeControlWidget(*control, *this);
    if (!made) continue;
    QWidget& widget = made->Widget();
    widget.setParent(&window_->Content());
    if (!control->TabStop()) widget.setFocusPolicy(Qt::NoFocus);
    widget.installEventFilter(window_.get());
    made->ShowAll();
    byControl_[control] = made.get();
    widgets_.push_back(std::move(made));
  }
}

void QtFormView::ControlChanged(Control& control, Property property) {
  ControlWidget* widget = Find(control);
  if (widget == nullptr) return;
  if (property == Property::kEnabled) {
    ShowEnabled(*widget);
    return;
  }
  widget->Show(property);
  if (property == Property::kOverlay) widget->Widget().setAccessibleName(ToQt(SpokenName(control)));
  const bool mayMoveOthers =
      property == Property::kCaption || property == Property::kVisible || property == Property::kList;
  // A caption shows at once where its room is there already; its access key follows with the layout.
  if (property == Property::kCaption) widget->ShowCaption(ToQt(control.Caption()));
  if (mayMoveOthers) UpdateLayoutSoon();
}

/// Fields are locked while a form works. The focus then wanders off, and Tab would begin at the first field; it goes
/// back where it was as soon as that can be used again, unless the user has chosen another place.
void QtFormView::ShowEnabled(ControlWidget& widget) {
  const FlagScope enabling(enabling_);
  const auto within = [&widget](const QWidget* inner) {
    return inner != nullptr && (inner == &widget.Widget() || widget.Widget().isAncestorOf(inner));
  };
  QWidget* focus = window_->focusWidget();
  if (parked_ == nullptr && within(focus) && focus->isEnabled()) parked_ = focus;
  widget.Show(Property::kEnabled);
  if (parked_ == nullptr || !parked_->isEnabled()) return;
  if (within(parked_)) parked_->setFocus(Qt::OtherFocusReason);
  parked_ = nullptr;
}

void QtFormView::FocusTaken() {
  if (!enabling_) parked_ = nullptr;
}

void QtFormView::FormChanged(FormProperty property) {
  switch (property) {
    case FormProperty::kCaption:
      window_->setWindowTitle(ToQt(form_.Caption()));
      break;
    case FormProperty::kIcon:
      window_->setWindowIcon(QIcon(FileNameToQt(form_.IconFile())));
      break;
    case FormProperty::kMousePointer:
      ShowPointer();
      break;
    case FormProperty::kPlace:
      ShowPlace();
      break;
    case FormProperty::kHeight:
      ShowHeight();
      break;
    case FormProperty::kWindowState:
      ShowState();
      break;
    case FormProperty::kLayout:
      UpdateLayout();
      break;
  }
}

void QtFormView::ShowPointer() {
  const bool wait = form_.Pointer() == MousePointer::kHourglass;
  if (wait == waitCursor_) return;
  waitCursor_ = wait;
  // The pointer of the whole program, for fields have pointers of their own.
  if (wait) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

void QtFormView::MoveFocus(Control& control) {
  ControlWidget* widget = Find(control);
  if (widget == nullptr) return;
  firstFocus_ = &widget->Widget();
  if (window_->isVisible()) widget->Widget().setFocus(Qt::TabFocusReason);
}

void QtFormView::Take(Control& control, const std::function<void()>& input) noexcept {
  if (closing_) return;
  if (leaving_ != &control) DeliverFocusLeave();
  if (form_.IsLoaded()) form_.RunHandler(control.Name(), input);
}

void QtFormView::Run(Control& control, const std::function<void()>& action) noexcept {
  if (!closing_) form_.RunHandler(control.Name(), action);
}

void QtFormView::FocusLeft(QObject* widget, bool byMouse) {
  Control* control = ControlOf(widget);
  if (control == nullptr || closing_) return;
  if (!byMouse) {
    control->LeaveFocus();
    return;
  }
  // A box that the handler shows must not come between the press and the release of the mouse button, so the handler
  // waits until the press is done; any other input makes it run before.
  DeliverFocusLeave();
  leaving_ = control;
  QTimer::singleShot(0, window_.get(), [this] { DeliverFocusLeave(); });
}

void QtFormView::DeliverFocusLeave() {
  Control* control = std::exchange(leaving_, nullptr);
  if (control == nullptr || closing_) return;
  control->LeaveFocus();
  if (QGuiApplication::mouseButtons() != Qt::NoButton) return;
  // The release went to a box: no button may stay down.
  for (QAbstractButton* button : window_->findChildren<QAbstractButton*>()) button->setDown(false);
}

void QtFormView::CloseRequested() {
  if (closing_) return;
  DeliverFocusLeave();
  if (form_.IsLoaded()) form_.CloseByUser();
}

void QtFormView::FileDropped(const QString& fileName) {
  if (!TakesFiles()) return;
  DeliverFocusLeave();
  if (!form_.IsLoaded()) return;
  form_.RunHandler("Form_FileDropped", [this, name = FromQt(fileName)] { form_.fileDropped(name); });
}

QWidget& QtFormView::Window() const {
  return *window_;
}

QWidget* QtFormView::WidgetOf(const Control& control) const {
  const ControlWidget* widget = Find(control);
  return widget == nullptr ? nullptr : &widget->Widget();
}

ControlWidget* QtFormView::Find(const Control& control) const {
  const auto found = byControl_.find(&control);
  return found == byControl_.end() ? nullptr : found->second;
}

Control* QtFormView::ControlOf(const QObject* widget) const {
  for (const auto& each : widgets_) {
    if (&each->Widget() == widget) return &each->Model();
  }
  return nullptr;
}

}  // namespace chartproject
