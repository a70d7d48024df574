#!/bin/bash
# Lo que escribe Rtf::escribir, abierto con LibreOffice: se pasa a texto y a ODT y se comprueba
# que está el texto y que el content.xml tiene negrita, cursiva, subrayado, las alineaciones y
# las listas. A mano:  bench/libreoffice_rtf.sh   (necesita soffice: libreoffice-writer-nogui)
set -euo pipefail
cd "$(dirname "$0")/.."
export CCACHE_BASEDIR=$PWD
if [ ! -f build/build.ninja ]; then
    cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
fi
flock /tmp/planorum-compilacion.lock cmake --build build --target bench_rtf_escribir
dir=$(mktemp -d /tmp/libreoffice_rtf.XXXXXX)
QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 build/bench_rtf_escribir "$dir/prueba.rtf"
# Un perfil de LibreOffice propio, para no chocar con otro que esté abierto.
perfil="-env:UserInstallation=file://$dir/perfil"
soffice "$perfil" --headless --convert-to "txt:Text (encoded):UTF8" --outdir "$dir" "$dir/prueba.rtf" > /dev/null 2>&1
soffice "$perfil" --headless --convert-to odt --outdir "$dir" "$dir/prueba.rtf" > /dev/null 2>&1
fallos=0
comprobar() {  # descripción, fichero, texto (fijo) que debe estar
    if grep -qF -- "$3" "$2"; then
        echo "  bien: $1"
    else
        echo "  FALLO: $1 (no está «$3» en $(basename "$2"))"
        fallos=$((fallos + 1))
    fi
}
echo "Texto ($dir/prueba.txt):"
for linea in "CONTRATO DE ENCARGO PROFESIONAL" \
             "Texto con palabras en negrita, otras en cursiva y subrayadas." \
             "Párrafo alineado a la derecha" \
             "Cláusula única: el señor Muñoz abonará 1.500 € por el diseño; «el año» y Ω." \
             "Primera viñeta" "Segunda viñeta" "Primer punto" "Segundo punto"; do
    comprobar "$linea" "$dir/prueba.txt" "$linea"
done
comprobar "número 2. del segundo punto" "$dir/prueba.txt" "2. Segundo punto"
python3 -c 'import sys, zipfile; sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read("content.xml"))' \
    "$dir/prueba.odt" | sed 's/></>\n</g' > "$dir/content.xml"
echo "Formato ($dir/content.xml):"
comprobar "negrita" "$dir/content.xml" 'fo:font-weight="bold"'
comprobar "cursiva" "$dir/content.xml" 'fo:font-style="italic"'
comprobar "subrayado" "$dir/content.xml" 'style:text-underline-style="solid"'
comprobar "centrado" "$dir/content.xml" 'fo:text-align="center"'
comprobar "a la derecha" "$dir/content.xml" 'fo:text-align="end"'
comprobar "justificado" "$dir/content.xml" 'fo:text-align="justify"'
comprobar "lista" "$dir/content.xml" '<text:list '
comprobar "tamaño del título" "$dir/content.xml" 'fo:font-size="16pt"'
if [ $fallos -eq 0 ]; then
    echo "LibreOffice abre bien lo escrito: todo en su sitio."
else
    echo "$fallos comprobaciones fallidas."
fi
exit $fallos
