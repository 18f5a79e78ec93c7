// The files of the folder share/ as the build embeds them.
#pragma once

#include <span>
#include <string_view>

namespace chartproject {

struct EmbeddedFile {
  std::string_view name;   ///< seen from share/, with "/"
  std::string_view bytes;  ///< as they are in the source tree
};

/// Every file of share/ but its scripts, sorted by name. The bytes live as long as the program.
[[nodiscard]] std::span<const EmbeddedFile> ShareFiles() noexcept;

}  // namespace chartproject
