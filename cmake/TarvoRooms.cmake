# How a room of the house is built, and how its tests are found.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(TARVO_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

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
  target_compile_options(tarvo_build INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarvo_build INTERFACE -fsanitize=address,undefined)
endif()
if(WIN32)
  set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
  # One file, nothing to install beside it: the run time is linked in, unused code is left out.
  target_compile_definitions(tarvo_build INTERFACE _WIN32_WINNT=0x0601 WIN32_LEAN_AND_MEAN NOMINMAX)
  target_compile_options(tarvo_build INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(tarvo_build INTERFACE -static -Wl,--gc-sections $<$<CONFIG:Release>:-s>)
endif()

# tarvo_room(NAME [USES ROOM...] [SYSTEM LIBRARY...])
# A room is a static library of every source in its folder and the folders below it, but windows/ and tool/;
# a room of headers alone is an interface.
function(tarvo_room name)
  cmake_parse_arguments(ROOM "" "" "USES;SYSTEM" ${ARGN})
  file(GLOB_RECURSE sources RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.cpp)
  list(FILTER sources EXCLUDE REGEX "(^|/)(windows|tool)/")
  list(TRANSFORM ROOM_USES PREPEND tarvo_)
  if(sources)
    add_library(tarvo_${name} STATIC ${sources})
    target_link_libraries(tarvo_${name} PUBLIC tarvo_build ${ROOM_USES} ${ROOM_SYSTEM})
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
  target_link_libraries(${room}_tests PRIVATE tarvo_build ${TESTS_USES} GTest::gtest_main)
  gtest_discover_tests(${room}_tests
    TEST_PREFIX "${room}." PROPERTIES LABELS ${room} TIMEOUT 120 DISCOVERY_TIMEOUT 60)
endfunction()
