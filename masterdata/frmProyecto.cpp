#include "masterdata/frmProyecto.h"

#include "core/Fichas.h"
#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "masterdata/FichaRegistro.h"
#include "masterdata/Porcentajes.h"
#include "masterdata/frmOpcionesArquitecto.h"
#include "search/AbrirBusqueda.h"
#include "search/frmBuscarSeleccionar.h"
#include "ui_frmProyecto.h"

#include <QApplication>
#include <QDate>
#include <QMouseEvent>
#include <QPointer>

namespace {

const QString FORMULARIO = QStringLiteral("frmProyecto");
const QString PATRON_PORCENTAJE = QStringLiteral("###0.00");

// Nombre completo de una fila de OTROS, Clientes o Representantes.
QString nombreDe(const Consulta& c) { return (c.texto(QStringLiteral("Nombre_Cli")) + QLatin1Char(' ') + c.texto(QStringLiteral("Ape_Cli"))).trimmed(); }

// Código a guardar: recortado, numérico si lo es, y nulo si queda vacío.
QVariant codigoONulo(const QString& texto)
{
    const QString t = texto.trimmed();
    if (t.isEmpty())
        return QVariant(QMetaType(QMetaType::LongLong));
    bool ok = false;
    const qint64 v = t.toLongLong(&ok);
    return ok ? QVariant(v) : QVariant(t);
}

// Fecha del campo con máscara, en ISO; nula con la máscara vacía.
QVariant fechaONula(const QLineEdit* msk)
{
    const QString t = msk->displayText().trimmed();
    if (t == FECHA_VACIA)
        return QVariant(QMetaType(QMetaType::QString));
    const QDate f = QDate::fromString(textoFechaNormalizado(t), QStringLiteral("dd/MM/yyyy"));
    return f.isValid() ? QVariant(f.toString(Qt::ISODate)) : QVariant(QMetaType(QMetaType::QString));
}

// Texto de una fecha guardada; vacío (la máscara se ve "__/__/____") si es nula.
QString fechaEnPantalla(const QString& iso)
{
    const QDate f = QDate::fromString(iso.left(10), Qt::ISODate);
    return f.isValid() ? f.toString(QStringLiteral("dd/MM/yyyy")) : QString();
}

// Suma en su forma de texto por omisión: 15 cifras significativas y coma decimal.
QString textoSuma(double suma)
{
    return QString::number(suma, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(','));
}

bool colorCero(const QTreeWidgetItem* fila) { return fila->foreground(0).color() == COLOR_FILA_NORMAL; }

// Quita el último separador de una lista unida (un carácter, o dos para ", ").
QString sinSeparadorFinal(const QString& texto, int largo)
{
    return texto.trimmed().isEmpty() ? QString() : texto.left(texto.size() - largo);
}

// Posición, desde 0, de una clave en la lista del selector; -1 si no está.
int posicionEnSelector(const frmBuscarSeleccionar* s, const QString& clave)
{
    const ModeloResultados* m = s->modelo();
    for (int i = 0; i < m->rowCount(); ++i)
        if ((QStringLiteral("K") + m->clave(i)).compare(clave, Qt::CaseInsensitive) == 0)  // el selector guarda la clave sin la K
            return i;
    return -1;
}

void marcarEnSelector(frmBuscarSeleccionar* s, const QString& clave)
{
    const int i = posicionEnSelector(s, clave);
    if (i >= 0)
        s->modelo()->setMarcada(i, true);
}

// Marca en el selector los códigos de una lista unida por ",".
void marcarCodigos(frmBuscarSeleccionar* s, const QString& codigos)
{
    const QString t = codigos.trimmed();
    if (t.isEmpty())
        return;
    if (!t.contains(QLatin1Char(','))) {
        marcarEnSelector(s, QStringLiteral("K") + t);
        return;
    }
    for (const QString& parte : t.split(QLatin1Char(',')))
        marcarEnSelector(s, QStringLiteral("K") + parte);
}

// Una fila de enlace por cada código de la lista unida por ","; una parte vacía, código nulo.
void insertarEnlaces(const QString& tabla, const QString& campo, qint64 pryCod, const QString& codigos)
{
    const QString t = codigos.trimmed();
    if (t.isEmpty())
        return;
    const QStringList partes = t.contains(QLatin1Char(',')) ? t.split(QLatin1Char(',')) : QStringList{t};
    for (const QString& parte : partes)
        insertar(tabla, {{QStringLiteral("PryCod"), pryCod}, {campo, codigoONulo(parte)}});
}

// Los selectores de cada par de botones: tabla, clave de devolución y título.
struct Selector {
    const char* tabla;
    const char* retorno;
    const char* titulo;
};
const Selector SELECTORES[7] = {
    {"ARQUITECTOS", "FRMPROYECTO_ARQUITECTO", "Buscar arquitecto"},
    {"ARQUITECTOS_AUTORES", "FRMPROYECTO_AUTOR", "Seleccionar arquitectos autores del proyecto"},
    {"CLIENTES", "FRMPROYECTO_CLIENTE", "Buscar cliente"},
    {nullptr, nullptr, nullptr},
    {"APAREJADORES", "FRMPROYECTO_APAREJADOR", "Buscar arquitecto técnico"},
    {"CONTRATISTAS", "FRMPROYECTO_CONSTRUCTOR", "Buscar constructor"},
    {"COORDINADOR_SS", "FRMPROYECTO_COORDINADOR", "Buscar coordinador Seguridad y Salud"},
};

}  // namespace

