#include "search/AyudaBusqueda.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"

#include <QLabel>
#include <QPushButton>

namespace {

// Textos de cada familia: el sustantivo en singular y plural, y cómo se nombra la lista.
struct FamiliaAyuda {
    QStringList clavesBuscar;
    QStringList clavesSelector;
    QString singular;
    QString plural;
    QString lista;       // primer texto y botones 1 a 3 de frmAyudaBuscar
    QString listaSelector;  // botones 1 a 3 de frmAyudaBuscarSeleccionar
    bool impresos = false;
};

const QList<FamiliaAyuda>& familias()
{
    static const QStringList impresosBuscar = {
        "DATOSA1B2", "DATOSA2", "DATOSA3", "DATOSA4A5", "DATOSCOORDINADOR_SEGURIDAD_Y_SALUD", "DATOSB1B3B4",
        "DATOSB4", "DATOSFINOBRA", "DATOSCERTIFICADO", "DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR"};
    static const QList<FamiliaAyuda> f = {
        {{"PROYECTOS_A"}, {"PROYECTOS_A"}, "proyecto", "proyectos", "proyectos", "proyectos"},
        {{"ARQUITECTOS"},
         {"ARQUITECTOS", "COORDINADOR_SS", "ARQUITECTOS_AUTORES", "ARQUITECTOS_SIMPLE", "ARQUITECTOS_SOCIEDAD"},
         "arquitecto", "arquitectos", "arquitectos", "arquitectos"},
        {{"APAREJADORES"}, {"APAREJADORES"}, "arquitecto técnico", "arquitectos técnicos", "arquitectos técnicos",
         "arquitectos técnicos"},
        {{"CONTRATISTAS"}, {"CONTRATISTAS"}, "contratista", "contratistas", "contratistas", "contratistas"},
        {{"CLIENTES"}, {"CLIENTES"}, "cliente", "clientes", "clientes", "clientes"},
        {{}, {"COSTES"}, "coste de referencia", "costes de referencia", "costes de referencia", "costes de referencia"},
        {impresosBuscar, impresosBuscar.mid(0, 9), "impreso", "impresos", "impresos del tipo seleccionado", "impresos",
         true},
    };
    return f;
}

}  // namespace

AyudaBusqueda::AyudaBusqueda(QWidget* padre) : Dialogo(padre) { setAttribute(Qt::WA_DeleteOnClose); }

void AyudaBusqueda::enlazarControles()
{
    if (auto* b = findChild<QPushButton*>(QStringLiteral("cmd_Cerrar")))
        connect(b, &QPushButton::clicked, this, &AyudaBusqueda::cmd_Cerrar_Click);
}

void AyudaBusqueda::Form_Load()
{
    guardia(nombreFormulario(), QStringLiteral("Form_Load"), [&] {
        setWindowIcon(Iconos::iconoPrograma());
        const char* dibujos[] = {"listado", "excel", "pdf", "impresoBlanco"};
        for (int i = 0; i < 4; ++i)
            if (auto* l = findChild<QLabel*>(QStringLiteral("img_Botonera_%1").arg(i + 1)))
                l->setPixmap(Iconos::pixmap(QString::fromLatin1(dibujos[i]), 24));
        if (auto* l = findChild<QLabel*>(QStringLiteral("img_Ayuda")))
            l->setPixmap(Iconos::pixmap(QStringLiteral("buscar"), 32));
        cargarTextos();
        adjustSize();
        Pantallas::centrar(this);
    });
}

void AyudaBusqueda::cargarTextos()
{
    guardia(nombreFormulario(), QStringLiteral("cargarTextos"), [&] {
        const FamiliaAyuda* f = nullptr;
        for (const FamiliaAyuda& c : familias())
            if ((esSelector() ? c.clavesSelector : c.clavesBuscar).contains(Tabla))
                f = &c;
        if (!f)
            return;  // una clave fuera de las listas deja los textos del diseño
        auto poner = [this](const QString& nombre, const QString& texto) {
            if (auto* l = findChild<QLabel*>(nombre))
                l->setText(texto);
        };
        const QString& sg = f->singular;
        QStringList mensajes;
        if (esSelector()) {
            mensajes << QStringLiteral("En la lista de la pantalla se muestran todos los %1 que tenga actualmente dados de alta "
                                       "en el programa de forma que se pueda seleccionar el deseado.")
                            .arg(f->lista)
                     << QStringLiteral("Botón SELECCIONAR: Cuando haya localizado el %1 deseado, selecciónelo en la lista (para "
                                       "ello hay que hacer clic sobre él) y a continuación haga clic sobre este botón. También "
                                       "puede hacer doble clic sobre el %1 que desee seleccionar.")
                            .arg(sg)
                     << QStringLiteral("Botón NUEVO: Si el %1 que busca no existe en el programa, puede crearlo haciendo clic "
                                       "sobre este botón.")
                            .arg(sg);
        } else {
            mensajes << QStringLiteral("En la lista de la pantalla se muestran todos los %1 que tenga actualmente dados de alta "
                                       "en el programa.")
                            .arg(f->lista)
                     << QStringLiteral("Botón NUEVO: Haga clic en él si desea crear un nuevo %1.").arg(sg)
                     << QStringLiteral("Botón EDITAR: Si desea modificar los datos de un determinado %1, selecciónelo en la "
                                       "lista de %2 (para ello hay que hacer clic sobre él) y haga clic sobre este botón. "
                                       "También puede hacer doble clic sobre el %1 que desee editar.")
                            .arg(sg, f->plural)
                     << QStringLiteral("Botón ELIMINAR: Si desea eliminar un %1 en concreto, selecciónelo en la lista y, a "
                                       "continuación, haga clic sobre este botón. Se le pedirá una confirmación de la acción "
                                       "de borrado.")
                            .arg(sg);
        }
        for (int i = 0; i < mensajes.size(); ++i)
            poner(QStringLiteral("lbl_Mensaje_%1").arg(i + 1), mensajes.at(i));

        const QString& lista = esSelector() ? f->listaSelector : f->lista;
        poner(QStringLiteral("lbl_Botonera_1"),
              QStringLiteral("Permite ver en pantalla un listado con los %1 que tenga creados.").arg(lista));
        poner(QStringLiteral("lbl_Botonera_2"),
              QStringLiteral("Permite exportar a Excel el listado de los %1 que tenga creados.").arg(lista));
        poner(QStringLiteral("lbl_Botonera_3"),
              QStringLiteral("Permite exportar a PDF el listado de los %1 que tenga creados.").arg(lista));
        poner(QStringLiteral("lbl_Botonera_4"),
              f->impresos ? QStringLiteral("Permite generar la vista previa y posterior impresión de un impreso en blanco "
                                           "del tipo seleccionado.")
                          : QStringLiteral("En este caso este botón aparece deshabilitado, pues sólo es válido para los "
                                           "impresos."));
    });
}

void AyudaBusqueda::cmd_Cerrar_Click() { close(); }
