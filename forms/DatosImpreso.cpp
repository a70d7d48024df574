#include "forms/DatosImpreso.h"

#include "app/frmMenu.h"
#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "forms/BloquesImpreso.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"
#include "search/AbrirBusqueda.h"
#include "search/frmBuscarSeleccionar.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QShowEvent>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>

DatosImpreso::DatosImpreso(const QString& pantalla, QWidget* padre)
    : Pantalla(padre), m_pantalla(pantalla), m_definicion(TablaImpresos::porPantalla(pantalla))
{
    Q_ASSERT(m_definicion);
    setObjectName(pantalla);
}

const VarianteImpreso& DatosImpreso::variante() const { return m_definicion->variantes.constFirst(); }

void DatosImpreso::enlazarControles()
{
    txt_CodProyecto = findChild<QLineEdit*>(QStringLiteral("txt_CodProyecto"));
    txt_Proyecto = findChild<QLineEdit*>(QStringLiteral("txt_Proyecto"));
    txt_Lugar = findChild<QLineEdit*>(QStringLiteral("txt_Lugar"));
    txt_Fecha = findChild<QLineEdit*>(QStringLiteral("txt_Fecha"));
    img_Buscar = findChild<QToolButton*>(QStringLiteral("img_Buscar"));
    img_Borrar = findChild<QToolButton*>(QStringLiteral("img_Borrar"));
    tlb_BotoneraImprimir = findChild<QToolBar*>(QStringLiteral("tlb_BotoneraImprimir"));
    Q_ASSERT(txt_CodProyecto && txt_Proyecto && txt_Lugar && txt_Fecha && img_Buscar && img_Borrar && tlb_BotoneraImprimir);

    txt_CodProyecto->setReadOnly(true);
    txt_Proyecto->setReadOnly(true);
    img_Buscar->setToolTip(QStringLiteral("Seleccionar proyecto"));
    img_Borrar->setToolTip(QStringLiteral("Limpiar datos proyecto"));
    connect(img_Buscar, &QToolButton::clicked, this, [this] { img_Buscar_Click(); });
    connect(img_Borrar, &QToolButton::clicked, this, [this] { img_Borrar_Click(); });

    // Un solo botón, sin clave: cualquier pulsación hace todo el recorrido.
    m_botonImprimir = tlb_BotoneraImprimir->addAction(Iconos::icono(QStringLiteral("imprimir")), QString());
    m_botonImprimir->setObjectName(QStringLiteral("tlb_BotoneraImprimir_1"));
    m_botonImprimir->setToolTip(QStringLiteral("Vista previa e impresión del documento"));
    connect(m_botonImprimir, &QAction::triggered, this, [this] { tlb_BotoneraImprimir_ButtonClick(); });
}

void DatosImpreso::showEvent(QShowEvent* e)
{
    Form_Load();
    Pantalla::showEvent(e);
}

void DatosImpreso::Form_Load()
{
    if (m_cargada)
        return;
    m_cargada = true;
    guardia(m_pantalla, QStringLiteral("Form_Load"), [&] {
        setWindowIcon(Iconos::iconoPrograma());
        img_Buscar->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
        img_Borrar->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
        txt_Lugar->setMaxLength(50);
        txt_Fecha->setMaxLength(30);
        aplicarLimites();

        UsoConexion uso;
        if (Operacion == QLatin1String("ALTA")) {
            txt_Fecha->setText(Formato::fechaPie(QDate::currentDate()));
            Consulta c(QStringLiteral("SELECT Municipio FROM Config"));
            if (c.siguiente())
                txt_Lugar->setText(c.texto(QStringLiteral("Municipio")));
            valoresPorDefecto();
        } else if (Operacion == QLatin1String("MODIFICAR")) {
            Consulta c(QStringLiteral("SELECT * FROM \"%1\" WHERE Clave = ?").arg(m_definicion->tablaHistorico), {Clave});
            if (!c.siguiente())
                Mensajes::aviso(QStringLiteral("No se han podido cargar los datos del impreso seleccionado"));
            else
                cargarCampos(c);
        }
        cargarInformacionImpreso();
    });
}

void DatosImpreso::img_Buscar_Click()
{
    guardia(m_pantalla, QStringLiteral("img_Buscar_Click"), [&] {
        frmBuscarSeleccionar::abrir(QStringLiteral("PROYECTOS_A"), m_definicion->claveSeleccion, QStringLiteral("Buscar proyecto"),
                                    m_definicion->claveRetorno);
    });
}

void DatosImpreso::img_Borrar_Click()
{
    txt_CodProyecto->clear();
    txt_Proyecto->clear();
}

// ---------------------------------------------------------------- copia y validación

QString DatosImpreso::textoControl(const QWidget* w)
{
    if (auto* b = qobject_cast<const QAbstractButton*>(w))
        return b->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    if (auto* t = qobject_cast<const QLineEdit*>(w))
        return t->text();
    if (auto* t = qobject_cast<const QPlainTextEdit*>(w))
        return t->toPlainText();
    if (auto* t = qobject_cast<const QTextEdit*>(w))
        return t->toPlainText();
    return {};
}

