// The top-level widget of a form: turns Qt's window events into calls of its view.
#pragma once

#include <QScrollArea>
#include <QWidget>

namespace chartproject {

class QtFormView;

/// What holds a form's controls: as large as the window, or as the layout needs where the screen is smaller.
class FormContent : public QWidget {
 public:
  explicit FormContent(QtFormView& view) : view_(view) {}

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QtFormView& view_;
};

class FormWindow : public QWidget {
 public:
  explicit FormWindow(QtFormView& view);
  [[nodiscard]] QWidget& Content() { return content_; }
  /// The content's size at least; where the window has less room, bars scroll it.
  void SetLeastContent(QSize size);
  /// Width of a scroll bar.
  [[nodiscard]] int BarWidth() const;
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
  FormContent& content_;  ///< owned by the scroll area
  QScrollArea area_{this};
};

}  // namespace chartproject
