// How punctual ticks are on the real clock with windows: timer_schedule [SECONDS] [MILLISECONDS]
// Prints the lateness of the ticks of one timer against the schedule that its start fixed.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "backends/posix/posix_clock.h"
#include "backends/qt/forms/qt_form_host.h"
#include "backends/qt/qt_application.h"
#include "forms/controls.h"

namespace chartproject {
namespace {

class TickForm : public Form {
 public:
  TickForm(FormHost& host, Clock& clock, int interval, std::size_t ticks)
      : Form(host, "frmTicks", nullptr), clock_(clock), wanted_(ticks) {
    SetLayout(Column({Cell(lblCount, 1)}));
    timer.tick = {"tmrTick_Timer", [this] { TakeTick(); }};
    timer.SetInterval(interval);
  }
  Label lblCount{*this, "lblCount"};
  Timer timer{*this, "tmrTick"};
  std::vector<double> lateness;  ///< milliseconds, by tick

 protected:
  void OnActivate() override {
    timer.SetEnabled(true);
    start_ = clock_.Now();
  }

 private:
  void TakeTick() {
    const auto count = static_cast<std::int64_t>(lateness.size()) + 1;
    const Instant due = start_ + count * Instant(std::chrono::milliseconds(timer.Interval()));
    lateness.push_back(static_cast<double>((clock_.Now() - due).count()) / 1000.0);
    lblCount.SetCaption(std::to_string(count));  // the window paints between the ticks, as the dialog does
    if (lateness.size() == wanted_) Unload();
  }

  Clock& clock_;
  std::size_t wanted_;
  Instant start_{};
};

}  // namespace
}  // namespace chartproject

int main(int argc, char** argv) {
  const int seconds = argc > 1 ? std::atoi(argv[1]) : 60;
  const int interval = argc > 2 ? std::atoi(argv[2]) : 200;
  const chartproject::QtApplication application(argc, argv);
  chartproject::PosixClock clock;
  chartproject::QtFormHost host(clock);
  chartproject::TickForm form(host, clock, interval, static_cast<std::size_t>(seconds * 1000 / interval));
  form.ShowModal();
  std::vector<double> sorted = form.lateness;
  std::sort(sorted.begin(), sorted.end());
  std::printf("%zu ticks of %d ms: first %.2f ms late, last %.2f, median %.2f, most %.2f\n", sorted.size(), interval,
              form.lateness.front(), form.lateness.back(), sorted[sorted.size() / 2], sorted.back());
  return 0;
}
