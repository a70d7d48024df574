// Medida de los impresos A3 y A2: el cálculo del coste de referencia contra una cuenta aparte
// (sobre la forma decimal de quince cifras, con enteros), el tiempo de un recálculo y el de la
// vista previa. Uso: bench_impresos_a2a3 [carpeta]; con carpeta deja allí los PDF rellenos y en
// blanco y las capturas de las dos pantallas.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/Fichas.h"
#include "core/modFunciones.h"
#include "forms/frmDatosImpreso_A2.h"
#include "forms/frmDatosImpreso_A3.h"
#include "reports/VistaImpreso.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QRandomGenerator>
#include <cstdio>
#include <string>

namespace {

void llenar()
{
    UsoConexion uso;
    Transaccion t;
    ejecutar(QStringLiteral("DELETE FROM Config"));
    ejecutar(QStringLiteral("INSERT INTO Config (Municipio, Modulo, IVA, IRPF) VALUES ('Jaca', 547.35, 21, 15)"));
    ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, esR) VALUES (1, 'Begoña', 'Muñoz Sáez', -1)"));
    const char* nombres[][2] = {{"Íñigo", "Benítez Ortiz"}, {"Ángela", "Núñez Peña"}, {"Ramón", "Ibáñez López"}};
    for (int i = 0; i < 3; ++i)
        ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli) "
                                "VALUES (?, 'ARQUITECTO', 0, ?, ?, ?)"),
                 {i + 1, 4500 + i, QString::fromUtf8(nombres[i][0]), QString::fromUtf8(nombres[i][1])});
    ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo, Emplazamiento, Municipio, Provincia, EXPNUM, EXPREF, EXPFV, "
                            "Codigo_Cliente) VALUES (1, 'Rehabilitación de edificio de viviendas y locales', 'C/ Mayor, 24', 'Jaca', "
                            "'Huesca', '2026/0318', 'JC-112', '2026-11-02', 1)"));
    for (int i = 0; i < 3; ++i)
        ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, EsPropiaSociedad) VALUES (1, ?, ?, 0)"),
                 {i + 1, QString::number(4500 + i)});
    t.confirmar();
}

QLineEdit* campo(QWidget* f, const QString& nombre) { return f->findChild<QLineEdit*>(nombre); }
QString nombre(const char* base, int i) { return QStringLiteral("%1_%2").arg(QLatin1String(base)).arg(i); }

// Céntimos de un double como los escribe el sistema, contados aparte: sus quince cifras
// significativas ("%.14e") y la mitad hacia fuera, con enteros.
long long centimos(double v)
{
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.14e", v);
    const bool negativo = buf[0] == '-';
    const char* p = buf + (negativo ? 1 : 0);
    std::string cifras(1, p[0]);
    cifras.append(p + 2, 14);
    const int exponente = std::atoi(p + 17);
    // Valor = 0.cifras × 10^(exponente + 1); los céntimos son las cifras hasta 10^-2.
    const int conservadas = exponente + 3;
    long long c = 0;
    for (int i = 0; i < conservadas && i < 15; ++i)
        c = c * 10 + (cifras[size_t(i)] - '0');
    for (int i = 15; i < conservadas; ++i)
        c *= 10;
    if (conservadas >= 0 && conservadas < 15 && cifras[size_t(conservadas)] >= '5')
        ++c;
    return negativo ? -c : c;
}

QString importe(long long c)
{
    const bool negativo = c < 0;
    const QString cifras = QString::number(negativo ? -c : c).rightJustified(3, QLatin1Char('0'));
    QString entera = cifras.left(cifras.size() - 2);
    for (qsizetype i = entera.size() - 3; i > 0; i -= 3)
        entera.insert(i, QLatin1Char('.'));
    return (negativo && c != 0 ? QStringLiteral("-") : QString()) + entera + QLatin1Char(',') + cifras.right(2);
}

