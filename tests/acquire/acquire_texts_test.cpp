// What the dialog says beside its fields, and the keys that reach them.
#include <set>

#include "dialog_fixture.h"
#include "forms/access_keys.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

using AcquireTextsTest = DialogTest;

TEST_F(AcquireTextsTest, EveryFieldHasAnAccessKeyOfItsOwnAndEnterStarts) {
  for (const Language language : {Language::kPortuguese, Language::kEnglish, Language::kSpanish}) {
    component.language = language;
    Open();
    const auto captions = CaptionsWithAccessKeys(*form);
    std::set<char> letters;
    for (const auto& [control, caption] : captions) {
      EXPECT_TRUE(letters.insert(*AccessLetter(caption)).second) << caption;
    }
    for (const Control* named : std::initializer_list<const Control*>{
             &form->file.fraFileName, &form->drive.lblParameters, &form->timing.lblTimeBetweenPoints,
             &form->timing.cmdTimePoint, &form->trigger.lblEvent, &form->trigger.lblPXXX, &form->trigger.lblContent}) {
      EXPECT_TRUE(captions.contains(named)) << named->Caption();
    }
    EXPECT_TRUE(form->panel.cmdStart.IsDefault());
    EXPECT_TRUE(form->panel.cmdTrigger.IsDefault());
    EXPECT_FALSE(form->cmdOK.IsDefault());
    EXPECT_TRUE(form->cmdOK.IsCancel());
  }
}

}  // namespace
}  // namespace chartproject
