#include "masterdata/FichaOtros.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "masterdata/frmValidarNIFCIF.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QToolButton>

FichaOtros::FichaOtros(const Textos& textos, QWidget* padre) : FichaRegistro(padre), m_textos(textos) {}

void FichaOtros::iniciar()
{
    auto caja = [this](const char* n) { return findChild<QLineEdit*>(QLatin1String(n)); };
    txt_NumColegiado = caja("txt_NumColegiado");
    txt_Colegio = caja("txt_Colegio");
    txt_Nombre = caja("txt_Nombre");
    txt_Apellidos = caja("txt_Apellidos");
    txt_NIF = caja("txt_NIF");
    txt_Correo = caja("txt_Correo");
    txt_Notas = findChild<QPlainTextEdit*>(QStringLiteral("txt_Notas"));
    cbo_Provincia = findChild<QComboBox*>(QStringLiteral("cbo_Provincia"));
    opt_Tipo_0 = findChild<QRadioButton*>(QStringLiteral("opt_Tipo_0"));
    opt_Tipo_1 = findChild<QRadioButton*>(QStringLiteral("opt_Tipo_1"));
    Frame2 = findChild<QGroupBox*>(QStringLiteral("Frame2"));

    conectarBotones();
    int indice = 0;
    for (QRadioButton* opt : {opt_Tipo_0, opt_Tipo_1}) {
        connect(opt, &QRadioButton::toggled, this, [this, indice](bool marcada) {
            if (marcada)
                guardia(objectName(), QStringLiteral("opt_Tipo_Click"), [&] { opt_Tipo_Click(indice); });
        });
        ++indice;
    }
    if (auto* img = findChild<QToolButton*>(QStringLiteral("img_Validar")))
        connect(img, &QToolButton::clicked, this, [this] { img_Validar_Click(); });
    opt_Tipo_Click(0);  // el estado del diseño: persona física
}

QString FichaOtros::texto(const char* control) const
{
    return Instantanea::texto(findChild<QWidget*>(QLatin1String(control)));
}

QString FichaOtros::nombre() const { return nombreCompleto(txt_Nombre, txt_Apellidos); }

QString FichaOtros::numero() const { return txt_NumColegiado ? txt_NumColegiado->text().trimmed() : QString(); }

QList<QWidget*> FichaOtros::controlesCopia() const
{
    QList<QWidget*> l;
    if (txt_NumColegiado)
        l << txt_NumColegiado;
    for (const char* n : {"txt_Nombre", "txt_Apellidos", "txt_Domicilio", "txt_CP", "txt_NIF", "txt_Municipio", "cbo_Provincia",
                          "txt_Correo", "txt_Telefono1", "txt_Telefono2", "txt_Movil", "txt_Fax", "txt_Notas"})
        l << findChild<QWidget*>(QLatin1String(n));
    if (txt_Colegio)
        l << txt_Colegio;
    return l;
}

