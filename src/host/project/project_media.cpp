// Tones into wave files, drawings into icon files.
#include "host/project/project_media.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <span>
#include <string_view>

#include "platform/bitmap.h"

namespace chartproject {

namespace {

/// Little-endian, as wave and icon files are.
void Put16(std::string& bytes, unsigned value) {
  bytes += static_cast<char>(value & 0xFFU);
  bytes += static_cast<char>(value >> 8U & 0xFFU);
}

void Put32(std::string& bytes, std::uint32_t value) {
  Put16(bytes, value & 0xFFFFU);
  Put16(bytes, value >> 16U);
}

// Sounds ------------------------------------------------------------------------------------------------------------

constexpr int kSampleRate = 22050;

/// A note that fades out.
struct Note {
  double start;      ///< seconds
  double length;     ///< seconds
  double frequency;  ///< Hz
  double loudness;   ///< 0 to 1
};

std::string WaveFile(std::span<const Note> notes) {
  double seconds = 0;
  for (const Note& note : notes) seconds = std::max(seconds, note.start + note.length);
  const auto samples = static_cast<std::uint32_t>(seconds * kSampleRate);
  std::string bytes = "RIFF";
  Put32(bytes, 36 + 2 * samples);
  bytes += "WAVEfmt ";
  Put32(bytes, 16);
  Put16(bytes, 1);  // PCM
  Put16(bytes, 1);  // one channel
  Put32(bytes, kSampleRate);
  Put32(bytes, 2 * kSampleRate);  // bytes a second
  Put16(bytes, 2);                // bytes a sample
  Put16(bytes, 16);               // bits a sample
  bytes += "data";
  Put32(bytes, 2 * samples);
  for (std::uint32_t i = 0; i < samples; ++i) {
    double level = 0;
    for (const Note& note : notes) {
      const double time = static_cast<double>(i) / kSampleRate - note.start;
      if (time < 0 || time > note.length) continue;
      const double attack = std::min(1.0, time / 0.004);
      const double decay = std::exp(-5 * time / note.length);
      const double angle = 2 * std::numbers::pi * note.frequency * time;
      level += note.loudness * attack * decay * (std::sin(angle) + 0.25 * std::sin(2 * angle)) / 1.25;
    }
    Put16(bytes, static_cast<std::uint16_t>(static_cast<std::int16_t>(std::clamp(level, -1.0, 1.0) * 32000)));
  }
  return bytes;
}

// A short tap; a rising chord for work that is done; two falling notes for a window that closes.
constexpr std::array kClick{Note{0, 0.03, 1900, 0.35}, Note{0.002, 0.02, 3100, 0.15}};
constexpr std::array kComplete{Note{0, 0.5, 523.25, 0.3}, Note{0.11, 0.5, 659.26, 0.3}, Note{0.22, 0.7, 783.99, 0.3}};
constexpr std::array kClosing{Note{0, 0.25, 587.33, 0.3}, Note{0.09, 0.35, 440, 0.3}};

// Pictures ----------------------------------------------------------------------------------------------------------

constexpr std::uint32_t kClear = 0;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kBlack = 0xFF000000;

std::uint32_t& PixelAt(Bitmap& picture, int x, int y) {
  return picture
      .pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(x)];
}

Bitmap EmptyPicture(int size) {
  return {.width = size,
          .height = size,
          .pixels = std::vector<std::uint32_t>(static_cast<std::size_t>(size) * static_cast<std::size_t>(size))};
}

/// A tile with two axes and a trend that climbs over them.
Bitmap ChartIcon(int size, std::uint32_t tile, std::uint32_t trend) {
  constexpr std::array<double, 6> kTrend{0.70, 0.55, 0.62, 0.38, 0.46, 0.22};  // from the top, at equal steps
  Bitmap picture = EmptyPicture(size);
  const double radius = size * 0.16;
  const int thickness = std::max(1, size / 16);
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      const double outsideX = std::max({radius - x - 0.5, x + 0.5 - (size - radius), 0.0});
      const double outsideY = std::max({radius - y - 0.5, y + 0.5 - (size - radius), 0.0});
      if (std::hypot(outsideX, outsideY) <= radius) PixelAt(picture, x, y) = tile;
    }
  }
  const int left = size * 3 / 16;
  const int right = size - size / 8;
  const int bottom = size - size * 3 / 16 - 1;
  for (int i = 0; i < thickness; ++i) {
    for (int y = size / 8; y <= bottom; ++y) PixelAt(picture, left + i, y) = kWhite;
    for (int x = left; x < right; ++x) PixelAt(picture, x, bottom - i) = kWhite;
  }
  for (int x = left + thickness + 1; x < right; ++x) {
    const double place = static_cast<double>(x - left) / (right - left) * (kTrend.size() - 1);
    const auto step = static_cast<std::size_t>(place);
    const double height = std::lerp(kTrend[step], kTrend[step + 1], place - static_cast<double>(step));
    const int y = static_cast<int>(height * size);
    for (int i = 0; i <= thickness; ++i) PixelAt(picture, x, y + i) = trend;
  }
  return picture;
}

