#include "reports/frmVisorCrystal.h"

#include "core/CicloPantalla.h"
#include "core/Guardia.h"
#include "core/Sistema.h"
#include "reports/MotorInforme.h"
#include "reports/VisorPaginas.h"
#include "reports/modInformes.h"
#include "ui_frmVisorCrystal.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QStyle>
#include <optional>

frmVisorCrystal::frmVisorCrystal(QWidget* padre) : Pantalla(padre), ui(std::make_unique<Ui::frmVisorCrystal>())
{
    ui->setupUi(this);
    setObjectName(QStringLiteral("frmVisorCrystal"));
    setAttribute(Qt::WA_DeleteOnClose);

    QStyle* s = style();
    ui->cmd_Primera->setIcon(s->standardIcon(QStyle::SP_MediaSkipBackward));
    ui->cmd_Anterior->setIcon(s->standardIcon(QStyle::SP_ArrowLeft));
    ui->cmd_Siguiente->setIcon(s->standardIcon(QStyle::SP_ArrowRight));
    ui->cmd_Ultima->setIcon(s->standardIcon(QStyle::SP_MediaSkipForward));
    ui->cmd_GuardarPDF->setIcon(s->standardIcon(QStyle::SP_DialogSaveButton));
    ui->cmd_GuardarPDF->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (QToolButton* b : {ui->cmd_Primera, ui->cmd_Anterior, ui->cmd_Siguiente, ui->cmd_Ultima})
        b->setToolButtonStyle(Qt::ToolButtonIconOnly);

    // Form_Load: el visor se enlaza al informe en curso. Las páginas se componen aquí (es rápido)
    // y se dibujan cuando se ven: la primera sale en seguida aunque el listado tenga cientos.
    std::optional<CursorEspera> espera(std::in_place);
    CRViewer91 = new VisorPaginas(this);
    CRViewer91->setObjectName(QStringLiteral("CRViewer91"));
    ui->lay_Visor->addWidget(CRViewer91);
    connect(CRViewer91, &VisorPaginas::paginaCambiada, this, &frmVisorCrystal::actualizarPagina);
    guardia(QStringLiteral("frmVisorCrystal"), QStringLiteral("Form_Load"), [&] {
        if (!modInformes::Informe)
            return;
        DocumentoInforme* informe = modInformes::Informe.get();
        CRViewer91->ponerOrigen({.numeroPaginas = [informe] { return informe->numeroPaginas(); },
                                 .tamanoMm = informe->disenoPagina().fullRect(QPageLayout::Millimeter).size(),
                                 .pintar = [this](QPainter& p, int indice, double escala) {
                                     // Un fallo al dibujar una página se anota una vez y deja la página en blanco.
                                     if (m_fallo)
                                         return;
                                     m_fallo = !guardia(QStringLiteral("frmVisorCrystal"), QStringLiteral("Form_Load"), [&] {
                                         if (modInformes::Informe)
                                             modInformes::Informe->pintarPagina(p, indice, escala);
                                     });
                                 }});
    });
    espera.reset();

    connect(ui->cmd_Acercar, &QToolButton::clicked, CRViewer91, &VisorPaginas::acercar);
    connect(ui->cmd_Alejar, &QToolButton::clicked, CRViewer91, &VisorPaginas::alejar);
    connect(ui->cmd_AjustarAncho, &QToolButton::clicked, CRViewer91, &VisorPaginas::ajustarAncho);
    connect(ui->cmd_Primera, &QToolButton::clicked, this, [this] { irAPagina(1); });
    connect(ui->cmd_Anterior, &QToolButton::clicked, this, [this] { irAPagina(paginaActual() - 1); });
    connect(ui->cmd_Siguiente, &QToolButton::clicked, this, [this] { irAPagina(paginaActual() + 1); });
    connect(ui->cmd_Ultima, &QToolButton::clicked, this, [this] { irAPagina(numeroPaginas()); });
    connect(ui->cmd_Imprimir, &QToolButton::clicked, this, &frmVisorCrystal::cmd_Imprimir_Click);
    connect(ui->cmd_GuardarPDF, &QToolButton::clicked, this, &frmVisorCrystal::cmd_GuardarPDF_Click);
    actualizarPagina();
}

