#include "forms/frmDatosImpreso_ComunicadoDireccionCoordinador.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "forms/BloquesImpreso.h"
#include "search/SeleccionTipo.h"
#include "search/frmSeleccionarTipoCoordinador.h"
#include "ui_frmDatosImpreso_ComunicadoDireccionCoordinador.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <QTreeWidget>

namespace {

const QString PANTALLA = QStringLiteral("frmDatosImpreso_ComunicadoDireccionCoordinador");

// Cada lista del comunicado: su control, su tabla de enlace, su tabla temporal y sus textos.
struct ListaPersonas {
    QString objeto;            // lvw_DirectorObra
    QString enlace;            // DirectoresObra_Impreso
    QString columnaCodigo;     // Codigo_DirectorObra
    QString temporal;          // DirectoresObra_Tmp
    QString prefijo;           // DIROBRA: DIROBRANOM, DIROBRANIF...
    QString persona;           // "director de Obra"
    QString plural;            // "directores de Obra"
    QString tipoFijo;          // "AR", "AT"; vacío: cada fila lleva el suyo (TipoPerceptor)
    QString claveRetorno;
    QString repetidoAR, repetidoAT;  // avisos de la persona que ya está en la lista
};

const QList<ListaPersonas>& listas()
{
    static const QList<ListaPersonas> l = {
        {QStringLiteral("lvw_DirectorObra"), QStringLiteral("DirectoresObra_Impreso"), QStringLiteral("Codigo_DirectorObra"),
         QStringLiteral("DirectoresObra_Tmp"), QStringLiteral("DIROBRA"), QStringLiteral("director de Obra"),
         QStringLiteral("directores de Obra"), QStringLiteral("AR"), QStringLiteral("FRMDATOSIMPRESOCDC_DIRECTOROBRA"),
         QStringLiteral("El arquitecto seleccionado ya se encuentra incluido en la lista de directores de Obra del impreso"), {}},
        {QStringLiteral("lvw_DirectorEjecucion"), QStringLiteral("DirectoresDeEjecucion_Impreso"), QStringLiteral("Codigo_DirectorEjec"),
         QStringLiteral("DirectoresDeEjecucion_Tmp"), QStringLiteral("DIREJEC"), QStringLiteral("director de ejecución de la Obra"),
         QStringLiteral("directores de ejecución de la Obra"), QStringLiteral("AT"),
         QStringLiteral("FRMDATOSIMPRESOCDC_DIRECTOREJECUCIONOBRA"), {},
         QStringLiteral("El arquitecto técnico seleccionado ya se encuentra incluido en la lista de directores de ejecución de la Obra "
                        "del impreso")},
        {QStringLiteral("lvw_CoordinadorSS"), QStringLiteral("CoordinadorSS_Impreso"), QStringLiteral("Codigo_Coordinador"),
         QStringLiteral("CoordinadoresSS_Tmp"), QStringLiteral("COORSS"), QStringLiteral("coordinador de Seguridad y Salud"),
         QStringLiteral("coordinadores de Seguridad y Salud"), {}, QStringLiteral("FRMDATOSIMPRESOCDC_COORDINADOR"),
         QStringLiteral("El arquitecto seleccionado ya se encuentra incluido en la lista de coordinadores de Seguridad y Salud de obra "
                        "del impreso"),
         QStringLiteral("El arquitecto técnico seleccionado ya se encuentra incluido en la lista de coordinadores de Seguridad y Salud "
                        "del impreso")},
    };
    return l;
}

const ListaPersonas& descripcion(int index) { return listas().at(index - 1); }

// Columnas de las listas: el código, el nombre y, en los coordinadores, el tipo.
constexpr int COL_CODIGO = 0, COL_NOMBRE = 1, COL_TIPO = 2;

QString tipoDeTabla(const QString& tabla) { return tabla == QLatin1String("APAREJADORES") ? QStringLiteral("AT") : QStringLiteral("AR"); }

// La persona en OTROS según su tipo: "AT" arquitecto técnico, cualquier otro arquitecto.
Consulta consultaPersona(qint64 codigo, const QString& tipo)
{
    const QString categoria = tipo == QLatin1String("AT") ? QStringLiteral("ARQUITECTO TECNICO") : QStringLiteral("ARQUITECTO");
    return Consulta(QStringLiteral("SELECT * FROM OTROS WHERE UCase(Categoria) = ? AND Codigo_Cli = ?"), {categoria, codigo});
}

QString avisoNoObtenida(const ListaPersonas& l) { return QStringLiteral("No se han podido obtener los datos del ") + l.persona; }

qint64 codigoFila(const QTreeWidgetItem* f) { return claveFila(f).mid(1).toLongLong(); }

}  // namespace

