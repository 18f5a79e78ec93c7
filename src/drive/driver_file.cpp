// Finding and reading driver files.
#include "drive/driver_file.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/environment/language.h"
#include "common/message_box.h"
#include "common/values/line_reader.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_context.h"
#include "drive/unit_codes.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr int kMarksInParameterLine = 14;
constexpr int kLastField = 13;
constexpr std::int32_t kLineErrorHelpContext = 152;
constexpr std::array<std::string_view, 5> kHeaderKeys{
    "Type=", "Firmware Version=", "Language=", "Driver Version=", "Customer="};

std::string_view Field(std::string_view line, int number) {
  return FieldBetween(line, number, number + 1);
}

void ShowLineError(DriveContext& context, std::int64_t line, const std::string& fileName) {
  const std::string text = FillIn(LoadMessage(context, Text::kDriverLineError), {std::to_string(line), fileName});
  ShowMessage(context, text, box_style::kCritical, context.helpFile, kLineErrorHelpContext);
}

/// Only the first faults of a driver file have a box each, because a file may have thousands.
class FaultBoxes {
 public:
  /// Counts a fault; true when it has its box.
  bool Take() noexcept { return ++count_ <= kMost; }
  /// Faults without a box.
  [[nodiscard]] std::int64_t Hidden() const noexcept { return std::max<std::int64_t>(count_ - kMost, 0); }

 private:
  static constexpr std::int64_t kMost = 10;
  std::int64_t count_ = 0;
};

/// The parser's errors with the place in the file.
bool TakeLineOf(const std::string& fileName, std::int64_t number, DriverFileParser& parser, std::string_view line) {
  try {
    return parser.TakeLine(line);
  } catch (const RunTimeError& error) {
    throw error.At(Text::kFileLinePlace, {fileName, std::to_string(number)});
  }
}

}  // namespace

DriverFileParser::DriverFileParser(ParameterTable& table, const NumberFormat& numbers, UnitCodeFinder findUnitCode)
    : table_(table), numbers_(numbers), findUnitCode_(std::move(findUnitCode)) {}

bool DriverFileParser::TakeLine(std::string_view line) {
  line = Trim(line);
  if (TakeHeaderLine(line) || line.empty() || line.front() == '\'' || line.front() == '[') return true;
  return TakeParameterLine(line);
}

/// The first key found anywhere in the line decides, also in a line that looks like a parameter's.
bool DriverFileParser::TakeHeaderLine(std::string_view line) {
  const auto contains = [line](std::string_view key) { return line.find(key) != std::string_view::npos; };
  if (std::any_of(kHeaderKeys.begin(), kHeaderKeys.end(), contains)) return true;
  if (!contains(")=")) return false;
  for (int n = 1; n <= kNumberedTextCount; ++n) {
    if (!contains("(" + std::to_string(n) + ")=")) continue;
    table_.numberedTexts[static_cast<std::size_t>(n - 1)] = line;
    return true;
  }
  return false;
}

bool DriverFileParser::TakeParameterLine(std::string_view line) {
  if (line.front() != '#' || CountChar(line, '#') != kMarksInParameterLine) return false;
  const std::string_view number = Field(line, 1);
  if (number.empty()) {
    ContinueTexts(line);
  } else {
    currentParameter_ = ToInteger16(RemoveFirst(number, "P"), numbers_);
    ParameterEntry& entry = table_.At(currentParameter_);
    entry.present = true;
    entry.secondPresent = true;
    StoreFields(line);
  }
  return Field(line, kLastField).empty();
}

void DriverFileParser::StoreFields(std::string_view line) {
  ParameterEntry& entry = table_.At(currentParameter_);
  const std::pair<int, std::string ParameterEntry::*> texts[] = {{2, &ParameterEntry::name},
                                                                 {3, &ParameterEntry::text3},
                                                                 {5, &ParameterEntry::text5},
                                                                 {8, &ParameterEntry::text8},
                                                                 {12, &ParameterEntry::text12}};
  for (const auto& [field, member] : texts) {
    if (const std::string_view text = Field(line, field); !text.empty()) entry.*member = text;
  }
  if (const std::string_view text = Field(line, 4); !text.empty()) entry.text4 = LocaleDecimal(text, numbers_);
  if (const std::string_view unit = Field(line, 6); !unit.empty()) {
    entry.unitCode = findUnitCode_(unit, currentParameter_);
  }
  if (const std::string_view yes = Field(line, 7); !yes.empty()) entry.yesFlag = ToUpperAscii(yes) == "YES";
  const std::pair<int, float ParameterEntry::*> limits[] = {
      {9, &ParameterEntry::limit9}, {10, &ParameterEntry::limit10}, {11, &ParameterEntry::limit11}};
  for (const auto& [field, member] : limits) {
    if (const std::string_view text = Field(line, field); !text.empty()) entry.*member = Limit(text);
  }
}

