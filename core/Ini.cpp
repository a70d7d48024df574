#include "core/Ini.h"

#include "core/Rutas.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringList>

namespace {

// Codificación en que llegó el fichero; se escribe en la misma para no mezclar dos en un fichero.
// Un editor de textos puede guardarlo como UTF-16 (con marca) o en la página de códigos occidental.
enum class Codificacion { Utf8, Utf8ConMarca, Utf16LE, Utf16BE, Latin1 };

struct Contenido {
    QStringList lineas;
    QString finLinea = QStringLiteral("\r\n");
    bool finalConSalto = true;
    Codificacion codificacion = Codificacion::Utf8;
};

Codificacion detectar(const QByteArray& b)
{
    if (b.startsWith("\xEF\xBB\xBF"))
        return Codificacion::Utf8ConMarca;
    if (b.startsWith("\xFF\xFE"))
        return Codificacion::Utf16LE;
    if (b.startsWith("\xFE\xFF"))
        return Codificacion::Utf16BE;
    // UTF-16 sin marca: texto latino con un byte nulo en cada carácter.
    if (b.size() >= 4 && b.size() % 2 == 0) {
        if (b[0] != 0 && b[1] == 0 && b[2] != 0 && b[3] == 0)
            return Codificacion::Utf16LE;
        if (b[0] == 0 && b[1] != 0 && b[2] == 0 && b[3] != 0)
            return Codificacion::Utf16BE;
    }
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString prueba = utf8(b);
    return utf8.hasError() ? Codificacion::Latin1 : Codificacion::Utf8;
}

QString decodificar(const QByteArray& b, Codificacion c)
{
    QString texto;
    switch (c) {
    case Codificacion::Utf8:
    case Codificacion::Utf8ConMarca: texto = QString::fromUtf8(b); break;
    case Codificacion::Utf16LE: texto = QStringDecoder(QStringDecoder::Utf16LE).decode(b); break;
    case Codificacion::Utf16BE: texto = QStringDecoder(QStringDecoder::Utf16BE).decode(b); break;
    case Codificacion::Latin1: texto = QString::fromLatin1(b); break;
    }
    if (texto.startsWith(QChar(0xFEFF)))
        texto.remove(0, 1);
    return texto;
}

QByteArray codificar(const QString& texto, Codificacion c)
{
    switch (c) {
    case Codificacion::Utf8ConMarca: return QByteArray("\xEF\xBB\xBF") + texto.toUtf8();
    case Codificacion::Utf16LE: return QStringEncoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom).encode(texto);
    case Codificacion::Utf16BE: return QStringEncoder(QStringEncoder::Utf16BE, QStringEncoder::Flag::WriteBom).encode(texto);
    case Codificacion::Latin1: {
        // Un valor que no cabe en la página de códigos pasa el fichero entero a UTF-8.
        for (const QChar ch : texto)
            if (ch.unicode() > 0xFF)
                return texto.toUtf8();
        return texto.toLatin1();
    }
    case Codificacion::Utf8: break;
    }
    return texto.toUtf8();
}

Contenido leerFichero(const QString& fichero, bool* existe)
{
    Contenido c;
    QFile f(fichero);
    *existe = f.open(QIODevice::ReadOnly);
    if (!*existe)
        return c;
    const QByteArray bytes = f.readAll();
    c.codificacion = detectar(bytes);
    QString texto = decodificar(bytes, c.codificacion);
    if (!texto.contains(QStringLiteral("\r\n")) && texto.contains(QLatin1Char('\n')))
        c.finLinea = QStringLiteral("\n");
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    c.finalConSalto = texto.isEmpty() || texto.endsWith(QLatin1Char('\n'));
    if (texto.endsWith(QLatin1Char('\n')))
        texto.chop(1);
    if (!texto.isEmpty())
        c.lineas = texto.split(QLatin1Char('\n'));
    return c;
}

// Nombre de sección de una línea "[Nombre]", o nulo si la línea no es de sección.
QString seccionDe(const QString& linea)
{
    const QString t = linea.trimmed();
    if (!t.startsWith(QLatin1Char('[')))
        return {};
    const int cierre = t.indexOf(QLatin1Char(']'));
    if (cierre < 0)
        return {};
    return t.mid(1, cierre - 1).trimmed();
}

