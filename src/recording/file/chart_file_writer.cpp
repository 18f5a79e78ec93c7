// Chart files are written beside their name and renamed when complete; rows are never dropped with a failed write.
#include "recording/file/chart_file_writer.h"

#include <algorithm>
#include <ranges>
#include <vector>

#include "common/values/text.h"
#include "platform/run_time_error.h"
#include "recording/file/row_survey.h"

namespace chartproject {

namespace {

constexpr std::size_t kBlockSize = 65'536;
constexpr std::size_t kKeepAliveBytes = 4'000'000;
constexpr int kRescueNames = 10;

/// A value text may hold anything the link gives; these three would break the row.
void AppendField(std::string& line, std::string_view text) {
  const std::size_t begin = line.size();
  line += text;
  for (std::size_t at = line.find_first_of("#\r\n", begin); at != std::string::npos;
       at = line.find_first_of("#\r\n", at + 1)) {
    line[at] = ' ';
  }
}

void WriteRowLines(OutputFile& file, const CodePage& codePage, std::span<const PointRow> rows) {
  std::string lines;
  for (const PointRow& row : rows) {
    AppendRowLine(lines, row);
    if (lines.size() < kBlockSize) continue;
    file.Write(codePage.Encode(lines));
    lines.clear();
  }
  file.Write(codePage.Encode(lines));
}

/// Saves rows in the first file that can be made, for a later look: beside the chart file, in `folder`, or in the
/// folder for temporary files. A spool file that is already there holds the rows of another run. @return the name, or
/// nothing
std::string RescueRows(FileSystem& files, const std::string& chartFileName, const std::string& folder,
                       const std::function<void(OutputFile&)>& write) {
  const std::string_view name = BaseName(chartFileName);
  const std::string temporary = files.TemporaryFolder();
  for (const std::string& place : {chartFileName, JoinPath(folder, name), JoinPath(temporary, name)}) {
    try {
      const auto rows = files.MakeSideFile({.target = place,
                                            .ending = kSpoolEnding,
                                            .names = kRescueNames,
                                            .rights = files.RightsOf(chartFileName),
                                            .ownerOnly = place.starts_with(temporary)});
      const auto output = rows->OpenForWriting();
      write(*output);
      output->FlushAndClose();
      rows->Keep();
      return rows->Name();
    } catch (const RunTimeError&) {
      continue;  // the caller reports the reason why the chart file itself was not written
    }
  }
  return {};
}

/// Opens the spool files that can be read, one after the other. One that was removed is left out: the count of the rows
/// that are read back then says that points are missing.
void ForEachPart(const SpooledRows& spool, const std::function<void(InputFile&)>& use) {
  for (const auto& part : spool.files) {
    std::unique_ptr<InputFile> file;
    try {
      file = part->OpenForReading();
    } catch (const RunTimeError&) {
      if (spool.files.size() == 1 && spool.held.empty()) throw;
      continue;
    }
    use(*file);
  }
}

/// All rows, in order.
void CopyRows(const SpooledRows& spool, OutputFile& to, const std::function<void()>& keepAlive) {
  ForEachPart(spool, [&](InputFile& part) { CopyLines(part, to, keepAlive); });
  if (!spool.held.empty()) to.Write(spool.held);
}

/// The points of the new file, read back from it. Throws when they are not those of the spool files.
std::int64_t ReadBack(SideFile& fresh, const SpooledRows& spool, const std::function<void()>& keepAlive) {
  const RowSurvey written = SurveyChartFile(*fresh.OpenForReading(), keepAlive);
  if (written.points >= spool.points || !spool.held.empty()) return written.points;
  RowSurvey spooled;
  ForEachPart(spool, [&](InputFile& file) { AddRows(spooled, file, {1, 0}, kNoSurveyLimit, keepAlive); });
  if (!written.SamePoints(spooled)) {
    throw RunTimeError(error_number::kDeviceIo, Text::kReadBackDiffers, {fresh.Name()});
  }
  return written.points;
}

/// A value with the mark of the rows in it, as a damaged journal may have it, would have them begin too early: such a
/// mark loses its bracket.
std::string WithoutRowsMark(std::string value) {
  for (std::size_t at = value.find(kRowsMark); at != std::string::npos; at = value.find(kRowsMark)) value.erase(at, 1);
  return value;
}

}  // namespace

void CopyLines(InputFile& from, OutputFile& to, const std::function<void()>& keepAlive) {
  std::vector<char> block(kBlockSize);
  std::string pending;
  std::size_t copied = 0;
  while (const std::size_t count = from.Read(block)) {
    copied += count;
    if (copied >= kKeepAliveBytes && keepAlive) {
      keepAlive();
      copied = 0;
    }
    const std::string_view bytes(block.data(), count);
    const std::size_t lastEnd = bytes.rfind('\n');
    if (lastEnd == std::string_view::npos) {
      pending += bytes;
      continue;
    }
    if (!pending.empty()) to.Write(pending);
    to.Write(bytes.substr(0, lastEnd + 1));
    pending = bytes.substr(lastEnd + 1);
  }
  if (SplitRow(pending)) to.Write(pending + std::string(kLineEnd));
}

std::string HeaderLines(const ChartHeader& header) {
  std::string lines = "[INFO]";
  lines += kLineEnd;
  for (const HeaderKey& entry : kHeaderKeys) {
    const std::string& value = header.*entry.field;
    if (value.empty() && entry.leftOutWhenEmpty) continue;
    lines.append(entry.key).append(WithoutRowsMark(value)).append(kLineEnd);
  }
  lines.append(kLineEnd).append(kRowsMark).append(kLineEnd);
  return lines;
}

void AppendRowLine(std::string& lines, const PointRow& row) {
  AppendField(lines, row.time);
  for (const std::string& value : row.values) {
    lines += '#';
    AppendField(lines, value);
  }
  lines += "##";
  lines += kLineEnd;
}

std::string SpoolFileName(const std::string& chartFileName) {
  return SideFileName(chartFileName, kSpoolEnding, 0);
}

std::unique_ptr<SideFile> MakeSpoolFile(FileSystem& files, const std::string& chartFileName) {
  const std::string name = SpoolFileName(chartFileName);
  bool holdsPoints = false;
  if (files.FileExists(name)) {
    RowSurvey rows;
    AddRows(rows, *files.OpenForReading(name), {1, 0}, kBlockSize);
    holdsPoints = rows.points > 0;
    if (!holdsPoints) files.Delete(name);
  }
  return files.MakeSideFile(
      {.target = chartFileName, .ending = kSpoolEnding, .names = holdsPoints ? kMostSideNames : 1});
}

void ChartFileWriter::CheckTarget(const std::string& fileName) const {
  files_.CheckReplaceable(fileName);
  (void)files_.MakeSideFile({.target = fileName, .ending = kUnfinishedEnding});
}

ChartWriteResult ChartFileWriter::WriteRows(const std::string& fileName, const ChartHeader& header,
                                            std::span<const PointRow> rows, const std::string& rescueFolder,
                                            const std::function<std::string()>& journal) const {
  ChartWriteResult result;
  try {
    const auto fresh = files_.MakeSideFile({.target = fileName, .ending = kUnfinishedEnding});
    const auto file = fresh->OpenForWriting();
    file->Write(codePage_.Encode(HeaderLines(header)));
    WriteRowLines(*file, codePage_, rows);
    file->FlushAndClose();
    result.rows = SurveyChartFile(*fresh->OpenForReading()).points;
    const auto taken = std::ranges::count_if(rows, [](const PointRow& row) { return !row.time.empty(); });
    if (result.rows != taken) throw RunTimeError(error_number::kDeviceIo, Text::kReadBackDiffers, {fileName});
    fresh->ReplaceTarget();
    result.kind = ChartWriteResult::Kind::kWritten;
  } catch (const std::exception& error) {
    result.kind = ChartWriteResult::Kind::kFailed;
    result.reason = error.what();
    if (journal) result.keptFile = journal();
    if (!result.keptFile.empty()) return result;
    result.keptFile =
        RescueRows(files_, fileName, rescueFolder, [&](OutputFile& file) { WriteRowLines(file, codePage_, rows); });
  }
  return result;
}

ChartWriteResult ChartFileWriter::WriteSpool(const std::string& fileName, const ChartHeader& header,
                                             const SpooledRows& spool, const std::string& rescueFolder,
                                             const std::function<void()>& keepAlive) const {
  ChartWriteResult result;
  try {
    const auto fresh = files_.MakeSideFile({.target = fileName, .ending = kUnfinishedEnding});
    const auto file = fresh->OpenForWriting();
    file->Write(codePage_.Encode(HeaderLines(header)));
    result.freeSpace = files_.SpaceFor(fileName).totalFree;
    const bool roomForRows = result.freeSpace >= kReservedSpace;
    if (roomForRows) CopyRows(spool, *file, keepAlive);
    file->FlushAndClose();
    if (roomForRows) result.rows = ReadBack(*fresh, spool, keepAlive);
    fresh->ReplaceTarget();
    result.kind = roomForRows ? ChartWriteResult::Kind::kWritten : ChartWriteResult::Kind::kRowsInSpool;
  } catch (const std::exception& error) {
    result.kind = ChartWriteResult::Kind::kFailed;
    result.reason = error.what();
  }
  if (result.kind == ChartWriteResult::Kind::kWritten) return result;
  for (const auto& part : spool.files) part->Keep();
  // A spool file whose name was taken still holds its rows, but only while this program has it open.
  const bool complete =
      spool.held.empty() && std::ranges::all_of(spool.files, [](const auto& part) { return part->HasItsName(); });
  result.keptFile = complete ? spool.files.back()->Name()
                             : RescueRows(files_, fileName, rescueFolder,
                                          [&](OutputFile& file) { CopyRows(spool, file, keepAlive); });
  return result;
}

}  // namespace chartproject