/// A line without a parameter number adds a line to the texts 3 and 4 of the parameter before it.
void DriverFileParser::ContinueTexts(std::string_view line) {
  ParameterEntry& entry = table_.At(currentParameter_);
  if (const std::string_view text = Field(line, 3); !text.empty()) entry.text3 += "\r\n" + std::string(text);
  if (const std::string_view text = Field(line, 4); !text.empty()) {
    entry.text4 += "\r\n" + LocaleDecimal(text, numbers_);
  }
}

float DriverFileParser::Limit(std::string_view field) const {
  return ToSingle(LocaleDecimal(field, numbers_), numbers_);
}

void LoadDriverFile(DriveContext& context, std::int16_t address) {
  ParameterTable& table = context.parameterTables.At(address);
  table = ParameterTable();
  const std::string fileName = DriverFileName(context, address);
  const auto file = context.ports.files.OpenForReading(fileName);
  constexpr std::uint64_t kMostMegabytes = 16;
  RefuseLargeFile(fileName, file->Identity().size, kMostMegabytes);
  FaultBoxes boxes;
  DriverFileParser parser(table, context.ports.locale.Numbers(), [&](std::string_view keyword, int parameter) {
    const std::int16_t code = FindUnitCode(keyword);
    return code != kUnknownUnitCode || !boxes.Take() ? code : UnitCode(context, keyword, parameter);
  });
  LineReader reader(*file);
  for (TextLine line; reader.Next(line);) {
    const bool taken = !line.cut && TakeLineOf(fileName, line.number, parser, context.ports.codePage.Decode(line.text));
    if (!taken && boxes.Take()) ShowLineError(context, line.number, fileName);
  }
  if (boxes.Hidden() == 0) return;
  ShowMessage(context,
              FillIn(LoadMessage(context, Text::kMoreDriverFaults), {std::to_string(boxes.Hidden()), fileName}),
              box_style::kCritical, context.helpFile, kLineErrorHelpContext);
}

std::vector<std::string> DriverFileNames(const std::string& model, std::string_view firmwareVersion,
                                         const std::string& ending) {
  const std::string version = RemoveFirst(RemoveFirst(firmwareVersion, "."), ",");
  std::vector<std::string> names;
  std::string opened = version;
  for (std::size_t open = 0; open <= 2 && open <= version.size(); ++open) {
    if (open > 0) opened[version.size() - open] = 'X';
    names.push_back(model);
    names.back().append("V").append(opened).append(ending);
  }
  names.push_back(model + ending);
  return names;
}

std::string DriverFileName(DriveContext& context, std::int16_t address) {
  const DriveRecord& drive = context.driveTable.At(address);
  const std::vector<std::string> names = DriverFileNames(RemoveFirst(drive.Type, "-"), drive.FirmwareVersion,
                                                         context.settings.strLanguage.substr(0, 1) + ".wcd");
  for (const std::string& name : names) {
    std::string fileName = JoinPath(context.settings.strDrivers, name);
    if (context.ports.files.FileExists(fileName)) return fileName;
  }
  return JoinPath(context.settings.strDrivers, names.back());
}

std::string RemoveFirst(std::string_view text, std::string_view piece) {
  std::string result(text);
  const std::size_t at = result.find(piece);
  if (at != std::string::npos) result.erase(at, piece.size());
  return result;
}

int CountChar(std::string_view text, char character) {
  return static_cast<int>(std::count(text.begin(), text.end(), character));
}

std::string_view FieldBetween(std::string_view line, int i, int j) {
  std::size_t begin = std::string_view::npos;
  int count = 0;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] != '#') continue;
    ++count;
    if (count == i) begin = at + 1;
    if (count == j) return begin == std::string_view::npos ? std::string_view() : Trim(line.substr(begin, at - begin));
  }
  return {};
}

}  // namespace chartproject
