// Reading the host's drive files.
#include "drive/drive_table.h"

#include <utility>

#include "common/values/line_reader.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_context.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

/// Tested in this order; the first key that a line contains decides.
constexpr std::pair<std::string_view, std::string DriveRecord::*> kDriveFileKeys[] = {
    {"Type=", &DriveRecord::Type},
    {"Firmware Version=", &DriveRecord::FirmwareVersion},
    {"Nominal Voltage=", &DriveRecord::NominalVoltage},
    {"Nominal Current=", &DriveRecord::NominalCurrent},
    {"Tag=", &DriveRecord::Tag},
    {"Commercial Reference=", &DriveRecord::CommercialReference},
    {"Serial Number=", &DriveRecord::SerialNumber},
};

void TakeDriveLine(std::string_view line, DriveRecord& record) {
  line = TrimStart(line);
  for (const auto& [key, field] : kDriveFileKeys) {
    if (line.find(key) == std::string_view::npos) continue;
    record.*field = AfterEquals(line);
    return;
  }
}

void LoadDriveFile(DriveContext& context, const std::string& fileName, DriveRecord& record) {
  const auto file = context.ports.files.OpenForReading(fileName);
  constexpr std::uint64_t kMostMegabytes = 16;
  RefuseLargeFile(fileName, file->Identity().size, kMostMegabytes);
  LineReader reader(*file);
  for (TextLine line; reader.Next(line);) TakeDriveLine(context.ports.codePage.Decode(line.text), record);
}

}  // namespace

const DriveRecord& DriveTable::At(int address) const {
  if (address < 0 || address > kLastDriveAddress) {
    throw RunTimeError(error_number::kSubscriptOutOfRange,
                       "Subscript out of range: drive address " + std::to_string(address));
  }
  return records_[static_cast<std::size_t>(address)];
}

DriveRecord& DriveTable::At(int address) {
  return const_cast<DriveRecord&>(static_cast<const DriveTable&>(*this).At(address));
}

void LoadDriveInfo(DriveContext& context, std::int16_t address) {
  if (context.settings.strMainFile.empty()) return;
  (void)context.driveTable.At(address);
  context.driveTable.Clear();
  const int first = address == 0 ? 1 : address;
  const int last = address == 0 ? kLastDriveAddress : address;
  for (int a = first; a <= last; ++a) {
    const std::string& fileName = context.settings.strDriveFile[static_cast<std::size_t>(a - 1)];
    if (fileName.empty() || !context.ports.files.FileExists(fileName)) continue;
    DriveRecord& record = context.driveTable.At(a);
    record.Address = FormatDigits(a, 2);
    LoadDriveFile(context, fileName, record);
  }
}

}  // namespace chartproject
