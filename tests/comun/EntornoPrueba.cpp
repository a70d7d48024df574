#include "tests/comun/EntornoPrueba.h"

#include "core/BaseDatos.h"
#include "core/Rutas.h"
#include "core/Sistema.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

EntornoPrueba::EntornoPrueba(bool conIni, bool conBaseDatos)
{
    const QString d = m_dir.path();
    for (const char* c : {"Logs", "datos", "Contratos", "Excel", "Documentos", "ayuda"})
        QDir(d).mkpath(QString::fromLatin1(c));
    if (conBaseDatos)
        QFile::copy(QStringLiteral(PLANTILLA_BD), ficheroBD());
    QFile::setPermissions(ficheroBD(), QFile::ReadOwner | QFile::WriteOwner);
    Rutas::establecerDirectorioPrograma(d);
    if (conIni)
        escribirIni(QStringLiteral("[BD]\r\nruta=%1\r\n[Opciones]\r\ninicio=1\r\ncopia=0\r\n").arg(carpetaDatos()));
    rutaBD.clear();
    cadenaConexion.clear();
    transaccionEnCurso = false;

    Mensajes::instalarContestador([this](const Mensajes::Cuadro& c) {
        cuadros << c;
        return respuestas.isEmpty() ? c.porDefecto : respuestas.takeFirst();
    });
    Sistema::instalarElectorCarpeta([this](const QString& titulo) {
        titulosCarpeta << titulo;
        return carpetas.isEmpty() ? QString() : carpetas.takeFirst();
    });
    const auto elector = [this](const QString& titulo, const QString& filtro) {
        titulosFichero << titulo;
        filtrosFichero << filtro;
        return ficheros.isEmpty() ? QString() : ficheros.takeFirst();
    };
    Sistema::instalarElectorFichero(elector);
    Sistema::instalarElectorGuardar(elector);
    Sistema::instalarAbridor([this](const QString& ruta) {
        abiertos << ruta;
        return resultadoAbrir;
    });
}

EntornoPrueba::~EntornoPrueba()
{
    BaseDatos::cerrar();
    transaccionEnCurso = false;
    Mensajes::instalarContestador({});
    Sistema::instalarElectorCarpeta({});
    Sistema::instalarElectorFichero({});
    Sistema::instalarElectorGuardar({});
    Sistema::instalarAbridor({});
}

QString EntornoPrueba::directorio() const { return QDir::toNativeSeparators(m_dir.path()); }

QString EntornoPrueba::carpetaDatos() const { return directorio() + QDir::separator() + QStringLiteral("datos") + QDir::separator(); }

QString EntornoPrueba::ficheroBD() const { return carpetaDatos() + QStringLiteral("Usuarios.qst"); }

QString EntornoPrueba::ficheroIni() const { return directorio() + QDir::separator() + QStringLiteral("inicio.ini"); }

void EntornoPrueba::escribirIni(const QString& texto)
{
    QFile f(ficheroIni());
    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write(texto.toUtf8());
}

QString EntornoPrueba::leerLog() const
{
    QFile f(Rutas::ficheroLog());
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(f.readAll());
}

int EntornoPrueba::entradasLog() const { return leerLog().count(QStringLiteral("Se ha producido el siguiente error: ")); }

void EntornoPrueba::conectar()
{
    rutaBD = carpetaDatos();
    BaseDatos::construirCadenaConexion();
}

QStringList EntornoPrueba::textos() const
{
    QStringList l;
    for (const auto& c : cuadros)
        l << c.texto;
    return l;
}

void procesarEventos()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

bool otroPuestoPuedeGuardar(const QString& ficheroBD)
{
    const QString nombre = QStringLiteral("otroPuesto");
    bool bien = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre);
        db.setDatabaseName(ficheroBD);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
        if (db.open()) {
            QSqlQuery q(db);
            bien = q.exec(QStringLiteral("BEGIN IMMEDIATE"))
                   && q.exec(QStringLiteral("INSERT INTO PROVINCIAS (descripción) VALUES ('Otro puesto')"))
                   && q.exec(QStringLiteral("DELETE FROM PROVINCIAS WHERE descripción = 'Otro puesto'"))
                   && q.exec(QStringLiteral("COMMIT"));
            if (!bien)
                q.exec(QStringLiteral("ROLLBACK"));
            q = QSqlQuery();
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(nombre);
    return bien;
}
