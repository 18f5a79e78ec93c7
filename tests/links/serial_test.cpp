// A link to real drives without a line: the program goes on while a drive is silent.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "drive/unit_codes.h"
#include "links/serial/link_url.h"
#include "links/serial/serial_link.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;

/// A port whose answer comes when the test allows it.
struct HeldPort : LinePort {
  explicit HeldPort(std::function<bool()> toStop) : stopping(std::move(toStop)) {}
  void Open() override {}
  void Close() noexcept override {}
  LineReply Ask(const LineRequest& /*request*/, milliseconds /*timeout*/) override {
    while (held && !stopping()) std::this_thread::yield();
    return stopping() ? LineReply{ReplyKind::kStopped, 0, 0, {}} : LineReply{ReplyKind::kValue, 41, 0, {}};
  }
  LineReply AskName(std::uint8_t /*slave*/, milliseconds /*timeout*/) override { return {}; }
  void Flush() override {}

  std::function<bool()> stopping;
  static inline std::atomic<bool> held{false};
};

/// Moves by itself, as the line's thread needs it.
struct RunningClock : Clock {
  DateTime LocalNow() override { return {}; }
  Instant Now() override {
    return std::chrono::duration_cast<Instant>(std::chrono::steady_clock::now().time_since_epoch());
  }
};

TEST(SerialLinkTest, TheProgramGoesOnWhileADriveIsSilentAndTheLinkEndsAtOnce) {
  FakePorts fakes;
  RunningClock clock;
  int asked = 0;
  LinkWait wait{[&asked] { return ++asked < 3; }};
  const LineSettings settings = ParseLineText("modbus-tcp:h?offset=-1");
  SerialLinkFactory links(
      settings,
      [](const LineSettings&, std::function<bool()> stopping) {
        return std::make_unique<HeldPort>(std::move(stopping));
      },
      clock, fakes.locale, [] { return Language::kEnglish; });
  const auto link = links.Create(wait);
  const auto read = [&link](int address, int parameter) {
    const ReadOutcome outcome = link->ReadParameter(static_cast<std::int16_t>(address), "8",
                                                    static_cast<std::int16_t>(parameter), FindUnitCode("CurrentF1"));
    return outcome.Answered() ? link->GetText() : FailureText(Language::kEnglish, outcome);
  };
  EXPECT_EQ(read(1, 5), "the port is gone");  // before it is opened
  link->OpenLink();
  EXPECT_EQ(read(1, 5), "4.1");
  EXPECT_EQ(link->GetValue(), 4.1);
  EXPECT_EQ(read(1, 0), "no answer");  // there is no register -1
  EXPECT_EQ(read(31, 5), "no answer");
  HeldPort::held = true;
  EXPECT_EQ(link->ReadParameter(1, "8", 5, 7).failure, ReadFailure::kGivenUp);
  EXPECT_EQ(asked, 3);
  link->CloseLink();
  HeldPort::held = false;
}

}  // namespace
}  // namespace chartproject
