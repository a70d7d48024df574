#include "forms/frmDatosImpreso_A3.h"

#include "core/Filtros.h"
#include "core/Formato.h"
#include "core/Guardia.h"
#include "core/Iconos.h"
#include "reports/FormatoInforme.h"
#include "ui_frmDatosImpreso_A3.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>
#include <cmath>

using BloquesImpreso::CampoImpreso;

namespace {

const QString PANTALLA = QStringLiteral("frmDatosImpreso_A3");
const QString IMPORTE = QStringLiteral("#,##0.00");
const QString COEFICIENTE_CR = QStringLiteral("#,##0.0000");

// Teclas de los campos numéricos: el "." se escribe como ",", una sola coma (salvo que se
// sustituya todo el texto seleccionado), un signo menos y cifras, sin pasar de su longitud. La
// longitud sólo limita lo que se teclea: el formato al salir puede alargar el texto.
int reglaNumero(int tecla, const QString& actual, int limite)
{
    if (tecla != TECLA_RETROCESO && actual.size() >= limite)
        return 0;
    if (tecla == '.')
        return tecla;  // sólo llega así al pegar: el punto de los miles
    if (tecla == ',' && actual.contains(QLatin1Char(',')))
        return 0;
    return admitirNumeros(tecla, {.menos = true, .coma = true});
}

// El "." tecleado entra como "," por la misma regla.
class PuntoEnComa : public QObject {
public:
    PuntoEnComa(QLineEdit* campo, int limite) : QObject(campo), m_campo(campo), m_limite(limite)
    {
        new FiltroTeclas(campo, [limite](int tecla, const QString& actual) { return reglaNumero(tecla, actual, limite); });
        campo->installEventFilter(this);  // el último filtro instalado es el primero en actuar
    }

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() != QEvent::KeyPress)
            return false;
        const auto* k = static_cast<QKeyEvent*>(e);
        if (k->text() != QLatin1String(".") || (k->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)))
            return false;
        QString actual = m_campo->text();
        if (m_campo->hasSelectedText())
            actual.remove(m_campo->selectionStart(), m_campo->selectedText().size());
        if (!m_campo->isReadOnly() && reglaNumero(',', actual, m_limite) != 0)
            m_campo->insert(QStringLiteral(","));
        return true;
    }

private:
    QLineEdit* m_campo;
    int m_limite;
};

// Número de un campo como se ve: recortado, no vacío y numérico.
bool leer(const QLineEdit* campo, double& valor)
{
    const QString t = campo->text().trimmed();
    if (t.isEmpty())
        return false;
    bool ok = false;
    valor = Formato::aNumero(t, &ok);
    return ok;
}

// El texto con su formato; uno vacío o que no es número, tal cual.
QString conFormato(const QString& texto, const QString& patron)
{
    bool ok = false;
    const double v = Formato::aNumero(texto.trimmed(), &ok);
    return ok ? Formato::formatear(v, patron) : texto;
}

void darFormato(QLineEdit* campo, const QString& patron) { campo->setText(conFormato(campo->text(), patron)); }

// Un importe que no cabe en un double es un desbordamiento, como lo era en el sistema.
QString importeSinDesbordar(double valor)
{
    if (!std::isfinite(valor))
        lanzarError(6, QStringLiteral("Desbordamiento"));
    return Formato::formatear(valor, IMPORTE);
}

double dividir(double a, double b)
{
    if (b == 0.0)
        lanzarError(11, QStringLiteral("División por cero"));
    return a / b;
}

}  // namespace

