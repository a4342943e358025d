# What every target is compiled with: one interface target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(VORN_CCACHE ccache)
if(VORN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${VORN_CCACHE})
endif()

set(VORN_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")

add_library(vorn-flags INTERFACE)
target_include_directories(vorn-flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(vorn-flags INTERFACE -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor
                                            -Woverloaded-virtual -Wconversion)
# GCC 12 sees copies onto themselves in optimised `"text" + std::string()`: a known false alarm, gone in GCC 13.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(vorn-flags INTERFACE -Wno-restrict)
endif()
# What runs on other people's files is built so that a fault is stopped: writes past a buffer end the process, code and
# links to libraries cannot be overwritten or guessed.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()
if(CMAKE_BUILD_TYPE STREQUAL Release)
  target_compile_options(vorn-flags INTERFACE -fstack-protector-strong -fstack-clash-protection)
  # Level 3 checks buffers of a size that is known only when it runs, too; compilers that lack it take level 2.
  set(VORN_FORTIFY 2)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
    set(VORN_FORTIFY 3)
  endif()
  target_compile_options(vorn-flags INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${VORN_FORTIFY})
  # Containers of the standard library end the process where an index or an iterator is not theirs.
  target_compile_definitions(vorn-flags INTERFACE _GLIBCXX_ASSERTIONS)
  # Jumps and returns go where the program means them to, on processors that check that.
  check_cxx_compiler_flag(-fcf-protection=full VORN_HAS_CF_PROTECTION)
  if(VORN_HAS_CF_PROTECTION)
    target_compile_options(vorn-flags INTERFACE -fcf-protection=full)
  endif()
  target_link_options(vorn-flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
  # Nobody replaces a function of a library by one of the same name, so it may be inlined there.
  target_compile_options(vorn-flags INTERFACE -fno-semantic-interposition)
endif()
if(VORN_SANITIZE)
  target_compile_options(vorn-flags INTERFACE -fsanitize=${VORN_SANITIZE} -fno-sanitize-recover=all
    -fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizer_ignore.txt -fno-omit-frame-pointer)
  target_link_options(vorn-flags INTERFACE -fsanitize=${VORN_SANITIZE})
endif()

option(VORN_COVERAGE "Count what tests reach (GCC only); see scripts/coverage" OFF)
if(VORN_COVERAGE)
  # Several processes and threads count.
  target_compile_options(vorn-flags INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(vorn-flags INTERFACE --coverage -Wl,--wrap=_exit)
  target_sources(vorn-flags INTERFACE ${CMAKE_CURRENT_LIST_DIR}/dump_coverage.cpp)
endif()
