#include "app/frmMenu.h"

#include "app/Aplicacion.h"
#include "app/CMdiBackground.h"
#include "app/frmAyudaIconos.h"
#include "contracts/frmContratos.h"
#include "core/Documentos.h"
#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "core/Programa.h"
#include "masterdata/frmConfiguracion.h"
#include "forms/AbrirImpreso.h"
#include "search/AbrirBusqueda.h"
#include "tools/frmCopiaSeguridad.h"
#include "tools/frmEditorRTF.h"
#include "tools/frmRestaurarCopiaSeguridad.h"
#include "ui_frmMenu.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>

namespace {
const QString FORMULARIO = QStringLiteral("frmMenu");
QPointer<frmMenu>& unica()
{
    static QPointer<frmMenu> m;
    return m;
}
const QString AVISO_CERRAR =
    QStringLiteral("Por favor, para evitar posibles errores, cierre TODAS las pantallas del programa (excepto la del propio programa) ");
}  // namespace

frmMenu* frmMenu::instancia()
{
    if (!unica())
        unica() = new frmMenu;
    return unica();
}

frmMenu* frmMenu::existente() { return unica(); }

frmMenu::frmMenu(QWidget* padre) : QMainWindow(padre), ui(new Ui::frmMenu)
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    Pantallas::registrar(this);
    Pantallas::establecerAreaPrincipal(ui->mdi_Area);
    ui->mdi_Area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    ui->mdi_Area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    crearBarra();
    conectarMenu();
    habilitarEntradas();
    MDIForm_Load();
}

frmMenu::~frmMenu()
{
    delete m_fondo;
    m_fondo = nullptr;
    Pantallas::quitar(this);
    Pantallas::establecerAreaPrincipal(nullptr);
    delete ui;
}

QMdiArea* frmMenu::area() const { return ui->mdi_Area; }

void frmMenu::MDIForm_Load()
{
    setWindowIcon(Iconos::iconoPrograma());
    m_fondo = new CMdiBackground(this);
    m_fondo->setClient(ui->mdi_Area);
    const QColor fondo(77, 82, 83);  // &H53524D
    m_fondo->setColor(0, fondo);
    m_fondo->setColor(1, fondo);
    m_fondo->setBackStyle(0);
    m_fondo->setGraphicPosition(1);
    m_fondo->setAutoRefresh(true);
    m_fondo->setGraphic(Iconos::logotipo(QSize(420, 220), Iconos::Fondo::Transparente));
}

void frmMenu::crearBarra()
{
    struct Boton {
        const char* nombre;
        const char* icono;
        const char* consejo;
        void (frmMenu::*accion)();
    };
    const Boton botones[] = {
        {"tlb_Menu_1", "proyecto", "Nuevo proyecto", &frmMenu::mnu_Proyectos_Click},
        {"tlb_Menu_3", "arquitecto", "Arquitectos", &frmMenu::mnu_Arquitectos_Click},
        {"tlb_Menu_5", "aparejador", "Arquitectos técnicos", &frmMenu::mnu_Aparejadores_Click},
        {"tlb_Menu_7", "contratista", "Contratistas", &frmMenu::mnu_Contratistas_Click},
        {"tlb_Menu_9", "cliente", "Clientes", &frmMenu::mnu_Clientes_Click},
        {"tlb_Menu_11", "ayuda", "Ayuda", &frmMenu::mnu_Indice_Click},
        {"tlb_Menu_12", "salir", "Salir", &frmMenu::mnu_Salir_Click},
    };
    int i = 0;
    for (const Boton& b : botones) {
        // Las posiciones pares hasta la 10 son separadores; la 11 y la 12 van juntas.
        if (i > 0 && i < 6)
            ui->tlb_Menu->addSeparator();
        QAction* a = ui->tlb_Menu->addAction(Iconos::iconoGrisColor(QString::fromLatin1(b.icono)), QString());
        a->setObjectName(QString::fromLatin1(b.nombre));
        a->setToolTip(QString::fromUtf8(b.consejo));
        connect(a, &QAction::triggered, this, b.accion);
        if (auto* boton = qobject_cast<QToolButton*>(ui->tlb_Menu->widgetForAction(a)))
            boton->setAutoRaise(true);
        ++i;
    }
}

