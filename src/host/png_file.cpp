// Chunks of a PNG file: header, resolution, one compressed block of filtered rows, end.
#include "host/png_file.h"

#include <zlib.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr double kInchesPerMetre = 1 / 0.0254;
constexpr int kBytesPerPixel = 3;

void AppendNumber(std::string& bytes, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFFU);
}

void AppendChunk(std::string& file, const char* type, const std::string& data) {
  AppendNumber(file, static_cast<std::uint32_t>(data.size()));
  const std::string body = type + data;
  file += body;
  AppendNumber(file, static_cast<std::uint32_t>(
                         crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size()))));
}

/// Rows of red, green and blue bytes, each row as the difference to the row above it: charts compress well so.
std::string FilteredRows(const Bitmap& picture) {
  constexpr char kFilterUp = 2;
  const auto rowLength = static_cast<std::size_t>(picture.width) * kBytesPerPixel;
  std::string rows;
  rows.reserve((rowLength + 1) * static_cast<std::size_t>(picture.height));
  std::vector<std::uint8_t> above(rowLength);
  for (int y = 0; y < picture.height; ++y) {
    rows += kFilterUp;
    std::size_t at = 0;
    for (int x = 0; x < picture.width; ++x) {
      const std::uint32_t pixel = picture.pixels[static_cast<std::size_t>(y) * picture.width + x];
      for (int shift = 16; shift >= 0; shift -= 8) {
        const auto value = static_cast<std::uint8_t>(pixel >> shift);
        rows += static_cast<char>(static_cast<std::uint8_t>(value - above[at]));
        above[at++] = value;
      }
    }
  }
  return rows;
}

std::string Compressed(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string packed(size, '\0');
  const int result =
      compress2(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
                static_cast<uLong>(bytes.size()), Z_DEFAULT_COMPRESSION);
  if (result != Z_OK) throw RunTimeError(error_number::kInvalidPicture, "The picture cannot be compressed");
  packed.resize(size);
  return packed;
}

}  // namespace

std::string PngBytes(const Bitmap& picture) {
  if (picture.Empty()) throw RunTimeError(error_number::kInvalidPicture, "The picture is empty");
  std::string file("\x89PNG\r\n\x1A\n");
  std::string header;
  AppendNumber(header, static_cast<std::uint32_t>(picture.width));
  AppendNumber(header, static_cast<std::uint32_t>(picture.height));
  header.append({8, 2, 0, 0, 0});  // eight bits each of red, green, blue; not interlaced
  AppendChunk(file, "IHDR", header);
  std::string resolution;
  const auto dotsPerMetre = static_cast<std::uint32_t>(std::lround(picture.dotsPerInch * kInchesPerMetre));
  AppendNumber(resolution, dotsPerMetre);
  AppendNumber(resolution, dotsPerMetre);
  resolution += '\1';  // the unit is the metre
  AppendChunk(file, "pHYs", resolution);
  AppendChunk(file, "IDAT", Compressed(FilteredRows(picture)));
  AppendChunk(file, "IEND", {});
  return file;
}

}  // namespace chartproject
