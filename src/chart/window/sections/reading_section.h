// Readings of the file that take long enough to be noticed: the text of how far they are, the hourglass, giving up.
#pragma once

#include <functional>
#include <optional>

#include "chart/file/line_index.h"
#include "common/environment/environment.h"
#include "forms/controls.h"
#include "forms/flag_scope.h"
#include "forms/form.h"
#include "platform/clock.h"

namespace chartproject {

class ReadingSection {
 public:
  ReadingSection(Form& form, Environment& environment);
  ReadingSection(const ReadingSection&) = delete;
  ReadingSection& operator=(const ReadingSection&) = delete;

  Label lblStatus;  ///< how far a long reading is

  /// A reading; while it lives the window's handlers leave the file alone.
  class Scope {
   public:
    explicit Scope(ReadingSection& section);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    ReadingSection& section_;
    FlagScope busy_;
  };
  /// A reading for something else than the slice that is shown, such as a search.
  class Work : public Scope {
   public:
    explicit Work(ReadingSection& section) : Scope(section), ended_(section) {}
    ~Work() {
      if (ended_.workEnded) ended_.form_.RunHandler("Reading_Ended", ended_.workEnded);
    }

   private:
    ReadingSection& ended_;
  };
  std::function<void()> workEnded;  ///< called after a Work: what the user moved meanwhile moved nothing

  /// Shows a text; an empty one takes the label and the room that it alone needs away, unless there is one at rest.
  void Say(const std::string& text);
  /// Shows a text whenever there is no other one; empty for none.
  void SayAtRest(const std::string& text);
  [[nodiscard]] bool Busy() const noexcept { return busy_; }
  /// Shows the hourglass for the rest of the reading; an earlier press of Esc does not count.
  void ShowHourglass();
  /// Hourglass and text (with the percentage as %1), once the reading takes long enough; false when the user gave it
  /// up.
  bool ShowProgress(double part, Text text = Text::kReadingFile);
  [[nodiscard]] ScanProgress Progress() {
    return [this](double part) { return ShowProgress(part); };
  }
  /// Stops a running reading and closes the window after it. False when nothing is being read.
  bool CloseAfterwards() noexcept;
  [[nodiscard]] bool ClosesAfterwards() const noexcept { return closing_; }

 private:
  Form& form_;
  Environment& env_;
  std::optional<HourglassScope> hourglass_;
  std::string atRest_;
  Instant began_{};
  Instant shownAt_{};
  bool busy_ = false;
  bool closing_ = false;
};

}  // namespace chartproject
