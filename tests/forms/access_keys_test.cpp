// Access keys: none given twice, those that captions name are kept, labels reach the field behind them.
#include "forms/access_keys.h"

#include <gmock/gmock.h>

#include "forms/controls.h"
#include "forms/form.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

TEST(AccessKeysTest, ButtonsChooseFirstAndNoLetterIsGivenTwice) {
  FakePorts fakes;
  Form form(fakes.forms, "frmKeys", nullptr);
  Label number(form, "lblNumber");
  TextBox field(form, "txtNumber");
  Label hint(form, "lblHint");  // nothing to reach
  CommandButton start(form, "cmdStart");
  CommandButton stop(form, "cmdStop");
  CommandButton save(form, "cmdSave");
  CheckBox line(form, "chkLine");
  CheckBox full(form, "chkFull");
  const std::pair<Control*, const char*> designed[] = {
      {&number, "Número"},   {&hint, "Hint"},       {&start, "Start"}, {&stop, "Stop"},
      {&save, "R&&D &Save"}, {&line, "Lost Start"}, {&full, "ST"}};
  for (const auto& [control, caption] : designed) control->SetCaption(caption);

  EXPECT_EQ(FieldOf(form, number), &field);
  EXPECT_EQ(FieldOf(form, hint), nullptr);
  const auto captions = CaptionsWithAccessKeys(form);
  const std::map<const Control*, std::string> expected = {
      {&save, "R&&D &Save"}, {&start, "S&tart"}, {&stop, "St&op"}, {&line, "&Lost Start"}, {&number, "&Número"}};
  EXPECT_EQ((std::map<const Control*, std::string>(captions.begin(), captions.end())),
            expected);  // both letters of "ST" are taken
}

}  // namespace
}  // namespace chartproject
