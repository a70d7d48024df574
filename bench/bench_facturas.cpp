// Medida del certificado de retenciones "ajeno" sobre 100.000 facturas guardadas: la suma del par
// (todas las facturas de un arquitecto a un cliente, sin filtro de año) sola y por la pantalla,
// hasta la vista previa. Uso: bench_facturas [carpeta]; con carpeta deja allí los PDF de una
// factura de dos líneas (B1), su retención (B3), el certificado (B4) y la factura en blanco.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/Fichas.h"
#include "core/modFunciones.h"
#include "forms/DatosImpreso.h"
#include "forms/frmDatosImpreso_B4.h"
#include "reports/VistaImpreso.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTreeWidget>
#include <algorithm>
#include <tuple>
#include <cstdio>

namespace {

constexpr int FACTURAS = 100000;

// Un estudio de 200 arquitectos y 5.000 clientes con un proyecto cada uno (más 50 del cliente 1).
// Las 100.000 facturas son todas del arquitecto 2 a los proyectos del cliente 1 (el peor caso:
// el certificado las suma todas) o repartidas entre todos (el caso corriente).
void llenar(bool todasDelPar)
{
    UsoConexion uso;
    Transaccion t;
    for (const char* tabla : {"Config", "OTROS", "Clientes", "Proyectos_A", "datosB1B3B4", "datosB4", "B4", "B1B3B4"})
        ejecutar(QStringLiteral("DELETE FROM ") + QString::fromLatin1(tabla));
    ejecutar(QStringLiteral("INSERT INTO Config (Municipio, IVA, IRPF, AgenciaTributaria) VALUES ('Jaca', 21, 15, 'Huesca')"));
    for (int i = 2; i <= 201; ++i)
        ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, "
                                "Municipio_Cli, Provincia_Cli, cp) VALUES (?, 'ARQUITECTO', 0, ?, ?, ?, ?, ?, 'Jaca', 'Huesca', '22700')"),
                 {i, 1000 + i, i == 2 ? QStringLiteral("Begoña") : QStringLiteral("Arquitecto %1").arg(i),
                  i == 2 ? QStringLiteral("Ibáñez López") : QStringLiteral("Apellido"), QString::asprintf("%08dX", i * 37),
                  QStringLiteral("C/ Mayor, %1").arg(i % 80 + 1)});
    for (int c = 1; c <= 5000; ++c)
        ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, NIF, Dirección_Cli, Municipio_Cli, Provincia_Cli, "
                                "Tfno_Cli, cp, esR) VALUES (?, ?, ?, ?, ?, 'Barbastro', 'Huesca', ?, '22300', -1)"),
                 {c, c == 1 ? QStringLiteral("Construcciones") : QStringLiteral("Cliente %1").arg(c),
                  c == 1 ? QStringLiteral("Altoaragón, S.A.") : QStringLiteral("Apellido"), QString::asprintf("A%08d", c * 41),
                  QStringLiteral("C/ San Nicolás, %1").arg(c % 60 + 1), QString::asprintf("974%06d", c)});
    for (int p = 1; p <= 5050; ++p)
        ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, Trabajo, Codigo_Cliente) VALUES (?, ?, ?)"),
                 {p, QStringLiteral("Proyecto %1").arg(p), p <= 50 ? 1 : p - 50});
    for (int f = 1; f <= FACTURAS; ++f) {
        const int arquitecto = todasDelPar ? 2 : 2 + f % 200;
        const int proyecto = todasDelPar ? 1 + f % 50 : 1 + f % 5050;
        const double importe = 100 + (f * 37) % 90000 / 100.0;
        ejecutar(QStringLiteral("INSERT INTO datosB1B3B4 (PRYCOD, PRYNOM, NUMFAC, ARQCOD, ARQNOM, IMPORTE, IVA, TOTAL, IRPF, EURABON, FECHA) "
                                "VALUES (?, ?, ?, ?, 'Arq', ?, ?, ?, ?, ?, ?)"),
                 {proyecto, QStringLiteral("Proyecto %1").arg(proyecto), QStringLiteral("%1/%2").arg(f).arg(2000 + f % 10), arquitecto,
                  importe, importe * 0.21, importe * 1.21, importe * 0.15, importe * 1.06,
                  QStringLiteral("5 de marzo de %1").arg(2000 + f % 10)});
    }
    t.confirmar();
}

double mediana(QList<double> v)
{
    std::sort(v.begin(), v.end());
    return v.isEmpty() ? 0 : v[v.size() / 2];
}

