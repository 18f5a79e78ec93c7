// Driver files: which one is taken, what its lines mean, and how complaints read; drive files into the drive table.
// The calls to the drive link, their order, and their results.
#include <gmock/gmock.h>

#include "drive/drive_context.h"
#include "drive/drive_table.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
#include "support/error_of.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty, ::testing::StartsWith;

struct DriveTest : ::testing::Test {
  FakePorts fakes;
  FakePlant plant;
  DriveContext context{fakes.ports, fakes.forms, plant};
};

struct DriverFileTest : DriveTest {
  DriverFileTest() {
    context.language = Language::kEnglish;
    context.settings.strLanguage = "English";
    context.settings.strDrivers = "C:\\Drivers";
    context.settings.strHelps = "C:\\Help";
    context.helpFile = "C:\\Help\\Kshelpe.HLP";
    context.driveTable.At(7).Type = "KRA-09";
    context.driveTable.At(7).FirmwareVersion = "2.40";
  }
  /// Loads a driver file of these bytes at address 7; returns the complaints.
  std::vector<std::string> Load(const std::string& bytes) {
    fakes.files.Put(kFile, bytes);
    LoadDriverFile(context, 7);
    return fakes.dialogs.TakePrompts();
  }
  const ParameterEntry& Entry(int parameter) { return context.parameterTables.At(7).At(parameter); }
  static constexpr const char* kFile = "C:\\Drivers\\KRA09E.wcd";
};

TEST_F(DriverFileTest, NamesGoFromTheExactVersionToTheModel) {
  const std::vector<std::string> inOrder{"C:\\Drivers\\KRA09E.wcd", "C:\\Drivers\\KRA09V2XXE.wcd",
                                         "C:\\Drivers\\KRA09V24XE.wcd", "C:\\Drivers\\KRA09V240E.wcd"};
  EXPECT_EQ(DriverFileName(context, 7), inOrder[0]);
  for (const std::string& name : inOrder) {
    fakes.files.Put(name, "");
    EXPECT_EQ(DriverFileName(context, 7), name);
  }
  context.settings.strDrivers = "/srv/drivers";
  context.settings.strLanguage.clear();
  context.driveTable.At(7).Type = "KRD-(A)-03";
  EXPECT_EQ(DriverFileName(context, 7), "/srv/drivers/KRD(A)-03.wcd");
  EXPECT_EQ(DriverFileName(context, 0), "/srv/drivers/.wcd");
  EXPECT_EQ(ErrorOf([&] { (void)DriverFileName(context, 31); }), 9);
}

TEST_F(DriverFileTest, StoresTheFieldsOfParametersAndTheirContinuations) {
  EXPECT_THAT(Load("' comment with # and more\r\n\r\n[KRA-09]\r\nType=KRA-09\r\n  (2)=Second text  \r\n(30)=Last\r\n"
                   "  #P005# Motor \xE7 #one#1,5#Hz#frequencyf2#YES#eight#0#102,5#-3.25#twelve##  \r\n"
                   "#12#Inputs####DI1DI8#no#######"),
              IsEmpty());
  const ParameterEntry& entry = Entry(5);
  EXPECT_THAT((std::array{entry.present, entry.secondPresent, entry.yesFlag}), ElementsAre(true, true, true));
  EXPECT_THAT((std::array{entry.name, entry.text3, entry.text4, entry.text5, entry.text8, entry.text12}),
              ElementsAre("Motor \u00E7", "one", "1.5", "Hz", "eight", "twelve"));
  EXPECT_EQ(entry.unitCode, 33);
  EXPECT_THAT((std::array{entry.limit9, entry.limit10, entry.limit11}), ElementsAre(0, 102.5F, -3.25F));
  EXPECT_EQ(Entry(12).unitCode, 75);
  EXPECT_FALSE(Entry(12).yesFlag);
  EXPECT_EQ(context.parameterTables.At(7).numberedTexts[1], "(2)=Second text");
  EXPECT_EQ(context.parameterTables.At(7).numberedTexts[29], "(30)=Last");
}

