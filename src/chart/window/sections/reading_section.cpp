// Progress of long readings.
#include "chart/window/sections/reading_section.h"

#include "common/environment/language.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

/// A reading shorter than this is not worth a progress text.
constexpr Instant kUnnoticed = std::chrono::milliseconds(150);
constexpr Instant kBetweenReports = std::chrono::milliseconds(50);

}  // namespace

ReadingSection::ReadingSection(Form& form, Environment& environment)
    : lblStatus(form, "lblStatus"), form_(form), env_(environment) {
  lblStatus.SetTextAlign(Align::kRight);
  lblStatus.SetVisible(false);
}

ReadingSection::Scope::Scope(ReadingSection& section) : section_(section), busy_(section.busy_) {
  section_.began_ = section_.env_.ports.clock.Now();
}

ReadingSection::Scope::~Scope() {
  section_.hourglass_.reset();
  section_.Say({});
}

void ReadingSection::ShowHourglass() {
  if (!hourglass_) hourglass_.emplace(form_);
  [[maybe_unused]] const bool earlier = env_.ports.keyboard.EscapePressed();
}

bool ReadingSection::ShowProgress(double part, Text text) {
  const Instant now = env_.ports.clock.Now();
  if (!hourglass_) {
    if (now - began_ < kUnnoticed) return true;
    ShowHourglass();
  } else if (now - shownAt_ < kBetweenReports) {
    return true;
  }
  shownAt_ = now;
  lblStatus.SetCaption(FillIn(LoadMessage(env_, text), {std::to_string(static_cast<int>(part * 100))}));
  env_.forms.KeepAlive();
  return !env_.ports.keyboard.EscapePressed() && !closing_;
}

void ReadingSection::SayAtRest(const std::string& text) {
  atRest_ = text;
  Say({});
}

void ReadingSection::Say(const std::string& text) {
  const std::string& shown = text.empty() ? atRest_ : text;
  lblStatus.SetCaption(shown);
  if (lblStatus.Visible() == !shown.empty()) return;
  lblStatus.SetVisible(!shown.empty());
  form_.LayoutChanged();
}

bool ReadingSection::CloseAfterwards() noexcept {
  closing_ = busy_;
  return busy_;
}

}  // namespace chartproject