frmDatosImpreso_ComunicadoDireccionCoordinador::frmDatosImpreso_ComunicadoDireccionCoordinador(QWidget* padre)
    : DatosImpreso(PANTALLA, padre), ui(std::make_unique<Ui::frmDatosImpreso_ComunicadoDireccionCoordinador>())
{
    ui->setupUi(this);
    enlazarControles();
    for (int i = 1; i <= 3; ++i) {
        const ListaPersonas& l = descripcion(i);
        auto* buscar = findChild<QToolButton*>(QStringLiteral("img_Buscar_%1").arg(i));
        auto* borrar = findChild<QToolButton*>(QStringLiteral("img_Borrar_%1").arg(i));
        buscar->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
        borrar->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
        buscar->setToolTip(QStringLiteral("Añadir un ") + l.persona);
        borrar->setToolTip(QStringLiteral("Eliminar de la lista el ") + l.persona + QStringLiteral(" seleccionado"));
        connect(buscar, &QToolButton::clicked, this, [this, i] { img_Buscar_Click(i); });
        connect(borrar, &QToolButton::clicked, this, [this, i] { img_Borrar_Click(i); });
        QTreeWidget* lvw = lista(i);
        lvw->setColumnHidden(COL_CODIGO, true);
        lvw->header()->setSectionResizeMode(COL_NOMBRE, QHeaderView::Stretch);
    }
}

frmDatosImpreso_ComunicadoDireccionCoordinador::~frmDatosImpreso_ComunicadoDireccionCoordinador() = default;

QTreeWidget* frmDatosImpreso_ComunicadoDireccionCoordinador::lista(int index) const
{
    return findChild<QTreeWidget*>(descripcion(index).objeto);
}

// ---------------------------------------------------------------- listas

void frmDatosImpreso_ComunicadoDireccionCoordinador::img_Buscar_Click(int index)
{
    if (index == 0) {
        img_Buscar_Click();
        return;
    }
    guardia(PANTALLA, QStringLiteral("img_Buscar_Click"), [&] {
        const ListaPersonas& l = descripcion(index);
        QPointer<frmDatosImpreso_ComunicadoDireccionCoordinador> yo(this);
        PeticionSelector p{.claveLlamada = definicion().claveSeleccion,
                           .claveRetorno = l.claveRetorno,
                           .llamador = this,
                           .alElegir =
                               [yo, index](const Eleccion& e) {
                                   return !yo || yo->recibirPersona(index, e.codigo, e.nombreCompleto, tipoDeTabla(e.tabla));
                               },
                           .alDarDeAlta =
                               [yo, index](const RegistroGuardado& r) {
                                   if (yo)
                                       yo->recibirPersonaNueva(index, r);
                               }};
        if (l.tipoFijo.isEmpty()) {
            // El coordinador puede ser arquitecto o arquitecto técnico: se pregunta antes.
            abrirSeleccionTipo<frmSeleccionarTipoCoordinador>(p);
            return;
        }
        const bool arquitecto = l.tipoFijo == QLatin1String("AR");
        p.tabla = arquitecto ? QStringLiteral("ARQUITECTOS") : QStringLiteral("APAREJADORES");
        p.titulo = arquitecto ? QStringLiteral("Buscar arquitecto") : QStringLiteral("Buscar arquitecto técnico");
        frmBuscarSeleccionar::abrir(p);
    });
}