// La suma del certificado, sola, como la lanzan el histórico y la temporal.
double medirSuma(qint64 perceptor, qint64 pagador, QString* resultado)
{
    UsoConexion uso;
    QList<double> tiempos;
    for (int i = 0; i < 21; ++i) {
        QElapsedTimer t;
        t.start();
        Consulta c(frmDatosImpreso_B4::SQL_CANTIDADES, {perceptor, pagador});
        c.siguiente();
        tiempos << t.nsecsElapsed() / 1e6;
        *resultado = Formato::formatear(c.valor(0).toDouble(), QStringLiteral("#,##0.00")) + QStringLiteral(" / ")
                     + Formato::formatear(c.valor(1).toDouble(), QStringLiteral("#,##0.00"));
    }
    return mediana(tiempos);
}

void plan(qint64 perceptor, qint64 pagador)
{
    UsoConexion uso;
    Consulta c(QStringLiteral("EXPLAIN QUERY PLAN ") + frmDatosImpreso_B4::SQL_CANTIDADES, {perceptor, pagador});
    while (c.siguiente())
        std::printf("    plan: %s\n", qPrintable(c.texto(QStringLiteral("detail"))));
}

DatosImpreso* ultimaPantalla()
{
    const QList<QWidget*> l = Pantallas::cargadas();
    for (auto it = l.rbegin(); it != l.rend(); ++it)
        if (auto* f = qobject_cast<DatosImpreso*>(*it))
            return f;
    return nullptr;
}

void escribir(QWidget* f, const char* campo, const QString& texto) { f->findChild<QLineEdit*>(QString::fromLatin1(campo))->setText(texto); }

void imprimir(QWidget* f)
{
    f->findChild<QAction*>(QStringLiteral("tlb_BotoneraImprimir_1"))->trigger();
    QApplication::processEvents();
}

// El certificado por la pantalla: "Nuevo", perceptor, pagador, ejercicio, vista previa.
double certificadoPorPantalla(qint64 perceptor, qint64 pagador)
{
    QElapsedTimer t;
    t.start();
    Fichas::abrir({.tabla = QStringLiteral("DATOSB4"), .tipoImpreso = QStringLiteral("B4_A"), .operacion = QStringLiteral("ALTA")});
    DatosImpreso* f = ultimaPantalla();
    escribir(f, "txt_CodPerceptor", QString::number(perceptor));
    escribir(f, "txt_Perceptor", QStringLiteral("Begoña Ibáñez López"));
    escribir(f, "txt_CodPagador", QString::number(pagador));
    escribir(f, "txt_Pagador", QStringLiteral("Construcciones Altoaragón, S.A."));
    escribir(f, "txt_Ejercicio", QStringLiteral("2008"));
    escribir(f, "msk_FechaPresentacion", QStringLiteral("30/01/2009"));
    escribir(f, "txt_NumJustificante", QStringLiteral("190-2008-0001"));
    imprimir(f);
    modInformes::Informe->numeroPaginas();  // compuesto
    return t.nsecsElapsed() / 1e6;
}

