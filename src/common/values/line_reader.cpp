// A window on the file that is at least one longest line wide.
#include "common/values/line_reader.h"

#include <algorithm>
#include <cstring>

#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

const char* FindLineEnd(const char* from, std::size_t count) {
  return static_cast<const char*>(std::memchr(from, '\n', count));
}

}  // namespace

void RefuseLargeFile(const std::string& fileName, std::uint64_t size, std::uint64_t most) {
  constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20U;
  if (size <= most * kMegabyte) return;
  throw RunTimeError(error_number::kInvalidProcedureCall, Text::kFileTooLarge,
                     {fileName, std::to_string((size + kMegabyte - 1) / kMegabyte), std::to_string(most)});
}

LineReader::LineReader(InputFile& file, std::size_t limit, std::int64_t firstNumber, std::uint64_t firstOffset)
    : file_(file), limit_(limit), buffer_(limit + kBlockSize), number_(firstNumber), offset_(firstOffset) {}

bool LineReader::Next(TextLine& line) {
  std::size_t searched = 0;
  const char* lineEnd = nullptr;
  while ((lineEnd = FindLineEnd(buffer_.data() + begin_ + searched, end_ - begin_ - searched)) == nullptr) {
    searched = end_ - begin_;
    if (searched > limit_ || !Fill()) break;
  }
  if (lineEnd == nullptr && begin_ == end_) return false;

  const char* const text = buffer_.data() + begin_;
  std::size_t length = lineEnd != nullptr ? static_cast<std::size_t>(lineEnd - text) : end_ - begin_;
  std::uint64_t passed = length + (lineEnd != nullptr ? 1 : 0);
  begin_ += static_cast<std::size_t>(passed);
  line.cut = length > limit_;
  if (!line.cut && lineEnd != nullptr && length > 0 && text[length - 1] == '\r') --length;
  line.text = {text, std::min(length, limit_)};
  line.number = number_++;
  line.offset = offset_;
  if (line.cut && lineEnd == nullptr) {
    // Skip the rest after the part that was given. That part stays where it is in the buffer.
    const std::size_t spare = static_cast<std::size_t>(text - buffer_.data()) + limit_;
    for (;;) {
      const std::size_t count = file_.Read(std::span(buffer_).subspan(spare));
      if (count == 0) {
        begin_ = end_ = spare;
        break;
      }
      const char* const rest = buffer_.data() + spare;
      const char* const found = FindLineEnd(rest, count);
      passed += found != nullptr ? static_cast<std::size_t>(found - rest) + 1 : count;
      if (found == nullptr) continue;
      begin_ = static_cast<std::size_t>(found - buffer_.data()) + 1;
      end_ = spare + count;
      break;
    }
  }
  offset_ += passed;
  return true;
}

bool LineReader::Fill() {
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  const std::size_t count = file_.Read(std::span(buffer_).subspan(end_));
  end_ += count;
  return count > 0;
}

}  // namespace chartproject
