#include "tools/frmEditorRTF.h"

#include "core/CicloPantalla.h"
#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "core/Programa.h"
#include "reports/Rtf.h"
#include "tools/frmEditor_Buscar.h"
#include "tools/frmEditor_Reemplazar.h"
#include "ui_frmEditorRTF.h"

#include <QAbstractTextDocumentLayout>
#include <QActionGroup>
#include <QApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextList>
#include <QTimer>

namespace {

const QString FORMULARIO = QStringLiteral("frmEditorRTF");
const QString SIN_TITULO = QStringLiteral("Sin título");
const QString PROGRAMA = QStringLiteral(" - PLANORUM MIRVADE");
const QString FILTRO_ABRIR = QStringLiteral("Documentos RTF (*.rtf);;Todos los archivos (*.*)");
const QString FILTRO_GUARDAR = QStringLiteral("Documentos RTF (*.rtf)");
const int TAMANOS[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};
const double TAMANO_MAXIMO = 1638;  // el mayor que admite el texto enriquecido

// El fichero que nombra la línea de mandatos: recortada y sin hasta dos comillas dobles (las que
// pone el sistema alrededor de una ruta con espacios).
QString ficheroLineaMandatos()
{
    QString linea = Programa::lineaMandatos().trimmed();
    for (int i = 0; i < 2; ++i) {
        const int comilla = linea.indexOf(QLatin1Char('"'));
        if (comilla < 0)
            break;
        linea.remove(comilla, 1);
    }
    return linea;
}

// Los formatos de carácter del texto seleccionado; sin selección, el del cursor (el que tendrá lo
// que se escriba).
QList<QTextCharFormat> formatosSeleccion(const QTextCursor& c)
{
    QList<QTextCharFormat> formatos;
    if (c.hasSelection()) {
        const int inicio = c.selectionStart();
        const int fin = c.selectionEnd();
        for (QTextBlock b = c.document()->findBlock(inicio); b.isValid() && b.position() < fin; b = b.next())
            for (auto it = b.begin(); !it.atEnd(); ++it) {
                const QTextFragment f = it.fragment();
                if (f.position() < fin && f.position() + f.length() > inicio)
                    formatos << f.charFormat();
            }
    }
    if (formatos.isEmpty())
        formatos << c.charFormat();
    return formatos;
}

}  // namespace

frmEditorRTF::frmEditorRTF(QWidget* padre) : Pantalla(padre), ui(new Ui::frmEditorRTF)
{
    ui->setupUi(this);
    // Una ráfaga de cambios del cursor (una selección con el ratón, un pegado) se atiende una vez.
    tmr_1 = new QTimer(this);
    tmr_1->setObjectName(QStringLiteral("tmr_1"));
    tmr_1->setSingleShot(true);
    tmr_1->setInterval(0);
    m_linea = new QLabel(ui->sta_1);
    m_linea->setObjectName(QStringLiteral("lbl_Linea"));
    ui->sta_1->addWidget(m_linea, 1);
    ui->txtEditor->setFont(QFont(QStringLiteral("Arial"), 12));
    prepararBarras();
    conectar();
    Form_Load();
}

frmEditorRTF::~frmEditorRTF() { delete ui; }

frmEditorRTF* frmEditorRTF::abrir()
{
    if (frmEditorRTF* f = Pantallas::cargada<frmEditorRTF>()) {
        Pantallas::activar(f);
        return f;
    }
    auto* f = new frmEditorRTF;
    Pantallas::mostrar(f);
    f->ui->txtEditor->setFocus();
    return f;
}

QTextEdit* frmEditorRTF::editor() const { return ui->txtEditor; }

QString frmEditorRTF::titulo(const QString& ruta)
{
    return (ruta.isEmpty() ? SIN_TITULO : QFileInfo(ruta).fileName()) + PROGRAMA;
}

