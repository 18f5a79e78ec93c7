// Message boxes under the host's title.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace chartproject {

struct Environment;

/// Shows a modal box with the title "Kestrel v5.60" and returns the answer (one of box_answer). The help folder
/// (strHelps) is the current folder while the box is up, and the former one is current again afterwards, also when the
/// box fails. A help folder that cannot be entered does not keep a message from the user: the box is shown without it.
/// @param buttons sum of box_style flags
/// @param helpContext with a context the box has a Help button; without one `helpFile` is ignored
/// Callers that only inform may ignore the answer.
std::int16_t ShowMessage(Environment& environment, const std::string& prompt, std::int32_t buttons,
                         const std::string& helpFile = {}, std::optional<std::int32_t> helpContext = std::nullopt);

}  // namespace chartproject
