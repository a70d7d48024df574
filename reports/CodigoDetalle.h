#pragma once
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>

// Código que corre por cada banda de detalle al componerse (el Format de la sección de detalle).
// Lee campos de la fila, escribe textos con nombre del diseño, o suprime objetos.
class FilaDetalle {
public:
    using Lector = std::function<QVariant(const QString& campo)>;
    explicit FilaDetalle(Lector lector) : m_lector(std::move(lector)) {}

    QVariant valor(const QString& campo) const { return m_lector(campo); }
    void ponerTexto(const QString& objeto, const QString& texto) { m_textos.insert(objeto.toLower(), texto); }
    void suprimir(const QString& objeto) { m_suprimidos.insert(objeto.toLower()); }

    bool tieneTexto(const QString& objeto) const { return m_textos.contains(objeto.toLower()); }
    QString texto(const QString& objeto) const { return m_textos.value(objeto.toLower()); }
    bool suprimido(const QString& objeto) const { return m_suprimidos.contains(objeto.toLower()); }

private:
    Lector m_lector;
    QHash<QString, QString> m_textos;
    QSet<QString> m_suprimidos;
};

// Argumentos que el diseño da a la función: campos="A,B,C" objeto="txtLugar"...
using ArgumentosCodigo = QHash<QString, QString>;
using CodigoDetalle = std::function<void(FilaDetalle&, const ArgumentosCodigo&)>;

namespace CodigosDetalle {

// El unidor: cada campo no nulo, recortado, tras " - " (el primero sin él). El resultado
// recortado que sólo tiene separadores ("-", "--" según el informe) queda vacío.
QString unirCampos(const QVariantList& campos, const QStringList& vaciarEn);
QString unirTres(const QVariant& a, const QVariant& b, const QVariant& c);  // vacío en "-" o "--"
QString unirDos(const QVariant& a, const QVariant& b);                      // vacío en "-"

// Valor numérico exactamente cero (un nulo no es cero).
bool esCero(const QVariant& v);

// Texto del certificado final de obra: el nombre y ", Arquitectos" si la lista lleva comas,
// ", Arquitecto" si no; nulo si la lista está vacía (el objeto no se toca).
QVariant textoArquitectosCFO(const QVariant& lista, const QVariant& nombre);

// Textos del impreso B3: el año (cuatro últimos caracteres de la fecha), los importes con "€"
// y su diferencia con "#,##0.00" y "€". Los vacíos quedan nulos.
struct TextosB3 {
    QString anio;
    QVariant importe1, importe2, diferencia;
};
TextosB3 textosB3(const QVariant& fecha, const QVariant& importe1, const QVariant& importe2);

// Las funciones con nombre que citan los diseños: "unirTres", "unirDos", "copiarTexto",
// "suprimirCeros", "arquitectosCFO", "anioEurosB3", "suprimirSinDatos".
CodigoDetalle buscar(const QString& nombre);
QStringList nombres();

}  // namespace CodigosDetalle