void frmEditorRTF::prepararBarras()
{
    const std::pair<QAction*, const char*> iconos[] = {
        {ui->mnuArchivoNuevo, "nuevo"},     {ui->mnuArchivoAbrir, "abrir"},       {ui->mnuArchivoGuardar, "guardar"},
        {ui->subImprimir, "imprimir"},      {ui->mnuEdicionCortar, "cortar"},     {ui->mnuEdicionCopiar, "copiar"},
        {ui->mnuEdicionPegar, "pegar"},     {ui->subDeshacer, "deshacer"},        {ui->opBuscar, "buscar"},
        {ui->subHoraFecha, "fecha"},        {ui->mnu_Negrita, "negrita"},         {ui->mnu_Cursiva, "cursiva"},
        {ui->mnu_Subrayada, "subrayada"},   {ui->mnu_Tachada, "tachada"},         {ui->subIzquierda, "izquierda"},
        {ui->subCentrado, "centrado"},      {ui->subDerecha, "derecha"},          {ui->subVinetas, "vinetas"},
    };
    for (const auto& [accion, icono] : iconos)
        accion->setIcon(Iconos::icono(QString::fromLatin1(icono), 20));

    // Un párrafo justificado no marca ninguna de las tres alineaciones.
    auto* alineaciones = new QActionGroup(this);
    alineaciones->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (QAction* a : {ui->subIzquierda, ui->subCentrado, ui->subDerecha})
        alineaciones->addAction(a);

    // Los atajos valen sólo con el foco en el editor: con otra pantalla delante, Ctrl+N no es de aquí.
    for (QAction* a : findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(a);
    }
    for (QAction* a : {ui->subDeshacer, ui->mnuEdicionCortar, ui->mnuEdicionCopiar, ui->opEliminar})
        a->setEnabled(false);
}

void frmEditorRTF::conectar()
{
    const std::pair<QAction*, void (frmEditorRTF::*)()> acciones[] = {
        {ui->mnuArchivoNuevo, &frmEditorRTF::mnuArchivoNuevo_Click},
        {ui->mnuArchivoAbrir, &frmEditorRTF::mnuArchivoAbrir_Click},
        {ui->mnuArchivoGuardar, &frmEditorRTF::mnuArchivoGuardar_Click},
        {ui->mnuArchivoGuardarComo, &frmEditorRTF::mnuArchivoGuardarComo_Click},
        {ui->subImpresora, &frmEditorRTF::subImpresora_Click},
        {ui->subImprimir, &frmEditorRTF::subImprimir_Click},
        {ui->mnuArchivoSalir, &frmEditorRTF::mnuArchivoSalir_Click},
        {ui->subDeshacer, &frmEditorRTF::subDeshacer_Click},
        {ui->mnuEdicionCortar, &frmEditorRTF::mnuEdicionCortar_Click},
        {ui->mnuEdicionCopiar, &frmEditorRTF::mnuEdicionCopiar_Click},
        {ui->mnuEdicionPegar, &frmEditorRTF::mnuEdicionPegar_Click},
        {ui->opEliminar, &frmEditorRTF::opEliminar_Click},
        {ui->opBuscar, &frmEditorRTF::opBuscar_Click},
        {ui->opReemplazar, &frmEditorRTF::opReemplazar_Click},
        {ui->subSeleccTodo, &frmEditorRTF::subSeleccTodo_Click},
        {ui->subHoraFecha, &frmEditorRTF::subHoraFecha_Click},
        {ui->subajuste, &frmEditorRTF::subajuste_Click},
        {ui->subFuente, &frmEditorRTF::subFuente_Click},
        {ui->subVinetas, &frmEditorRTF::subVinetas_Click},
        {ui->mnu_Negrita, &frmEditorRTF::mnu_Negrita_Click},
        {ui->mnu_Subrayada, &frmEditorRTF::mnu_Subrayada_Click},
        {ui->mnu_Cursiva, &frmEditorRTF::mnu_Cursiva_Click},
        {ui->mnu_Tachada, &frmEditorRTF::mnu_Tachada_Click},
        {ui->subIzquierda, &frmEditorRTF::subIzquierda_Click},
        {ui->subCentrado, &frmEditorRTF::subCentrado_Click},
        {ui->subDerecha, &frmEditorRTF::subDerecha_Click},
    };
    for (const auto& [accion, manejador] : acciones)
        connect(accion, &QAction::triggered, this, manejador);

    // Elegir en la lista, o escribir y pulsar Intro. Con Intro sobre un elemento de la lista el
    // cuadro ya avisa por su cuenta: sólo se atiende lo que no está en ella.
    const std::pair<QComboBox*, void (frmEditorRTF::*)()> cuadros[] = {
        {ui->cbo_TipoLetra, &frmEditorRTF::cbo_TipoLetra_Click},
        {ui->cbo_TamanoLetra, &frmEditorRTF::cbo_TamanoLetra_Click},
    };
    for (const auto& [cuadro, manejador] : cuadros) {
        connect(cuadro, &QComboBox::textActivated, this, manejador);
        connect(cuadro->lineEdit(), &QLineEdit::returnPressed, this, [this, cuadro, manejador] {
            if (cuadro->findText(cuadro->currentText(), Qt::MatchFixedString) < 0)
                (this->*manejador)();
        });
    }

    QTextEdit* t = ui->txtEditor;
    connect(t, &QTextEdit::cursorPositionChanged, tmr_1, qOverload<>(&QTimer::start));
    connect(t, &QTextEdit::selectionChanged, tmr_1, qOverload<>(&QTimer::start));
    connect(t, &QTextEdit::currentCharFormatChanged, tmr_1, qOverload<>(&QTimer::start));
    connect(tmr_1, &QTimer::timeout, this, &frmEditorRTF::tmr_1_Timer);
    connect(t, &QTextEdit::undoAvailable, ui->subDeshacer, &QAction::setEnabled);
    for (QAction* a : {ui->mnuEdicionCortar, ui->mnuEdicionCopiar, ui->opEliminar})
        connect(t, &QTextEdit::copyAvailable, a, &QAction::setEnabled);
}

