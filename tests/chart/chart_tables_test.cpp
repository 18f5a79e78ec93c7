// What is read from chart files: slices, statistics, what is found, and what is known of the whole of them, held
// against texts that were read.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "chart/file/chart_source.h"
#include "chart/measure/point_search.h"
#include "chart/measure/range_statistics.h"
#include "chart/picture/geometry/category_axis.h"
#include "chart/picture/geometry/value_axis.h"
#include "chart/view/chart_view.h"
#include "recording/companion/point_clock.h"
#include "support/fake_ports.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

constexpr const char* kFile = "/data/Test.cht";

struct ChartTables : ::testing::Test {
  void Open(const std::string& rows) {
    header = {};
    header.ScanTime = "500";
    header.Unit = "ms";
    fakes.files.Put(kFile, "[INFO]\r\nNumber of Parameters=2\r\nNumber of Points=3\r\n[TIME/CONTENT]\r\n" + rows);
    source = std::make_unique<ChartSource>(fakes.ports);
    source->Open(kFile, header);
    points = source->Count({})->lastLine - source->FirstLine() + 1;
  }
  std::string Slices() {
    std::ostringstream out;
    out << "N " << source->NamedPoints() << " P " << source->NamedSeries() << " first line " << source->FirstLine();
    const auto count = source->Count({});
    out << " points " << count->points << " last line " << count->lastLine << " lines " << *source->CountLines()
        << '\n';
    for (const auto& [from, rows] :
         {std::pair(0, 3), std::pair(1, 25), std::pair(4, 2), std::pair(4090, 9), std::pair(8999, 3)}) {
      const SliceReading reading = source->Read(source->FirstLine() + from, source->FirstLine() + from + rows, 4);
      const Slice& slice = reading.slice;
      out << "slice " << slice.startLine << ".." << slice.endLine << ": end " << static_cast<int>(reading.end)
          << " rows " << slice.RowCount() << " columns " << slice.columnsRead << ' ' << slice.columnsInUse
          << (slice.endOfFile ? " end" : "") << (slice.moreFollow ? " more" : "") << " last " << slice.lastLine
          << " fault " << reading.malformedLine << ' ' << reading.malformedText;
      for (const auto& values : slice.values) {
        double sum = 0;
        for (const double value : values) sum += std::isnan(value) ? 0 : value;
        out << "; " << (values.empty() ? 0 : values.front()) << " .. " << (values.empty() ? 0 : values.back())
            << " sum " << sum;
      }
      out << '\n';
    }
    return out.str();
  }
  std::string Statistics(std::int64_t first, std::int64_t last, bool timed) {
    std::ostringstream out;
    const PointClock clock(header, nullptr, fakes.locale);
    const auto measured = MeasureRange(*source, {first, last, 2, timed ? &clock : nullptr, timed ? &failed : nullptr},
                                       fakes.locale.numbers);
    out << "points " << first << ".." << last << (timed ? " timed" : "");
    for (const SeriesStatistics& series : *measured) {
      out << "; " << series.count << " left out " << series.leftOut << " from " << series.minimum << " to "
          << series.maximum << " mean " << series.mean << " rms " << series.rms << " slope " << series.slope
          << " integral " << series.integral << " crossings " << series.crossings;
    }
    return out.str();
  }
  /// From one found point to the next, through the whole file and back.
  std::string Found(SearchFor what, int series, double value) {
    std::ostringstream out;
    for (const bool forward : {true, false}) {
      std::int64_t from = forward ? 0 : points + 1;
      out << (forward ? "on:" : "; back:");
      for (int i = 0; i < 7; ++i) {
        const PointSearch search =
            FindPoint(*source, {what, series, value, forward}, from, points, &failed, fakes.locale.numbers);
        if (!search.found) break;
        from = search.found->point;
        out << ' ' << from << " [" << search.found->before << '>' << search.found->text << ']';
      }
    }
    return out.str();
  }
  std::string Known() {
    std::ostringstream out;
    while (source->SurveyOn({})) {
    }
    const FileSurvey& survey = source->Survey();
    out << "lines " << survey.Exact().Lines() << " blocks of " << survey.Exact().BlockLength()
        << (survey.Complete() ? " complete" : "") << (survey.Settled() ? " settled" : "") << ", joined:";
    const SurveyState state = survey.JoinedState(4);
    out << " next " << state.next.line << ' ' << state.next.offset << " block " << state.blockLength << ' '
        << state.blockLines << ' ' << state.block[0].least << ".." << state.block[0].greatest << " last "
        << state.lastLines << ' ' << state.last[0].least << ".." << state.last[0].greatest << '\n';
    for (const auto& [first, end] :
         {std::pair(0, 1), std::pair(0, 5), std::pair(1, 4), std::pair(4000, 5000), std::pair(8990, 9100)}) {
      for (const int series : {0, 1}) {
        const Extremes known = survey.Over(series, first, end, points);
        out << first << ".." << end << ": " << known.least << ".." << known.greatest << "; ";
      }
    }
    for (const std::int64_t perRow : {2, 5}) {
      const Slice wide = source->ReadWide({1, std::clamp<std::int64_t>(points, 1, 17), perRow}, 2, points);
      out << "\nby " << perRow << ", rows " << wide.RowCount() << ':';
      for (const double value : wide.values[0]) out << ' ' << value;
      out << " /";
      for (const double value : wide.values[1]) out << ' ' << value;
    }
    return out.str();
  }
  FakePorts fakes;
  ChartHeader header;
  FailedReadings failed;
  std::unique_ptr<ChartSource> source;
  std::int64_t points = 0;
};

