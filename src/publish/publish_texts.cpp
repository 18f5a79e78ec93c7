// One text for each kind of answer.
#include "publish/publish_texts.h"

namespace chartproject {

std::string TroubleText(Language language, const std::string& server, const PostAnswer& answer) {
  const auto filled = [&](Text text) {
    return FillIn(TextIn(language, text), {server, std::to_string(answer.status), answer.text});
  };
  const auto reason = [&](Text text) { return FillIn(TextIn(language, text), {server, answer.text}); };
  switch (answer.result) {
    case PostResult::kServerBusy:
      return filled(Text::kPublishServerBusy);
    case PostResult::kTooLarge:
      return filled(Text::kPublishTooLarge);
    case PostResult::kTokenRefused:
      return filled(Text::kPublishTokenRefused);
    case PostResult::kRefused:
      return filled(Text::kPublishRefused);
    case PostResult::kNotADatabase:
      return filled(Text::kPublishNotADatabase);
    case PostResult::kCertificate:
      return reason(Text::kPublishCertificate);
    case PostResult::kRedirects:
      return reason(Text::kPublishRedirects);
    default:
      return reason(Text::kPublishNotReached);
  }
}

std::string FailureText(Language language, const std::string& server, const PublishReport& report) {
  if (report.fault) return report.fault->Description(language);
  return report.trouble ? TroubleText(language, server, *report.trouble) : std::string();
}

}  // namespace chartproject
