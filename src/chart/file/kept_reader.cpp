// Sizes first, then the checksum, then whether the numbers can be.
#include "chart/file/kept_reader.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr std::size_t kPieceBlocks = 16'384;  // 256 KB

/// A block without a value has none on either side; what else is not a number nobody has written.
void Settle(std::span<Extremes> blocks) {
  for (Extremes& each : blocks) {
    if (!std::isfinite(each.least) || !std::isfinite(each.greatest)) each = {};
  }
}

/// Whether the numbers of the head agree with each other and with the chart file.
bool Holds(const kept::Head& head, const LinePlace& first) {
  const SurveyState& state = head.state;
  constexpr std::int64_t kMostLines = std::int64_t{1} << 40U;
  if (head.series > kColumnCount || head.blocks >= Envelope::kMostBlocks) return false;
  if (state.blockLength < 1 || state.blockLength > kMostLines) return false;
  const auto whole = static_cast<std::int64_t>(head.blocks) * state.blockLength;
  return state.blockLines >= 0 && state.blockLines < state.blockLength && state.lastLines >= state.blockLines &&
         state.lastLines <= state.blockLines + 1 && state.next.line == first.line + whole + state.blockLines &&
         state.next.offset >= first.offset;
}

/// One offset for each place of the index up to the next line, ascending.
bool Holds(const std::vector<std::uint64_t>& offsets, const kept::Head& head, const LinePlace& first) {
  const auto lines = static_cast<std::uint64_t>(head.state.next.line - first.line);
  if (offsets.size() != lines / LineIndex::kSpacing + 1 || offsets.front() != first.offset) return false;
  return offsets.back() <= head.state.next.offset && std::ranges::is_sorted(offsets, std::less_equal<>());
}

}  // namespace

KeptReader::KeptReader(FileSystem& files, const std::string& chartFile, std::string key)
    : files_(files), key_(std::move(key)) {
  const std::string folder = kept::Folder(files);
  if (!folder.empty()) name_ = kept::Stem(folder, chartFile) + std::string(kept::kEnding);
}

bool KeptReader::ReadFully(void* bytes, std::size_t count) {
  const std::span room(static_cast<char*>(bytes), count);
  std::size_t filled = 0;
  while (filled < count) {
    const std::size_t more = file_->Read(room.subspan(filled));
    if (more == 0) return false;
    filled += more;
  }
  return true;
}

bool KeptReader::ReadIndex(const LinePlace& first, LineIndex& index) {
  if (name_.empty() || !files_.FileExists(name_)) return false;
  try {
    files_.CheckOwned(name_);
    file_ = files_.OpenForReading(name_);
    std::vector<std::uint64_t> offsets;
    if (ReadHead(first, offsets)) {
      index.Restore(std::move(offsets));
      return true;
    }
    ThrowAway();
  } catch (const RunTimeError&) {
    file_.reset();  // a link, another user's file, a device error: the chart file itself is read
  }
  return false;
}

bool KeptReader::ReadHead(const LinePlace& first, std::vector<std::uint64_t>& offsets) {
  constexpr std::uint64_t kWord = sizeof(std::uint64_t);
  const std::uint64_t size = file_->Identity().size;
  if (!ReadFully(&head_, sizeof(head_)) || head_.mark != kept::kMark || head_.keyBytes != key_.size()) return false;
  if (!Holds(head_, first) || head_.offsets > size / kWord || head_.offsets == 0) return false;
  const std::uint64_t envelope = head_.series * head_.blocks * sizeof(Extremes);
  if (size != sizeof(head_) + head_.keyBytes + head_.offsets * kWord + kWord + envelope + kWord) return false;
  std::string key(key_.size(), '\0');
  offsets.resize(head_.offsets);
  std::uint64_t sum = 0;
  if (!ReadFully(key.data(), key.size()) || key != key_ || !ReadFully(offsets.data(), offsets.size() * kWord) ||
      !ReadFully(&sum, sizeof(sum))) {
    return false;
  }
  kept::Checksum found;
  found.Add(kept::BytesOf(&head_));
  found.Add(key);
  found.Add(kept::BytesOf(offsets.data(), offsets.size()));
  return found.Value() == sum && Holds(offsets, head_, first);
}

bool KeptReader::ReadOn() {
  if (!file_) return false;
  try {
    if (series_ == head_.series) {
      std::uint64_t sum = 0;
      whole_ = ReadFully(&sum, sizeof(sum)) && sum == sum_.Value();
      if (!whole_) ThrowAway();
      file_.reset();
      return false;
    }
    std::vector<Extremes>& blocks = blocks_[series_];
    if (blocks.empty()) blocks.reserve(head_.blocks);
    const std::size_t begin = blocks.size();
    blocks.resize(std::min<std::size_t>(head_.blocks, begin + kPieceBlocks));
    const std::size_t bytes = (blocks.size() - begin) * sizeof(Extremes);
    if (!ReadFully(blocks.data() + begin, bytes)) {
      ThrowAway();
      return false;
    }
    sum_.Add(kept::BytesOf(blocks.data() + begin, blocks.size() - begin));
    Settle(std::span(blocks).subspan(begin));
    if (blocks.size() == head_.blocks) ++series_;
    return true;
  } catch (const RunTimeError&) {
    file_.reset();
    return false;
  }
}

bool KeptReader::TakeOver(FileSurvey& survey) {
  if (!whole_) return false;
  Settle(head_.state.block);
  Settle(head_.state.last);
  survey.Restore(head_.state, std::move(blocks_));
  return true;
}

void KeptReader::ThrowAway() {
  file_.reset();
  try {
    files_.Delete(name_);
  } catch (const RunTimeError&) {
    // It is of no use, but of no harm either.
  }
}

}  // namespace chartproject