TEST_F(DriverFileTest, ASecondLoadLeavesNothingOfTheFirst) {
  Load("#P001#Speed#x#1#rpm#DirectF0#Yes#x#1#2#3#x##\r\n(1)=one\r\n");
  EXPECT_THAT(Load("#P002#Other############\r\n"), IsEmpty());
  EXPECT_EQ(Entry(1).name + Entry(1).text3 + context.parameterTables.At(7).numberedTexts[0], "");
  EXPECT_FALSE(Entry(1).present || Entry(1).secondPresent || Entry(1).yesFlag);
  EXPECT_EQ(Entry(1).unitCode + Entry(1).limit9 + Entry(1).limit10 + Entry(1).limit11, 0);
  EXPECT_TRUE(Entry(2).present);
  EXPECT_EQ(ErrorOf([&] { fakes.files.Delete(kFile), LoadDriverFile(context, 7); }), 53);
  EXPECT_FALSE(Entry(2).present);
}

TEST_F(DriverFileTest, AfterTenFaultsOneBoxCountsTheOthersAndAHugeFileIsRefused) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "nonsense\r\n#P003#a####none########\r\n";
  const std::vector<std::string> boxes = Load(text);
  ASSERT_EQ(boxes.size(), 11U);
  EXPECT_THAT(boxes[8] + boxes[9], HasSubstr("Error in line 9 in driver C:\\Drivers\\"));
  EXPECT_THAT(boxes[10], HasSubstr("has 5990 more line(s) with an error or an unknown unit."));
  const std::string huge((std::size_t{16} << 20U) + 1, '\n');
  EXPECT_EQ(ErrorOf([&] { Load(huge); }), 5);
  context.settings.strMainFile = "x";
  context.settings.strDriveFile[2] = "C:\\big.drv";
  fakes.files.Put("C:\\big.drv", huge);
  EXPECT_EQ(ErrorOf([&] { LoadDriveInfo(context, 0); }), 5);
}

TEST_F(DriverFileTest, LineErrorsAreShownOneByOneAndTheLoadingGoesOn) {
  MessageBoxRequest box;
  fakes.dialogs.whileUp = [&box](const MessageBoxRequest& request) { box = request; };
  const auto error = [](int line) { return "Error in line " + std::to_string(line) + " in driver " + kFile; };
  EXPECT_THAT(Load("nonsense\r\n#P003#Fifteen#############\r\n#P004#Thirteen###########\r\n"
                   "#P005#Kept##########x##\r\n#P006#Late###########x#\r\n#P007#Type=x############\r\n"),
              ElementsAre(error(1), error(2), error(3), error(5)));
  EXPECT_FALSE(Entry(3).present || Entry(4).present || Entry(7).present);
  EXPECT_EQ(Entry(5).text12, "x");
  EXPECT_EQ(Entry(6).name, "Late");
  EXPECT_EQ(box.style, box_style::kCritical + box_style::kHelpButton);
  EXPECT_EQ(box.helpFile, "C:\\Help\\Kshelpe.HLP");
  EXPECT_EQ(box.helpContext, 152);
  // A line without an end, and a program taken for a driver file.
  EXPECT_THAT(Load("#P001#" + std::string(3'000'000, 'x') + "############\r\n#P002#B############\r\n"),
              ElementsAre(error(1)));
  EXPECT_THAT((std::array{Entry(1).present, Entry(2).present}), ElementsAre(false, true));
  EXPECT_THAT(Load(std::string("\x7F\x45LF\0\0\n\xFF\xFE\0", 9)), ::testing::SizeIs(2));
  context.language = Language::kPortuguese;
  EXPECT_THAT(Load("x"), ElementsAre("Erro na linha 1 no driver C:\\Drivers\\KRA09E.wcd"));
  context.language = Language::kSpanish;
  EXPECT_THAT(Load("x"), ElementsAre("Error en la linea 1 en el driver C:\\Drivers\\KRA09E.wcd"));
}

