#pragma once
#include "reports/DisenoInforme.h"

#include <QDateTime>
#include <QHash>
#include <QSqlDatabase>
#include <QVariant>

class QPainter;
class QPrinter;
class QPagedPaintDevice;

// Filas que recibe un informe, leídas enteras de una consulta (el recordset entregado).
class ConjuntoFilas {
public:
    ConjuntoFilas() = default;
    ConjuntoFilas(QStringList campos, QList<QVariantList> filas);
    // Lee todas las filas de una sentencia con sus valores enlazados; lanza ErrorPrograma.
    static ConjuntoFilas leer(QSqlDatabase db, const QString& sql, const QVariantList& valores = {});

    int indice(const QString& campo) const { return m_indices.value(campo.toLower(), -1); }  // sin distinguir mayúsculas
    QVariant valor(int fila, const QString& campo) const;
    int numero() const { return int(m_filas.size()); }
    const QStringList& campos() const { return m_campos; }

private:
    QStringList m_campos;
    QList<QVariantList> m_filas;
    QHash<QString, int> m_indices;
};

// Un trazo de una página compuesta, en milímetros desde la esquina del papel.
struct TrazoInforme {
    enum Tipo { Texto, Caja, Linea, Imagen, MarcaX, NumeroPagina };
    Tipo tipo = Texto;
    QRectF rect;
    QString texto;
    int fuente = 0;
    int banderas = 0;
    double grosor = 0;
    QColor color, relleno;
    bool recortar = false;  // una sola línea: se acorta con "…" si no cabe
    bool justificar = false;  // línea de un párrafo justificado: el hueco se reparte entre palabras
};

struct PaginaInforme {
    QList<TrazoInforme> trazos;
};

// El objeto informe: diseño, filas (principal y de subinformes), valores propios, páginas.
class DocumentoInforme {
public:
    explicit DocumentoInforme(std::shared_ptr<const DisenoInforme> diseno);

    const DisenoInforme& diseno() const { return *m_diseno; }
    QString nombre() const { return m_diseno->nombre; }

    // Database.SetDataSource y OpenSubreport(nombre).Database.SetDataSource.
    void asignarDatos(ConjuntoFilas filas);
    void asignarDatosSubinforme(const QString& subinforme, ConjuntoFilas filas);
    const ConjuntoFilas& datos() const { return m_filas; }
    bool tieneDatos() const { return m_conDatos; }

    // Valores que el diseño cita con parametro="..."; FechaImpresion se pone al crear el informe.
    void ponerParametro(const QString& nombre, const QVariant& valor);
    QVariant parametro(const QString& nombre) const { return m_parametros.value(nombre.toLower()); }

    int numeroPaginas();
    const PaginaInforme& pagina(int indice);
    QPageLayout disenoPagina() const;

    // Pinta una página en un dispositivo cuyo origen es la esquina del papel.
    void pintarPagina(QPainter& p, int indice, double pxPorMm);
    // Todas las páginas (o las del intervalo pedido en la impresora, de 1 en adelante).
    void pintar(QPagedPaintDevice* dispositivo, int desde = 0, int hasta = 0);
    void imprimir(QPrinter* impresora);
    // PDF A4 con las fuentes incrustadas; lanza ErrorPrograma si no se puede escribir.
    void exportarPDF(const QString& ruta);

private:
    void componer();

    std::shared_ptr<const DisenoInforme> m_diseno;
    ConjuntoFilas m_filas;
    bool m_conDatos = false;
    QHash<QString, ConjuntoFilas> m_subinformes;
    QHash<QString, QVariant> m_parametros;
    QList<PaginaInforme> m_paginas;
    bool m_compuesto = false;
    QHash<QString, QImage> m_imagenes;
};
