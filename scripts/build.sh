#!/usr/bin/env bash
# Configures and builds into ./build (the program folder is build/Quillon2): the
# targets named as arguments, or everything, tests and benchmarks included.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
if [ $# -gt 0 ]; then
    cmake --build build --target "$@"
else
    cmake --build build
fi
