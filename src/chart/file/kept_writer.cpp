// The head, the line index, then the blocks.
#include "chart/file/kept_writer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "common/values/text.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr std::size_t kPieceBlocks = 8'192;    // 128 KB
constexpr std::size_t kPieceOffsets = 16'384;  // 128 KB

}  // namespace

KeptWriter::KeptWriter(FileSystem& files, const std::string& chartFile, const std::string& key,
                       const FileSurvey& survey, const LineIndex& index)
    : files_(files), survey_(survey), index_(index) {
  try {
    Begin(chartFile, key);
  } catch (const RunTimeError&) {
    output_.reset();
    file_.reset();
  }
}

KeptWriter::~KeptWriter() {
  output_.reset();  // before its file
}

void KeptWriter::Begin(const std::string& chartFile, const std::string& key) {
  const std::string folder = kept::Folder(files_);
  if (folder.empty() || key.size() > kept::kLongestKey) return;
  files_.MakeFolder(folder);
  const Envelope& envelope = survey_.Exact();
  while (envelope.BlockLength() * joined_ < kept::kLeastBlock) joined_ *= 2;
  head_.keyBytes = key.size();
  head_.offsets = index_.Offsets().size();
  head_.series = static_cast<std::uint64_t>(envelope.SeriesCount());
  head_.state = survey_.JoinedState(joined_);
  head_.blocks = blocks_ = envelope.Blocks(0).size() / static_cast<std::size_t>(joined_);
  MakeRoom(folder, sizeof(head_) + key.size() + head_.offsets * sizeof(std::uint64_t) +
                       head_.series * head_.blocks * sizeof(Extremes));
  const std::string stem = kept::Stem(folder, chartFile);
  const std::string name = stem + std::string(kept::kEnding);
  if (files_.FileExists(name)) files_.Delete(name);
  file_ = files_.MakeSideFile({.target = stem, .ending = kept::kEnding, .names = 1, .ownerOnly = true});
  output_ = file_->OpenForWriting();
  WriteHead(key);
}

void KeptWriter::MakeRoom(const std::string& folder, std::uint64_t bytes) {
  struct Entry {
    std::string name;
    FileIdentity file;
  };
  std::vector<Entry> entries;
  std::uint64_t total = bytes;
  for (const std::string& name : files_.FilesIn(folder)) {
    if (!name.ends_with(kept::kEnding)) continue;
    try {
      const std::string full = JoinPath(folder, name);
      entries.push_back({full, files_.OpenForReading(full)->Identity()});
      total += entries.back().file.size;
    } catch (const RunTimeError&) {
      continue;  // not ours: a pipe, another user's file
    }
  }
  std::ranges::sort(entries, {}, [](const Entry& entry) { return entry.file.modifiedNanos; });
  for (const Entry& entry : entries) {
    if (total <= kept::kMostBytes) break;
    files_.Delete(entry.name);
    total -= entry.file.size;
  }
}

void KeptWriter::Write(std::string_view bytes) {
  output_->Write(bytes);
  sum_.Add(bytes);
}

/// Of all that was written since the sum before.
void KeptWriter::WriteSum() {
  const std::uint64_t sum = std::exchange(sum_, {}).Value();
  output_->Write(kept::BytesOf(&sum));
}

void KeptWriter::WriteHead(const std::string& key) {
  Write(kept::BytesOf(&head_));
  Write(key);
}

void KeptWriter::WriteOffsets() {
  const auto piece = std::span(index_.Offsets())
                         .subspan(offsets_)
                         .first(std::min(kPieceOffsets, static_cast<std::size_t>(head_.offsets) - offsets_));
  Write(kept::BytesOf(piece.data(), piece.size()));
  offsets_ += piece.size();
  if (offsets_ == head_.offsets) WriteSum();
}

bool KeptWriter::WriteOn() {
  if (!output_) return false;
  try {
    if (offsets_ < head_.offsets) {
      WriteOffsets();
      return true;
    }
    if (series_ < head_.series) {
      WriteBlocks();
      return true;
    }
    WriteSum();
    output_.reset();
    file_->Keep();
  } catch (const RunTimeError&) {
    output_.reset();
  }
  file_.reset();  // deleted unless it is whole
  return false;
}

void KeptWriter::WriteBlocks() {
  const auto blocks = survey_.Exact().Blocks(static_cast<int>(series_));
  const std::size_t end = std::min(blocks_, next_ + kPieceBlocks / static_cast<std::size_t>(joined_) + 1);
  std::vector<Extremes> piece;
  for (; next_ < end; ++next_) {
    Extremes all;
    for (const Extremes& each :
         blocks.subspan(next_ * static_cast<std::size_t>(joined_), static_cast<std::size_t>(joined_))) {
      all.Take(each);
    }
    piece.push_back(all);
  }
  Write(kept::BytesOf(piece.data(), piece.size()));
  if (next_ < blocks_) return;
  next_ = 0;
  ++series_;
}

}  // namespace chartproject
