// Batches of lines by HTTP POST.
#pragma once

#include <memory>
#include <string>

#include "backends/curl/post_address.h"
#include "platform/line_poster.h"

namespace chartproject {

/// Who is trusted, and who we are. Names of files may be empty.
struct PostSecurity {
  /// "Basic NAME:PASSWORD", "Bearer TOKEN", "Token TOKEN", or a token alone, which is sent as "Token TOKEN". Empty for
  /// none. One line without control characters.
  std::string token{};
  std::string certificates{};       ///< PEM file of the authorities to trust, in place of the system's
  std::string clientCertificate{};  ///< PEM file
  std::string clientKey{};          ///< PEM file
};

/// A poster that keeps its connection. What a server sends is bounded in time and size; it may redirect three times,
/// to http and https only, and from https to https only. The first call in a process is made before other threads run.
[[nodiscard]] std::unique_ptr<LinePoster> MakeCurlPoster(const PostAddress& address, const PostSecurity& security);

}  // namespace chartproject
