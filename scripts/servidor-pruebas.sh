#!/usr/bin/env bash
# Servidor PostgreSQL desechable para las pruebas: un clúster nuevo en una carpeta propia que sólo
# escucha en su socket (sin puerto de red que choque con otro), con el usuario "planorum" y la
# base "planorum". Las pruebas crean en él sus propias bases.
#
#   servidor-pruebas.sh arrancar CARPETA [PUERTO]
#   servidor-pruebas.sh parar CARPETA
#
# El servidor no arranca como root: si se ejecuta como root, lo hace el usuario postgres.
# Sin PostgreSQL instalado no falla: deja el motivo en CARPETA/motivo.txt y las pruebas se saltan.
set -euo pipefail

accion=${1:?falta la acción: arrancar o parar}
carpeta=${2:?falta la carpeta del servidor}
puerto=${3:-5432}
datos="$carpeta/datos"

bin=""
for d in /usr/lib/postgresql/*/bin; do
  [ -x "$d/initdb" ] && bin=$d
done

como() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u postgres -- "$@"
  else
    "$@"
  fi
}

parar() {
  if [ -n "$bin" ] && [ -f "$datos/postmaster.pid" ]; then
    como "$bin/pg_ctl" -D "$datos" -m immediate -w stop >/dev/null 2>&1 || true
  fi
  rm -rf "$carpeta"
}

case "$accion" in
  arrancar)
    parar  # lo que quedara de una pasada interrumpida
    mkdir -p "$carpeta"
    if [ -z "$bin" ]; then
      echo "PostgreSQL no está instalado (falta initdb): scripts/instalar-dependencias.sh lo instala" | tee "$carpeta/motivo.txt"
      exit 0
    fi
    if [ "$(id -u)" -eq 0 ]; then
      chown postgres: "$carpeta"
    fi
    como "$bin/initdb" -D "$datos" -U planorum --auth=trust --encoding=UTF8 --locale=C.UTF-8 --no-sync >"$carpeta/initdb.txt"
    como "$bin/pg_ctl" -D "$datos" -l "$carpeta/servidor.txt" -w \
      -o "-c listen_addresses='' -c unix_socket_directories='$carpeta' -p $puerto -c fsync=off -c synchronous_commit=off -c full_page_writes=off" \
      start >/dev/null
    como "$bin/createdb" -h "$carpeta" -p "$puerto" -U planorum planorum
    echo "Servidor de pruebas en marcha: host=$carpeta port=$puerto user=planorum dbname=planorum"
    ;;
  parar)
    parar
    ;;
  *)
    echo "Acción desconocida: $accion (arrancar o parar)" >&2
    exit 2
    ;;
esac
