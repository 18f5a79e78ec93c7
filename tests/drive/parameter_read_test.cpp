// What is asked of the drive link, in which order, and what comes of it.
#include "drive/parameter_read.h"

#include "drive/drive_fixture.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ParameterReadTest : DriveTest {
  ParameterReadTest() {
    context.driveLink = Create();
    context.currentDrive = 4;
    ParameterTable& table = context.parameterTables.At(4);
    for (std::int16_t parameter = 0; parameter < kParameterCount; ++parameter) {
      table.At(parameter).unitCode = static_cast<std::int16_t>(parameter % 70 + 1);
    }
  }
  /// The special read's text (before it "old"), or "(ordinary)".
  std::string Special(const std::string& model, std::int16_t parameter) {
    context.driveTable.At(4).Type = model;
    calls.clear();
    std::string text = "old";
    return ReadSpecialParameter(context, parameter, text) ? text : "(ordinary)";
  }
};

TEST_F(ParameterReadTest, OrdinaryParametersAreLeftToTheCaller) {
  for (const auto& [model, parameter] : {std::pair("KRA-09", 3),
                                         {"KRA-09", 0},
                                         {"KRA-08", 1},
                                         {"KRA-08", 40},
                                         {"KRD-04", 34},
                                         {"KRD-04", 31},
                                         {"KRA-07", 2},
                                         {"", 1},
                                         {"KRA-09", 1000}}) {
    EXPECT_EQ(Special(model, static_cast<std::int16_t>(parameter)), "(ordinary)") << model << parameter;
    EXPECT_THAT(calls, IsEmpty());
  }
}

TEST_F(ParameterReadTest, TellsTheLinkTheParameterThatADisplayDependsOn) {
  EXPECT_EQ(Special("KRA-09", 1), "");  // the governing parameter does not answer
  EXPECT_THAT(calls, ElementsAre("read 4 8 210 unit 1"));
  answers[210] = {2.5, "2.5"};
  EXPECT_EQ(Special("KRA-09", 1), "old");
  EXPECT_THAT(calls, ElementsAre("read 4 8 210 unit 1", "tell P210 2", "read 4 8 1 unit 2"));
  answers[2] = {1750, "17.50"};
  EXPECT_EQ(Special("KRA-09", 2), "17.50");
  answers[529] = {3.5, ""};
  answers[40] = {1, "1.0000"};
  EXPECT_EQ(Special("KRA-09", 40), "1.0000");
  EXPECT_THAT(calls, ElementsAre("read 4 8 529 unit 40", "tell P529 4", "read 4 8 40 unit 41"));
  answers[529] = {40000, ""};
  EXPECT_EQ(ErrorOf([&] { Special("KRA-09", 40); }), 6);
}

TEST_F(ParameterReadTest, MultipliesFrequencyAndSpeedPerHertz) {
  answers[5] = {50, ""};
  EXPECT_EQ(Special("KRA-08", 2), "0.00");
  EXPECT_THAT(calls, ElementsAre("read 4 7 5 unit 6", "read 4 7 208 unit 69"));
  answers[208] = {30, ""};
  EXPECT_EQ(Special("KRA-08", 2), "1500.00");
  fakes.locale.UseComma();
  answers[5].value = -0.125;
  EXPECT_EQ(Special("KRA-08", 2), "-3,75");
  answers.erase(5);
  EXPECT_EQ(Special("KRA-08", 2), "0,00");
}

TEST_F(ParameterReadTest, ChoosesTheUnitByParameter14) {
  answers[32] = {1.5, "1.5"};
  EXPECT_EQ(Special("KRD-04", 32), "1.5");  // an unreadable choice counts as 0
  EXPECT_THAT(calls, ElementsAre("read 4 @ 14 unit 15", "read 4 @ 32 unit 26"));
  answers[14] = {1, ""};
  EXPECT_EQ(Special("KRD-04", 33), "old");
  EXPECT_THAT(calls, ElementsAre("read 4 @ 14 unit 15", "read 4 @ 33 unit 20"));
  for (const double other : {2.0, 0.5, -1.0}) {
    answers[14].value = other;
    EXPECT_EQ(Special("KRD-04", 32), "old");
    EXPECT_THAT(calls, ElementsAre("read 4 @ 14 unit 15"));
  }
}

TEST_F(ParameterReadTest, ReadsDigitalWordsPlainAndOthersInTheirUnit) {
  answers[12] = {5, "AIA"};
  context.parameterTables.At(4).At(12).unitCode = 75;
  context.parameterTables.At(4).At(13).unitCode = 76;
  EXPECT_TRUE(ReadOrdinary(context, 12));
  EXPECT_FALSE(ReadOrdinary(context, 13));
  EXPECT_TRUE(ReadWithUnit(context, 12, UnitCodeOf(context, 12)));
  EXPECT_FALSE(ReadOrdinary(context, 71));
  EXPECT_THAT(calls,
              ElementsAre("read 4 9 12 unit 7", "read 4 9 13 unit 7", "read 4 9 12 unit 75", "read 4 9 71 unit 2"));
}

TEST_F(ParameterReadTest, AddressesAndNumbersOutsideTheTablesAreSubscriptErrors) {
  EXPECT_EQ(ErrorOf([&] { (void)ReadOrdinary(context, 1000); }), 9);
  EXPECT_EQ(ErrorOf([&] { (void)ReadOrdinary(context, -1); }), 9);
  context.currentDrive = 0;  // an entry of the drive table, but no parameter table
  EXPECT_EQ(Special("KRA-09", 3), "(ordinary)");
  EXPECT_EQ(ErrorOf([&] { (void)ReadOrdinary(context, 3); }), 9);
  std::string text;
  context.currentDrive = 31;
  EXPECT_EQ(ErrorOf([&] { (void)ReadSpecialParameter(context, 3, text); }), 9);
  context.currentDrive = 4;
  context.driveLink.reset();
  EXPECT_EQ(ErrorOf([&] { (void)ReadOrdinary(context, 3); }), 91);
}

}  // namespace
}  // namespace chartproject