frmProyecto::frmProyecto(QWidget* padre) : PantallaEdicion(padre), ui(std::make_unique<Ui::frmProyecto>())
{
    ui->setupUi(this);

    // Dibujos de los botones y reglas de los campos.
    for (int i = 0; i <= 6; ++i) {
        auto* buscar = findChild<QToolButton*>(QStringLiteral("img_Buscar_%1").arg(i));
        auto* borrar = findChild<QToolButton*>(QStringLiteral("img_Borrar_%1").arg(i));
        buscar->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
        borrar->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
        connect(buscar, &QToolButton::clicked, this, [this, i] { img_Buscar_Click(i); });
        connect(borrar, &QToolButton::clicked, this, [this, i] { img_Borrar_Click(i); });
    }
    ui->img_Porcentajes->setIcon(Iconos::icono(QStringLiteral("porcentajes"), 20));
    connect(ui->img_Porcentajes, &QToolButton::clicked, this, [this] { img_Porcentajes_Click(); });
    connect(ui->cmd_Guardar, &QPushButton::clicked, this, [this] { cmd_Guardar_Click(); });
    connect(ui->cmd_Cerrar, &QPushButton::clicked, this, [this] { cmd_Cerrar_Click(); });

    prepararCampoFecha(ui->msk_FechaVisado);
    prepararCampoFecha(ui->msk_FechaFinDeObra);
    ui->msk_FechaVisado->setMaximumWidth(110);
    ui->msk_FechaFinDeObra->setMaximumWidth(110);
    ui->txt_NumExpediente->setMaximumWidth(160);
    FichaRegistro::limitarNotas(ui->txt_Notas, 100);
    ui->txt_Notas->setMaximumHeight(110);
    // Nº de expediente: cifras y un solo "-".
    new FiltroTeclas(ui->txt_NumExpediente, [](int tecla, const QString& actual) {
        if (tecla == '-')
            return actual.contains(QLatin1Char('-')) ? 0 : tecla;
        return admitirNumeros(tecla);
    });

    // Al salir de las fechas se normalizan ("1/2/2008" queda "01/02/2008").
    for (QLineEdit* msk : {ui->msk_FechaVisado, ui->msk_FechaFinDeObra})
        FichaRegistro::alSalir(msk, [msk] { normalizarFecha(msk); });

    // Globo de ayuda de las fechas.
    m_ayuda = new AyudaFecha(this, {QStringLiteral("# Día: 2 dígitos (por ejemplo: 01, 15)"),
                                    QStringLiteral("# Mes: 2 dígitos (por ejemplo: 02, 12)"),
                                    QStringLiteral("# Año: 4 dígitos (por ejemplo: 2005)")});
    m_ayuda->permitirCerrar();
    for (QLineEdit* msk : {ui->msk_FechaVisado, ui->msk_FechaFinDeObra}) {
        msk->installEventFilter(this);
        m_ayuda->vigilar(msk);
    }

    // El título y el emplazamiento se ven enteros en su ayuda.
    for (QLineEdit* t : {ui->txt_Trabajo, ui->txt_Emplazamiento})
        t->installEventFilter(this);

    // Lista de arquitectos: casillas, regla de la propia sociedad y doble clic.
    QTreeWidget* lvw = ui->lvw_Arquitectos;
    lvw->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lvw->header()->setStretchLastSection(false);
    lvw->setColumnWidth(1, 130);
    lvw->setColumnWidth(2, 70);
    lvw->setColumnWidth(3, 70);
    lvw->viewport()->installEventFilter(this);
    conectarItemCheckArquitectos(lvw);
    // Las filas que llegan de otras pantallas también llevan casilla.
    connect(lvw->model(), &QAbstractItemModel::rowsInserted, this, [lvw](const QModelIndex& padreFila, int primera, int ultima) {
        if (padreFila.isValid())
            return;
        for (int i = primera; i <= ultima; ++i)
            if (QTreeWidgetItem* f = lvw->topLevelItem(i); f && !f->data(0, Qt::CheckStateRole).isValid())
                f->setCheckState(0, Qt::Unchecked);
    });
}

frmProyecto::~frmProyecto() = default;

bool frmProyecto::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == ui->lvw_Arquitectos->viewport() && evento->type() == QEvent::MouseButtonDblClick) {
        // El doble clic sobre la casilla la cambia; en el resto abre las propiedades.
        lvw_Arquitectos_DblClick();
        return true;
    }
    if (evento->type() == QEvent::FocusIn) {
        if (objeto == ui->txt_Trabajo || objeto == ui->txt_Emplazamiento) {
            auto* t = static_cast<QLineEdit*>(objeto);
            t->setToolTip(t->text());
        } else if (objeto == ui->msk_FechaVisado || objeto == ui->msk_FechaFinDeObra) {
            // El globo se abre bajo el campo.
            auto* msk = static_cast<QLineEdit*>(objeto);
            m_ayuda->adjustSize();
            QPoint p = msk->mapTo(this, QPoint(0, msk->height() + 2));
            p.setX(qMin(p.x(), qMax(0, width() - m_ayuda->width())));
            m_ayuda->move(p);
        }
    }
    return PantallaEdicion::eventFilter(objeto, evento);
}

// ---------------------------------------------------------------------------------------------
// Carga

bool frmProyecto::cargar()
{
    cargarDatosProyecto();
    return true;
}

QTreeWidgetItem* frmProyecto::agregarFilaArquitecto(qint64 codigo, const QString& nombre, const QString& numero,
                                                    const QString& porcentaje, MarcasArquitecto marcas)
{
    const bool autor = marcas.autor, marcada = marcas.perteneceSociedad, sociedad = marcas.propiaSociedad;
    auto* fila = new QTreeWidgetItem(ui->lvw_Arquitectos,
                                     {nombre, numero, porcentaje, autor ? QStringLiteral("SI") : QStringLiteral("NO")});
    ponerClaveFila(fila, QStringLiteral("K%1").arg(codigo));
    fila->setCheckState(0, marcada ? Qt::Checked : Qt::Unchecked);
    pintarFila(fila, sociedad ? COLOR_PROPIA_SOCIEDAD : COLOR_FILA_NORMAL);
    return fila;
}

