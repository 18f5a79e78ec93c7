# Script of EmbedFiles.cmake: writes the source. Neither dates nor full names go into it.
file(READ "${LIST}" names)
set(rows "")
list(LENGTH names count)
foreach(name IN LISTS names)
  file(SIZE "${FOLDER}/${name}" size)
  file(READ "${FOLDER}/${name}" bytes HEX)
  # Lines of 32 bytes, each byte an escape.
  string(REGEX REPLACE "(................................................................)" "\\1\n" bytes "${bytes}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "\\\\x\\1" bytes "${bytes}")
  string(REGEX REPLACE "\n(.)" "\"\n     \"\\1" bytes "${bytes}")
  string(STRIP "${bytes}" bytes)
  string(APPEND rows "    {\"${name}\",\n     {\"${bytes}\",\n      ${size}}},\n")
endforeach()
file(WRITE "${OUTPUT}" "// Made by embed_files.cmake.
#include \"${HEADER}\"

#include <array>

namespace chartproject {

std::span<const EmbeddedFile> ${FUNCTION}() noexcept {
  static constexpr std::array<EmbeddedFile, ${count}> kFiles{{
${rows}  }};
  return kFiles;
}

}  // namespace chartproject
")
