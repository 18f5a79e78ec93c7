// Texts to numbers and back, in locales of all kinds.
#include "common/numbers.h"

#include <gmock/gmock.h>

#include "common/text.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

const NumberFormat kStop{".", ","};
const NumberFormat kComma{",", "."};
const NumberFormat kNoBreak{",", "\u00A0"};
const NumberFormat kNarrow{",", "\u202F"};
const NumberFormat kNoGroups{",", ""};

template <typename Action>
int ErrorOf(const Action& action) {
  try {
    static_cast<void>(action());
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST(Numbers, AcceptsWhatTheLocaleWrites) {
  const std::tuple<const char*, const NumberFormat&, double> cases[] = {{"12", kStop, 12},
                                                                        {" \t-12.5 ", kStop, -12.5},
                                                                        {"+.5", kStop, 0.5},
                                                                        {"5.", kStop, 5},
                                                                        {"1,234,567.25", kStop, 1234567.25},
                                                                        {"1,", kStop, 1},  // on the way to 1,000
                                                                        {"1.5e3", kStop, 1500},
                                                                        {"1E-3", kStop, 0.001},
                                                                        {"2e+2", kStop, 200},
                                                                        {"007", kStop, 7},
                                                                        {"-12,5", kComma, -12.5},
                                                                        {"1.234,5", kComma, 1234.5},
                                                                        {"1\u00A0234,5", kNoBreak, 1234.5},
                                                                        {"1 234\u202F567", kNoBreak, 1234567},
                                                                        {"1\u202F234,5", kNarrow, 1234.5},
                                                                        {"1 234 ", kNarrow, 1234},
                                                                        {"0,5", kNoGroups, 0.5},
                                                                        {"0e999", kStop, 0},
                                                                        {"1e-999", kStop, 0},
                                                                        {"0.000", kStop, 0}};
  for (const auto& [text, format, value] : cases) {
    EXPECT_TRUE(IsNumeric(text, format)) << text;
    EXPECT_DOUBLE_EQ(ToDouble(text, format), value) << text;
  }
}

TEST(Numbers, RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", "-", ".", "+-1", "- 1", "1 2", "1.2.3", ",5", "1.5,000", "e5", "1e", "1e+", "0x10",
                           "inf", "nan", "12V", "1\u00A0000", "--1"}) {
    EXPECT_FALSE(IsNumeric(text, kStop)) << text;
    EXPECT_EQ(ErrorOf([&] { return ToDouble(text, kStop); }), 13) << text;
  }
  EXPECT_FALSE(IsNumeric("1 000", kComma)) << "a blank groups only where no-break spaces do";
}

TEST(Numbers, RoundsHalvesToEvenAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(ToInteger16("2.5", kStop), 2);
  EXPECT_EQ(ToInteger16("3.5", kStop), 4);
  EXPECT_EQ(ToInteger16("-2.5", kStop), -2);
  EXPECT_EQ(ToInteger16("32767.4", kStop), 32767);
  EXPECT_EQ(ToInteger32("-2147483648.5", kStop), -2147483647 - 1);
  EXPECT_EQ(ErrorOf([] { return ToInteger16("32767.5", kStop); }), 6);
  EXPECT_EQ(ErrorOf([] { return ToInteger16("-32769", kStop); }), 6);
  EXPECT_EQ(ErrorOf([] { return ToInteger32("2147483648", kStop); }), 6);
  EXPECT_EQ(ErrorOf([] { return ToInteger32("1e999", kStop); }), 6);
  EXPECT_EQ(ErrorOf([] { return ToSingle("1e39", kStop); }), 6);
  EXPECT_EQ(ErrorOf([] { return ToDouble(std::string(400, '9') + "e-5", kStop); }), 6);
  EXPECT_EQ(ErrorOf([] { return ToDouble("1e99999999999999999999", kStop); }), 6);
  EXPECT_EQ(ToDouble("0." + std::string(400, '0') + "1e5", kStop), 0);
  EXPECT_EQ(ErrorOf([] { return CheckedInteger16(32775); }), 6);
  EXPECT_EQ(CheckedInteger16(32750), 32750);
  EXPECT_EQ(ErrorOf([] { return CheckedInteger32(std::int64_t{1} << 31); }), 6);
}

TEST(Numbers, ReadsTheNumberThatATextBeginsWith) {
  const std::pair<const char*, double> cases[]{
      {"2065", 2065}, {"  12.5 ms", 12.5}, {"-3,5", -3}, {"+4", 4},  {".5x", 0.5},  {"", 0},
      {"abc12", 0},   {"inf", 0},          {"-", 0},     {"+-4", 0}, {"1e-999", 0}, {"\t7", 7}};
  for (const auto& [text, value] : cases) EXPECT_DOUBLE_EQ(LeadingNumber(text), value) << text;
  EXPECT_EQ(ErrorOf([] { return LeadingNumber("1e999 V"); }), 6);
}

