// The commands in this process, where a session cannot say it: output that cannot be written, a dialog's own fields.
#include "acquire/dialog/acquire_form.h"
#include "host/host_case.h"
#include "host/program.h"

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

}  // namespace
}  // namespace chartproject