TEST_F(ChartTables, SlicesStatisticsSearchesAndSurveys) {
  Transcript transcript("chart_tables");
  std::string many;
  for (int i = 1; i <= 9000; ++i) {
    const bool gap = i % 100 >= 97;
    many += (i % 501 == 500 ? "'08:00#" : "08:00#") + (gap ? "--" : std::to_string(i * 7919 % 1009 - 500)) + '#' +
            std::to_string(i / 3000) + "####\r\n";
  }
  const std::pair<const char*, std::string> files[] = {
      {"no points", ""},
      {"one point", "08:00#5#-5####\r\n"},
      {"gaps, commas, texts, times that grow",
       "a#1#x####\r\nb#--#x####\r\n\r\nc#-3#y####\r\n'd#9#9####\r\ne#5,5#1####\r\nf##y####\r\ng#1e3#y####\r\nh#7#--###"
       "#"},
      {"equal values that a double does not have", "a#0.1#2####\r\nb#0.1#2####\r\nc#0.1#2####\r\nd#0.1#3####\r\n"},
      {"values whose squares are too large", "a#1e155#1e200####\r\nb#1e155#-1e200####\r\nc#-1e150#0####\r\n"},
      {"many", many}};
  failed[0].Append({3, 4, 2, {ReadFailure::kChecksum, ""}});
  failed[0].Append({8, 8, 1, {ReadFailure::kNoAnswer, ""}});
  failed[1].Append({5000, 6000, 900, {ReadFailure::kNoAnswer, ""}});
  using enum SearchFor;
  for (const auto& [name, rows] : files) {
    transcript.Step(name);
    Open(rows);
    transcript.Add(Slices());
    for (const auto& [first, last] :
         {std::pair<std::int64_t, std::int64_t>(1, points), std::pair<std::int64_t, std::int64_t>(2, 5)}) {
      for (const bool timed : {false, true}) transcript.Add(Statistics(first, last, timed));
    }
    for (const auto& [what, series, value] :
         {std::tuple(kCrossing, 0, 1.0), std::tuple(kCrossing, 1, 1.5), std::tuple(kChange, 1, 0.0),
          std::tuple(kGap, 0, 0.0), std::tuple(kFailed, 0, 0.0)}) {
      transcript.Add("search " + std::to_string(static_cast<int>(what)) + ' ' + Found(what, series, value));
    }
    transcript.Add(Known());
  }
}

/// Each step that the axes know, from milliseconds to years, and from the smallest values to the largest.
TEST(AxisTables, EveryStep) {
  Transcript transcript("axes");
  for (const auto unit : {CategoryUnit::kElapsed, CategoryUnit::kTimeOfDay}) {
    const NumberFormat numbers{unit == CategoryUnit::kElapsed ? "," : ".", ""};
    for (double between = 1; between < 1e11; between *= 1.7) {
      ChartModel model;
      model.rowCount = 11;
      model.categoryUnit = unit;
      model.rowTimes = {{0, 86'390'000}, {10, 86'390'000 + 10 * between}};
      model.dateText = [](std::int64_t day) { return "day " + std::to_string(day); };
      std::string line = std::to_string(static_cast<std::int64_t>(10 * between)) + " ms:";
      const auto width = [](std::string_view text) { return 7.0 * static_cast<double>(text.size()); };
      for (const CategoryLabel& label : LayOutCategoryAxis(model, {40, 30, 10, width, numbers}).labels)
        line += " | " + label.text + (label.date.empty() ? "" : " " + label.date);
      transcript.Add(line);
    }
  }
  for (double high = 1e-9; high < 1e12; high *= 1.7) {
    ValueRange range;
    range.Include(-high / 7);
    range.Include(high);
    for (const int steps : {2, 5}) {
      const ValueAxis axis = ChooseValueAxis(range, steps == 2, steps);
      std::ostringstream line;
      line << high << ':';
      for (int i = 0; i < axis.TickCount(); ++i) line << " | " << TickText(axis, i, {});
      transcript.Add(line.str());
    }
  }
}

}  // namespace
}  // namespace chartproject
