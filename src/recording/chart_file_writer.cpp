// Chart files are written beside their name and renamed when complete; rows are never dropped with a failed write.
#include "recording/chart_file_writer.h"

#include <optional>
#include <vector>

#include "common/values/text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::size_t kBlockSize = 65'536;
constexpr std::size_t kKeepAliveBytes = 4'000'000;
constexpr int kRescueNames = 10;

/// Where a chart file is written until it is complete.
std::string UnfinishedName(const std::string& fileName) {
  return fileName + ".new";
}

/// A value text may hold anything the link gives; these three would break the row.
void AppendField(std::string& line, std::string_view text) {
  const std::size_t begin = line.size();
  line += text;
  for (std::size_t at = line.find_first_of("#\r\n", begin); at != std::string::npos;
       at = line.find_first_of("#\r\n", at + 1)) {
    line[at] = ' ';
  }
}

/// Deletes a file that is in the way or half-written; what stands in the way of that is no news.
void DeleteQuietly(FileSystem& files, const std::string& name) {
  try {
    if (files.FileExists(name)) files.Delete(name);
  } catch (const RunTimeError&) {
    return;
  }
}

/// What went wrong, in terms of the file that the user named.
std::string ReasonFor(const std::exception& error, const std::string& fileName) {
  std::string reason = error.what();
  const std::string unfinished = UnfinishedName(fileName);
  const std::size_t at = reason.find(unfinished);
  return at == std::string::npos ? reason : reason.replace(at, unfinished.size(), fileName);
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

/// Copies the spool file's whole lines. An end without a line end is a row that a full disk cut short: it is left out.
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

/// Saves rows in the first free file that can be written, for a later look; the name, or nothing.
std::optional<std::string> RescueRows(FileSystem& files, const CodePage& codePage, const std::string& chartFileName,
                                      std::span<const PointRow> rows, const std::string& folder) {
  const std::string elsewhere = JoinPath(folder, BaseName(chartFileName));
  for (const std::string& target : {chartFileName, elsewhere}) {
    // A spool file that is already there holds the rows of another run.
    std::string name = SpoolFileName(target);
    for (int n = 1; n < kRescueNames && files.FileExists(name); ++n) name.back() = static_cast<char>('0' + n);
    if (files.FileExists(name)) continue;
    try {
      const auto file = files.Create(name);
      WriteRowLines(*file, codePage, rows);
      file->FlushAndClose();
      return name;
    } catch (const RunTimeError&) {
      DeleteQuietly(files, name);
    }
  }
  return std::nullopt;
}

}  // namespace

std::string HeaderLines(const ChartHeader& header) {
  std::string lines = "[INFO]";
  lines += kLineEnd;
  for (const HeaderKey& entry : kHeaderKeys) {
    const std::string& value = header.*entry.field;
    if (value.empty() && entry.leftOutWhenEmpty) continue;
    lines.append(entry.key).append(value).append(kLineEnd);
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
  return chartFileName + ".tcf0";
}

void ChartFileWriter::CheckTarget(const std::string& fileName) const {
  if (files_.FolderExists(fileName)) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kIsAFolder, {fileName});
  }
  const std::string probe = UnfinishedName(fileName);
  try {
    files_.Create(probe).reset();
    files_.Delete(probe);
  } catch (const RunTimeError& error) {
    throw RunTimeError(error.Number(), ReasonFor(error, fileName), error.Source());
  }
}

ChartWriteResult ChartFileWriter::WriteRows(const std::string& fileName, const ChartHeader& header,
                                            std::span<const PointRow> rows, const std::string& rescueFolder) const {
  ChartWriteResult result;
  const std::string unfinished = UnfinishedName(fileName);
  try {
    const auto file = files_.Create(unfinished);
    file->Write(codePage_.Encode(HeaderLines(header)));
    WriteRowLines(*file, codePage_, rows);
    file->FlushAndClose();
    files_.Rename(unfinished, fileName);
    result.kind = ChartWriteResult::Kind::kWritten;
  } catch (const std::exception& error) {
    DeleteQuietly(files_, unfinished);
    result.kind = ChartWriteResult::Kind::kFailed;
    result.reason = ReasonFor(error, fileName);
    result.keptFile = RescueRows(files_, codePage_, fileName, rows, rescueFolder).value_or("");
  }
  return result;
}

ChartWriteResult ChartFileWriter::WriteSpool(const std::string& fileName, const ChartHeader& header,
                                             const std::function<void()>& keepAlive) const {
  ChartWriteResult result;
  const std::string spool = SpoolFileName(fileName);
  const std::string unfinished = UnfinishedName(fileName);
  try {
    const auto file = files_.Create(unfinished);
    file->Write(codePage_.Encode(HeaderLines(header)));
    result.freeSpace = files_.SpaceFor(fileName).totalFree;
    const bool roomForRows = result.freeSpace >= kReservedSpace;
    if (roomForRows) CopyLines(*files_.OpenForReading(spool), *file, keepAlive);
    file->FlushAndClose();
    files_.Rename(unfinished, fileName);
    result.kind = roomForRows ? ChartWriteResult::Kind::kWritten : ChartWriteResult::Kind::kRowsInSpool;
  } catch (const std::exception& error) {
    DeleteQuietly(files_, unfinished);
    result.kind = ChartWriteResult::Kind::kFailed;
    result.reason = ReasonFor(error, fileName);
  }
  if (result.kind == ChartWriteResult::Kind::kWritten) {
    DeleteQuietly(files_, spool);
  } else {
    result.keptFile = spool;
  }
  return result;
}

}  // namespace chartproject
