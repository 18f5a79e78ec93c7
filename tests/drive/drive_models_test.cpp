// Model codes, status texts and display texts.
#include "drive/drive_models.h"

#include "drive/display_value.h"
#include "drive/drive_fixture.h"
#include "drive/drive_status.h"

namespace chartproject {
namespace {

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

struct DisplayValueTest : DriveTest {};

TEST_F(DisplayValueTest, FollowsTheModel) {
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
