// Lines of the progress area.
#include "acquire/run/trouble_text.h"

#include "common/environment/language.h"
#include "recording/companion/companion_texts.h"

namespace chartproject {

std::string TroubleText(const Environment& environment, const AcquisitionRun& run, Instant now) {
  std::string text;
  const auto add = [&text](const std::string& line) { text += (text.empty() ? "" : "\n") + line; };
  const FailedReadings& failed = run.Failed();
  for (std::size_t column = 0; column < failed.size(); ++column) {
    if (failed[column].Count() == 0) continue;
    add(FailedText(environment.language, run.Plan().columns[column], failed[column], run.Counter()));
  }
  if (const std::int64_t late = run.Timing().LateInterval(now); late > 0) {
    const NumberFormat& numbers = environment.ports.locale.Numbers();
    add(FillIn(LoadMessage(environment, Text::kPointsComeLate),
               {IntervalText(late, numbers), IntervalText(run.Plan().millisecondsBetweenPoints, numbers)}));
  }
  return text;
}

}  // namespace chartproject
