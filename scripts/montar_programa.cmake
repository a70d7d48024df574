# Monta el directorio del programa: carpetas de la instalación, documentos entregados,
# base de datos vacía e inicio.ini apuntando a datos/, relativa al directorio del programa para que
# se pueda copiar o mover entero. Lo que ya existe de datos no se toca.
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
if(NOT EXISTS ${DESTINO}/inicio.ini)
  file(TO_NATIVE_PATH "datos/" ruta)
  file(WRITE ${DESTINO}/inicio.ini
    "[BD]\r\nruta=${ruta}\r\nruta_instalacion=\r\n[Opciones]\r\ninicio=1\r\ncopia=0\r\n[EXPORTACION]\r\nrutaExcel=\r\nrutaPdf=\r\n")
endif()
