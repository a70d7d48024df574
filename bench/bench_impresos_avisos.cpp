// Medida del comunicado de dirección y coordinador y del A4 con muchas personas: desde el botón de
// vista previa hasta el visor (guardado, enlaces, tablas temporales y composición) y hasta el PDF.
// Uso: bench_impresos_avisos [carpeta]; con carpeta deja allí los PDF de la última vuelta.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/Fichas.h"
#include "core/modFunciones.h"
#include "forms/DatosImpreso.h"
#include "forms/frmDatosImpreso_ComunicadoDireccionCoordinador.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <cstdio>

namespace {

constexpr int PERSONAS = 600;  // la mitad arquitectos (1..300), la otra técnicos (301..600)

void llenar()
{
    UsoConexion uso;
    Transaccion t;
    ejecutar(QStringLiteral("INSERT INTO Config (Municipio, IVA, IRPF) VALUES ('Jaca', 21, 15)"));
    ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, esR) VALUES (1, 'Begoña', 'Núñez Peña', "
                            "'12345678Z', -1)"));
    for (int i = 1; i <= PERSONAS; ++i)
        ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, "
                                "Municipio_Cli, Provincia_Cli, cp, Tfno_Cli, Correo_Cli) VALUES (?,?,0,?,?,?,?,?,'Jaca','Huesca','22700',?,?)"),
                 {i, i <= PERSONAS / 2 ? QStringLiteral("ARQUITECTO") : QStringLiteral("ARQUITECTO TECNICO"), 1000 + i,
                  QStringLiteral("Nombre%1").arg(i), QStringLiteral("Muñoz Sáez %1").arg(i), QString::asprintf("%08dX", i),
                  QStringLiteral("C/ Mayor, %1").arg(i), QString::asprintf("974%06d", i), QStringLiteral("persona%1@correo.es").arg(i)});
    ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo, Emplazamiento, Municipio, Provincia, Codigo_Cliente) "
                            "VALUES (1, 'Centro de día para mayores', 'Partida Las Eras, 3', 'Jaca', 'Huesca', 1)"));
    for (int a = 1; a <= 30; ++a) {
        ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, PorPar_Arq, EsPropiaSociedad) "
                                "VALUES (1, ?, ?, 3.33, 0)"),
                 {a, 1000 + a});
        ejecutar(QStringLiteral("INSERT INTO Autores_Proyecto (PryCod, Codigo_Arq) VALUES (1, ?)"), {a});
    }
    t.confirmar();
}

DatosImpreso* abrir(const QString& tabla, const QString& tipo)
{
    Fichas::abrir({.tabla = tabla, .tipoImpreso = tipo, .operacion = QStringLiteral("ALTA")});
    DatosImpreso* f = Pantallas::cargada<DatosImpreso>();
    f->findChild<QLineEdit*>(QStringLiteral("txt_CodProyecto"))->setText(QStringLiteral("1"));
    f->findChild<QLineEdit*>(QStringLiteral("txt_Proyecto"))->setText(QStringLiteral("Centro de día para mayores"));
    return f;
}

// Pulsa la vista previa y mide hasta el visor y hasta el PDF.
void medir(const char* que, DatosImpreso* f, const QString& pdf)
{
    QElapsedTimer t;
    t.start();
    f->findChild<QAction*>(QStringLiteral("tlb_BotoneraImprimir_1"))->trigger();
    QApplication::processEvents();
    const qint64 vista = t.elapsed();
    modInformes::exportarPDF(pdf);
    std::printf("%-34s vista previa %5lld ms, PDF de %3d hojas %5lld ms\n", que, static_cast<long long>(vista),
                modInformes::Informe ? modInformes::Informe->numeroPaginas() : 0, static_cast<long long>(t.elapsed()));
    Pantallas::descargar(Pantallas::cargada<frmVisorCrystal>());
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
    llenar();
    frmMenu::instancia()->resize(1366, 768);
    const QString carpeta = salida.isEmpty() ? env.directorio() : salida;

    for (int vuelta = 0; vuelta < 3; ++vuelta) {
        medir("A4, 30 arquitectos y 30 autores", abrir(QStringLiteral("DATOSA4A5"), QStringLiteral("A4")), carpeta + "/bench-a4.pdf");
        for (int n : {10, 100, PERSONAS / 4}) {
            auto* f = static_cast<frmDatosImpreso_ComunicadoDireccionCoordinador*>(
                abrir(QStringLiteral("DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR"), QString()));
            for (int i = 1; i <= n; ++i) {
                f->recibirPersona(1, i, QStringLiteral("Nombre%1").arg(i), QString());
                f->recibirPersona(2, PERSONAS / 2 + i, QStringLiteral("Técnico%1").arg(i), QString());
                f->recibirPersona(3, i % 2 ? i + 150 : PERSONAS / 2 + 150 + i, QStringLiteral("Coordinador%1").arg(i),
                                  i % 2 ? QStringLiteral("AR") : QStringLiteral("AT"));
            }
            medir(qPrintable(QStringLiteral("comunicado, %1 personas por lista").arg(n)), f, carpeta + QStringLiteral("/bench-cdc-%1.pdf").arg(n));
        }
    }
    std::printf("avisos: %lld\n", static_cast<long long>(env.cuadros.size()));
    for (const auto& c : env.cuadros)
        std::printf("  %s\n", qPrintable(c.texto));
    delete frmMenu::existente();
    return 0;
}