void frmProyecto::cargarDatosProyecto()
{
    UsoConexion uso;

    FichaRegistro::prepararProvincia(ui->cbo_Provincia, FichaRegistro::Provincias::Mirvade);

    if (tag() == QLatin1String("MODIFICAR")) {
        Consulta p(QStringLiteral("SELECT * FROM Proyectos_A WHERE PryCod = ?"), {PryCod});
        if (!p.siguiente()) {
            Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del proyecto seleccionado"));
            return;
        }
        ui->txt_Trabajo->setText(p.texto(QStringLiteral("Trabajo")));
        ui->txt_Emplazamiento->setText(p.texto(QStringLiteral("Emplazamiento")));
        ui->txt_Municipio->setText(p.texto(QStringLiteral("Municipio")));
        ui->cbo_Provincia->setEditText(p.texto(QStringLiteral("Provincia")));
        ui->txt_NumExpediente->setText(p.texto(QStringLiteral("EXPNUM")));
        ui->msk_FechaVisado->setText(fechaEnPantalla(p.texto(QStringLiteral("EXPFV"))));
        ui->msk_FechaFinDeObra->setText(fechaEnPantalla(p.texto(QStringLiteral("EXPFFO"))));
        for (int i = 0; i < 4; ++i)
            findChild<QCheckBox*>(QStringLiteral("chk_Fase_%1").arg(i))
                ->setChecked(p.valor(QStringLiteral("PRYF%1").arg(i + 1)).toInt() != 0);
        ui->txt_Notas->setPlainText(p.texto(QStringLiteral("PRYNTS")));

        // Cliente (se enseña su nombre actual, no la copia CLINOM).
        if (!p.nulo(QStringLiteral("Codigo_Cliente"))) {
            Consulta c(QStringLiteral("SELECT * FROM Clientes WHERE Codigo_Cli = ?"), {p.valor(QStringLiteral("Codigo_Cliente"))});
            if (!c.siguiente()) {
                Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del cliente"));
            } else {
                ui->lbl_CodCliente->setText(c.texto(QStringLiteral("Codigo_Cli")));
                ui->lbl_NIFCliente->setText(c.texto(QStringLiteral("NIF")));
                ui->txt_Cliente->setText(nombreDe(c));
            }
        }
        // Representante.
        if (!p.nulo(QStringLiteral("Codigo_Representante"))) {
            Consulta r(QStringLiteral("SELECT * FROM Representantes WHERE Codigo_Cli = ?"),
                       {p.valor(QStringLiteral("Codigo_Representante"))});
            if (!r.siguiente()) {
                Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del representante"));
            } else {
                ui->lbl_CodRepresentante->setText(r.texto(QStringLiteral("Codigo_Cli")));
                ui->lbl_NIFRepresentante->setText(r.texto(QStringLiteral("NIF")));
                ui->txt_Representante->setText(nombreDe(r));
                ui->txt_RepresentacionOstentada->setText(r.texto(QStringLiteral("Representacion")));
            }
        }
        // Arquitectos técnicos.
        {
            Consulta a(QStringLiteral("SELECT * FROM OTROS, Aparejadores_Proyecto WHERE Codigo_Cli = Codigo_Apa "
                                      "AND UCASE(Categoria) = 'ARQUITECTO TECNICO' AND PryCod = ? "
                                      "ORDER BY Aparejadores_Proyecto.rowid"),
                       {PryCod});
            QString claves, numeros, nombres;
            while (a.siguiente()) {
                claves += a.texto(QStringLiteral("Codigo_Cli")) + QLatin1Char(',');
                numeros += a.texto(QStringLiteral("NumColegiado")) + QLatin1Char(',');
                nombres += nombreDe(a) + QStringLiteral(", ");
            }
            ui->lbl_ClaveAparejador->setText(sinSeparadorFinal(claves, 1));
            ui->lbl_CodAparejador->setText(sinSeparadorFinal(numeros, 1));
            ui->txt_Aparejador->setText(sinSeparadorFinal(nombres, 2));
        }
        // Constructores.
        {
            Consulta c(QStringLiteral("SELECT * FROM OTROS, Constructores_Proyecto WHERE Codigo_Cli = Codigo_Cons "
                                      "AND UCASE(Categoria) = 'CONSTRUCTOR' AND PryCod = ? "
                                      "ORDER BY Constructores_Proyecto.rowid"),
                       {PryCod});
            QString claves, nombres;
            while (c.siguiente()) {
                claves += c.texto(QStringLiteral("Codigo_Cli")) + QLatin1Char(',');
                nombres += nombreDe(c) + QStringLiteral(", ");
            }
            ui->lbl_CodConstructor->setText(sinSeparadorFinal(claves, 1));
            ui->txt_Constructor->setText(sinSeparadorFinal(nombres, 2));
        }
        // Redactor del estudio de seguridad y salud.
        if (!p.nulo(QStringLiteral("Codigo_SeguridadSalud"))) {
            Consulta s(SQL_OTROS_ARQUITECTO, {p.valor(QStringLiteral("Codigo_SeguridadSalud"))});
            if (!s.siguiente()) {
                Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del coordinador de seguridad y salud"));
            } else {
                ui->lbl_CodCoordinadorSyS->setText(s.texto(QStringLiteral("Codigo_Cli")));
                ui->txt_CoordinadorSyS->setText(nombreDe(s));
            }
        }
        // Arquitectos con su participación.
        {
            Consulta l(QStringLiteral("SELECT * FROM Arquitectos_Proyecto WHERE PryCod = ? ORDER BY rowid"), {PryCod});
            while (l.siguiente()) {
                Consulta a(SQL_OTROS_ARQUITECTO, {l.valor(QStringLiteral("Codigo_Arq"))});
                if (!a.siguiente()) {
                    Mensajes::aviso(QStringLiteral("No se han podido obtener los datos de uno de los arquitectos asociado al proyecto"));
                    continue;
                }
                const QString porcentaje = l.nulo(QStringLiteral("PorPar_Arq"))
                    ? QString()
                    : Formato::formatear(l.valor(QStringLiteral("PorPar_Arq")).toDouble(), PATRON_PORCENTAJE);
                agregarFilaArquitecto(a.valor(QStringLiteral("Codigo_Cli")).toLongLong(), nombreDe(a),
                                      l.texto(QStringLiteral("NumCol")), porcentaje,
                                      {.autor = l.valor(QStringLiteral("EsAutorProyecto")).toInt() != 0,
                                       .perteneceSociedad = l.valor(QStringLiteral("PerteneceSociedad")).toInt() != 0,
                                       .propiaSociedad = l.valor(QStringLiteral("EsPropiaSociedad")).toInt() != 0});
            }
        }
        // Autores.
        {
            Consulta l(QStringLiteral("SELECT * FROM Autores_Proyecto WHERE PryCod = ? ORDER BY rowid"), {PryCod});
            QString nombres;
            while (l.siguiente()) {
                Consulta a(SQL_OTROS_ARQUITECTO, {l.valor(QStringLiteral("Codigo_Arq"))});
                if (!a.siguiente()) {
                    Mensajes::aviso(QStringLiteral("No se han podido obtener los datos de uno de los arquitectos autores del proyecto"));
                    continue;
                }
                const QString codigo = a.texto(QStringLiteral("Codigo_Cli"));
                auto* f = new QTreeWidgetItem(ui->lvw_CodigosArquitectos, {codigo});
                ponerClaveFila(f, QStringLiteral("K") + codigo);
                nombres += nombreDe(a) + QStringLiteral(", ");
            }
            if (!nombres.isEmpty())
                ui->txt_AutorProyecto->setText(nombres.left(nombres.size() - 2));
        }
    }

    ui->txt_Trabajo->setToolTip(ui->txt_Trabajo->text());
    ui->txt_Emplazamiento->setToolTip(ui->txt_Emplazamiento->text());

    if (esAlta()) {
        // El proyecto nuevo trae la sociedad y los arquitectos del estudio.
        Consulta cfg(QStringLiteral("SELECT * FROM Config"));
        if (!cfg.siguiente()) {
            Mensajes::aviso(QStringLiteral("No se han podido cargar los arquitectos/sociedad desde la configuración del programa"));
            return;
        }
        auto agregar = [&](const QString& campo, bool sociedad) {
            if (cfg.nulo(campo))
                return;
            Consulta a(SQL_OTROS_ARQUITECTO, {cfg.valor(campo)});
            if (a.siguiente())
                agregarFilaArquitecto(a.valor(QStringLiteral("Codigo_Cli")).toLongLong(), nombreDe(a),
                                      a.texto(QStringLiteral("NumColegiado")), QString(),
                                      {.perteneceSociedad = !sociedad, .propiaSociedad = sociedad});
        };
        agregar(QStringLiteral("CodSoc"), true);
        for (int i = 1; i <= 4; ++i)
            agregar(QStringLiteral("CodArq%1").arg(i), false);
        calcularPorcentajesParticipacion(ui->lvw_Arquitectos);
    }
}

