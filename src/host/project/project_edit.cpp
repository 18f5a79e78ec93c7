// Files first, settings last, so that a failure leaves the project as it was.
#include "host/project/project_edit.h"

#include <algorithm>
#include <array>
#include <span>

#include "common/environment/language.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_models.h"
#include "drive/drive_table.h"
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

std::string FolderOf(const std::string& name) {
  return name.substr(0, std::min(name.rfind('/'), name.size()));
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

int ProjectEdit::SelectedDrive() {
  const std::string text = store_.Read(kSection, "intSelectedDrive").value_or("");
  for (int address = 1; address <= kLastDriveAddress; ++address) {
    if (text == std::to_string(address) && !DriveFileAt(address).empty()) return address;
  }
  return 0;
}

std::optional<MainFile> ProjectEdit::ReadMainFile(const std::string& name) {
  constexpr std::size_t kMostBytes = 65536;
  if (!files_.FileExists(name)) return std::nullopt;
  const auto file = files_.OpenForReading(name);
  std::string text(kMostBytes, '\0');
  std::size_t size = 0;
  while (const std::size_t more = file->Read(std::span(text).subspan(size))) size += more;
  text.resize(size);
  return ParseMainFile(codePage_.Decode(text));
}

/// Writes the list anew, with one address changed; address 0 for none.
bool ProjectEdit::ListDrives(int address, const std::string& driveFile) {
  const std::string name = store_.Read(kSection, "strMainFile").value_or("");
  std::optional<MainFile> main = ReadMainFile(name);
  if (!main) return false;
  const std::string folder = FolderOf(name);
  DriveFiles drives;
  for (int at = 1; at <= kLastDriveAddress; ++at) {
    const std::string file = at == address ? driveFile : DriveFileAt(at);
    if (file.empty()) continue;
    if (FolderOf(file) != folder) return false;
    drives[at] = BaseName(file);
  }
  if (drives == main->drives) return true;
  const auto made = files_.MakeSideFile({.target = files_.ResolveLink(name), .ending = ".new"});
  const auto output = made->OpenForWriting();
  output->Write(codePage_.Encode(MainFileText(main->name, drives)));
  output->FlushAndClose();
  made->ReplaceTarget();
  return true;
}

std::vector<ReplacedSetting> ProjectEdit::Open(const std::string& mainFile) {
  std::optional<MainFile> main = ReadMainFile(mainFile);
  if (!main) Refuse(Text::kNotAProject, {mainFile});
  const std::string folder = FolderOf(mainFile);
  if (main->drives.empty()) {  // made before main files listed drives
    for (int address = 1; address <= kLastDriveAddress; ++address) {
      const std::string name = "drive" + FormatDigits(address, 2) + ".drv";
      if (files_.FileExists(JoinPath(folder, name))) main->drives[address] = name;
    }
  }
  const bool listed = !HasProject() || ListDrives(0, {});
  std::vector<StoredSetting> settings{
      {"intSelectedDrive", std::to_string(main->drives.empty() ? 0 : main->drives.begin()->first)},
      {"strMainFile", mainFile},
      {"strFolder", folder},
      {"strName", main->name}};
  for (int address = 1; address <= kLastDriveAddress; ++address) {
    const auto file = main->drives.find(address);
    settings.push_back({KeyOf(address), file == main->drives.end() ? kNoDriveFile : JoinPath(folder, file->second)});
  }
  std::vector<ReplacedSetting> replaced;
  for (const StoredSetting& setting : settings) {
    const std::string before = store_.Read(kSection, setting.key).value_or("");
    if (!listed && !before.empty() && before != kNoDriveFile && before != setting.value) {
      replaced.push_back({std::string(kSection) + "." + setting.key, before, setting.value});
    }
  }
  store_.Write(kSection, settings);
  // A project as this program makes it has its driver files, sounds and help two folders above.
  const std::string root = FolderOf(FolderOf(folder));
  if (files_.FolderExists(JoinPath(root, "drivers"))) store_.Write("MyKestrel", FolderSettings(root));
  return replaced;
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
  ListDrives(drive.address, added.driveFile);
  std::vector<StoredSetting> settings{{KeyOf(drive.address), added.driveFile}};
  // The dialog begins with the selected drive: it should be one that is there.
  if (SelectedDrive() == 0) settings.push_back({"intSelectedDrive", std::to_string(drive.address)});
  store_.Write(kSection, settings);
  return added;
}

std::string ProjectEdit::Remove(int address) {
  std::string name = DriveFileAt(address);
  if (name.empty()) Refuse(Text::kNoDriveAtAddress, {FormatDigits(address, 2)});
  ListDrives(address, {});
  const std::array setting{StoredSetting{KeyOf(address), kNoDriveFile}};
  store_.Write(kSection, setting);
  return name;
}

}  // namespace chartproject
