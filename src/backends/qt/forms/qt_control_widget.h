// One control of a form as a Qt widget: shows its properties and passes the user's input to its setters.
#pragma once

#include <QSize>
#include <QWidget>
#include <functional>
#include <memory>

#include "forms/control.h"

namespace chartproject {

/// All user input passes here: a pending lost-focus event is delivered first, handler errors are reported, and input to
/// a closing window is dropped.
class InputGate {
 public:
  virtual ~InputGate() = default;
  virtual void Take(Control& control, const std::function<void()>& input) noexcept = 0;
  /// For work the user did not start (painting, pointer moves): reports errors, nothing else.
  virtual void Run(Control& control, const std::function<void()>& action) noexcept = 0;
};

class ControlWidget {
 public:
  ControlWidget(Control& control, QWidget& widget);
  virtual ~ControlWidget() = default;
  ControlWidget(const ControlWidget&) = delete;
  ControlWidget& operator=(const ControlWidget&) = delete;

  [[nodiscard]] Control& Model() const noexcept { return control_; }
  /// Owned by the window.
  [[nodiscard]] QWidget& Widget() const noexcept { return widget_; }

  /// Shows a property as the control has it now. Raises no input: a widget that shows it already is left alone.
  virtual void Show(Property property);
  void ShowAll();
  /// The caption as it is shown, which may carry an access key of the window's choice.
  virtual void ShowCaption(const QString& /*caption*/) {}
  /// The least size at which nothing is cut.
  [[nodiscard]] virtual QSize Preferred() const { return widget_.sizeHint(); }
  [[nodiscard]] virtual int HeightForWidth(int /*width*/) const { return Preferred().height(); }

 protected:
  /// Fields and buttons of one row are equally high.
  [[nodiscard]] int FieldHeight() const;

 private:
  void ShowPointer();

  Control& control_;
  QWidget& widget_;
};

/// The widget for a control's type, without parent; null for types that are not drawn. The table of all types.
[[nodiscard]] std::unique_ptr<ControlWidget> MakeControlWidget(Control& control, InputGate& gate);

/// The pointer stored in a .cur file, its hot spot included; the pointing hand when the file cannot be read.
[[nodiscard]] QCursor LoadCursor(const QString& fileName);

}  // namespace chartproject
