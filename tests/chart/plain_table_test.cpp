// Tables for other programs: moments, numbers, ranges.
#include <gtest/gtest.h>

#include "backends/headless/code_page_1252.h"
#include "chart/plain/moment_text.h"
#include "chart/plain/plain_table.h"
#include "chart/plain/plain_value.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

constexpr std::int64_t kHour = 3600;

/// An hour ahead of UTC; from 1970-01-02 01:00 UTC on two, as in summer.
class ZoneWithSummer : public TimeZone {
 public:
  [[nodiscard]] std::int64_t UtcSeconds(const DateTime& local) const override {
    const std::int64_t seconds = ((local.day - 1) * 24 + local.hour) * kHour + local.minute * 60 + local.second - kHour;
    return seconds >= kSummer ? seconds - kHour : seconds;
  }
  [[nodiscard]] std::int64_t OffsetAt(std::int64_t utc) const override { return utc >= kSummer ? 2 * kHour : kHour; }
  static constexpr std::int64_t kSummer = 25 * kHour;
};

/// West of Greenwich, by an odd distance of the past.
class OldZone : public ZoneWithSummer {
 public:
  [[nodiscard]] std::int64_t OffsetAt(std::int64_t /*utc*/) const override { return -(3 * kHour + 50 * 60); }
};

std::string Moment(const TimeZone& zone, std::int64_t milliseconds) {
  MomentText moments(zone);
  GrowingText text;
  std::string last;
  // Each after another quarter of an hour, and after its neighbours, of the same minute or the next.
  for (const std::int64_t moment : {std::int64_t{0}, milliseconds - 1, milliseconds, milliseconds + 1, milliseconds}) {
    text.CutTo();
    moments.Append(text, moment);
    if (moment != milliseconds) continue;
    EXPECT_TRUE(last.empty() || last == text.View()) << last << " and " << text.View();
    last = text.View();
  }
  return last;
}

