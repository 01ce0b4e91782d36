# How a room of the house is built, and how its tests are found.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(TARVO_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(TARVO_COVERAGE "Count which lines and branches are run" OFF)
# The release builds precompile <windows.h> alone: each source is shown to include what it uses of everything else, and
# GCC, optimising, warns of the standard library in precompiled headers.
option(TARVO_PRECOMPILE "Precompile the headers of the standard library that most sources include" OFF)

add_library(tarvo_build INTERFACE)
target_include_directories(tarvo_build INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(tarvo_build INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-qual -Wformat=2 -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in its own std::string (its bug 105651).
  target_compile_options(tarvo_build INTERFACE -Wno-restrict)
endif()
if(TARVO_SANITIZE)
  # Where each test is a process of its own, part of its start goes into moving the program to a random address.
  target_compile_options(tarvo_build INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -fno-pie)
  target_link_options(tarvo_build INTERFACE -fsanitize=address,undefined -no-pie)
endif()
# What the tests' own sources are compiled with, after tarvo_build. In them the sanitizer's looks at each pointer's
# value, alignment and class cost a third of the compiler's time; the address sanitizer sees the same accesses. A test
# that fails names its line without debug information.
add_library(tarvo_test_build INTERFACE)
if(TARVO_SANITIZE)
  target_compile_options(tarvo_test_build INTERFACE -fno-sanitize=null,alignment,vptr -g0)
endif()
if(TARVO_COVERAGE)
  target_compile_options(tarvo_build INTERFACE --coverage)
  target_link_options(tarvo_build INTERFACE --coverage)
endif()
if(WIN32)
  set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
  # One file, nothing to install beside it: the run time is linked in, unused code is left out.
  target_compile_definitions(tarvo_build INTERFACE _WIN32_WINNT=0x0601 WIN32_LEAN_AND_MEAN NOMINMAX)
  target_compile_options(tarvo_build INTERFACE -ffunction-sections -fdata-sections -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.
    -fstack-protector-strong)
  # What stands behind that option; the compiler's own library would be linked in by the option at the link.
  target_link_libraries(tarvo_build INTERFACE tarvo_stack_guard)
  # No time in the file, so that the same sources give the same bytes; Windows 7 is the oldest that loads it.
  target_link_options(tarvo_build INTERFACE -static -Wl,--gc-sections,--no-insert-timestamp
    -Wl,--major-os-version=6,--minor-os-version=1,--major-subsystem-version=6,--minor-subsystem-version=1
    $<$<CONFIG:Release>:-s>)
endif()

set(TARVO_COMMON_HEADERS <algorithm> <array> <chrono> <cstdint> <functional> <map> <memory> <optional> <string>
  <string_view> <utility> <vector>)

# tarvo_precompile(TARGET OWNER HEADER...)
# TARGET's sources get the headers precompiled, once for all targets that name the same OWNER.
function(tarvo_precompile target owner)
  if(NOT TARVO_PRECOMPILE)
    list(FILTER ARGN INCLUDE REGEX "^<windows.h>$")
  endif()
  # Precompiled headers differ from folder to folder: with them a compiler cache finds nothing of another one.
  if(NOT ARGN OR CMAKE_CXX_COMPILER_LAUNCHER)
    return()
  endif()
  if(NOT TARGET ${owner})
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/generated/${owner}.cpp CONTENT "" @ONLY)
    add_library(${owner} OBJECT ${CMAKE_BINARY_DIR}/generated/${owner}.cpp)
    if("<gtest/gtest.h>" IN_LIST ARGN)
      target_link_libraries(${owner} PRIVATE tarvo_build tarvo_test_build GTest::gtest)
    else()
      target_link_libraries(${owner} PRIVATE tarvo_build)
    endif()
    target_precompile_headers(${owner} PRIVATE ${ARGN})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()

# tarvo_room(NAME [USES ROOM...] [SYSTEM LIBRARY...] [EXCEPT SOURCE...])
# A room is a static library of every source in its folder and the folders below it, but windows/ and tool/ and the
# sources named; a room of headers alone is an interface.
function(tarvo_room name)
  cmake_parse_arguments(ROOM "" "" "USES;SYSTEM;EXCEPT" ${ARGN})
  file(GLOB_RECURSE sources RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.cpp)
  list(REMOVE_ITEM sources ${ROOM_EXCEPT})
  list(FILTER sources EXCLUDE REGEX "(^|/)(windows|tool)/")
  list(TRANSFORM ROOM_USES PREPEND tarvo_)
  if(sources)
    add_library(tarvo_${name} STATIC ${sources})
    target_link_libraries(tarvo_${name} PUBLIC tarvo_build ${ROOM_USES} ${ROOM_SYSTEM})
    if(name MATCHES windows)
      tarvo_precompile(tarvo_${name} tarvo_windows_headers ${TARVO_COMMON_HEADERS} <windows.h>)
    else()
      tarvo_precompile(tarvo_${name} tarvo_headers ${TARVO_COMMON_HEADERS})
    endif()
  else()
    add_library(tarvo_${name} INTERFACE)
    target_link_libraries(tarvo_${name} INTERFACE tarvo_build ${ROOM_USES} ${ROOM_SYSTEM})
  endif()
endfunction()

# tarvo_room_tests(ROOM [FOLDERS FOLDER...] USES ROOM...)
# One test program of every *_test.cpp in the folder, and in the named folders below it; each test carries the
# room's name as its label.
function(tarvo_room_tests room)
  cmake_parse_arguments(TESTS "" "" "FOLDERS;USES" ${ARGN})
  list(TRANSFORM TESTS_FOLDERS APPEND /*.cpp)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp ${TESTS_FOLDERS})
  list(TRANSFORM TESTS_USES PREPEND tarvo_)
  add_executable(${room}_tests ${sources})
  target_link_libraries(${room}_tests PRIVATE tarvo_build tarvo_test_build ${TESTS_USES} GTest::gtest_main)
  if(TARVO_COVERAGE)
    # Their own lines are not counted, so they may be compiled together.
    set_target_properties(${room}_tests PROPERTIES UNITY_BUILD ON)
  endif()
  set_target_properties(${room}_tests PROPERTIES UNITY_BUILD_BATCH_SIZE 10)
  tarvo_precompile(${room}_tests tarvo_test_headers ${TARVO_COMMON_HEADERS} <gtest/gtest.h>)
  gtest_discover_tests(${room}_tests
    TEST_PREFIX "${room}." PROPERTIES LABELS ${room} TIMEOUT 300 DISCOVERY_TIMEOUT 60)
endfunction()
