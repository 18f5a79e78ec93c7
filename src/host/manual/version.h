// Which version of the program this is, and of which sources.
#pragma once

#include <string>

namespace chartproject {

/// The number of the release, for example "1.0.0": that of project() in CMakeLists.txt.
[[nodiscard]] std::string VersionNumber();

/// What --version prints: "ChartProject 1.0.0 (0123456789ab)". The commit is left out where the sources were not under
/// version control, and has a "+" where they were changed since.
[[nodiscard]] std::string VersionLine();

}  // namespace chartproject
