#include "tools/TrabajoCopia.h"

#include "core/Log.h"
#include "core/Mensajes.h"

#include <QApplication>
#include <QProgressBar>
#include <QWidget>

TrabajoCopia::TrabajoCopia(QWidget* pantalla, QProgressBar* barra)
    : m_pantalla(pantalla), m_barra(barra), m_foco(QApplication::focusWidget())
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_pantalla->setEnabled(false);
    m_barra->setValue(0);
    m_barra->show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

TrabajoCopia::~TrabajoCopia()
{
    if (m_barra) {
        m_barra->setValue(0);
        m_barra->hide();
    }
    if (m_pantalla)
        m_pantalla->setEnabled(true);
    if (m_foco)
        m_foco->setFocus();
    QApplication::restoreOverrideCursor();
}

void prepararBarra(QProgressBar* barra)
{
    QSizePolicy p = barra->sizePolicy();
    p.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(p);
    barra->setRange(0, 100);
    barra->hide();
}

Almacen::Latido TrabajoCopia::latido()
{
    return [this](int porcentaje) {
        if (m_barra && porcentaje >= 0)
            m_barra->setValue(porcentaje);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
}

void avisarBaseEnUso(const ErrorPrograma& e)
{
    Mensajes::aviso(QStringLiteral("No se puede restaurar la base de datos pues está siendo usada por otras personas.") + QStringLiteral("\n")
                    + QStringLiteral("Espere a que se libere la base de datos e inicie de nuevo el proceso de restauración"));
    escribirLog(e, NOMBRE_PROGRAMA, QStringLiteral("frmRestaurarCopiaSeguridad"), QStringLiteral("cmd_RestaurarCopia_Click"), 0, false);
}