frmVisorCrystal::~frmVisorCrystal() = default;

frmVisorCrystal* frmVisorCrystal::mostrarInforme(const QString& titulo)
{
    auto* v = new frmVisorCrystal();
    if (!titulo.isEmpty())  // sin título se queda con el suyo
        v->setWindowTitle(titulo);
    Pantallas::mostrar(v);
    return v;
}

int frmVisorCrystal::paginaActual() const { return CRViewer91->paginaActual(); }

int frmVisorCrystal::numeroPaginas() const { return CRViewer91->numeroPaginas(); }

void frmVisorCrystal::irAPagina(int pagina)
{
    CRViewer91->irAPagina(pagina);
    actualizarPagina();
}

void frmVisorCrystal::actualizarPagina()
{
    const int n = std::max(1, numeroPaginas());
    const int actual = std::clamp(paginaActual(), 1, n);
    ui->lbl_Pagina->setText(QStringLiteral("Página %1 de %2").arg(actual).arg(n));
    ui->cmd_Primera->setEnabled(actual > 1);
    ui->cmd_Anterior->setEnabled(actual > 1);
    ui->cmd_Siguiente->setEnabled(actual < n);
    ui->cmd_Ultima->setEnabled(actual < n);
    const bool hay = modInformes::Informe != nullptr;
    ui->cmd_Imprimir->setEnabled(hay);
    ui->cmd_GuardarPDF->setEnabled(hay);
}

void frmVisorCrystal::cmd_Imprimir_Click()
{
    guardia(QStringLiteral("frmVisorCrystal"), QStringLiteral("cmd_Imprimir_Click"), [&] {
        if (!modInformes::Informe)
            return;
        QPrinter impresora(QPrinter::HighResolution);
        impresora.setPageLayout(modInformes::Informe->disenoPagina());
        impresora.setFullPage(true);
        impresora.setDocName(windowTitle());
        QPrintDialog dialogo(&impresora, this);
        dialogo.setWindowTitle(QStringLiteral("Imprimir"));
        dialogo.setMinMax(1, modInformes::Informe->numeroPaginas());
        dialogo.setOption(QAbstractPrintDialog::PrintPageRange, true);
        dialogo.setOption(QAbstractPrintDialog::PrintCollateCopies, true);
        if (dialogo.exec() != QDialog::Accepted)
            return;
        CursorEspera espera;
        modInformes::Informe->imprimir(&impresora);
    });
}

void frmVisorCrystal::cmd_GuardarPDF_Click()
{
    QString nombre = windowTitle().trimmed();
    nombre.replace(QRegularExpression(QStringLiteral("[\\\\/:*?\"<>|]")), QStringLiteral("_"));
    if (nombre.isEmpty())
        nombre = QStringLiteral("Informe");
    const QString ruta = QFileDialog::getSaveFileName(this, QStringLiteral("Guardar como PDF"),
                                                      QDir(Sistema::carpetaDocumentos()).filePath(nombre + QStringLiteral(".pdf")),
                                                      QStringLiteral("Documentos PDF (*.pdf)"));
    if (!ruta.isEmpty())
        guardarPDF(ruta.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive) ? ruta : ruta + QStringLiteral(".pdf"));
}

bool frmVisorCrystal::guardarPDF(const QString& ruta)
{
    return guardia(QStringLiteral("frmVisorCrystal"), QStringLiteral("cmd_GuardarPDF_Click"), [&] {
        if (!modInformes::Informe)
            return;
        CursorEspera espera;
        modInformes::Informe->exportarPDF(ruta);
    });
}

bool frmVisorCrystal::alDescargar()
{
    modInformes::cerrar();
    return true;
}