void frmMenu::conectarMenu()
{
    connect(ui->mnu_Configuracion, &QAction::triggered, this, &frmMenu::mnu_Configuracion_Click);
    connect(ui->mnu_RealizarCopia, &QAction::triggered, this, &frmMenu::mnu_RealizarCopia_Click);
    connect(ui->mnu_RestaurarCopia, &QAction::triggered, this, &frmMenu::mnu_RestaurarCopia_Click);
    connect(ui->mnu_Salir, &QAction::triggered, this, &frmMenu::mnu_Salir_Click);
    connect(ui->mnu_Proyectos, &QAction::triggered, this, &frmMenu::mnu_Proyectos_Click);
    connect(ui->mnu_Arquitectos, &QAction::triggered, this, &frmMenu::mnu_Arquitectos_Click);
    connect(ui->mnu_Aparejadores, &QAction::triggered, this, &frmMenu::mnu_Aparejadores_Click);
    connect(ui->mnu_Contratistas, &QAction::triggered, this, &frmMenu::mnu_Contratistas_Click);
    connect(ui->mnu_Clientes, &QAction::triggered, this, &frmMenu::mnu_Clientes_Click);
    connect(ui->mnu_A1, &QAction::triggered, this, &frmMenu::mnu_A1_Click);
    connect(ui->mnu_A2, &QAction::triggered, this, &frmMenu::mnu_A2_Click);
    connect(ui->mnu_A3, &QAction::triggered, this, &frmMenu::mnu_A3_Click);
    connect(ui->mnu_A4, &QAction::triggered, this, &frmMenu::mnu_A4_Click);
    connect(ui->mnu_A5, &QAction::triggered, this, &frmMenu::mnu_A5_Click);
    connect(ui->mnu_CSS, &QAction::triggered, this, &frmMenu::mnu_CSS_Click);
    connect(ui->mnu_CertificadoFinObra, &QAction::triggered, this, &frmMenu::mnu_CertificadoFinObra_Click);
    connect(ui->mnu_B1, &QAction::triggered, this, &frmMenu::mnu_B1_Click);
    connect(ui->mnu_B2, &QAction::triggered, this, &frmMenu::mnu_B2_Click);
    connect(ui->mnu_B3, &QAction::triggered, this, &frmMenu::mnu_B3_Click);
    connect(ui->mnu_B4_Ajeno, &QAction::triggered, this, &frmMenu::mnu_B4_Ajeno_Click);
    connect(ui->mnu_B4_Propio, &QAction::triggered, this, &frmMenu::mnu_B4_Propio_Click);
    connect(ui->mnu_ComunicadoDireccionCoordinador, &QAction::triggered, this, &frmMenu::mnu_ComunicadoDireccionCoordinador_Click);
    connect(ui->mnu_Certificado, &QAction::triggered, this, &frmMenu::mnu_Certificado_Click);
    connect(ui->mnu_Contrato, &QAction::triggered, this, &frmMenu::mnu_Contrato_Click);
    connect(ui->mnu_Incompatibilidades, &QAction::triggered, this, &frmMenu::mnu_Incompatibilidades_Click);
    QAction* listas[] = {ui->mnu_ListaChequeo_0, ui->mnu_ListaChequeo_1, ui->mnu_ListaChequeo_2,
                         ui->mnu_ListaChequeo_3, ui->mnu_ListaChequeo_4, ui->mnu_ListaChequeo_5};
    for (int i = 0; i < 6; ++i)
        connect(listas[i], &QAction::triggered, this, [this, i] { mnu_ListaChequeo_Click(i); });
    connect(ui->mnu_Editor, &QAction::triggered, this, &frmMenu::mnu_Editor_Click);
    connect(ui->mnu_Indice, &QAction::triggered, this, &frmMenu::mnu_Indice_Click);
    connect(ui->mnu_AyudaSimbolos, &QAction::triggered, this, &frmMenu::mnu_AyudaSimbolos_Click);
    connect(ui->mnu_Cascada, &QAction::triggered, ui->mdi_Area, &QMdiArea::cascadeSubWindows);
    connect(ui->mnu_Mosaico, &QAction::triggered, ui->mdi_Area, &QMdiArea::tileSubWindows);
    connect(ui->mnu_Ventana, &QMenu::aboutToShow, this, &frmMenu::mnu_Ventana_Abrir);
}