QList<QWidget*> frmProyecto::controlesCopia() const
{
    return {ui->txt_Trabajo,      ui->txt_Emplazamiento,  ui->txt_Municipio,     ui->cbo_Provincia,
            ui->txt_NumExpediente, ui->msk_FechaVisado,    ui->msk_FechaFinDeObra, ui->chk_Fase_0,
            ui->chk_Fase_1,        ui->chk_Fase_2,         ui->chk_Fase_3,        ui->txt_Notas,
            ui->txt_AutorProyecto, ui->txt_Cliente,        ui->txt_Representante, ui->txt_RepresentacionOstentada,
            ui->txt_Aparejador,    ui->txt_Constructor,    ui->txt_CoordinadorSyS, ui->lvw_Arquitectos};
}

// ---------------------------------------------------------------------------------------------
// Botones de búsqueda y borrado

void frmProyecto::img_Buscar_Click(int index)
{
    guardia(FORMULARIO, QStringLiteral("img_Buscar_Click"), [&] {
        if (index < 0 || index > 6 || !SELECTORES[index].tabla)
            return;  // el representante sigue siempre al cliente
        const Selector& s = SELECTORES[index];
        QPointer<frmProyecto> yo(this);
        // Cada botón recibe lo elegido, y el registro nuevo dado de alta desde el selector.
        PeticionSelector p{.tabla = QString::fromUtf8(s.tabla),
                           .claveLlamada = QStringLiteral("SELECCIONAR_EN_PROYECTOS"),
                           .titulo = QString::fromUtf8(s.titulo),
                           .claveRetorno = QString::fromUtf8(s.retorno),
                           .llamador = this};
        const auto recibir = [yo](auto accion) {
            return [yo, accion](const Eleccion& e) { return !yo || accion(yo.data(), e); };
        };
        const auto recibirAlta = [yo](auto accion) {
            return [yo, accion](const RegistroGuardado& r) {
                if (yo)
                    accion(yo.data(), r);
            };
        };
        switch (index) {
        case 0:
            p.alElegir = recibir([](frmProyecto* f, const Eleccion& e) { return f->recibirArquitecto(e.codigo, e.nombreCompleto, e.texto(0)); });
            p.alDarDeAlta = recibirAlta([](frmProyecto* f, const RegistroGuardado& r) { f->recibirArquitectoNuevo(r.codigo, r.nombre, r.numero); });
            break;
        case 1:
            p.alElegir = recibir([](frmProyecto* f, const Eleccion& e) { f->recibirAutores(e.marcadas); return true; });
            p.altaEnLaLista = true;
            break;
        case 2:
            p.alElegir = recibir([](frmProyecto* f, const Eleccion& e) { f->recibirCliente(e.codigo, e.texto(2), e.nombreCompleto); return true; });
            p.alDarDeAlta = recibirAlta([](frmProyecto* f, const RegistroGuardado& r) {
                f->recibirClienteNuevo(r.codigo, r.nif, r.nombre, r.codigoRepresentante, r.nifRepresentante, r.nombreRepresentante,
                                       r.representacion);
            });
            break;
        case 4:
            p.alElegir = recibir([](frmProyecto* f, const Eleccion& e) { f->recibirAparejadores(e.marcadas); return true; });
            p.alDarDeAlta = recibirAlta([](frmProyecto* f, const RegistroGuardado& r) { f->recibirAparejadorNuevo(r.codigo, r.nombre); });
            break;
        case 5:
            p.alElegir = recibir([](frmProyecto* f, const Eleccion& e) { f->recibirConstructores(e.marcadas); return true; });
            p.alDarDeAlta = recibirAlta([](frmProyecto* f, const RegistroGuardado& r) { f->recibirConstructorNuevo(r.codigo, r.nombre); });
            break;
        default:
            p.alElegir = recibir([](frmProyecto* f, const Eleccion& e) { f->recibirCoordinador(e.codigo, e.nombreCompleto); return true; });
            p.alDarDeAlta = recibirAlta([](frmProyecto* f, const RegistroGuardado& r) { f->recibirCoordinador(r.codigo, r.nombre); });
            break;
        }
        frmBuscarSeleccionar* sel = frmBuscarSeleccionar::abrir(p);
        if (!sel)
            return;
        if (index == 1)
            seleccionarArquitectosAutores(sel);
        else if (index == 4)
            seleccionarAparejadores(sel);
        else if (index == 5)
            seleccionarConstructores(sel);
    });
}