void FichaOtros::opt_Tipo_Click(int indice)
{
    const bool persona = indice == 0;
    auto titulo = [this](int n, const QString& texto) {
        if (auto* l = findChild<QLabel*>(QStringLiteral("lbl_Titulo_%1").arg(n)))
            l->setText(texto);
    };
    titulo(0, persona ? QStringLiteral("Nº Colegiado") : QStringLiteral("Nº Registro"));
    titulo(1, persona ? QStringLiteral("Nombre") : QStringLiteral("Empresa"));
    titulo(5, persona ? QStringLiteral("N.I.F.") : QStringLiteral("C.I.F."));
    if (auto* l = findChild<QLabel*>(QStringLiteral("lbl_Titulo_2")))
        l->setEnabled(persona);
    txt_Apellidos->setEnabled(persona);
    QPalette p = QApplication::palette(txt_Apellidos);
    if (!persona)
        for (auto grupo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            p.setColor(grupo, QPalette::Base, p.color(grupo, QPalette::Button));
    txt_Apellidos->setPalette(p);
}

void FichaOtros::fijarTipo(int indice, bool bloquear)
{
    (indice == 0 ? opt_Tipo_0 : opt_Tipo_1)->setChecked(true);
    opt_Tipo_Click(indice);
    if (bloquear)
        Frame2->setEnabled(false);
}

void FichaOtros::img_Validar_Click() { validarIdentificador(txt_NIF, opt_Tipo_0->isChecked()); }

void FichaOtros::cargarDatos()
{
    if (auto* img = findChild<QToolButton*>(QStringLiteral("img_Validar")))
        img->setIcon(Iconos::icono(QStringLiteral("validar")));
    prepararProvincia(cbo_Provincia);
    if (txt_NumColegiado)
        instalarFiltroNumeros(txt_NumColegiado);
    instalarFiltroNumeros(findChild<QLineEdit*>(QStringLiteral("txt_CP")));
    instalarFiltroNIF(txt_NIF);
    limitarNotas(txt_Notas, 255);

    if (esAlta()) {
        fijarTipo(0, false);
        return;
    }
    if (!esModificar())
        return;
    if (m_textos.bloquearTipo)
        Frame2->setEnabled(false);

    UsoConexion uso;
    Consulta c(QStringLiteral("SELECT * FROM OTROS WHERE Codigo_Cli = ?"), {Codigo});
    if (!c.siguiente()) {
        Mensajes::aviso(m_textos.cargaFallida);
        return;
    }
    const bool sociedad = c.valor(QStringLiteral("esS")).toLongLong() != 0;
    fijarTipo(sociedad ? 1 : 0, false);
    auto poner = [this](const char* control, const QString& valor) {
        if (auto* t = findChild<QLineEdit*>(QLatin1String(control)))
            t->setText(valor);
    };
    poner("txt_NumColegiado", c.texto(QStringLiteral("NumColegiado")));
    poner("txt_Colegio", c.texto(QStringLiteral("Colegio")));
    poner("txt_Nombre", c.texto(QStringLiteral("Nombre_Cli")));
    poner("txt_Apellidos", c.texto(QStringLiteral("Ape_Cli")));
    poner("txt_NIF", c.texto(QStringLiteral("NIF")));
    poner("txt_Domicilio", c.texto(QStringLiteral("Dirección_Cli")));
    poner("txt_CP", c.texto(QStringLiteral("cp")));
    poner("txt_Municipio", c.texto(QStringLiteral("Municipio_Cli")));
    cbo_Provincia->setEditText(c.texto(QStringLiteral("Provincia_Cli")));
    poner("txt_Telefono1", c.texto(QStringLiteral("Tfno_Cli")));
    poner("txt_Telefono2", c.texto(QStringLiteral("Tfno_Cli1")));
    poner("txt_Movil", c.texto(QStringLiteral("TelMovil")));
    poner("txt_Fax", c.texto(QStringLiteral("Fax_Cli")));
    poner("txt_Correo", c.texto(QStringLiteral("Correo_Cli")));
    txt_Notas->setPlainText(c.texto(QStringLiteral("Otros")));
    // El número con el que se abrió: las cascadas buscan por él.
    if (txt_NumColegiado)
        m_numeroAnterior = numero().isEmpty() ? -1 : numero().toLongLong();
}

bool FichaOtros::validarDatos()
{
    const bool persona = opt_Tipo_0->isChecked();
    if (txt_NumColegiado) {
        if (numero().isEmpty()) {
            avisarCampo(txt_NumColegiado, obligatorio(persona ? QStringLiteral("El número de colegiado es obligatorio.")
                                                               : QStringLiteral("El número de registro es obligatorio.")));
            return false;
        }
        if (esAlta() && m_textos.conUnicidad) {
            UsoConexion uso;
            const QVariant hay = escalar(QStringLiteral("SELECT Codigo_Cli FROM OTROS WHERE NumColegiado = ? "
                                                        "AND UCASE(Categoria) = ? AND esS = ?"),
                                         {numero().toLongLong(), m_textos.categoria, persona ? 0 : 1});
            if (!hay.isNull()) {
                avisarCampo(txt_NumColegiado, (persona ? m_textos.existePersona
                                                       : QStringLiteral("Ya existe una sociedad con ese número de registro."))
                                                  + QStringLiteral("\nPor favor, revise el número proporcionado"));
                return false;
            }
        }
    }
    if (recortado(txt_Nombre).isEmpty()) {
        avisarCampo(txt_Nombre, obligatorio(persona ? m_textos.nombrePersona
                                                    : QStringLiteral("El nombre de la sociedad es obligatorio.")));
        return false;
    }
    return comprobarCorreo(txt_Correo);
}

bool FichaOtros::guardarRegistro()
{
    // Una sola serie para todas las categorías de OTROS.
    const qint64 clave = claveAGuardar(QStringLiteral("OTROS"), QStringLiteral("Codigo_Cli"), m_textos.noHallado);
    if (clave == 0)
        return false;
    Campos campos;
    if (txt_Colegio)
        campos << qMakePair(QStringLiteral("Colegio"), textoONulo(txt_Colegio->text()));
    campos << qMakePair(QStringLiteral("Nombre_Cli"), textoONulo(txt_Nombre->text()))
           << qMakePair(QStringLiteral("Ape_Cli"), textoONulo(txt_Apellidos->text()))
           << qMakePair(QStringLiteral("NIF"), textoONulo(txt_NIF->text()));
    if (txt_NumColegiado)
        campos << qMakePair(QStringLiteral("NumColegiado"),
                            numero().isEmpty() ? QVariant(QMetaType(QMetaType::LongLong)) : QVariant(numero().toLongLong()));
    campos << qMakePair(QStringLiteral("Dirección_Cli"), textoONulo(texto("txt_Domicilio")))
           << qMakePair(QStringLiteral("Municipio_Cli"), textoONulo(texto("txt_Municipio")))
           << qMakePair(QStringLiteral("Provincia_Cli"), textoONulo(cbo_Provincia->currentText()))
           << qMakePair(QStringLiteral("Tfno_Cli"), textoONulo(texto("txt_Telefono1")))
           << qMakePair(QStringLiteral("Tfno_Cli1"), textoONulo(texto("txt_Telefono2")))
           << qMakePair(QStringLiteral("TelMovil"), textoONulo(texto("txt_Movil")))
           << qMakePair(QStringLiteral("Fax_Cli"), textoONulo(texto("txt_Fax")))
           << qMakePair(QStringLiteral("cp"), textoONulo(texto("txt_CP")))
           << qMakePair(QStringLiteral("Otros"), textoONulo(txt_Notas->toPlainText()))
           << qMakePair(QStringLiteral("Correo_Cli"), textoONulo(txt_Correo->text()))
           << qMakePair(QStringLiteral("Categoria"), QVariant(m_textos.categoria))
           << qMakePair(QStringLiteral("esS"), QVariant(opt_Tipo_1->isChecked() ? 1 : 0));
    if (esAlta()) {
        campos.prepend({QStringLiteral("Codigo_Cli"), clave});
        insertar(QStringLiteral("OTROS"), campos);
    } else {
        actualizar(QStringLiteral("OTROS"), campos, QStringLiteral("Codigo_Cli = ?"), {clave});
    }
    m_claveNueva = clave;
    return true;
}

RegistroGuardado FichaOtros::registroGuardado() const
{
    RegistroGuardado r;
    r.codigo = m_claveNueva;
    r.nombre = nombre();
    r.numero = numero();
    r.nif = texto("txt_NIF");
    r.columnas = {numero(), texto("txt_Nombre"), texto("txt_Apellidos"), texto("txt_NIF"), texto("txt_Domicilio"),
                  texto("txt_Municipio"), texto("cbo_Provincia")};
    r.contacto = {texto("txt_Domicilio"), texto("txt_NIF"),      texto("txt_CP"),  texto("txt_Municipio"), texto("cbo_Provincia"),
                  texto("txt_Telefono1"), texto("txt_Fax"),      texto("txt_Movil"), texto("txt_Correo")};
    return r;
}
