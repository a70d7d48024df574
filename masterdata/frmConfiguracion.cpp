#include "masterdata/frmConfiguracion.h"

#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

// Provisional: las pestañas existen y el arranque puede abrir "Parámetros"; sus datos llegan
// con la pantalla completa.
frmConfiguracion::frmConfiguracion(QWidget* padre) : Pantalla(padre), mst_1(new QTabWidget(this))
{
    setObjectName(QStringLiteral("frmConfiguracion"));
    setWindowTitle(QStringLiteral("Configuración"));
    mst_1->setObjectName(QStringLiteral("mst_1"));
    for (const char* t : {"Arquitectos y sociedad", "Parámetros", "Costes de referencia"}) {
        auto* hoja = new QWidget;
        auto* l = new QVBoxLayout(hoja);
        l->addWidget(new QLabel(QStringLiteral("Esta pestaña aún no está disponible.")));
        mst_1->addTab(hoja, QString::fromUtf8(t));
    }
    auto* l = new QVBoxLayout(this);
    l->addWidget(mst_1);
    resize(640, 420);
}

bool frmConfiguracion::disponible() { return false; }

frmConfiguracion* frmConfiguracion::abrir(int pestana)
{
    frmConfiguracion* f = Pantallas::cargada<frmConfiguracion>();
    if (!f)
        f = new frmConfiguracion;
    Pantallas::mostrar(f);
    f->mst_1->setCurrentIndex(pestana);
    return f;
}