void frmProyecto::img_Borrar_Click(int index)
{
    guardia(FORMULARIO, QStringLiteral("img_Borrar_Click"), [&] {
        switch (index) {
        case 0: {
            QTreeWidget* lvw = ui->lvw_Arquitectos;
            if (lvw->topLevelItemCount() == 0) {
                Mensajes::aviso(QStringLiteral("La lista de arquitectos está vacía"));
                return;
            }
            QTreeWidgetItem* f = lvw->currentItem();
            if (!f)
                f = lvw->topLevelItem(0);  // como la lista antigua, siempre hay una seleccionada
            if (Mensajes::pregunta(QStringLiteral("¿Realmente desea eliminar el arquitecto ") + f->text(0) + QLatin1Char('?'))
                == Mensajes::Respuesta::Si)
                delete f;
            break;
        }
        case 1:
            ui->txt_AutorProyecto->clear();
            ui->lvw_CodigosArquitectos->clear();
            for (int i = 0; i < ui->lvw_Arquitectos->topLevelItemCount(); ++i)
                ui->lvw_Arquitectos->topLevelItem(i)->setText(3, QStringLiteral("NO"));
            break;
        case 2:
            ui->lbl_CodCliente->clear();
            ui->lbl_NIFCliente->clear();
            ui->txt_Cliente->clear();
            ui->lbl_CodRepresentante->clear();
            ui->lbl_NIFRepresentante->clear();
            ui->txt_Representante->clear();
            ui->txt_RepresentacionOstentada->clear();
            break;
        case 4:
            ui->lbl_ClaveAparejador->clear();
            ui->lbl_CodAparejador->clear();
            ui->txt_Aparejador->clear();
            break;
        case 5:
            ui->lbl_CodConstructor->clear();
            ui->txt_Constructor->clear();
            break;
        case 6:
            ui->lbl_CodCoordinadorSyS->clear();
            ui->txt_CoordinadorSyS->clear();
            break;
        default:
            break;  // el representante no se borra por separado
        }
    });
}

void frmProyecto::img_Porcentajes_Click()
{
    guardia(FORMULARIO, QStringLiteral("img_Porcentajes_Click"), [&] { calcularPorcentajesParticipacion(ui->lvw_Arquitectos); });
}

void frmProyecto::lvw_Arquitectos_DblClick()
{
    guardia(FORMULARIO, QStringLiteral("lvw_Arquitectos_DblClick"), [&] { abrirOpcionesArquitecto(ui->lvw_Arquitectos); });
}

void frmProyecto::seleccionarArquitectosAutores(frmBuscarSeleccionar* selector)
{
    // La primera vez vienen marcados todos los arquitectos del proyecto.
    QTreeWidget* origen = ui->txt_AutorProyecto->text().trimmed().isEmpty() ? ui->lvw_Arquitectos : ui->lvw_CodigosArquitectos;
    for (int i = 0; i < origen->topLevelItemCount(); ++i)
        marcarEnSelector(selector, claveFila(origen->topLevelItem(i)));
}

void frmProyecto::seleccionarAparejadores(frmBuscarSeleccionar* selector) { marcarCodigos(selector, ui->lbl_ClaveAparejador->text()); }

void frmProyecto::seleccionarConstructores(frmBuscarSeleccionar* selector) { marcarCodigos(selector, ui->lbl_CodConstructor->text()); }

// ---------------------------------------------------------------------------------------------
// Devolución del selector y de las fichas nuevas

bool frmProyecto::recibirArquitecto(qint64 codigo, const QString& nombreCompleto, const QString& numero)
{
    if (estaEnListview(ui->lvw_Arquitectos, QStringLiteral("K%1").arg(codigo))) {
        Mensajes::aviso(QStringLiteral("El arquitecto seleccionado ya se encuentra incluido en la lista de arquitectos del proyecto"));
        return false;
    }
    agregarFilaArquitecto(codigo, nombreCompleto, numero, QString(), {});
    return true;
}

void frmProyecto::recibirArquitectoNuevo(qint64 codigo, const QString& nombreCompleto, const QString& numero)
{
    agregarFilaArquitecto(codigo, nombreCompleto, numero, QString(), {});
}

