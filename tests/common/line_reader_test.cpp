// Line ends, numbers and offsets of lines, and lines without an end.
#include "common/line_reader.h"

#include <gmock/gmock.h>

#include "support/memory_file_system.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

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
}

TEST(LineReaderTest, JoinsLinesThatLieAcrossBlocks) {
  std::string bytes;
  for (int i = 0; i < 50'000; ++i) bytes += std::to_string(i) + "\r\n";
  const auto lines = ReadAll(bytes, 100);
  ASSERT_EQ(lines.size(), 50'000U);
  EXPECT_EQ(lines.back(), "50000@" + std::to_string(bytes.size() - 7) + " 49999");
}

}  // namespace
}  // namespace chartproject
