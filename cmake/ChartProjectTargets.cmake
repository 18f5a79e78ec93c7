# One library a folder, one test program a folder, the same warnings everywhere.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(CHARTPROJECT_CCACHE ccache)
if(CHARTPROJECT_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CHARTPROJECT_CCACHE})
endif()

add_library(chartproject_warnings INTERFACE)
target_compile_options(chartproject_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                                       -Wold-style-cast -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler sees overlaps in std::string's own code when it optimises (its bug 105651).
  target_compile_options(chartproject_warnings INTERFACE -Wno-restrict)
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    # Its <regex> looks uninitialised to it with the sanitizers' code in between.
    target_compile_options(chartproject_warnings INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

if(WIN32)
  # The system's interfaces have no destructor at all: objects end themselves at their last Release.
  target_compile_options(chartproject_warnings INTERFACE -Wno-non-virtual-dtor)
endif()

# chartproject_library(NAME SOURCES file... DEPENDS target...)
# Includes are written from src/, for example "drive/drive_table.h".
function(chartproject_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE chartproject_warnings)
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} INTERFACE ${arg_DEPENDS})
  endif()
endfunction()

# chartproject_test(NAME SOURCES file... DEPENDS target... [LABELS label...])
function(chartproject_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS;LABELS")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE CHARTPROJECT_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                                             CHARTPROJECT_BINARY_DIR="${CMAKE_BINARY_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_DEPENDS} GTest::gmock GTest::gtest_main chartproject_warnings)
  # These go first: they find most faults, and in moments.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES PROPERTIES COST 1000 LABELS "${arg_LABELS}")
endfunction()
