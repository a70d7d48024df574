#include "app/frmInicio.h"

#include "app/Aplicacion.h"
#include "app/frmAyudaSeleccionBD.h"
#include "app/frmMenu.h"
#include "core/Almacen.h"
#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "core/Programa.h"
#include "ui_frmInicio.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScreen>
#include <QSqlRecord>

namespace {
const QString FORMULARIO = QStringLiteral("frmInicio");
const QString SALTO = QStringLiteral("\n");
}

frmInicio::frmInicio(QWidget* padre) : QWidget(padre), ui(new Ui::frmInicio)
{
    ui->setupUi(this);
    setObjectName(QStringLiteral("frmInicio"));
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    // Dónde está la base de datos sólo se dice si es un servidor: con el fichero, como siempre.
    ui->lbl_Motor->hide();
    tmr_1.setInterval(1000);
    tmr_1.setSingleShot(false);
    connect(&tmr_1, &QTimer::timeout, this, &frmInicio::tmr_1_Timer);
}

frmInicio::~frmInicio() { delete ui; }

void frmInicio::fijarBarra(int valor)
{
    m_progreso = valor;
    m_valores << valor;
    ui->pb_Barra->setValue(valor);
    if (isVisible())
        repaint();
}

void frmInicio::pasoBarra() { fijarBarra(m_progreso + 10); }

void frmInicio::Form_Load()
{
    // 1-2: barra a 5; una segunda instancia termina sin decir nada.
    fijarBarra(5);
    if (Aplicacion::hayOtraInstancia()) {
        Programa::terminar();
        return;
    }
    // 3-4: el dibujo del arranque, y la pantalla a la vista mientras se comprueba todo.
    ui->img_Fondo->setPixmap(Iconos::logotipo(QSize(520, 280), Iconos::Fondo::Pintado));
    m_abrirConfiguracion = false;
    if (QScreen* pantalla = QGuiApplication::primaryScreen())
        move(pantalla->availableGeometry().center() - rect().center());
    show();
    pasoBarra();

    // 5: ubicación de la base de datos (avanza la barra dos veces).
    comprobarBD();
    if (Programa::terminado())
        return;
    pasoBarra();

    // 7: sin base de datos no hay programa; el siguiente arranque preguntará dónde está. Con el
    // servidor no hay fichero: lo que falte lo dice la conexión.
    BaseDatos::construirCadenaConexion();
    const bool enServidor = BaseDatos::enServidor();
    if (enServidor) {
        // Un nombre largo se recorta: la pantalla de arranque no se ensancha.
        const QString texto = BaseDatos::servidorElegido().textoVisible();
        ui->lbl_Motor->setToolTip(texto);
        ui->lbl_Motor->setText(ui->lbl_Motor->fontMetrics().elidedText(texto, Qt::ElideMiddle, ui->img_Fondo->minimumWidth() - 10));
        ui->lbl_Motor->show();
        if (isVisible())
            repaint();
    }
    if (!enServidor && !QFileInfo::exists(rutaBD + BaseDatos::NOMBRE_FICHERO)) {
        Mensajes::aviso(QStringLiteral("No se ha podido encontrar el fichero que contiene la base de datos del programa. ")
                        + QStringLiteral("Puede que haya sido borrado o cambiado de su ubicación.") + SALTO + SALTO
                        + QStringLiteral("A continuación el programa se cerrará. Cuando lo vuelva a ejecutar se le solicitará que indique la ubicación de la base de datos."));
        escribirAjuste(QStringLiteral("Opciones"), QStringLiteral("inicio"), QStringLiteral("0"));
        Programa::terminar();
        return;
    }

    // 9-16: el fichero ha de ser una base de datos de este programa (la misma comprobación que al
    // restaurar una copia), la fila de Config con sus tipos, y la conexión cerrada para compactar.
    const bool bien = guardia(FORMULARIO, QStringLiteral("Form_Load"), [&] {
        if (!enServidor)
            Almacen::comprobarBaseDatos(BaseDatos::ficheroBD(), Almacen::Uso::BaseViva);
        UsoConexion uso;
        valoresPorDefectoTipos();
        fijarBarra(m_progreso + 10);
    });
    BaseDatos::cerrar();
    if (!bien) {
        // La pantalla de arranque se queda con su último valor y el temporizador parado;
        // un clic o Esc la cierran.
        m_fallido = true;
        return;
    }
    tmr_1.start();
}

void frmInicio::comprobarBD()
{
    guardia(FORMULARIO, QStringLiteral("comprobarBD"), [&] {
        const QString texto = leerAjuste(QStringLiteral("opciones"), QStringLiteral("inicio")).trimmed();
        bool ok = false;
        const int valor = texto.toInt(&ok);
        if (!ok || valor < -32768 || valor > 32767)
            lanzarError(13, QStringLiteral("No coinciden los tipos"));
        pasoBarra();
        if (valor != 0) {
            rutaBD = leerRutaBD();
        } else {
            frmAyudaSeleccionBD asistente;
            asistente.exec();
            if (Programa::terminado())
                return;
        }
        pasoBarra();
    });
}

