// Medida de los certificados: el certificado libre con textos de 2.000, 20.000 y 65.000
// caracteres (vista previa y PDF) y el certificado fin de obra con veinte arquitectos técnicos.
// Uso: bench_certificados [carpeta]; con carpeta deja allí los PDF de los dos certificados, de los
// cuatro diseños del fin de obra y de los impresos en blanco.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/Fichas.h"
#include "core/modFunciones.h"
#include "forms/DatosImpreso.h"
#include "forms/frmSeleccionarTipoCertificado.h"
#include "reports/VistaImpreso.h"
#include "reports/modInformes.h"
#include "tests/comun/EntornoPrueba.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <cstdio>

namespace {

const QString PARRAFO = QStringLiteral(
    "Que las obras de rehabilitación del edificio situado en la calle Mayor, número 12, de Jaca, se han ejecutado conforme al "
    "proyecto visado y a las instrucciones dadas por la dirección facultativa durante su desarrollo, sin que se hayan "
    "apreciado defectos que afecten a la seguridad estructural, a la estanqueidad de las cubiertas ni a las condiciones de "
    "habitabilidad de las viviendas. Las instalaciones comunes de fontanería, saneamiento y electricidad han superado las "
    "pruebas de servicio, cuyos resultados constan en el libro de órdenes de la obra.");

void llenar()
{
    UsoConexion uso;
    Transaccion t;
    ejecutar(QStringLiteral("DELETE FROM Config"));
    ejecutar(QStringLiteral("INSERT INTO Config (Municipio, SocNom, IVA, IRPF) VALUES ('Jaca', 'Estudio Pirineo, S.L.P.', 21, 15)"));
    ejecutar(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, esR) VALUES (1, 'Comunidad de Propietarios', "
                            "'Calle Mayor 12', -1)"));
    const QString sql = QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Colegio, Nombre_Cli, Ape_Cli, "
                                       "NIF, Dirección_Cli, cp, Municipio_Cli, Provincia_Cli) VALUES (?,?,0,?,?,?,?,?,?,?,?,?)");
    ejecutar(sql, {1, QStringLiteral("ARQUITECTO"), 4521, QStringLiteral("COA Aragón"), QStringLiteral("Begoña"),
                   QStringLiteral("Ibáñez López"), QStringLiteral("18044521K"), QStringLiteral("Avda. Regimiento Galicia, 12, 1º"),
                   QStringLiteral("22700"), QStringLiteral("Jaca"), QStringLiteral("Huesca")});
    ejecutar(sql, {2, QStringLiteral("ARQUITECTO"), 4733, QStringLiteral("COA Aragón"), QStringLiteral("Íñigo"),
                   QStringLiteral("Muñoz Sáez"), QVariant(), QVariant(), QVariant(), QStringLiteral("Huesca"), QVariant()});
    for (int i = 0; i < 20; ++i)
        ejecutar(sql, {10 + i, QStringLiteral("ARQUITECTO TECNICO"), 800 + i, QStringLiteral("COAAT Huesca"),
                       QStringLiteral("Arquitecto técnico %1").arg(i + 1), QStringLiteral("Pérez de Albéniz"), QVariant(), QVariant(),
                       QVariant(), QVariant(), QVariant()});
    ejecutar(sql, {40, QStringLiteral("CONSTRUCTOR"), QVariant(), QVariant(), QStringLiteral("Construcciones Altoaragón, S.A."),
                   QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant()});
    ejecutar(QStringLiteral("INSERT INTO Proyectos_A (PryCod, EXPNUM, Trabajo, Emplazamiento, Municipio, Provincia, Codigo_Cliente) "
                            "VALUES (1, '2008/112', 'Rehabilitación de edificio de viviendas', 'C/ Mayor, 12', 'Jaca', 'Huesca', 1), "
                            "(2, '2008/113', 'Nave agrícola', 'Partida Las Eras, 4', 'Sabiñánigo', 'Huesca', 1)"));
    for (int p : {1, 2}) {
        ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, EsPropiaSociedad) VALUES (?, 1, '4521', 0)"),
                 {p});
        ejecutar(QStringLiteral("INSERT INTO Constructores_Proyecto (PryCod, Codigo_Cons) VALUES (?, 40)"), {p});
        ejecutar(QStringLiteral("INSERT INTO Autores_Proyecto (PryCod, Codigo_Arq) VALUES (?, 1)"), {p});
    }
    ejecutar(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, EsPropiaSociedad) VALUES (1, 2, '4733', 0)"));
    ejecutar(QStringLiteral("INSERT INTO Aparejadores_Proyecto (PryCod, Codigo_Apa) VALUES (1, 10), (1, 11)"));
    for (int i = 0; i < 20; ++i)
        ejecutar(QStringLiteral("INSERT INTO Aparejadores_Proyecto (PryCod, Codigo_Apa) VALUES (2, ?)"), {10 + i});
    t.confirmar();
}

DatosImpreso* nuevo(const QString& tabla)
{
    Fichas::abrir({.tabla = tabla, .operacion = QStringLiteral("ALTA")});
    return Pantallas::cargada<DatosImpreso>();
}

void escribir(QWidget* f, const char* control, const QString& texto)
{
    f->findChild<QLineEdit*>(QString::fromLatin1(control))->setText(texto);
}

void imprimir(QWidget* f)
{
    f->findChild<QAction*>(QStringLiteral("tlb_BotoneraImprimir_1"))->trigger();
    QApplication::processEvents();
}

