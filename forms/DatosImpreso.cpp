#include "forms/DatosImpreso.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "forms/BloquesImpreso.h"
#include "reports/VistaImpreso.h"
#include "search/AbrirBusqueda.h"

#include <QAction>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

DatosImpreso::DatosImpreso(const QString& pantalla, QWidget* padre)
    : PantallaEdicion(padre), m_pantalla(pantalla), m_definicion(TablaImpresos::porPantalla(pantalla))
{
    Q_ASSERT(m_definicion);
    setObjectName(pantalla);
}

const VarianteImpreso& DatosImpreso::variante() const { return m_definicion->variantes.constFirst(); }

void DatosImpreso::enlazarControles()
{
    txt_Lugar = findChild<QLineEdit*>(QStringLiteral("txt_Lugar"));
    txt_Fecha = findChild<QLineEdit*>(QStringLiteral("txt_Fecha"));
    tlb_BotoneraImprimir = findChild<QToolBar*>(QStringLiteral("tlb_BotoneraImprimir"));
    Q_ASSERT(txt_Fecha && tlb_BotoneraImprimir);
    if (m_definicion->conProyecto) {
        txt_CodProyecto = findChild<QLineEdit*>(QStringLiteral("txt_CodProyecto"));
        txt_Proyecto = findChild<QLineEdit*>(QStringLiteral("txt_Proyecto"));
        img_Buscar = findChild<QToolButton*>(QStringLiteral("img_Buscar"));
        img_Borrar = findChild<QToolButton*>(QStringLiteral("img_Borrar"));
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
    abrirSelector(QStringLiteral("PROYECTOS_A"), QStringLiteral("Buscar proyecto"), [this](const Eleccion& e) { recibirProyecto(e); },
                  [this](const RegistroGuardado& r) { recibirProyectoNuevo(r); });
}

void DatosImpreso::abrirSelector(const QString& tabla, const QString& titulo, std::function<void(const Eleccion&)> alElegir,
                                 AlGuardar alDarDeAlta)
{
    guardia(m_pantalla, QStringLiteral("img_Buscar_Click"), [&] {
        // Lo elegido sólo llega si la pantalla sigue abierta.
        QPointer<DatosImpreso> yo(this);
        frmBuscarSeleccionar::abrir({.tabla = tabla,
                                     .claveLlamada = m_definicion->claveSeleccion,
                                     .titulo = titulo,
                                     .claveRetorno = m_definicion->claveRetorno,
                                     .llamador = this,
                                     .alElegir =
                                         [yo, alElegir](const Eleccion& e) {
                                             if (yo)
                                                 alElegir(e);
                                             return true;
                                         },
                                     .alDarDeAlta =
                                         [yo, alDarDeAlta](const RegistroGuardado& r) {
                                             if (yo)
                                                 alDarDeAlta(r);
                                         }});
    });
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
    if (campo)
        campo->setFocus();
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
    return true;
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
            insertar(m_definicion->tablaHistorico, campos);
            clave = ultimoIdentificador();
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
            ejecutar(QStringLiteral("DELETE FROM \"%1\"").arg(m_definicion->tablaTemporal));
            for (const QString& extra : m_definicion->temporalesExtra)
                ejecutar(QStringLiteral("DELETE FROM \"%1\"").arg(extra));
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

    // Un impreso nuevo sólo vive hasta su primera vista previa: se cierra y se abre su lista.
    if (tag() == QLatin1String("ALTA")) {
        Pantallas::descargar(this);
        abrirListaImpreso(v.entradaMenu);
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

// ---------------------------------------------------------------- campos de fecha

namespace {

// Al entrar en un campo de fecha: el globo bajo el campo y su texto seleccionado; al salir, fuera.
class VigiaFecha : public QObject {
public:
    VigiaFecha(QWidget* pantalla, AyudaFecha* ayuda) : QObject(pantalla), m_pantalla(pantalla), m_ayuda(ayuda) {}

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override
    {
        auto* campo = qobject_cast<QLineEdit*>(objeto);
        if (!campo)
            return false;
        if (evento->type() == QEvent::FocusIn) {
            m_ayuda->mostrarAyuda(1);
            QPoint p = campo->mapTo(m_pantalla, QPoint(0, campo->height() + 2));
            p.setX(qMin(p.x(), qMax(0, m_pantalla->width() - m_ayuda->width())));
            m_ayuda->move(p);
            // El campo coloca su cursor al recibir el foco: se selecciona después.
            QPointer<QLineEdit> vigilado(campo);
            QTimer::singleShot(0, campo, [vigilado] {
                if (vigilado)
                    vigilado->selectAll();
            });
        } else if (evento->type() == QEvent::FocusOut) {
            m_ayuda->mostrarAyuda(0);
        }
        return false;
    }

private:
    QWidget* m_pantalla;
    AyudaFecha* m_ayuda;
};

}  // namespace

void DatosImpreso::prepararFechas(const QList<QLineEdit*>& campos)
{
    if (!m_ayuda)
        m_ayuda = new AyudaFecha(this);
    auto* vigia = new VigiaFecha(this, m_ayuda);
    for (QLineEdit* msk : campos) {
        prepararCampoFecha(msk);
        msk->installEventFilter(vigia);
    }
}

void DatosImpreso::mostrarAyuda(int mostrar)
{
    if (m_ayuda)
        m_ayuda->mostrarAyuda(mostrar);
}

QVariant DatosImpreso::fechaGuardable(const QLineEdit* msk)
{
    const QDate f = QDate::fromString(textoFechaNormalizado(msk->displayText()), QStringLiteral("dd/MM/yyyy"));
    return f.isValid() ? QVariant(f.toString(Qt::ISODate)) : QVariant(QMetaType(QMetaType::QString));
}

QString DatosImpreso::fechaEnCampo(const QString& iso)
{
    const QDate f = QDate::fromString(iso.trimmed().left(10), Qt::ISODate);
    return f.isValid() ? f.toString(QStringLiteral("dd/MM/yyyy")) : QString();
}
