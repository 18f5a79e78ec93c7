// Secrets come from a file or from the environment: the command line is seen by every user of the machine.
#include "host/arguments/publish_options.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "backends/curl/curl_poster.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "platform/run_time_error.h"
#include "publish/line_protocol.h"

namespace chartproject {
namespace {

constexpr const char* kTokenVariable = "CHARTPROJECT_PUBLISH_TOKEN";
constexpr const char* kUrlVariable = "CHARTPROJECT_PUBLISH_URL";
constexpr std::size_t kLongestToken = 4096;

std::string OfEnvironment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// One line of visible characters: anything else could add lines of its own to a request.
bool IsToken(const std::string& text) {
  return !text.empty() && text.size() <= kLongestToken &&
         std::ranges::all_of(text, [](char c) { return c >= ' ' && c != 0x7F; });
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

}  // namespace

void PublishOptions::AddTo(CLI::App& command, const std::string& urlOption, int usualWait) {
  urlOption_ = urlOption;
  usualWait_ = usualWait;
  command
      .add_option(urlOption, url_,
                  "database that takes the line protocol: http://HOST:PORT, or an address with the path for "
                  "writing (the variable CHARTPROJECT_PUBLISH_URL of publish)")
      ->type_name("URL");
  command.add_option("--database", database_, "database, for servers that have several")->type_name("NAME");
  command.add_option("--measurement", measurement_, "measurement of the points [default: chart]")->type_name("NAME");
  command.add_option("--host", host_, "tag \"host\" of the points [default: this machine's name]")->type_name("NAME");
  command
      .add_option("--token-file", tokenFile_,
                  "file with the server's token: TOKEN, \"Bearer TOKEN\" or \"Basic NAME:PASSWORD\" (or the variable "
                  "CHARTPROJECT_PUBLISH_TOKEN)")
      ->type_name("PATH")
      ->transform(FullName);
  command.add_option("--ca-file", certificates_, "certificates to trust, in place of the system's")
      ->type_name("PATH")
      ->transform(FullName);
  command.add_option("--client-certificate", clientCertificate_, "certificate that names us to the server")
      ->type_name("PATH")
      ->transform(FullName);
  command.add_option("--client-key", clientKey_, "its key")->type_name("PATH")->transform(FullName);
  command
      .add_option("--wait", wait_,
                  "seconds to wait for a server that does not answer [default: " + std::to_string(usualWait) + "]")
      ->type_name("SECONDS");
}

void PublishOptions::RefuseWithoutAddress() const {
  for (const std::string* option :
       {&database_, &host_, &tokenFile_, &certificates_, &clientCertificate_, &clientKey_, &wait_}) {
    if (!option->empty()) throw RefusedError("the options of a database go with " + urlOption_ + " URL");
  }
}

void PublishOptions::RequireAddress() {
  if (url_.empty()) url_ = OfEnvironment(kUrlVariable);
  if (url_.empty()) throw RefusedError(urlOption_ + " URL is needed: the database, for example http://server:8428");
}

std::unique_ptr<LinePoster> PublishOptions::MakePoster(FileSystem& files, Language language) const {
  try {
    return PosterOf(files);
  } catch (const RunTimeError& error) {
    if (error.Number() == error_number::kInvalidProcedureCall) throw RefusedError(error.Description(language));
    throw RunTimeError(error.Number(), error.Description(language));
  }
}

std::unique_ptr<LinePoster> PublishOptions::PosterOf(FileSystem& files) const {
  if (!IsMeasurement(measurement_)) {
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kPublishMeasurement, {measurement_});
  }
  (void)Wait();
  const PostAddress address = MakePostAddress(url_, database_);
  PostSecurity security{Token(files), certificates_, clientCertificate_, clientKey_};
  for (const std::string* name : {&security.certificates, &security.clientCertificate, &security.clientKey}) {
    if (!name->empty()) (void)files.OpenForReading(*name);  // the library would name it at the first point only
  }
  return MakeCurlPoster(address, security);
}

std::string PublishOptions::Token(FileSystem& files) const {
  std::string token = OfEnvironment(kTokenVariable);
  const std::string name = tokenFile_.empty() ? kTokenVariable : tokenFile_;
  if (!tokenFile_.empty()) {
    const auto file = files.OpenForReading(name);
    token.assign(kLongestToken + 2, '\0');
    token.resize(file->Read(token));
    while (!token.empty() && (token.back() == '\n' || token.back() == '\r' || token.back() == ' ')) token.pop_back();
  } else if (token.empty()) {
    return token;
  }
  if (!IsToken(token)) throw RunTimeError(error_number::kInvalidProcedureCall, Text::kPublishTokenFile, {name});
  return token;
}

std::string PublishOptions::Host() const {
  if (!host_.empty()) return host_;
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

int PublishOptions::Wait() const {
  constexpr int kDay = 86'400;
  return wait_.empty() ? usualWait_ : ParseNumber(wait_, "--wait", 1, kDay);
}

std::string PublishOptions::CommandFor(const std::string& chartFile) const {
  std::string command = "chartproject publish " + Quoted(chartFile) + " --to " + Quoted(url_);
  const auto add = [&command](const std::string& option, const std::string& value) {
    if (!value.empty()) command += " " + option + " " + Quoted(value);
  };
  add("--database", database_);
  if (measurement_ != "chart") add("--measurement", measurement_);
  add("--host", host_);
  add("--token-file", tokenFile_);
  add("--ca-file", certificates_);
  add("--client-certificate", clientCertificate_);
  add("--client-key", clientKey_);
  return command;
}

}  // namespace chartproject
