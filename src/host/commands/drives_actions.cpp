// Drives of the project, one by one.
#include "host/commands/drives_actions.h"

#include <ostream>
#include <vector>

#include "common/values/line_reader.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_link_session.h"
#include "drive/drive_models.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/project/project_drives.h"
#include "host/project/project_edit.h"
#include "host/project/project_maker.h"
#include "host/session/project_folder.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

/// What is wrong with a driver file.
class DriverFileCheck {
 public:
  DriverFileCheck(Ports& ports, const std::string& fileName) : ports_(ports), fileName_(fileName) {}

  void Run() {
    const auto file = ports_.files.OpenForReading(fileName_);
    constexpr std::uint64_t kMostMegabytes = 16;
    RefuseLargeFile(fileName_, file->Identity().size, kMostMegabytes);
    DriverFileParser parser(table_, ports_.locale.Numbers(), [this](std::string_view keyword, int parameter) {
      const std::int16_t code = FindUnitCode(keyword);
      if (code == kUnknownUnitCode) {
        Complain("unknown unit \"" + std::string(keyword) + "\" of " + ParameterName(parameter));
      }
      return code;
    });
    LineReader reader(*file);
    for (TextLine line; reader.Next(line);) {
      line_ = line.number;
      Take(parser, line);
    }
    for (int number = 0; number <= kLastParameter; ++number) parameters += table_.At(number).present ? 1 : 0;
  }

  std::vector<std::string> complaints;
  int parameters = 0;

 private:
  static constexpr int kLastParameter = 999;

  void Take(DriverFileParser& parser, const TextLine& line) {
    try {
      if (line.cut || !parser.TakeLine(ports_.codePage.Decode(line.text))) {
        Complain("not a parameter line: it needs 14 \"#\" around 13 fields, the last one empty");
      }
    } catch (const RunTimeError& error) {
      Complain(error.Description());
    }
  }

  void Complain(const std::string& what) { complaints.push_back("line " + std::to_string(line_) + ": " + what); }

  Ports& ports_;
  const std::string& fileName_;
  ParameterTable table_;
  std::int64_t line_ = 0;
};

/// A parameter that the drive should have: the first of its driver file.
std::int16_t FirstParameter(Component& component, int address) {
  constexpr std::int16_t kLastParameter = 999;
  for (std::int16_t number = 0; number <= kLastParameter; ++number) {
    if (component.parameterTables.At(address).At(number).present) return number;
  }
  return 0;
}

/// One line of the test. @return true when the drive answered, be it with a refusal
bool TestDrive(Session& session, Component& component, int address) {
  component.currentDrive = static_cast<std::int16_t>(address);
  LoadDriverFile(component, component.currentDrive);
  const DriveRecord& drive = component.driveTable.At(address);
  const std::int16_t parameter = FirstParameter(component, address);
  const Instant begin = component.ports.clock.Now();
  const ReadOutcome outcome = component.driveLink->ProbeParameter(component.currentDrive, ModelCode(drive.Type),
                                                                  parameter, UnitCodeOf(component, parameter));
  const auto taken = std::chrono::round<std::chrono::milliseconds>(component.ports.clock.Now() - begin);
  session.Out() << VisibleText(drive.Address + "  " + drive.Type + "  ");
  if (outcome.Answered()) {
    session.Out() << "answers in " << taken.count() << " ms\n";
  } else {
    session.Out() << VisibleText(FailureText(component.language, outcome)) << " (" << ParameterName(parameter) << ")\n";
  }
  session.Out() << std::flush;
  return outcome.Answered() || outcome.failure == ReadFailure::kException;
}

}  // namespace

