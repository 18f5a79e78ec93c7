// What the dialog says beside its fields, and the keys that reach them.
#include <set>

#include "dialog_fixture.h"
#include "forms/access_keys.h"
#include "support/form_texts.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

using AcquireTextsTest = DialogTest;

TEST_F(AcquireTextsTest, EveryCaptionAndToolTipIsThere) {
  Open();
  EXPECT_THAT(TextsOf(*form),
              ElementsAre("Acquire Parameter", "File Name", "&New ... (Name a new chart file in the project folder)",
                          "Browse (Look for an existing chart file)", "Drive Address", "KRA-09", "Number of Parameters",
                          "Parameters", " (Motor current)", "003  Motor current (003  Motor current)",
                          "Number of Points", "1 ... 2000000000", "Time among Points", "1 ... 65 s",
                          "Test (Read one point, without recording, to see how long it takes)", "Trigger Mode", "Event",
                          "Parameter", "Content", "Duration 00:00:05, about 450 bytes.",
                          "Start Data Acquisition (Start Data Acquisition)", "Press Esc to cancel during the acquiring",
                          "Trigger (Trigger)", "Press Esc to cancel during the acquiring", "Acquiring data ...",
                          "Time among Points", "Curve (Show or hide a chart of the last points)",
                          "View Chart (View Chart)", "&Reset (Erase fields)", "&Ok (Ok (Alt+O))"));
}

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