void frmProyecto::recibirAutores(const QList<FilaMarcada>& marcadas)
{
    ui->lvw_CodigosArquitectos->clear();
    QString nombres;
    for (const FilaMarcada& m : marcadas) {
        nombres += m.nombreCompleto + QStringLiteral(", ");
        auto* f = new QTreeWidgetItem(ui->lvw_CodigosArquitectos, {m.clave.mid(1)});
        ponerClaveFila(f, m.clave);
    }
    ui->txt_AutorProyecto->setText(nombres.trimmed().isEmpty() ? QString() : nombres.left(nombres.size() - 2));
    // Los autores quedan con "SI"; nada vuelve un "SI" a "NO".
    for (int a = 0; a < ui->lvw_CodigosArquitectos->topLevelItemCount(); ++a) {
        const QString codigo = ui->lvw_CodigosArquitectos->topLevelItem(a)->text(0);
        for (int i = 0; i < ui->lvw_Arquitectos->topLevelItemCount(); ++i) {
            QTreeWidgetItem* f = ui->lvw_Arquitectos->topLevelItem(i);
            if (claveFila(f).mid(1) == codigo)
                f->setText(3, QStringLiteral("SI"));
        }
    }
}

void frmProyecto::recibirCliente(qint64 codigo, const QString& nif, const QString& nombreCompleto)
{
    guardia(FORMULARIO, QStringLiteral("recibirCliente"), [&] {
        ui->lbl_CodCliente->setText(QString::number(codigo));
        ui->lbl_NIFCliente->setText(nif);
        ui->txt_Cliente->setText(nombreCompleto);
        UsoConexion uso;
        Consulta c(QStringLiteral("SELECT * FROM CLIENTES WHERE Codigo_Cli = ?"), {codigo});
        if (!c.siguiente()) {
            Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del cliente seleccionado"));
            return;
        }
        const QVariant esR = c.valor(QStringLiteral("esR"));
        if (esR.isNull() || esR.toLongLong() == -1) {
            ui->lbl_CodRepresentante->clear();
            ui->lbl_NIFRepresentante->clear();
            ui->txt_Representante->clear();
            ui->txt_RepresentacionOstentada->clear();
            return;
        }
        Consulta r(QStringLiteral("SELECT * FROM REPRESENTANTES WHERE Codigo_Cli = ?"), {esR});
        if (!r.siguiente()) {
            Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del representante del cliente seleccionado"));
            return;
        }
        ui->lbl_CodRepresentante->setText(r.texto(QStringLiteral("Codigo_Cli")));
        ui->lbl_NIFRepresentante->setText(r.texto(QStringLiteral("NIF")));
        ui->txt_Representante->setText(nombreDe(r));
        ui->txt_RepresentacionOstentada->setText(r.texto(QStringLiteral("Representacion")));
    });
}

void frmProyecto::recibirClienteNuevo(qint64 codigo, const QString& nif, const QString& nombreCompleto,
                                      const QString& codRepresentante, const QString& nifRepresentante,
                                      const QString& nombreRepresentante, const QString& representacion)
{
    ui->lbl_CodCliente->setText(QString::number(codigo));
    ui->lbl_NIFCliente->setText(nif);
    ui->txt_Cliente->setText(nombreCompleto);
    ui->lbl_CodRepresentante->setText(codRepresentante);
    ui->lbl_NIFRepresentante->setText(nifRepresentante);
    ui->txt_Representante->setText(nombreRepresentante);
    ui->txt_RepresentacionOstentada->setText(representacion);
}

void frmProyecto::recibirAparejadores(const QList<FilaMarcada>& marcadas)
{
    QString claves, numeros, nombres;
    for (const FilaMarcada& m : marcadas) {
        claves += m.clave.mid(1) + QLatin1Char(',');
        numeros += m.numero + QLatin1Char(',');
        nombres += m.nombreCompleto + QStringLiteral(", ");
    }
    ui->lbl_ClaveAparejador->setText(sinSeparadorFinal(claves, 1));
    ui->lbl_CodAparejador->setText(sinSeparadorFinal(numeros, 1));
    ui->txt_Aparejador->setText(sinSeparadorFinal(nombres, 2));
}

void frmProyecto::recibirAparejadorNuevo(qint64 codigo, const QString& nombreCompleto)
{
    // Como la ficha antigua: la clave de enlace (lbl_ClaveAparejador) no se toca.
    ui->lbl_CodAparejador->setText(QString::number(codigo));
    ui->txt_Aparejador->setText(nombreCompleto);
}

void frmProyecto::recibirConstructores(const QList<FilaMarcada>& marcadas)
{
    QString claves, nombres;
    for (const FilaMarcada& m : marcadas) {
        claves += m.clave.mid(1) + QLatin1Char(',');
        nombres += m.nombreCompleto + QStringLiteral(", ");
    }
    ui->lbl_CodConstructor->setText(sinSeparadorFinal(claves, 1));
    ui->txt_Constructor->setText(sinSeparadorFinal(nombres, 2));
}

void frmProyecto::recibirConstructorNuevo(qint64 codigo, const QString& nombreCompleto)
{
    ui->lbl_CodConstructor->setText(QString::number(codigo));
    ui->txt_Constructor->setText(nombreCompleto);
}

void frmProyecto::recibirCoordinador(qint64 codigo, const QString& nombreCompleto)
{
    ui->lbl_CodCoordinadorSyS->setText(QString::number(codigo));
    ui->txt_CoordinadorSyS->setText(nombreCompleto);
}

// ---------------------------------------------------------------------------------------------
// Validación y guardado

void frmProyecto::enfocarLista()
{
    ui->mst_1->setCurrentIndex(0);
    ui->lvw_Arquitectos->setFocus();
}

bool frmProyecto::perteneceSociedad(qint64 codigo)
{
    UsoConexion uso;
    for (int i = 1; i <= 4; ++i) {
        Consulta c(QStringLiteral("SELECT * FROM Config WHERE CodArq%1 = ?").arg(i), {codigo});
        if (c.siguiente())
            return true;
    }
    return false;
}

