// Listados en hoja de cálculo: plantillas, relleno desde la fila 6, filtro de proyectos,
// apertura para el usuario y fallos al escribir.
#include "core/BaseDatos.h"
#include "core/Mensajes.h"
#include "core/Rutas.h"
#include "core/Sistema.h"
#include "reports/modExcel.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <unistd.h>
#include <zip.h>

namespace {

// Tipo "n" número o "s" texto, valor y estilo.
struct Celda { QString tipo, valor; int estilo = 0; bool operator==(const Celda&) const = default; };

// La hoja 1 del libro, y el fichero entero.
QByteArray hoja(const QString& ruta)
{
    zip_t* z = zip_open(QFile::encodeName(ruta).constData(), ZIP_RDONLY, nullptr);
    zip_stat_t st;
    if (!z || zip_stat(z, "xl/worksheets/sheet1.xml", 0, &st) != 0)
        return {};
    zip_file_t* f = zip_fopen(z, "xl/worksheets/sheet1.xml", 0);
    QByteArray d(qsizetype(st.size), Qt::Uninitialized);
    zip_fread(f, d.data(), st.size);
    zip_fclose(f);
    zip_close(z);
    return d;
}

QByteArray bytes(const QString& ruta) { QFile f(ruta); return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray(); }

// Celdas de la hoja por fila y columna.
using Filas = QMap<int, QMap<QString, Celda>>;
Filas leerCeldas(const QByteArray& hoja)
{
    static const QRegularExpression re(QStringLiteral("^([A-Z]+)(\\d+)$"));
    Filas celdas;
    QXmlStreamReader r(hoja);
    QRegularExpressionMatch ref;
    Celda c;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isStartElement() && r.name() == u"c") {
            const auto a = r.attributes();
            ref = re.match(a.value("r").toString());
            c = Celda{a.value("t") == u"inlineStr" ? "s" : "n", {}, a.value("s").toInt()};
        } else if (r.isStartElement() && (r.name() == u"v" || r.name() == u"t")) {
            c.valor += r.readElementText();
        } else if (r.isEndElement() && r.name() == u"c") {
            celdas[ref.captured(2).toInt()].insert(ref.captured(1), c);
        }
    }
    return celdas;
}

// Columna A desde la fila 6 hasta el primer hueco.
QStringList columnaA(const QString& libro)
{
    QStringList r;
    for (const auto c = leerCeldas(hoja(libro)); c.value(r.size() + 6).contains("A");)
        r << c.value(r.size() + 6).value("A").valor;
    return r;
}

Celda texto(const QString& v) { return {"s", v, 0}; }
Celda numero(const QString& v) { return {"n", v, 0}; }
Celda fecha(int a, int m, int d) { return {"n", QString::number(QDate(1899, 12, 30).daysTo(QDate(a, m, d))), 4}; }

const QString P_CLIENTES = QStringLiteral("Plantilla_ListadoClientes.xlsx");
const QString P_PROYECTOS = QStringLiteral("Plantilla_ListadoProyectos.xlsx");

}  // namespace

