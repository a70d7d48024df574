#include "forms/DatosImpreso.h"

#include "core/AyudaFecha.h"
#include "core/Fechas.h"
#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "forms/BloquesImpreso.h"
#include "reports/VistaImpreso.h"
#include "reports/frmVisorCrystal.h"
#include "search/AbrirBusqueda.h"

#include <QAction>
#include <QDate>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

DatosImpreso::DatosImpreso(const QString& pantalla, QWidget* padre)
    : PantallaEdicion(padre), m_pantalla(pantalla), m_definicion(TablaImpresos::porPantalla(pantalla))
{
    Q_ASSERT(m_definicion);
    setObjectName(pantalla);
}

const VarianteImpreso& DatosImpreso::variante() const
{
    for (const VarianteImpreso& v : m_definicion->variantes)
        if (!TipoImpreso.isEmpty() && v.tipoImpreso == TipoImpreso)
            return v;
    return m_definicion->variantes.constFirst();
}

void DatosImpreso::enlazarControles(const QString& buscarProyecto, const QString& borrarProyecto)
{
    txt_Lugar = findChild<QLineEdit*>(QStringLiteral("txt_Lugar"));
    txt_Fecha = findChild<QLineEdit*>(QStringLiteral("txt_Fecha"));
    tlb_BotoneraImprimir = findChild<QToolBar*>(QStringLiteral("tlb_BotoneraImprimir"));
    Q_ASSERT(txt_Fecha && tlb_BotoneraImprimir);
    if (m_definicion->conProyecto) {
        txt_CodProyecto = findChild<QLineEdit*>(QStringLiteral("txt_CodProyecto"));
        txt_Proyecto = findChild<QLineEdit*>(QStringLiteral("txt_Proyecto"));
        // Con varios botones de búsqueda, el del proyecto es el primero de la matriz.
        img_Buscar = findChild<QToolButton*>(buscarProyecto);
        if (!img_Buscar)
            img_Buscar = findChild<QToolButton*>(buscarProyecto + QStringLiteral("_0"));
        img_Borrar = findChild<QToolButton*>(borrarProyecto);
        if (!img_Borrar)
            img_Borrar = findChild<QToolButton*>(borrarProyecto + QStringLiteral("_0"));
        Q_ASSERT(txt_CodProyecto && txt_Proyecto && img_Buscar && img_Borrar);
        txt_CodProyecto->setReadOnly(true);
        txt_Proyecto->setReadOnly(true);
        img_Buscar->setToolTip(QStringLiteral("Seleccionar proyecto"));
        img_Borrar->setToolTip(QStringLiteral("Limpiar datos proyecto"));
        connect(img_Buscar, &QToolButton::clicked, this, [this] { img_Buscar_Click(); });
        connect(img_Borrar, &QToolButton::clicked, this, [this] { img_Borrar_Click(); });
    }

    // Un solo botón, sin clave: cualquier pulsación hace todo el recorrido.
    m_botonImprimir = tlb_BotoneraImprimir->addAction(Iconos::icono(QStringLiteral("imprimir")), QString());
    m_botonImprimir->setObjectName(QStringLiteral("tlb_BotoneraImprimir_1"));
    m_botonImprimir->setToolTip(QStringLiteral("Vista previa e impresión del documento"));
    connect(m_botonImprimir, &QAction::triggered, this, [this] { tlb_BotoneraImprimir_ButtonClick(); });
}

bool DatosImpreso::cargar()
{
    setWindowIcon(Iconos::iconoPrograma());
    if (img_Buscar)
        img_Buscar->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
    if (img_Borrar)
        img_Borrar->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
    if (txt_Lugar)
        txt_Lugar->setMaxLength(50);
    txt_Fecha->setMaxLength(30);
    aplicarLimites();

    UsoConexion uso;
    if (!prepararCarga())
        return false;
    if (Operacion == QLatin1String("ALTA")) {
        txt_Fecha->setText(Formato::fechaPie(QDate::currentDate()));
        // El lugar por omisión es el municipio del estudio; sin lugar en el pie no se lee.
        if (txt_Lugar) {
            Consulta c(QStringLiteral("SELECT Municipio FROM Config"));
            if (c.siguiente())
                txt_Lugar->setText(c.texto(QStringLiteral("Municipio")));
        }
        valoresPorDefecto();
    } else if (Operacion == QLatin1String("MODIFICAR")) {
        Consulta c(QStringLiteral("SELECT * FROM \"%1\" WHERE Clave = ?").arg(m_definicion->tablaHistorico), {Clave});
        if (!c.siguiente())
            Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del impreso seleccionado"));
        else
            cargarCampos(c);
    }
    return true;
}

