#include "masterdata/FichaRegistro.h"

#include "core/Listas.h"
#include "core/modFunciones.h"
#include "search/AbrirBusqueda.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeWidget>

namespace {

// Cursor de espera mientras dura el guardado.
class CursorEspera {
public:
    CursorEspera() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CursorEspera() { QApplication::restoreOverrideCursor(); }
};

// Acción al perder el foco (el LostFocus de los campos).
class FiltroSalida : public QObject {
public:
    FiltroSalida(QWidget* w, std::function<void()> accion) : QObject(w), m_accion(std::move(accion))
    {
        w->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() == QEvent::FocusOut)
            m_accion();
        return false;
    }

private:
    std::function<void()> m_accion;
};

const QString TEXTO_BD_OCUPADA = QStringLiteral(
    "La base de datos está siendo utilizada por otro puesto y no se han podido guardar los datos.\n"
    "Por favor, inténtelo de nuevo dentro de unos momentos");

}  // namespace

FichaRegistro::FichaRegistro(QWidget* padre) : Pantalla(padre) {}

void FichaRegistro::Form_Load()
{
    if (m_cargada)
        return;
    m_cargada = true;
    if (guardia(objectName(), QStringLiteral("Form_Load"), [&] { cargarDatos(); }))
        guardia(objectName(), QStringLiteral("Form_Load"), [&] { tomarCopias(); });
}

void FichaRegistro::showEvent(QShowEvent* e)
{
    if (!m_cargada)
        Form_Load();
    Pantalla::showEvent(e);
}

void FichaRegistro::conectarBotones()
{
    if (auto* b = findChild<QPushButton*>(QStringLiteral("cmd_Guardar")))
        connect(b, &QPushButton::clicked, this, [this] { cmd_Guardar_Click(); });
    if (auto* b = findChild<QPushButton*>(QStringLiteral("cmd_Cerrar")))
        connect(b, &QPushButton::clicked, this, [this] { cmd_Cerrar_Click(); });
}

void FichaRegistro::cmd_Guardar_Click()
{
    m_cancelarCierre = false;
    const bool sinFallo = guardia(objectName(), QStringLiteral("cmd_Guardar_Click"), [&] {
        if (!validarDatos()) {
            m_cancelarCierre = true;
            return;
        }
        CursorEspera espera;
        try {
            // Todo, cascadas y mensajes incluidos, dentro de la misma transacción.
            Transaccion t;
            if (!guardarRegistro()) {
                m_cancelarCierre = true;
                return;
            }
            tomarCopias();
            if (esAlta()) {
                const bool sinDevolucion = ClaveRetorno.isEmpty();
                if (!sinDevolucion)
                    devolverAlta();
                Mensajes::informacion(textoAlta());
                if (!m_descargando)
                    Pantallas::descargar(this);
                if (sinDevolucion)
                    abrirListaMenu();
            } else {
                actualizarCopiasExternas();
                marcarActualizarLista();
                Mensajes::informacion(textoModificado());
            }
            t.confirmar();
        } catch (const ErrorPrograma& e) {
            if (e.numero == ERROR_BD_EN_USO)
                throw ErrorPrograma(e.numero, TEXTO_BD_OCUPADA, e.linea);
            throw;
        }
    });
    // Tras un fallo la ficha no se cierra: los datos siguen en pantalla.
    if (!sinFallo)
        m_cancelarCierre = true;
}

void FichaRegistro::cmd_Cerrar_Click()
{
    guardia(objectName(), QStringLiteral("cmd_Cerrar_Click"), [&] { Pantallas::descargar(this); });
}

bool FichaRegistro::hayCambios() const { return false; }

bool FichaRegistro::alDescargar()
{
    if (m_descargando)
        return true;
    bool cerrar = true;
    guardia(objectName(), QStringLiteral("Form_Unload"), [&] {
        cerrar = Pantallas::preguntarGuardarAlSalir(hayCambios(), [&] {
            m_descargando = true;
            cmd_Guardar_Click();
            m_descargando = false;
            return !m_cancelarCierre;
        });
    });
    return cerrar;
}

QString FichaRegistro::textoControl(const QWidget* w)
{
    if (auto* t = qobject_cast<const QLineEdit*>(w))
        return t->text();
    if (auto* c = qobject_cast<const QComboBox*>(w))
        return c->currentText();
    if (auto* p = qobject_cast<const QPlainTextEdit*>(w))
        return p->toPlainText();
    if (auto* x = qobject_cast<const QTextEdit*>(w))
        return x->toPlainText();
    if (auto* b = qobject_cast<const QAbstractButton*>(w); b && b->isCheckable())
        return b->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    if (auto* l = qobject_cast<const QLabel*>(w))
        return l->text();
    return {};
}

QStringList FichaRegistro::instantanea(const QList<QWidget*>& controles)
{
    QStringList l;
    for (const QWidget* w : controles)
        l << textoControl(w);
    return l;
}

bool FichaRegistro::difiere(const QList<QWidget*>& controles, const QStringList& copia)
{
    for (int i = 0; i < controles.size(); ++i)
        if (textoControl(controles[i]).toUpper() != copia.value(i).toUpper())
            return true;
    return false;
}

