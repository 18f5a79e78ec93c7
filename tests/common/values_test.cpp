// What every reader and writer of numbers, dates and names makes of every kind of text, as tables that were read.
#include <sstream>

#include "common/values/calendar.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "gtest/gtest.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

const NumberFormat kFormats[] = {{".", ","}, {",", "."}, {",", "\u00A0"}, {",", "\u202F"}, {",", ""}};

struct ValueTables : ::testing::Test {
  std::ostringstream out;

  ValueTables() { out.precision(15); }
  template <class Answer>
  void Tell(const Answer& answer) {
    out << ' ';
    try {
      out << answer();
    } catch (const RunTimeError& error) {
      out << "error" << error.Number();
    }
  }
};

TEST_F(ValueTables, OfTextsThatMayBeNumbers) {
  for (const char* text :
       {"12",   " -12.5 ", "+.5",     "5.",       "1,234,567.25", "1.234,5",      "1,",         "1.5e3",
        "1E-3", "2e+2",    "0e999",   "1e999",    "-1e999",       "0.0001e+9999", "1e-999",     "007",
        "12,5", "1.000",   "1,000",   "1 000",    "1.000,5",      "0.0625",       "2.5",        "3.5",
        "-2.5", "32767.4", "32767.5", "-32768.5", "-32769",       "2147483647.5", "2147483648", "1e39",
        "-",    ".",       ",5",      "+-1",      "1.2.3",        "e5",           "1e",         "0x10",
        "inf",  "12V",     "--1",     "",         "1\u00A0234,5", "1\u202F234,5"}) {
    out << '<' << text << "> leading";
    Tell([&] { return LeadingNumber(text); });
    for (const NumberFormat& format : kFormats) {
      out << "\n  " << format.decimalSeparator << ' ' << format.groupSeparator << ": " << IsNumeric(text, format)
          << IsTypedDecimal(text, format);
      Tell([&] { return ToDouble(text, format); });
      Tell([&] { return ToSingle(text, format); });
      Tell([&] { return ToInteger16(text, format); });
      Tell([&] { return ToInteger32(text, format); });
      Tell([&] { return ToTypedDecimal(text, format); });
      out << ' ' << LocaleDecimal(text, format);
    }
    out << '\n';
  }
  ExpectTranscript("values_of_texts", out.str());
}

TEST_F(ValueTables, OfNumbersInTexts) {
  for (const double value :
       {0.0,       -0.0,      0.125,     0.5,        1.005,        -1.005,       -0.001,     1.92,
        0.1 + 0.2, 9.995,     10.0,      50.25,      999.0,        999.999,      1000.0,     1023.0,
        1024.0,    1048575.0, 1048576.0, 70000700.0, 1073741824.0, 12345678.0,   -1234567.5, 1e9,
        140e12,    1e15,      1e16,      1.5e-7,     32767.5,      2147483647.5, 1e300}) {
    out << value << ':';
    for (const NumberFormat& format : kFormats) {
      Tell([&] { return SingleText(static_cast<float>(std::min(value, 1e38)), format); });
      Tell([&] { return DoubleText(value, format); });
      Tell([&] { return value > 1e20 ? "" : FormatTwoDecimals(value, format); });
      Tell([&] { return value > 1e20 ? "" : FormatGrouped(value, format); });
      Tell([&] {
        return value < 0 || value > 1e20 ? "" : FileSizeText(value, format) + " = " + BytesText(value, format);
      });
      out << ';';
    }
    Tell([&] { return RoundToInteger16(value); });
    Tell([&] { return RoundToInteger32(value); });
    out << '\n';
  }
  for (const std::int64_t value : {-32769LL, -32768LL, -5LL, 0LL, 7LL, 59LL, 60LL, 3599LL, 3600LL, 32767LL, 32768LL,
                                   86399LL, 86400LL, 360000LL, 2147483647LL, 2147483648LL}) {
    out << value << ": " << FormatDigits(value, 1) << ' ' << FormatDigits(value, 3) << ' '
        << FormatSeconds(std::max<std::int64_t>(value, 0));
    Tell([&] { return CheckedInteger16(value); });
    Tell([&] { return CheckedInteger32(value); });
    out << '\n';
  }
  ExpectTranscript("texts_of_values", out.str());
}

TEST_F(ValueTables, OfDatesAndClockTexts) {
  const FakeLocale locale;
  const DateTime first{2026, 1, 31, 8, 0, 0, 0};
  for (const char* text :
       {"31/01/2026", "1/2/26", "29/02/2024", "29/02/2026", "31/04/2026", "00/01/2026", "32/01/2026", "01/13/2026",
        "01/00/2026", "1-2-2026", "1/2", "1/2/3/4", " 1/2/2026 ", "a/2/2026", "1/2/0", ""}) {
    const auto date = ParseDate(text, locale);
    out << '<' << text << "> "
        << (date ? locale.DateText(*date) + " in " + std::to_string(DaysBetween(first, *date)) + " days" : "none")
        << '\n';
  }
  for (const std::int64_t days : {-400, -31, -1, 0, 1, 28, 29, 365, 800}) {
    out << days << ' ' << locale.DateText(DaysAfter(first, days)) << '\n';
  }
  for (const char* text : {"00:00:00", "08:00:01", " 23:59:59 ", "24:00:00", "100:00:00", "8:0:1", "08:60:00",
                           "08:00:60", "08:00", "08:00:00:00", "a8:00:00", "-1:00:00", "", "::"}) {
    out << '<' << text << "> " << SecondsOfClockText(text).value_or(-1) << '\n';
  }
  for (const char* name :
       {"", "a", "C:", "C:/m", "C:\\m", "C:\\", R"(\\server\s)", "/home/u", "/", "a b=c=d ", "  x\t", "ção\x1B"}) {
    out << '<' << VisibleText(name) << "> [" << Trim(name) << "] [" << TrimStart(name) << "] [" << AfterEquals(name)
        << "] [" << ToUpperAscii(name) << "] [" << JoinPath(name, "f") << "] [" << BaseName(name) << "]\n";
  }
  ExpectTranscript("dates_and_names", VisibleLines(out.str()));
}

}  // namespace
}  // namespace chartproject