frmDatosImpreso_A3::frmDatosImpreso_A3(QWidget* padre)
    : DatosImpreso(PANTALLA, padre), ui(std::make_unique<Ui::frmDatosImpreso_A3>())
{
    ui->setupUi(this);
    enlazarControles(QStringLiteral("img_Buscar_0"), QStringLiteral("img_Borrar_0"));

    const auto campo = [this](const char* nombre, int i = -1) {
        const QString n = i < 0 ? QString::fromLatin1(nombre) : QStringLiteral("%1_%2").arg(QLatin1String(nombre)).arg(i);
        auto* c = findChild<QLineEdit*>(n);
        Q_ASSERT(c);
        return c;
    };
    for (int i = 0; i < LINEAS; ++i)
        m_lineas[i] = {campo("txt_Usos", i), campo("txt_Superficie", i), campo("txt_Ct", i), campo("txt_Cc", i),
                       campo("txt_Cr", i),   campo("txt_CRef", i),       campo("txt_Coste", i)};
    for (int j = 0; j < LINEAS - 1; ++j)
        m_moduloFijo[j] = campo("txt_ModuloFijo", j);

    // Los botones de las líneas (el 0, el del proyecto, lo conecta el esqueleto).
    for (int k = 0; k <= LINEAS; ++k) {
        auto* buscar = findChild<QToolButton*>(QStringLiteral("img_Buscar_%1").arg(k));
        auto* borrar = findChild<QToolButton*>(QStringLiteral("img_Borrar_%1").arg(k));
        Q_ASSERT(buscar && borrar);
        buscar->setIcon(Iconos::icono(QStringLiteral("buscar"), 20));
        borrar->setIcon(Iconos::icono(QStringLiteral("borrar"), 20));
        if (k == 0)
            continue;
        buscar->setToolTip(QStringLiteral("Seleccionar coste de referencia"));
        borrar->setToolTip(QStringLiteral("Limpiar datos del uso"));
        connect(buscar, &QToolButton::clicked, this, [this, k] { img_Buscar_Click(k); });
        connect(borrar, &QToolButton::clicked, this, [this, k] { img_Borrar_Click(k); });
    }

    // Longitudes de lo que se teclea y sus filtros; la salida de cada uno completa, formatea y recalcula.
    const auto numerico = [this](QLineEdit* c, int limite) {
        new PuntoEnComa(c, limite);
        c->installEventFilter(this);
        m_numericos << c;
    };
    for (const Linea& l : m_lineas) {
        numerico(l.superficie, 14);
        numerico(l.ct, 4);
        numerico(l.cc, 4);
        numerico(l.cr, 6);
        numerico(l.coste, 14);
    }
    numerico(ui->txt_Modulo, 8);
    numerico(ui->txt_PEM, 14);

    // Pulsar la vista previa saca el foco del campo, que así se formatea y recalcula antes de guardar.
    if (QWidget* boton = tlb_BotoneraImprimir->widgetForAction(m_botonImprimir))
        boton->setFocusPolicy(Qt::ClickFocus);

    // Columnas del histórico en su orden: el índice n de una columna es la línea n - 1.
    const auto numero = [](const QString& columna, QWidget* control, const QString& formato = IMPORTE) {
        return CampoImpreso{.columna = columna, .control = control, .numerico = true, .formato = formato};
    };
    m_campos << CampoImpreso{.columna = QStringLiteral("PRYNOM"), .control = txt_Proyecto}
             << numero(QStringLiteral("PRYCOD"), txt_CodProyecto, {});
    const auto columnas = [&](const char* prefijo, QLineEdit* Linea::*control, const QString& formato) {
        for (int i = 0; i < LINEAS; ++i) {
            const QString columna = QLatin1String(prefijo) + QString::number(i + 1);
            m_campos << (formato.isEmpty() ? CampoImpreso{.columna = columna, .control = m_lineas[i].*control}
                                           : numero(columna, m_lineas[i].*control, formato));
        }
    };
    columnas("USO", &Linea::usos, {});
    columnas("SUP", &Linea::superficie, IMPORTE);
    columnas("CT", &Linea::ct, IMPORTE);
    columnas("CC", &Linea::cc, IMPORTE);
    columnas("CR", &Linea::cr, COEFICIENTE_CR);
    m_campos << numero(QStringLiteral("MODULO"), ui->txt_Modulo);
    columnas("CREF", &Linea::cref, IMPORTE);
    columnas("COSTE", &Linea::coste, IMPORTE);
    m_campos << numero(QStringLiteral("SUP"), ui->txt_TotalSuperficie) << numero(QStringLiteral("CREF"), ui->txt_TotalCRef)
             << numero(QStringLiteral("PEM"), ui->txt_PEM) << numero(QStringLiteral("COSTE_TOTAL"), ui->txt_TotalCoste)
             << CampoImpreso{.columna = QStringLiteral("LUGAR"), .control = txt_Lugar}
             << CampoImpreso{.columna = QStringLiteral("FECHA"), .control = txt_Fecha};
}

frmDatosImpreso_A3::~frmDatosImpreso_A3() = default;

// ---------------------------------------------------------------- carga

void frmDatosImpreso_A3::valoresPorDefecto()
{
    // El módulo de la práctica, como si se hubiera escrito y dejado el campo.
    Consulta c(QStringLiteral("SELECT Modulo FROM Config"));
    if (!c.siguiente())
        return;
    ui->txt_Modulo->setText(FormatoInforme::valor(c.valor(0), QString()));
    salirDeCampo(ui->txt_Modulo);
}

