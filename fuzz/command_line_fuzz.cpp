// Fuzz target: arguments, one a line, are parsed or refused; nothing is run.
#include "bytes_file.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"

namespace chartproject {
namespace {

void Parse(std::string_view bytes) {
  CLI::App app("", "chartproject");
  std::vector<std::unique_ptr<Command>> commands;
  for (const auto make : {MakeInitCommand, MakeSettingsCommand, MakeDrivesCommand, MakeReadCommand, MakeAcquireCommand,
                          MakeInfoCommand, MakeViewCommand, MakeRenderCommand, MakePrintCommand, MakeExportCommand}) {
    commands.push_back(make());
    commands.back()->AddTo(app);
  }
  std::vector<std::string> arguments = Lines(bytes);
  for (const std::string& argument : arguments) {
    try {
      (void)ParseDateTime(argument);
      (void)ParseTimeBetweenPoints(argument);
      (void)ParseNumber(argument, "--points", 1, 9);
    } catch (const RefusedError&) {
      continue;
    }
  }
  try {
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
  } catch (const CLI::Error&) {
    return;
  }
}

}  // namespace
}  // namespace chartproject

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  chartproject::Parse({reinterpret_cast<const char*>(data), size});
  return 0;
}
