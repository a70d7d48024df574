#include "search/ModeloResultados.h"

#include "core/Cotejo.h"

#include <algorithm>
#include <numeric>

ModeloResultados::ModeloResultados(QObject* padre) : QAbstractTableModel(padre) { m_inicio.push_back(0); }

void ModeloResultados::setTitulos(const QStringList& titulos)
{
    m_titulos = titulos;
    m_ancho = static_cast<int>(titulos.size()) + 1;
    vaciar();
}

void ModeloResultados::setCasillas(bool casillas) { m_casillas = casillas; }

void ModeloResultados::vaciar()
{
    beginResetModel();
    m_texto.clear();
    m_texto.shrink_to_fit();
    m_inicio.assign(1, 0);
    m_orden.clear();
    m_marcas.clear();
    m_filas = 0;
    olvidarClaves();
    endResetModel();
}

void ModeloResultados::olvidarClaves()
{
    m_claves.clear();
    m_claves.shrink_to_fit();
    m_columnaClaves = -1;
}

void ModeloResultados::empezarCarga()
{
    beginResetModel();
    m_texto.clear();
    m_inicio.assign(1, 0);
    m_orden.clear();
    m_marcas.clear();
    m_filas = 0;
    olvidarClaves();
}

void ModeloResultados::empezarFila()
{
    ++m_filas;
    m_marcas.push_back(0);
}

void ModeloResultados::agregarCelda(const char* texto, size_t longitud)
{
    m_texto.append(texto, longitud);
    m_inicio.push_back(static_cast<uint32_t>(m_texto.size()));
}

void ModeloResultados::terminarCarga()
{
    m_orden.resize(m_filas);
    std::iota(m_orden.begin(), m_orden.end(), 0);
    m_texto.shrink_to_fit();
    m_inicio.shrink_to_fit();
    endResetModel();
}

void ModeloResultados::agregarFila(const FilaResultado& fila)
{
    olvidarClaves();
    beginInsertRows({}, m_filas, m_filas);
    const QByteArray c = fila.clave.toUtf8();
    m_texto.append(c.constData(), c.size());
    m_inicio.push_back(static_cast<uint32_t>(m_texto.size()));
    for (int i = 1; i < m_ancho; ++i) {
        const QByteArray t = i - 1 < fila.textos.size() ? fila.textos.at(i - 1).toUtf8() : QByteArray();
        m_texto.append(t.constData(), t.size());
        m_inicio.push_back(static_cast<uint32_t>(m_texto.size()));
    }
    m_marcas.push_back(fila.marcada ? 1 : 0);
    m_orden.push_back(m_filas);
    ++m_filas;
    endInsertRows();
}

std::string_view ModeloResultados::celda(int filaAlmacen, int celda) const
{
    const size_t i = static_cast<size_t>(filaAlmacen) * m_ancho + celda;
    return std::string_view(m_texto.data() + m_inicio[i], m_inicio[i + 1] - m_inicio[i]);
}

int ModeloResultados::rowCount(const QModelIndex& padre) const { return padre.isValid() ? 0 : m_filas; }

int ModeloResultados::columnCount(const QModelIndex& padre) const { return padre.isValid() ? 0 : m_ancho - 1; }

