// What is asked of the drive link, in which order, and what comes of it; model codes, status texts and display texts.
#include "drive/display_value.h"
#include "drive/drive_fixture.h"
#include "drive/drive_models.h"
#include "drive/drive_status.h"
#include "drive/parameter_read.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::IsEmpty;

struct ParameterReadTest : DriveTest {
  ParameterReadTest() {
    context.driveLink = plant.Create();
    plant.steps.clear();
    context.currentDrive = 4;
    ParameterTable& table = context.parameterTables.At(4);
    for (std::int16_t parameter = 0; parameter < kParameterCount; ++parameter) {
      table.At(parameter).unitCode = static_cast<std::int16_t>(parameter % 70 + 1);
    }
  }
  /// The special read's text (before it "old"), or "(ordinary)".
  std::string Special(const std::string& model, std::int16_t parameter) {
    context.driveTable.At(4).Type = model;
    plant.steps.clear();
    std::string text = "old";
    return ReadSpecialParameter(context, parameter, text) ? text : "(ordinary)";
  }
};

TEST_F(ParameterReadTest, OrdinaryParametersAreLeftToTheCaller) {
  const std::pair<const char*, int> cases[] = {{"KRA-09", 3},  {"KRA-09", 0},  {"KRA-08", 1},
                                               {"KRA-08", 40}, {"KRD-04", 34}, {"KRD-04", 31},
                                               {"KRA-07", 2},  {"", 1},        {"KRA-09", 1000}};
  for (const auto& [model, parameter] : cases) {
    EXPECT_EQ(Special(model, static_cast<std::int16_t>(parameter)), "(ordinary)") << model << parameter;
    EXPECT_THAT(plant.steps, IsEmpty());
  }
}

TEST_F(ParameterReadTest, TellsTheLinkTheParameterThatADisplayDependsOn) {
  EXPECT_EQ(Special("KRA-09", 1), "");  // the governing parameter does not answer
  EXPECT_THAT(plant.steps, ElementsAre("read 4 8 210 unit 1"));
  plant.texts[210] = "2.5";
  EXPECT_EQ(Special("KRA-09", 1), "old");
  EXPECT_THAT(plant.steps, ElementsAre("read 4 8 210 unit 1", "tell P210 2", "read 4 8 1 unit 2"));
  plant.texts[2] = "17.50";
  EXPECT_EQ(Special("KRA-09", 2), "17.50");
  plant.texts[529] = "3.5";
  plant.texts[40] = "1.0000";
  EXPECT_EQ(Special("KRA-09", 40), "1.0000");
  EXPECT_THAT(plant.steps, ElementsAre("read 4 8 529 unit 40", "tell P529 4", "read 4 8 40 unit 41"));
  plant.texts[529] = "40000";
  EXPECT_EQ(ErrorOf([&] { Special("KRA-09", 40); }), 6);
}

TEST_F(ParameterReadTest, MultipliesFrequencyAndSpeedPerHertz) {
  plant.texts[5] = "50";
  EXPECT_EQ(Special("KRA-08", 2), "0.00");
  EXPECT_THAT(plant.steps, ElementsAre("read 4 7 5 unit 6", "read 4 7 208 unit 69"));
  plant.texts[208] = "30";
  EXPECT_EQ(Special("KRA-08", 2), "1500.00");
  fakes.locale.UseComma();
  plant.texts[5] = "-0.125";
  EXPECT_EQ(Special("KRA-08", 2), "-3,75");
  plant.texts.erase(5);
  EXPECT_EQ(Special("KRA-08", 2), "0,00");
}

TEST_F(ParameterReadTest, ChoosesTheUnitByParameter14) {
  plant.texts[32] = "1.5";
  EXPECT_EQ(Special("KRD-04", 32), "1.5");  // an unreadable choice counts as 0
  EXPECT_THAT(plant.steps, ElementsAre("read 4 @ 14 unit 15", "read 4 @ 32 unit 26"));
  plant.texts[14] = "1";
  EXPECT_EQ(Special("KRD-04", 33), "old");
  EXPECT_THAT(plant.steps, ElementsAre("read 4 @ 14 unit 15", "read 4 @ 33 unit 20"));
  for (const char* other : {"2", "0.5", "-1"}) {
    plant.texts[14] = other;
    EXPECT_EQ(Special("KRD-04", 32), "old");
    EXPECT_THAT(plant.steps, ElementsAre("read 4 @ 14 unit 15"));
  }
}