void frmDatosImpreso_A3::cargarCampos(const Consulta& fila)
{
    // Con sus formatos y sin recalcular: se ve lo que se guardó.
    for (const CampoImpreso& c : m_campos)
        BloquesImpreso::cargarCampo(c, fila);
    for (QLineEdit* fijo : m_moduloFijo)
        fijo->setText(ui->txt_Modulo->text());
}

// ---------------------------------------------------------------- salida de los campos y cálculo

bool frmDatosImpreso_A3::eventFilter(QObject* objeto, QEvent* evento)
{
    if (evento->type() == QEvent::FocusOut) {
        // Ni el menú del campo ni otra ventana del sistema son salir de él.
        const Qt::FocusReason motivo = static_cast<QFocusEvent*>(evento)->reason();
        auto* campo = qobject_cast<QLineEdit*>(objeto);
        if (campo && m_numericos.contains(campo) && motivo != Qt::PopupFocusReason && motivo != Qt::ActiveWindowFocusReason)
            guardia(PANTALLA, campo->objectName() + QStringLiteral("_LostFocus"), [&] { salirDeCampo(campo); });
    }
    return DatosImpreso::eventFilter(objeto, evento);
}

int frmDatosImpreso_A3::lineaDe(const QLineEdit* campo) const
{
    for (int i = 0; i < LINEAS; ++i)
        if (m_lineas[i].cr == campo)
            return i;
    return -1;
}

void frmDatosImpreso_A3::salirDeCampo(QLineEdit* campo)
{
    const QString s = campo->text().trimmed();
    if (s.startsWith(QLatin1Char(',')))
        campo->setText(QLatin1Char('0') + s);
    else if (s.startsWith(QLatin1String("-,")))
        campo->setText(QStringLiteral("-0,") + s.mid(2));

    if (const int i = lineaDe(campo); i >= 0) {
        // Cr sólo en una línea con uso: con formato de cuatro decimales, y 1 si está vacío.
        if (!m_lineas[i].usos->text().trimmed().isEmpty()) {
            if (!campo->text().trimmed().isEmpty())
                darFormato(campo, COEFICIENTE_CR);
            else
                campo->setText(Formato::formatear(1, COEFICIENTE_CR));
        }
    } else {
        darFormato(campo, IMPORTE);
    }
    if (campo == ui->txt_Modulo)
        for (QLineEdit* fijo : m_moduloFijo)
            fijo->setText(ui->txt_Modulo->text());
    if (campo != ui->txt_PEM)
        calcularValores();
}

void frmDatosImpreso_A3::calcularValores()
{
    for (int i = 0; i < LINEAS; ++i)
        calcularCosteReferencia(i);
    calcularTotalesResumen();
}

void frmDatosImpreso_A3::calcularCosteReferencia(int i)
{
    // Un fallo de una línea (superficie cero) se anota sin aviso; esa línea deja su coste y las
    // demás siguen calculándose.
    guardia(
        PANTALLA, QStringLiteral("calcularCosteReferencia"),
        [&] {
            const Linea& l = m_lineas[i];
            double superficie = 0, ct = 0, cc = 0, cr = 0, modulo = 0, cref = 0;
            // El producto, en este orden, sobre los números tal como se ven; sólo lo redondea el formato.
            if (!l.usos->text().trimmed().isEmpty() && leer(l.superficie, superficie) && leer(l.ct, ct) && leer(l.cc, cc)
                && leer(l.cr, cr) && leer(ui->txt_Modulo, modulo))
                l.cref->setText(importeSinDesbordar(superficie * ct * cc * cr * modulo));
            // Un coste de referencia no se borra nunca aquí; el coste por superficie parte del ya redondeado.
            if (leer(l.superficie, superficie) && leer(l.cref, cref))
                l.coste->setText(importeSinDesbordar(dividir(cref, superficie)));
        },
        Mostrar::No);
}

void frmDatosImpreso_A3::calcularTotalesResumen()
{
    // La superficie cuenta aunque la línea no tenga uso.
    double superficie = 0, cref = 0, v = 0;
    for (const Linea& l : m_lineas) {
        if (leer(l.superficie, v))
            superficie += v;
        if (leer(l.cref, v))
            cref += v;
    }
    ui->txt_TotalSuperficie->setText(importeSinDesbordar(superficie));
    ui->txt_TotalCRef->setText(importeSinDesbordar(cref));
    double media = 0, totalSuperficie = 0, totalCRef = 0;
    if (leer(ui->txt_TotalSuperficie, totalSuperficie) && leer(ui->txt_TotalCRef, totalCRef) && totalSuperficie != 0)
        media = Formato::aNumero(importeSinDesbordar(totalCRef / totalSuperficie));
    ui->txt_TotalCoste->setText(importeSinDesbordar(media));
}

