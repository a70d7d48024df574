// Medida de la copia de seguridad y la restauración con el servidor: un ".mee" con N proyectos (dos
// autores cada uno) y N clientes se restaura en el servidor y se vuelve a copiar de él, frente a
// pg_dump de los mismos datos como suelo de la copia; y se comprueba que la ida y vuelta da las
// mismas filas. Uso: bench_copiaservidor [N] [vueltas]   (100.000 y 3 si no se dice)
// Necesita el servidor de pruebas anunciado en PLANORUM_PG_SERVIDOR, _PUERTO, _USUARIO y _BASE
// (scripts/servidor-pruebas.sh arrancar CARPETA lo arranca).
#include "core/BaseDatos.h"
#include "core/CopiaServidor.h"
#include "tests/comun/ContenidoBase.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ServidorPrueba.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

void llenar(const QString& fichero, int n)
{
    QSqlDatabase db = BaseDatos::abrirConexion(QStringLiteral("generador"), fichero);
    const QString serie = QStringLiteral("WITH RECURSIVE s(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM s WHERE i < ?) ");
    db.transaction();
    ejecutar(db, serie + QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Municipio_Cli) "
                                        "SELECT i, 'Nombre ' || i, 'Peña Núñez ' || i, i || 'Z', 'León' FROM s"), {n});
    ejecutar(db, serie + QStringLiteral("INSERT INTO Proyectos_A (Trabajo, Municipio, Codigo_Cliente, PRYF1, PRYF2, EXPFV) "
                                        "SELECT 'Vivienda unifamiliar ' || i, 'Ávila', i, 1, 0, '2026-11-25' FROM s"), {n});
    ejecutar(db, serie + QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, PorPar_Arq, EsPropiaSociedad) "
                                        "SELECT (i + 1) / 2, 10 + i % 2, 'C' || (i % 2), 50.5, 0 FROM s"), {2 * n});
    db.commit();
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("generador"));
}

double milisegundos(const std::function<void()>& f)
{
    QElapsedTimer t;
    t.start();
    f();
    return double(t.nsecsElapsed()) / 1e6;
}

double mediana(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

}  // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int n = argc > 1 ? QByteArray(argv[1]).toInt() : 100000;
    const int vueltas = argc > 2 ? QByteArray(argv[2]).toInt() : 3;
    ServidorPrueba s;
    if (!s.disponible()) {
        std::printf("Sin servidor: %s\n", qPrintable(s.motivo()));
        return 0;
    }
    EntornoPrueba e;
    QTemporaryDir dir;
    const QString origen = dir.filePath(QStringLiteral("origen.mee")), copia = dir.filePath(QStringLiteral("copia.mee"));
    QFile::copy(QStringLiteral(PLANTILLA_BD), origen);
    QFile::setPermissions(origen, QFile::ReadOwner | QFile::WriteOwner);
    llenar(origen, n);
    s.elegirEn(e);
    const BaseDatos::DatosServidor& d = s.datos();
    std::vector<double> restaurar, copiar, suelo;
    bool iguales = true;
    for (int v = 0; v < vueltas; ++v) {
        restaurar.push_back(milisegundos([&] { CopiaServidor::restaurar(origen); }));
        QFile::remove(copia);
        copiar.push_back(milisegundos([&] { CopiaServidor::copiar(copia); }));
        suelo.push_back(milisegundos([&] {
            QProcess::execute(QStringLiteral("pg_dump"), {QStringLiteral("-a"), QStringLiteral("-h"), d.servidor, QStringLiteral("-p"), d.puerto,
                                                         QStringLiteral("-U"), d.usuario, QStringLiteral("-d"), d.base, QStringLiteral("-f"),
                                                         QStringLiteral("/dev/null")});
        }));
        if (v == 0)
            iguales = contenidoBase(origen) == contenidoBase(copia);
    }
    std::printf("%d proyectos, %d autores, %d clientes; .mee de %.1f MB; mediana de %d vueltas\n", n, 2 * n, n,
                double(QFile(origen).size()) / (1024.0 * 1024.0), vueltas);
    std::printf("restaurar en el servidor %9.1f ms\n", mediana(restaurar));
    std::printf("copiar del servidor      %9.1f ms   (pg_dump -a %.1f ms, razón %.2f)\n", mediana(copiar), mediana(suelo),
                mediana(copiar) / mediana(suelo));
    std::printf("ida y vuelta con las mismas filas: %s\n", iguales ? "sí" : "NO");
    return iguales ? 0 : 1;
}
