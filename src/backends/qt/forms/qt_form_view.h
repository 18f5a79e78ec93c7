// A form's window.
#pragma once

#include <QPointer>
#include <QSize>
#include <memory>
#include <unordered_map>
#include <vector>

#include "backends/qt/forms/qt_control_widget.h"
#include "forms/form_host.h"
#include "forms/layout.h"

namespace chartproject {

class FormWindow;

/// Patches the widgets of one form, places them by the form's layout, and passes on what the user does.
class QtFormView : public FormView, public InputGate, public ControlMeasurer {
 public:
  explicit QtFormView(Form& form);
  ~QtFormView() override;

  // FormView.
  void ControlChanged(Control& control, Property property) override;
  void FormChanged(FormProperty property) override;
  void MoveFocus(Control& control) override;
  void Show() override;
  void Hide() override;

  // InputGate.
  void Take(Control& control, const std::function<void()>& input) noexcept override;
  void Run(Control& control, const std::function<void()>& action) noexcept override;

  // ControlMeasurer.
  [[nodiscard]] Size PreferredSize(const Control& control) const override;
  [[nodiscard]] double HeightForWidth(const Control& control, double width) const override;
  [[nodiscard]] Insets ContainerInsets(const Control& container) const override;
  [[nodiscard]] double GapShare() const override { return gapShare_; }

  [[nodiscard]] QWidget& Window() const;
  /// The widget of a control; null for a control that is not drawn.
  [[nodiscard]] QWidget* WidgetOf(const Control& control) const;

 private:
  friend class FormWindow;
  friend class FormContent;
  void MakeWidgets();
  void ShowEnabled(ControlWidget& widget);
  void SetTabOrder();
  void ShowCaptions();
  /// Finds the layout again and sees that the window holds it.
  void UpdateLayout();
  void UpdateLayoutSoon();
  void ArrangeControls();
  void ResizeToNeed();
  void Resized();
  void ShowPlace();
  void ShowHeight();
  void ShowState();
  void ShowPointer();
  void KeepOnScreen();
  void PlaceChanged();
  void StateChanged();
  void CloseRequested();
  /// Whether the form wants files that are dropped onto it, now.
  [[nodiscard]] bool TakesFiles() const { return !closing_ && form_.fileDropped != nullptr; }
  void FileDropped(const QString& fileName);
  /// The user, or the form, chose where the focus is.
  void FocusTaken();
  void FocusLeft(QObject* widget, bool byMouse);
  void DeliverFocusLeave();
  [[nodiscard]] ControlWidget* Find(const Control& control) const;
  [[nodiscard]] Control* ControlOf(const QObject* widget) const;
  [[nodiscard]] QSize LeastSize() const;
  QSize FitToScreen();
  /// The least size of a window around a content, with bars where the screen has less room.
  [[nodiscard]] QSize LeastWindow(QSize content) const;
  /// Room for a window's content on its screen.
  [[nodiscard]] QSize ScreenRoom() const;

  Form& form_;
  std::unique_ptr<FormWindow> window_;
  std::vector<std::unique_ptr<ControlWidget>> widgets_;
  std::unordered_map<const Control*, ControlWidget*> byControl_;
  Control* leaving_ = nullptr;     ///< lost the focus to a mouse press; its event is still due
  QWidget* firstFocus_ = nullptr;  ///< where the form wants the focus when its window appears
  QPointer<QWidget> parked_;       ///< had the focus when it was disabled; gets it back with its next use
  QPointer<QWidget> below_;        ///< the window that had the focus when this one appeared
  QSize wanted_;                   ///< the size that the user chose; the window is larger while its layout needs it
  double gapShare_ = 1;            ///< what the screen leaves of the layout's gaps
  bool resizing_ = false;          ///< by the form, not by the user
  bool layoutDue_ = true;
  bool sized_ = false;           ///< the window has got its first size
  bool sizedByUser_ = false;     ///< from then on the form's own heights are only asked for, not set
  bool asksForComfort_ = false;  ///< measuring for the first size: pictures get the size they would like
  bool enabling_ = false;        ///< the focus moves because controls are locked or unlocked
  bool waitCursor_ = false;
  bool closing_ = false;  ///< the window is hidden or going; nothing may reach the form
};

}  // namespace chartproject
