#include "tests/comun/ContenidoBase.h"

#include "core/BaseDatos.h"

#include <QSqlQuery>
#include <QUuid>

namespace {

struct Columna {
    QString nombre, tipo;
    bool clave = false;
};
using Tablas = QList<QPair<QString, QList<Columna>>>;

// Conexión aparte a un fichero; se cierra y se olvida al salir.
template <class Cuerpo>
void conFichero(const QString& fichero, BaseDatos::Acceso acceso, Cuerpo&& cuerpo)
{
    const QString nombre = QStringLiteral("contenido_") + QUuid::createUuid().toString(QUuid::Id128);
    {
        QSqlDatabase db = BaseDatos::abrirConexion(nombre, fichero, acceso);
        cuerpo(db);
        db.close();
    }
    QSqlDatabase::removeDatabase(nombre);
}

// Las tablas del programa y sus columnas, como las entrega la base de datos vacía.
const Tablas& tablasDelPrograma()
{
    static const Tablas tablas = [] {
        Tablas r;
        conFichero(QStringLiteral(PLANTILLA_BD), BaseDatos::Acceso::SoloLectura, [&](QSqlDatabase& db) {
            Consulta t(db, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'sqlite_sequence' ORDER BY name"));
            while (t.siguiente()) {
                QList<Columna> columnas;
                Consulta c(db, QStringLiteral("SELECT name, type, pk FROM pragma_table_info(?)"), {t.valor(0)});
                while (c.siguiente())
                    columnas.append({c.valor(0).toString(), c.valor(1).toString(), c.valor(2).toInt() > 0});
                r.append({t.valor(0).toString(), columnas});
            }
        });
        return r;
    }();
    return tablas;
}

QString comoTexto(const QVariant& v)
{
    if (v.isNull())
        return QStringLiteral("nulo");
    if (v.typeId() == QMetaType::LongLong || v.typeId() == QMetaType::ULongLong || v.typeId() == QMetaType::Int)
        return QStringLiteral("e:") + QString::number(v.toLongLong());
    if (v.typeId() == QMetaType::Double)
        return QStringLiteral("r:") + QString::number(v.toDouble(), 'g', 17);
    return QStringLiteral("t:") + v.toString();
}

}  // namespace

QStringList contenidoBase(QSqlDatabase db)
{
    QStringList r;
    for (const auto& [tabla, columnas] : tablasDelPrograma()) {
        QStringList nombres;
        for (const Columna& c : columnas)
            nombres << QLatin1Char('"') + c.nombre + QLatin1Char('"');
        Consulta c(db, QStringLiteral("SELECT %1 FROM \"%2\" ORDER BY rowid").arg(nombres.join(QLatin1Char(',')), tabla));
        while (c.siguiente()) {
            QStringList fila;
            for (int i = 0; i < columnas.size(); ++i)
                fila << comoTexto(c.valor(i));
            r << tabla + QStringLiteral(": ") + fila.join(QStringLiteral(" | "));
        }
    }
    return r;
}

QStringList contenidoBase(const QString& fichero)
{
    QStringList r;
    conFichero(fichero, BaseDatos::Acceso::SoloLectura, [&](QSqlDatabase& db) { r = contenidoBase(db); });
    return r;
}

QStringList contenidoBaseViva()
{
    UsoConexion uso;
    return contenidoBase(BaseDatos::conexionBD());
}

void llenarTodasLasTablas(const QString& fichero)
{
    conFichero(fichero, BaseDatos::Acceso::LecturaEscritura, [&](QSqlDatabase& db) {
        for (const auto& [tabla, columnas] : tablasDelPrograma()) {
            QStringList nombres;
            for (const Columna& c : columnas)
                nombres << QLatin1Char('"') + c.nombre + QLatin1Char('"');
            for (const int fila : {3, 1, 2}) {
                QVariantList valores;
                for (int j = 0; j < columnas.size(); ++j) {
                    const Columna& c = columnas[j];
                    const bool limite = fila == 2 && !c.clave;
                    if (fila == 1 && !c.clave)
                        valores << QVariant();
                    else if (c.tipo == QLatin1String("INTEGER"))
                        valores << (limite ? Q_INT64_C(9007199254740993) + j : qint64(1000 * fila + j));
                    else if (c.tipo == QLatin1String("REAL"))
                        valores << (limite ? 0.1 + 0.2 : fila + 0.25 * j);
                    else
                        valores << (limite ? QStringLiteral("O'Brien \\ \"Ñandú\" € 😀\r\nsegunda línea %1").arg(j)
                                           : QStringLiteral("Texto %1 de la fila %2").arg(j).arg(fila));
                }
                ejecutar(db, QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)")
                                 .arg(tabla, nombres.join(QLatin1Char(',')), QStringList(int(columnas.size()), QStringLiteral("?")).join(QLatin1Char(','))),
                         valores);
            }
        }
        ejecutar(db, QStringLiteral("INSERT INTO Proyectos_A (PryCod) VALUES (5000)"));
        ejecutar(db, QStringLiteral("DELETE FROM Proyectos_A WHERE PryCod = 5000"));
    });
}
