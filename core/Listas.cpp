#include "core/Listas.h"

#include "core/Guardia.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QTreeView>
#include <QTreeWidget>

#include <algorithm>

static_assert(ROL_CLAVE_FILA == Qt::UserRole);

void ponerClaveFila(QTreeWidgetItem* fila, const QString& clave) { fila->setData(0, ROL_CLAVE_FILA, clave); }

QString claveFila(const QTreeWidgetItem* fila) { return fila->data(0, ROL_CLAVE_FILA).toString(); }

int getPosicionElementoEnLista(const QAbstractItemModel* modelo, const QString& clave)
{
    int posicion = -1;
    guardia(QStringLiteral("modFunciones"), QStringLiteral("getPosicionElementoEnLista"), [&] {
        if (!modelo)
            return;
        const int filas = modelo->rowCount();
        for (int i = 0; i < filas; ++i) {
            const QString k = modelo->index(i, 0).data(ROL_CLAVE_FILA).toString();
            if (k.compare(clave, Qt::CaseInsensitive) == 0) {
                posicion = i + 1;
                return;
            }
        }
    });
    return posicion;
}

int getPosicionElementoEnLista(const QAbstractItemView* lista, const QString& clave)
{
    return getPosicionElementoEnLista(lista ? lista->model() : nullptr, clave);
}

int getPosicionElementoEnLista(const QTreeWidget* lista, const QString& clave)
{
    return getPosicionElementoEnLista(static_cast<const QAbstractItemView*>(lista), clave);
}

bool estaEnListview(const QAbstractItemModel* modelo, const QString& clave)
{
    return getPosicionElementoEnLista(modelo, clave) > 0;
}

bool estaEnListview(const QAbstractItemView* lista, const QString& clave)
{
    return getPosicionElementoEnLista(lista, clave) > 0;
}

bool estaEnListview(const QTreeWidget* lista, const QString& clave)
{
    return getPosicionElementoEnLista(lista, clave) > 0;
}

int getListIndex(const QComboBox* combo, const QString& texto)
{
    int indice = -1;
    guardia(QStringLiteral("modFunciones"), QStringLiteral("getListIndex"), [&] {
        const QString buscado = texto.toUpper();
        for (int i = 0; i < combo->count(); ++i) {
            if (combo->itemText(i).toUpper() == buscado) {
                indice = i;
                return;
            }
        }
    });
    return indice;
}

void ajustarColumnas(QTreeView* lista, const QList<int>& anchosDiseno)
{
    QHeaderView* cabecera = lista->header();
    cabecera->setResizeContentsPrecision(300);
    const bool hayFilas = lista->model() && lista->model()->rowCount() > 0;
    for (int i = 0; i < cabecera->count(); ++i) {
        const int diseno = anchosDiseno.value(i, 0);
        const int titulo = cabecera->sectionSizeHint(i);
        const int contenido = hayFilas ? static_cast<QAbstractItemView*>(lista)->sizeHintForColumn(i) : 0;
        lista->setColumnWidth(i, std::max(diseno, std::min(ANCHO_MAXIMO_COLUMNA, std::max(titulo, contenido))));
    }
}
