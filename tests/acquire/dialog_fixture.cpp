// The dialog's project and plant.
#include "dialog_fixture.h"

#include "common/numbers.h"

namespace chartproject {

namespace {

class FakeLink : public DriveLink {
 public:
  explicit FakeLink(FakePlant& plant) : plant_(plant) {}
  void SetP210Value(std::int16_t /*value*/, std::int16_t& reply) override { reply = 0; }
  void SetP529Value(std::int16_t /*value*/, std::int16_t& reply) override { reply = 0; }
  void ReadParameter(std::int16_t /*address*/, const std::string& /*modelCode*/, std::int16_t parameter,
                     std::int16_t unitCode, std::int16_t& status) override {
    if (plant_.broken) throw RunTimeError(error_number::kAutomation, "the link is gone");
    plant_.reads.emplace_back(parameter, unitCode);
    status = plant_.silent.contains(parameter) ? 1 : 0;
    const auto found = plant_.texts.find(parameter);
    text_ = found == plant_.texts.end() ? "50" : found->second;
  }
  void ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter, std::int16_t unitCode,
                      std::int16_t& status) override {
    ReadParameter(address, modelCode, parameter, unitCode, status);
  }
  void OpenLink(std::int16_t& result) override { result = 0; }
  void CloseLink() override {}
  void GetValue(double& value) override { value = LeadingNumber(text_); }
  void GetText(std::string& text) override { text = text_; }

 private:
  FakePlant& plant_;
  std::string text_;
};

std::string DriverLine(const std::string& number, const std::string& unit) {
  return "#" + number + "#Name " + number + "####" + unit + "#No#######\r\n";
}

}  // namespace

std::unique_ptr<DriveLink> FakePlant::Create() {
  return std::make_unique<FakeLink>(*this);
}

DialogTest::DialogTest(DriveLinkFactory* links) : component(fake.ports, fake.forms, links == nullptr ? plant : *links) {
  component.languageBase = 1000;
  component.helpFile = "help.hlp";
  Settings& settings = component.settings;
  settings.strLanguage = "English";
  settings.strFolder = "C:\\p";
  settings.strDrivers = "C:\\d";
  settings.strMedia = "C:\\m";
  settings.strGraphics = "C:\\g";
  settings.intSelectedDrive = 1;
  const std::string driver = DriverLine("3", "DividedBy10F1") + DriverLine("5", "DirectF1") +
                             DriverLine("12", "DI1DI8") + DriverLine("990", "DirectF0") + DriverLine("991", "DirectF0");
  int address = 0;
  for (const std::string model : {"KRA-09", "LMX-01", "TSR-03", "KRA-05"}) {
    component.driveTable.At(++address).Type = model;
    fake.files.Put("C:\\d\\" + model.substr(0, 3) + model.substr(4) + "E.wcd", driver);
  }
  component.driveLink = component.linkFactory.Create();
}

void DialogTest::Open() {
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  (void)fake.dialogs.TakePrompts();
  (void)Sounds();
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
  const std::string chart = Chart();
  std::vector<std::string> rows;
  constexpr std::string_view kMark = "[TIME/CONTENT]\r\n";
  std::size_t begin = chart.find(kMark);
  if (begin == std::string::npos) return rows;
  begin += kMark.size();
  for (std::size_t end = chart.find("\r\n", begin); end != std::string::npos; end = chart.find("\r\n", begin)) {
    rows.push_back(chart.substr(begin, end - begin));
    begin = end + 2;
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
