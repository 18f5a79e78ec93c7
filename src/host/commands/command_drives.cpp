// drives: the drive table of the project.
#include <iomanip>
#include <ostream>

#include "host/commands/command.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

class DrivesCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    return program.add_subcommand("drives", "Show the drives of the project");
  }

  ExitCode Run(Session& session) override {
    const DriveTable& table = session.Instance().State().driveTable;
    int found = 0;
    for (int address = 0; address <= kLastDriveAddress; ++address) {
      const DriveRecord& drive = table.At(address);
      if (drive.Type.empty()) continue;
      if (++found == 1) Line(session.Out(), "Address", "Model", "Firmware", "Voltage", "Current", "Tag");
      Line(session.Out(), drive.Address, drive.Type, drive.FirmwareVersion, drive.NominalVoltage, drive.NominalCurrent,
           drive.Tag);
    }
    if (found == 0) session.Err() << "There are no drives yet; \"chartproject init FOLDER\" makes a project.\n";
    return ExitCode::kDone;
  }

 private:
  static void Line(std::ostream& out, const std::string& address, const std::string& model, const std::string& firmware,
                   const std::string& voltage, const std::string& current, const std::string& tag) {
    out << std::left << std::setw(9) << address << std::setw(12) << model << std::setw(10) << firmware << std::setw(14)
        << voltage << std::setw(9) << current << tag << "\n";
  }
};

}  // namespace

std::unique_ptr<Command> MakeDrivesCommand() {
  return std::make_unique<DrivesCommand>();
}

}  // namespace chartproject
