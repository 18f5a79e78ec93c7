// The dialog's project.
#include "dialog_fixture.h"

#include <algorithm>
#include <sstream>

#include "links/scenario_link.h"

namespace chartproject {

void SetUpDrives(Component& component, FakePorts& fakes) {
  component.settings.strDrivers = "C:\\d";
  component.settings.intSelectedDrive = 1;
  std::string driver;
  for (const char* line : {"3#Motor current####DividedBy10F1", "5#Output frequency####DirectF1", "12#Inputs####DI1DI8",
                           "990#Service####DirectF0", "991#Service####DirectF0"}) {
    driver.append("#").append(line).append("#No#######\r\n");
  }
  int address = 0;
  for (const std::string model : {"KRA-09", "LMX-01", "TSR-03", "KRA-05"}) {
    component.driveTable.At(++address).Type = model;
    for (const char* ending : {"P.wcd", "E.wcd", "S.wcd"}) {
      fakes.files.Put("C:\\d\\" + model.substr(0, 3) + model.substr(4) + ending, driver);
    }
  }
  component.driveLink = component.linkFactory.Create(component.linkWait);
}

DialogTest::DialogTest() {
  plant.others = "50";
  component.language = Language::kEnglish;
  component.helpFile = "help.hlp";
  component.settings.strLanguage = "English";
  component.settings.strFolder = "C:\\p";
  component.settings.strMedia = "C:\\m";
  component.settings.strGraphics = "C:\\g";
  component.settings.strBin = "C:\\b";
  SetUpDrives(component, fake);
}

void DialogTest::Open() {
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  (void)fake.dialogs.TakePrompts();
  (void)Sounds();
}

std::unique_ptr<DriveLink> DialogTest::PlayScenario() {
  const auto wait = [this](Instant moment) { fake.clock.AdvanceTo(moment); };
  return ScenarioLinkFactory(fake.files, fake.clock, wait, "plant.txt").Create(component.linkWait);
}

void DialogTest::Choose(ComboBox& list, const std::string& item) {
  const auto found = std::ranges::find(list.Items(), item);
  ASSERT_NE(found, list.Items().end()) << item << " is not in " << list.Name();
  list.SetListIndex(static_cast<int>(found - list.Items().begin()));
}

void DialogTest::RunUntil(Instant moment) {
  TimerQueue& timers = fake.forms.Timers();
  while (form->Run().Active() && timers.NextDue() && *timers.NextDue() <= moment) {
    fake.clock.AdvanceTo(*timers.NextDue());
    timers.FireOne();
  }
}

std::vector<std::string> DialogTest::Rows() const {
  std::vector<std::string> rows;
  std::istringstream chart(Chart());
  bool begun = false;
  for (std::string line; std::getline(chart, line);) {
    line.pop_back();  // each ends with CR LF
    if (begun) rows.push_back(line);
    begun = begun || line == "[TIME/CONTENT]";
  }
  return rows;
}

std::vector<std::string> DialogTest::Sounds() {
  std::vector<std::string> names;
  for (const auto& played : fake.sound.played) names.push_back(played.fileName.substr(5));
  fake.sound.played.clear();
  return names;
}

}  // namespace chartproject
