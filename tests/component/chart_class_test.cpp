// An instance from start-up to release, and its two entry points, on the real forms without windows.
#include "component/chart_class.h"

#include <gmock/gmock.h>

#include "acquire/acquire_form.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

/// A drive link that writes down its life.
class LoggingLinks : public DriveLinkFactory {
 public:
  std::unique_ptr<DriveLink> Create() override {
    Note("create");
    return std::make_unique<Link>(*this);
  }

  /// Writes a step down; throws at the step that is to fail.
  void Note(const std::string& step) {
    steps.push_back(step);
    if (step == failAt) throw RunTimeError(440, step + " failed");
  }

  std::vector<std::string> steps;
  std::string failAt;

 private:
  class Link : public DriveLink {
   public:
    explicit Link(LoggingLinks& log) : log_(log) {}
    ~Link() override { log_.steps.emplace_back("destroy"); }
    void SetP210Value(std::int16_t /*value*/, std::int16_t& /*reply*/) override {}
    void SetP529Value(std::int16_t /*value*/, std::int16_t& /*reply*/) override {}
    void ReadParameter(std::int16_t /*address*/, const std::string& /*modelCode*/, std::int16_t /*parameter*/,
                       std::int16_t /*unitCode*/, std::int16_t& status) override {
      status = 1;
    }
    void ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                        std::int16_t unitCode, std::int16_t& status) override {
      ReadParameter(address, modelCode, parameter, unitCode, status);
    }
    void OpenLink(std::int16_t& /*result*/) override { log_.Note("open"); }
    void CloseLink() override { log_.Note("close"); }
    void GetValue(double& value) override { value = 0; }
    void GetText(std::string& text) override { text.clear(); }

   private:
    LoggingLinks& log_;
  };
};

class ChartClassTest : public testing::Test {
 protected:
  ChartClassTest() {
    fakes.settings.values["MyConf"]["strSound"] = "No";
    fakes.forms.onShown = [this](Form& form) {
      links.steps.push_back("show " + form.Name());
      if (whileShown) whileShown();
      form.Unload();
    };
  }

  std::unique_ptr<ChartClass> Create() {
    return std::make_unique<ChartClass>(fakes.ports, fakes.forms, links, process);
  }

  static int ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RunTimeError& error) {
      return error.Number();
    }
    return 0;
  }

  FakePorts fakes;
  LoggingLinks links;
  ProcessState process;
  std::function<void()> whileShown;
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
  EXPECT_EQ(state.languageBase, 2000);
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
  const auto next = Create();
  EXPECT_EQ(next->State().languageBase, 2000);
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
  fakes.files.before = [](const std::string&, const std::string& name) { throw RunTimeError(70, name); };
  EXPECT_EQ(ErrorOf([this] { Create(); }), 70) << "a drive file that cannot be read";
  EXPECT_TRUE(fakes.settings.written.empty());
}

TEST_F(ChartClassTest, ReleaseSavesEverySectionAndEntersTheProjectFolder) {
  fakes.settings.values["MyProject"]["strFolder"] = "/projects/pump";
  auto component = Create();
  component->State().settings.intChartType = 7;
  EXPECT_TRUE(fakes.settings.written.empty()) << "changes are stored at release only";
  component->Release();
  ASSERT_EQ(fakes.settings.written.size(), 75U);
  EXPECT_EQ(fakes.settings.written.front(), "MyConf.strShowWarningAtStartup");
  EXPECT_EQ(fakes.settings.written.at(32), "MyProject.intSelectedDrive");
  EXPECT_EQ(fakes.settings.written.at(67), "MyKestrel.strBin");
  EXPECT_EQ(fakes.settings.values["MyConf"]["intChartType"], "7");
  EXPECT_EQ(fakes.files.CurrentFolder(), "/projects/pump");
  component.reset();
  EXPECT_EQ(fakes.settings.written.size(), 75U) << "released once";
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

TEST_F(ChartClassTest, TheLinkLivesAsLongAsTheDialog) {
  const auto component = Create();
  whileShown = [&] { EXPECT_NE(component->State().driveLink, nullptr); };
  component->AcquireVar();
  EXPECT_THAT(links.steps, testing::ElementsAre("create", "open", "show frmAcquireVar", "close", "destroy"));
  EXPECT_EQ(component->State().driveLink, nullptr);
  component->AcquireVar();
  EXPECT_EQ(links.steps.size(), 10U) << "a new link for every dialog";
}

TEST_F(ChartClassTest, ASecondDialogInsideTheFirstIsRefused) {
  const auto component = Create();
  whileShown = [&] { EXPECT_EQ(ErrorOf([&] { component->AcquireVar(); }), 5); };
  component->AcquireVar();
  EXPECT_THAT(links.steps, testing::ElementsAre("create", "open", "show frmAcquireVar", "close", "destroy"));
}

TEST_F(ChartClassTest, AFailingLinkIsReportedAndLeftNowhere) {
  const auto component = Create();
  const std::pair<const char*, std::vector<std::string>> cases[]{
      {"create", {"create"}},
      {"open", {"create", "open", "destroy"}},
      {"close", {"create", "open", "show frmAcquireVar", "close", "destroy"}}};
  for (const auto& [step, steps] : cases) {
    links.steps.clear();
    links.failAt = step;
    EXPECT_EQ(ErrorOf([&] { component->AcquireVar(); }), 440) << step;
    EXPECT_EQ(links.steps, steps) << step;
    EXPECT_EQ(component->State().driveLink, nullptr) << step;
  }
}

TEST_F(ChartClassTest, AFailingDialogStillClosesTheLink) {
  const auto component = Create();
  whileShown = [] { throw RunTimeError(7, "Out of memory"); };
  EXPECT_EQ(ErrorOf([&] { component->AcquireVar(); }), 7);
  EXPECT_THAT(links.steps, testing::ElementsAre("create", "open", "show frmAcquireVar", "close", "destroy"));
}

TEST_F(ChartClassTest, CreateChartKeepsTheNameOfAFileThatIsNotThere) {
  const auto component = Create();
  component->CreateChart("/p/none.cht");
  EXPECT_EQ(component->State().strChartFileName, "/p/none.cht");
  EXPECT_FALSE(fakes.dialogs.boxes.empty()) << "the user learns why no chart appears";
}

}  // namespace
}  // namespace chartproject
