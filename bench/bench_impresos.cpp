// Medida del impreso A1: desde la entrada del menú hasta el PDF de un A1 relleno, sobre una base
// de 10.000 proyectos. Uso: bench_impresos [carpeta]; con carpeta deja allí impreso-a1.pdf (dos
// hojas) e impreso-b2-blanco.pdf.
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "app/Aplicacion.h"
#include "core/Fichas.h"
#include "forms/DatosImpreso.h"
#include "reports/frmVisorCrystal.h"
#include "reports/VistaImpreso.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <cstdio>

namespace {

const QStringList NOMBRES = {"José", "María", "Íñigo", "Begoña", "Álvaro", "Nuño", "Lucía", "Ramón", "Ángela", "Jesús"};
const QStringList APELLIDOS = {"Muñoz Sáez", "Benítez Ortiz", "Álvarez Gil", "Núñez Peña", "Martínez Ruiz", "Ibáñez López"};
const QStringList MUNICIPIOS = {"Jaca", "Huesca", "Monzón", "Barbastro", "Sabiñánigo", "Fraga"};

// 10.000 proyectos, cada uno con su cliente (uno de cada tres, sociedad con representante) y
// cuatro arquitectos de una plantilla de 200; la sociedad del estudio en la mitad.
void llenar(int proyectos)
{
    UsoConexion uso;
    Transaccion t;
    ejecutar(QStringLiteral("DELETE FROM Config"));
    ejecutar(QStringLiteral("INSERT INTO Config (Municipio, SocNom, IVA, IRPF) VALUES ('Jaca', 'Estudio Pirineo, S.L.P.', 21, 15)"));
    ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Colegio, Nombre_Cli, Dirección_Cli, "
                            "Municipio_Cli) VALUES (1, 'ARQUITECTO', 1, 4521, 'COA Aragón', 'Estudio Pirineo, S.L.P.', "
                            "'Avda. Regimiento Galicia, 12', 'Jaca')"));
    for (int i = 2; i <= 201; ++i)
        ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Colegio, Nombre_Cli, Ape_Cli, "
                                "Dirección_Cli, Municipio_Cli) VALUES (?, 'ARQUITECTO', 0, ?, 'COA Aragón', ?, ?, ?, ?)"),
                 {i, 1000 + i, NOMBRES[i % NOMBRES.size()], APELLIDOS[i % APELLIDOS.size()],
                  QStringLiteral("C/ Mayor, %1, %2º").arg(i % 80 + 1).arg(i % 4 + 1), MUNICIPIOS[i % MUNICIPIOS.size()]});
    const QStringList trabajos = {"Vivienda unifamiliar aislada", "Rehabilitación de edificio de viviendas", "Nave agrícola",
                                  "Ampliación de refugio de montaña", "Reforma de local comercial", "Centro de día para mayores"};
    for (int i = 1; i <= proyectos; ++i) {
        const bool empresa = i % 3 == 0;
        ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, "
                                "Provincia_Cli, Tfno_Cli, cp, Correo_Cli, esR) VALUES (?,?,?,?,?,?,'Huesca',?,?,?,?)"),
                 {i, empresa ? QStringLiteral("Construcciones") : NOMBRES[i % NOMBRES.size()],
                  empresa ? QStringLiteral("Altoaragón %1, S.A.").arg(i) : APELLIDOS[i % APELLIDOS.size()],
                  QString::asprintf(empresa ? "A%08d" : "%08dX", i * 37), QStringLiteral("C/ San Nicolás, %1").arg(i % 60 + 1),
                  MUNICIPIOS[i % MUNICIPIOS.size()], QString::asprintf("974%06d", i), QStringLiteral("22700"),
                  QStringLiteral("cliente%1@correo.es").arg(i), empresa ? QVariant(i) : QVariant(-1)});
        if (empresa)
            ejecutar(QStringLiteral("INSERT INTO Representantes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, "
                                    "Provincia_Cli, Tfno_Cli, cp, Correo_Cli, Representacion) VALUES (?,?,?,?,?,?,'Huesca',?,'22700',?,"
                                    "'Administrador único')"),
                     {i, NOMBRES[(i + 3) % NOMBRES.size()], APELLIDOS[(i + 1) % APELLIDOS.size()], QString::asprintf("%08dK", i * 41),
                      QStringLiteral("Pza. Biscós, %1").arg(i % 20 + 1), MUNICIPIOS[(i + 2) % MUNICIPIOS.size()],
                      QString::asprintf("6%08d", i), QStringLiteral("rep%1@correo.es").arg(i)});
        ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo, Emplazamiento, Municipio, Provincia, PRYF1, PRYF2, PRYF3, "
                                "PRYF4, Codigo_Cliente, Codigo_Representante, ARQREG, ARQSOC) VALUES (?,?,?,?,'Huesca',?,?,?,?,?,?,?,?)"),
                 {i, trabajos[i % trabajos.size()] + QStringLiteral(" nº %1").arg(i), QStringLiteral("Partida Las Eras, %1").arg(i),
                  MUNICIPIOS[i % MUNICIPIOS.size()], i % 2, 1 - i % 2, 1, i % 4 == 0, i, empresa ? QVariant(i) : QVariant(),
                  i % 2 ? QVariant(1) : QVariant(), i % 2 ? QVariant(QStringLiteral("Estudio Pirineo, S.L.P.")) : QVariant()});
        for (int a = 0; a < 4; ++a) {
            const int arq = 2 + (i * 7 + a * 13) % 200;
            ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, PorPar_Arq, EsAutorProyecto, "
                                    "PerteneceSociedad, EsPropiaSociedad) VALUES (?,?,?,?,1,?,0)"),
                     {i, arq, QString::number(1000 + arq), a == 0 ? 40.0 : 20.0, a % 2});
        }
    }
    t.confirmar();
}