void frmEditorRTF::llenarCombos()
{
    QStringList familias;
    for (const QString& f : QFontDatabase::families())
        if (!f.startsWith(QLatin1Char('@')) && !QFontDatabase::isPrivateFamily(f))
            familias << f;
    ui->cbo_TipoLetra->addItems(familias);
    for (int t : TAMANOS)
        ui->cbo_TamanoLetra->addItem(QString::number(t));
    // Sin Arial en el sistema, el texto sale con la que la sustituya, pero el cuadro dice "Arial".
    const int arial = getListIndex(ui->cbo_TipoLetra, QStringLiteral("Arial"));
    if (arial >= 0)
        ui->cbo_TipoLetra->setCurrentIndex(arial);
    else
        ui->cbo_TipoLetra->setEditText(QStringLiteral("Arial"));
    ui->cbo_TamanoLetra->setCurrentIndex(getListIndex(ui->cbo_TamanoLetra, QStringLiteral("12")));
}

void frmEditorRTF::Form_Load()
{
    guardia(FORMULARIO, QStringLiteral("Form_Load"), [&] {
        setWindowIcon(QApplication::windowIcon());
        llenarCombos();
        const QString ruta = ficheroLineaMandatos();
        if (ruta.isEmpty() || !abrirFichero(ruta))
            documentoNuevo();
    });
}

// ---- Documento y fichero -------------------------------------------------------------------

QTextDocument* frmEditorRTF::documentoVacio()
{
    // Hijo del editor: al poner otro, éste se borra solo.
    auto* d = new QTextDocument(ui->txtEditor);
    d->setDefaultFont(ui->txtEditor->font());
    return d;
}

QTextDocument* frmEditorRTF::leerDocumento(const QString& ruta, const QString& procedimiento, bool* incompleto)
{
    const QString nativa = Rutas::nativa(ruta);
    const QFileInfo info(ruta);
    QFile f(ruta);
    if (!info.exists() || info.isDir()) {
        avisarFallo(QStringLiteral("No se ha encontrado el fichero %1.").arg(nativa) + QStringLiteral("\n")
                        + QStringLiteral("Compruebe el nombre y la carpeta e inténtelo de nuevo."),
                    procedimiento, info.isDir() ? QStringLiteral("Es una carpeta") : QStringLiteral("No existe"));
        return nullptr;
    }
    if (!f.open(QIODevice::ReadOnly)) {
        avisarFallo(QStringLiteral("No se ha podido abrir el fichero %1.").arg(nativa) + QStringLiteral("\n")
                        + QStringLiteral("Compruebe que tiene permiso para leerlo y que ningún otro programa lo tiene bloqueado."),
                    procedimiento, f.errorString());
        return nullptr;
    }
    const QByteArray datos = f.readAll();
    if (f.error() != QFileDevice::NoError) {
        avisarFallo(QStringLiteral("No se ha podido leer entero el fichero %1.").arg(nativa), procedimiento, f.errorString());
        return nullptr;
    }
    QTextDocument* d = documentoVacio();
    QString aviso;
    if (!Rtf::leer(datos, *d, &aviso)) {
        delete d;
        avisarFallo(QStringLiteral("No se ha podido abrir el fichero %1.").arg(nativa) + QStringLiteral("\n") + aviso, procedimiento, aviso);
        return nullptr;
    }
    *incompleto = !aviso.isEmpty();
    if (*incompleto)
        avisarFallo(QStringLiteral("El documento %1 está dañado y sólo se ha podido leer en parte:").arg(nativa) + QStringLiteral("\n")
                        + aviso + QStringLiteral("\n\n")
                        + QStringLiteral("Si lo guarda, hágalo con otro nombre para no perder lo que no se ha podido leer."),
                    procedimiento, aviso);
    return d;
}

