// What a publisher reports, in the user's language.
#pragma once

#include <string>

#include "publish/publisher.h"
#include "texts/language.h"

namespace chartproject {

/// Why a server does not take points, in a sentence. @param server LinePoster::Server
[[nodiscard]] std::string TroubleText(Language language, const std::string& server, const PostAnswer& answer);

/// Why a publisher does not go on: its fault, else its trouble; empty when there is neither.
[[nodiscard]] std::string FailureText(Language language, const std::string& server, const PublishReport& report);

}  // namespace chartproject