void frmDatosImpreso_ComunicadoDireccionCoordinador::img_Borrar_Click(int index)
{
    if (index == 0) {
        img_Borrar_Click();
        return;
    }
    guardia(PANTALLA, QStringLiteral("img_Borrar_Click"), [&] {
        const ListaPersonas& l = descripcion(index);
        QTreeWidget* lvw = lista(index);
        if (lvw->topLevelItemCount() == 0) {
            Mensajes::aviso(QStringLiteral("La lista de ") + l.plural + QStringLiteral(" está vacía"));
            return;
        }
        QTreeWidgetItem* f = lvw->currentItem();
        if (!f)
            f = lvw->topLevelItem(0);  // como la lista antigua, siempre hay una seleccionada
        if (Mensajes::pregunta(QStringLiteral("¿Realmente desea eliminar el ") + l.persona + QLatin1Char(' ') + f->text(COL_NOMBRE)
                               + QLatin1Char('?'))
            == Mensajes::Respuesta::Si)
            delete f;
    });
}

bool frmDatosImpreso_ComunicadoDireccionCoordinador::recibirPersona(int index, qint64 codigo, const QString& nombre, const QString& tipo)
{
    const ListaPersonas& l = descripcion(index);
    QTreeWidget* lvw = lista(index);
    const QString clave = QStringLiteral("K%1").arg(codigo);
    const QString tipoFila = l.tipoFijo.isEmpty() ? tipo : l.tipoFijo;
    if (estaEnListview(lvw, clave)) {
        Mensajes::aviso(tipoFila == QLatin1String("AT") ? l.repetidoAT : l.repetidoAR);
        return false;
    }
    auto* f = new QTreeWidgetItem(lvw);
    ponerClaveFila(f, clave);
    f->setText(COL_CODIGO, QString::number(codigo));
    f->setText(COL_NOMBRE, nombre);
    if (l.tipoFijo.isEmpty())
        f->setText(COL_TIPO, tipoFila);
    lvw->setCurrentItem(f);
    return true;
}

// Una persona dada de alta desde el selector entra en la lista; su tipo, si la lista no lo fija,
// es la categoría con que se guardó.
void frmDatosImpreso_ComunicadoDireccionCoordinador::recibirPersonaNueva(int index, const RegistroGuardado& r)
{
    guardia(PANTALLA, QStringLiteral("recibirPersonaNueva"), [&] {
        QString tipo = descripcion(index).tipoFijo;
        if (tipo.isEmpty()) {
            UsoConexion uso;
            const QString categoria = escalar(QStringLiteral("SELECT UCase(Categoria) FROM OTROS WHERE Codigo_Cli = ?"), {r.codigo}).toString();
            tipo = categoria == QLatin1String("ARQUITECTO TECNICO") ? QStringLiteral("AT") : QStringLiteral("AR");
        }
        recibirPersona(index, r.codigo, r.nombre, tipo);
    });
}

// ---------------------------------------------------------------- carga y guardado

void frmDatosImpreso_ComunicadoDireccionCoordinador::cargarCampos(const Consulta& c)
{
    txt_CodProyecto->setText(c.texto(QStringLiteral("PRYCOD")));
    txt_Proyecto->setText(c.texto(QStringLiteral("PRYNOM")));
    txt_Lugar->setText(c.texto(QStringLiteral("LUGAR")));
    txt_Fecha->setText(c.texto(QStringLiteral("FECHA")));
    // Las personas que ya no están en OTROS dan su aviso y se quedan fuera de la lista: el
    // siguiente guardado quita su enlace.
    for (int i = 1; i <= 3; ++i) {
        const ListaPersonas& l = descripcion(i);
        for (Consulta e(QStringLiteral("SELECT * FROM \"%1\" WHERE Id_Impreso = ? ORDER BY rowid").arg(l.enlace), {Clave}); e.siguiente();) {
            const qint64 codigo = e.valor(l.columnaCodigo).toLongLong();
            const QString tipo = l.tipoFijo.isEmpty() ? e.texto(QStringLiteral("TipoPerceptor")) : l.tipoFijo;
            Consulta persona = consultaPersona(codigo, tipo);
            if (persona.siguiente())
                recibirPersona(i, codigo, BloquesImpreso::nombreCompleto(persona), tipo);
            else
                Mensajes::aviso(avisoNoObtenida(l));
        }
        lista(i)->setCurrentItem(lista(i)->topLevelItem(0));
    }
}

