# What every target of this project is compiled with.

option(ZNTOPO_BUILD_TESTS "Build the test programs" ON)
option(ZNTOPO_BUILD_FUZZERS "Build the libFuzzer targets (clang only)" OFF)
option(ZNTOPO_WARNINGS_AS_ERRORS "Fail the build on a warning" OFF)
set(ZNTOPO_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Wformat=2 -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler takes an inlined text + text for an overlap.
  add_compile_options(-Wno-restrict)
endif()
if(ZNTOPO_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
if(ZNTOPO_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(ZNTOPO_SANITIZE)
  add_compile_options(-fsanitize=${ZNTOPO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ZNTOPO_SANITIZE})
endif()
