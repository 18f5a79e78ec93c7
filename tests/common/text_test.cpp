// Texts to numbers and back, in locales of all kinds; files into lines.
#include <gmock/gmock.h>

#include "common/values/line_reader.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "support/error_of.h"
#include "support/memory_file_system.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

const NumberFormat kStop{".", ","};
const NumberFormat kComma{",", "."};
const NumberFormat kNoBreak{",", "\u00A0"};
const NumberFormat kNarrow{",", "\u202F"};
const NumberFormat kNoGroups{",", ""};

TEST(Numbers, AcceptsWhatTheLocaleWrites) {
  const auto check = [](const NumberFormat& format, const std::vector<std::pair<const char*, double>>& cases) {
    for (const auto& [text, value] : cases) {
      EXPECT_TRUE(IsNumeric(text, format)) << text;
      EXPECT_DOUBLE_EQ(ToDouble(text, format), value) << text;
    }
  };
  check(kStop, {{"12", 12}, {" \t-12.5 ", -12.5}, {"+.5", 0.5}, {"5.", 5}, {"1,234,567.25", 1234567.25}, {"1,", 1}});
  check(kStop, {{"1.5e3", 1500}, {"1E-3", 0.001}, {"2e+2", 200}, {"007", 7}, {"0e999", 0}, {"1e-999", 0}, {"0.0", 0}});
  check(kComma, {{"-12,5", -12.5}, {"1.234,5", 1234.5}});
  check(kNoBreak, {{"1\u00A0234,5", 1234.5}, {"1 234\u202F567", 1234567}});
  check(kNarrow, {{"1\u202F234,5", 1234.5}, {"1 234 ", 1234}});
  check(kNoGroups, {{"0,5", 0.5}});
}

TEST(Numbers, RefusesWhatDoesNotFit) {
  for (const std::string& text :
       {std::string(400, '9') + "e-5", std::string("1e99999999999999999999"), std::string("1e9223372036854775807"),
        std::string("0.0001e+9999"), std::string("123.5E+999")}) {
    EXPECT_EQ(ErrorOf([&] { (void)ToDouble(text, kStop); }), 6) << text;
  }
  EXPECT_EQ(ToDouble("0." + std::string(400, '0') + "1e5", kStop), 0);
  EXPECT_EQ(ErrorOf([] { (void)CheckedInteger16(32775); }), 6);
  EXPECT_EQ(CheckedInteger16(32750), 32750);
  EXPECT_EQ(ErrorOf([] { (void)CheckedInteger32(std::int64_t{1} << 31); }), 6);
}

TEST(Numbers, ReadsTheNumberThatATextBeginsWith) {
  EXPECT_DOUBLE_EQ(LeadingNumber("\t12.5 ms"), 12.5);
  for (const char* text : {"1e999 V", "0.0001e+9999 V", "0.0001E9223372036854775807", "1e+99999999999999999999"}) {
    EXPECT_EQ(ErrorOf([&] { (void)LeadingNumber(text); }), 6) << text;
  }
  EXPECT_EQ(LeadingNumber("1e-9223372036854775808"), 0);
}

TEST(Text, ControlCharactersAreMadeVisible) {
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {"\x1B]0;t\a", "\\x1B]0;t\\x07", "\\x1B]0;t\\x07"},
      {"a\r\nb\nc\td", "a\\x0D\\x0Ab\\x0Ac\\x09d", "a\r\nb\nc\td"},
      {"a\rb\r", "a\\x0Db\\x0D", "a\\x0Db\\x0D"},
      {std::string("\0\x7F", 2), "\\x00\\x7F", "\\x00\\x7F"},
      {"\u009B2J \u00A0\u00E9\xC2", "\\x9B2J \u00A0\u00E9\xC2", "\\x9B2J \u00A0\u00E9\xC2"},
      {"", "", ""}};
  for (const auto& [text, line, lines] : cases) {
    EXPECT_EQ(VisibleText(text), line);
    EXPECT_EQ(VisibleLines(text), lines);
  }
}

std::vector<std::string> ReadAll(const std::string& bytes, std::size_t limit) {
  MemoryFileSystem files;
  files.Put("file", bytes);
  const auto file = files.OpenForReading("file");
  LineReader reader(*file, limit);
  std::vector<std::string> lines;
  for (TextLine line; reader.Next(line);) {
    lines.push_back(std::to_string(line.number) + "@" + std::to_string(line.offset) + " " + std::string(line.text) +
                    (line.cut ? " cut" : ""));
  }
  return lines;
}

TEST(LineReaderTest, GivesLinesWithNumbersAndOffsets) {
  EXPECT_THAT(ReadAll("", 8), ElementsAre());
  EXPECT_THAT(ReadAll("a\r\n\nb\rc\nlast", 8), ElementsAre("1@0 a", "2@3 ", "3@4 b\rc", "4@8 last"));
  EXPECT_THAT(ReadAll("a\n\n", 8), ElementsAre("1@0 a", "2@2 "));
}

TEST(LineReaderTest, CutsLongLinesAndGoesOnBehindThem) {
  EXPECT_THAT(ReadAll("12345678\n123456789\nb\n", 8), ElementsAre("1@0 12345678", "2@9 12345678 cut", "3@19 b"));
  const std::string endless(1'000'000, 'x');
  EXPECT_THAT(ReadAll("a\n" + endless, 8), ElementsAre("1@0 a", "2@2 xxxxxxxx cut"));
  EXPECT_THAT(ReadAll(endless + "\r\nb\nc", 8), ElementsAre("1@0 xxxxxxxx cut", "2@1000002 b", "3@1000004 c"));
  // Lines over the end of a block of 64 kB and a longest line.
  for (std::size_t blanks = 65530; blanks < 65548; ++blanks) {
    MemoryFileSystem files;
    files.Put("file", std::string(blanks, '\n') + "12345678\n123456789\nb\n");
    const auto file = files.OpenForReading("file");
    LineReader reader(*file, 8);
    std::vector<std::string> texts;
    for (TextLine line; reader.Next(line);) {
      if (!line.text.empty()) texts.push_back(std::string(line.text) + (line.cut ? " cut" : ""));
    }
    EXPECT_THAT(texts, ElementsAre("12345678", "12345678 cut", "b")) << blanks;
  }
}

}  // namespace
}  // namespace chartproject
