// Run-time errors to the log file and to the user.
#include "common/error_log.h"

#include "common/environment/environment.h"
#include "common/values/text.h"

namespace chartproject {

namespace {

/// The labels are those that readers of the log look for, in both languages of its history.
std::string ErrorText(Environment& environment, const std::string& routine, const RunTimeError& error) {
  const DateTime now = environment.ports.clock.LocalNow();
  const Locale& locale = environment.ports.locale;
  std::string text = "<<Run-Time Error>>";
  // A name with a line end in it must not begin a new record.
  const auto line = [&text](const char* label, const std::string& value) {
    text.append(kLineEnd) += label + VisibleText(value);
  };
  line("Data = ", locale.DateText(now));
  line("Hora = ", locale.TimeText(now));
  line("Sub/Function = ", routine);
  line("Err.Number = ", std::to_string(error.Number()));
  line("Err.Description = ", error.Description(environment.language));
  line("Err.Source = ", error.Source());
  return text;
}

void AppendToLog(Environment& environment, const std::string& text) {
  environment.ports.files.Append(ErrorLogFile(environment), environment.ports.codePage.Encode(text + kLineEnd));
}

void ShowError(Environment& environment, const std::string& text) {
  static_cast<void>(environment.ports.dialogs.ShowMessageBox(
      {.prompt = text, .style = box_style::kOkOnly, .title = kApplicationTitle, .helpFile = {}, .helpContext = 0}));
}

}  // namespace

std::string ErrorLogFile(const Environment& environment) {
  const std::string& folder = environment.settings.strBin;
  return JoinPath(folder.empty() ? environment.profileFolder : folder, "Kestrel.log");
}

void NoteRunTimeError(Environment& environment, const std::string& routine, const RunTimeError& error) noexcept {
  try {
    AppendToLog(environment, ErrorText(environment, routine, error));
  } catch (const std::exception&) {
    return;
  }
}

void LogRunTimeError(Environment& environment, const std::string& routine, const RunTimeError& error) noexcept {
  try {
    std::string text = ErrorText(environment, routine, error);
    try {
      AppendToLog(environment, text);
    } catch (const RunTimeError& logError) {
      text.append(kLineEnd).append(kLineEnd) += ErrorText(environment, "LogRunTimeError", logError);
    }
    ShowError(environment, text);
  } catch (const std::exception&) {
    return;  // the box failed too: there is no other way to report the error
  }
}

HandlerErrorReporter MakeHandlerErrorReporter(Environment& environment) {
  return [&environment](const std::string& routine, const RunTimeError& error) {
    LogRunTimeError(environment, routine, error);
  };
}

}  // namespace chartproject
