#include "forms/CertificadoRetenciones.h"

#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "forms/CamposImporte.h"

#include <QDate>
#include <QEvent>
#include <QLineEdit>
#include <QToolButton>

using BloquesImpreso::FilaTemporal;

CertificadoRetenciones::CertificadoRetenciones(const QString& pantalla, QWidget* padre) : DatosImpreso(pantalla, padre) {}

void CertificadoRetenciones::enlazarCertificado()
{
    enlazarControles();
    const auto campo = [this](const char* nombre) {
        auto* c = findChild<QLineEdit*>(QString::fromLatin1(nombre));
        Q_ASSERT(c);
        return c;
    };
    txt_CodPerceptor = campo("txt_CodPerceptor");
    txt_Perceptor = campo("txt_Perceptor");
    txt_CodPagador = campo("txt_CodPagador");
    txt_Pagador = campo("txt_Pagador");
    txt_Ejercicio = campo("txt_Ejercicio");
    msk_FechaPresentacion = campo("msk_FechaPresentacion");
    txt_NumJustificante = campo("txt_NumJustificante");
    for (QLineEdit* c : {txt_CodPerceptor, txt_Perceptor, txt_CodPagador, txt_Pagador})
        c->setReadOnly(true);
    for (int i = 0; i < 2; ++i) {
        auto* buscar = findChild<QToolButton*>(QStringLiteral("img_Buscar_%1").arg(i));
        auto* borrar = findChild<QToolButton*>(QStringLiteral("img_Borrar_%1").arg(i));
        Q_ASSERT(buscar && borrar);
        buscar->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
        borrar->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
        connect(buscar, &QToolButton::clicked, this, [this, i] { img_Buscar_Click(i); });
        connect(borrar, &QToolButton::clicked, this, [this, i] { img_Borrar_Click(i); });
    }
    instalarFiltroNumeros(txt_Ejercicio);
    prepararCampoFecha(msk_FechaPresentacion);
    m_ayuda = new AyudaFecha(this);
    m_ayuda->vigilar(msk_FechaPresentacion);
    msk_FechaPresentacion->installEventFilter(this);  // se consulta antes: coloca el globo
}

bool CertificadoRetenciones::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == msk_FechaPresentacion && evento->type() == QEvent::FocusIn) {
        // El globo se abre bajo el campo.
        m_ayuda->adjustSize();
        QPoint p = msk_FechaPresentacion->mapTo(this, QPoint(0, msk_FechaPresentacion->height() + 2));
        p.setX(qMin(p.x(), qMax(0, width() - m_ayuda->width())));
        m_ayuda->move(p);
    }
    return DatosImpreso::eventFilter(objeto, evento);
}

void CertificadoRetenciones::mostrarAyuda(int mostrar) { m_ayuda->mostrarAyuda(mostrar); }

void CertificadoRetenciones::aplicarLimites()
{
    txt_Ejercicio->setMaxLength(4);
    txt_NumJustificante->setMaxLength(20);
}

// ---------------------------------------------------------------- selectores

void CertificadoRetenciones::img_Buscar_Click(int index)
{
    guardia(objectName(), QStringLiteral("img_Buscar_Click"), [&] {
        if (index == 0)
            buscarPerceptor();
        else
            buscarPar(peticionPagador(), txt_CodPagador, txt_Pagador);
    });
}

void CertificadoRetenciones::img_Borrar_Click(int index)
{
    if (index == 0) {
        borrarPerceptor();
    } else {
        txt_CodPagador->clear();
        txt_Pagador->clear();
    }
}

void CertificadoRetenciones::borrarPerceptor()
{
    txt_CodPerceptor->clear();
    txt_Perceptor->clear();
}

// ---------------------------------------------------------------- carga y copia

