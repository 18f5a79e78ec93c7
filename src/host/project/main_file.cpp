// One line a drive.
#include "host/project/main_file.h"

#include <charconv>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_table.h"

namespace chartproject {

namespace {

constexpr std::string_view kFirstLine = "Kestrel project";
constexpr std::string_view kNameKey = "Name=";
constexpr std::string_view kDriveKey = "Drive";

/// "Drive05=drive05.drv".
void TakeDrive(std::string_view line, DriveFiles& drives) {
  line.remove_prefix(kDriveKey.size());
  int address = 0;
  const auto parsed = std::from_chars(line.data(), line.data() + line.size(), address);
  const auto digits = static_cast<std::size_t>(parsed.ptr - line.data());
  if (parsed.ec != std::errc() || address < 1 || address > kLastDriveAddress || !line.substr(digits).starts_with('=')) {
    return;
  }
  const std::string_view file = line.substr(digits + 1);
  if (!file.empty() && file.find_first_of("/\\") == std::string_view::npos) drives[address] = file;
}

}  // namespace

std::string MainFileText(std::string_view name, const DriveFiles& drives) {
  std::string text(kFirstLine);
  text.append(kLineEnd).append(kNameKey).append(name).append(kLineEnd);
  text.append("Drives=").append(std::to_string(drives.size())).append(kLineEnd);
  for (const auto& [address, file] : drives) {
    text.append(kDriveKey).append(FormatDigits(address, 2)).append("=").append(file).append(kLineEnd);
  }
  return text;
}

std::optional<MainFile> ParseMainFile(std::string_view text) {
  MainFile file;
  bool first = true;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (first && line != kFirstLine) return std::nullopt;
    first = false;
    if (line.starts_with(kNameKey)) file.name = line.substr(kNameKey.size());
    if (line.starts_with(kDriveKey)) TakeDrive(line, file.drives);
  }
  return first ? std::nullopt : std::optional(std::move(file));
}

}  // namespace chartproject
