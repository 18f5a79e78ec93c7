// The dialog before a run, as far as its sessions do not show it: complaints once, events of a model, closing.
#include "dialog_fixture.h"
#include "recording/file/trigger_events.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

class AcquireFormTest : public DialogTest {};

TEST_F(AcquireFormTest, LineErrorsOfADriverFileAreNotRepeatedAtEveryReset) {
  fake.files.Put("C:\\d\\KRA09E.wcd", fake.files.Bytes("C:\\d\\KRA09E.wcd") + "#7" + std::string(14, '#') + "\r\n");
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  form->cmdReset.Press();
  EXPECT_THAT(Prompts(), ElementsAre("Error in line 6 in driver C:\\d\\KRA09E.wcd"));
}

TEST_F(AcquireFormTest, EventsThatTheModelLacksDoNotStaySelected) {
  Open();
  Choose(form->drive.cboDriveAddress, "02");
  Choose(form->trigger.cboTriggerMode, "Event");
  for (int position = 0; position < kEventCount; ++position) {
    form->trigger.cboEvent.SetListIndex(position);
    const bool offered = EventAvailable(EventAt(position), "LMX-01");
    EXPECT_EQ(form->trigger.cboEvent.ListIndex(), offered ? position : -1);
    if (!offered) {
      EXPECT_FALSE(TriggerShown()) << position;
      EXPECT_EQ(fake.dialogs.boxes.back().helpContext, 91) << position;
    }
    EXPECT_EQ(Prompts(), std::vector<std::string>(offered ? 0 : 1, "Event not available")) << position;
  }
  std::vector<int> reached;  // by the arrow keys
  const ComboBox& events = form->trigger.cboEvent;
  for (int at = -1; events.NextAvailable(at, 1) != at;) reached.push_back(at = events.NextAvailable(at, 1));
  EXPECT_THAT(reached, ElementsAre(0, 1, 2, 19, 20, 21, 22, 23));
  EXPECT_EQ(events.NextAvailable(19, -1), 2);
  // A change of drive asks again.
  Choose(form->drive.cboDriveAddress, "01");
  Choose(form->trigger.cboEvent, "P012 - DI3 = 1");
  EXPECT_TRUE(TriggerShown());
  Choose(form->drive.cboDriveAddress, "02");
  EXPECT_EQ(form->trigger.cboEvent.ListIndex(), -1);
  EXPECT_EQ(form->panel.lblHint.Caption(), "Choose an event.");
}

}  // namespace
}  // namespace chartproject