/// A hand with its finger up: "#" outline, "." inside.
constexpr std::array<std::string_view, 19> kHand{
    "     ##",          "    #..#",         "    #..#",         "    #..#",         "    #..###",
    "    #..#..###",    "    #..#..#..##",  "    #..#..#..#.#", " ## #..........#", "#..##..........#",
    "#...#..........#", " #.............#", "  #............#", "  #...........#",  "   #..........#",
    "    #........#",   "     #.......#",   "     #.......#",   "     #########"};

Bitmap HandCursor() {
  Bitmap picture = EmptyPicture(32);
  for (std::size_t y = 0; y < kHand.size(); ++y) {
    for (std::size_t x = 0; x < kHand[y].size(); ++x) {
      const char mark = kHand[y][x];
      PixelAt(picture, static_cast<int>(x), static_cast<int>(y)) = mark == '#' ? kBlack : mark == '.' ? kWhite : kClear;
    }
  }
  return picture;
}

/// One picture of an icon file: a bitmap of double height, colours above, mask below, both from the bottom up.
std::string IconImage(Bitmap picture) {
  std::string bytes;
  const auto width = static_cast<std::uint32_t>(picture.width);
  const std::uint32_t maskRow = (width + 31) / 32 * 4;
  Put32(bytes, 40);  // size of this header
  Put32(bytes, width);
  Put32(bytes, 2 * width);
  Put16(bytes, 1);   // planes
  Put16(bytes, 32);  // bits a pixel
  Put32(bytes, 0);   // not compressed
  Put32(bytes, width * width * 4 + maskRow * width);
  bytes.append(16, '\0');  // resolution and palette
  for (int y = picture.height - 1; y >= 0; --y) {
    for (int x = 0; x < picture.width; ++x) Put32(bytes, PixelAt(picture, x, y));
  }
  for (int y = picture.height - 1; y >= 0; --y) {
    std::string row(maskRow, '\0');
    for (int x = 0; x < picture.width; ++x) {
      if (PixelAt(picture, x, y) != kClear) continue;
      char& byte = row[static_cast<std::size_t>(x / 8)];
      byte = static_cast<char>(static_cast<unsigned char>(byte) | 0x80U >> (x % 8));
    }
    bytes += row;
  }
  return bytes;
}

struct IconKind {
  unsigned type;    ///< 1 icon, 2 cursor
  unsigned first;   ///< planes, or the cursor's x
  unsigned second;  ///< bits a pixel, or the cursor's y
};
constexpr IconKind kIcon{1, 1, 32};
constexpr IconKind kCursorAtFingertip{2, 5, 0};

std::string IconFile(const IconKind& kind, std::span<const Bitmap> pictures) {
  std::string bytes;
  Put16(bytes, 0);
  Put16(bytes, kind.type);
  Put16(bytes, static_cast<unsigned>(pictures.size()));
  std::string images;
  const std::size_t firstImage = 6 + 16 * pictures.size();
  for (const Bitmap& picture : pictures) {
    const std::string image = IconImage(picture);
    bytes += static_cast<char>(picture.width);
    bytes += static_cast<char>(picture.height);
    Put16(bytes, 0);  // no palette
    Put16(bytes, kind.first);
    Put16(bytes, kind.second);
    Put32(bytes, static_cast<std::uint32_t>(image.size()));
    Put32(bytes, static_cast<std::uint32_t>(firstImage + images.size()));
    images += image;
  }
  return bytes + images;
}

std::string ChartIconFile(std::uint32_t tile, std::uint32_t trend) {
  const std::array pictures{ChartIcon(16, tile, trend), ChartIcon(32, tile, trend)};
  return IconFile(kIcon, pictures);
}

}  // namespace

ProjectFiles MakeMediaFiles() {
  constexpr std::uint32_t kBlue = 0xFF1F4E79;
  constexpr std::uint32_t kGreen = 0xFF1E6B52;
  constexpr std::uint32_t kAmber = 0xFFFFB000;
  const std::array hand{HandCursor()};
  return {{"media/NIMClick.wav", WaveFile(kClick)},
          {"media/Complete.wav", WaveFile(kComplete)},
          {"media/ir_end.wav", WaveFile(kClosing)},
          {"graphics/Cursor/Select.cur", IconFile(kCursorAtFingertip, hand)},
          {"graphics/Icon/General/Kestrel.ico", ChartIconFile(kBlue, kAmber)},
          {"graphics/Icon/General/Orlin.ico", ChartIconFile(kGreen, kAmber)}};
}

}  // namespace chartproject
