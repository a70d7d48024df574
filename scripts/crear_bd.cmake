# Crea la base de datos vacía de la entrega a partir del esquema SQL.
# Se escribe en un fichero temporal y se renombra, para no dejar nunca una base a medias.
find_program(SQLITE3 sqlite3 REQUIRED)
get_filename_component(carpeta ${SALIDA} DIRECTORY)
file(MAKE_DIRECTORY ${carpeta})
set(temporal ${SALIDA}.tmp)
file(REMOVE ${temporal})
execute_process(COMMAND ${SQLITE3} -bail ${temporal} INPUT_FILE ${ESQUEMA} RESULT_VARIABLE resultado ERROR_VARIABLE error)
if(NOT resultado EQUAL 0)
  file(REMOVE ${temporal})
  message(FATAL_ERROR "El esquema no se ha podido cargar: ${error}")
endif()
file(RENAME ${temporal} ${SALIDA})
