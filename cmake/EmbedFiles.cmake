# Files of a folder as bytes in a program: no tool but CMake and the compiler, the same source from the same files.
set(CHARTPROJECT_EMBED_SCRIPT "${CMAKE_CURRENT_LIST_DIR}/embed_files.cmake")

# chartproject_embed(TARGET FOLDER HEADER FUNCTION)
# Adds a source to TARGET that defines FUNCTION, declared in HEADER: it lists the files of FOLDER with their bytes, except
# scripts and what is only installed (desktop/, service/). A changed, new or removed file regenerates the source.
function(chartproject_embed target folder header function)
  file(GLOB_RECURSE names CONFIGURE_DEPENDS RELATIVE "${folder}" "${folder}/*")
  list(FILTER names EXCLUDE REGEX "\\.py$|^(desktop|service)/")
  list(TRANSFORM names PREPEND "${folder}/" OUTPUT_VARIABLE files)
  set(source "${CMAKE_CURRENT_BINARY_DIR}/embedded_${function}.cpp")
  # The script reads the names from a file whose change regenerates the source, too.
  set(list "${source}.names")
  file(CONFIGURE OUTPUT "${list}" CONTENT "${names}" @ONLY)
  add_custom_command(
    OUTPUT "${source}"
    COMMAND ${CMAKE_COMMAND} "-DFOLDER=${folder}" "-DLIST=${list}" "-DHEADER=${header}" "-DFUNCTION=${function}"
            "-DOUTPUT=${source}" -P "${CHARTPROJECT_EMBED_SCRIPT}"
    DEPENDS ${files} "${list}" "${CHARTPROJECT_EMBED_SCRIPT}"
    COMMENT "Embedding ${folder}"
    VERBATIM)
  target_sources(${target} PRIVATE "${source}")
  # One literal a file, of any length.
  set_source_files_properties("${source}" PROPERTIES COMPILE_OPTIONS -Wno-overlength-strings)
endfunction()