class TstExcel : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_programa, m_salida;
    QList<Mensajes::Cuadro> m_cuadros;
    QStringList m_abiertos;
    int m_resultadoAbrir = 42;

    QString plantilla(const QString& nombre) const { return m_programa + "/Excel/" + nombre; }
    QString log() const { return QString::fromUtf8(bytes(m_programa + "/Logs/Log.txt")); }
    QString copia(const QString& p, const QString& destino) { return copiarFicheroExcel(p, m_salida + u'/' + destino) ? m_salida + u'/' + destino : QString(); }

    // Orden: Categoria, esS, Nombre_Cli, Ape_Cli, NIF, NumColegiado, Dirección_Cli, cp, Municipio_Cli,
    // Provincia_Cli, Tfno_Cli, segundo teléfono, TelMovil, Fax_Cli, Correo_Cli (Clientes sin 0, 1 y 5).
    void insertarPersona(const QString& tabla, const QVariantList& v)
    {
        UsoConexion uso;
        const bool otros = tabla == u"OTROS";
        Campos c = {{"Codigo_Cli", siguienteClave(tabla, "Codigo_Cli")}};
        const QStringList nombres = {"Categoria", "esS", "Nombre_Cli", "Ape_Cli", "NIF", "NumColegiado", "Dirección_Cli", "cp",
                                     "Municipio_Cli", "Provincia_Cli", "Tfno_Cli", otros ? "Tfno_Cli1" : "tf", "TelMovil",
                                     "Fax_Cli", "Correo_Cli"};
        for (int i = 0; i < nombres.size(); ++i)
            if (otros || (i >= 2 && i != 5))
                c.append({nombres[i], v.value(i)});
        insertar(tabla, c);
    }

    void insertarProyecto(const QString& expnum, const QVariant& fv, const QVariant& ffo)
    {
        UsoConexion uso;
        insertar("PROYECTOS_A", {{"EXPNUM", expnum}, {"EXPFV", fv}, {"EXPFFO", ffo}});
    }

