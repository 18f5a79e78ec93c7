// The end of the last whole line is looked for from the end of the file.
#include "recording/journal/growing_rows.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace chartproject {

void FileUpTo::Refresh(bool wholeLines) {
  std::uint64_t place = file_->Identity().size;
  if (!wholeLines) {
    end_ = std::max(end_, place);
    return;
  }
  std::array<char, 4096> block{};
  while (place > end_) {
    const std::uint64_t begin = std::max(end_, place - std::min<std::uint64_t>(place, block.size()));
    file_->Seek(begin);
    const std::size_t count = file_->Read(std::span(block).first(static_cast<std::size_t>(place - begin)));
    const std::size_t last = std::string_view(block.data(), count).rfind('\n');
    if (last != std::string_view::npos) {
      end_ = begin + last + 1;
      return;
    }
    place = begin;
  }
}

std::size_t FileUpTo::Read(std::span<char> buffer) {
  if (position_ >= end_) return 0;
  file_->Seek(position_);
  const auto most = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), end_ - position_));
  const std::size_t count = file_->Read(buffer.first(most));
  position_ += count;
  return count;
}

GrowingRows::GrowingRows(std::unique_ptr<InputFile> file, const RowStart& first, RowNumbers numbers)
    : file_(std::move(file)), first_(first), numbers_(numbers) {
  reader_.emplace(file_, first_);
}

bool GrowingRows::Next(PointLine& line) {
  while (reader_->Next(line)) {
    offset_ = line.offset + line.text.size();
    if (numbers_ == RowNumbers::kEachLine) {
      number_ = line.number - first_.line + 1;
    } else if (line.kind == LineKind::kPoint) {
      ++number_;
    }
    // Rows without a time fill up a recording that was ended early.
    if (line.kind == LineKind::kPoint && !line.row.time.empty()) return true;
  }
  return false;
}

void GrowingRows::GoTo(std::int64_t number, const std::function<bool()>& goOn) {
  reader_.emplace(file_, first_);
  number_ = 0;
  offset_ = first_.offset;
  if (numbers_ == RowNumbers::kEachLine) {
    reader_->SkipTo(first_.line + number - 1, [&goOn](std::uint64_t) { return goOn(); });
    number_ = reader_->NextNumber() - first_.line;
    return;
  }
  for (PointLine line; number_ + 1 < number && goOn();) {
    if (!Next(line)) return;
  }
}

std::int64_t GrowingRows::Passed() const noexcept {
  return numbers_ == RowNumbers::kEachLine ? reader_->NextNumber() - first_.line : number_;
}

}  // namespace chartproject