// Clave de una línea "clave=valor", o nulo.
QString claveDe(const QString& linea, QString* valor = nullptr)
{
    const QString t = linea.trimmed();
    if (t.isEmpty() || t.startsWith(QLatin1Char(';')) || t.startsWith(QLatin1Char('[')))
        return {};
    const int igual = t.indexOf(QLatin1Char('='));
    if (igual <= 0)
        return {};
    if (valor)
        *valor = t.mid(igual + 1).trimmed();
    return t.left(igual).trimmed();
}

bool igual(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

}  // namespace

QString leerIni(const QString& fichero, const QString& seccion, const QString& clave)
{
    bool existe = false;
    const Contenido c = leerFichero(fichero, &existe);
    bool dentro = false;
    for (const QString& linea : c.lineas) {
        const QString s = seccionDe(linea);
        if (!s.isNull()) {
            dentro = igual(s, seccion);
            continue;
        }
        if (!dentro)
            continue;
        QString valor;
        const QString k = claveDe(linea, &valor);
        if (!k.isNull() && igual(k, clave)) {
            // Como el servicio del sistema: unas comillas que rodean el valor se quitan.
            if (valor.size() >= 2 && (valor.front() == QLatin1Char('"') || valor.front() == QLatin1Char('\''))
                && valor.back() == valor.front())
                valor = valor.mid(1, valor.size() - 2);
            return valor.left(INI_LONGITUD_LECTURA);
        }
    }
    return QString(QLatin1String(""));
}

bool escribirIni(const QString& fichero, const QString& seccion, const QString& clave, const QString& valor)
{
    bool existe = false;
    Contenido c = leerFichero(fichero, &existe);
    const QString nueva = clave + QLatin1Char('=') + valor;

    int inicioSeccion = -1;  // línea de la cabecera
    int ultimaDeSeccion = -1;  // última línea no vacía de la sección
    for (int i = 0; i < c.lineas.size(); ++i) {
        const QString s = seccionDe(c.lineas[i]);
        if (!s.isNull()) {
            if (inicioSeccion >= 0)
                break;
            if (igual(s, seccion)) {
                inicioSeccion = i;
                ultimaDeSeccion = i;
            }
            continue;
        }
        if (inicioSeccion < 0)
            continue;
        const QString k = claveDe(c.lineas[i]);
        if (!k.isNull() && igual(k, clave)) {
            c.lineas[i] = nueva;
            inicioSeccion = -2;  // hecho
            break;
        }
        if (!c.lineas[i].trimmed().isEmpty())
            ultimaDeSeccion = i;
    }
    if (inicioSeccion >= 0) {
        c.lineas.insert(ultimaDeSeccion + 1, nueva);
    } else if (inicioSeccion == -1) {
        c.lineas << QLatin1Char('[') + seccion + QLatin1Char(']') << nueva;
    }

    QSaveFile f(fichero);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    QString texto = c.lineas.join(c.finLinea);
    if (c.finalConSalto || !existe)
        texto += c.finLinea;
    f.write(codificar(texto, c.codificacion));
    return f.commit();
}

QString leerAjuste(const QString& seccion, const QString& clave)
{
    return leerIni(Rutas::ficheroIni(), seccion, clave);
}

bool escribirAjuste(const QString& seccion, const QString& clave, const QString& valor)
{
    return escribirIni(Rutas::ficheroIni(), seccion, clave, valor);
}

QString leerRutaAjuste(const QString& seccion, const QString& clave)
{
    const QString ruta = leerAjuste(seccion, clave).trimmed();
    if (ruta.isEmpty())
        return ruta;
    return QDir::isRelativePath(ruta) ? Rutas::enPrograma(ruta) : Rutas::nativa(ruta);
}

QString leerRutaBD()
{
    // La que escribe el asistente es absoluta; la de la compilación, "datos/", relativa.
    return Rutas::conSeparadorFinal(leerRutaAjuste(QStringLiteral("BD"), QStringLiteral("ruta")));
}
