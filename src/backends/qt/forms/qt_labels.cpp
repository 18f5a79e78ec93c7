// Labels, groups and the progress bar: what only shows.
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <algorithm>
#include <cmath>

#include "backends/qt/forms/qt_widgets.h"
#include "backends/qt/qt_text.h"
#include "forms/controls.h"

namespace chartproject {

namespace {

constexpr int kWrapWidth = 240;  ///< least width of a label that may take several lines
constexpr QSize kSwatchSize{22, 14};
constexpr int kProgressWidth = 160;
constexpr int kProgressSteps = 10000;

Qt::Alignment AlignmentOf(Align align) {
  switch (align) {
    case Align::kCenter:
      return Qt::AlignHCenter;
    case Align::kRight:
      return Qt::AlignRight;
    default:
      return Qt::AlignLeft;
  }
}

/// Width of a line as it is drawn: the underlined letter has no kerning, which a size hint counts on.
int DrawnWidth(const QFontMetrics& metrics, const QString& text) {
  const qsizetype key = text.indexOf('&');
  if (key < 0 || key + 1 >= text.size()) return metrics.horizontalAdvance(text);
  return metrics.horizontalAdvance(text.left(key)) + metrics.horizontalAdvance(text.at(key + 1)) +
         metrics.horizontalAdvance(text.mid(key + 2));
}

/// A label that cuts a text which does not fit, with an ellipsis at its end.
class ElidingLabel : public QLabel {
 public:
  explicit ElidingLabel(const Label& label) : label_(label) {}

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (!label_.Elided() || fontMetrics().horizontalAdvance(text()) <= contentsRect().width()) {
      QLabel::paintEvent(event);
      return;
    }
    QPainter painter(this);
    painter.drawText(contentsRect(), static_cast<int>(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
  }

 private:
  const Label& label_;
};

class LabelWidget : public ControlWidget {
 public:
  LabelWidget(Label& label, QLabel& widget) : ControlWidget(label, widget), label_(label), widget_(widget) {
    widget_.setTextFormat(Qt::PlainText);
  }
  void ShowCaption(const QString& caption) override {
    widget_.setAlignment(AlignmentOf(label_.TextAlign()) | Qt::AlignVCenter);
    widget_.setWordWrap(label_.WordWrap());
    widget_.setFrameStyle(label_.BorderStyle() == 0 ? QFrame::NoFrame : (QFrame::Panel | QFrame::Sunken));
    widget_.setText(caption);
  }
  [[nodiscard]] QSize Preferred() const override {
    if (label_.Elided()) return {0, widget_.fontMetrics().height()};
    if (!label_.WordWrap()) {
      const QSize hint = widget_.sizeHint();
      return {std::max(hint.width(), DrawnWidth(widget_.fontMetrics(), widget_.text())), hint.height()};
    }
    const int width = std::min(kWrapWidth, widget_.fontMetrics().horizontalAdvance(widget_.text()) + 2);
    return {width, HeightForWidth(width)};
  }
  [[nodiscard]] int HeightForWidth(int width) const override {
    if (!label_.WordWrap()) return widget_.sizeHint().height();
    return std::max(widget_.heightForWidth(width), widget_.fontMetrics().height());
  }

 private:
  Label& label_;
  QLabel& widget_;
};

class FrameWidget : public ControlWidget {
 public:
  FrameWidget(Control& control, QGroupBox& widget) : ControlWidget(control, widget), widget_(widget) {}
  void ShowCaption(const QString& caption) override { widget_.setTitle(caption); }
  [[nodiscard]] QSize Preferred() const override {
    return {widget_.fontMetrics().horizontalAdvance(widget_.title()) + 2 * widget_.fontMetrics().height(), 0};
  }

