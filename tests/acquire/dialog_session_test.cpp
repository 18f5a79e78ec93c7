// Whole sessions in the acquisition dialog, held against texts that were read.
#include "dialog_player.h"

namespace chartproject {
namespace {

class DialogSession : public DialogPlayer, public ::testing::WithParamInterface<const char*> {};

TEST_P(DialogSession, GoesAsItsTranscriptSays) {
  Play(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Sessions, DialogSession,
                         ::testing::Values("dialog_languages", "dialog_fields", "dialog_drives", "dialog_triggers",
                                           "dialog_files", "dialog_recovery", "dialog_window", "run_by_hand",
                                           "run_stopwatch", "run_watch", "run_disk", "run_time_of_a_point",
                                           "dialog_full_disk", "files_left_by_a_crash", "files_of_readings"),
                         [](const auto& session) { return std::string(session.param); });

}  // namespace
}  // namespace chartproject
