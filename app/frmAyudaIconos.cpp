#include "app/frmAyudaIconos.h"

#include "core/Iconos.h"
#include "core/Pantallas.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmAyudaIconos::frmAyudaIconos(QWidget* padre) : QDialog(padre ? padre : Pantallas::ventanaPrincipal())
{
    setObjectName(QStringLiteral("frmAyudaIconos"));
    setWindowTitle(QStringLiteral("Guía rápida de iconos"));
    auto* rejilla = new QGridLayout;
    const struct {
        const char* icono;
        const char* texto;
    } pares[] = {
        {"proyecto", "Gestión de proyectos: lista de los proyectos del estudio"},
        {"arquitecto", "Gestión de arquitectos y sociedades de arquitectos"},
        {"aparejador", "Gestión de arquitectos técnicos"},
        {"contratista", "Gestión de contratistas"},
        {"cliente", "Gestión de clientes y de sus representantes"},
        {"buscar", "Buscar en la lista, o seleccionar un dato de otra pantalla"},
        {"borrar", "Limpiar el dato seleccionado, o eliminar de la lista"},
        {"listado", "Ver en pantalla el listado de los datos"},
        {"excel", "Exportar el listado a una hoja de cálculo"},
        {"pdf", "Exportar el listado a un documento PDF"},
        {"impresoBlanco", "Vista previa de un impreso en blanco"},
        {"imprimir", "Vista previa e impresión del documento"},
        {"validar", "Validar NIF/CIF"},
        {"porcentajes", "Repartir proporcionalmente el porcentaje de participación"},
        {"ayuda", "Ayuda del programa"},
        {"salir", "Salir del programa"},
    };
    int fila = 0;
    for (const auto& p : pares) {
        auto* img = new QLabel;
        img->setObjectName(QStringLiteral("img_Icono_%1").arg(fila));
        img->setPixmap(Iconos::pixmap(QString::fromLatin1(p.icono), 24));
        auto* lbl = new QLabel(QString::fromUtf8(p.texto));
        lbl->setObjectName(QStringLiteral("lbl_TextoAyuda_%1").arg(fila));
        rejilla->addWidget(img, fila, 0);
        rejilla->addWidget(lbl, fila, 1);
        ++fila;
    }
    auto* cerrar = new QPushButton(QStringLiteral("&Cerrar"));
    cerrar->setObjectName(QStringLiteral("cmd_Cerrar"));
    connect(cerrar, &QPushButton::clicked, this, &QDialog::accept);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cerrar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(rejilla);
    todo->addLayout(botones);
}
