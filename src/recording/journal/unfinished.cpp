// Files of rows, joined.
#include "recording/journal/unfinished.h"

#include <algorithm>
#include <cstring>

#include "recording/journal/growing_rows.h"

namespace chartproject {

namespace {

/// Enough of a file to see whether it holds rows.
constexpr std::uint64_t kGlance = 65'536;

/// A stretch of rows: of a file from an offset on, or in memory.
struct Stretch {
  std::unique_ptr<InputFile> file;  ///< null for rows in memory
  std::uint64_t begin = 0;
  std::uint64_t size = 0;
  std::string rows;
};

class JoinedRows : public InputFile {
 public:
  explicit JoinedRows(std::vector<Stretch> stretches, FileIdentity identity)
      : stretches_(std::move(stretches)), identity_(identity) {
    identity_.size = 0;
    for (const Stretch& stretch : stretches_) identity_.size += stretch.size;
    JoinedRows::Seek(0);
  }

  std::size_t Read(std::span<char> buffer) override {
    while (current_ < stretches_.size() && at_ >= stretches_[current_].size) Enter(current_ + 1, 0);
    if (current_ == stretches_.size()) return 0;
    Stretch& stretch = stretches_[current_];
    std::size_t count = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), stretch.size - at_));
    if (stretch.file) {
      count = stretch.file->Read(buffer.first(count));
    } else {
      std::memcpy(buffer.data(), stretch.rows.data() + at_, count);
    }
    at_ += count;
    return count;
  }

  void Seek(std::uint64_t offset) override {
    std::size_t stretch = 0;
    while (stretch < stretches_.size() && offset >= stretches_[stretch].size) offset -= stretches_[stretch++].size;
    Enter(stretch, offset);
  }

  [[nodiscard]] FileIdentity Identity() override { return identity_; }

 private:
  void Enter(std::size_t stretch, std::uint64_t at) {
    current_ = stretch;
    at_ = at;
    if (stretch < stretches_.size() && stretches_[stretch].file) {
      stretches_[stretch].file->Seek(stretches_[stretch].begin + at);
    }
  }

  std::vector<Stretch> stretches_;
  FileIdentity identity_;
  std::size_t current_ = 0;
  std::uint64_t at_ = 0;
};

/// The rows of a journal: at most a few thousand, among notes of failed readings.
Stretch RowsOfJournal(std::unique_ptr<InputFile> file, const RowStart& first) {
  constexpr std::uint64_t kMostBytes = 4'000'000;
  GrowingRows journal(std::move(file), first, RowNumbers::kEachPoint);
  journal.Refresh(true);
  Stretch stretch;
  for (PointLine line; stretch.rows.size() < kMostBytes && journal.Next(line);) {
    stretch.rows.append(line.text).append("\r\n");
  }
  stretch.size = stretch.rows.size();
  return stretch;
}

}  // namespace

std::optional<UnfinishedRecording> FindUnfinished(FileSystem& files, const CodePage& codePage,
                                                  const std::string& chartFile) {
  auto newest = FindNewest(files, codePage, chartFile, kGlance);
  if (!newest || newest->rowFiles.empty()) return std::nullopt;
  return UnfinishedRecording{newest->journalFile, newest->journalIdentity, std::move(*newest->journal),
                             std::move(newest->rowFiles)};
}

std::unique_ptr<InputFile> OpenRows(FileSystem& files, const UnfinishedRecording& recording) {
  std::vector<Stretch> stretches;
  FileIdentity identity;
  for (const RowFile& rows : recording.rowFiles) {
    Stretch stretch;
    stretch.file = files.OpenForReading(rows.name);
    const FileIdentity file = stretch.file->Identity();
    if (stretches.empty()) identity = file;
    stretch.begin = rows.first.offset;
    stretch.size = file.size - std::min(file.size, stretch.begin);
    if (rows.name == recording.journalFile) stretch = RowsOfJournal(std::move(stretch.file), rows.first);
    stretches.push_back(std::move(stretch));
  }
  return std::make_unique<JoinedRows>(std::move(stretches), identity);
}

}  // namespace chartproject
