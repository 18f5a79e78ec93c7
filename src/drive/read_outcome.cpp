// Failures in the user's words.
#include "drive/read_outcome.h"

#include <charconv>

#include "texts/texts.h"

namespace chartproject {

namespace {

Text TextOf(ReadFailure failure) {
  switch (failure) {
    case ReadFailure::kTimeout:
      return Text::kReadTimeout;
    case ReadFailure::kChecksum:
      return Text::kReadChecksum;
    case ReadFailure::kException:
      return Text::kReadException;
    case ReadFailure::kPortGone:
      return Text::kReadPortGone;
    case ReadFailure::kStatus:
      return Text::kReadStatus;
    case ReadFailure::kBroken:
      return Text::kReadBroken;
    case ReadFailure::kNone:
    case ReadFailure::kNoAnswer:
    case ReadFailure::kGivenUp:
      break;
  }
  return Text::kReadNoAnswer;
}

}  // namespace

ReadOutcome OutcomeOfStatus(std::int16_t status, std::string_view detail) {
  if (status >= 0 && status <= static_cast<std::int16_t>(ReadFailure::kPortGone)) {
    return {static_cast<ReadFailure>(status), std::string(detail)};
  }
  return {ReadFailure::kStatus, std::to_string(status)};
}

std::int16_t StatusOfOutcome(const ReadOutcome& outcome) {
  if (outcome.failure <= ReadFailure::kPortGone) return static_cast<std::int16_t>(outcome.failure);
  if (outcome.failure != ReadFailure::kStatus) return static_cast<std::int16_t>(ReadFailure::kNoAnswer);
  std::int16_t status = 0;
  std::from_chars(outcome.detail.data(), outcome.detail.data() + outcome.detail.size(), status);
  return status;
}

std::string FailureText(Language language, const ReadOutcome& outcome) {
  if (outcome.Answered()) return {};
  const std::string_view text = TextIn(language, TextOf(outcome.failure));
  const bool takesDetail = text.find("%1") != std::string_view::npos;
  std::string words = FillIn(text, {outcome.detail});
  if (!takesDetail && !outcome.detail.empty()) words.append(" (").append(outcome.detail).append(")");
  return words;
}

}  // namespace chartproject
