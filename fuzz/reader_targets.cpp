// Files of the project folder: any content is read or refused with a run-time error.
#include <array>
#include <cmath>

#include "backends/posix/posix_settings_store.h"
#include "bytes_file.h"
#include "common/environment/settings_io.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_context.h"
#include "drive/driver_file.h"
#include "drive/unit_codes.h"
#include "links/scenario_script.h"
#include "publish/line_protocol.h"
#include "publish/publish_position.h"
#include "recording/companion/companion_texts.h"
#include "recording/file/field_value.h"
#include "recording/journal/recovery.h"
#include "recording/journal/unfinished.h"
#include "support/error_of.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"
#include "targets.h"

namespace chartproject::fuzz {

namespace {

/// An instance whose files are in memory.
struct Project {
  FakePorts fakes;
  FakePlant plant;
  DriveContext context{fakes.ports, fakes.forms, plant};
};

}  // namespace

void Drive(std::string_view bytes) {
  Project project;
  project.fakes.files.Put("/d.drv", std::string(bytes));
  project.context.settings.strMainFile = "x";
  project.context.settings.strDriveFile[0] = "/d.drv";
  LoadDriveInfo(project.context, 0);
  Require(project.context.driveTable.At(1).Address == "01");
  Require(!DriverFileName(project.context, 1).empty());
}

void Driver(std::string_view bytes) {
  Project project;
  project.fakes.files.Put("/KRA09E.wcd", std::string(bytes));
  project.context.settings.strLanguage = "English";
  project.context.settings.strDrivers = "/";
  project.context.driveTable.At(1).Type = "KRA-09";
  (void)ErrorOf([&] { LoadDriverFile(project.context, 1); });  // a number that does not fit ends the loading
  Require(project.fakes.dialogs.boxes.size() <= 11);
  // A line of another shape must never pass for a parameter.
  ParameterTable table;
  const NumberFormat numbers{",", "."};
  DriverFileParser parser(table, numbers, [](std::string_view keyword, int) { return FindUnitCode(keyword); });
  const std::string line(bytes.substr(0, bytes.find('\n')));
  (void)ErrorOf([&] {
    const bool other = line.starts_with('#') && CountChar(line, '#') != 14 && line.find('=') == std::string::npos;
    Require(!parser.TakeLine(line) || !other);
  });
}

void Journal(std::string_view bytes) {
  FakePorts fakes;
  const std::string journal(bytes);
  const std::string own = "08:00:00#1#####\r\n";
  fakes.files.Put("/a.cht.recording", journal);
  fakes.files.Put("/a.cht", "the user's own");
  fakes.files.Put("/a.cht.tcf1", own);
  const auto found = FindBeside(fakes.files, fakes.codePage, "/a.cht");
  for (const InterruptedRecording& recording : found) {
    for (const RowFile& file : recording.rowFiles) Require(file.name.starts_with("/a.cht."));
  }
  if (const auto unfinished = FindUnfinished(fakes.files, fakes.codePage, "/a.cht")) {
    const auto rows = OpenRows(fakes.files, *unfinished);
    std::array<char, 4096> block{};
    std::uint64_t size = 0;
    for (std::size_t count = rows->Read(block); count > 0; count = rows->Read(block)) size += count;
    Require(size == rows->Identity().size);
  }
  const auto results = RecoverBeside(fakes.ports, "/a.cht", {});
  std::int64_t points = 0;
  for (const RecoveryResult& result : results.value()) points += result.points;
  std::int64_t expected = 0;
  for (const InterruptedRecording& recording : found) expected += recording.rows.points;
  Require(points == expected && points > 0);
  Require(fakes.files.Bytes("/a.cht") == "the user's own");
  Require(found.front().journal || fakes.files.Bytes("/a.cht.recording") == journal);
}

void Scenario(std::string_view bytes) {
  MemoryFileSystem files;
  files.Put("/plant.txt", std::string(bytes));
  (void)ErrorOf([&] {
    const ScenarioScript script = ScenarioScript::Load(files, "/plant.txt");
    for (const std::int64_t moment : {std::int64_t{0}, std::int64_t{1000}, INT64_MAX}) {
      const ReadOutcome outcome = script.OutcomeAt(1, moment);
      Require(OutcomeOfStatus(StatusOfOutcome(outcome), outcome.detail) == outcome ||
              outcome.failure == ReadFailure::kBroken);
      Require(script.DelayAt(1, moment) >= 0 && script.LatenessBetween(1, -1, moment) >= 0);
      const std::string* const text = script.TextAt(1, 5, moment);
      Require(text == nullptr || bytes.find(*text) != std::string_view::npos);
    }
  });
}

void CompanionFile(std::string_view bytes) {
  FakePorts fakes;
  const std::string chart = "/a.cht";
  fakes.files.Put(CompanionName(chart), std::string(bytes));
  ChartHeader header;  // of the dates and times that the corpus has
  header.StartDate = header.EndDate = "31/01/2026";
  header.StartTime = "08:00:01";
  header.EndTime = "08:00:10";
  (void)ErrorOf([&] {
    const auto companion = LoadCompanion(fakes.files, chart, header);
    if (!companion) return;
    if (companion->times.Known()) {
      for (const double point : {-1e9, 1.0, 1.5, 2e9}) Require(std::isfinite(companion->times.ElapsedAt(point)));
    }
    (void)CompanionLines(Language::kEnglish, fakes.locale.Numbers(), *companion);
    if (!companion->IsNeeded()) return;
    // What was read is written and read again without a change.
    fakes.files.Delete(CompanionName(chart));
    SaveCompanion(fakes.files, fakes.codePage, chart, header, *companion);
    const auto again = LoadCompanion(fakes.files, chart, header);
    Require(again && again->points == companion->points);
    for (std::size_t column = 0; column < again->failed.size(); ++column) {
      Require(again->failed[column].Count() == companion->failed[column].Count());
      Require(again->failed[column].LastReason() == companion->failed[column].LastReason());
    }
  });
}

void Position(std::string_view bytes) {
  FakePorts fakes;
  const std::string name = PositionName("/a.cht");
  fakes.files.Put(name, std::string(bytes));
  std::vector<PublishPosition> positions;
  if (ErrorOf([&] { positions = LoadPositions(fakes.files, name); }) != 0) return;
  Require(positions.size() <= kMostPositions);
  for (const PublishPosition& one : positions) {
    Require(IsSeriesKeyOf(one.series, one.measurement));
    Require(one.resume.next >= 1 && one.resume.anchor.point <= one.resume.next);
  }
  if (positions.empty()) return;
  // What was read is written and read again without a change.
  SavePositions(fakes.files, name, "/a.cht", positions);
  Require(LoadPositions(fakes.files, name) == positions);
}

void Settings(std::string_view bytes) {
  FakePorts fakes;
  fakes.files.Put("/profile/Kestrel v5.60.ini", std::string(bytes));
  (void)ErrorOf([&] {
    PosixSettingsStore store(fakes.files, "/profile");
    Ports ports{store,       fakes.files,    fakes.clock, fakes.locale,    fakes.codePage, fakes.dialogs,
                fakes.sound, fakes.keyboard, fakes.help,  fakes.clipboard, fakes.printer,  fakes.spreadsheets};
    Environment environment{ports, fakes.forms};
    for (const auto read : {ReadConfSettings, ReadProjectSettings, ReadFolderSettings}) {
      (void)ErrorOf([&] { read(environment); });
    }
  });
}

void Number(std::string_view bytes) {
  const bool comma = !bytes.empty() && (bytes[0] & 1) != 0;
  bytes.remove_prefix(bytes.empty() ? 0 : 1);
  const NumberFormat format = comma ? NumberFormat{",", "."} : NumberFormat{".", ","};
  const int error = ErrorOf([&] { (void)ToDouble(bytes, format); });
  Require(IsNumeric(bytes, format) ? error == 0 || error == 6 : error == 13);
  (void)ErrorOf([&] { (void)ToInteger16(bytes, format); });
  (void)ErrorOf([&] { (void)LeadingNumber(bytes); });
  (void)ErrorOf([&] { (void)ToTypedDecimal(bytes, format); });
  const double value = FieldValue(bytes, format);
  Require(!(value - value == 0) || (value <= std::numeric_limits<double>::max()));
}

void Visible(std::string_view bytes) {
  for (const std::string& text : {VisibleText(bytes), VisibleLines(bytes)}) {
    Require(text.find('\x1B') == std::string::npos && text.find("\xC2\x9B") == std::string::npos);
    Require(VisibleLines(text) == text && text.size() >= bytes.size());
  }
  Require(VisibleText(bytes).find_first_of("\r\n") == std::string::npos);
}

}  // namespace chartproject::fuzz