void DatosImpreso::img_Buscar_Click()
{
    guardia(m_pantalla, QStringLiteral("img_Buscar_Click"), [&] {
        abrirSelector({.tabla = QStringLiteral("PROYECTOS_A"),
                       .titulo = QStringLiteral("Buscar proyecto"),
                       .claveRetorno = m_definicion->claveRetorno},
                      [this](const Eleccion& e) { recibirProyecto(e); },
                      [this](const RegistroGuardado& r) { recibirProyectoNuevo(r); });
    });
}

void DatosImpreso::abrirSelector(PeticionSelector p, const std::function<void(const Eleccion&)>& alElegir,
                                 const AlGuardar& alDarDeAlta)
{
    QPointer<DatosImpreso> yo(this);
    if (p.claveLlamada.isEmpty())
        p.claveLlamada = m_definicion->claveSeleccion;
    p.llamador = this;
    p.alElegir = [yo, alElegir](const Eleccion& e) {
        if (yo)
            alElegir(e);
        return true;
    };
    if (alDarDeAlta)
        p.alDarDeAlta = [yo, alDarDeAlta](const RegistroGuardado& r) {
            if (yo)
                alDarDeAlta(r);
        };
    frmBuscarSeleccionar::abrir(p);
}

void DatosImpreso::recibirProyecto(const Eleccion& e)
{
    txt_Proyecto->setText(e.texto(1));
    txt_CodProyecto->setText(QString::number(e.codigo));
}

void DatosImpreso::recibirProyectoNuevo(const RegistroGuardado& r)
{
    txt_CodProyecto->setText(QString::number(r.codigo));
    txt_Proyecto->setText(r.nombre);
}

void DatosImpreso::img_Borrar_Click()
{
    txt_CodProyecto->clear();
    txt_Proyecto->clear();
}

// ---------------------------------------------------------------- copia y validación

QString DatosImpreso::recortado(const QWidget* w) const { return Instantanea::texto(w).trimmed(); }

qint64 DatosImpreso::codigoProyecto() const { return txt_CodProyecto ? txt_CodProyecto->text().trimmed().toLongLong() : 0; }

QList<QWidget*> DatosImpreso::controlesCopia() const
{
    QList<QWidget*> l;
    if (txt_CodProyecto)
        l << txt_CodProyecto << txt_Proyecto;
    if (txt_Lugar)
        l << txt_Lugar;
    return l << txt_Fecha;
}

bool DatosImpreso::avisar(QWidget* campo, const QString& texto)
{
    Mensajes::aviso(texto);
    if (campo) {
        mostrarPestana(campo);
        campo->setFocus();
    }
    return false;
}

bool DatosImpreso::validarDatos()
{
    if (txt_CodProyecto && (txt_CodProyecto->text().trimmed().isEmpty() || txt_Proyecto->text().trimmed().isEmpty()))
        return avisar(txt_Proyecto, QStringLiteral("Por favor, seleccione un proyecto"));
    if (!validarPropios())
        return false;
    if (txt_Lugar && txt_Lugar->text().trimmed().isEmpty())
        return avisar(txt_Lugar, QStringLiteral("Por favor, escriba el lugar (necesario para el pie del impreso)"));
    if (txt_Fecha->text().trimmed().isEmpty())
        return avisar(txt_Fecha, QStringLiteral("Por favor, escriba la fecha (necesaria para el pie del impreso)"));
    return validarTrasPie();
}

// ---------------------------------------------------------------- escritura

