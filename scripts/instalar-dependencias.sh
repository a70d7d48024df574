#!/usr/bin/env bash
# Instala los paquetes de Debian que necesitan la compilación, las pruebas y el programa.
# Se puede ejecutar cuantas veces se quiera: sólo instala lo que falta.
set -euo pipefail

paquetes=(
  build-essential cmake ninja-build ccache pkg-config lld
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite qt6-translations-l10n libgl-dev
  libsqlite3-dev sqlite3 libzip-dev
  postgresql postgresql-contrib libqt6sql6-psql
  fonts-liberation2
  poppler-utils qpdf
  xvfb xauth
)

faltan=()
for p in "${paquetes[@]}"; do
  if ! dpkg -s "$p" >/dev/null 2>&1; then
    faltan+=("$p")
  fi
done

if [ ${#faltan[@]} -eq 0 ]; then
  exit 0
fi

sudo_si_hace_falta=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_si_hace_falta=(sudo)
fi

echo "Instalando: ${faltan[*]}"
"${sudo_si_hace_falta[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo_si_hace_falta[@]}" apt-get install -y -qq "${faltan[@]}"
