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
  number.SetCaption("Número");
  hint.SetCaption("Hint");
  start.SetCaption("Start");
  stop.SetCaption("Stop");
  save.SetCaption("R&&D &Save");  // names its own
  line.SetCaption("Lost Start");
  full.SetCaption("ST");  // both letters are taken

  EXPECT_EQ(FieldOf(form, number), &field);
  EXPECT_EQ(FieldOf(form, hint), nullptr);
  const auto captions = CaptionsWithAccessKeys(form);
  EXPECT_EQ(captions.at(&save), "R&&D &Save");
  EXPECT_EQ(captions.at(&start), "S&tart");
  EXPECT_EQ(captions.at(&stop), "St&op");
  EXPECT_EQ(captions.at(&line), "&Lost Start");
  EXPECT_EQ(captions.at(&number), "&Número");
  EXPECT_FALSE(captions.contains(&full));
  EXPECT_FALSE(captions.contains(&hint));
}

}  // namespace
}  // namespace chartproject