void frmInicio::valoresPorDefectoTipos()
{
    bool hayFila = false;
    QVariant iva, irpf;
    {
        Consulta c(QStringLiteral("SELECT * FROM Config"));
        hayFila = c.siguiente();
        if (hayFila) {
            iva = c.valor(QStringLiteral("IVA"));
            irpf = c.valor(QStringLiteral("IRPF"));
        }
    }
    if (!hayFila)
        ejecutar(QStringLiteral("INSERT INTO Config DEFAULT VALUES"));

    auto falta = [](const QVariant& v) { return v.isNull() || v.toString().trimmed().isEmpty(); };
    const bool faltaIva = falta(iva), faltaIrpf = falta(irpf);
    QString texto;
    Campos campos;
    if (faltaIva && faltaIrpf) {
        texto = QStringLiteral("No se han establecido valores para el IVA ni el IRPF.") + SALTO
                + QStringLiteral("Se han asignado los siguientes valores por defecto: ") + SALTO + SALTO
                + QStringLiteral("    - IVA: 16%") + SALTO + QStringLiteral("    - IRPF: 15%") + SALTO + SALTO
                + QStringLiteral("¿Desea cambiar estos valores asignados por defecto?");
        campos = {{QStringLiteral("IVA"), 16}, {QStringLiteral("IRPF"), 15}};
    } else if (faltaIva) {
        texto = QStringLiteral("No se han establecido valores para el IVA.") + SALTO
                + QStringLiteral("Se ha asignado el siguiente valor por defecto: ") + SALTO + SALTO
                + QStringLiteral("    - IVA: 16%") + SALTO + SALTO
                + QStringLiteral("¿Desea cambiar este valor asignado por defecto?");
        campos = {{QStringLiteral("IVA"), 16}};
    } else if (faltaIrpf) {
        texto = QStringLiteral("No se han establecido valores para el IRPF.") + SALTO
                + QStringLiteral("Se han asignado el siguiente valor por defecto: ") + SALTO + SALTO
                + QStringLiteral("    - IRPF: 15%") + SALTO + SALTO
                + QStringLiteral("¿Desea cambiar este valor asignado por defecto?");
        campos = {{QStringLiteral("IRPF"), 15}};
    } else {
        return;
    }
    const Mensajes::Respuesta r = Mensajes::preguntaAviso(texto);
    // Los valores se guardan contesten lo que contesten; la respuesta sólo decide si luego se
    // abre la configuración.
    actualizar(QStringLiteral("Config"), campos, QStringLiteral("rowid = (SELECT MIN(rowid) FROM Config)"), {});
    if (r == Mensajes::Respuesta::Si)
        m_abrirConfiguracion = true;
}

void frmInicio::compactarBD()
{
    const QString procedimiento = QStringLiteral("compactarBD");
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        BaseDatos::cerrar();
        // La pantalla se repinta mientras el motor trabaja; lo que teclee o pulse el usuario espera.
        Almacen::compactar(rutaBD, [this](int valor) { fijarBarra(valor); },
                           [](int) { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
        QApplication::restoreOverrideCursor();
    } catch (...) {
        QApplication::restoreOverrideCursor();
        const ErrorPrograma e = errorDesdeExcepcion(std::current_exception());
        if (e.numero == ERROR_BD_EN_USO) {
            escribirLog(e, NOMBRE_PROGRAMA + QStringLiteral(" - [No se ha podido realizar la compactación al estar la base de datos abierta por otro usuario]"),
                        FORMULARIO, procedimiento, 0, Mostrar::No);
        } else {
            escribirLog(e, NOMBRE_PROGRAMA, FORMULARIO, procedimiento, 0, Mostrar::Si);
        }
    }
}

void frmInicio::tmr_1_Timer()
{
    // Se para antes de compactar: mientras el motor trabaja se atienden los eventos pendientes y
    // el temporizador no debe volver a saltar.
    if (!tmr_1.isActive())
        return;
    tmr_1.stop();
    if (!BaseDatos::enServidor())
        compactarBD();  // el servidor se mantiene solo
    fijarBarra(100);
    hide();
    deleteLater();
    frmMenu* menu = frmMenu::instancia();
    // Maximizada: las pantallas hijas caben enteras (sin gestor de ventanas, ocupa la pantalla).
    if (QScreen* pantalla = QGuiApplication::primaryScreen())
        menu->setGeometry(pantalla->availableGeometry());
    menu->showMaximized();
    if (m_abrirConfiguracion)
        menu->abrirConfiguracion(1);
}

void frmInicio::keyPressEvent(QKeyEvent* e)
{
    if (m_fallido && e->key() == Qt::Key_Escape) {
        Programa::terminar();
        close();
        return;
    }
    QWidget::keyPressEvent(e);
}

void frmInicio::mousePressEvent(QMouseEvent* e)
{
    if (m_fallido) {
        Programa::terminar();
        close();
        return;
    }
    QWidget::mousePressEvent(e);
}