TEST(Numbers, WritesShortTexts) {
  EXPECT_EQ(SingleText(1.92F, kStop), "1.92");
  EXPECT_EQ(SingleText(1.92F, kComma), "1,92");
  EXPECT_EQ(SingleText(-0.0F, kStop), "0");
  EXPECT_EQ(SingleText(12345678.0F, kStop), "1.234568E+07");
  EXPECT_EQ(DoubleText(0.1 + 0.2, kStop), "0.3");
  EXPECT_EQ(DoubleText(-1234567.5, kComma), "-1234567,5");
}

TEST(Numbers, WritesFixedPatterns) {
  const std::pair<double, const char*> twoDecimals[]{{0, "0.00"},
                                                     {1.005, "1.01"},
                                                     {-1.005, "-1.01"},
                                                     {0.125, "0.13"},
                                                     {-0.001, "0.00"},
                                                     {9.995, "10.00"},
                                                     {999.999, "1000.00"},
                                                     {0.0049, "0.00"},
                                                     {50.25, "50.25"},
                                                     {1234567.891, "1234567.89"},
                                                     {1e15, "1000000000000000.00"}};
  for (const auto& [value, text] : twoDecimals) EXPECT_EQ(FormatTwoDecimals(value, kStop), text);
  EXPECT_EQ(FormatTwoDecimals(2.5, kComma), "2,50");
  EXPECT_EQ(ErrorOf([] { return FormatTwoDecimals(HUGE_VAL, kStop); }), 6);

  EXPECT_EQ(FormatGrouped(0, kStop), "0");
  EXPECT_EQ(FormatGrouped(0.5, kStop), "1");
  EXPECT_EQ(FormatGrouped(999, kStop), "999");
  EXPECT_EQ(FormatGrouped(-100000000, kStop), "-100,000,000");
  EXPECT_EQ(FormatGrouped(1234567, kNarrow), "1\u202F234\u202F567");
  EXPECT_EQ(FormatGrouped(1234567, kNoGroups), "1234567");

  EXPECT_EQ(FormatDigits(5, 3), "005");
  EXPECT_EQ(FormatDigits(-5, 2), "-05");
  EXPECT_EQ(FormatDigits(1234, 3), "1234");
  EXPECT_EQ(FormatTimeOfDay(8, 0, 59), "08:00:59");
}

TEST(Numbers, MakesTheFirstDecimalSeparatorTheLocales) {
  EXPECT_EQ(LocaleDecimal("1,5", kStop), "1.5");
  EXPECT_EQ(LocaleDecimal("1.5", kStop), "1.5");
  EXPECT_EQ(LocaleDecimal("1,000,5", kStop), "1.000,5");
  EXPECT_EQ(LocaleDecimal("1.5", kComma), "1,5");
  EXPECT_EQ(LocaleDecimal("1,5", kComma), "1,5");
  EXPECT_EQ(LocaleDecimal("READY", kComma), "READY");
}

TEST(Text, TakesLinesApart) {
  EXPECT_EQ(Trim("  a b\t "), "a b\t");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(TrimStart("  a "), "a ");
  EXPECT_EQ(AfterEquals("Tag=a=b"), "a=b");
  EXPECT_EQ(AfterEquals("Tag"), "");
  EXPECT_EQ(ToUpperAscii("Kra-09 ção"), "KRA-09 çãO");
}

TEST(Text, JoinsNamesInTheFoldersStyle) {
  EXPECT_EQ(JoinPath("", "a.wav"), "\\a.wav");
  EXPECT_EQ(JoinPath("C:", "a.wav"), "C:\\a.wav");
  EXPECT_EQ(JoinPath("C:/media", "a.wav"), "C:/media\\a.wav");
  EXPECT_EQ(JoinPath("C:\\media", "a.wav"), "C:\\media\\a.wav");
  EXPECT_EQ(JoinPath("C:\\", "a.wav"), "C:\\a.wav");
  EXPECT_EQ(JoinPath("\\\\server\\share", "a.wav"), "\\\\server\\share\\a.wav");
  EXPECT_EQ(JoinPath("/home/u", "a.wav"), "/home/u/a.wav");
  EXPECT_EQ(JoinPath("/", "a.wav"), "/a.wav");
}

}  // namespace
}  // namespace chartproject
