// describe WHAT: what the manual, the shells' completion and their lists of words are made from. Not for users, so that
// --help does not list it.
#include <ostream>

#include "common/environment/settings_table.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/manual/completion.h"
#include "host/manual/manual_page.h"
#include "host/manual/version.h"
#include "host/session/session.h"
#include "recording/file/trigger_events.h"

namespace chartproject {

namespace {

class DescribeCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    program_ = &program;
    CLI::App* app =
        program.add_subcommand("describe", "Write what the manual and the shells' completion are made from");
    app->add_option("WHAT", what_, "man, bash, zsh; or a list of words: addresses, parameters, triggers, settings")
        ->required()
        ->check(CLI::IsMember({"man", "bash", "zsh", "addresses", "parameters", "triggers", "settings"}));
    app->add_option("ADDRESS", address_, "the drive whose parameters are listed (default: the selected one)");
    app->group("");
    return app;
  }

  ExitCode Run(Session& session) override {
    std::ostream& out = session.Out();
    if (what_ == "man") out << ManualPage(*program_, VersionNumber());
    if (what_ == "bash") out << BashCompletion(*program_);
    if (what_ == "zsh") out << ZshCompletion(*program_);
    if (what_ == "addresses") ListAddresses(session.Instance().State(), out);
    if (what_ == "parameters") ListParameters(session.Instance().State(), out);
    if (what_ == "triggers") ListTriggers(out);
    if (what_ == "settings") ListSettings(out);
    return ExitCode::kDone;
  }

 private:
  // Each line: the word, a tabulator, what it means.
  static void ListAddresses(const Component& component, std::ostream& out) {
    for (int address = 1; address <= kLastDriveAddress; ++address) {
      const DriveRecord& drive = component.driveTable.At(address);
      if (!drive.Type.empty()) out << address << "\t" << drive.Type << " " << drive.Tag << "\n";
    }
  }

  void ListParameters(Component& component, std::ostream& out) const {
    const int address =
        address_.empty() ? component.settings.intSelectedDrive : ParseNumber(address_, "ADDRESS", 1, kLastDriveAddress);
    if (address < 1 || component.driveTable.At(address).Type.empty()) return;
    LoadDriverFile(component, static_cast<std::int16_t>(address));
    const ParameterTable& table = component.parameterTables.At(address);
    for (int number = 0; number < kParameterCount; ++number) {
      if (table.At(number).present) out << number << "\t" << table.At(number).name << "\n";
    }
  }

  static void ListTriggers(std::ostream& out) {
    for (int event = 0; event < kEventCount; ++event) out << EventCode(EventAt(event)) << "\tan event of the drive\n";
  }

  static void ListSettings(std::ostream& out) {
    for (const SettingsSection* section : {&ConfSection(), &ProjectSection(), &FolderSection()}) {
      for (const SettingRow& row : section->rows) out << section->name << "." << row.key << "\ta setting\n";
    }
  }

  const CLI::App* program_ = nullptr;
  std::string what_;
  std::string address_;
};

}  // namespace

std::unique_ptr<Command> MakeDescribeCommand() {
  return std::make_unique<DescribeCommand>();
}

}  // namespace chartproject
