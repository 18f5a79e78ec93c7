// Questions about recordings.
#include "recording_answers.h"

#include <sstream>

#include "common/values/text.h"
#include "recording/companion/companion_reader.h"
#include "recording/companion/companion_texts.h"
#include "recording/companion/point_clock.h"
#include "recording/file/chart_file_writer.h"
#include "recording/file/point_reader.h"
#include "recording/journal/recovery.h"
#include "recording/journal/unfinished.h"

namespace chartproject {

namespace {

void Tell(std::ostream& out, const RowSurvey& rows) {
  out << rows.points << " points, " << rows.malformed << " not, " << rows.firstTime << " to " << rows.lastTime << ", "
      << rows.midnights << " midnights, " << rows.columns << " columns" << (rows.toTheEnd ? "" : ", cut");
}

void Tell(std::ostream& out, const InterruptedRecording& found) {
  out << "\njournal [" << found.journalFile << "] ";
  if (found.journal) {
    const JournalReading& journal = *found.journal;
    out << "every " << journal.millisecondsBetweenPoints << " ms" << (journal.simulated ? " simulated" : "");
    if (journal.begun)
      out << " begun " << journal.begun->day << '.' << journal.begun->month << ' ' << journal.begun->hour;
    out << " drive " << journal.header.DriveAddress << " of " << journal.header.NumberOfPoints << " points, spools";
    for (const int spool : journal.spools) out << ' ' << spool;
  }
  for (const RowFile& part : found.rowFiles) {
    out << "; rows in " << part.name << " from line " << part.first.line << " at " << part.first.offset;
  }
  out << ": ";
  Tell(out, found.rows);
}

void Tell(std::ostream& out, const RecoveryResult& result) {
  out << "\n[" << result.chartFile << "] " << result.points << " points, " << result.malformed << " not"
      << (result.wasWhole ? ", whole" : "") << (result.leftBehind ? ", left behind" : "");
  if (result.companionFault) out << ", " << result.companionFault->Description();
}

/// Rows of an unfinished recording as one file, from an offset on, in small pieces.
void TellRows(FakePorts& fake, std::ostream& out, const std::string& name, std::uint64_t offset) {
  const auto found = FindUnfinished(fake.files, fake.codePage, name);
  if (!found) return static_cast<void>(out << "nothing");
  const auto rows = OpenRows(fake.files, *found);
  out << found->journalFile << ", " << rows->Identity().size << " bytes: ";
  if (offset > 0) rows->Seek(offset);
  std::array<char, 7> piece{};
  while (const std::size_t count = rows->Read(piece)) out << VisibleText(std::string_view(piece.data(), count)) << '|';
}

void TellReadings(FakePorts& fake, std::ostream& out, const std::string& name) {
  ChartHeader header;
  (void)ReadChartHeader(*fake.files.OpenForReading(name), fake.codePage, header);
  const auto companion = LoadCompanion(fake.files, name, header);
  if (!companion) return static_cast<void>(out << "none");
  out << companion->points << " points, recovered " << static_cast<int>(companion->recovered)
      << (companion->simulated ? ", simulated" : "");
  for (std::size_t column = 0; column < companion->failed.size(); ++column) {
    for (const FailedRange& range : companion->failed[column].Ranges())
      out << '\n' << FailedRangeLine(column, companion->parameters[column], range);
  }
  for (const TimeKnot& knot : companion->times.Knots()) out << "\npoint " << knot.point << " at " << knot.elapsed;
  for (const Language language : {Language::kPortuguese, Language::kEnglish, Language::kSpanish}) {
    for (const std::string& line : CompanionLines(language, fake.locale.Numbers(), *companion)) out << '\n' << line;
  }
}

void TellClock(FakePorts& fake, std::ostream& out, const std::string& name) {
  ChartHeader header;
  (void)ReadChartHeader(*fake.files.OpenForReading(name), fake.codePage, header);
  const auto companion = LoadCompanion(fake.files, name, header);
  const PointClock clock(header, companion ? &companion->times : nullptr, fake.locale);
  if (!clock.Known()) out << "no pace";
  if (clock.FirstOfDay()) out << " from " << *clock.FirstOfDay() << " ms of the day";
  for (const std::int64_t day : {-1, 0, 1, 40}) out << ", " << clock.DateText(day);
  if (!clock.Known()) return;
  for (const double point : {0.0, 1.0, 1.5, 3.0, 7.0, 10.0}) {
    out << "; " << point << " at " << clock.ElapsedAt(point) << " is " << clock.PointAt(clock.ElapsedAt(point));
  }
  for (const ClockKnot& knot : clock.Knots(1.5, 6)) out << "; knot " << knot.point << ' ' << knot.milliseconds;
}

void TellLines(FakePorts& fake, std::ostream& out, const std::string& name) {
  const auto file = fake.files.OpenForReading(name);
  const auto first = LocateRows(*file);
  if (!first) return static_cast<void>(out << "no rows");
  PointReader reader(*file, *first);
  for (PointLine line; reader.Next(line);) {
    out << line.number << '@' << line.offset << "/" << reader.NextNumber() << " kind " << static_cast<int>(line.kind)
        << " [" << line.text.substr(0, 30) << "]; ";
  }
  PointReader skipping(*file, *first);
  out << "skipped " << skipping.SkipTo(first->line + 2) << " to " << skipping.NextNumber();
  if (const auto count = CountPoints(*file, *first))
    out << ", " << count->points << " points, " << count->malformed << " not, the last in line " << count->lastLine;
  Tell(out << "; ", SurveyChartFile((file->Seek(0), *file)));
}

}  // namespace

std::string AnswerOn(FakePorts& fake, const std::string& question, const std::string& name, const std::string& value) {
  std::ostringstream out;
  out.precision(12);
  try {
    if (question == "interrupted") {
      for (const std::string& chart : InterruptedChartFiles(fake.files, name)) out << chart << "; ";
    } else if (question == "beside") {
      const std::uint64_t limit = value.empty() ? kNoSurveyLimit : std::stoull(value);
      for (const auto& found : FindBeside(fake.files, fake.codePage, name, limit)) Tell(out, found);
      out << "\nnewest:";
      if (const auto newest = FindNewest(fake.files, fake.codePage, name, limit)) Tell(out, *newest);
      out << "\nbeing recorded: " << IsBeingRecorded(fake.files, name);
    } else if (question == "recover" || question == "besides") {
      const auto results = RecoverBeside(fake.ports, name, {.output = value, .besides = question == "besides"});
      if (!results) out << "is being recorded";
      for (const RecoveryResult& result : results.value_or(std::vector<RecoveryResult>())) Tell(out, result);
    } else if (question == "discard") {
      out << DiscardBeside(fake.ports, name).value_or(-1);
    } else if (question == "unfinished") {
      TellRows(fake, out, name, value.empty() ? 0 : std::stoull(value));
    } else if (question == "readings") {
      TellReadings(fake, out, name);
    } else if (question == "clock") {
      TellClock(fake, out, name);
    } else if (question == "rows") {
      TellLines(fake, out, name);
    } else {
      return {};
    }
  } catch (const RunTimeError& error) {
    out << "error " << error.Number() << ": " << error.Description();
  }
  return question + ": " + out.str();
}

}  // namespace chartproject