// ---------------------------------------------------------------- botones de las líneas

void frmDatosImpreso_A3::img_Buscar_Click(int Index)
{
    if (Index == 0) {
        DatosImpreso::img_Buscar_Click();
        return;
    }
    guardia(PANTALLA, QStringLiteral("img_Buscar_Click"), [&] {
        const int linea = Index - 1;
        abrirSelector({.tabla = QStringLiteral("COSTES"),
                       .titulo = QStringLiteral("Buscar coste de referencia"),
                       .claveRetorno = QStringLiteral("FRMDATOSIMPRESOA3_USO_%1").arg(Index),
                       .posicion = short(Index)},
                      [this](const Eleccion& e) { recibirCoste(e); },
                      // Un coste nuevo sólo da el uso (su tipo); los coeficientes no se tocan.
                      [this, linea](const RegistroGuardado& r) { m_lineas[linea].usos->setText(r.nombre); });
    });
}

void frmDatosImpreso_A3::recibirCoste(const Eleccion& e)
{
    const int n = e.posicion - 1;
    if (n < 0 || n >= LINEAS)
        return;
    const Linea& l = m_lineas[n];
    l.usos->setText(e.texto(2));
    l.ct->setText(conFormato(e.texto(3), IMPORTE));
    l.cc->setText(conFormato(e.texto(4), IMPORTE));
    // Un Cr que haya escrito el usuario se queda.
    if (l.cr->text().trimmed().isEmpty())
        l.cr->setText(Formato::formatear(1, COEFICIENTE_CR));
    calcularValores();
}

void frmDatosImpreso_A3::limpiarLinea(int i)
{
    const Linea& l = m_lineas[i];
    for (QLineEdit* c : {l.usos, l.superficie, l.ct, l.cc, l.cr, l.cref, l.coste})
        c->clear();
}

void frmDatosImpreso_A3::img_Borrar_Click(int Index)
{
    // Los totales no se recalculan: quedan como están hasta el siguiente cálculo.
    if (Index == 0) {
        DatosImpreso::img_Borrar_Click();
    } else if (Index == 1) {
        // La primera línea lleva el módulo de todas; sus ecos conservan el texto hasta que se vuelva a dejar.
        limpiarLinea(0);
        ui->txt_Modulo->clear();
    } else if (Index <= LINEAS) {
        limpiarLinea(Index - 1);
        m_moduloFijo[Index - 2]->clear();
    }
}

// ---------------------------------------------------------------- validación y escritura

bool frmDatosImpreso_A3::validarTrasPie()
{
    QList<QLineEdit*> orden;
    for (const Linea& l : m_lineas)
        orden << l.superficie << l.ct << l.cc << l.cr << l.coste;
    orden << ui->txt_Modulo << ui->txt_PEM;
    for (QLineEdit* c : orden) {
        const QString t = c->text().trimmed();
        if (!t.isEmpty() && !Formato::esNumerico(t))
            return avisar(c, QStringLiteral("Formato numérico no válido.\nPor favor, revise el valor proporcionado"));
    }
    return true;
}

Campos frmDatosImpreso_A3::camposHistorico() const { return BloquesImpreso::camposHistorico(m_campos); }

// Una celda vacía va nula, nunca como cero.
void frmDatosImpreso_A3::escribirTemporal() { BloquesImpreso::escribirFila(codigoProyecto(), definicion().tablaTemporal, m_campos); }

// El coste de referencia de cada línea y los totales no entran en la copia: se calculan.
QList<QWidget*> frmDatosImpreso_A3::controlesCopia() const
{
    QList<QWidget*> l{txt_CodProyecto, txt_Proyecto};
    for (const Linea& x : m_lineas)
        l << x.usos;
    for (const Linea& x : m_lineas)
        l << x.superficie << x.ct << x.cc << x.cr << x.coste;
    return l << ui->txt_Modulo << ui->txt_PEM << txt_Lugar << txt_Fecha;
}

bool frmDatosImpreso_A3::guardarAlSalir()
{
    // Cerrar la ventana no saca el foco del campo: se deja antes, para guardar lo calculado.
    if (auto* campo = qobject_cast<QLineEdit*>(focusWidget()); campo && m_numericos.contains(campo))
        salirDeCampo(campo);
    return DatosImpreso::guardarAlSalir();
}