// La lista de las pantallas abiertas, al final del menú "Ventana": ninguna se pierde detrás de otra.
void frmMenu::mnu_Ventana_Abrir()
{
    for (QAction* a : ui->mnu_Ventana->actions())
        if (a->property("pantallaAbierta").toBool())
            delete a;
    const QList<QMdiSubWindow*> abiertas = ui->mdi_Area->subWindowList();
    ui->mnu_Cascada->setEnabled(!abiertas.isEmpty());
    ui->mnu_Mosaico->setEnabled(!abiertas.isEmpty());
    int n = 0;
    for (QMdiSubWindow* sub : abiertas) {
        if (!sub->isVisible() || !sub->widget())
            continue;
        ++n;
        const QString titulo = sub->widget()->windowTitle();
        QAction* a = ui->mnu_Ventana->addAction(n < 10 ? QStringLiteral("&%1 %2").arg(n).arg(titulo) : titulo);
        a->setProperty("pantallaAbierta", true);
        a->setCheckable(true);
        a->setChecked(sub == ui->mdi_Area->activeSubWindow());
        QPointer<QWidget> pantalla = sub->widget();
        connect(a, &QAction::triggered, this, [pantalla] { Pantallas::activar(pantalla.data()); });
    }
}

void frmMenu::habilitarEntradas()
{
    // Una entrada cuya pantalla aún no existe está presente pero deshabilitada.
    for (QAction* a : {ui->mnu_A1, ui->mnu_A2, ui->mnu_A3, ui->mnu_A4, ui->mnu_A5, ui->mnu_CSS, ui->mnu_CertificadoFinObra,
                       ui->mnu_B1, ui->mnu_B2, ui->mnu_B3, ui->mnu_B4_Ajeno, ui->mnu_B4_Propio,
                       ui->mnu_ComunicadoDireccionCoordinador, ui->mnu_Certificado})
        a->setEnabled(pantallaImpresoExiste(a->objectName()));
    ui->mnu_Configuracion->setEnabled(frmConfiguracion::disponible());
    ui->mnu_RealizarCopia->setEnabled(true);
    ui->mnu_RestaurarCopia->setEnabled(true);
    ui->mnu_Contrato->setEnabled(true);
}

void frmMenu::abrirListaMaestra(const QString& tabla)
{
    guardia(FORMULARIO, QStringLiteral("abrirBusqueda"), [&] { ::abrirListaMaestra(tabla); });
}

void frmMenu::abrirListaImpreso(const QString& entradaMenu)
{
    guardia(FORMULARIO, QStringLiteral("abrirBusqueda"), [&] { ::abrirListaImpreso(entradaMenu); });
}

void frmMenu::abrirConfiguracion(int pestana)
{
    guardia(FORMULARIO, QStringLiteral("mnu_Configuracion_Click"), [&] { frmConfiguracion::abrir(pestana); });
}

void frmMenu::mnu_Configuracion_Click() { abrirConfiguracion(0); }

void frmMenu::mnu_RealizarCopia_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnu_RealizarCopia_Click"), [&] {
        Mensajes::informacion(AVISO_CERRAR + QStringLiteral("antes de proceder a realizar la copia de seguridad"));
        frmCopiaSeguridad::abrir(false);
    });
}

void frmMenu::mnu_RestaurarCopia_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnu_RestaurarCopia_Click"), [&] {
        Mensajes::informacion(AVISO_CERRAR + QStringLiteral("antes de proceder a restaurar la copia de seguridad"));
        frmRestaurarCopiaSeguridad::abrir();
    });
}

void frmMenu::mnu_Salir_Click() { close(); }

void frmMenu::mnu_Proyectos_Click() { abrirListaMaestra(QStringLiteral("PROYECTOS_A")); }
void frmMenu::mnu_Arquitectos_Click() { abrirListaMaestra(QStringLiteral("ARQUITECTOS")); }
void frmMenu::mnu_Aparejadores_Click() { abrirListaMaestra(QStringLiteral("APAREJADORES")); }
void frmMenu::mnu_Contratistas_Click() { abrirListaMaestra(QStringLiteral("CONTRATISTAS")); }
void frmMenu::mnu_Clientes_Click() { abrirListaMaestra(QStringLiteral("CLIENTES")); }

