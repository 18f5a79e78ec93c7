// The commands in this process, where a session cannot say it: output that cannot be written, a dialog's own fields.
#include <regex>
#include <sstream>

#include "acquire/dialog/acquire_form.h"
#include "host/host_case.h"
#include "host/program.h"
#include "host/reports/progress.h"
#include "host/session/visible_output.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr;

using HostTest = HostCase;

TEST_F(HostTest, OutputThatCannotBeWrittenIsAFailureWhereItIsTheResult) {
  const auto intoNothing = [](std::vector<const char*> arguments) {
    std::ostream full(nullptr);
    std::ostringstream err;
    arguments.insert(arguments.begin(),
                     {"chartproject", "--profile", "profile", "--link", "scenario:plant.txt", "--clock", "virtual"});
    const int code = RunProgram(static_cast<int>(arguments.size()), arguments.data(), full, err);
    return std::pair(code, err.str());
  };
  for (const char* command : {"settings", "drives"}) {
    const auto [code, err] = intoNothing({command});
    EXPECT_EQ(code, 1) << command;
    EXPECT_THAT(err, HasSubstr("the output could not be written")) << command;
  }
  const auto [code, err] = intoNothing({"acquire", "--parameters", "3", "--points", "3", "--file", "run.cht"});
  EXPECT_EQ(code, 0) << err;
  EXPECT_THAT(FileBytes("run.cht"), HasSubstr("#1.50#"));
}

TEST_F(HostTest, WithoutFileAndParametersTheDialogOpens) {
  ASSERT_EQ(Record(3).code, 0);
  screen.onForm = [this](Form& form) {
    auto* const dialog = dynamic_cast<AcquireForm*>(&form);
    if (dialog == nullptr) return;
    dialog->file.NameFile(folder / "run.cht");
    dialog->cmdViewChart.Press();
  };
  EXPECT_EQ(Run({"acquire"}).code, 0);
  EXPECT_THAT(screen.windows, ElementsAre(HasSubstr("Acquire Parameter"), "Chart File - run.cht"));
  EXPECT_THAT(FileBytes("profile/Kestrel v5.60.ini"), HasSubstr("strRecent1=" + (folder / "run.cht")));
}

TEST(HostOutputs, AreAsTheyWereRead) {
  std::ostringstream out;
  const std::tuple<std::int64_t, std::int64_t, double> states[] = {
      {0, 0, 0},        {0, 5000, 0},     {1234, 5000, 5},  {1234, 5000, 0.04},
      {99, 100, 99.96}, {99, 100, 100.4}, {1, 100000, 0.5}, {5000, 5000, 2}};
  for (const auto& [done, total, rate] : states)
    out << ProgressText(done, total, rate, "rows") << " [" << ProgressBarText(done, total, 8) << "]\n";
  for (const ProgressKind kind : {ProgressKind::kNone, ProgressKind::kLines, ProgressKind::kBar}) {
    out << "kind " << static_cast<int>(kind) << "\n";
    Progress begun(out, kind, {"address", "addresses"});
    begun.Show(1, 4);
    begun.Note("it waits");
    begun.EndLine();
    Progress(out, kind).Show(4, 4);
    out << "\n";
    PercentBar bar(out, kind, "Exporting");
    for (const int percent : {0, 0, 50, 100}) bar.Show(percent);
    bar.EndLine();
    bar.EndLine();
  }
  VisibleOutput visible(out);
  for (const char* text : {"a\r", "\nb\xC2", "\x85 c\r", "d\x1B[1m\t\xC3\xA9\n"}) visible << text;
  for (const char* text : {"e\r", "f\xC2", "\x85"}) visible << text << std::flush;
  visible.put('\x07').put('\n');
  visible << "g";
  RestartLine(visible);
  visible << "h" << std::flush;
  ExpectTranscript("host_outputs", std::regex_replace(out.str(), std::regex("\r"), "<CR>"));
}

}  // namespace
}  // namespace chartproject