qint64 DatosImpreso::guardarDatosHistorico()
{
    qint64 clave = 0;
    guardia(m_pantalla, QStringLiteral("guardarDatosHistorico"), [&] {
        Campos campos = camposHistorico();
        for (auto& c : campos)
            c.second = BloquesImpreso::textoGuardable(c.second);
        if (!m_definicion->columnaTipo.isEmpty() && !variante().marcaTipo.isEmpty())
            campos.append({m_definicion->columnaTipo, variante().marcaTipo});  // la marca va la última
        if (tag() == QLatin1String("ALTA")) {
            clave = insertarConContador(m_definicion->tablaHistorico, campos, QStringLiteral("Clave"));
        } else if (tag() == QLatin1String("MODIFICAR")) {
            Consulta c(QStringLiteral("SELECT Clave FROM \"%1\" WHERE Clave = ?").arg(m_definicion->tablaHistorico), {Clave});
            if (!c.siguiente()) {
                Mensajes::aviso(QStringLiteral("No se ha podido hallar el impreso seleccionado para su modificación"));
                return;
            }
            actualizar(m_definicion->tablaHistorico, campos, QStringLiteral("Clave = ?"), {Clave});
            clave = Clave;
        }
        if (clave > 0)
            escribirFilasHijas(clave);
    });
    return clave;
}

void DatosImpreso::guardarDatosTemporal()
{
    guardia(m_pantalla, QStringLiteral("guardarDatosTemporal"), [&] { escribirTemporal(); });
}

void DatosImpreso::mostrarVistaPrevia() { mostrarImpreso(variante(), variante().tituloVisor); }

void DatosImpreso::tlb_BotoneraImprimir_ButtonClick()
{
    m_cancelarCierre = false;
    if (!validarDatos()) {
        m_cancelarCierre = true;
        return;
    }
    const VarianteImpreso v = variante();
    bool enTransaccion = false;
    const bool ok = guardia(m_pantalla, QStringLiteral("tlb_BotoneraImprimir_ButtonClick"), [&] {
        CursorEspera espera;
        {
            Transaccion t;
            enTransaccion = true;
            // Los fallos propios de los dos escritores se anotan y no deshacen la transacción.
            guardarDatosHistorico();
            TablasTemporales::vaciar(*m_definicion);
            guardarDatosTemporal();
            t.confirmar();
            enTransaccion = false;
        }
        tomarCopia();
        marcarActualizarLista();
        mostrarVistaPrevia();
    });
    // La transacción ya se ha deshecho al salir de su ámbito.
    if (!ok && enTransaccion)
        Mensajes::aviso(TablaImpresos::AVISO_FALLO);

    // Un impreso nuevo sólo vive hasta su primera vista previa: se cierra y se abre su lista,
    // detrás de la vista previa recién hecha.
    if (tag() == QLatin1String("ALTA")) {
        Pantallas::descargar(this);
        abrirListaImpreso(v.entradaMenu);
        Pantallas::activar(Pantallas::cargada<frmVisorCrystal>());
    }
}

bool DatosImpreso::guardarAlSalir()
{
    // Sí guarda la fila de historial sin vista previa ni tabla temporal.
    m_cancelarCierre = !validarDatos();
    if (!m_cancelarCierre) {
        CursorEspera espera;
        UsoConexion uso;
        guardarDatosHistorico();
    }
    return !m_cancelarCierre;
}

// ---------------------------------------------------------------- pares código y nombre

PeticionSelector DatosImpreso::peticionPar(PeticionSelector p, QLineEdit* codigo, QLineEdit* nombre, std::function<void()> recibido)
{
    QPointer<QLineEdit> cod(codigo), nom(nombre);
    const auto escribir = [cod, nom, recibido](qint64 c, const QString& n) {
        if (!cod || !nom)
            return;
        nom->setText(n);
        cod->setText(QString::number(c));
        if (recibido)
            recibido();
    };
    p.llamador = this;
    p.alElegir = [escribir](const Eleccion& e) {
        escribir(e.codigo, e.nombreCompleto);
        return true;
    };
    p.alDarDeAlta = [escribir](const RegistroGuardado& r) { escribir(r.codigo, r.nombre); };
    return p;
}