void CertificadoRetenciones::cargarCampos(const Consulta& c)
{
    txt_CodPerceptor->setText(c.texto(QStringLiteral("PERCOD")));
    txt_Perceptor->setText(c.texto(QStringLiteral("PERNOM")));
    txt_CodPagador->setText(c.texto(QStringLiteral("PAGCOD")));
    txt_Pagador->setText(c.texto(QStringLiteral("PAGNOM")));
    txt_Ejercicio->setText(c.texto(QStringLiteral("Ejercicio")));
    // Guardada en ISO; una nula deja la máscara vacía ("__/__/____").
    const QString fecha = c.texto(QStringLiteral("FechaPresentacion")).trimmed();
    const QDate iso = QDate::fromString(fecha.left(10), Qt::ISODate);
    msk_FechaPresentacion->setText(iso.isValid() ? Formato::fechaCorta(iso) : fecha);
    txt_NumJustificante->setText(c.texto(QStringLiteral("NumJustificante")));
    txt_Lugar->setText(c.texto(QStringLiteral("LUGAR")));
    txt_Fecha->setText(c.texto(QStringLiteral("FECHA")));
}

QList<QWidget*> CertificadoRetenciones::controlesCopia() const
{
    return {txt_CodPerceptor, txt_Perceptor, txt_CodPagador, txt_Pagador, txt_Ejercicio, msk_FechaPresentacion,
            txt_NumJustificante, txt_Lugar, txt_Fecha};
}

bool CertificadoRetenciones::validarPropios()
{
    if (txt_CodPerceptor->text().trimmed().isEmpty() || txt_Perceptor->text().trimmed().isEmpty())
        return avisar(txt_Perceptor, QStringLiteral("Por favor, seleccione un perceptor"));
    if (txt_CodPagador->text().trimmed().isEmpty() || txt_Pagador->text().trimmed().isEmpty())
        return avisar(txt_Pagador, QStringLiteral("Por favor, seleccione un pagador"));
    if (txt_Ejercicio->text().trimmed().isEmpty())
        return avisar(txt_Ejercicio, QStringLiteral("Por favor, proporcione el año del ejercicio"));
    if (!validarFecha(msk_FechaPresentacion))
        return false;
    return validarImportes();
}

// ---------------------------------------------------------------- columnas

void CertificadoRetenciones::ponerDatosCertificado(FilaTemporal& f) const
{
    f.poner(QStringLiteral("Ejercicio"), recortado(txt_Ejercicio));
    const QString fecha = msk_FechaPresentacion->displayText().trimmed();
    const QDate d = QDate::fromString(textoFechaNormalizado(fecha), QStringLiteral("dd/MM/yyyy"));
    f.poner(QStringLiteral("FechaPresentacion"),
            fecha == FECHA_VACIA || !d.isValid() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(d.toString(Qt::ISODate)));
    f.poner(QStringLiteral("NumJustificante"), recortado(txt_NumJustificante));
}

void CertificadoRetenciones::ponerPersonas(FilaTemporal& f) const
{
    const auto persona = [&f](const QString& sql, const QLineEdit* codigo, const QString& prefijo, const QString& aviso) {
        if (sql.isEmpty()) {
            Mensajes::aviso(aviso);
            return;
        }
        Consulta c(sql, {codigo->text().trimmed().toLongLong()});
        if (BloquesImpreso::leerFila(c, aviso))
            BloquesImpreso::columnasPersona(c, prefijo, f);
    };
    persona(sqlPerceptor(), txt_CodPerceptor, QStringLiteral("PER"), AVISO_PERCEPTOR);
    persona(sqlPagador(), txt_CodPagador, QStringLiteral("PAG"), AVISO_PAGADOR);
}

void CertificadoRetenciones::ponerPie(FilaTemporal& f) const
{
    f.poner(QStringLiteral("LUGAR"), recortado(txt_Lugar));
    f.poner(QStringLiteral("FECHA"), recortado(txt_Fecha));
}

void CertificadoRetenciones::ponerImporte(FilaTemporal& f, const QString& columna, const QVariant& valor, Destino destino)
{
    QVariant texto(QMetaType(QMetaType::QString));
    if (!valor.isNull())
        texto = valor.typeId() == QMetaType::QString ? CamposImporte::importeTexto(valor.toString())
                                                     : QVariant(Formato::formatear(valor.toDouble(), QStringLiteral("#,##0.00")));
    // Un nulo con tipo se lee "0" como texto: el nulo pasa tal cual a las dos tablas.
    if (destino == Destino::Temporal || texto.isNull())
        f.poner(columna, texto);
    else
        f.poner(columna, CamposImporte::importeGuardable(texto.toString()));
}
