// The chart on paper and in a workbook.
#include "chart/window/sections/output_section.h"

#include <array>

#include "chart/output/excel_export.h"
#include "common/environment/language.h"
#include "common/folder_scope.h"
#include "common/message_box.h"
#include "common/sounds.h"
#include "common/values/text.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

constexpr std::string_view kPngEnding = ".png";

/// By its first bytes: a file with other contents is never replaced by a picture.
bool IsPng(FileSystem& files, const std::string& name) {
  constexpr std::string_view kSignature("\x89PNG\r\n\x1A\n", 8);
  std::array<char, 8> bytes{};
  const auto file = files.OpenForReading(name);
  const std::size_t count = file->Read(bytes);
  return std::string_view(bytes.data(), count) == kSignature;
}

}  // namespace

OutputSection::OutputSection(Form& form, Component& component, const ChartView& view, ChartControl& chart,
                             ReadingSection& reading)
    : cmdExport(form, "cmdExport"),
      cmdPrint(form, "cmdPrint"),
      cmdOK(form, "cmdOK"),
      form_(form),
      component_(component),
      view_(view),
      chart_(chart),
      reading_(reading) {
  Connect(cmdExport.click, cmdExport, "Click", this, &OutputSection::cmdExport_Click);
  Connect(cmdPrint.click, cmdPrint, "Click", this, &OutputSection::cmdPrint_Click);
  Connect(cmdOK.click, cmdOK, "Click", this, &OutputSection::cmdOK_Click);
}

void OutputSection::Offer(ChartActions& actions) {
  for (const auto& [action, button] :
       {std::pair(ChartAction::kExport, &cmdExport), std::pair(ChartAction::kPrint, &cmdPrint)}) {
    actions.Set(action, {[button = button] { button->Press(); }, [button = button] { return button->Enabled(); }});
  }
  const auto canDraw = [this] { return form_.Host().Pictures() != nullptr; };
  actions.Set(ChartAction::kCopyPicture, {[this] { CopyPicture(); }, canDraw});
  actions.Set(ChartAction::kSavePicture, {[this] { SavePicture(); }, canDraw});
}

Bitmap OutputSection::Picture() {
  // Twice the screen's dots: a picture in a report is looked at more closely.
  constexpr double kScale = 2;
  return chart_.CopyPicture(*form_.Host().Pictures(), kScale);
}

void OutputSection::CopyPicture() {
  component_.ports.clipboard.SetPicture(Picture());
}

void OutputSection::SavePicture() {
  if (reading_.Busy()) return;
  constexpr int kFileToWrite = 2;
  constexpr int kHideReadOnly = 4;
  OpenFileRequest request;
  request.initialFolder = component_.settings.strFolder;
  request.filter = LoadMessage(component_, Text::kPictureFiles) + "|*" + std::string(kPngEnding);
  request.flags = kFileToWrite + kHideReadOnly;
  const FolderScope hostFolder(component_.ports.files, component_.settings.strBin);  // the dialog may move away
  const auto chosen = component_.ports.dialogs.ShowOpenFile(request);
  if (!chosen) return;
  const bool complete = ToUpperAscii(*chosen).ends_with(ToUpperAscii(kPngEnding));
  const std::string name = complete ? *chosen : *chosen + std::string(kPngEnding);
  if (component_.ports.files.FileExists(name)) {
    if (!IsPng(component_.ports.files, name)) {
      ShowMessage(component_, FillIn(LoadMessage(component_, Text::kNotAPicture), {name}), box_style::kExclamation);
      return;
    }
    const std::string question = FillIn(LoadMessage(component_, Text::kPictureReplace), {name});
    if (ShowMessage(component_, question, box_style::kYesNo + box_style::kQuestion) != box_answer::kYes) return;
  }
  const std::string bytes = form_.Host().Pictures()->PngBytes(Picture());
  const auto fresh =
      component_.ports.files.MakeSideFile({.target = component_.ports.files.ResolveLink(name), .ending = ".new"});
  const auto file = fresh->OpenForWriting();
  file->Write(bytes);
  file->FlushAndClose();
  fresh->ReplaceTarget();
  reading_.Say(FillIn(LoadMessage(component_, Text::kPictureSaved), {std::string(BaseName(name))}));
}

void OutputSection::cmdExport_Click() {
  if (reading_.Busy()) return;
  ExportRequest request;
  request.chartFile = view_.FileName();
  request.header = component_.chartHeader;
  request.progress = [this](std::uint64_t done, std::uint64_t total) {
    return reading_.ShowProgress(total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total),
                                 Text::kExporting);
  };
  std::vector<RangeEntry> entries = OfferRanges(component_, view_, chart_);
  if (entries.size() > 1) {
    request.choose = [&](const std::string& question, bool all) {
      if (!all) entries.erase(entries.begin());
      return ask(question, entries);
    };
  }
  std::optional<ReadingSection::Work> busyReading;
  request.busy = [this, &busyReading](bool busy) {
    busyReading.reset();
    if (!busy) return;
    busyReading.emplace(reading_);
    reading_.ShowHourglass();
  };
  ExportToSpreadsheet(component_, request);
  if (reading_.ClosesAfterwards()) form_.Unload();
}

void OutputSection::cmdPrint_Click() {
  if (reading_.Busy()) return;
  PlayWave(component_, kClickSound);
  printRequested_ = true;
  form_.Hide();
}

void OutputSection::cmdOK_Click() {
  PlayWave(component_, kClickSound);
  printRequested_ = false;
  form_.CloseByUser();
}

}  // namespace chartproject