// Las listas de impresos: tabla, tipo y título salen de la tabla de impresos.
void frmMenu::mnu_A1_Click() { abrirListaImpreso(QStringLiteral("mnu_A1")); }
void frmMenu::mnu_A2_Click() { abrirListaImpreso(QStringLiteral("mnu_A2")); }
void frmMenu::mnu_A3_Click() { abrirListaImpreso(QStringLiteral("mnu_A3")); }
void frmMenu::mnu_A4_Click() { abrirListaImpreso(QStringLiteral("mnu_A4")); }
void frmMenu::mnu_A5_Click() { abrirListaImpreso(QStringLiteral("mnu_A5")); }
void frmMenu::mnu_CSS_Click() { abrirListaImpreso(QStringLiteral("mnu_CSS")); }
void frmMenu::mnu_CertificadoFinObra_Click() { abrirListaImpreso(QStringLiteral("mnu_CertificadoFinObra")); }
void frmMenu::mnu_B1_Click() { abrirListaImpreso(QStringLiteral("mnu_B1")); }
void frmMenu::mnu_B2_Click() { abrirListaImpreso(QStringLiteral("mnu_B2")); }
void frmMenu::mnu_B3_Click() { abrirListaImpreso(QStringLiteral("mnu_B3")); }
void frmMenu::mnu_B4_Ajeno_Click() { abrirListaImpreso(QStringLiteral("mnu_B4_Ajeno")); }
void frmMenu::mnu_B4_Propio_Click() { abrirListaImpreso(QStringLiteral("mnu_B4_Propio")); }
void frmMenu::mnu_ComunicadoDireccionCoordinador_Click() { abrirListaImpreso(QStringLiteral("mnu_ComunicadoDireccionCoordinador")); }
void frmMenu::mnu_Certificado_Click() { abrirListaImpreso(QStringLiteral("mnu_Certificado")); }

void frmMenu::mnu_Contrato_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnu_Contrato_Click"), [&] { frmContratos::abrir(); });
}

void frmMenu::mnu_Incompatibilidades_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnu_Incompatibilidades_Click"),
            [&] { cargarPDF(Rutas::enPrograma(QStringLiteral("Documentos/Incompatibilidades.pdf")), this); });
}

void frmMenu::mnu_ListaChequeo_Click(int indice)
{
    static const char* documentos[] = {"LC_Anteproyecto.pdf", "LC_ProyectoBasico.pdf", "LC_ProyectoBasicoEjecucion.pdf",
                                       "LC_DireccionObra.pdf", "LC_ExpedienteLegalizacion.pdf", "LC_ProyectoDemolicion.pdf"};
    if (indice < 0 || indice > 5)
        return;
    guardia(FORMULARIO, QStringLiteral("mnu_ListaChequeo_Click"), [&] {
        cargarPDF(Rutas::enPrograma(QStringLiteral("Documentos/") + QLatin1String(documentos[indice])), this);
    });
}

void frmMenu::mnu_Editor_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnu_Editor_Click"), [&] { frmEditorRTF::abrir(); });
}

void frmMenu::mnu_Indice_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnu_Indice_Click"), [&] {
        const QString ayuda = Rutas::enPrograma(QStringLiteral("ayuda/index.html"));
        const int r = Sistema::abrirDocumento(ayuda);
        if (r == 31)
            avisarSinProgramaQueLoAbra(ayuda, {.documento = QStringLiteral("la ayuda")}, FORMULARIO, QStringLiteral("mnu_Indice_Click"));
        else if (r < 33)
            Mensajes::aviso(QStringLiteral("No se ha podido mostrar la ayuda. Por favor, inténtelo de nuevo"));
    });
}

void frmMenu::mnu_AyudaSimbolos_Click()
{
    // Anota con el nombre del procedimiento del que se copió.
    guardia(FORMULARIO, QStringLiteral("mnu_Indice_Click"), [&] {
        auto* ayuda = new frmAyudaIconos;
        ayuda->exec();
        delete ayuda;
    });
}

void frmMenu::closeEvent(QCloseEvent* e)
{
    // Como al descargar la principal de siempre: antes, cada pantalla abierta se cierra con su
    // propia pregunta (un texto del editor o una ficha con cambios no se pierden en silencio), y
    // una que se queda abierta detiene la salida.
    QList<QPointer<QWidget>> abiertas;
    for (QWidget* w : Pantallas::cargadas())
        if (w != this)
            abiertas << w;
    for (const QPointer<QWidget>& w : abiertas)
        if (w && !Pantallas::descargar(w)) {
            e->ignore();
            return;
        }
    bool cancelar = false;
    guardia(FORMULARIO, QStringLiteral("MDIForm_Unload"), [&] {
        if (Mensajes::pregunta(QStringLiteral("¿Desea salir del programa?"), Mensajes::Respuesta::No) != Mensajes::Respuesta::Si) {
            cancelar = true;
            return;
        }
        const QString copia = leerAjuste(QStringLiteral("Opciones"), QStringLiteral("copia")).trimmed();
        if (copia == QLatin1String("1")) {
            cancelar = true;
            frmCopiaSeguridad::abrir(true);
            return;
        }
        if (copia.isEmpty() || copia == QLatin1String("0")) {
            BaseDatos::cerrar();
            Programa::terminar();
        }
    });
    if (cancelar) {
        e->ignore();
        return;
    }
    e->accept();
}
