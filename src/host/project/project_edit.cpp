// Files first, settings last, so that a failure leaves the project as it was.
#include "host/project/project_edit.h"

#include <algorithm>
#include <array>

#include "common/environment/language.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_models.h"
#include "drive/driver_file.h"
#include "host/project/project_drives.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr const char* kSection = "MyProject";
constexpr const char* kNoDriveFile = "0";  // what the host leaves for an address without a drive

std::string KeyOf(int address) {
  return "strDriveFile" + FormatDigits(address, 2);
}

[[noreturn]] void Refuse(Text text, std::initializer_list<std::string> values) {
  throw RunTimeError(error_number::kInvalidProcedureCall, text, values);
}

}  // namespace

bool ProjectEdit::HasProject() {
  return !store_.Read(kSection, "strMainFile").value_or("").empty();
}

std::string ProjectEdit::DriveFileAt(int address) {
  const std::string name = store_.Read(kSection, KeyOf(address)).value_or(kNoDriveFile);
  return name == kNoDriveFile ? std::string() : name;
}

bool ProjectEdit::HasDriverFile(const std::string& folder, const NewDrive& drive) {
  const std::string model = RemoveFirst(drive.model, "-");
  return std::ranges::any_of(kLanguages, [&](const LanguageRow& language) {
    const std::string ending = std::string(language.name.substr(0, 1)) + ".wcd";
    return std::ranges::any_of(DriverFileNames(model, drive.firmwareVersion, ending),
                               [&](const std::string& name) { return files_.FileExists(JoinPath(folder, name)); });
  });
}

std::string ProjectEdit::FreeName(const std::string& folder, int address) {
  const std::string stem = JoinPath(folder, "drive" + FormatDigits(address, 2));
  std::string name = stem + ".drv";
  for (int number = 2; files_.FileExists(name); ++number) name = stem + "-" + std::to_string(number) + ".drv";
  return name;
}

void ProjectEdit::WriteNew(const std::string& name, const std::string& bytes) {
  const auto made = files_.MakeSideFile({.target = name, .ending = "", .names = 1});
  const auto output = made->OpenForWriting();
  output->Write(bytes);
  output->FlushAndClose();
  made->Keep();
}

AddedDrive ProjectEdit::Add(const NewDrive& drive) {
  if (const std::string taken = DriveFileAt(drive.address); !taken.empty()) {
    Refuse(Text::kDriveAddressTaken, {FormatDigits(drive.address, 2), taken});
  }
  if (FindDriveModel(drive.model) == nullptr) Refuse(Text::kDriveModelUnknown, {drive.model, ModelNames()});
  const std::string drivers = store_.Read("MyKestrel", "strDrivers").value_or("");
  NewDrive wanted = drive;
  if (wanted.firmwareVersion.empty()) wanted.firmwareVersion = ShippedFirmware(drive.model);
  AddedDrive added{{}, {}, wanted.firmwareVersion};
  if (!HasDriverFile(drivers, wanted)) {
    const ProjectFiles files = DriverFilesOf(drivers, wanted.model, wanted.firmwareVersion, codePage_);
    if (files.empty()) Refuse(Text::kModelWithoutDriver, {drive.model, drivers});
    files_.MakeFolder(drivers);
    for (const ProjectFile& file : files) {
      WriteNew(file.name, file.bytes);
      added.driverFiles.push_back(file.name);
    }
  }
  const std::string folder = store_.Read(kSection, "strFolder").value_or("");
  files_.MakeFolder(folder);
  added.driveFile = FreeName(folder, drive.address);
  WriteNew(added.driveFile,
           codePage_.Encode(
               DriveFileText({.model = wanted.model, .firmwareVersion = wanted.firmwareVersion, .tag = wanted.tag})));
  std::vector<StoredSetting> settings{{KeyOf(drive.address), added.driveFile}};
  const std::string selected = store_.Read(kSection, "intSelectedDrive").value_or("0");
  if (selected.empty() || selected == "0") settings.push_back({"intSelectedDrive", std::to_string(drive.address)});
  store_.Write(kSection, settings);
  return added;
}

std::string ProjectEdit::Remove(int address) {
  const std::string name = DriveFileAt(address);
  if (name.empty()) Refuse(Text::kNoDriveAtAddress, {FormatDigits(address, 2)});
  const std::array setting{StoredSetting{KeyOf(address), kNoDriveFile}};
  store_.Write(kSection, setting);
  return name;
}

}  // namespace chartproject
