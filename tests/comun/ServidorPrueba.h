#pragma once
#include "core/BaseDatos.h"

#include <QString>

class EntornoPrueba;

// Una base propia en el servidor PostgreSQL de las pruebas (el que arranca CTest y anuncia en
// PLANORUM_PG_SERVIDOR, _PUERTO, _USUARIO y _BASE), con el esquema del programa; se borra al
// terminar. Sin servidor, disponible() es falso y motivo() dice por qué.
class ServidorPrueba {
public:
    ServidorPrueba();
    ~ServidorPrueba();
    ServidorPrueba(const ServidorPrueba&) = delete;
    ServidorPrueba& operator=(const ServidorPrueba&) = delete;

    bool disponible() const { return m_motivo.isEmpty(); }
    QString motivo() const { return m_motivo; }
    const BaseDatos::DatosServidor& datos() const { return m_datos; }
    // Escribe el inicio.ini del entorno con motor=postgresql y esta base, y conecta.
    void elegirEn(EntornoPrueba& e) const;

private:
    BaseDatos::DatosServidor m_datos;
    QString m_motivo;
    QString m_administracion;  // base de la que se crea y se borra la propia
};

// Salta la prueba si no hay servidor.
#define REQUIERE_SERVIDOR(s) \
    do { \
        if (!(s).disponible()) \
            QSKIP(qPrintable((s).motivo())); \
    } while (false)
