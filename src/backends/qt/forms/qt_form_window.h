// The top-level widget of a form: turns Qt's window events into calls of its view.
#pragma once

#include <QWidget>

namespace chartproject {

class QtFormView;

class FormWindow : public QWidget {
 public:
  explicit FormWindow(QtFormView& view);
  /// Gives the focus to the first control in tab order.
  void FocusFirst() { focusNextChild(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QtFormView& view_;
};

}  // namespace chartproject