// Líneas al azar por la pantalla: superficie, Ct, Cc, Cr y módulo con sus decimales; el coste de
// referencia que da la pantalla contra el contado aparte.
int comprobarCalculo(frmDatosImpreso_A3* f, int lineas)
{
    auto* r = QRandomGenerator::global();
    int diferencias = 0;
    campo(f, "txt_Usos_0")->setText(QStringLiteral("Prueba"));
    for (int k = 0; k < lineas; ++k) {
        const double s = double(r->bounded(1, 5000000)) / 100, ct = double(r->bounded(10, 400)) / 100,
                     cc = double(r->bounded(10, 400)) / 100, cr = double(r->bounded(1000, 40000)) / 10000,
                     m = double(r->bounded(10000, 200000)) / 100;
        const QString textos[] = {Formato::formatear(s, QStringLiteral("#,##0.00")), Formato::formatear(ct, QStringLiteral("#,##0.00")),
                                  Formato::formatear(cc, QStringLiteral("#,##0.00")),
                                  Formato::formatear(cr, QStringLiteral("#,##0.0000")), Formato::formatear(m, QStringLiteral("#,##0.00"))};
        campo(f, "txt_Superficie_0")->setText(textos[0]);
        campo(f, "txt_Ct_0")->setText(textos[1]);
        campo(f, "txt_Cc_0")->setText(textos[2]);
        campo(f, "txt_Cr_0")->setText(textos[3]);
        campo(f, "txt_Modulo")->setText(textos[4]);
        f->calcularCosteReferencia(0);
        const QString esperado = importe(centimos(s * ct * cc * cr * m));
        if (campo(f, "txt_CRef_0")->text() != esperado && ++diferencias <= 5)
            std::printf("  diferencia: %s × %s × %s × %s × %s = %s, se esperaba %s\n", qPrintable(textos[0]), qPrintable(textos[1]),
                        qPrintable(textos[2]), qPrintable(textos[3]), qPrintable(textos[4]), qPrintable(campo(f, "txt_CRef_0")->text()),
                        qPrintable(esperado));
    }
    return diferencias;
}

void rellenarA3(frmDatosImpreso_A3* f)
{
    campo(f, "txt_CodProyecto")->setText(QStringLiteral("1"));
    campo(f, "txt_Proyecto")->setText(QStringLiteral("Rehabilitación de edificio de viviendas y locales"));
    const char* lineas[][5] = {{"Vivienda colectiva en manzana cerrada", "642,35", "1,15", "1,05", ""},
                               {"Locales comerciales en planta baja", "188,4", "0,95", "1", "0,85"},
                               {"Garaje en sótano", "412,8", "0,6", "0,9", ""},
                               {"Trasteros", "64,5", "0,5", "1", ""}};
    for (int i = 0; i < 4; ++i) {
        campo(f, nombre("txt_Usos", i))->setText(QString::fromUtf8(lineas[i][0]));
        const char* campos[] = {"txt_Superficie", "txt_Ct", "txt_Cc", "txt_Cr"};
        for (int k = 0; k < 4; ++k) {
            campo(f, nombre(campos[k], i))->setText(QString::fromLatin1(lineas[i][k + 1]));
            f->salirDeCampo(campo(f, nombre(campos[k], i)));
        }
    }
    campo(f, "txt_PEM")->setText(QStringLiteral("512000"));
    f->salirDeCampo(campo(f, "txt_PEM"));
}

void rellenarA2(QWidget* f)
{
    campo(f, "txt_CodProyecto")->setText(QStringLiteral("1"));
    campo(f, "txt_Proyecto")->setText(QStringLiteral("Rehabilitación de edificio de viviendas y locales"));
    for (const auto& [linea, ejemplares] : {std::pair{0, "1"}, {1, "1"}, {2, "1"}, {4, "2"}, {9, "3"}, {13, "1"}})
        campo(f, nombre("txt_NumEjemplares", linea))->setText(QString::fromLatin1(ejemplares));
    for (int linea : {0, 1, 2, 5, 9})
        f->findChild<QCheckBox*>(nombre("chk_VB", linea))->setChecked(true);
    campo(f, "txt_NombreDocumento_0")->setText(QStringLiteral("Anexo de accesibilidad"));
    campo(f, nombre("txt_NumEjemplares", 3))->setText(QStringLiteral("2"));
    campo(f, "txt_NombreDocumento_1")->setText(QStringLiteral("Separata de instalaciones"));
    campo(f, "txt_Observaciones")->setText(QStringLiteral("El proyecto de ejecución se entrega también en soporte digital."));
}