void FichaRegistro::prepararProvincia(QComboBox* cbo)
{
    cbo->setEditable(true);
    cbo->setInsertPolicy(QComboBox::NoInsert);
    cbo->clear();
    {
        UsoConexion uso;
        Consulta c(QStringLiteral("SELECT descripción FROM PROVINCIAS ORDER BY descripción COLLATE ES"));
        while (c.siguiente())
            cbo->addItem(c.valor(0).toString());
    }
    cbo->setCurrentIndex(-1);
    cbo->setEditText(QString());
    // Texto libre sobre la lista, de 25 caracteres como mucho; al salir se corta.
    cbo->lineEdit()->setMaxLength(25);
    alSalir(cbo, [cbo] {
        if (cbo->currentText().size() > 25)
            cbo->setEditText(cbo->currentText().left(25));
    });
}

void FichaRegistro::limitarNotas(QPlainTextEdit* txt, int maximo)
{
    txt->setTabChangesFocus(true);
    QObject::connect(txt, &QPlainTextEdit::textChanged, txt, [txt, maximo] {
        const QString t = txt->toPlainText();
        if (t.size() <= maximo)
            return;
        QTextCursor c = txt->textCursor();
        const int pos = qMin(c.position(), maximo);
        txt->setPlainText(t.left(maximo));
        c = txt->textCursor();
        c.setPosition(pos);
        txt->setTextCursor(c);
    });
}

void FichaRegistro::alSalir(QWidget* w, std::function<void()> accion) { new FiltroSalida(w, std::move(accion)); }

bool FichaRegistro::comprobarCorreo(QLineEdit* txt_Correo)
{
    const QString correo = txt_Correo->text().trimmed();
    if (correo.isEmpty())
        return true;
    const qsizetype arroba = correo.indexOf(QLatin1Char('@'));
    if (arroba < 0) {
        avisarCampo(txt_Correo, QStringLiteral("Dirección de correo incorrecta: No contiene la @"));
        return false;
    }
    const qsizetype punto = correo.indexOf(QLatin1Char('.'), arroba);
    if (punto < 0) {
        avisarCampo(txt_Correo, QStringLiteral("Dirección de correo incorrecta: No se ha proporcionado el '.' del dominio"));
        return false;
    }
    if (correo.mid(punto).size() == 1) {
        avisarCampo(txt_Correo,
                    QStringLiteral("Dirección de correo incorrecta: No se ha proporcionado el dominio de la dirección (p.ej: '.com')"));
        return false;
    }
    return true;
}

void FichaRegistro::avisarCampo(QWidget* campo, const QString& texto)
{
    Mensajes::aviso(texto);
    // La pestaña del campo a la vista, y el foco en él.
    for (QWidget* p = campo->parentWidget(); p; p = p->parentWidget())
        if (auto* pestanas = qobject_cast<QTabWidget*>(p))
            for (int i = 0; i < pestanas->count(); ++i)
                if (pestanas->widget(i)->isAncestorOf(campo))
                    pestanas->setCurrentIndex(i);
    campo->setFocus();
}

QString FichaRegistro::obligatorio(const QString& primeraLinea)
{
    return primeraLinea + QStringLiteral("\nPor favor, escriba un valor");
}

QString FichaRegistro::recortado(const QWidget* w) { return textoControl(w).trimmed(); }

QString FichaRegistro::nombreCompleto(const QWidget* nombre, const QWidget* apellidos)
{
    return (textoControl(nombre) + QLatin1Char(' ') + textoControl(apellidos)).trimmed();
}

namespace Devolucion {

QWidget* receptor(const QString& pantalla)
{
    for (QWidget* w : Pantallas::cargadas())
        if (w->objectName() == pantalla)
            return w;
    return nullptr;
}

bool escribir(QWidget* receptor, const QString& control, const QString& texto)
{
    if (!receptor)
        return false;
    QWidget* w = receptor->findChild<QWidget*>(control);
    if (auto* t = qobject_cast<QLineEdit*>(w))
        t->setText(texto);
    else if (auto* l = qobject_cast<QLabel*>(w))
        l->setText(texto);
    else if (auto* c = qobject_cast<QComboBox*>(w); c && c->isEditable())
        c->setEditText(texto);
    else if (auto* p = qobject_cast<QPlainTextEdit*>(w))
        p->setPlainText(texto);
    else if (auto* x = qobject_cast<QTextEdit*>(w))
        x->setPlainText(texto);
    else
        return false;
    return true;
}

QString leer(QWidget* receptor, const QString& control)
{
    return receptor ? FichaRegistro::textoControl(receptor->findChild<QWidget*>(control)) : QString();
}

bool agregarFila(QWidget* receptor, const QString& lista, const QString& clave, const QStringList& columnas, bool marcable)
{
    auto* arbol = receptor ? receptor->findChild<QTreeWidget*>(lista) : nullptr;
    if (!arbol)
        return false;
    auto* fila = new QTreeWidgetItem(arbol, columnas);
    ponerClaveFila(fila, clave);
    if (marcable)
        fila->setCheckState(0, Qt::Checked);
    return true;
}

}  // namespace Devolucion
