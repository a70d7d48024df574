#pragma once
#include "core/BaseDatos.h"

#include <QString>

#include <optional>

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

    // Por qué no hay servidor de pruebas ("" si lo hay), sin crear nada.
    static QString motivoSinServidor();
    // La batería de una prueba de pantallas se repite contra el servidor cuando CTest la lanza
    // con PLANORUM_PRUEBAS_MOTOR=postgresql (las de PRUEBAS_REPETIDAS_EN_SERVIDOR).
    static bool pedido();
    // Conecta el entorno al motor que pide CTest: el fichero, o una base propia del servidor que
    // `s` conserva mientras dure la prueba.
    static void conectarAlPedido(EntornoPrueba& e, std::optional<ServidorPrueba>& s);

    // Una prueba con las dos filas ("fichero" y "servidor", columna bool "servidor") corre sobre
    // el fichero y sobre una base propia del servidor: MOTOR_DE_LA_FILA la prepara.
    static void filasDeMotor();
    // Conecta el entorno al motor de la fila; falso si pide servidor y no lo hay.
    static bool elegirMotor(EntornoPrueba& e, std::optional<ServidorPrueba>& s);

    bool disponible() const { return m_motivo.isEmpty(); }
    QString motivo() const { return m_motivo; }
    const BaseDatos::DatosServidor& datos() const { return m_datos; }
    // Escribe el inicio.ini del entorno con motor=postgresql y esta base, y conecta.
    void elegirEn(EntornoPrueba& e) const;
    // Lo que en el fichero es BEGIN IMMEDIATE: otro puesto toma sin esperar todas las tablas para
    // escribir, y sólo puede si nadie deja abierta una transacción que haya escrito.
    bool otroPuestoPuedeGuardar() const;

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

// Entorno `e` conectado al motor de la fila de la prueba, y su servidor `s` si lo pide.
#define MOTOR_DE_LA_FILA(e, s) \
    EntornoPrueba e; \
    std::optional<ServidorPrueba> s; \
    if (!ServidorPrueba::elegirMotor(e, s)) \
        QSKIP(qPrintable(s->motivo()));
