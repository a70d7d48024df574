#include "reports/CodigoDetalle.h"

#include "reports/FormatoInforme.h"

namespace CodigosDetalle {

namespace {

QStringList lista(const ArgumentosCodigo& a, const QString& clave)
{
    QStringList r;
    for (const QString& p : a.value(clave).split(QLatin1Char(','), Qt::SkipEmptyParts))
        r << p.trimmed();
    return r;
}

QString textoRecortado(const QVariant& v) { return v.isNull() ? QString() : v.toString().trimmed(); }

void unirTresCodigo(FilaDetalle& f, const ArgumentosCodigo& a)
{
    const QStringList c = lista(a, QStringLiteral("campos"));
    if (c.size() == 3)
        f.ponerTexto(a.value(QStringLiteral("objeto")), unirTres(f.valor(c[0]), f.valor(c[1]), f.valor(c[2])));
}

void unirDosCodigo(FilaDetalle& f, const ArgumentosCodigo& a)
{
    const QStringList c = lista(a, QStringLiteral("campos"));
    if (c.size() == 2)
        f.ponerTexto(a.value(QStringLiteral("objeto")), unirDos(f.valor(c[0]), f.valor(c[1])));
}

void copiarTextoCodigo(FilaDetalle& f, const ArgumentosCodigo& a)
{
    const QVariant v = f.valor(a.value(QStringLiteral("campo")));
    f.ponerTexto(a.value(QStringLiteral("objeto")), v.isNull() ? QString() : v.toString());
}

// campos="N1,N2>objeto": un cero suprime el objeto del campo, o el que va tras ">".
void suprimirCerosCodigo(FilaDetalle& f, const ArgumentosCodigo& a)
{
    for (const QString& par : lista(a, QStringLiteral("campos"))) {
        const QString campo = par.section(QLatin1Char('>'), 0, 0).trimmed();
        const QString objeto = par.contains(QLatin1Char('>')) ? par.section(QLatin1Char('>'), 1).trimmed() : campo;
        if (esCero(f.valor(campo)))
            f.suprimir(objeto);
    }
}

void arquitectosCFOCodigo(FilaDetalle& f, const ArgumentosCodigo& a)
{
    const QVariant t = textoArquitectosCFO(f.valor(a.value(QStringLiteral("lista"))), f.valor(a.value(QStringLiteral("campo"))));
    if (!t.isNull())
        f.ponerTexto(a.value(QStringLiteral("objeto")), t.toString());
}

void anioEurosB3Codigo(FilaDetalle& f, const ArgumentosCodigo& a)
{
    const TextosB3 t = textosB3(f.valor(a.value(QStringLiteral("fecha"))), f.valor(a.value(QStringLiteral("importe1"))),
                                f.valor(a.value(QStringLiteral("importe2"))));
    f.ponerTexto(a.value(QStringLiteral("objetoAnio")), t.anio);
    if (!t.importe1.isNull())
        f.ponerTexto(a.value(QStringLiteral("objeto1")), t.importe1.toString());
    if (!t.importe2.isNull())
        f.ponerTexto(a.value(QStringLiteral("objeto2")), t.importe2.toString());
    if (!t.diferencia.isNull())
        f.ponerTexto(a.value(QStringLiteral("objeto3")), t.diferencia.toString());
}

// campos="USO1,SUP1" objeto="modulo1": el objeto no se imprime si todos los campos faltan o están
// en blanco (el dato común de una línea que no tiene ninguno propio).
void suprimirSinDatosCodigo(FilaDetalle& f, const ArgumentosCodigo& a)
{
    for (const QString& campo : lista(a, QStringLiteral("campos")))
        if (!textoRecortado(f.valor(campo)).isEmpty())
            return;
    f.suprimir(a.value(QStringLiteral("objeto")));
}

const QHash<QString, CodigoDetalle>& registro()
{
    static const QHash<QString, CodigoDetalle> r = {
        {QStringLiteral("unirTres"), unirTresCodigo},
        {QStringLiteral("unirDos"), unirDosCodigo},
        {QStringLiteral("copiarTexto"), copiarTextoCodigo},
        {QStringLiteral("suprimirCeros"), suprimirCerosCodigo},
        {QStringLiteral("arquitectosCFO"), arquitectosCFOCodigo},
        {QStringLiteral("anioEurosB3"), anioEurosB3Codigo},
        // Impreso A3.
        {QStringLiteral("suprimirSinDatos"), suprimirSinDatosCodigo},
    };
    return r;
}

}  // namespace

QString unirCampos(const QVariantList& campos, const QStringList& vaciarEn)
{
    QString texto;
    for (int i = 0; i < campos.size(); ++i) {
        if (campos[i].isNull())
            continue;
        if (i > 0)
            texto += QStringLiteral(" - ");
        texto += campos[i].toString().trimmed();
    }
    texto = texto.trimmed();
    // Sólo separadores (con o sin blancos entre ellos): la línea sin datos no imprime nada.
    QString compacto = texto;
    compacto.remove(QLatin1Char(' '));
    if (vaciarEn.contains(compacto))
        return {};
    return texto;
}

QString unirTres(const QVariant& a, const QVariant& b, const QVariant& c)
{
    return unirCampos({a, b, c}, {QStringLiteral("-"), QStringLiteral("--")});
}

QString unirDos(const QVariant& a, const QVariant& b) { return unirCampos({a, b}, {QStringLiteral("-")}); }

bool esCero(const QVariant& v)
{
    double d = 0;
    return FormatoInforme::leerNumero(v, &d) && d == 0.0;
}

QVariant textoArquitectosCFO(const QVariant& lista, const QVariant& nombre)
{
    const QString l = textoRecortado(lista);
    if (l.isEmpty())
        return {};
    const QString n = nombre.isNull() ? QString() : nombre.toString();
    return n + (l.contains(QLatin1Char(',')) ? QStringLiteral(", Arquitectos") : QStringLiteral(", Arquitecto"));
}

TextosB3 textosB3(const QVariant& fecha, const QVariant& importe1, const QVariant& importe2)
{
    TextosB3 t;
    t.anio = textoRecortado(fecha).right(4);
    const QString i1 = textoRecortado(importe1);
    const QString i2 = textoRecortado(importe2);
    // Un importe numérico se escribe como lo enseña la pantalla.
    auto comoTexto = [](const QVariant& v, const QString& recortado) {
        if (v.typeId() == QMetaType::Double || v.typeId() == QMetaType::Int || v.typeId() == QMetaType::LongLong)
            return FormatoInforme::numero(v.toDouble(), QStringLiteral("#,##0.00"));
        return recortado;
    };
    if (!i1.isEmpty())
        t.importe1 = comoTexto(importe1, i1) + QStringLiteral("€");
    if (!i2.isEmpty())
        t.importe2 = comoTexto(importe2, i2) + QStringLiteral("€");
    if (!i1.isEmpty() && !i2.isEmpty()) {
        double a = 0, b = 0;
        FormatoInforme::leerNumero(importe1, &a);
        FormatoInforme::leerNumero(importe2, &b);
        t.diferencia = FormatoInforme::numero(a - b, QStringLiteral("#,##0.00")) + QStringLiteral("€");
    }
    return t;
}

CodigoDetalle buscar(const QString& nombre) { return registro().value(nombre); }

QStringList nombres() { return registro().keys(); }

}  // namespace CodigosDetalle