void DatosImpreso::buscarPar(const PeticionSelector& p, QLineEdit* codigo, QLineEdit* nombre)
{
    frmBuscarSeleccionar::abrir(peticionPar(p, codigo, nombre));
}

// ---------------------------------------------------------------- fechas con máscara y pestañas

namespace {

// Un campo de fecha: al entrar, el globo bajo el campo (o encima si no cabe) y el contenido
// seleccionado; al salir, el globo se oculta.
class FiltroCampoFecha : public QObject {
public:
    FiltroCampoFecha(QLineEdit* campo, AyudaFecha* ayuda) : QObject(campo), m_campo(campo), m_ayuda(ayuda) {}

    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() == QEvent::FocusIn) {
            m_ayuda->mostrarAyuda(1);
            QWidget* pantalla = m_ayuda->parentWidget();
            QPoint p = m_campo->mapTo(pantalla, QPoint(0, m_campo->height() + 2));
            if (p.y() + m_ayuda->height() > pantalla->height())
                p.setY(m_campo->mapTo(pantalla, QPoint(0, 0)).y() - m_ayuda->height() - 2);
            p.setX(qMin(p.x(), qMax(0, pantalla->width() - m_ayuda->width())));
            m_ayuda->move(p);
            // El campo coloca el cursor al recibir el foco; se selecciona después.
            QPointer<QLineEdit> campo(m_campo);
            QTimer::singleShot(0, m_campo, [campo] {
                if (campo)
                    campo->selectAll();
            });
        } else if (e->type() == QEvent::FocusOut) {
            m_ayuda->mostrarAyuda(0);
        }
        return false;
    }

private:
    QLineEdit* m_campo;
    AyudaFecha* m_ayuda;
};

QDate fechaDe(const QLineEdit* campo)
{
    const QString t = campo->displayText().trimmed();
    if (t == FECHA_VACIA)
        return {};
    return QDate::fromString(textoFechaNormalizado(t), QStringLiteral("dd/MM/yyyy"));
}

}  // namespace

void DatosImpreso::prepararFechas(const QList<QLineEdit*>& campos)
{
    if (!m_ayudaFecha)
        m_ayudaFecha = new AyudaFecha(this);
    for (QLineEdit* c : campos) {
        prepararCampoFecha(c);
        c->installEventFilter(new FiltroCampoFecha(c, m_ayudaFecha));
    }
}

void DatosImpreso::mostrarAyuda(int mostrar)
{
    if (m_ayudaFecha)
        m_ayudaFecha->mostrarAyuda(mostrar);
}

QVariant DatosImpreso::fechaHistorico(const QLineEdit* campo)
{
    const QDate f = fechaDe(campo);
    return f.isValid() ? QVariant(f.toString(Qt::ISODate)) : QVariant(QMetaType(QMetaType::QString));
}

QVariant DatosImpreso::fechaTemporal(const QLineEdit* campo)
{
    const QDate f = fechaDe(campo);
    return f.isValid() ? QVariant(f.toString(QStringLiteral("dd/MM/yyyy"))) : QVariant(QMetaType(QMetaType::QString));
}

void DatosImpreso::ponerFecha(QLineEdit* campo, const QVariant& guardada)
{
    const QString t = guardada.isNull() ? QString() : guardada.toString().trimmed();
    QDate f = QDate::fromString(t.left(10), Qt::ISODate);
    if (!f.isValid())
        f = QDate::fromString(textoFechaNormalizado(t), QStringLiteral("dd/MM/yyyy"));
    campo->setText(f.isValid() ? f.toString(QStringLiteral("dd/MM/yyyy")) : QString());
}

void DatosImpreso::mostrarPestana(QWidget* campo)
{
    // Cada página de un QTabWidget cuelga de su QStackedWidget interno.
    for (QWidget* w = campo; w && w->parentWidget(); w = w->parentWidget())
        if (qobject_cast<QStackedWidget*>(w->parentWidget()))
            if (auto* pestanas = qobject_cast<QTabWidget*>(w->parentWidget()->parentWidget()))
                pestanas->setCurrentWidget(w);
}
