// What the readers of recordings say of files, in words, for sessions that are played from their transcripts.
#pragma once

#include <string>

#include "support/fake_ports.h"

namespace chartproject {

/// The answer to a question about the files of a chart file; empty for a word that is no question: "interrupted",
/// "beside", "unfinished", "recover", "besides", "discard", "readings", "clock", "rows".
[[nodiscard]] std::string AnswerOn(FakePorts& fake, const std::string& question, const std::string& name,
                                   const std::string& value);

}  // namespace chartproject