private slots:
    void initTestCase()
    {
        m_programa = m_dir.filePath("programa");
        m_salida = m_dir.filePath("salida");
        for (const char* d : {"programa/Excel", "programa/Logs", "datos", "salida"})
            QVERIFY(QDir().mkpath(m_dir.filePath(QString::fromLatin1(d))));
        const QDir origen(QStringLiteral(DIRECTORIO_FUENTES "/resources/Excel"));
        for (const QString& p : origen.entryList({"*.xlsx"}))
            QVERIFY(QFile::copy(origen.filePath(p), plantilla(p)));
        Rutas::establecerDirectorioPrograma(m_programa);
        const QString bd = m_dir.filePath("datos/Usuarios.qst");
        QVERIFY(QFile::copy(QStringLiteral(PLANTILLA_BD), bd));
        QFile::setPermissions(bd, QFile::ReadOwner | QFile::WriteOwner);
        rutaBD = m_dir.filePath("datos") + u'/';
        BaseDatos::construirCadenaConexion();
        Mensajes::instalarContestador([this](const Mensajes::Cuadro& c) { m_cuadros.append(c); return Mensajes::Respuesta::Aceptar; });
        Sistema::instalarAbridor([this](const QString& ruta) { m_abiertos.append(ruta); return m_resultadoAbrir; });
    }

    void init()
    {
        m_cuadros.clear(), m_abiertos.clear(), m_resultadoAbrir = 42;
        QFile::remove(m_programa + "/Logs/Log.txt");
        UsoConexion uso;
        for (const char* t : {"OTROS", "CLIENTES", "PROYECTOS_A"})
            ejecutar("DELETE FROM " + QString::fromLatin1(t));
    }

    // Cada plantilla de personas: cabecera intacta, campos en orden, signos, nulos y la otra categoría fuera.
    void listados_data()
    {
        QTest::addColumn<QStringList>("p");  // tabla, categoría, plantilla, título
        QTest::newRow("arquitectos") << QStringList{"ARQUITECTOS", "arquitecto", "Plantilla_ListadoArquitectos.xlsx", "Listado de arquitectos"};
        QTest::newRow("técnicos") << QStringList{"APAREJADORES", "ARQUITECTO TECNICO", "Plantilla_ListadoArquitectosTecnicos.xlsx",
                                                 "Listado de arquitectos técnicos"};
        QTest::newRow("contratistas") << QStringList{"CONTRATISTAS", "Constructor", "Plantilla_ListadoContratistas.xlsx", "Listado de contratistas"};
        QTest::newRow("clientes") << QStringList{"CLIENTES", "", P_CLIENTES, "Listado de clientes"};
    }

    void listados()
    {
        QFETCH(QStringList, p);
        const bool conColegiado = p[0].startsWith(u'A');
        const QString t = p[1].isEmpty() ? "CLIENTES" : "OTROS";
        const QVariant n;
        QStringList esperados = {"José María", "Muñoz Ibáñez", "12345678Z", "1234", "C/ O'Donnell, 5 \"bajo\"", "01001",
                                 "Logroño", "La Rioja", "941000000", "941000001", "600000000", "941000002", "jm@ejemplo.es"};
        QVariantList primera = {p[1], 0};
        for (const QString& e : esperados)
            primera << e;
        primera[5] = 1234;
        insertarPersona(t, primera);
        insertarPersona(t, {p[1], 1, "Estudio <A&B>", n, n, n, n, n, n, n, n, n, n, n, n});
        if (t == u"OTROS")  // otra categoría: no sale
            insertarPersona(t, {p[1] == u"Constructor" ? "ARQUITECTO" : "CONSTRUCTOR", 0, "Ajeno"});

        const QString destino = copia(p[2], "Listado.xlsx");
        QCOMPARE(escribirExcel(destino, p[0]), 2);
        QCOMPARE(m_abiertos, QStringList{destino});
        auto celdas = leerCeldas(hoja(destino)), base = leerCeldas(hoja(plantilla(p[2])));
        const int ncol = conColegiado ? 13 : 12;
        QCOMPARE(celdas[1]["A"].valor, p[3]);
        for (int f = 1; f <= 5; ++f)
            QCOMPARE(celdas[f], base[f]);
        QVERIFY(!celdas.contains(8));
        // Fila 6: todos los campos en orden; el colegiado como número. Fila 7: nulos sin celda.
        if (!conColegiado)
            esperados.removeAt(3);
        const auto fila6 = celdas[6];
        QCOMPARE(fila6.size(), ncol);
        for (int i = 0; i < ncol; ++i)
            QCOMPARE(fila6.value(QString(QChar(u'A' + i))), conColegiado && i == 3 ? numero(esperados[i]) : texto(esperados[i]));
        QCOMPARE(celdas[7], (QMap<QString, Celda>{{"A", texto("Estudio <A&B>")}}));
    }

    // Filtro de proyectos por fecha; tabla vacía: la copia idéntica a la plantilla.
    void seleccion_data()
    {
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QList<QDate>>("fechas");
        QTest::addColumn<QStringList>("esperados");
        using Campo = modInformes::FiltroFecha::Campo;
        const int no = int(Campo::Ninguno), fv = int(Campo::FechaVisado);
        const QDate d13(2024, 3, 13);
        QTest::newRow("tabla vacía") << no << "" << QList<QDate>{} << QStringList{};
        QTest::newRow("todos") << no << "" << QList<QDate>{} << QStringList{"1", "2", "3", "4"};
        QTest::newRow("visado =") << fv << "=" << QList<QDate>{d13} << QStringList{"2"};
        QTest::newRow("visado entre") << fv << "Entre" << QList<QDate>{d13, QDate(2024, 3, 15)} << QStringList{"2", "3"};
        QTest::newRow("fin de obra >=") << int(Campo::FechaFinObra) << ">=" << QList<QDate>{QDate(2025, 1, 31)}
                                        << QStringList{"1", "4"};
    }

    void seleccion()
    {
        QFETCH(int, campo);
        QFETCH(QString, operador);
        QFETCH(QList<QDate>, fechas);
        QFETCH(QStringList, esperados);
        const bool vacia = esperados.isEmpty();
        if (!vacia) {
            insertarProyecto("1", "2024-01-12", "2025-12-13");
            insertarProyecto("2", "2024-03-13", QVariant());
            insertarProyecto("3", "2024-03-15", "2024-12-01");
            insertarProyecto("4", QVariant(), "2025-01-31");
        }
        const QString destino = copia(P_PROYECTOS, "Seleccion.xlsx");
        modInformes::FiltroFecha filtro;
        if (campo != int(modInformes::FiltroFecha::Campo::Ninguno))
            filtro = modInformes::FiltroFecha::desdeTextos(campo == int(modInformes::FiltroFecha::Campo::FechaFinObra) ? "Fecha fin de obra" : "Fecha de visado",
                                                           operador, fechas.value(0), fechas.value(1));
        QCOMPARE(escribirExcel(destino, "PROYECTOS_A", filtro), int(esperados.size()));
        QVERIFY(!BaseDatos::estaAbierta());
        QCOMPARE(columnaA(destino), esperados);
        QCOMPARE(bytes(destino) == bytes(plantilla(P_PROYECTOS)), vacia);
        if (esperados.size() == 4) {  // fechas: número de serie con el estilo de fecha de la plantilla (4)
            auto celdas = leerCeldas(hoja(destino));
            QCOMPARE(celdas[6]["H"], fecha(2024, 1, 12));
            QCOMPARE(fecha(2024, 3, 15).valor, "45366");  // lo que muestra una hoja de cálculo
            QVERIFY(!celdas[7].contains("I") && !celdas[9].contains("H"));
            QCOMPARE(celdas[9]["I"], fecha(2025, 1, 31));
        }
    }

    // Sin programa para abrirlo (31): el fichero está completo y el aviso dice dónde, no que no se hizo.
    void sinHojaDeCalculo()
    {
        insertarPersona("CLIENTES", {"", 0, "Ana"});
        m_resultadoAbrir = 31;
        const QString destino = copia(P_CLIENTES, "Sin.xlsx");
        QCOMPARE(escribirExcel(destino, "CLIENTES"), 1);
        QCOMPARE(m_cuadros.size(), 1);
        const QString texto = m_cuadros[0].texto;
        QVERIFY2(texto.startsWith("No se ha encontrado en su equipo ningún programa que abra los ficheros de tipo '*.xlsx', por lo que no "
                                  "se ha podido mostrar el listado."), qPrintable(texto));
        QVERIFY(texto.contains("El fichero está en:\n" + QDir::toNativeSeparators(QFileInfo(destino).absoluteFilePath()) + "\n"));
        QVERIFY(!texto.contains("no se ha podido\ncrear"));
        QCOMPARE(columnaA(destino), QStringList{"Ana"});
    }

    // Un listado que no se puede reemplazar (abierto en otro programa): ni se toca ni quedan restos.
    void destinoBloqueado()
    {
        insertarPersona("CLIENTES", {"", 0, "Ana"});
        const QString carpeta = m_salida + "/bloqueo", destino = carpeta + "/ListadoDeClientes.xlsx";
        QVERIFY(QDir().mkpath(carpeta) && copiarFicheroExcel(P_CLIENTES, destino));
        const auto original = bytes(destino);
        // Sin privilegios basta quitar la escritura; como root, el atributo de inmutable.
        auto bloquear = [&](bool si) {
            if (geteuid() == 0)
                return QProcess::execute("chattr", {si ? "+i" : "-i", destino}) == 0;
            return QFile::setPermissions(carpeta, si ? QFile::ReadOwner | QFile::ExeOwner
                                                     : QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)
                   && QFile::setPermissions(destino, si ? QFile::ReadOwner : QFile::ReadOwner | QFile::WriteOwner);
        };
        if (!bloquear(true))
            QSKIP("No se puede bloquear el fichero en este sistema");
        const int filas = escribirExcel(destino, "CLIENTES");
        QVERIFY(bloquear(false));
        QCOMPARE(filas, -1);
        QVERIFY(log().contains("Procedimiento: escribirExcel\r\nLinea: 0\r\nNúmero: 75\r\n"));
        QCOMPARE(bytes(destino), original);
        QCOMPARE(QDir(carpeta).entryList(QDir::Files | QDir::Hidden), QStringList{"ListadoDeClientes.xlsx"});
    }
};

QTEST_MAIN(TstExcel)
#include "tst_excel.moc"
