#pragma once
#include "core/Pantallas.h"

#include <QPointer>
#include <memory>

class QTreeWidget;
class QTreeWidgetItem;
namespace Ui {
class frmOpcionesArquitecto;
}

// Porcentaje de participación de una fila de la lista de arquitectos del proyecto, y la marca de
// propia sociedad. Trabaja directamente sobre la lista; no tiene botón de cancelar.
class frmOpcionesArquitecto : public Dialogo {
    Q_OBJECT
public:
    frmOpcionesArquitecto(QTreeWidget* lvw_Arquitectos, QTreeWidgetItem* fila, QWidget* padre = nullptr);
    ~frmOpcionesArquitecto() override;

    // Porcentaje que tenía la fila al abrir el diálogo.
    QString porcentajeOriginal;

    void chk_Sociedad_Click();
    void cmd_Aceptar_Click();

    QTreeWidgetItem* fila() const { return m_fila; }

private:
    std::unique_ptr<Ui::frmOpcionesArquitecto> ui;
    QPointer<QTreeWidget> m_lista;
    QTreeWidgetItem* m_fila;
};

// Doble clic en lvw_Arquitectos: comprueba la lista y la selección y prepara el diálogo con la
// fila elegida (sin enseñarlo). nullptr si no procede (ya avisado).
frmOpcionesArquitecto* prepararOpcionesArquitecto(QTreeWidget* lvw_Arquitectos);
// Lo anterior y el diálogo modal, centrado en la pantalla principal.
void abrirOpcionesArquitecto(QTreeWidget* lvw_Arquitectos);

// ItemCheck de lvw_Arquitectos: la propia sociedad no puede marcarse como perteneciente a ella
// misma; avisa y quita la marca. Devuelve false si ha rechazado la marca.
bool lvw_Arquitectos_ItemCheck(QTreeWidgetItem* fila);
// Conecta la regla anterior a la lista (cambios de la casilla de la columna 0).
void conectarItemCheckArquitectos(QTreeWidget* lvw_Arquitectos);