TEST(MomentText, IsLocalTimeWithItsDistanceFromUtc) {
  const ZoneWithSummer zone;
  EXPECT_EQ(Moment(zone, 0), "1970-01-01T01:00:00.000+01:00");
  EXPECT_EQ(Moment(zone, ZoneWithSummer::kSummer * 1000 - 1), "1970-01-02T01:59:59.999+01:00");
  EXPECT_EQ(Moment(zone, ZoneWithSummer::kSummer * 1000), "1970-01-02T03:00:00.000+02:00");
  EXPECT_EQ(Moment(OldZone(), 60'000), "1969-12-31T20:11:00.000-03:50");
  EXPECT_EQ(Moment(zone, -1), "1970-01-01T00:59:59.999+01:00");
}

TEST(PlainValue, IsANumberThatJsonTakesOrNothingOrAText) {
  const NumberFormat comma{",", "."};
  const std::pair<const char*, const char*> numbers[] = {
      {"", "0"},
      {"0", "0"},
      {"007", "7"},
      {"-00,50", "-0.50"},
      {"12.340", "12.340"},
      {" 5 ", "5"},
      {"+5", "5"},
      {".5", "0.5"},
      {"5.", "5"},
      {"1E3", "1000"},
      {"-0", "-0"},
      {"-1234567", "-1234567"},
      {"12345678", "12345678"},
      {"-1234,5678", "-1234.5678"},
      {"1234567.8901234", "1234567.8901234"},
      {"000000001.50", "1.50"},
      {"123456789012345678", "123456789012345680"},
  };
  GrowingText text;
  for (const auto& [field, number] : numbers) {
    text.CutTo();
    EXPECT_EQ(AppendPlainNumber(text, field, comma), PlainKind::kNumber) << field;
    EXPECT_EQ(text.View(), number);
  }
  text.CutTo();
  for (const char* field : {"--", "-", "---- ", " "})
    EXPECT_EQ(AppendPlainNumber(text, field, comma), PlainKind::kNothing) << field;
  for (const char* field : {"run", "1e999", "10110b", "1:30", "12345678/"})
    EXPECT_EQ(AppendPlainNumber(text, field, comma), PlainKind::kText) << field;
  EXPECT_EQ(text.View(), "");
}

class PlainTableTest : public ::testing::Test {
 protected:
  PlainTableTest() {
    header.Unit = "ms";
    header.ScanTime = "250";
    header.StartDate = fake.locale.DateText({1970, 1, 2, 0, 0, 0, 0});
    header.StartTime = "01:59:59";
    fake.files.Put("t.cht",
                   "[INFO]\r\n[TIME/CONTENT]\r\n01:59:59#1,5#run#=a\"b###\r\n01:59:59#0#--#x###\r\nbad\r\n'"
                   "note\r\n01:59:59#3#\xE9####\r\n02:00:00#0#4#,###\r\n03:00:00#7#\"5#6###\r\n");
    table.columns = {{"P002 a,b", &failed}, {"P003"}, {"P003"}};
    table.clock = Clock();
    table.firstMoment = FirstMoment(table.clock, zone);
  }
  [[nodiscard]] PointClock Clock() { return {header, nullptr, fake.locale}; }
  std::string Write(PlainFormat format) {
    table.format = format;
    std::string text;
    report = PlainTableWriter(table, fake.locale.Numbers(), codePage, zone)
                 .Write(*fake.files.OpenForReading("t.cht"), [&text](std::string_view bytes) { text += bytes; });
    return text;
  }
  FakePorts fake;
  CodePage1252 codePage;
  ZoneWithSummer zone;
  ChartHeader header;
  FailedColumn failed;
  PlainTable table;
  PlainTableReport report;
};

TEST_F(PlainTableTest, HasALineForEachPoint) {
  failed.Append({6, 7, 1, {ReadFailure::kNoAnswer, ""}});  // joined: one of the two did not fail
  EXPECT_EQ(Write(PlainFormat::kCommas),
            "time,\"P002 a,b\",P003,P003 (2)\n"
            "1970-01-02T01:59:59.000+01:00,1.5,run,\"'=a\"\"b\"\n"
            "1970-01-02T01:59:59.250+01:00,0,,x\n"
            "1970-01-02T03:00:00.000+02:00,3,\xC3\xA9,0\n"
            "1970-01-02T03:00:00.250+02:00,,4,\",\"\n"
            "1970-01-02T03:00:00.500+02:00,7,\"\"\"5\",6\n");
  EXPECT_EQ(report.points, 5);
  EXPECT_EQ(report.malformed, 1);
  EXPECT_EQ(report.firstMalformed, 5);
  table.range = {5, 6};
  EXPECT_EQ(Write(PlainFormat::kJsonLines),
            "{\"time\":\"1970-01-02T03:00:00.000+02:00\",\"P002 a,b\":3,\"P003\":\"\xC3\xA9\",\"P003 (2)\":0}\n"
            "{\"time\":\"1970-01-02T03:00:00.250+02:00\",\"P002 a,b\":null,\"P003\":4,\"P003 (2)\":\",\"}\n");
  table.firstMoment.reset();
  table.range = {7, 7};
  EXPECT_EQ(Write(PlainFormat::kTabs), "time\tP002 a,b\tP003\tP003 (2)\n03:00:00\t7\t\"\"\"5\"\t6\n");
  table.range = {8, 9};
  EXPECT_EQ(Write(PlainFormat::kTabs), "") << "after the end";
  std::string text = "[INFO]\r\n[TIME/CONTENT]\r\n", written = "time\tP002\n";
  for (int i = 0; i < 40'000; ++i) {
    text += "01:59:59#" + std::to_string(i) + "#####\r\n";
    written += "01:59:59\t" + std::to_string(i) + "\n";
  }
  fake.files.Put("t.cht", text);
  table.columns = {{"P002"}};
  table.range = {};
  EXPECT_TRUE(Write(PlainFormat::kTabs) == written) << "more than is written at once";
}

TEST_F(PlainTableTest, MomentsChoosePoints) {
  struct Case {
    const char* text;
    std::optional<double> since;
  };
  const Case cases[] = {
      {"+00:00:01", 1000},           {"+100:00:00.5", 360'000'500}, {"01:59:59", 0}, {"1970-01-02 03:00:00.25", 1250},
      {"1970-01-02T01:59", -59'000}, {"00:00", 75'601'000},  // the next day, after an hour that never came
  };
  for (const Case& one : cases) {
    const auto moment = ParseMoment(one.text);
    ASSERT_TRUE(moment) << one.text;
    EXPECT_EQ(SinceFirstPoint(*moment, Clock(), zone), one.since) << one.text;
  }
  for (const char* text :
       {"", "12", "24:00", "12:60", "1970-02-30 12:00", "12:00:00.1234", "-00:01:00", "1970-01-02"}) {
    EXPECT_FALSE(ParseMoment(text)) << text;
  }
  EXPECT_EQ(PointsBetween(250, 750, Clock()), (PointRange{2, 4}));
  EXPECT_EQ(PointsBetween(251, 749, Clock()), (PointRange{3, 3}));
  EXPECT_EQ(PointsBetween(-5000, std::nullopt, Clock()), PointRange{});
  EXPECT_EQ(PointsBetween(300, 400, Clock()), (PointRange{3, 2})) << "none";
  header.StartTime = "?";
  EXPECT_FALSE(SinceFirstPoint(*ParseMoment("12:00"), Clock(), zone));
}

}  // namespace
}  // namespace chartproject
