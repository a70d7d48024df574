#pragma once
#include <QAbstractTableModel>
#include <QStringList>

#include <string>
#include <string_view>
#include <vector>

// Una fila de la lista: clave (sin la "K"), texto y subelementos, y si está marcada.
struct FilaResultado {
    QString clave;
    QStringList textos;
    bool marcada = false;
};

// Modelo de la lista de resultados: todos los textos en un solo bloque UTF-8 con sus
// posiciones, para que cien mil filas ocupen poco y se ordenen deprisa.
class ModeloResultados : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModeloResultados(QObject* padre = nullptr);

    void setTitulos(const QStringList& titulos);
    void setCasillas(bool casillas);
    bool casillas() const { return m_casillas; }

    // Carga: vaciar, luego por cada fila empezarFila y una celda por columna (la clave primero).
    void vaciar();
    void empezarCarga();
    void empezarFila();
    void agregarCelda(const char* texto, size_t longitud);
    void agregarCelda(std::string_view texto) { agregarCelda(texto.data(), texto.size()); }
    void terminarCarga();

    // Añade una fila ya hecha al final (la devolución de una ficha nueva).
    void agregarFila(const FilaResultado& fila);

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& indice, const QVariant& valor, int rol = Qt::EditRole) override;
    QVariant headerData(int seccion, Qt::Orientation orientacion, int rol = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;
    // Orden por el texto que se ve, con el cotejo español.
    void sort(int columna, Qt::SortOrder orden = Qt::AscendingOrder) override;

    // Datos de la fila visible "fila".
    QString clave(int fila) const;
    QString texto(int fila, int columna) const;
    bool marcada(int fila) const;
    void setMarcada(int fila, bool marcada);
    FilaResultado fila(int fila) const;
    QList<FilaResultado> filas() const;

    // Memoria aproximada que ocupan los datos.
    size_t bytesOcupados() const;

private:
    std::string_view celda(int filaAlmacen, int celda) const;
    void olvidarClaves();

    QStringList m_titulos;
    bool m_casillas = false;
    int m_ancho = 1;                   // celdas por fila: clave y columnas
    std::string m_texto;               // todas las celdas seguidas
    std::vector<uint32_t> m_inicio;    // inicio de cada celda, más el final
    std::vector<int> m_orden;          // fila visible -> fila almacenada
    std::vector<uint8_t> m_marcas;
    int m_filas = 0;
    std::vector<std::string> m_claves;  // claves de orden de la última columna ordenada
    int m_columnaClaves = -1;
};
