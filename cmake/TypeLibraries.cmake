# Interfaces and type libraries from IDL by mingw's widl, with our own base types (no headers of others).
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(CHARTPROJECT_IDL_DIR "${CMAKE_SOURCE_DIR}/src/backends/win32/com")
set(CHARTPROJECT_IDL_OUT "${CMAKE_BINARY_DIR}/idl")
set(CHARTPROJECT_WIDL_CALL ${CHARTPROJECT_WIDL} -m32 --nostdinc "-I${CHARTPROJECT_IDL_DIR}"
                           "-I${CMAKE_SOURCE_DIR}/src/links/com" -L "${CHARTPROJECT_IDL_OUT}")
file(MAKE_DIRECTORY "${CHARTPROJECT_IDL_OUT}")

# chartproject_idl(NAME idl-file [TYPELIB]): makes NAME.h, and NAME.tlb when asked, as the target idl_NAME.
function(chartproject_idl name idl)
  cmake_parse_arguments(PARSE_ARGV 2 arg "TYPELIB" "" "DEPENDS")
  set(source "${CMAKE_CURRENT_SOURCE_DIR}/${idl}")
  set(header "${CHARTPROJECT_IDL_OUT}/${name}.h")
  add_custom_command(OUTPUT "${header}" COMMAND ${CHARTPROJECT_WIDL_CALL} -h -H "${header}" "${source}"
                     DEPENDS "${source}" "${CHARTPROJECT_IDL_DIR}/com_base.idl" ${arg_DEPENDS})
  set(outputs "${header}")
  if(arg_TYPELIB)
    set(library "${CHARTPROJECT_IDL_OUT}/${name}.tlb")
    add_custom_command(OUTPUT "${library}" COMMAND ${CHARTPROJECT_WIDL_CALL} -t -o "${library}" "${source}"
                       COMMAND Python3::Interpreter "${CMAKE_SOURCE_DIR}/cmake/undate_type_library.py" "${library}"
                       DEPENDS "${source}" "${CHARTPROJECT_IDL_OUT}/stdole.tlb" ${arg_DEPENDS})
    list(APPEND outputs "${library}")
  endif()
  add_custom_target(idl_${name} DEPENDS ${outputs})
endfunction()

# chartproject_com_server(TARGET TITLE text TYPE_LIBRARY idl-name SOURCES file... DEPENDS target... [MANIFEST file]
#                         [NAME name] [FOLDER folder])
# NAME.dll (default: the target's name) with one class, in a folder of the build (default: package): its sources define
# what server_module.h asks for.
function(chartproject_com_server target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TITLE;TYPE_LIBRARY;MANIFEST;NAME;FOLDER" "SOURCES;DEPENDS")
  set(manifest "")
  if(arg_MANIFEST)
    cmake_path(ABSOLUTE_PATH arg_MANIFEST BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
    set(manifest "2 24 \"${arg_MANIFEST}\"")
  endif()
  set(name "${target}")
  if(arg_NAME)
    set(name "${arg_NAME}")
  endif()
  set(folder "${CMAKE_BINARY_DIR}/package")
  if(arg_FOLDER)
    set(folder "${CMAKE_BINARY_DIR}/${arg_FOLDER}")
  endif()
  set(embedded "${CHARTPROJECT_IDL_OUT}/${arg_TYPE_LIBRARY}.tlb" ${arg_MANIFEST})
  set(resources "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  configure_file("${CHARTPROJECT_IDL_DIR}/server.rc.in" "${resources}" @ONLY)
  set_source_files_properties("${resources}" PROPERTIES OBJECT_DEPENDS "${embedded}")
  add_library(${target} SHARED ${arg_SOURCES} "${CHARTPROJECT_IDL_DIR}/server_module.cpp"
                             "${CHARTPROJECT_IDL_DIR}/server.def" "${resources}")
  set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME "${name}" LIBRARY_OUTPUT_DIRECTORY "${folder}"
                                             RUNTIME_OUTPUT_DIRECTORY "${folder}" ARCHIVE_OUTPUT_DIRECTORY "${folder}")
  target_include_directories(${target} PRIVATE "${CHARTPROJECT_IDL_OUT}")
  target_link_libraries(${target} PRIVATE ${arg_DEPENDS} chartproject_warnings)
  target_link_options(${target} PRIVATE -s)
  add_dependencies(${target} idl_stdole idl_${arg_TYPE_LIBRARY})
endfunction()
