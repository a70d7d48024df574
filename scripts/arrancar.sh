#!/usr/bin/env bash
# Compila el programa y lo arranca sobre su base de datos de build/programa/datos.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/instalar-dependencias.sh
export CCACHE_BASEDIR="$PWD"
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target planorum-mirvade directorio_programa documentos_pdf
exec ./build/programa/planorum-mirvade "$@"
