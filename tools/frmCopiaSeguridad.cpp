#include "tools/frmCopiaSeguridad.h"

#include "core/modFunciones.h"
#include "core/Programa.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmCopiaSeguridad::frmCopiaSeguridad(QWidget* padre) : Pantalla(padre), chk_RecordarCopia(new QCheckBox(this))
{
    setObjectName(QStringLiteral("frmCopiaSeguridad"));
    setWindowTitle(QStringLiteral("Realizar copia de seguridad"));
    chk_RecordarCopia->setObjectName(QStringLiteral("chk_RecordarCopia"));
    auto* explicacion = new QLabel(QStringLiteral("Antes de salir del programa, se le puede recordar el hacer una copia de seguridad. "
                                                  "Si desea este recordatorio, marque la siguiente casilla:"));
    explicacion->setWordWrap(true);
    auto* salir = new QPushButton(QStringLiteral("&Cancelar"));
    salir->setObjectName(QStringLiteral("cmd_Salir"));
    connect(salir, &QPushButton::clicked, this, [this] { Pantallas::descargar(this); });
    auto* l = new QVBoxLayout(this);
    l->addWidget(explicacion);
    l->addWidget(chk_RecordarCopia);
    auto* b = new QHBoxLayout;
    b->addStretch();
    b->addWidget(salir);
    l->addLayout(b);
    chk_RecordarCopia->setChecked(leerAjuste(QStringLiteral("opciones"), QStringLiteral("copia")).trimmed() == QLatin1String("1"));
    resize(460, 160);
}

bool frmCopiaSeguridad::disponible() { return false; }

frmCopiaSeguridad* frmCopiaSeguridad::abrir(bool salir)
{
    Pantallas::descargar<frmCopiaSeguridad>();
    auto* f = new frmCopiaSeguridad;
    f->salirAlTerminar = salir;
    Pantallas::mostrar(f);
    return f;
}

void frmCopiaSeguridad::abrirRestaurar() {}

bool frmCopiaSeguridad::alDescargar()
{
    escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("copia"),
                   chk_RecordarCopia->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
    if (salirAlTerminar)
        Programa::terminar();
    return true;
}
