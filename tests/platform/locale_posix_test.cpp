#include "platform/posix/locale_posix.h"

#include <gtest/gtest.h>

#include "platform/headless/code_page_1252.h"
namespace chartproject {
namespace {

TEST(LocalePosix, DatesKeepTheLocalesOrderAndSeparator) {
  const std::pair<const char*, const char*> cases[] = {
      {"%m/%d/%y", "02/01/2026"},   {"%d/%m/%Y", "01/02/2026"}, {"%d.%m.%Y", "01.02.2026"}, {"%Y-%m-%d", "2026-02-01"},
      {"%-d.%-m.%Y", "01.02.2026"}, {"%d-%m-%y", "01-02-2026"}, {"%F", "2026-02-01"},       {"%D", "02/01/2026"},
      {"", "2026-02-01"},           {"%", "2026-02-01"}};
  for (const auto& [pattern, text] : cases) {
    const LocalePosix locale({}, {.date = pattern});
    EXPECT_EQ(locale.DateText({2026, 2, 1, 8, 5, 9, 0}), text) << pattern;
  }
}

TEST(LocalePosix, TimesRunToTwelveOrToTwentyFour) {
  const LocalePosix all({}, {.time = "%H:%M:%S"});
  EXPECT_EQ(all.TimeText({2026, 2, 1, 8, 5, 9, 0}), "08:05:09");
  const LocalePosix half({}, {.time = "%r"});
  EXPECT_EQ(half.TimeText({2026, 2, 1, 0, 5, 9, 0}), "12:05:09 AM");
  EXPECT_EQ(half.TimeText({2026, 2, 1, 13, 5, 9, 0}), "1:05:09 PM");
  const LocalePosix wordless({}, {.time = "%r", .am = "", .pm = ""});
  EXPECT_EQ(wordless.TimeText({2026, 2, 1, 13, 5, 9, 0}), "13:05:09");
}

TEST(LocalePosix, AnUnknownLocaleCountsAsC) {
  setenv("LC_ALL", "xx_YY.UTF-8", 1);
  const LocalePosix locale = LocalePosix::FromEnvironment();
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.Numbers().decimalSeparator, ".");
  EXPECT_EQ(locale.DateText({2026, 1, 31, 0, 0, 0, 0}), "01/31/2026");
  EXPECT_EQ(locale.TimeText({2026, 1, 31, 9, 0, 0, 0}), "09:00:00");
}

TEST(CodePage1252, EveryByteComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(CodePage1252().Encode(CodePage1252().Decode(bytes)), bytes);
}

TEST(CodePage1252, KnownCharacters) {
  EXPECT_EQ(CodePage1252().Decode("\x80 \x8D \x99 \xE7\xE3o"), "€ \u008D ™ ção");
  EXPECT_EQ(CodePage1252().Encode("Tensão – 5 €"), "Tens\xE3o \x96 5 \x80");
}

TEST(CodePage1252, WhatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(CodePage1252().Encode("Ω日😀."), "???.");
  EXPECT_EQ(CodePage1252().Encode("a\xFFz\xE7"), "a?z?") << "no UTF-8";
}

}  // namespace
}  // namespace chartproject
