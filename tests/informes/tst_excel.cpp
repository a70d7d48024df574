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

struct Celda {
    QString tipo;  // "n" número, "s" texto
    QString valor;
    int estilo = 0;
    bool operator==(const Celda&) const = default;
};

QMap<QString, QByteArray> entradasZip(const QString& ruta)
{
    QMap<QString, QByteArray> r;
    int err = 0;
    zip_t* z = zip_open(QFile::encodeName(ruta).constData(), ZIP_RDONLY, &err);
    if (!z)
        return r;
    for (zip_int64_t i = 0; i < zip_get_num_entries(z, 0); ++i) {
        zip_stat_t st;
        zip_stat_index(z, zip_uint64_t(i), 0, &st);
        zip_file_t* f = zip_fopen_index(z, zip_uint64_t(i), 0);
        QByteArray d(qsizetype(st.size), Qt::Uninitialized);
        zip_fread(f, d.data(), st.size);
        zip_fclose(f);
        r.insert(QString::fromUtf8(st.name), d);
    }
    zip_close(z);
    return r;
}

const QString HOJA = QStringLiteral("xl/worksheets/sheet1.xml");

// Celdas de la hoja por referencia ("A6").
QMap<QString, Celda> leerCeldas(const QByteArray& hoja, QString* dimension = nullptr)
{
    QMap<QString, Celda> celdas;
    QXmlStreamReader r(hoja);
    QString ref;
    Celda c;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isStartElement()) {
            const auto a = r.attributes();
            if (r.name() == u"dimension" && dimension)
                *dimension = a.value(QLatin1String("ref")).toString();
            if (r.name() == u"c") {
                ref = a.value(QLatin1String("r")).toString();
                c = Celda{a.value(QLatin1String("t")) == u"inlineStr" ? QStringLiteral("s") : QStringLiteral("n"), {},
                          a.value(QLatin1String("s")).toInt()};
            } else if (r.name() == u"v" || r.name() == u"t") {
                c.valor += r.readElementText();
            }
        } else if (r.isEndElement() && r.name() == u"c") {
            celdas.insert(ref, c);
        }
    }
    return celdas;
}

QMap<QString, Celda> celdasFila(const QMap<QString, Celda>& todas, int fila)
{
    QMap<QString, Celda> r;
    static const QRegularExpression re(QStringLiteral("^([A-Z]+)(\\d+)$"));
    for (auto it = todas.begin(); it != todas.end(); ++it) {
        const auto m = re.match(it.key());
        if (m.captured(2).toInt() == fila)
            r.insert(m.captured(1), it.value());
    }
    return r;
}

// Columna A desde la fila 6 hasta el primer hueco.
QStringList columnaA(const QString& libro)
{
    const auto celdas = leerCeldas(entradasZip(libro).value(HOJA));
    QStringList r;
    for (int f = 6; celdas.contains(QStringLiteral("A%1").arg(f)); ++f)
        r << celdas.value(QStringLiteral("A%1").arg(f)).valor;
    return r;
}