bool frmEditorRTF::abrirFichero(const QString& ruta)
{
    bool incompleto = false;
    QTextDocument* d = leerDocumento(ruta, QStringLiteral("abrirFichero"), &incompleto);
    if (!d)
        return false;
    ponerDocumento(d, ruta);
    m_incompleto = incompleto;
    return true;
}

void frmEditorRTF::documentoNuevo()
{
    bool incompleto = false;
    QTextDocument* d = leerDocumento(Rutas::enPrograma(QStringLiteral("Contratos/Vacio.rtf")), QStringLiteral("documentoNuevo"), &incompleto);
    ponerDocumento(d ? d : documentoVacio(), QString());
}

void frmEditorRTF::ponerDocumento(QTextDocument* d, const QString& ruta)
{
    ui->txtEditor->setDocument(d);
    // Un cursor nuevo al principio: el del texto anterior traería su letra a los cuadros.
    ui->txtEditor->setTextCursor(QTextCursor(d));
    d->setModified(false);
    m_fichero = ruta;
    m_incompleto = false;
    ponerTitulo();
    ui->subDeshacer->setEnabled(false);
    for (QAction* a : {ui->mnuEdicionCortar, ui->mnuEdicionCopiar, ui->opEliminar})
        a->setEnabled(false);
    tmr_1->start();
}

void frmEditorRTF::ponerTitulo() { setWindowTitle(titulo(m_fichero)); }

bool frmEditorRTF::guardarEn(const QString& ruta)
{
    const QByteArray rtf = Rtf::escribir(*ui->txtEditor->document());
    // Se escribe al lado y se cambia el nombre al terminar: un fallo a medias no estropea el que había.
    QSaveFile f(ruta);
    f.setDirectWriteFallback(true);
    if (!f.open(QIODevice::WriteOnly) || f.write(rtf) != rtf.size() || !f.commit()) {
        avisarFallo(QStringLiteral("No se ha podido guardar el documento en %1.").arg(Rutas::nativa(ruta)) + QStringLiteral("\n")
                        + QStringLiteral("Compruebe que la carpeta existe, que tiene permiso para escribir en ella y que queda espacio "
                                         "en el disco. El documento sigue abierto sin guardar."),
                    QStringLiteral("guardarEn"), f.errorString());
        return false;
    }
    ui->txtEditor->document()->setModified(false);
    m_fichero = ruta;
    m_incompleto = false;
    ponerTitulo();
    return true;
}

bool frmEditorRTF::guardar()
{
    if (m_fichero.isEmpty() || m_incompleto)
        return guardarComo();
    return guardarEn(m_fichero);
}

bool frmEditorRTF::guardarComo()
{
    const QString propuesto = m_fichero.isEmpty() ? Rutas::conSeparadorFinal(Sistema::carpetaDocumentos()) + SIN_TITULO + QStringLiteral(".rtf")
                                                  : m_fichero;
    QString ruta = Sistema::elegirFicheroGuardar(QStringLiteral("Guardar como"), FILTRO_GUARDAR, propuesto);
    if (ruta.isEmpty())
        return false;
    if (QFileInfo(ruta).suffix().isEmpty())
        ruta += QStringLiteral(".rtf");
    return guardarEn(ruta);
}

bool frmEditorRTF::PreguntarGuardarCambios()
{
    if (!ui->txtEditor->document()->isModified())
        return true;
    const QString nombre = m_fichero.isEmpty() ? SIN_TITULO : QFileInfo(m_fichero).fileName();
    switch (Mensajes::preguntaCancelar(QStringLiteral("El texto del archivo ") + nombre + QStringLiteral(" ha cambiado.")
                                       + QStringLiteral("\n\n") + QStringLiteral("¿Desea guardar los cambios?"))) {
    case Mensajes::Respuesta::Si: return guardar();
    case Mensajes::Respuesta::No: return true;
    default: return false;
    }
}

