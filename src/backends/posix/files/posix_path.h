// File names as the system wants them.
#pragma once

#include <string>
#include <string_view>

namespace chartproject {

/// The name with every "\" made "/": settings that are shared with the host may hold either.
[[nodiscard]] std::string PosixPath(std::string_view name);

/// The folder of a name with "/"; "." for a bare name, "/" for a name in the root.
[[nodiscard]] std::string FolderOf(std::string_view path);

}  // namespace chartproject
