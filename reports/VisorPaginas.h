#pragma once
#include <QAbstractScrollArea>
#include <QCache>
#include <QImage>
#include <QSizeF>

#include <functional>

class QPainter;

// Las páginas de un informe una debajo de otra. Sólo se dibujan las que se ven (y unas pocas
// quedan guardadas), así que la primera aparece en seguida aunque el informe tenga cientos.
class VisorPaginas : public QAbstractScrollArea {
    Q_OBJECT
public:
    // De dónde salen las páginas: cuántas hay, su tamaño en milímetros y cómo se pinta una a una
    // escala dada (píxeles por milímetro).
    struct Origen {
        std::function<int()> numeroPaginas;
        QSizeF tamanoMm;
        std::function<void(QPainter&, int, double)> pintar;
    };

    explicit VisorPaginas(QWidget* padre = nullptr);

    void ponerOrigen(Origen origen);

    int numeroPaginas() const { return m_paginas; }
    // De 1 en adelante: la que ocupa el centro de la vista.
    int paginaActual() const;
    void irAPagina(int pagina);

    void acercar();
    void alejar();
    void ajustarAncho();
    double escala() const { return m_escala; }
    // Páginas dibujadas desde que se puso el origen (para las medidas y las pruebas).
    int paginasDibujadas() const { return m_dibujadas; }

signals:
    void paginaCambiada();

protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    QSize tamanoPagina() const;
    int altoConSeparacion() const;
    void cambiarEscala(double escala, bool ajustar);
    void recolocar();
    QImage imagen(int indice);

    Origen m_origen;
    int m_paginas = 0;
    double m_escala = 2.0;  // píxeles por milímetro
    bool m_ajustarAncho = true;
    int m_dibujadas = 0;
    QCache<int, QImage> m_imagenes;
};