void frmEditorRTF::avisarFallo(const QString& texto, const QString& procedimiento, const QString& detalle)
{
    Mensajes::aviso(texto);
    ErrorPrograma e(-1, texto);
    e.textoMotor = detalle;
    escribirLog(e, NOMBRE_PROGRAMA, FORMULARIO, procedimiento, 0, Mostrar::No);
}

bool frmEditorRTF::alDescargar()
{
    bool cerrar = false;
    guardia(FORMULARIO, QStringLiteral("Form_Unload"), [&] { cerrar = PreguntarGuardarCambios(); });
    return cerrar;
}

// ---- Archivo -------------------------------------------------------------------------------

void frmEditorRTF::mnuArchivoNuevo_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnuArchivoNuevo_Click"), [&] {
        if (PreguntarGuardarCambios())
            documentoNuevo();
    });
}

void frmEditorRTF::mnuArchivoAbrir_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnuArchivoAbrir_Click"), [&] {
        if (!PreguntarGuardarCambios())
            return;
        const QString ruta = Sistema::elegirFichero(QStringLiteral("Abrir"), FILTRO_ABRIR);
        if (!ruta.isEmpty())
            abrirFichero(ruta);
    });
}

void frmEditorRTF::mnuArchivoGuardar_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnuArchivoGuardar_Click"), [&] { guardar(); });
}

void frmEditorRTF::mnuArchivoGuardarComo_Click()
{
    guardia(FORMULARIO, QStringLiteral("mnuArchivoGuardarComo_Click"), [&] { guardarComo(); });
}

QPrinter& frmEditorRTF::impresora()
{
    // Se crea al usarla: la configuración elegida vale para las impresiones siguientes.
    if (!m_impresora)
        m_impresora = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *m_impresora;
}

void frmEditorRTF::subImpresora_Click()
{
    guardia(FORMULARIO, QStringLiteral("subImpresora_Click"), [&] {
        QPageSetupDialog dialogo(&impresora(), this);
        dialogo.setWindowTitle(QStringLiteral("Configurar impresora"));
        dialogo.exec();
    });
}

void frmEditorRTF::subImprimir_Click()
{
    guardia(FORMULARIO, QStringLiteral("subImprimir_Click"), [&] {
        QPrinter& p = impresora();
        p.setDocName(windowTitle());
        QPrintDialog dialogo(&p, this);
        dialogo.setWindowTitle(QStringLiteral("Imprimir"));
        if (ui->txtEditor->textCursor().hasSelection())
            dialogo.setOption(QAbstractPrintDialog::PrintSelection, true);
        if (dialogo.exec() != QDialog::Accepted)
            return;
        CursorEspera espera;
        ui->txtEditor->print(&p);
    });
}

void frmEditorRTF::mnuArchivoSalir_Click() { Pantallas::descargar(this); }

// ---- Edición -------------------------------------------------------------------------------

void frmEditorRTF::subDeshacer_Click() { ui->txtEditor->undo(); }
void frmEditorRTF::mnuEdicionCortar_Click() { ui->txtEditor->cut(); }
void frmEditorRTF::mnuEdicionCopiar_Click() { ui->txtEditor->copy(); }
void frmEditorRTF::mnuEdicionPegar_Click() { ui->txtEditor->paste(); }
void frmEditorRTF::subSeleccTodo_Click() { ui->txtEditor->selectAll(); }

void frmEditorRTF::opEliminar_Click() { ui->txtEditor->textCursor().removeSelectedText(); }

void frmEditorRTF::subHoraFecha_Click()
{
    ui->txtEditor->textCursor().insertText(QDateTime::currentDateTime().toString(QStringLiteral("dd/MM/yyyy H:mm:ss")));
}

void frmEditorRTF::opBuscar_Click()
{
    guardia(FORMULARIO, QStringLiteral("opBuscar_Click"), [&] {
        if (!m_buscar)
            m_buscar = new frmEditor_Buscar(this);
        m_buscar->abrir();
    });
}

void frmEditorRTF::opReemplazar_Click()
{
    guardia(FORMULARIO, QStringLiteral("opReemplazar_Click"), [&] {
        if (!m_reemplazar)
            m_reemplazar = new frmEditor_Reemplazar(this);
        m_reemplazar->abrir();
    });
}