Celda texto(const QString& v) { return {QStringLiteral("s"), v, 0}; }
Celda numero(const QString& v) { return {QStringLiteral("n"), v, 0}; }
Celda fecha(int a, int m, int d) { return {QStringLiteral("n"), QString::number(QDate(1899, 12, 30).daysTo(QDate(a, m, d))), 4}; }

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

    QString plantilla(const QString& nombre) const { return m_programa + QStringLiteral("/Excel/") + nombre; }
    QString log() const
    {
        QFile f(m_programa + QStringLiteral("/Logs/Log.txt"));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    QString copia(const QString& nombrePlantilla, const QString& destino)
    {
        const QString ruta = m_salida + u'/' + destino;
        return copiarFicheroExcel(nombrePlantilla, ruta) ? ruta : QString();
    }

    // Orden: Categoria, esS, Nombre_Cli, Ape_Cli, NIF, NumColegiado, Dirección_Cli, cp, Municipio_Cli,
    // Provincia_Cli, Tfno_Cli, segundo teléfono, TelMovil, Fax_Cli, Correo_Cli (Clientes sin 0, 1 y 5).
    void insertarPersona(const QString& tabla, const QVariantList& v)
    {
        UsoConexion uso;
        const bool otros = tabla == u"OTROS";
        Campos c = {{QStringLiteral("Codigo_Cli"), siguienteClave(tabla, QStringLiteral("Codigo_Cli"))}};
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
        insertar(QStringLiteral("PROYECTOS_A"), {{QStringLiteral("EXPNUM"), expnum}, {QStringLiteral("EXPFV"), fv},
                                                 {QStringLiteral("EXPFFO"), ffo}, {QStringLiteral("Trabajo"), "Vivienda " + expnum}});
    }

private slots:
    void initTestCase()
    {
        m_programa = m_dir.filePath(QStringLiteral("programa"));
        m_salida = m_dir.filePath(QStringLiteral("salida"));
        for (const char* d : {"programa/Excel", "programa/Logs", "datos", "salida"})
            QVERIFY(QDir().mkpath(m_dir.filePath(QString::fromLatin1(d))));
        const QDir origen(QStringLiteral(DIRECTORIO_FUENTES "/resources/Excel"));
        for (const QString& p : origen.entryList({QStringLiteral("*.xlsx")}))
            QVERIFY(QFile::copy(origen.filePath(p), plantilla(p)));
        Rutas::establecerDirectorioPrograma(m_programa);
        const QString bd = m_dir.filePath(QStringLiteral("datos/Usuarios.qst"));
        QVERIFY(QFile::copy(QStringLiteral(PLANTILLA_BD), bd));
        QFile::setPermissions(bd, QFile::ReadOwner | QFile::WriteOwner);
        rutaBD = m_dir.filePath(QStringLiteral("datos")) + u'/';
        BaseDatos::construirCadenaConexion();
        Mensajes::instalarContestador([this](const Mensajes::Cuadro& c) {
            m_cuadros.append(c);
            return Mensajes::Respuesta::Aceptar;
        });
        Sistema::instalarAbridor([this](const QString& ruta) {
            m_abiertos.append(ruta);
            return m_resultadoAbrir;
        });
    }

    void init()
    {
        m_cuadros.clear();
        m_abiertos.clear();
        m_resultadoAbrir = 42;
        QFile::remove(m_programa + QStringLiteral("/Logs/Log.txt"));
        UsoConexion uso;
        for (const char* t : {"OTROS", "CLIENTES", "PROYECTOS_A"})
            ejecutar(QStringLiteral("DELETE FROM ") + QString::fromLatin1(t));
    }

    // Las cuatro claves de personas con filas de todo tipo; la plantilla intacta fuera de los datos.
    void listados_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("categoria");
        QTest::addColumn<QString>("fichero");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<bool>("conColegiado");
        QTest::newRow("arquitectos") << "ARQUITECTOS" << "arquitecto" << "Plantilla_ListadoArquitectos.xlsx" << "Listado de arquitectos" << true;
        QTest::newRow("técnicos") << "APAREJADORES" << "ARQUITECTO TECNICO" << "Plantilla_ListadoArquitectosTecnicos.xlsx"
                                  << "Listado de arquitectos técnicos" << true;
        QTest::newRow("contratistas") << "CONTRATISTAS" << "Constructor" << "Plantilla_ListadoContratistas.xlsx" << "Listado de contratistas" << false;
        QTest::newRow("clientes") << "CLIENTES" << "" << "Plantilla_ListadoClientes.xlsx" << "Listado de clientes" << false;
    }

    void listados()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, categoria);
        QFETCH(QString, fichero);
        QFETCH(QString, titulo);
        QFETCH(bool, conColegiado);
        const QString t = categoria.isEmpty() ? QStringLiteral("CLIENTES") : QStringLiteral("OTROS");
        const QVariant n;
        QStringList esperados = {"José María", "Muñoz Ibáñez", "12345678Z", "1234", "C/ O'Donnell, 5 \"bajo\"", "01001",
                                 "Logroño", "La Rioja", "941000000", "941000001", "600000000", "941000002", "jm@ejemplo.es"};
        QVariantList primera = {categoria, 0};
        for (const QString& e : esperados)
            primera << e;
        primera[5] = 1234;
        insertarPersona(t, primera);
        insertarPersona(t, {categoria, 1, "Estudio <A&B>", n, n, n, n, n, n, n, n, n, n, n, n});
        insertarPersona(t, {categoria, 0, QString(" sangría\x01"), "", n, 7, n, "26001"});
        if (!categoria.isEmpty())  // otra categoría: no sale
            insertarPersona(t, {categoria == u"Constructor" ? "ARQUITECTO" : "CONSTRUCTOR", 0, "Ajeno"});

        const QString destino = copia(fichero, QStringLiteral("Listado.xlsx"));
        const auto permisos = QFileInfo(destino).permissions();
        QCOMPARE(escribirExcel(destino, tabla), 3);
        QCOMPARE(QFileInfo(destino).permissions(), permisos);
        QVERIFY(m_cuadros.isEmpty());
        QCOMPARE(m_abiertos, QStringList{destino});

        const auto antes = entradasZip(plantilla(fichero));
        const auto despues = entradasZip(destino);
        QCOMPARE(despues.keys(), antes.keys());
        for (const QString& k : antes.keys())
            if (k != HOJA)
                QCOMPARE(despues.value(k), antes.value(k));

        QString dimension;
        const auto celdas = leerCeldas(despues.value(HOJA), &dimension);
        const int ncol = conColegiado ? 13 : 12;
        QCOMPARE(celdas.value("A1").valor, titulo);
        QCOMPARE(celdas.value("A2").valor, QStringLiteral("PLANORUM MIRVADE"));
        QCOMPARE(celdasFila(celdas, 5).size(), ncol);
        QCOMPARE(dimension, QStringLiteral("A1:%1%2").arg(QChar(u'A' + ncol - 1)).arg(8));
        QVERIFY(celdasFila(celdas, 9).isEmpty());

        // Fila 6: todos los campos en orden; el colegiado como número.
        if (!conColegiado)
            esperados.removeAt(3);
        const auto fila6 = celdasFila(celdas, 6);
        QCOMPARE(fila6.size(), ncol);
        for (int i = 0; i < ncol; ++i)
            QCOMPARE(fila6.value(QString(QChar(u'A' + i))), conColegiado && i == 3 ? numero(esperados[i]) : texto(esperados[i]));
        // Nulos y vacíos: sin celda; signos intactos; control eliminado, espacio inicial conservado.
        QCOMPARE(celdasFila(celdas, 7), (QMap<QString, Celda>{{"A", texto("Estudio <A&B>")}}));
        const auto fila8 = celdasFila(celdas, 8);
        QCOMPARE(fila8.value("A"), texto(" sangría"));
        QCOMPARE(fila8.size(), conColegiado ? 3 : 2);
        QVERIFY(despues.value(HOJA).contains("xml:space=\"preserve\""));
    }

    // Filtros por tabla: sociedad o persona por esS, un operador de fecha por fila, filtros
    // inválidos (-1, la copia intacta) y tabla vacía (la copia idéntica a la plantilla).
    void seleccion_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QDate>("fecha1");
        QTest::addColumn<QDate>("fecha2");
        QTest::addColumn<QStringList>("esperados");
        const int no = int(FiltroProyectos::Campo::Ninguno), fv = int(FiltroProyectos::Campo::FechaVisado);
        const QDate d13(2024, 3, 13), d15(2024, 3, 15), d(2024, 1, 1), x;
        const QStringList error{"error"}, ambos{"Sociedad", "Persona"};
        QTest::newRow("sociedades") << "ARQUITECTOS_SOCIEDAD" << no << "" << x << x << QStringList{"Sociedad"};
        QTest::newRow("personas") << "ARQUITECTOS_SIMPLE" << no << "" << x << x << QStringList{"Persona"};
        QTest::newRow("coordinadores") << "COORDINADOR_SS" << no << "" << x << x << ambos;
        QTest::newRow("tabla vacía") << "CLIENTES" << no << "" << x << x << QStringList{};
        QTest::newRow("todos") << "PROYECTOS_A" << no << "" << x << x << QStringList{"1", "2", "3", "4"};
        QTest::newRow("visado =") << "PROYECTOS_A" << fv << "=" << d13 << x << QStringList{"2"};
        QTest::newRow("visado >") << "PROYECTOS_A" << fv << ">" << d13 << x << QStringList{"3"};
        QTest::newRow("visado <") << "PROYECTOS_A" << fv << "<" << d13 << x << QStringList{"1"};
        QTest::newRow("visado >=") << "PROYECTOS_A" << fv << ">=" << d13 << x << QStringList{"2", "3"};
        QTest::newRow("visado entre") << "PROYECTOS_A" << fv << "Entre" << d13 << d15 << QStringList{"2", "3"};
        QTest::newRow("fin de obra >=") << "PROYECTOS_A" << int(FiltroProyectos::Campo::FechaFinObra) << ">=" << QDate(2025, 1, 31) << x
                                        << QStringList{"1", "4"};
        QTest::newRow("inyección") << "PROYECTOS_A" << fv << "= '' OR 1=1 --" << d << x << error;
        QTest::newRow("sin fecha") << "PROYECTOS_A" << fv << ">" << x << x << error;
        QTest::newRow("entre sin segunda") << "PROYECTOS_A" << fv << "Entre" << d << x << error;
    }

    void seleccion()
    {
        QFETCH(QString, tabla);
        QFETCH(int, campo);
        QFETCH(QString, operador);
        QFETCH(QDate, fecha1);
        QFETCH(QDate, fecha2);
        QFETCH(QStringList, esperados);
        insertarPersona(QStringLiteral("OTROS"), {"ARQUITECTO", 1, "Sociedad"});
        insertarPersona(QStringLiteral("OTROS"), {"ARQUITECTO", 0, "Persona"});
        insertarPersona(QStringLiteral("OTROS"), {"CONSTRUCTOR", 1, "Empresa"});
        insertarProyecto("1", "2024-01-12", "2025-12-13");
        insertarProyecto("2", "2024-03-13", QVariant());
        insertarProyecto("3", "2024-03-15", "2024-12-01");
        insertarProyecto("4", QVariant(), "2025-01-31");
        const QString fichero = tabla == u"PROYECTOS_A" ? P_PROYECTOS
                                : tabla == u"CLIENTES"  ? P_CLIENTES
                                                        : QStringLiteral("Plantilla_ListadoArquitectos.xlsx");
        const QString destino = copia(fichero, QStringLiteral("Seleccion.xlsx"));
        const int n = escribirExcel(destino, tabla, {FiltroProyectos::Campo(campo), operador, fecha1, fecha2});
        QVERIFY(!BaseDatos::estaAbierta());
        if (esperados == QStringList{"error"}) {
            QCOMPARE(n, -1);
            QVERIFY(log().contains(QStringLiteral("Formulario: modExcel\r\nProcedimiento: escribirExcel\r\n")));
            QCOMPARE(m_cuadros.size(), 1);
            QVERIFY(m_abiertos.isEmpty());
            QCOMPARE(entradasZip(destino), entradasZip(plantilla(fichero)));
            return;
        }
        QCOMPARE(n, int(esperados.size()));
        QCOMPARE(log(), QString());
        QCOMPARE(m_abiertos, QStringList{destino});
        QCOMPARE(columnaA(destino), esperados);
        if (esperados.isEmpty()) {
            QFile a(destino), b(plantilla(fichero));
            QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
            QCOMPARE(a.readAll(), b.readAll());
        }
    }

    // Textos y fechas: número de serie con el estilo de fecha de la plantilla (4).
    void proyectos()
    {
        {
            UsoConexion uso;
            insertar(QStringLiteral("PROYECTOS_A"), {{"EXPNUM", "0042"}, {"Trabajo", "Reforma de ático"}, {"CLINOM", "Peña & Cía"},
                                                     {"EXPFV", "2024-03-15"}, {"EXPFFO", QVariant()}});
        }
        insertarProyecto(QStringLiteral("7"), QVariant(), QStringLiteral("2023-12-31"));
        const QString destino = copia(P_PROYECTOS, QStringLiteral("ListadoDeProyectos.xlsx"));
        QCOMPARE(escribirExcel(destino, QStringLiteral("PROYECTOS_A")), 2);
        const auto celdas = leerCeldas(entradasZip(destino).value(HOJA));
        QCOMPARE(celdas.value("A6"), texto("0042"));
        QCOMPARE(celdas.value("G6"), texto("Peña & Cía"));
        QCOMPARE(celdas.value("H6"), fecha(2024, 3, 15));
        QCOMPARE(fecha(2024, 3, 15).valor, QStringLiteral("45366"));  // lo que muestra una hoja de cálculo
        QVERIFY(!celdas.contains("I6") && !celdas.contains("H7"));
        QCOMPARE(celdas.value("I7"), fecha(2023, 12, 31));
    }

    // Sin programa para abrirlo (31): el aviso de siempre; el fichero ya está completo.
    void sinHojaDeCalculo()
    {
        insertarPersona(QStringLiteral("CLIENTES"), {"", 0, "Ana"});
        m_resultadoAbrir = 31;
        const QString destino = copia(P_CLIENTES, QStringLiteral("Sin.xlsx"));
        QCOMPARE(escribirExcel(destino, QStringLiteral("CLIENTES")), 1);
        QCOMPARE(m_cuadros.size(), 1);
        QCOMPARE(m_cuadros[0].texto,
                 QStringLiteral("No tiene instalado en su equipo Microsoft Excel, por lo que no se ha podido\n"
                                "crear el listado solicitado. Por favor, antes de generar de nuevo el listado instale Microsoft Excel"));
        QCOMPARE(log(), QString());
        QCOMPARE(columnaA(destino), QStringList{"Ana"});
        // Cualquier otro fallo al abrirlo se anota.
        m_resultadoAbrir = 2;
        QCOMPARE(escribirExcel(destino, QStringLiteral("CLIENTES")), 1);
        QVERIFY(log().contains(QStringLiteral("Procedimiento: escribirExcel\r\nLinea: 0\r\nNúmero: 2\r\n")));
    }

    // Plantilla que falta o carpeta que no existe: al registro y false; nada se crea.
    void copiar()
    {
        QVERIFY(!copiarFicheroExcel(QStringLiteral("NoExiste.xlsx"), m_salida + QStringLiteral("/Otro.xlsx")));
        QVERIFY(!QFile::exists(m_salida + QStringLiteral("/Otro.xlsx")));
        const QString sinCarpeta = m_salida + QStringLiteral("/no/hay/Listado.xlsx");
        QVERIFY(!copiarFicheroExcel(P_CLIENTES, sinCarpeta));
        QCOMPARE(log().count(QStringLiteral("Formulario: modExcel\r\nProcedimiento: copiarFicheroExcel\r\n")), 2);
        QCOMPARE(escribirExcel(sinCarpeta, QStringLiteral("CLIENTES")), -1);
        QVERIFY(log().contains(QStringLiteral("Procedimiento: escribirExcel\r\nLinea: 0\r\nNúmero: 53\r\n")));
        QVERIFY(!QFile::exists(sinCarpeta));
    }

    // Un listado que no se puede reemplazar (abierto en otro programa): ni se toca ni quedan restos.
    void destinoBloqueado()
    {
        insertarPersona(QStringLiteral("CLIENTES"), {"", 0, "Ana"});
        const QString carpeta = m_salida + QStringLiteral("/bloqueo");
        QVERIFY(QDir().mkpath(carpeta));
        const QString destino = carpeta + QStringLiteral("/ListadoDeClientes.xlsx");
        QVERIFY(copiarFicheroExcel(P_CLIENTES, destino));
        const auto original = entradasZip(destino);
        // Sin privilegios basta quitar la escritura; como root, el atributo de inmutable.
        auto bloquear = [&](bool si) {
            if (geteuid() == 0)
                return QProcess::execute(QStringLiteral("chattr"), {si ? QStringLiteral("+i") : QStringLiteral("-i"), destino}) == 0;
            return QFile::setPermissions(carpeta, si ? QFile::ReadOwner | QFile::ExeOwner
                                                     : QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)
                   && QFile::setPermissions(destino, si ? QFile::ReadOwner : QFile::ReadOwner | QFile::WriteOwner);
        };
        if (!bloquear(true))
            QSKIP("No se puede bloquear el fichero en este sistema");
        const int filas = escribirExcel(destino, QStringLiteral("CLIENTES"));
        const bool copiado = copiarFicheroExcel(P_PROYECTOS, destino);
        QVERIFY(bloquear(false));
        QCOMPARE(filas, -1);
        QVERIFY(!copiado);
        QVERIFY(m_abiertos.isEmpty());
        QVERIFY(log().contains(QStringLiteral("Procedimiento: escribirExcel\r\nLinea: 0\r\nNúmero: 75\r\n")));
        QVERIFY(log().contains(QStringLiteral("Procedimiento: copiarFicheroExcel\r\nLinea: 0\r\nNúmero: 75\r\n")));
        QCOMPARE(entradasZip(destino), original);
        QCOMPARE(QDir(carpeta).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("ListadoDeClientes.xlsx")});
    }

    void cleanupTestCase()
    {
        Mensajes::instalarContestador({});
        Sistema::instalarAbridor({});
    }
};

QTEST_MAIN(TstExcel)
#include "tst_excel.moc"
