// drives [--json]: the drive table of the project; drives add, remove, test, check.
#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "common/values/numbers.h"
#include "host/arguments/command.h"
#include "host/commands/drives_actions.h"
#include "host/reports/json_output.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

struct Column {
  const char* title;
  const char* key;  ///< in the JSON output
  std::string DriveRecord::*field;
};

constexpr std::array kColumns{Column{"Address", "address", &DriveRecord::Address},
                              Column{"Model", "type", &DriveRecord::Type},
                              Column{"Firmware", "firmwareVersion", &DriveRecord::FirmwareVersion},
                              Column{"Voltage", "nominalVoltage", &DriveRecord::NominalVoltage},
                              Column{"Current", "nominalCurrent", &DriveRecord::NominalCurrent},
                              Column{"Tag", "tag", &DriveRecord::Tag},
                              Column{"Reference", "commercialReference", &DriveRecord::CommercialReference},
                              Column{"Serial number", "serialNumber", &DriveRecord::SerialNumber}};

/// In characters, not bytes.
std::size_t Width(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

class DrivesCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("drives", "Show the drives of the project");
    app->add_flag("--json", json_, "as a JSON array");
    actions_.AddTo(*app);
    return app;
  }

  ExitCode Run(Session& session) override {
    if (actions_.Given()) return actions_.Run(session);
    const Component& component = session.Instance().State();
    std::vector<const DriveRecord*> drives;
    for (int address = 1; address <= kLastDriveAddress; ++address) {
      const DriveRecord& drive = component.driveTable.At(address);
      if (!drive.Type.empty()) drives.push_back(&drive);
    }
    const bool complete = ReportUnusableFiles(component, session.Err());
    if (json_) {
      PrintJson(drives, session.Out());
    } else if (!drives.empty()) {
      PrintTable(drives, session.Out());
    } else if (complete) {
      session.Err() << "There are no drives yet; \"chartproject init FOLDER\" makes a project.\n";
    }
    return complete ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

 private:
  /// False when the settings name a drive file that brings no drive into the table.
  static bool ReportUnusableFiles(const Component& component, std::ostream& err) {
    bool complete = true;
    if (component.settings.strMainFile.empty()) return complete;  // no project is open: no drive file was read
    for (int address = 1; address <= kLastDriveAddress; ++address) {
      const std::string& name = component.settings.strDriveFile.at(static_cast<std::size_t>(address) - 1);
      const DriveRecord& drive = component.driveTable.At(address);
      if (name.empty() || name == "0" || !drive.Type.empty()) continue;  // "0": the host's mark for no drive
      err << "drive " << FormatDigits(address, 2) << ": " << name
          << (drive.Address.empty() ? ": there is no such file\n" : ": the file names no model (Type=)\n");
      complete = false;
    }
    return complete;
  }

  static void PrintTable(const std::vector<const DriveRecord*>& drives, std::ostream& out) {
    std::array<std::size_t, kColumns.size()> widths{};
    for (std::size_t c = 0; c < kColumns.size(); ++c) {
      widths.at(c) = Width(kColumns.at(c).title);
      for (const DriveRecord* drive : drives)
        widths.at(c) = std::max(widths.at(c), Width(drive->*kColumns.at(c).field));
    }
    const auto line = [&](const auto& textOf) {
      std::string text;
      std::size_t end = 0;  // where the column at work ends, in characters
      for (std::size_t c = 0; c < kColumns.size(); ++c) {
        text.append(end - Width(text), ' ').append(textOf(kColumns.at(c)));
        end += widths.at(c) + 2;
      }
      out << text.substr(0, text.find_last_not_of(' ') + 1) << "\n";
    };
    line([](const Column& column) { return std::string(column.title); });
    for (const DriveRecord* drive : drives) {
      line([drive](const Column& column) { return drive->*column.field; });
    }
  }

  static void PrintJson(const std::vector<const DriveRecord*>& drives, std::ostream& out) {
    nlohmann::ordered_json document = nlohmann::ordered_json::array();
    for (const DriveRecord* drive : drives) {
      nlohmann::ordered_json& entry = document.emplace_back();
      for (const Column& column : kColumns) entry[column.key] = drive->*column.field;
    }
    PrintDocument(out, document);
  }

  bool json_ = false;
  DrivesActions actions_;
};

}  // namespace

std::unique_ptr<Command> MakeDrivesCommand() {
  return std::make_unique<DrivesCommand>();
}

}  // namespace chartproject
