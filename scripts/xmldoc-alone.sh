#!/usr/bin/env bash
# Builds the document library as another project does, by add_subdirectory, with the program of docs/xml-library.md,
# in build/xmldoc-alone, and runs that. Exit code 1 when it prints something else than the page says.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
[[ $# == 0 ]] || { sed -n '2,3s/^# \{0,1\}//p' "$0" >&2; exit 2; }
"$root/scripts/install-packages.sh" native
build=$root/build/xmldoc-alone
mkdir -p "$build/project"
fence() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" "$root/docs/xml-library.md" | sed '1d;$d'; }
fence cpp >"$build/project/program.cpp"
cat >"$build/project/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.23)
project(Stranger LANGUAGES CXX)
add_subdirectory("$root/xmldoc" xmldoc)
add_executable(program program.cpp)
target_link_libraries(program PRIVATE tarvo_xmldoc)
END
cmake -G Ninja -S "$build/project" -B "$build/objects" -DCMAKE_BUILD_TYPE=Release >"$build/log" &&
  cmake --build "$build/objects" >>"$build/log" || { cat "$build/log" >&2; exit 1; }
"$build/objects/program" | tr -d '\r' | diff - <(fence text)
echo "the library alone: builds and runs"
