#pragma once
#include "reports/CodigoDetalle.h"

#include <QColor>
#include <QList>
#include <QMarginsF>
#include <QPageLayout>
#include <QRectF>
#include <QString>
#include <memory>
#include <utility>

// Diseño de un informe, leído de su fichero XML (uno por informe). Medidas en milímetros,
// posiciones absolutas dentro de su banda.
enum class TipoElemento { Texto, Campo, Caja, Linea, Marca, Imagen, NumeroPagina, FechaImpresion, Subtabla };

struct FuenteInforme {
    QString familia;
    double tamano = 9;
    bool negrita = false;
    bool cursiva = false;
    bool operator==(const FuenteInforme&) const = default;
};

struct ElementoInforme {
    TipoElemento tipo = TipoElemento::Texto;
    QString nombre;                 // para el código de detalle
    QRectF rect;                    // en la línea: de topLeft a bottomRight
    QString texto;                  // texto fijo; en el número de página, el patrón con {N} y {M}
    QString campo;                  // campo de la fila
    QStringList campos;             // varios campos unidos por el separador (los vacíos no cuentan)
    QString separador = QStringLiteral(" / ");
    QString parametro;              // valor del informe (NombreEstudio, FechaImpresion...)
    QString formato, prefijo, sufijo;
    int fuente = 0;
    Qt::Alignment alineacion = Qt::AlignLeft | Qt::AlignVCenter;
    bool ajuste = false;            // texto en varias líneas dentro de su caja
    bool crecer = false;            // campo en varias líneas que crece hacia abajo con su texto:
                                    // lo que hay debajo en la banda baja con él, y el texto sigue
                                    // en las páginas siguientes si no cabe (sin subtablas en la banda)
    bool suprimirSiCero = false;
    bool suprimirSiVacio = false;   // con prefijo o sufijo: no se imprimen si el valor falta
    double grosor = 0.2;            // de líneas, cajas y bordes
    double borde = 0;               // borde de un texto o campo
    QColor color = Qt::black;
    QColor relleno;                 // inválido: sin relleno
    bool caja = true;               // la marca dibuja su caja
    QString imagen;                 // ruta (también de recursos)
    int subtabla = -1;
};

struct BandaInforme {
    double alto = 0;
    QList<ElementoInforme> elementos;
    QList<std::pair<QString, ArgumentosCodigo>> codigos;  // código de detalle, en orden
    QColor cebra;                   // relleno de las filas pares del detalle
    bool saltoDespues = false;      // cada fila en su página (impresos)
    bool vacia() const { return alto <= 0 && elementos.isEmpty(); }
};

// Tabla secundaria dentro de una banda: su cabecera y una fila por fila del segundo origen.
struct SubtablaInforme {
    QString origen;                 // "Subreport1", "Subreport2"...
    double x = 0, y = 0;
    BandaInforme cabecera, fila;
};

struct DisenoInforme {
    QString nombre, titulo;
    QString datos;                  // tabla de la que salen las filas (la temporal de un impreso)
    bool impreso = false;           // impreso del Colegio: sin filas se imprime una vez en blanco
    QPageSize::PageSizeId tamano = QPageSize::A4;
    QPageLayout::Orientation orientacion = QPageLayout::Portrait;
    QMarginsF margenes{10, 10, 10, 10};  // izquierda, arriba, derecha, abajo
    QList<FuenteInforme> fuentes;
    BandaInforme cabeceraPagina, cabeceraInforme, cabeceraColumnas, detalle, pieInforme, piePagina;
    QList<SubtablaInforme> subtablas;

    QSizeF tamanoPapel() const;     // en milímetros, con la orientación
};

// Lee un diseño; lanza ErrorPrograma si el fichero falta o está mal escrito.
std::shared_ptr<const DisenoInforme> leerDiseno(const QString& ruta);
std::shared_ptr<const DisenoInforme> leerDisenoXml(const QByteArray& xml, const QString& origen = QString());
