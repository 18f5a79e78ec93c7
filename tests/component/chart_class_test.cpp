// An instance from start-up to release, and its two entry points, on the real forms without windows.
#include "component/chart_class.h"

#include <gmock/gmock.h>

#include "acquire/dialog/acquire_form.h"
#include "support/error_of.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

class ChartClassTest : public testing::Test {
 protected:
  ChartClassTest() {
    fakes.settings.values["MyConf"]["strSound"] = "No";
    fakes.forms.onShown = [this](Form& form) {
      plant.steps.push_back("show " + form.Name());
      if (whileShown) whileShown();
      form.Unload();
    };
  }
  /// Another instance of this thread; the first one brings the state along.
  std::unique_ptr<ChartClass> Create() {
    if (!shared) shared = process.NewState(fakes.ports, fakes.forms, plant);
    return std::make_unique<ChartClass>(*shared, process);
  }

  FakePorts fakes;
  FakePlant plant;
  ProcessState process;
  std::unique_ptr<Component> shared;
  std::function<void()> whileShown;
  const std::vector<std::string> wholeLife{"create", "open", "show frmAcquireVar", "close", "destroy"};
};

TEST_F(ChartClassTest, StartUpLoadsTheWholeEnvironment) {
  fakes.settings.values["MyConf"]["strLanguage"] = "Spanish";
  fakes.settings.values["MyProject"] = {
      {"strMainFile", "p.prj"}, {"strDriveFile01", "/p/01"}, {"strDriveFile30", "/p/30"}};
  fakes.settings.values["MyKestrel"] = {{"strHelps", "/help"}};
  fakes.files.Put("/p/30", "Type=LMX-01\r\nTag=caf\xE9\r\n");
  fakes.locale.UseComma();
  const auto component = Create();
  const Component& state = component->State();
  EXPECT_EQ(state.language, Language::kSpanish);
  EXPECT_EQ(state.helpFile, "/help/Kshelps.HLP");
  EXPECT_EQ(state.driveTable.At(1).Type, "") << "a missing drive file is skipped";
  EXPECT_EQ(state.driveTable.At(30).Tag, "café");
  EXPECT_FALSE(state.bDecimalPoint);
}

TEST_F(ChartClassTest, TheNextInstanceFindsWhatTheSettingsDoNotSay) {
  fakes.settings.values["MyConf"]["strLanguage"] = "Spanish";
  fakes.settings.values["MyProject"] = {{"strMainFile", "p.prj"}, {"strDriveFile01", "/p/01"}};
  fakes.files.Put("/p/01", "Type=KRA-09\r\n");
  Create()->State().chartHeader.Content = "12.5";
  fakes.settings.values["MyConf"]["strLanguage"] = "spanish";  // names no language
  fakes.settings.values["MyProject"]["strMainFile"] = "";
  shared.reset();
  const auto next = Create();
  EXPECT_EQ(next->State().language, Language::kSpanish);
  EXPECT_TRUE(next->State().bDecimalPoint);
  EXPECT_EQ(next->State().helpFile, "\\Kshelps.HLP");
  EXPECT_EQ(next->State().driveTable.At(1).Type, "KRA-09");
  EXPECT_EQ(next->State().chartHeader.Content, "12.5");
}

TEST_F(ChartClassTest, AFailingStartUpLeavesNoInstanceAndStoresNothing) {
  fakes.settings.values["MyConf"]["intTrials"] = "five";
  fakes.settings.values["MyProject"]["intSelectedDrive"] = "99999";
  EXPECT_EQ(ErrorOf([this] { Create(); }), 13) << "MyConf is read first";
  fakes.settings.values["MyConf"]["intTrials"] = "5";
  EXPECT_EQ(ErrorOf([this] { Create(); }), 6);
  fakes.settings.values["MyProject"] = {{"strMainFile", "p.prj"}, {"strDriveFile01", "/p/01"}};
  fakes.files.Put("/p/01", "Type=KRA-09\r\n");
  fakes.files.Break("", error_number::kPermissionDenied);
  EXPECT_EQ(ErrorOf([this] { Create(); }), 70) << "a drive file that cannot be read";
  EXPECT_TRUE(fakes.settings.written.empty());
}

