# Monta el directorio del programa: carpetas de la instalación, documentos entregados,
# base de datos vacía e inicio.ini apuntando a datos/ y a las plantillas de Contratos/, rutas
# relativas al directorio del programa para que se pueda copiar o mover entero. Lo que ya existe
# de datos no se toca.
foreach(carpeta Contratos Excel Documentos ayuda Logs datos)
  file(MAKE_DIRECTORY ${DESTINO}/${carpeta})
endforeach()
foreach(carpeta Contratos Excel Documentos ayuda)
  if(EXISTS ${ORIGEN}/${carpeta})
    file(COPY ${ORIGEN}/${carpeta}/ DESTINATION ${DESTINO}/${carpeta}
      PATTERN fuentes EXCLUDE PATTERN *.cpp EXCLUDE PATTERN *.py EXCLUDE)
  endif()
endforeach()
if(NOT EXISTS ${DESTINO}/datos/Usuarios.qst)
  file(COPY_FILE ${PLANTILLA_BD} ${DESTINO}/datos/Usuarios.qst)
endif()
# Plantillas de los contratos, relativas al directorio del programa como la base de datos.
set(plantillas "[PLANTILLAS_CONTRATOS]\r\n")
set(numero 0)
foreach(plantilla Nota_encargo Tiempo_retribuido Trabajos_de_edificacion Trabajos_de_urbanismo Trabajos_especiales)
  math(EXPR numero "${numero} + 1")
  file(TO_NATIVE_PATH "Contratos/${plantilla}.doc" ruta_plantilla)
  string(APPEND plantillas "P${numero}=${ruta_plantilla}\r\n")
endforeach()
if(NOT EXISTS ${DESTINO}/inicio.ini)
  file(TO_NATIVE_PATH "datos/" ruta)
  file(WRITE ${DESTINO}/inicio.ini
    "[BD]\r\nruta=${ruta}\r\nruta_instalacion=\r\n[Opciones]\r\ninicio=1\r\ncopia=0\r\n[EXPORTACION]\r\nrutaExcel=\r\nrutaPdf=\r\n${plantillas}")
else()
  # Un inicio.ini montado antes de haber contratos recibe sólo la sección que le falta; uno en
  # UTF-16 (guardado así por un editor) se deja como está.
  file(READ ${DESTINO}/inicio.ini ajustes)
  file(READ ${DESTINO}/inicio.ini inicio LIMIT 2 HEX)
  string(TOUPPER "${ajustes}" ajustes)
  string(FIND "${ajustes}" "[PLANTILLAS_CONTRATOS]" seccion)
  if(seccion EQUAL -1 AND NOT inicio STREQUAL "fffe" AND NOT inicio STREQUAL "feff")
    if(NOT ajustes STREQUAL "" AND NOT ajustes MATCHES "\n$")
      file(APPEND ${DESTINO}/inicio.ini "\r\n")
    endif()
    file(APPEND ${DESTINO}/inicio.ini "${plantillas}")
  endif()
endif()