QVariant ModeloResultados::data(const QModelIndex& indice, int rol) const
{
    if (!indice.isValid() || indice.row() >= m_filas)
        return {};
    if (rol == Qt::DisplayRole || rol == Qt::ToolTipRole)
        return texto(indice.row(), indice.column());
    if (rol == Qt::CheckStateRole && m_casillas && indice.column() == 0)
        return marcada(indice.row()) ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool ModeloResultados::setData(const QModelIndex& indice, const QVariant& valor, int rol)
{
    if (rol != Qt::CheckStateRole || !m_casillas || !indice.isValid() || indice.column() != 0)
        return false;
    setMarcada(indice.row(), valor.toInt() == Qt::Checked);
    return true;
}

QVariant ModeloResultados::headerData(int seccion, Qt::Orientation orientacion, int rol) const
{
    if (orientacion == Qt::Horizontal && rol == Qt::DisplayRole && seccion >= 0 && seccion < m_titulos.size())
        return m_titulos.at(seccion);
    return {};
}

Qt::ItemFlags ModeloResultados::flags(const QModelIndex& indice) const
{
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (m_casillas && indice.column() == 0)
        f |= Qt::ItemIsUserCheckable;
    return f;
}

void ModeloResultados::sort(int columna, Qt::SortOrder orden)
{
    if (columna < 0 || columna >= m_ancho - 1)
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList antes = persistentIndexList();
    std::vector<int> filasAntes;
    filasAntes.reserve(antes.size());
    for (const QModelIndex& i : antes)
        filasAntes.push_back(m_orden[i.row()]);

    // Claves binarias precalculadas una vez por columna: luego se ordena comparando bytes.
    if (m_columnaClaves != columna) {
        m_claves.assign(m_filas, std::string());
        for (int f = 0; f < m_filas; ++f)
            m_claves[f] = Cotejo::claveOrden(celda(f, columna + 1));
        m_columnaClaves = columna;
    }
    const std::vector<std::string>& claves = m_claves;
    if (orden == Qt::AscendingOrder)
        std::stable_sort(m_orden.begin(), m_orden.end(), [&](int a, int b) { return claves[a] < claves[b]; });
    else
        std::stable_sort(m_orden.begin(), m_orden.end(), [&](int a, int b) { return claves[b] < claves[a]; });

    std::vector<int> posicion(m_filas);
    for (int v = 0; v < m_filas; ++v)
        posicion[m_orden[v]] = v;
    QModelIndexList despues;
    despues.reserve(antes.size());
    for (int i = 0; i < antes.size(); ++i)
        despues << index(posicion[filasAntes[i]], antes.at(i).column());
    changePersistentIndexList(antes, despues);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

QString ModeloResultados::clave(int fila) const
{
    if (fila < 0 || fila >= m_filas)
        return {};
    const std::string_view v = celda(m_orden[fila], 0);
    return QString::fromUtf8(v.data(), static_cast<qsizetype>(v.size()));
}

QString ModeloResultados::texto(int fila, int columna) const
{
    if (fila < 0 || fila >= m_filas || columna < 0 || columna >= m_ancho - 1)
        return {};
    const std::string_view v = celda(m_orden[fila], columna + 1);
    return QString::fromUtf8(v.data(), static_cast<qsizetype>(v.size()));
}

bool ModeloResultados::marcada(int fila) const { return fila >= 0 && fila < m_filas && m_marcas[m_orden[fila]]; }

void ModeloResultados::setMarcada(int f, bool marcada)
{
    if (f < 0 || f >= m_filas)
        return;
    m_marcas[m_orden[f]] = marcada ? 1 : 0;
    const QModelIndex i = index(f, 0);
    emit dataChanged(i, i, {Qt::CheckStateRole});
}

FilaResultado ModeloResultados::fila(int f) const
{
    FilaResultado r;
    r.clave = clave(f);
    for (int c = 0; c < m_ancho - 1; ++c)
        r.textos << texto(f, c);
    r.marcada = marcada(f);
    return r;
}

QList<FilaResultado> ModeloResultados::filas() const
{
    QList<FilaResultado> r;
    r.reserve(m_filas);
    for (int f = 0; f < m_filas; ++f)
        r << fila(f);
    return r;
}

size_t ModeloResultados::bytesOcupados() const
{
    return m_texto.capacity() + m_inicio.capacity() * sizeof(uint32_t) + m_orden.capacity() * sizeof(int)
         + m_marcas.capacity() + m_claves.capacity() * sizeof(std::string)
         + std::accumulate(m_claves.begin(), m_claves.end(), size_t(0),
                           [](size_t t, const std::string& c) { return t + c.capacity(); });
}
