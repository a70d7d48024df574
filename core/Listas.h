#pragma once
#include <QList>
#include <QString>

class QAbstractItemModel;
class QAbstractItemView;
class QComboBox;
class QTreeView;
class QTreeWidget;
class QTreeWidgetItem;

// Clave de cada fila de una lista: "K" + la clave del registro, guardada en la columna 0 con
// el rol ROL_CLAVE_FILA (Qt::UserRole). El código se recupera quitando el primer carácter.
constexpr int ROL_CLAVE_FILA = 0x0100;  // Qt::UserRole

void ponerClaveFila(QTreeWidgetItem* fila, const QString& clave);
QString claveFila(const QTreeWidgetItem* fila);

// ¿Hay una fila cuya clave coincide, sin distinguir mayúsculas?
bool estaEnListview(const QAbstractItemModel* modelo, const QString& clave);
bool estaEnListview(const QAbstractItemView* lista, const QString& clave);
bool estaEnListview(const QTreeWidget* lista, const QString& clave);

// Posición, desde 1, de la primera fila con esa clave; -1 si no hay.
int getPosicionElementoEnLista(const QAbstractItemModel* modelo, const QString& clave);
int getPosicionElementoEnLista(const QAbstractItemView* lista, const QString& clave);
int getPosicionElementoEnLista(const QTreeWidget* lista, const QString& clave);

// Cada columna, al menos de su ancho de diseño (en píxeles, si lo tiene) y nunca más estrecha que
// su título o que lo que hay en las primeras filas: ni "Colegiad" ni "2024-…". Un texto muy largo
// no se lleva la lista: el ancho por contenido no pasa de ANCHO_MAXIMO_COLUMNA.
constexpr int ANCHO_MAXIMO_COLUMNA = 420;
void ajustarColumnas(QTreeView* lista, const QList<int>& anchosDiseno = {});

// Índice, desde 0, del primer elemento igual en mayúsculas ("Leon" encuentra "LEON", no "León"); -1 si no hay.
int getListIndex(const QComboBox* combo, const QString& texto);
