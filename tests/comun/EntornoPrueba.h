#pragma once
#include "core/Mensajes.h"

#include <QStringList>
#include <QTemporaryDir>

// Directorio de programa temporal para una prueba: carpetas de la instalación, una copia nueva
// de la base de datos entregada en datos/, inicio.ini apuntando a ella, y contestadores de los
// cuadros de mensaje, de los diálogos de carpetas y de ficheros y de la apertura de documentos.
class EntornoPrueba {
public:
    explicit EntornoPrueba(bool conIni = true, bool conBaseDatos = true);
    ~EntornoPrueba();

    QString directorio() const;          // sin separador final
    QString carpetaDatos() const;        // con separador final
    QString ficheroBD() const;
    QString ficheroIni() const;
    void escribirIni(const QString& texto);
    QString leerLog() const;
    int entradasLog() const;
    void conectar();                     // fija rutaBD y cadenaConexion

    // Cuadros de mensaje: se registran; las respuestas se toman en orden, y sin respuesta
    // pendiente se pulsa el botón por defecto.
    QList<Mensajes::Cuadro> cuadros;
    QList<Mensajes::Respuesta> respuestas;
    QStringList textos() const;
    void limpiarCuadros() { cuadros.clear(); }

    // Diálogo de carpetas: respuestas en orden ("" es cancelar); títulos pedidos.
    QStringList carpetas;
    QStringList titulosCarpeta;
    // Diálogos de abrir y de guardar fichero: respuestas en orden ("" es cancelar); títulos y filtros pedidos.
    QStringList ficheros;
    QStringList titulosFichero;
    QStringList filtrosFichero;
    // Apertura de documentos: resultado a devolver y rutas pedidas.
    int resultadoAbrir = 42;
    QStringList abiertos;

private:
    QTemporaryDir m_dir;
};

// Espera a que se procesen los borrados diferidos de pantallas cerradas.
void procesarEventos();

// Otro puesto, con su propia conexión y sin esperar al cerrojo, escribe una fila y la confirma.
// Falso si la base de datos estaba bloqueada por una transacción abierta.
bool otroPuestoPuedeGuardar(const QString& ficheroBD);