TEST_F(DriverFileTest, BadNumbersAndAddressesAreErrors) {
  const std::pair<const char*, int> cases[] = {{"#P1000#A############", 9},
                                               {"#P-1#A############", 9},
                                               {"#PP5#A############", 13},
                                               {"#P99999#A############", 6},
                                               {"#P5#A#######low#####", 13}};
  for (const auto& [line, number] : cases) {
    EXPECT_THAT(ErrorTextOf([&, bytes = "\n" + std::string(line)] { Load(bytes); }),
                StartsWith(std::to_string(number) + " " + kFile + ", line 2: "));
  }
  EXPECT_EQ(ErrorOf([&] { LoadDriverFile(context, 0); }), 9);
  EXPECT_EQ(ErrorOf([&] { LoadDriverFile(context, 31); }), 9);
}

struct DriveTableTest : DriveTest {
  DriveTableTest() {
    context.settings.strMainFile = "/p/main";
    context.settings.strDriveFile.fill("0");
  }
  void PutDrive(int address, const std::string& bytes) {
    const std::string name = "/p/drive" + std::to_string(address);
    fakes.files.Put(name, bytes);
    context.settings.strDriveFile.at(static_cast<std::size_t>(address) - 1) = name;
  }
};

TEST_F(DriveTableTest, ReadsTheSevenKeysWhateverSurroundsThem) {
  PutDrive(1,
           "[Drive]\r\n   Type=KRA-09\r\nFirmware Version=2.40\nNominal Voltage=380 V\r\nNominal Current=24 A  \r\n"
           "Tag=Bomba \xE7\r\nCommercial Reference=KRA090024\r\nSerial Number=12=34\r\nColour=red\r\nTag=Pump\xE7");
  PutDrive(2, "Tag=Type=KRA-05\r\n\tSerial Number=1\r\nOld Tag=x\r\n");  // the first key that matches decides
  LoadDriveInfo(context, 0);
  const DriveRecord& one = context.driveTable.At(1);
  EXPECT_THAT((std::array{one.Address, one.Type, one.FirmwareVersion, one.NominalVoltage, one.NominalCurrent, one.Tag,
                          one.CommercialReference, one.SerialNumber}),
              ElementsAre("01", "KRA-09", "2.40", "380 V", "24 A  ", "Pump\u00E7", "KRA090024", "12=34"));
  const DriveRecord& two = context.driveTable.At(2);
  EXPECT_THAT((std::array{two.Type, two.SerialNumber, two.Tag}), ElementsAre("Type=KRA-05", "1", "x"));
}

TEST_F(DriveTableTest, LoadsAllAddressesOrLeavesOnlyTheOneAskedFor) {
  PutDrive(1, "Type=KRA-09");
  PutDrive(30, "Type=PVE-05");
  context.settings.strDriveFile[4] = "/p/missing";
  context.settings.strDriveFile[5].clear();
  LoadDriveInfo(context, 0);
  EXPECT_EQ(context.driveTable.At(1).Type, "KRA-09");
  EXPECT_EQ(context.driveTable.At(30).Address, "30");
  EXPECT_EQ(context.driveTable.At(5).Address, "");
  LoadDriveInfo(context, 30);
  EXPECT_EQ(context.driveTable.At(1).Type, "");
  EXPECT_EQ(context.driveTable.At(30).Type, "PVE-05");
  context.settings.strMainFile.clear();
  context.settings.strDriveFile.fill("");
  LoadDriveInfo(context, 0);
  EXPECT_EQ(context.driveTable.At(30).Type, "PVE-05");  // no project: the table keeps what it held
}

TEST_F(DriveTableTest, ABadFileIsTheCallersOrHarmless) {
  PutDrive(3, std::string("\x00\xFF\x1A", 3) + std::string(1'000'000, 'x') + "\nType=TSR-05");
  LoadDriveInfo(context, 0);
  EXPECT_EQ(context.driveTable.At(3).Type, "TSR-05");
  fakes.files.Break("", error_number::kPermissionDenied);
  EXPECT_EQ(ErrorOf([&] { LoadDriveInfo(context, 3); }), 70);
  EXPECT_EQ(ErrorOf([&] { LoadDriveInfo(context, 31); }), 9);
  EXPECT_EQ(ErrorOf([&] { LoadDriveInfo(context, -1); }), 9);
}

struct ParameterReadTest : DriveTest {
  ParameterReadTest() {
    context.driveLink = plant.Create(context.linkWait);
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