 private:
  QGroupBox& widget_;
};

/// A swatch of one colour, or a group that looks like a frame without title.
class Panel : public QFrame {
 public:
  Panel(PictureBox& picture, InputGate& gate) : picture_(picture), gate_(gate) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (!picture_.HasColor() || event->button() != Qt::LeftButton) {
      QFrame::mousePressEvent(event);
      return;
    }
    gate_.Take(picture_, [this] { picture_.Press(); });
  }
  void paintEvent(QPaintEvent* event) override {
    if (picture_.HasColor()) {
      QFrame::paintEvent(event);
      return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), Shade(0.13));  // a pen would lose its edge where a dot of the screen is not a whole one
    painter.fillRect(rect().adjusted(1, 1, -1, -1), Shade(0.02));
  }

 private:
  /// The ground with a share of the text's colour, which is seen in light and in dark colours.
  [[nodiscard]] QColor Shade(double share) const {
    const QColor ground = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    const auto mixed = [share](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * share)); };
    return {mixed(ground.red(), text.red()), mixed(ground.green(), text.green()), mixed(ground.blue(), text.blue())};
  }

  PictureBox& picture_;
  InputGate& gate_;
};

class PictureBoxWidget : public ControlWidget {
 public:
  PictureBoxWidget(PictureBox& picture, QFrame& widget)
      : ControlWidget(picture, widget), picture_(picture), widget_(widget) {}
  void Show(Property property) override {
    ControlWidget::Show(property);
    if ((property != Property::kColor && property != Property::kEnabled) || !picture_.HasColor()) return;
    const Color color = picture_.BackColor();
    QPalette palette = widget_.palette();
    palette.setColor(QPalette::Active, QPalette::Window, QColor(color.red, color.green, color.blue));
    palette.setColor(QPalette::Inactive, QPalette::Window, QColor(color.red, color.green, color.blue));
    palette.setColor(QPalette::Disabled, QPalette::Window, palette.color(QPalette::Disabled, QPalette::Mid));
    widget_.setPalette(palette);
    widget_.setAutoFillBackground(true);
    widget_.setFrameStyle(QFrame::Box | QFrame::Plain);
  }
  [[nodiscard]] QSize Preferred() const override { return picture_.HasColor() ? kSwatchSize : QSize(0, 0); }

 private:
  PictureBox& picture_;
  QFrame& widget_;
};

class ProgressWidget : public ControlWidget {
 public:
  ProgressWidget(ProgressBar& bar, QProgressBar& widget) : ControlWidget(bar, widget), bar_(bar), widget_(widget) {
    widget_.setRange(0, kProgressSteps);
    widget_.setTextVisible(false);
  }
  void Show(Property property) override {
    ControlWidget::Show(property);
    if (property != Property::kValue && property != Property::kRange) return;
    const double span = bar_.Maximum() - bar_.Minimum();
    const double part = span > 0 ? (bar_.Value() - bar_.Minimum()) / span : 0;
    widget_.setValue(static_cast<int>(std::lround(part * kProgressSteps)));
  }
  [[nodiscard]] QSize Preferred() const override { return {kProgressWidth, widget_.sizeHint().height()}; }

 private:
  ProgressBar& bar_;
  QProgressBar& widget_;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeLabel(Control& control, InputGate& /*gate*/) {
  auto& label = dynamic_cast<Label&>(control);
  return std::make_unique<LabelWidget>(label, *new ElidingLabel(label));
}

std::unique_ptr<ControlWidget> MakeFrame(Control& control, InputGate& /*gate*/) {
  return std::make_unique<FrameWidget>(control, *new QGroupBox);
}

std::unique_ptr<ControlWidget> MakePictureBox(Control& control, InputGate& gate) {
  auto& picture = dynamic_cast<PictureBox&>(control);
  return std::make_unique<PictureBoxWidget>(picture, *new Panel(picture, gate));
}

std::unique_ptr<ControlWidget> MakeProgressBar(Control& control, InputGate& /*gate*/) {
  return std::make_unique<ProgressWidget>(dynamic_cast<ProgressBar&>(control), *new QProgressBar);
}

}  // namespace chartproject
