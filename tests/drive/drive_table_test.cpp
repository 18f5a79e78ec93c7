// Drive files into the drive table.
#include "drive/drive_table.h"

#include "drive/drive_fixture.h"

namespace chartproject {
namespace {

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
              ::testing::ElementsAre("01", "KRA-09", "2.40", "380 V", "24 A  ", "Pump\u00E7", "KRA090024", "12=34"));
  const DriveRecord& two = context.driveTable.At(2);
  EXPECT_THAT((std::array{two.Type, two.SerialNumber, two.Tag}), ::testing::ElementsAre("Type=KRA-05", "1", "x"));
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
  fakes.files.before = [](const std::string& /*operation*/, const std::string& name) {
    throw RunTimeError(error_number::kPermissionDenied, name);
  };
  EXPECT_EQ(ErrorOf([&] { LoadDriveInfo(context, 3); }), 70);
  EXPECT_EQ(ErrorOf([&] { LoadDriveInfo(context, 31); }), 9);
  EXPECT_EQ(ErrorOf([&] { LoadDriveInfo(context, -1); }), 9);
}

}  // namespace
}  // namespace chartproject