// Con ruta, la imagen de una pantalla tal como se ve.
void captura(QWidget* w, const QString& ruta)
{
    if (!ruta.isEmpty())
        w->grab().save(ruta);
}

// Contesta el diálogo de los diseños con la opción dada en cuanto se abra.
void contestarDiseno(int opcion, const QString& imagen = {})
{
    auto* reloj = new QTimer;
    QObject::connect(reloj, &QTimer::timeout, reloj, [reloj, opcion, imagen] {
        auto* d = Pantallas::cargada<frmSeleccionarTipoCertificado>();
        if (!d || !d->isVisible())
            return;
        reloj->stop();
        reloj->deleteLater();
        captura(d, imagen);
        d->findChild<QRadioButton*>(QStringLiteral("opt_Impreso_%1").arg(opcion))->setChecked(true);
        d->findChild<QPushButton*>(QStringLiteral("cmd_Imprimir"))->click();
    });
    reloj->start(5);
}

// Certificado libre con un texto del largo pedido; devuelve los ms hasta la vista previa.
qint64 certificado(int largo, const QString& imagen = {})
{
    QString texto;
    while (texto.size() < largo)
        texto += PARRAFO + QStringLiteral("\n\n");
    texto = texto.left(largo);
    QElapsedTimer t;
    t.start();
    DatosImpreso* f = nuevo(QStringLiteral("DATOSCERTIFICADO"));
    escribir(f, "txt_CodArq", QStringLiteral("1"));
    escribir(f, "txt_NomArq", QStringLiteral("Begoña Ibáñez López"));
    f->findChild<QPlainTextEdit*>(QStringLiteral("txt_Texto"))->setPlainText(texto);
    captura(f, imagen);
    imprimir(f);
    modInformes::Informe->numeroPaginas();  // compone todas las páginas
    return t.elapsed();
}

qint64 finObra(qint64 proyecto, int opcion, const QString& imagen = {}, const QString& imagenDialogo = {})
{
    QElapsedTimer t;
    t.start();
    DatosImpreso* f = nuevo(QStringLiteral("DATOSFINOBRA"));
    escribir(f, "txt_CodProyecto", QString::number(proyecto));
    escribir(f, "txt_Proyecto", QStringLiteral("Rehabilitación de edificio de viviendas"));
    escribir(f, "txt_Apa_Demarcacion", QStringLiteral("Huesca"));
    escribir(f, "txt_Apa_LugarExpedicion", QStringLiteral("Jaca"));
    escribir(f, "txt_Arq_Demarcacion", QStringLiteral("Huesca"));
    escribir(f, "txt_Arq_LugarExpedicion", QStringLiteral("Huesca"));
    escribir(f, "msk_FechaFinObra", QStringLiteral("12/05/2008"));
    escribir(f, "msk_FechaLicenciaObras", QStringLiteral("03/09/2006"));
    escribir(f, "txt_Fecha", QStringLiteral("20 de mayo de 2008"));
    captura(f, imagen);
    contestarDiseno(opcion, imagenDialogo);
    imprimir(f);
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
    frmMenu::instancia()->resize(1366, 740);

    for (int largo : {2000, 20000, 65000}) {
        const qint64 vista = certificado(largo);
        QElapsedTimer t;
        t.start();
        const QString pdf = env.directorio() + QStringLiteral("/certificado.pdf");
        modInformes::exportarPDF(pdf);
        std::printf("certificado de %d caracteres: vista previa de %d páginas %lld ms, PDF %lld ms\n", largo,
                    modInformes::Informe->numeroPaginas(), static_cast<long long>(vista), static_cast<long long>(t.elapsed()));
    }
    for (int vuelta = 0; vuelta < 3; ++vuelta)
        std::printf("fin de obra con 20 arquitectos técnicos: %lld ms hasta la vista previa\n", static_cast<long long>(finObra(2, 0)));

    if (!salida.isEmpty()) {
        certificado(2600, salida + QStringLiteral("/frmDatosImpreso_Certificado.png"));
        modInformes::exportarPDF(salida + QStringLiteral("/crCertificado.pdf"));
        certificado(20000);
        modInformes::exportarPDF(salida + QStringLiteral("/crCertificado-20000.pdf"));
        generarImpresoEnBlanco(12);
        modInformes::exportarPDF(salida + QStringLiteral("/crCertificado-blanco.pdf"));
        const char* disenos[] = {"crImpresoCFO", "crImpresoCFO_2", "crImpresoCFO_4", "crImpresoCFO_3"};
        for (int opcion = 0; opcion < 4; ++opcion) {
            finObra(1, opcion, opcion == 0 ? salida + QStringLiteral("/frmDatosImpreso_CertificadoFinObra.png") : QString(),
                    opcion == 3 ? salida + QStringLiteral("/frmSeleccionarTipoCertificado.png") : QString());
            modInformes::exportarPDF(salida + QLatin1Char('/') + QString::fromLatin1(disenos[opcion]) + QStringLiteral(".pdf"));
        }
        contestarDiseno(0);
        generarImpresoEnBlanco(8);
        modInformes::exportarPDF(salida + QStringLiteral("/crImpresoCFO-blanco.pdf"));
        std::printf("PDF en %s\n", qPrintable(salida));
    }
    std::printf("avisos: %lld\n", static_cast<long long>(env.cuadros.size()));
    for (const auto& c : env.cuadros)
        std::printf("  %s\n", qPrintable(QString(c.texto).replace(QLatin1Char('\n'), QLatin1Char(' '))));
    delete frmMenu::existente();
    return 0;
}