DatosImpreso* ultimaPantalla()
{
    const QList<QWidget*> l = Pantallas::cargadas();
    for (auto it = l.rbegin(); it != l.rend(); ++it)
        if (auto* f = qobject_cast<DatosImpreso*>(*it))
            return f;
    return nullptr;
}

// Lo que hace el usuario: menú A1, "Nuevo", elegir el proyecto, vista previa; luego el PDF.
qint64 impresoA1(qint64 proyecto, const QString& pdf, qint64* hastaVista)
{
    QElapsedTimer t;
    t.start();
    frmMenu::instancia()->mnu_A1_Click();
    Fichas::abrir({.tabla = QStringLiteral("DATOSA1B2"), .tipoImpreso = QStringLiteral("A1"), .operacion = QStringLiteral("ALTA")});
    DatosImpreso* f = ultimaPantalla();
    QString nombre;
    {
        UsoConexion uso;
        nombre = escalar(QStringLiteral("SELECT Trabajo FROM Proyectos_A WHERE PryCod = ?"), {proyecto}).toString();
    }
    f->findChild<QLineEdit*>(QStringLiteral("txt_CodProyecto"))->setText(QString::number(proyecto));
    f->findChild<QLineEdit*>(QStringLiteral("txt_Proyecto"))->setText(nombre);
    f->findChild<QLineEdit*>(QStringLiteral("txt_Condiciones"))->setText(QStringLiteral("Honorarios según presupuesto aceptado"));
    f->findChild<QAction*>(QStringLiteral("tlb_BotoneraImprimir_1"))->trigger();
    QApplication::processEvents();
    *hastaVista = t.elapsed();
    modInformes::exportarPDF(pdf);
    return t.elapsed();
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    modInformes::inicializarRecursos();
    Aplicacion::registrarPantallas();
    const QString salida = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    EntornoPrueba env;
    env.conectar();
    QElapsedTimer carga;
    carga.start();
    llenar(10000);
    std::printf("base de 10.000 proyectos creada en %lld ms\n", static_cast<long long>(carga.elapsed()));
    frmMenu::instancia()->resize(1280, 900);

    const QString pdf = salida.isEmpty() ? env.directorio() + QStringLiteral("/impreso-a1.pdf") : salida + QStringLiteral("/impreso-a1.pdf");
    for (int vuelta = 0; vuelta < 5; ++vuelta) {
        qint64 vista = 0;
        const qint64 total = impresoA1(3 + vuelta * 2000, pdf, &vista);
        std::printf("vuelta %d: menú → vista previa %lld ms, → PDF de %d hojas %lld ms\n", vuelta + 1, static_cast<long long>(vista),
                    modInformes::Informe ? modInformes::Informe->numeroPaginas() : 0, static_cast<long long>(total));
    }
    if (!salida.isEmpty()) {
        qint64 vista = 0;
        impresoA1(3, pdf, &vista);  // sociedad con representante y sociedad profesional, dos hojas
        generarImpresoEnBlanco(2);
        modInformes::exportarPDF(salida + QStringLiteral("/impreso-b2-blanco.pdf"));
        std::printf("PDF en %s\n", qPrintable(salida));
    }
    std::printf("avisos: %lld\n", static_cast<long long>(env.cuadros.size()));
    for (const auto& c : env.cuadros)
        std::printf("  %s\n", qPrintable(c.texto));
    delete frmMenu::existente();
    return 0;
}
