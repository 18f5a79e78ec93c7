// A project on the disk, and the body of OpenDesktop.
#include "host/host_case.h"

#include <array>
#include <sstream>

#include "host/program.h"
#include "platform/run_time_error.h"

/// The C library never frees the list of LOCPATH's folders that it makes for a locale.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer asks for this name
extern "C" const char* __lsan_default_suppressions() {
  return "leak:__argz_add_sep";
}

namespace chartproject {

FakeScreen* FakeScreen::current = nullptr;

namespace {

class FakeDesktop : public Desktop {
 public:
  FakeDesktop(FakeScreen& screen, Clock& clock)
      : screen_(screen),
        forms_(clock, [&clock](Instant moment) { dynamic_cast<VirtualClock&>(clock).AdvanceTo(moment); }) {
    forms_.showsWindows = true;
    forms_.pictures = &screen.pictures;
    forms_.onShown = [&screen](Form& form) {
      screen.windows.push_back(form.Caption());
      if (screen.onForm) screen.onForm(form);
      form.Unload();
    };
  }
  FormHost& Forms() override { return forms_; }
  Dialogs& Boxes() override { return screen_.dialogs; }
  Sound& Sounds() override { return screen_.sound; }
  Keyboard& Keys() override { return screen_.keyboard; }
  Help& HelpViewer() override { return screen_.help; }
  Clipboard& ClipboardPicture() override { return screen_.clipboard; }
  Printer& Paper() override { return screen_.printer; }
  void PrintToFile(const std::string& fileName) override { screen_.printedTo = fileName; }
  void UsePaper(const PaperSize& paper) override { screen_.paper = paper; }

 private:
  FakeScreen& screen_;
  HeadlessFormHost forms_;
};

}  // namespace

std::unique_ptr<Desktop> OpenDesktop(DesktopMode mode, Clock& clock, std::function<Language()> /*language*/) {
  FakeScreen& screen = *FakeScreen::current;
  if (screen.missing && mode == DesktopMode::kScreen)
    throw RunTimeError(error_number::kCannotCreateObject, Text::kNoDisplay);
  return std::make_unique<FakeDesktop>(screen, clock);
}

HostCase::HostCase() {
  std::filesystem::current_path(folder.Path());
  setenv("LOCPATH", CHARTPROJECT_BINARY_DIR "/locale", 1);
  setenv("LC_ALL", "C", 1);
  PutFile("drive01.txt", "Type=KRA-09\r\nFirmware Version=2.40\r\nTag=Pump\r\n");
  PutFile("drive02.txt", "Type=TSR-05\r\nFirmware Version=1.0\r\n");
  std::string driver;
  for (const char* line :
       {"003#Motor current####CURRENTF1", "005#Motor frequency####FREQUENCYF1", "012#Inputs####DI1DI8"})
    driver += std::string("#P") + line + "#No#######\r\n";
  for (const char* name : {"KRA09V240", "TSR05V10"}) {
    for (const char language : {'E', 'P', 'S'}) PutFile(std::string(name) + language + ".wcd", driver);
  }
  PutFile("plant.txt",
          "at 0 01 P003 1.50\nat 0 01 P005 50.25\nat 5000 01 P005 -\nat 0 01 P012 AIAIAIAI\nat 0 02 P003 9\n");
  std::filesystem::create_directory("profile");
  const std::string& at = folder.Path();
  PutFile("profile/Kestrel v5.60.ini", "[MyProject]\nintSelectedDrive=1\nstrMainFile=x\nstrFolder=" + at +
                                           "\nstrDriveFile01=" + at + "/drive01.txt\nstrDriveFile02=" + at +
                                           "\\\\drive02.txt\n[MyKestrel]\nstrDrivers=" + at + "\nstrBin=" + at + "\n");
}

HostCase::~HostCase() {
  std::filesystem::current_path("/");
}

Done HostCase::Run(std::vector<std::string> arguments) {
  std::filesystem::current_path(folder.Path());  // a project takes the program into its own folder
  std::vector<std::string> all{"chartproject"};
  all.insert(all.end(), globals.begin(), globals.end());
  if (std::ranges::find(arguments, "--link") == arguments.end())
    all.insert(all.end(), {"--link", "scenario:plant.txt"});
  all.insert(all.end(), arguments.begin(), arguments.end());
  std::vector<const char*> pointers;
  for (const std::string& argument : all) pointers.push_back(argument.c_str());
  std::ostringstream out;
  std::ostringstream err;
  const int code = RunProgram(static_cast<int>(pointers.size()), pointers.data(), out, err);
  return {code, out.str(), err.str()};
}

Done HostCase::Record(int points, std::vector<std::string> more) {
  std::vector<std::string> arguments{
      "acquire", "--address", "1",      "--parameters", "3,5", "--points", std::to_string(points),
      "--every", "1s",        "--file", "run.cht"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return Run(std::move(arguments));
}

}  // namespace chartproject