TEST_F(ChartClassTest, ReleaseSavesEverySectionOnceAndEntersTheProjectFolder) {
  fakes.settings.values["MyProject"]["strFolder"] = "/projects/pump";
  auto component = Create();
  component->State().settings.intChartType = 7;
  EXPECT_TRUE(fakes.settings.written.empty()) << "changes are stored at release only";
  component->Release();
  component.reset();
  ASSERT_EQ(fakes.settings.written.size(), 75U);
  EXPECT_EQ(fakes.settings.written[32], "MyProject.intSelectedDrive") << "behind MyConf, before MyKestrel";
  EXPECT_EQ(fakes.settings.values["MyConf"]["intChartType"], "7");
  EXPECT_EQ(fakes.files.CurrentFolder(), "/projects/pump");
}

TEST_F(ChartClassTest, TwoLivingInstancesAndAnotherProgramLoseNothingToEachOther) {
  auto& conf = fakes.settings.values["MyConf"];
  conf = {{"strLanguage", "English"}, {"intTrials", "3"}, {"strGrid", "No"}};
  auto older = Create();
  conf["strLanguage"] = "Spanish";
  auto newer = Create();
  EXPECT_EQ(older->State().language, Language::kSpanish) << "the newer one read the settings for both";
  newer->State().settings.intChartType = 5;
  conf["intTrials"] = "9";
  conf["strGrid"] = "Yes";
  older->State().settings.strGrid = "";
  newer->Release();
  older->Release();
  const std::pair<const char*, const char*> kept[] = {
      {"strLanguage", "Spanish"}, {"intChartType", "5"}, {"intTrials", "9"}, {"strGrid", ""}};
  for (const auto& [key, value] : kept) EXPECT_EQ(conf[key], value) << key;
}

TEST_F(ChartClassTest, AnInstanceDestroyedWithoutReleaseStillSaves) {
  Create();
  EXPECT_EQ(fakes.settings.written.size(), 75U);
  EXPECT_EQ(fakes.files.CurrentFolder(), "/start") << "no project folder, no change";

  fakes.settings.values["MyProject"]["strFolder"] = "/gone";
  fakes.files.checkFolders = true;
  EXPECT_EQ(ErrorOf([this] { Create()->Release(); }), 76);
  EXPECT_TRUE(fakes.dialogs.boxes.empty()) << "the caller was told";
  Create();
  EXPECT_THAT(fakes.dialogs.TakePrompts(), testing::ElementsAre(testing::HasSubstr("/gone")));
  EXPECT_THAT(fakes.files.Bytes("\\Kestrel.log"), testing::HasSubstr("Sub/Function = Release\r\nErr.Number = 76"));
}

TEST_F(ChartClassTest, TheLinkLivesAsLongAsTheDialogAndASecondDialogInsideIsRefused) {
  const auto component = Create();
  whileShown = [&] {
    EXPECT_NE(component->State().driveLink, nullptr);
    EXPECT_EQ(ErrorOf([&] { component->AcquireVar(); }), 5);
  };
  component->AcquireVar();
  EXPECT_EQ(plant.steps, wholeLife);
  component->AcquireVar();
  EXPECT_EQ(plant.steps.size(), 10U) << "a new link for every dialog";
}

TEST_F(ChartClassTest, AFailingLinkOrDialogIsReportedAndTheLinkLeftNowhere) {
  const auto component = Create();
  const std::tuple<const char*, int, std::vector<std::string>> cases[] = {{"create", 440, {"create"}},
                                                                          {"open", 440, {"create", "open", "destroy"}},
                                                                          {"close", 440, wholeLife},
                                                                          {"dialog", 7, wholeLife}};
  for (const auto& [step, number, steps] : cases) {
    plant.steps.clear();
    plant.failAt = step;
    if (plant.failAt == "dialog") whileShown = [] { throw RunTimeError(7, "Out of memory"); };
    EXPECT_EQ(ErrorOf([&] { component->AcquireVar(); }), number) << step;
    EXPECT_EQ(plant.steps, steps) << step;
    EXPECT_EQ(component->State().driveLink, nullptr) << step;
  }
}

TEST_F(ChartClassTest, CreateChartKeepsTheNameOfAFileThatIsNotThere) {
  const auto component = Create();
  component->CreateChart("/p/none.cht");
  EXPECT_EQ(component->State().strChartFileName, "/p/none.cht");
  EXPECT_FALSE(fakes.dialogs.boxes.empty()) << "the user learns why no chart appears";
}

}  // namespace
}  // namespace chartproject
