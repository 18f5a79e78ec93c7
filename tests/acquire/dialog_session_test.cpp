// Whole sessions in the acquisition dialog, held against texts that were read.
#include "acquire/dialog_fixture.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

using DialogSession = DialogTest;

TEST_F(DialogSession, OpensInEachLanguage) {
  Transcript transcript("dialog_languages", &fake);
  for (const Language language : {Language::kPortuguese, Language::kEnglish, Language::kSpanish}) {
    component.language = language;
    transcript.Step(std::to_string(static_cast<int>(language)));
    form = std::make_unique<AcquireForm>(component);
    form->Load();
    transcript.Look(*form);
  }
}

}  // namespace
}  // namespace chartproject
