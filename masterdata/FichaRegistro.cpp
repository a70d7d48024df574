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

FichaRegistro::FichaRegistro(QWidget* padre) : PantallaEdicion(padre) {}

bool FichaRegistro::cargar()
{
    cargarDatos();
    return true;
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
        try {
            // La fila y sus cascadas en una transacción, confirmada antes de enseñar nada: ningún
            // puesto espera al cerrojo mientras alguien lee el mensaje.
            CursorEspera espera;
            Transaccion t;
            if (!guardarRegistro()) {
                m_cancelarCierre = true;
                return;
            }
            if (esModificar())
                actualizarCopiasExternas();
            t.confirmar();
        } catch (const ErrorPrograma& e) {
            if (e.numero != ERROR_BD_EN_USO)
                throw;
            // El texto del motor sigue yendo al registro.
            ErrorPrograma ocupada(e.numero, TEXTO_BD_OCUPADA, e.linea);
            ocupada.textoMotor = e.textoMotor;
            throw ocupada;
        }
        tomarCopia();
        RegistroGuardado r = registroGuardado();
        r.operacion = tag();
        const AlGuardar entregar = alGuardar;
        if (esAlta()) {
            if (entregar)
                entregar(r);
            Mensajes::informacion(textoAlta());
            const QString lista = entregar ? QString() : listaMenu();
            if (!descargando())
                Pantallas::descargar(this);
            if (!lista.isEmpty())
                abrirListaMaestra(lista);
        } else {
            if (entregar)
                entregar(r);
            marcarActualizarLista();
            Mensajes::informacion(textoModificado());
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

bool FichaRegistro::guardarAlSalir()
{
    cmd_Guardar_Click();
    return !m_cancelarCierre;
}

qint64 FichaRegistro::claveAGuardar(const QString& tabla, const QString& campo, const QString& noHallado) const
{
    if (esAlta())
        return siguienteClave(tabla, campo);
    if (escalar(QStringLiteral("SELECT \"%1\" FROM \"%2\" WHERE \"%1\" = ?").arg(campo, tabla), {Codigo}).isNull()) {
        Mensajes::aviso(noHallado);
        return 0;
    }
    return Codigo;
}

void FichaRegistro::prepararProvincia(QComboBox* cbo, Provincias lista)
{
    cbo->setEditable(true);
    cbo->setInsertPolicy(QComboBox::NoInsert);
    cbo->clear();
    {
        UsoConexion uso;
        Consulta c(lista == Provincias::Mirvade ? QStringLiteral("SELECT descripción FROM PROVINCIAS_MIRVADE")
                                                : QStringLiteral("SELECT descripción FROM PROVINCIAS ORDER BY descripción COLLATE ES"));
        while (c.siguiente())
            cbo->addItem(c.valor(0).toString());
    }
    cbo->setCurrentIndex(-1);
    cbo->setEditText(QString());
    // Cabe entera la provincia más larga ("Santa Cruz de Tenerife"), aunque la rejilla apriete.
    cbo->setMinimumContentsLength(22);
    cbo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
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

QString FichaRegistro::recortado(const QWidget* w) { return Instantanea::texto(w).trimmed(); }

QString FichaRegistro::nombreCompleto(const QWidget* nombre, const QWidget* apellidos)
{
    return (Instantanea::texto(nombre) + QLatin1Char(' ') + Instantanea::texto(apellidos)).trimmed();
}