void DrivesActions::AddTo(CLI::App& drives) {
  drives.require_subcommand(0, 1);
  add_ = drives.add_subcommand("add", "Add a drive to the project, with driver files of a model that ships");
  add_->add_option("ADDRESS", address_, "drive address, 1 to 30")->type_name("")->required();
  add_->add_option("MODEL", model_, "for example KRA-09")->type_name("")->required();
  add_->add_option("--firmware", firmware_, "firmware version (default: that of the model's driver files)")
      ->type_name("VERSION");
  add_->add_option("--tag", tag_, "what the drive is called in the plant")->type_name("TEXT");
  remove_ = drives.add_subcommand("remove", "Take a drive out of the project; its files stay");
  remove_->add_option("ADDRESS", address_, "drive address, 1 to 30")->type_name("")->required();
  test_ = drives.add_subcommand("test", "Ask each drive of the project, or one, for a parameter");
  test_->add_option("ADDRESS", address_, "drive address, 1 to 30")->type_name("");
  check_ = drives.add_subcommand("check", "Check a driver file: all complaints in one list");
  check_->add_option("FILE", file_, "driver file (.wcd)")->type_name("")->required();
  for (CLI::App* const action : {add_, remove_, test_, check_}) action->fallthrough();
}

bool DrivesActions::Given() const {
  return add_->parsed() || remove_->parsed() || test_->parsed() || check_->parsed();
}

ExitCode DrivesActions::Run(Session& session) const {
  if (add_->parsed()) return Add(session);
  if (remove_->parsed()) return Remove(session);
  return test_->parsed() ? Test(session) : Check(session);
}

ExitCode DrivesActions::Add(Session& session) const {
  const int address = ParseNumber(address_, "ADDRESS", 1, kLastDriveAddress);
  Ports& ports = session.ThePorts();
  ProjectEdit edit(ports.files, ports.settings, ports.codePage);
  if (FindDriveModel(model_) == nullptr) {
    throw RefusedError("the model \"" + model_ + "\" is not known; the models are " + ModelNames());
  }
  if (!edit.HasProject()) {
    const ProjectReport made = MakeProject(ports.files, ports.settings, ports.codePage,
                                           FirstProjectFolder(session.Options()), DrivesOfProject::kNone);
    session.Err() << "A project was made in " << VisibleText(made.folder) << "\n";
  }
  const AddedDrive added = edit.Add({address, model_, firmware_, tag_});
  session.Out() << "Drive " << FormatDigits(address, 2) << ", " << VisibleText(model_) << " "
                << VisibleText(added.firmwareVersion) << ": " << VisibleText(added.driveFile) << "\n";
  for (const std::string& file : added.driverFiles) session.Out() << "Driver file: " << VisibleText(file) << "\n";
  return ExitCode::kDone;
}

ExitCode DrivesActions::Remove(Session& session) const {
  const int address = ParseNumber(address_, "ADDRESS", 1, kLastDriveAddress);
  Ports& ports = session.ThePorts();
  const std::string file = ProjectEdit(ports.files, ports.settings, ports.codePage).Remove(address);
  session.Out() << "Drive " << FormatDigits(address, 2) << " is removed; its file stays: " << VisibleText(file) << "\n";
  return ExitCode::kDone;
}

ExitCode DrivesActions::Test(Session& session) const {
  const int only = address_.empty() ? 0 : ParseNumber(address_, "ADDRESS", 1, kLastDriveAddress);
  Component& component = session.Instance().State();
  DriveLinkSession link(component);
  link.Open();
  int tested = 0;
  bool all = true;
  for (int address = 1; address <= kLastDriveAddress; ++address) {
    if ((only != 0 && address != only) || component.driveTable.At(address).Type.empty()) continue;
    ++tested;
    all = TestDrive(session, component, address) && all;
  }
  link.Close();
  if (tested == 0) {
    throw RefusedError(only == 0 ? "the project has no drives; \"chartproject drives add\" adds one"
                                 : "there is no drive at address " + FormatDigits(only, 2));
  }
  return all ? ExitCode::kDone : ExitCode::kRunTimeError;
}

ExitCode DrivesActions::Check(Session& session) const {
  const std::string fileName = FullName(file_);
  DriverFileCheck check(session.ThePorts(), fileName);
  check.Run();
  if (check.parameters == 0) check.complaints.emplace_back("the file describes no parameter");
  for (const std::string& complaint : check.complaints) session.Out() << VisibleText(complaint) << "\n";
  if (check.complaints.empty()) session.Out() << check.parameters << " parameters, no complaint\n";
  return check.complaints.empty() ? ExitCode::kDone : ExitCode::kRunTimeError;
}

}  // namespace chartproject
