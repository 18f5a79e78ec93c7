// The ready project: the system loads all of it without a complaint, and the user's own files stay.
#include "host/project/project_maker.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <regex>

#include "common/environment/settings_io.h"
#include "drive/drive_context.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
#include "links/simulated_link.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::IsEmpty, ::testing::SizeIs, ::testing::UnorderedElementsAreArray;

struct ProjectMakerTest : ::testing::Test {
  ProjectReport Make(const std::string& folder = "/plant") {
    return MakeProject(fakes.files, fakes.settings, fakes.codePage, folder);
  }
  FakePorts fakes;
};

TEST_F(ProjectMakerTest, EveryDriveLoadsInEveryLanguageAndAnswersForAllItsParameters) {
  Make();
  SimulatedLinkFactory links(fakes.clock, fakes.locale);
  DriveContext context(fakes.ports, fakes.forms, links);
  ReadConfSettings(context);
  ReadProjectSettings(context);
  ReadFolderSettings(context);
  LoadDriveInfo(context, 0);
  context.driveLink = links.Create(context.linkWait);
  const std::array models{"KRA-09", "KRA-08", "LMX-01", "KRD-04", "TSR-05", "PVE-05"};
  for (const auto& [language, name] :
       {std::pair("Portuguese", "Velocidade do motor"), std::pair("English", "Motor speed"),
        std::pair("Spanish", "Velocidad del motor")}) {
    context.settings.strLanguage = language;
    for (std::int16_t address = 1; address <= 6; ++address) {
      EXPECT_EQ(context.driveTable.At(address).Type, models.at(static_cast<std::size_t>(address) - 1));
      LoadDriverFile(context, address);
      context.currentDrive = address;
      int present = 0;
      const ParameterTable& table = context.parameterTables.At(address);
      for (std::int16_t parameter = 0; parameter < kParameterCount; ++parameter) {
        if (!table.At(parameter).present) continue;
        ++present;
        EXPECT_TRUE(ReadOrdinary(context, parameter).Answered()) << models.at(address - 1) << " " << parameter;
      }
      EXPECT_GE(present, 40);
    }
    EXPECT_EQ(context.parameterTables.At(1).At(2).name, name);
  }
  EXPECT_THAT(fakes.dialogs.TakePrompts(), IsEmpty());
  EXPECT_THAT(context.parameterTables.At(1).At(6).text3, ::testing::HasSubstr("\r\nbit 13: subtensi\u00F3n\r\n"));
  fakes.clock.Advance(std::chrono::seconds(8));
  std::string text;
  context.currentDrive = 1;
  ASSERT_TRUE(ReadSpecialParameter(context, 1, text));
  EXPECT_EQ(text, "1750.0");  // parameter 210 asks for one decimal
  context.currentDrive = 2;
  ASSERT_TRUE(ReadSpecialParameter(context, 2, text));
  EXPECT_NEAR(std::stod(text), 1200, 10);  // frequency times 30
}

TEST_F(ProjectMakerTest, PointsTheSettingsAtFilesThatAreThere) {
  fakes.settings.values["MyProject"]["strDriveFile01"] = "C:\\Other\\one.drv";
  fakes.settings.values["MyProject"]["strDriveFile09"] = "C:\\Other\\nine.drv";
  fakes.settings.values["MyConf"]["strLanguage"] = "Spanish";
  const ProjectReport report = Make("plant/../press");  // the current folder is /start
  EXPECT_EQ(report.folder, "/start/press");
  const auto& project = fakes.settings.values["MyProject"];
  EXPECT_EQ(project.at("intSelectedDrive"), "1");
  EXPECT_EQ(project.at("strDriveFile01"), "/start/press/projects/demo/drive01.drv");
  EXPECT_EQ(project.at("strDriveFile09"), "0");
  EXPECT_TRUE(fakes.files.Has(project.at("strMainFile")));
  const std::pair<const char*, std::vector<std::string>> folders[] = {
      {"strMedia", {"NIMClick.wav", "Complete.wav", "ir_end.wav"}},
      {"strGraphics", {"Cursor\\Select.cur", "Icon\\General\\Kestrel.ico", "Icon\\General\\Orlin.ico"}},
      {"strHelps", {"Kshelpp.HLP", "Kshelpe.HLP", "Kshelps.HLP"}}};
  for (const auto& [folder, names] : folders) {
    for (const std::string& name : names) {
      EXPECT_TRUE(fakes.files.Has(fakes.settings.values["MyKestrel"].at(folder) + "\\" + name)) << name;
    }
  }
  EXPECT_EQ(fakes.settings.values["MyConf"], (std::map<std::string, std::string>{{"strLanguage", "Spanish"}}));
  ASSERT_THAT(report.replaced, SizeIs(2));
  EXPECT_EQ(report.replaced[1].name, "MyProject.strDriveFile09");
  EXPECT_EQ(report.replaced[1].before, "C:\\Other\\nine.drv");
}

TEST_F(ProjectMakerTest, HasEveryFileOfShareByteForByte) {
  std::vector<std::string> shared;
  for (const char* folder : {"help", "icons", "sounds"}) {
    for (const auto& entry :
         std::filesystem::directory_iterator(CHARTPROJECT_SOURCE_DIR "/share/" + std::string(folder))) {
      if (entry.path().extension() == ".py") continue;
      std::ifstream file(entry.path(), std::ios::binary);
      shared.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
  }
  EXPECT_THAT(shared, SizeIs(9));
  std::vector<std::string> made;
  for (const std::string& name : Make().written) {
    if (!std::regex_search(name, std::regex("^/plant/(projects|drivers|programs)/"))) {
      made.push_back(fakes.files.Bytes(name));
    }
  }
  EXPECT_THAT(made, UnorderedElementsAreArray(shared));
}

TEST_F(ProjectMakerTest, NeverWritesOverAFileAndStoresNothingWhenTheDiskIsFull) {
  const std::string own = "/plant/projects/demo/drive01.drv";
  fakes.files.Put(own, "Type=KRA-05\r\n");
  const ProjectReport first = Make();
  EXPECT_THAT(first.kept, ElementsAre(own));
  EXPECT_EQ(fakes.files.Bytes(own), "Type=KRA-05\r\n");
  const ProjectReport second = Make();
  EXPECT_THAT(second.written, IsEmpty());
  EXPECT_EQ(second.unchanged, first.written);
  EXPECT_THAT(second.kept, ElementsAre(own));
  EXPECT_THAT(second.replaced, IsEmpty());

  fakes.settings.values.clear();
  fakes.files.writeBudget = 5000;
  EXPECT_THROW(Make("/full"), RunTimeError);
  EXPECT_THAT(fakes.settings.values, IsEmpty());
}

}  // namespace
}  // namespace chartproject