QString DatosImpreso::recortado(const QWidget* w) const { return textoControl(w).trimmed(); }

qint64 DatosImpreso::codigoProyecto() const { return txt_CodProyecto->text().trimmed().toLongLong(); }

QList<QWidget*> DatosImpreso::controlesCopia() const { return {txt_CodProyecto, txt_Proyecto, txt_Lugar, txt_Fecha}; }

void DatosImpreso::cargarInformacionImpreso()
{
    m_copia.clear();
    for (const QWidget* w : controlesCopia())
        m_copia << textoControl(w);
}

bool DatosImpreso::PreguntarGuardarCambios() const
{
    const QList<QWidget*> controles = controlesCopia();
    for (int i = 0; i < controles.size(); ++i)
        if (m_copia.value(i).toUpper() != textoControl(controles[i]).toUpper())
            return true;
    return false;
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
    if (txt_CodProyecto->text().trimmed().isEmpty() || txt_Proyecto->text().trimmed().isEmpty())
        return avisar(txt_Proyecto, QStringLiteral("Por favor, seleccione un proyecto"));
    if (!validarPropios())
        return false;
    if (txt_Lugar->text().trimmed().isEmpty())
        return avisar(txt_Lugar, QStringLiteral("Por favor, escriba el lugar (necesario para el pie del impreso)"));
    if (txt_Fecha->text().trimmed().isEmpty())
        return avisar(txt_Fecha, QStringLiteral("Por favor, escriba la fecha (necesaria para el pie del impreso)"));
    return true;
}

// ---------------------------------------------------------------- escritura

void DatosImpreso::guardarDatosHistorico()
{
    guardia(m_pantalla, QStringLiteral("guardarDatosHistorico"), [&] {
        Campos campos = camposHistorico();
        for (auto& c : campos)
            c.second = BloquesImpreso::textoGuardable(c.second);
        if (!m_definicion->columnaTipo.isEmpty() && !variante().marcaTipo.isEmpty())
            campos.append({m_definicion->columnaTipo, variante().marcaTipo});  // la marca va la última
        if (tag() == QLatin1String("ALTA")) {
            insertar(m_definicion->tablaHistorico, campos);
        } else if (tag() == QLatin1String("MODIFICAR")) {
            Consulta c(QStringLiteral("SELECT Clave FROM \"%1\" WHERE Clave = ?").arg(m_definicion->tablaHistorico), {Clave});
            if (!c.siguiente()) {
                Mensajes::aviso(QStringLiteral("No se ha podido hallar el impreso seleccionado para su modificación"));
                return;
            }
            actualizar(m_definicion->tablaHistorico, campos, QStringLiteral("Clave = ?"), {Clave});
        }
    });
}

void DatosImpreso::guardarDatosTemporal()
{
    guardia(m_pantalla, QStringLiteral("guardarDatosTemporal"), [&] { escribirTemporal(); });
}

void DatosImpreso::tlb_BotoneraImprimir_ButtonClick()
{
    m_cancelar = false;
    if (!validarDatos()) {
        m_cancelar = true;
        return;
    }
    const VarianteImpreso v = variante();
    bool enTransaccion = false;
    const bool ok = guardia(m_pantalla, QStringLiteral("tlb_BotoneraImprimir_ButtonClick"), [&] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
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
        cargarInformacionImpreso();
        marcarActualizarLista();
        Pantallas::descargar<frmVisorCrystal>();
        modInformes::Informe = modInformes::crearInforme(v.informe);
        modInformes::conectar();
        modInformes::iniciarInforme_Impreso(v.codigo);
        QApplication::restoreOverrideCursor();
        frmVisorCrystal::mostrarInforme(v.tituloVisor);
    });
    // La transacción ya se ha deshecho al salir de su ámbito.
    if (!ok && enTransaccion)
        Mensajes::aviso(AVISO_FALLO);
    if (!transaccionEnCurso && BaseDatos::estaAbierta())
        BaseDatos::cerrar();
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();

    // Un impreso nuevo sólo vive hasta su primera vista previa: se cierra y se abre su lista.
    if (tag() == QLatin1String("ALTA")) {
        const AccionMenu accion = v.accionMenu;
        Pantallas::descargar(this);
        if (accion)
            (frmMenu::instancia()->*accion)();
    }
}

bool DatosImpreso::alDescargar()
{
    bool cerrar = true;
    guardia(m_pantalla, QStringLiteral("Form_Unload"), [&] {
        // Sí guarda la fila de historial sin vista previa ni tabla temporal.
        cerrar = Pantallas::preguntarGuardarAlSalir(PreguntarGuardarCambios(), [&] {
            m_cancelar = !validarDatos();
            if (!m_cancelar) {
                QApplication::setOverrideCursor(Qt::WaitCursor);
                UsoConexion uso;
                guardarDatosHistorico();
            }
            return !m_cancelar;
        });
    });
    if (!transaccionEnCurso && BaseDatos::estaAbierta())
        BaseDatos::cerrar();
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    return cerrar;
}