// Una factura de dos líneas por su pantalla (B1 o B3), con el diálogo de cada línea sustituido
// por lo que él mismo escribe en la lista.
void factura(const QString& tipo, const QString& pdf)
{
    Fichas::abrir({.tabla = QStringLiteral("DATOSB1B3B4"), .tipoImpreso = tipo, .operacion = QStringLiteral("ALTA")});
    DatosImpreso* f = ultimaPantalla();
    escribir(f, "txt_CodProyecto", QStringLiteral("1"));
    escribir(f, "txt_Proyecto", QStringLiteral("Proyecto 1"));
    escribir(f, "txt_CodEmisor", QStringLiteral("2"));
    escribir(f, "txt_Emisor", QStringLiteral("Begoña Ibáñez López"));
    escribir(f, "txt_NumFactura", QStringLiteral("27/2008"));
    escribir(f, "txt_NumRegCliente", QStringLiteral("CL-0001"));
    escribir(f, "txt_Fecha", QStringLiteral("5 de marzo de 2008"));
    auto* lvw = f->findChild<QTreeWidget*>(QStringLiteral("lvw_Concepto"));
    const QList<std::pair<QString, QString>> lineas = {
        {QStringLiteral("Redacción del proyecto básico y de ejecución de vivienda unifamiliar aislada en la partida Las Eras, "
                        "con estudio básico de seguridad y salud"),
         QStringLiteral("2.350,00")},
        {QStringLiteral("Dirección de obra"), QStringLiteral("1.175,50")}};
    for (const auto& [concepto, importe] : lineas) {
        auto* fila = new QTreeWidgetItem(lvw);
        fila->setText(0, concepto);
        fila->setText(1, importe);
    }
    escribir(f, "txt_Importe", QStringLiteral("3.525,50"));
    imprimir(f);
    modInformes::exportarPDF(pdf);
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
    frmMenu::instancia()->resize(1280, 900);

    for (const bool todasDelPar : {true, false}) {
        QElapsedTimer carga;
        carga.start();
        llenar(todasDelPar);
        std::printf("%s: base de %d facturas creada en %lld ms\n", todasDelPar ? "todas del par" : "repartidas", FACTURAS,
                    static_cast<long long>(carga.elapsed()));
        const qint64 perceptor = 2, pagador = todasDelPar ? 1 : 7;
        QString resultado;
        const double suma = medirSuma(perceptor, pagador, &resultado);
        std::printf("  suma del certificado (mediana de 21): %.2f ms  [%s]\n", suma, qPrintable(resultado));
        plan(perceptor, pagador);
        QList<double> pantalla;
        for (int i = 0; i < 5; ++i)
            pantalla << certificadoPorPantalla(perceptor, pagador);
        std::printf("  por la pantalla hasta la vista previa (mediana de 5): %.2f ms\n", mediana(pantalla));
    }

    if (!salida.isEmpty()) {
        // Las pantallas, dentro de la principal a 1366×768.
        frmMenu::instancia()->resize(1366, 768);
        frmMenu::instancia()->show();
        for (const auto& [tabla, tipo, nombre] : {std::tuple{"DATOSB1B3B4", "B1", "pantalla-b1"}, std::tuple{"DATOSB4", "B4_P", "pantalla-b4-propio"}}) {
            Fichas::abrir({.tabla = QString::fromLatin1(tabla), .tipoImpreso = QString::fromLatin1(tipo), .operacion = QStringLiteral("ALTA")});
            DatosImpreso* f = ultimaPantalla();
            if (QString::fromLatin1(tipo) == QLatin1String("B1")) {
                escribir(f, "txt_CodProyecto", QStringLiteral("1"));
                escribir(f, "txt_Proyecto", QStringLiteral("Proyecto 1"));
                escribir(f, "txt_CodEmisor", QStringLiteral("2"));
                escribir(f, "txt_Emisor", QStringLiteral("Begoña Ibáñez López"));
                escribir(f, "txt_NumFactura", QStringLiteral("27/2008"));
                auto* lvw = f->findChild<QTreeWidget*>(QStringLiteral("lvw_Concepto"));
                for (const auto& [c, i] : {std::pair{"Proyecto básico y de ejecución", "2.350,00"}, std::pair{"Dirección de obra", "1.175,50"}}) {
                    auto* fila = new QTreeWidgetItem(lvw);
                    fila->setText(0, QString::fromUtf8(c));
                    fila->setText(1, QString::fromLatin1(i));
                    fila->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
                }
                escribir(f, "txt_Importe", QStringLiteral("3.525,50"));
            } else {
                escribir(f, "txt_CodPerceptor", QStringLiteral("5"));
                escribir(f, "txt_Perceptor", QStringLiteral("Obras Duero SA"));
                escribir(f, "txt_Rendimientos", QStringLiteral("1234,50"));
                escribir(f, "txt_Retencion", QStringLiteral("234,50"));
                escribir(f, "txt_ImporteIntegro", QStringLiteral("1000,00"));
            }
            QApplication::processEvents();
            frmMenu::instancia()->grab().save(salida + QStringLiteral("/") + QString::fromLatin1(nombre) + QStringLiteral(".png"));
            env.respuestas << Mensajes::Respuesta::No;
            Pantallas::descargar(f);
            QApplication::processEvents();
        }
        certificadoPorPantalla(2, 1);
        modInformes::exportarPDF(salida + QStringLiteral("/impreso-b4.pdf"));
        factura(QStringLiteral("B1"), salida + QStringLiteral("/impreso-b1.pdf"));
        factura(QStringLiteral("B3"), salida + QStringLiteral("/impreso-b3.pdf"));
        generarImpresoEnBlanco(9);
        modInformes::exportarPDF(salida + QStringLiteral("/impreso-b1-blanco.pdf"));
        std::printf("PDF en %s\n", qPrintable(salida));
    }
    std::printf("avisos: %lld\n", static_cast<long long>(env.cuadros.size()));
    for (const auto& c : env.cuadros)
        std::printf("  %s\n", qPrintable(c.texto));
    delete frmMenu::existente();
    return 0;
}
