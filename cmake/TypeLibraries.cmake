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

# chartproject_com_server(NAME TITLE text TYPE_LIBRARY idl-name SOURCES file... DEPENDS target... [MANIFEST file])
# NAME.dll with one class: its sources define what server_module.h asks for.
function(chartproject_com_server name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TITLE;TYPE_LIBRARY;MANIFEST" "SOURCES;DEPENDS")
  set(manifest "")
  if(arg_MANIFEST)
    set(manifest "2 24 \"${CMAKE_CURRENT_SOURCE_DIR}/${arg_MANIFEST}\"")
  endif()
  set(resources "${CMAKE_CURRENT_BINARY_DIR}/${name}.rc")
  configure_file("${CHARTPROJECT_IDL_DIR}/server.rc.in" "${resources}" @ONLY)
  set_source_files_properties("${resources}" PROPERTIES
    OBJECT_DEPENDS "${CHARTPROJECT_IDL_OUT}/${arg_TYPE_LIBRARY}.tlb;${CMAKE_CURRENT_SOURCE_DIR}/${arg_MANIFEST}")
  add_library(${name} SHARED ${arg_SOURCES} "${CHARTPROJECT_IDL_DIR}/server_module.cpp"
                             "${CHARTPROJECT_IDL_DIR}/server.def" "${resources}")
  set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/package"
                                           RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/package")
  target_include_directories(${name} PRIVATE "${CHARTPROJECT_IDL_OUT}")
  target_link_libraries(${name} PRIVATE ${arg_DEPENDS} chartproject_warnings)
  target_link_options(${name} PRIVATE -s)
  add_dependencies(${name} idl_stdole idl_${arg_TYPE_LIBRARY})
endfunction()