TEST_F(ParameterReadTest, ReadsDigitalWordsPlainAndOthersInTheirUnit) {
  plant.texts[12] = "AIA";
  context.parameterTables.At(4).At(12).unitCode = 75;
  context.parameterTables.At(4).At(13).unitCode = 76;
  EXPECT_TRUE(ReadOrdinary(context, 12));
  EXPECT_FALSE(ReadOrdinary(context, 13));
  EXPECT_TRUE(ReadWithUnit(context, 12, UnitCodeOf(context, 12)));
  EXPECT_FALSE(ReadOrdinary(context, 71));
  EXPECT_THAT(plant.steps,
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

TEST(DriveModelsTest, EveryNameHasItsCode) {
  const std::string inOrder[] = {"KRA-02", "KRD-(A)03", "KRA-03", "KRA-04", "KRA-05", "KRA-06",
                                 "KRA-07", "KRA-08",    "KRA-09", "KRA-10", "LMX-01", "TSR-03",
                                 "TSR-04", "PVE-04",    "TSR-05", "TSR-06", "KRD-04", "PVE-05"};
  char code = '0';
  for (const std::string& model : inOrder) EXPECT_EQ(ModelCode(model), std::string(1, code++)) << model;
  for (const char* unknown : {"", "kra-09", "KRA-09 ", " KRA-09"}) EXPECT_EQ(ModelCode(unknown), "9") << unknown;
}

TEST(DriveStatusTest, BitsComeToATextOrAnError) {
  const std::pair<double, const char*> cases[] = {
      {0, "READY"},      {0x0100, "READY"}, {0x0200, "READY"}, {0x0300, "RUN"}, {0x0A00, "RUN"},
      {0x0800, "READY"}, {0x2000, "SUB"},   {0x2300, "SUB"},   {0x8005, "E05"}, {0xA30D, "E13"},
      {0x800E, "READY"}, {0x8011, "E17"},   {0x8020, "E32"},   {0x8029, "E41"}, {0x8314, "RUN"},
      {0x0305, "RUN"},   {767.5, "RUN"},    {766.5, "READY"},  {-32763, "E05"}};
  for (const auto& [word, text] : cases) {
    DriveStatus status;
    DecodeStatus(status, word);
    EXPECT_EQ(status.strStatus, text) << word;
  }
}

TEST(DriveStatusTest, KeepsTheErrorCodeOfTheLastError) {
  DriveStatus status;
  DecodeStatus(status, 0x9400 + 20);
  EXPECT_TRUE(status.bError && status.bBit10 && status.bBit12 && !status.bShowError && !status.bBit13);
  EXPECT_EQ(status.intErrorCode, 20);
  DecodeStatus(status, 0x0003);
  EXPECT_TRUE(!status.bError && !status.bBit10 && !status.bBit12);
  EXPECT_EQ(status.intErrorCode, 20);
  EXPECT_EQ(ErrorOf([&] { DecodeStatus(status, 3e9); }), 6);
}

TEST_F(DriveTest, DisplayValueFollowsTheModel) {
  context.status.strStatus = "RUN";
  const std::tuple<const char*, int, const char*, const char*> cases[] = {
      {"KRA-02", 5, "12.5", ""},         {"KRA-03", 5, "12", ""},
      {"KRA-04", 5, "12", ""},           {"KRA-06", 6, "12", ""},
      {"KRA-11", 5, "12", ""},           {"", 5, "off", "off"},
      {"KRA-02", 5, "--", "--"},         {"KRA-08", 6, "768", "768"},
      {"TSR-05", 14, "20000", "20000"},  {"KRA-05", 6, "768", "RUN"},
      {"KRA-05", 14, "20000", "20000"},  {"KRA-09", 6, "768", "RUN"},
      {"KRA-09", 14, "13107", "--"},     {"KRA-09", 14, "13106", "13106"},
      {"KRA-09", 17, "13107", "--"},     {"KRA-09", 18, "13107", "13107"},
      {"KRA-09", 59, "13107", "13107"},  {"KRA-09", 60, "20000", "--"},
      {"KRA-09", 65, "13106.6", "--"},   {"KRA-09", 66, "20000", "20000"},
      {"KRA-09", 155, "20000", "20000"}, {"KRA-09", 15, "", ""}};
  for (const auto& [model, parameter, value, text] : cases) {
    EXPECT_EQ(DisplayValue(context, static_cast<std::int16_t>(parameter), value, model), text)
        << model << " P" << parameter;
  }
  EXPECT_EQ(ErrorOf([&] { (void)DisplayValue(context, 14, "40000", "KRA-09"); }), 6);
  fakes.locale.UseComma();
  EXPECT_EQ(DisplayValue(context, 14, "13107,0", "KRA-09"), "--");
}

}  // namespace
}  // namespace chartproject
