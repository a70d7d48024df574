#!/bin/bash
# Prueba a ciegas del lector de RTF con AddressSanitizer y UBSan (build-san), a mano:
#   bench/fuzz_rtf.sh [segundos=600] [semilla]
# Compila bajo el cerrojo común y ejecuta sin él (un solo núcleo). Si algo cae, la entrada queda
# en /tmp/fuzz_rtf_caida.rtf; las que no hacen bien la ida y vuelta, en /tmp/fuzz_rtf_*.rtf.
set -euo pipefail
cd "$(dirname "$0")/.."
segundos=${1:-600}
export CCACHE_BASEDIR=$PWD
if [ ! -f build-san/build.ninja ]; then
    cmake -S . -B build-san -G Ninja -DCMAKE_BUILD_TYPE=Debug -DPLANORUM_SANITIZE=ON > /dev/null
fi
flock /tmp/planorum-compilacion.lock cmake --build build-san --target bench_fuzz_rtf
rm -f /tmp/fuzz_rtf_caida.rtf
set +e
QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    build-san/bench_fuzz_rtf "$segundos" ${2:-}
resultado=$?
set -e
if [ -f /tmp/fuzz_rtf_caida.rtf ]; then
    echo "CAÍDA: la entrada está en /tmp/fuzz_rtf_caida.rtf"
elif [ $resultado -ne 0 ]; then
    echo "Terminó con código $resultado"
fi
exit $resultado
