#include "tools/TrabajoCopia.h"

#include "core/BaseDatos.h"
#include "core/Log.h"
#include "core/Mensajes.h"

#include <QApplication>
#include <QPointer>
#include <QProgressBar>
#include <QWidget>

namespace {

// Mientras dura el trabajo: cursor de espera, pantalla deshabilitada, barra a la vista.
class PantallaOcupada {
public:
    PantallaOcupada(QWidget* pantalla, QProgressBar* barra)
        : m_pantalla(pantalla), m_barra(barra), m_foco(QApplication::focusWidget())
    {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        m_pantalla->setEnabled(false);
        m_barra->setValue(0);
        m_barra->show();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }

    ~PantallaOcupada()
    {
        if (m_barra)
            m_barra->hide();
        if (m_pantalla)
            m_pantalla->setEnabled(true);
        if (m_foco)
            m_foco->setFocus();
        QApplication::restoreOverrideCursor();
    }

    PantallaOcupada(const PantallaOcupada&) = delete;
    PantallaOcupada& operator=(const PantallaOcupada&) = delete;

    Almacen::Latido latido()
    {
        return [this](int porcentaje) {
            if (m_barra && porcentaje >= 0)
                m_barra->setValue(porcentaje);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        };
    }

private:
    QPointer<QWidget> m_pantalla;
    QPointer<QProgressBar> m_barra;
    QPointer<QWidget> m_foco;
};

}  // namespace

void prepararBarra(QProgressBar* barra)
{
    QSizePolicy p = barra->sizePolicy();
    p.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(p);
    barra->setRange(0, 100);
    barra->hide();
}

bool trabajarSobreLaBase(QWidget* pantalla, QProgressBar* barra, const std::function<void(const Almacen::Latido&)>& trabajo)
{
    BaseDatos::cerrar();
    ErrorPrograma enUso;
    try {
        PantallaOcupada ocupada(pantalla, barra);
        trabajo(ocupada.latido());
        return true;
    } catch (const ErrorPrograma& e) {
        if (e.numero != ERROR_BD_EN_USO)
            throw;
        enUso = e;
    }
    // El aviso sale con el cerrojo ya soltado y la pantalla de nuevo disponible.
    Mensajes::aviso(QStringLiteral("No se puede restaurar la base de datos pues está siendo usada por otras personas.") + QStringLiteral("\n")
                    + QStringLiteral("Espere a que se libere la base de datos e inicie de nuevo el proceso de restauración"));
    escribirLog(enUso, NOMBRE_PROGRAMA, QStringLiteral("frmRestaurarCopiaSeguridad"), QStringLiteral("cmd_RestaurarCopia_Click"), 0, Mostrar::No);
    return false;
}