bool frmProyecto::validarDatos()
{
    if (ui->txt_Trabajo->text().trimmed().isEmpty()) {
        Mensajes::aviso(FichaRegistro::obligatorio(QStringLiteral("El campo 'Trabajo' es obligatorio.")));
        ui->txt_Trabajo->setFocus();
        return false;
    }

    // Porcentajes: la suma ha de ser exactamente 100.
    QTreeWidget* lvw = ui->lvw_Arquitectos;
    const int n = lvw->topLevelItemCount();
    bool hayPorcentaje = false;
    double suma = 0;
    for (int i = 0; i < n; ++i) {
        const QString p = lvw->topLevelItem(i)->text(COLUMNA_PORCENTAJE).trimmed();
        if (p.isEmpty())
            continue;
        hayPorcentaje = true;
        suma += Formato::aNumero(p);
    }
    if (n > 0 && !hayPorcentaje) {
        Mensajes::aviso(QStringLiteral("La suma de los porcentajes de participación ha de ser 100"));
        enfocarLista();
        return false;
    }
    if (hayPorcentaje && suma != 100.0) {
        Mensajes::aviso(QStringLiteral("La suma de los porcentajes de participación ha de ser 100.\n"
                                       "Los porcentajes proporcionados suman: ")
                        + textoSuma(suma));
        enfocarLista();
        return false;
    }

    if (!validarFecha(ui->msk_FechaVisado) || !validarFecha(ui->msk_FechaFinDeObra))
        return false;

    // Desde aquí, preguntas que el usuario puede pasar por alto.
    for (int i = 0; i < n; ++i) {
        const QTreeWidgetItem* f = lvw->topLevelItem(i);
        if (f->text(COLUMNA_PORCENTAJE).trimmed().isEmpty() && colorCero(f)) {
            if (Mensajes::pregunta(QStringLiteral("Se han hallado en la lista de arquitectos asociados al proyecto arquitectos sin "
                                                  "porcentaje de participación.\n"
                                                  "¿Desea incluir ahora el porcentaje de participación a estos arquitectos?"))
                == Mensajes::Respuesta::Si) {
                enfocarLista();
                return false;
            }
            break;
        }
    }

    {
        UsoConexion uso;
        Consulta c(QStringLiteral("SELECT CodSoc FROM Config"));
        if (c.siguiente() && !c.nulo(QStringLiteral("CodSoc"))) {
            const int pos = getPosicionElementoEnLista(lvw, QStringLiteral("K") + c.texto(QStringLiteral("CodSoc")));
            if (pos > 0 && !esPropiaSociedad(lvw->topLevelItem(pos - 1))
                && Mensajes::pregunta(QStringLiteral("Ha incluido su sociedad pero no la marcado como tal en la lista de arquitectos.\n"
                                                     "¿Desea marcar ahora su sociedad en la lista?"))
                    == Mensajes::Respuesta::Si) {
                enfocarLista();
                return false;
            }
        }
    }

    bool haySociedad = false, hayMarcada = false;
    for (int i = 0; i < n; ++i) {
        haySociedad = haySociedad || esPropiaSociedad(lvw->topLevelItem(i));
        hayMarcada = hayMarcada || lvw->topLevelItem(i)->checkState(0) == Qt::Checked;
    }
    if (haySociedad && !hayMarcada
        && Mensajes::pregunta(QStringLiteral("Ha incluido su sociedad pero no ha seleccionado/incluido ningún arquitecto perteneciente a ella.\n"
                                             "¿Desea marcar/incluir ahora los arquitectos pertenecientes a su sociedad?"))
            == Mensajes::Respuesta::Si) {
        enfocarLista();
        return false;
    }

    if (haySociedad) {
        for (int i = 0; i < n; ++i) {
            const QTreeWidgetItem* f = lvw->topLevelItem(i);
            if (f->checkState(0) != Qt::Checked || perteneceSociedad(claveFila(f).mid(1).toLongLong()))
                continue;
            if (Mensajes::pregunta(QStringLiteral("Según los datos obtenidos de la Configuración, el arquitecto ") + f->text(0)
                                       + QStringLiteral(" no pertenece a la sociedad seleccionada.\n"
                                                        "¿Desea continuar de todas maneras continuar con la operación?"),
                                   Mensajes::Respuesta::No)
                == Mensajes::Respuesta::No) {
                enfocarLista();
                return false;
            }
        }
    }
    return true;
}

void frmProyecto::cmd_Guardar_Click()
{
    m_cancelarCierre = false;
    guardia(FORMULARIO, QStringLiteral("cmd_Guardar_Click"), [&] {
        if (!validarDatos()) {
            m_cancelarCierre = true;
            return;
        }
        guardar();
    });
}

bool frmProyecto::guardar()
{
    {
        CursorEspera espera;
        // Un fallo deshace la transacción y quita el cursor de espera al salir del ámbito.
        Transaccion t;
        if (!esAlta() && escalar(QStringLiteral("SELECT PryCod FROM Proyectos_A WHERE PryCod = ?"), {PryCod}).isNull()) {
            // Se sale sin guardar: el mensaje sale ya deshecha la transacción.
            Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del proyecto"));
            return false;
        }
        escribirProyecto();
        t.confirmar();
    }
    tomarCopia();

    if (esAlta()) {
        const AlGuardar entregar = alGuardar;
        if (entregar) {
            RegistroGuardado r;
            r.operacion = tag();
            r.codigo = PryCod;
            r.nombre = ui->txt_Trabajo->text().trimmed();
            entregar(r);
        }
        Mensajes::informacion(QStringLiteral("Proyecto dado de alta correctamente"));
        if (!descargando())
            Pantallas::descargar(this);
        if (!entregar)
            abrirListaMaestra(QStringLiteral("PROYECTOS_A"));
    } else {
        marcarActualizarLista();
        Mensajes::informacion(QStringLiteral("Datos del proyecto modificados correctamente"));
    }
    return true;
}

