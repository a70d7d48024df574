#!/usr/bin/env bash
# Compila y pasa todas las pruebas: primero la compilación normal, después la de los
# comprobadores de memoria y de comportamiento indefinido (AddressSanitizer + UBSan).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/instalar-dependencias.sh
export CCACHE_BASEDIR="$PWD"
export QT_QPA_PLATFORM=offscreen

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build
ctest --test-dir build --output-on-failure -j2

cmake -S . -B build-san -G Ninja -DCMAKE_BUILD_TYPE=Debug -DPLANORUM_SANITIZE=ON >/dev/null
cmake --build build-san
ctest --test-dir build-san --output-on-failure -j2
