// Keys, names and checksums of kept surveys.
#include "chart/file/kept_layout.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "common/values/text.h"

namespace chartproject::kept {
namespace {

std::string Hex(std::uint64_t number) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (int shift = 60; shift >= 0; shift -= 4) text += kDigits[(number >> static_cast<unsigned>(shift)) & 15U];
  return text;
}

void AddPiece(InputFile& file, std::uint64_t offset, Checksum& sum) {
  std::array<char, 4096> bytes{};
  file.Seek(offset);
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const std::size_t count = file.Read(std::span(bytes).subspan(filled));
    if (count == 0) break;
    filled += count;
  }
  sum.Add({bytes.data(), filled});
}

}  // namespace

void Checksum::Add(std::string_view bytes) noexcept {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  for (std::size_t at = 0; at < bytes.size(); at += kWord) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + at, std::min(kWord, bytes.size() - at));
    // A multiplication by an odd number loses nothing; the shift brings its upper half down again.
    value_ = (value_ ^ word) * 0xD6E8'FEB8'6659'FD93;
    value_ ^= value_ >> 32U;
  }
}

std::string KeyOf(InputFile& chart, const std::string& fileName, const LinePlace& first, int series,
                  const NumberFormat& format) {
  constexpr std::uint64_t kPiece = 4096;
  const FileIdentity file = chart.Identity();
  Checksum sum;
  AddPiece(chart, 0, sum);
  AddPiece(chart, file.size - std::min(file.size, kPiece), sum);
  return fileName + "\n" + std::to_string(file.size) + " " + std::to_string(file.modifiedNanos) + " " +
         Hex(sum.Value()) + " " + std::to_string(first.line) + " " + std::to_string(first.offset) + " " +
         std::to_string(series) + " " + format.decimalSeparator + " " + format.groupSeparator;
}

std::string Folder(FileSystem& files) {
  const std::string folder = files.CacheFolder();
  return folder.empty() ? folder : JoinPath(folder, "chartproject");
}

std::string Stem(const std::string& folder, const std::string& chartFile) {
  Checksum sum;
  sum.Add(chartFile);
  return JoinPath(folder, Hex(sum.Value()));
}

}  // namespace chartproject::kept