Campos frmDatosImpreso_ComunicadoDireccionCoordinador::camposHistorico() const
{
    return {
        {QStringLiteral("PRYNOM"), recortado(txt_Proyecto)},
        {QStringLiteral("PRYCOD"), codigoProyecto()},
        {QStringLiteral("LUGAR"), recortado(txt_Lugar)},
        {QStringLiteral("FECHA"), recortado(txt_Fecha)},
    };
}

// Los enlaces de las tres listas se borran y se escriben de nuevo con la clave de la fila.
void frmDatosImpreso_ComunicadoDireccionCoordinador::escribirFilasHijas(qint64 clave)
{
    for (int i = 1; i <= 3; ++i) {
        const ListaPersonas& l = descripcion(i);
        ejecutar(QStringLiteral("DELETE FROM \"%1\" WHERE Id_Impreso = ?").arg(l.enlace), {clave});
        QTreeWidget* lvw = lista(i);
        for (int j = 0; j < lvw->topLevelItemCount(); ++j) {
            const QTreeWidgetItem* f = lvw->topLevelItem(j);
            Campos c{{QStringLiteral("Id_Impreso"), clave}, {l.columnaCodigo, codigoFila(f)}};
            if (l.tipoFijo.isEmpty())
                c.append({QStringLiteral("TipoPerceptor"), f->text(COL_TIPO)});
            insertar(l.enlace, c);
        }
    }
}

void frmDatosImpreso_ComunicadoDireccionCoordinador::escribirTemporal()
{
    Consulta proyecto(QStringLiteral("SELECT * FROM Proyectos_A WHERE PRYCOD = ?"), {codigoProyecto()});
    if (!BloquesImpreso::leerProyecto(proyecto))
        return;
    BloquesImpreso::FilaTemporal fila;
    BloquesImpreso::bloqueCliente(proyecto, fila);
    // Una fila por persona en la tabla temporal de su lista: nombre, NIF, domicilio y contacto.
    for (int i = 1; i <= 3; ++i) {
        const ListaPersonas& l = descripcion(i);
        QTreeWidget* lvw = lista(i);
        for (int j = 0; j < lvw->topLevelItemCount(); ++j) {
            const QTreeWidgetItem* f = lvw->topLevelItem(j);
            Consulta p = consultaPersona(codigoFila(f), l.tipoFijo.isEmpty() ? f->text(COL_TIPO) : l.tipoFijo);
            if (!p.siguiente()) {
                Mensajes::aviso(avisoNoObtenida(l));
                continue;
            }
            BloquesImpreso::FilaTemporal persona;
            persona.poner(l.prefijo + QStringLiteral("NOM"), BloquesImpreso::nombreCompleto(p));
            const std::pair<const char*, const char*> columnas[] = {{"NIF", "NIF"},           {"DOM", "Dirección_Cli"},
                                                                    {"TEL", "Tfno_Cli"},      {"MAIL", "Correo_Cli"},
                                                                    {"MUN", "Municipio_Cli"}, {"PRO", "Provincia_Cli"},
                                                                    {"CP", "cp"}};
            for (const auto& [sufijo, campo] : columnas)
                persona.poner(l.prefijo + QLatin1String(sufijo), p.texto(QString::fromUtf8(campo)));
            persona.insertarEn(l.temporal);
        }
    }
    BloquesImpreso::columnasObra(proyecto, fila);
    fila.poner(QStringLiteral("LUGAR"), recortado(txt_Lugar));
    fila.poner(QStringLiteral("FECHA"), recortado(txt_Fecha));
    fila.insertarEn(definicion().tablaTemporal);
}

QList<QWidget*> frmDatosImpreso_ComunicadoDireccionCoordinador::controlesCopia() const
{
    return {txt_CodProyecto, txt_Proyecto, txt_Lugar, txt_Fecha, lista(1), lista(2), lista(3)};
}