QString frmEditorRTF::textoParaBuscar() const
{
    // Lo seleccionado, si es un trozo de una línea, es lo que se quiere buscar.
    const QString s = ui->txtEditor->textCursor().selectedText();
    return s.contains(QChar::ParagraphSeparator) || s.contains(QChar::LineSeparator) ? QString() : s;
}

bool frmEditorRTF::buscarSiguiente(const QString& texto, QTextCursor& ultima)
{
    QTextDocument* d = ui->txtEditor->document();
    if (ultima.isNull() || ultima.document() != d)
        ultima = ui->txtEditor->textCursor();
    const QTextCursor hallado = texto.isEmpty() ? QTextCursor() : d->find(texto, ultima);
    if (hallado.isNull()) {
        ultima = QTextCursor();
        Mensajes::aviso(QStringLiteral("Texto no encontrado o no hay más ocurrencias en el documento"));
        return false;
    }
    ultima = hallado;
    ui->txtEditor->setTextCursor(hallado);
    ui->txtEditor->ensureCursorVisible();
    return true;
}

// ---- Formato -------------------------------------------------------------------------------

void frmEditorRTF::subajuste_Click()
{
    ui->txtEditor->setLineWrapMode(ui->subajuste->isChecked() ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
    tmr_1->start();
}

QFont frmEditorRTF::fuente(const QTextCharFormat& formato) const
{
    return formato.font().resolve(ui->txtEditor->document()->defaultFont());
}

void frmEditorRTF::aplicar(const QTextCharFormat& formato)
{
    ui->txtEditor->mergeCurrentCharFormat(formato);
    ui->txtEditor->setFocus();
}

void frmEditorRTF::subFuente_Click()
{
    guardia(FORMULARIO, QStringLiteral("subFuente_Click"), [&] {
        bool elegida = false;
        const QFont f = QFontDialog::getFont(&elegida, fuente(ui->txtEditor->currentCharFormat()), this, QStringLiteral("Fuente"));
        if (!elegida)
            return;
        QTextCharFormat formato;
        formato.setFont(f);
        aplicar(formato);
    });
}

void frmEditorRTF::subVinetas_Click()
{
    QTextCursor c = ui->txtEditor->textCursor();
    c.beginEditBlock();
    if (c.currentList()) {
        // Fuera de la lista todos los párrafos tocados por la selección.
        const int fin = c.selectionEnd();
        for (QTextBlock b = c.document()->findBlock(c.selectionStart()); b.isValid() && b.position() <= fin; b = b.next())
            if (QTextList* lista = b.textList())
                lista->remove(b);
    } else {
        c.createList(QTextListFormat::ListDisc);
    }
    c.endEditBlock();
    tmr_1->start();
}

void frmEditorRTF::mnu_Negrita_Click()
{
    QTextCharFormat f;
    f.setFontWeight(ui->mnu_Negrita->isChecked() ? QFont::Bold : QFont::Normal);
    aplicar(f);
}

void frmEditorRTF::mnu_Subrayada_Click()
{
    QTextCharFormat f;
    f.setFontUnderline(ui->mnu_Subrayada->isChecked());
    aplicar(f);
}

void frmEditorRTF::mnu_Cursiva_Click()
{
    QTextCharFormat f;
    f.setFontItalic(ui->mnu_Cursiva->isChecked());
    aplicar(f);
}

void frmEditorRTF::mnu_Tachada_Click()
{
    QTextCharFormat f;
    f.setFontStrikeOut(ui->mnu_Tachada->isChecked());
    aplicar(f);
}

void frmEditorRTF::alinear(Qt::Alignment alineacion)
{
    ui->txtEditor->setAlignment(alineacion);
    ui->txtEditor->setFocus();
    tmr_1->start();
}

void frmEditorRTF::subIzquierda_Click() { alinear(Qt::AlignLeft); }
void frmEditorRTF::subCentrado_Click() { alinear(Qt::AlignHCenter); }
void frmEditorRTF::subDerecha_Click() { alinear(Qt::AlignRight); }

void frmEditorRTF::cbo_TipoLetra_Click()
{
    const QString familia = ui->cbo_TipoLetra->currentText().trimmed();
    if (familia.isEmpty())
        return;
    QTextCharFormat f;
    f.setFontFamilies(QStringList{familia});
    aplicar(f);
}

void frmEditorRTF::cbo_TamanoLetra_Click()
{
    const QString texto = ui->cbo_TamanoLetra->currentText().trimmed();
    if (texto.isEmpty())
        return;
    bool numero = false;
    double tamano = QLocale().toDouble(texto, &numero);
    if (!numero)
        tamano = QLocale::c().toDouble(texto, &numero);
    if (!numero || tamano < 1 || tamano > TAMANO_MAXIMO) {
        Mensajes::aviso(QStringLiteral("El tamaño de la letra debe ser un número entre 1 y 1638.") + QStringLiteral("\n")
                        + QStringLiteral("Elija uno de la lista o escriba otro y pulse Intro."));
        actualizarCombosFuentes();
        ui->cbo_TamanoLetra->setFocus();
        return;
    }
    QTextCharFormat f;
    f.setFontPointSize(tamano);
    aplicar(f);
}

// ---- Lo que sigue al cursor ----------------------------------------------------------------

void frmEditorRTF::tmr_1_Timer()
{
    actualizarLineaEstado();
    actualizarCombosFuentes();
    actualizarBotonesFormato();
}

void frmEditorRTF::actualizarLineaEstado()
{
    // Líneas como se ven: con el ajuste de línea, un párrafo largo ocupa varias.
    QTextDocument* d = ui->txtEditor->document();
    d->documentLayout()->documentSize();  // termina de componer lo que falte
    const QTextCursor c = ui->txtEditor->textCursor();
    const QTextBlock bloqueCursor = c.block();
    int total = 0;
    int actual = 1;
    for (QTextBlock b = d->begin(); b.isValid(); b = b.next()) {
        const QTextLayout* l = b.layout();
        if (b == bloqueCursor) {
            const QTextLine linea = l ? l->lineForTextPosition(c.positionInBlock()) : QTextLine();
            actual = total + (linea.isValid() ? linea.lineNumber() : 0) + 1;
        }
        total += l ? qMax(1, l->lineCount()) : 1;
    }
    m_linea->setText(QStringLiteral(" Línea: %1 / %2").arg(actual).arg(total));
}

void frmEditorRTF::actualizarCombosFuentes()
{
    // Con una selección de varias letras o tamaños, el cuadro queda en blanco.
    const QList<QTextCharFormat> formatos = formatosSeleccion(ui->txtEditor->textCursor());
    const QFont primera = fuente(formatos.first());
    QString familia = primera.family();
    double tamano = primera.pointSizeF();
    for (const QTextCharFormat& f : formatos) {
        const QFont otra = fuente(f);
        if (otra.family() != familia)
            familia.clear();
        if (otra.pointSizeF() != tamano)
            tamano = 0;
    }
    const std::pair<QComboBox*, QString> cuadros[] = {
        {ui->cbo_TipoLetra, familia},
        {ui->cbo_TamanoLetra, tamano > 0 ? QLocale().toString(tamano) : QString()},
    };
    for (const auto& [cuadro, texto] : cuadros) {
        const int i = texto.isEmpty() ? -1 : getListIndex(cuadro, texto);
        if (i >= 0)
            cuadro->setCurrentIndex(i);
        else
            cuadro->setEditText(texto);
    }
}

void frmEditorRTF::actualizarBotonesFormato()
{
    const QList<QTextCharFormat> formatos = formatosSeleccion(ui->txtEditor->textCursor());
    const auto todos = [&](auto&& cumple) { return std::all_of(formatos.begin(), formatos.end(), cumple); };
    ui->mnu_Negrita->setChecked(todos([&](const QTextCharFormat& f) { return fuente(f).bold(); }));
    ui->mnu_Cursiva->setChecked(todos([&](const QTextCharFormat& f) { return fuente(f).italic(); }));
    ui->mnu_Subrayada->setChecked(todos([&](const QTextCharFormat& f) { return fuente(f).underline(); }));
    ui->mnu_Tachada->setChecked(todos([&](const QTextCharFormat& f) { return fuente(f).strikeOut(); }));

    const QTextCursor c = ui->txtEditor->textCursor();
    const Qt::Alignment a = c.blockFormat().alignment() & Qt::AlignHorizontal_Mask;
    ui->subIzquierda->setChecked(a == Qt::Alignment() || a.testFlag(Qt::AlignLeft));
    ui->subCentrado->setChecked(a.testFlag(Qt::AlignHCenter));
    ui->subDerecha->setChecked(a.testFlag(Qt::AlignRight));
    ui->subVinetas->setChecked(c.currentList() != nullptr);
}
