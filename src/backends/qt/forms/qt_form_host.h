// Forms as Qt windows: modal loops, and timers on the real clock.
#pragma once

#include <QTimer>

#include "backends/qt/qt_canvas.h"
#include "forms/form_host.h"

namespace chartproject {

/// Needs a running QApplication. Ticks come from one precise timer that is set to the next due time.
class QtFormHost : public FormHost {
 public:
  /// @param clock outlives the host
  explicit QtFormHost(Clock& clock);

  [[nodiscard]] std::unique_ptr<FormView> CreateView(Form& form) override;
  void RunModal(Form& form) override;
  [[nodiscard]] Size ScreenSize() const override;
  void KeepAlive() override;
  [[nodiscard]] PictureRenderer* Pictures() noexcept override { return &pictures_; }
  void TimersChanged() override;

 private:
  void Tick();

  Clock& clock_;
  QTimer timer_;
  QtPictureRenderer pictures_;
  bool keepingAlive_ = false;
};

}  // namespace chartproject