void frmProyecto::escribirProyecto()
{
    Campos campos = {
        {QStringLiteral("Trabajo"), textoONulo(ui->txt_Trabajo->text())},
        {QStringLiteral("Emplazamiento"), textoONulo(ui->txt_Emplazamiento->text())},
        {QStringLiteral("Municipio"), textoONulo(ui->txt_Municipio->text())},
        {QStringLiteral("Provincia"), textoONulo(ui->cbo_Provincia->currentText())},
        {QStringLiteral("EXPNUM"), textoONulo(ui->txt_NumExpediente->text())},
        {QStringLiteral("EXPFV"), fechaONula(ui->msk_FechaVisado)},
        {QStringLiteral("EXPFFO"), fechaONula(ui->msk_FechaFinDeObra)},
        {QStringLiteral("PRYF1"), ui->chk_Fase_0->isChecked() ? 1 : 0},
        {QStringLiteral("PRYF2"), ui->chk_Fase_1->isChecked() ? 1 : 0},
        {QStringLiteral("PRYF3"), ui->chk_Fase_2->isChecked() ? 1 : 0},
        {QStringLiteral("PRYF4"), ui->chk_Fase_3->isChecked() ? 1 : 0},
        {QStringLiteral("PRYNTS"), textoONulo(ui->txt_Notas->toPlainText())},
        {QStringLiteral("Codigo_Cliente"), codigoONulo(ui->lbl_CodCliente->text())},
        {QStringLiteral("CLINOM"), textoONulo(ui->txt_Cliente->text())},
        {QStringLiteral("Codigo_Representante"), codigoONulo(ui->lbl_CodRepresentante->text())},
        {QStringLiteral("Codigo_SeguridadSalud"), codigoONulo(ui->lbl_CodCoordinadorSyS->text())},
    };
    // La sociedad marcada; sin marca, ARQREG conserva lo que tuviera.
    QTreeWidget* lvw = ui->lvw_Arquitectos;
    for (int i = 0; i < lvw->topLevelItemCount(); ++i)
        if (esPropiaSociedad(lvw->topLevelItem(i))) {
            campos << qMakePair(QStringLiteral("ARQREG"), codigoONulo(claveFila(lvw->topLevelItem(i)).mid(1)));
            break;
        }

    if (esAlta()) {
        const qint64 id = insertarConContador(QStringLiteral("Proyectos_A"), campos, QStringLiteral("PryCod"));
        PryCod = id > 0 ? id : -1;
    } else {
        actualizar(QStringLiteral("Proyectos_A"), campos, QStringLiteral("PryCod = ?"), {PryCod});
    }

    // Las cuatro tablas de enlace, enteras.
    ejecutar(QStringLiteral("DELETE FROM Arquitectos_Proyecto WHERE PryCod = ?"), {PryCod});
    for (int i = 0; i < lvw->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* f = lvw->topLevelItem(i);
        const QString porcentaje = f->text(COLUMNA_PORCENTAJE).trimmed();
        insertar(QStringLiteral("Arquitectos_Proyecto"),
                 {{QStringLiteral("PryCod"), PryCod},
                  {QStringLiteral("Codigo_Arq"), codigoONulo(claveFila(f).trimmed().mid(1))},
                  {QStringLiteral("NumCol"), textoONulo(f->text(1))},
                  {QStringLiteral("PorPar_Arq"),
                   porcentaje.isEmpty() ? QVariant(QMetaType(QMetaType::Double)) : QVariant(Formato::aNumero(porcentaje))},
                  {QStringLiteral("EsAutorProyecto"), f->text(3).trimmed().toUpper() == QLatin1String("SI") ? 1 : 0},
                  {QStringLiteral("PerteneceSociedad"), f->checkState(0) == Qt::Checked ? 1 : 0},
                  {QStringLiteral("EsPropiaSociedad"), esPropiaSociedad(f) ? 1 : 0}});
    }
    ejecutar(QStringLiteral("DELETE FROM Autores_Proyecto WHERE PryCod = ?"), {PryCod});
    for (int i = 0; i < ui->lvw_CodigosArquitectos->topLevelItemCount(); ++i)
        insertar(QStringLiteral("Autores_Proyecto"),
                 {{QStringLiteral("PryCod"), PryCod},
                  {QStringLiteral("Codigo_Arq"), codigoONulo(ui->lvw_CodigosArquitectos->topLevelItem(i)->text(0))}});
    ejecutar(QStringLiteral("DELETE FROM Aparejadores_Proyecto WHERE PryCod = ?"), {PryCod});
    insertarEnlaces(QStringLiteral("Aparejadores_Proyecto"), QStringLiteral("Codigo_Apa"), PryCod, ui->lbl_ClaveAparejador->text());
    ejecutar(QStringLiteral("DELETE FROM Constructores_Proyecto WHERE PryCod = ?"), {PryCod});
    insertarEnlaces(QStringLiteral("Constructores_Proyecto"), QStringLiteral("Codigo_Cons"), PryCod, ui->lbl_CodConstructor->text());
}

// ---------------------------------------------------------------------------------------------
// Cierre

void frmProyecto::cmd_Cerrar_Click()
{
    guardia(FORMULARIO, QStringLiteral("cmd_Cerrar_Click"), [&] { Pantallas::descargar(this); });
}

bool frmProyecto::guardarAlSalir()
{
    cmd_Guardar_Click();
    return !m_cancelarCierre;
}

void frmProyecto::mostrarAyuda(int mostrar) { m_ayuda->mostrarAyuda(mostrar); }

// ---------------------------------------------------------------------------------------------

bool abrirFichaProyecto(const PeticionFicha& p)
{
    const bool alta = p.operacion == QLatin1String("ALTA");
    // La que hubiera abierta se descarga antes (pasa por su pregunta de salida).
    if (!Pantallas::descargar<frmProyecto>())
        return true;
    auto* f = new frmProyecto;
    if (!alta)
        f->PryCod = p.codigo;
    f->setTag(p.operacion);
    f->setWindowTitle(alta ? QStringLiteral("Nuevo proyecto") : QStringLiteral("Modificar proyecto"));
    f->ClaveRetorno = p.claveRetorno;
    f->alGuardar = p.alGuardar;
    f->Form_Load();
    Pantallas::mostrar(f);
    return true;
}
