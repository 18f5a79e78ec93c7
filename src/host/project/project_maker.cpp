// Which files a ready project has, and which settings.
#include "host/project/project_maker.h"

#include <array>
#include <filesystem>
#include <iterator>

#include "common/environment/settings.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "host/project/main_file.h"
#include "host/project/project_assets.h"
#include "host/project/project_drives.h"

namespace chartproject {

namespace {

constexpr const char* kProjectFolder = "projects/demo";
constexpr const char* kMainFile = "projects/demo/demo.kpr";
constexpr const char* kNoDriveFile = "0";  // what the host leaves for an address without a drive

std::string AbsoluteFolder(FileSystem& files, const std::string& folder) {
  const std::filesystem::path path = std::filesystem::path(files.CurrentFolder()) / folder;
  std::string name = path.lexically_normal().generic_string();
  if (name.size() > 1 && name.back() == '/') name.pop_back();
  return name;
}

std::string ParentOf(const std::string& name) {
  return name.substr(0, name.rfind('/'));
}

std::string ReadWhole(FileSystem& files, const std::string& name, std::size_t most) {
  const auto file = files.OpenForReading(name);
  std::string bytes(most, '\0');
  std::size_t count = 0;
  while (count < most) {
    const std::size_t more = file->Read(std::span(bytes).subspan(count));
    if (more == 0) break;
    count += more;
  }
  bytes.resize(count);
  return bytes;
}

std::span<const ProjectDrive> DrivesFor(DrivesOfProject drives) {
  return drives == DrivesOfProject::kSimulated ? ProjectDrives() : std::span<const ProjectDrive>();
}

DriveFiles DriveFilesFor(DrivesOfProject drives) {
  DriveFiles files;
  for (const ProjectDrive& drive : DrivesFor(drives)) files[drive.address] = BaseName(DriveFileName({}, drive));
  return files;
}

ProjectFiles AllFiles(const CodePage& codePage, DrivesOfProject drives) {
  ProjectFiles all{
      {kMainFile, MainFileText("Demo", DriveFilesFor(drives))},
      {"programs/README.txt", "Programs of the drive host, and its run-time error log, are kept here.\r\n"}};
  for (ProjectFiles files :
       {drives == DrivesOfProject::kSimulated ? MakeDriveFiles(kProjectFolder, codePage) : ProjectFiles(),
        MakeDriverFiles("drivers", codePage), MakeAssetFiles()}) {
    std::ranges::move(files, std::back_inserter(all));
  }
  return all;
}

/// A folder from elsewhere may hold links that lead out of it. Each name on the way from the project's folder to the
/// file is checked; the folder itself was named by the user and may be a link.
void CheckPlace(FileSystem& files, const std::string& folder, const std::string& file) {
  try {
    files.CheckOwned(files.ResolveLink(folder));
    for (std::size_t slash = file.find('/'); slash != std::string::npos; slash = file.find('/', slash + 1)) {
      files.CheckOwned(JoinPath(folder, file.substr(0, slash)));
    }
  } catch (const RunTimeError& error) {
    throw ForeignFolder(error);
  }
}

void WriteFile(FileSystem& files, const ProjectFile& file, ProjectReport& report) {
  const std::string name = JoinPath(report.folder, file.name);
  if (files.FileExists(name)) {
    const bool same = ReadWhole(files, name, file.bytes.size() + 1) == file.bytes;
    (same ? report.unchanged : report.kept).push_back(name);
    return;
  }
  files.MakeFolder(ParentOf(name));
  const auto made = files.MakeSideFile({.target = name, .ending = "", .names = 1});
  const auto output = made->OpenForWriting();
  output->Write(file.bytes);
  output->FlushAndClose();
  made->Keep();
  report.written.push_back(name);
}

std::vector<StoredSetting> ProjectSettings(const std::string& folder, DrivesOfProject drives) {
  const std::span<const ProjectDrive> made = DrivesFor(drives);
  std::vector<StoredSetting> settings{{"intSelectedDrive", made.empty() ? "0" : std::to_string(made.front().address)},
                                      {"strMainFile", JoinPath(folder, kMainFile)},
                                      {"strFolder", JoinPath(folder, kProjectFolder)},
                                      {"strName", "Demo"},
                                      {"strVersion", "1.00"}};
  for (int address = 1; address <= kDriveFileCount; ++address) {
    std::string name = kNoDriveFile;
    for (const ProjectDrive& drive : made) {
      if (drive.address == address) name = JoinPath(folder, DriveFileName(kProjectFolder, drive));
    }
    settings.push_back({"strDriveFile" + FormatDigits(address, 2), name});
  }
  return settings;
}

void StoreSettings(SettingsStore& store, const std::string& section, const std::vector<StoredSetting>& settings,
                   ProjectReport& report) {
  for (const StoredSetting& setting : settings) {
    const std::string before = store.Read(section, setting.key).value_or("");
    const bool wasSet = !before.empty() && before != "0";
    if (wasSet && before != setting.value)
      report.replaced.push_back({section + "." + setting.key, before, setting.value});
  }
  store.Write(section, settings);
}

}  // namespace

std::vector<StoredSetting> FolderSettings(const std::string& folder) {
  constexpr std::array<std::array<const char*, 2>, 6> kFolders{{{"strBin", "programs"},
                                                                {"strDrivers", "drivers"},
                                                                {"strGraphics", "graphics"},
                                                                {"strHelps", "help"},
                                                                {"strProjects", "projects"},
                                                                {"strMedia", "media"}}};
  std::vector<StoredSetting> settings;
  settings.reserve(kFolders.size());
  for (const auto& [key, name] : kFolders) settings.push_back({key, JoinPath(folder, name)});
  return settings;
}

ProjectReport MakeProject(FileSystem& files, SettingsStore& settings, const CodePage& codePage,
                          const std::string& folder, DrivesOfProject drives) {
  ProjectReport report;
  report.folder = AbsoluteFolder(files, folder);
  for (const ProjectFile& file : AllFiles(codePage, drives)) CheckPlace(files, report.folder, file.name);
  for (const ProjectFile& file : AllFiles(codePage, drives)) WriteFile(files, file, report);
  StoreSettings(settings, "MyProject", ProjectSettings(report.folder, drives), report);
  StoreSettings(settings, "MyKestrel", FolderSettings(report.folder), report);
  return report;
}

}  // namespace chartproject