// La pantalla dentro de la principal, como la ve el usuario a 1366×768.
void capturar(QWidget* f, const QString& ruta)
{
    QWidget* ventana = f->parentWidget() && qobject_cast<QMdiSubWindow*>(f->parentWidget()) ? f->parentWidget() : f;
    QApplication::processEvents();
    frmMenu::existente()->grab().save(ruta);
    std::printf("captura %s (pantalla %dx%d)\n", qPrintable(ruta), ventana->width(), ventana->height());
}

qint64 vistaPrevia(QWidget* f)
{
    QElapsedTimer t;
    t.start();
    f->findChild<QAction*>(QStringLiteral("tlb_BotoneraImprimir_1"))->trigger();
    QApplication::processEvents();
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
    llenar();
    frmMenu::instancia()->resize(1366, 738);
    frmMenu::instancia()->show();

    // 1. El cálculo al céntimo.
    Fichas::abrir({.tabla = QStringLiteral("DATOSA3"), .operacion = QStringLiteral("ALTA")});
    auto* a3 = Pantallas::cargada<frmDatosImpreso_A3>();
    const int lineas = 200000;
    QElapsedTimer t;
    t.start();
    const int diferencias = comprobarCalculo(a3, lineas);
    std::printf("cálculo: %d líneas al azar, %d diferencias con la cuenta aparte (%.2f µs por línea)\n", lineas, diferencias,
                double(t.nsecsElapsed()) / 1000.0 / lineas);
    t.restart();
    for (int i = 0; i < 10000; ++i)
        a3->calcularValores();
    std::printf("recálculo completo (seis líneas y totales): %.2f µs\n", double(t.nsecsElapsed()) / 1000.0 / 10000);
    delete a3->parentWidget();  // sin la pregunta al salir
    QApplication::processEvents();

    // 2. Vista previa de un A3 y de un A2 rellenos, cinco vueltas cada uno.
    for (int vuelta = 0; vuelta < 5; ++vuelta) {
        frmMenu::instancia()->mnu_A3_Click();
        Fichas::abrir({.tabla = QStringLiteral("DATOSA3"), .operacion = QStringLiteral("ALTA")});
        a3 = Pantallas::cargada<frmDatosImpreso_A3>();
        rellenarA3(a3);
        if (vuelta == 0 && !salida.isEmpty())
            capturar(a3, salida + QStringLiteral("/frmDatosImpreso_A3.png"));
        const qint64 msA3 = vistaPrevia(a3);
        if (vuelta == 0 && !salida.isEmpty())
            modInformes::exportarPDF(salida + QStringLiteral("/impreso-a3.pdf"));

        frmMenu::instancia()->mnu_A2_Click();
        Fichas::abrir({.tabla = QStringLiteral("DATOSA2"), .operacion = QStringLiteral("ALTA")});
        auto* a2 = Pantallas::cargada<frmDatosImpreso_A2>();
        rellenarA2(a2);
        if (vuelta == 0 && !salida.isEmpty())
            capturar(a2, salida + QStringLiteral("/frmDatosImpreso_A2.png"));
        const qint64 msA2 = vistaPrevia(a2);
        if (vuelta == 0 && !salida.isEmpty())
            modInformes::exportarPDF(salida + QStringLiteral("/impreso-a2.pdf"));
        std::printf("vuelta %d: vista previa A3 %lld ms, A2 %lld ms\n", vuelta + 1, static_cast<long long>(msA3),
                    static_cast<long long>(msA2));
    }
    if (!salida.isEmpty()) {
        generarImpresoEnBlanco(4);
        modInformes::exportarPDF(salida + QStringLiteral("/impreso-a3-blanco.pdf"));
        generarImpresoEnBlanco(3);
        modInformes::exportarPDF(salida + QStringLiteral("/impreso-a2-blanco.pdf"));
        std::printf("PDF en %s\n", qPrintable(salida));
    }
    std::printf("avisos: %lld\n", static_cast<long long>(env.cuadros.size()));
    for (const auto& c : env.cuadros)
        std::printf("  %s\n", qPrintable(c.texto));
    delete frmMenu::existente();
    return 0;
}
