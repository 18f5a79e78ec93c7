// The chart file of the dialog: its name, typed, browsed for or asked for.
#include "acquire/dialog/file_section.h"

#include "acquire/run/run_texts.h"
#include "common/folder_scope.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "forms/flag_scope.h"
#include "recording/file/chart_file_writer.h"

namespace chartproject {

namespace {

/// Hide the read-only box, and the file must exist.
constexpr std::int32_t kOpenFlags = 4100;
constexpr int kNameWidth = 40;  // characters

}  // namespace

FileSection::FileSection(Form& form, Component& component, std::function<void(NamedBy)> named)
    : Section(form, component), named_(std::move(named)) {
  fraFileName.SetTag(TextNumber(Text::kFileName));
  cmdBrowse.SetTag(TextNumber(Text::kBrowse));
  Connect(rtfFileName.change, rtfFileName, "Change", this, &FileSection::rtfFileName_Change);
  Connect(cmdNewFile.click, cmdNewFile, "Click", this, &FileSection::PromptFileName);
  Connect(cmdBrowse.click, cmdBrowse, "Click", this, &FileSection::cmdBrowse_Click);
}

void FileSection::Translate() {
  cmdNewFile.SetCaption(Say(Text::kNewFile));
  cmdNewFile.SetToolTipText(Say(Text::kNewFileTip));
  cmdBrowse.SetToolTipText(Say(Text::kBrowseTip));
}

LayoutBox FileSection::Layout() {
  rtfFileName.SetWidthInCharacters(kNameWidth);
  return Group(fraFileName, Row({Cell(rtfFileName, 1), Cell(cmdNewFile), Cell(cmdBrowse)}));
}

void FileSection::NameFile(const std::string& fileName) {
  {
    const FlagScope naming(naming_);
    rtfFileName.SetText(fileName);
  }
  named_(NamedBy::kChoice);
}

bool FileSection::Exists() const {
  return component_.ports.files.FileExists(Name());
}

std::string FileSection::FullName() const {
  const std::string& name = Name();
  const bool rooted = name.starts_with('/') || name.starts_with('\\') || (name.size() > 1 && name[1] == ':');
  return rooted || name.empty() ? name : JoinPath(component_.ports.files.CurrentFolder(), name);
}

void FileSection::NoteRecording() {
  recordedAt_.reset();
  if (!Exists()) return;
  try {
    ChartHeader header;
    const HeaderReading read =
        ReadChartHeader(*component_.ports.files.OpenForReading(Name()), component_.ports.codePage, header);
    if (read.keys == 0) return;
    recordedAt_ = header.StartDate.empty() ? std::string() : header.StartDate + " " + header.StartTime;
  } catch (const RunTimeError&) {
    recordedAt_ = std::string();  // reported when the file's settings are shown
  }
}

std::string FileSection::TargetNote() const {
  if (Exists()) {
    const Text text = !recordedAt_           ? Text::kTargetNoRecording
                      : recordedAt_->empty() ? Text::kTargetThere
                                             : Text::kTargetReplaced;
    return FillIn(Say(text), {FullName(), recordedAt_.value_or("")});
  }
  return FullName() == Name() ? std::string() : FillIn(Say(Text::kTargetWritten), {FullName()});
}

void FileSection::WarnOf(const RunTimeError& error, Text right) const {
  switch (error.Number()) {
    case error_number::kFileNotFound:
    case error_number::kPathNotFound:
      return Warn(FillIn(Say(Text::kNoSuchFolder), {FullName()}));
    case error_number::kPermissionDenied:
      return Warn(FillIn(Say(right), {FullName()}));
    default:
      return Warn(error.Description(component_.language));
  }
}

bool FileSection::HasRoomFor(double bytes) const {
  if (typing_) return true;  // no box at every letter; Start asks again
  double free = 0;
  try {
    free = static_cast<double>(component_.ports.files.SpaceFor(Name()).totalFree);
  } catch (const RunTimeError&) {
    return true;  // a name half typed has no disk yet; Start asks for the file itself
  }
  if (free - static_cast<double>(kReservedSpace) > bytes) return true;
  Warn(Say(Text::kTooLittleSpace) + BytesText(free, Numbers()) + Say(Text::kRequiredSpace) +
       BytesText(bytes, Numbers()));
  return false;
}

std::optional<std::string> FileSection::Missing() const {
  if (Name().empty()) return Say(Text::kHintFileName);
  return std::nullopt;
}

void FileSection::rtfFileName_Change() {
  if (naming_) return;
  const HourglassScope hourglass(form_);
  const FlagScope typing(typing_);
  named_(NamedBy::kTyping);
}

void FileSection::ConfigureFileDialog(OpenFileRequest& request, const std::string& extension) const {
  request.initialFolder = component_.settings.strFolder;
  request.flags = kOpenFlags;
  request.filter = "Chart Files (*." + extension + ")|*." + extension;
  request.filterIndex = 2;
}

void FileSection::cmdBrowse_Click() {
  OpenFileRequest request;
  ConfigureFileDialog(request, "cht");
  const FolderScope hostFolder(component_.ports.files, component_.settings.strBin);  // the dialog may move away
  const auto chosen = component_.ports.dialogs.ShowOpenFile(request);
  if (chosen && !chosen->empty()) NameFile(*chosen);
}

void FileSection::PromptFileName() {
  std::string answer;
  {
    const FolderScope hostFolder(component_.ports.files, component_.settings.strBin);
    answer =
        component_.ports.dialogs.ShowInputBox({Say(Text::kEnterFileName), Say(Text::kChartFile), component_.helpFile});
  }
  if (!answer.empty()) NameFile(JoinPath(component_.settings.strFolder, answer + ".cht"));
}

}  // namespace chartproject
