# What compilers and linkers offer against faults that hostile files might use, and what makes two builds of the same
# sources the same bytes. tests/house/marks.py reads both from the finished files.

# OFF only measures what the protections cost.
option(CHARTPROJECT_HARDENING "Build with the protections that the compiler offers" ON)

# In every build: a container that is used out of its bounds ends the program instead of reading on.
if(CHARTPROJECT_HARDENING)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# Sanitizers bring their own checks, and what is built without optimisation cannot be fortified.
set(CHARTPROJECT_HARDENED OFF)
if(CHARTPROJECT_HARDENING AND CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_FLAGS_RELEASE MATCHES "-O[1-3s]"
   AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  set(CHARTPROJECT_HARDENED ON)
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong)
  # No name in the file depends on where the project lies.
  add_compile_options("-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=")
endif()

if(WIN32)
  # No date in the file; any address, no code on the stack or heap, and no handler of the kind that can be overwritten
  # there: exceptions of this compiler use none.
  add_link_options(-Wl,--no-insert-timestamp -Wl,--dynamicbase -Wl,--nxcompat -Wl,--no-seh)
  if(CHARTPROJECT_HARDENED)
    add_link_options(-fstack-protector-strong)
  endif()
elseif(CHARTPROJECT_HARDENED)
  include(CheckPIESupported)
  check_pie_supported()
  add_compile_options(-fstack-clash-protection)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    add_compile_options(-fcf-protection=full)
  endif()
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()
