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
#include <QStandardPaths>
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

// Celdas de la hoja por referencia ("A6"), leídas del fichero descomprimido.
QMap<QString, Celda> leerCeldas(const QByteArray& hoja, QString* dimension = nullptr)
{
    QMap<QString, Celda> celdas;
    QXmlStreamReader r(hoja);
    QString ref;
    Celda c;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isStartElement()) {
            if (r.name() == u"dimension" && dimension)
                *dimension = r.attributes().value(QLatin1String("ref")).toString();
            if (r.name() == u"c") {
                ref = r.attributes().value(QLatin1String("r")).toString();
                const QString t = r.attributes().value(QLatin1String("t")).toString();
                c = Celda{t == u"inlineStr" ? QStringLiteral("s") : QStringLiteral("n"), {},
                          r.attributes().value(QLatin1String("s")).toInt()};
            } else if (r.name() == u"v" || r.name() == u"t") {
                c.valor += r.readElementText();
            }
        } else if (r.isEndElement() && r.name() == u"c") {
            celdas.insert(ref, c);
        }
    }
    if (r.hasError())
        qWarning() << "hoja ilegible:" << r.errorString();
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

// La hoja hasta el final de la fila 5, sin la dimensión, que cambia con las filas.
QString cabeceraHoja(const QByteArray& hoja)
{
    QString t = QString::fromUtf8(hoja);
    t.remove(QRegularExpression(QStringLiteral("<dimension[^>]*>")));
    const int fin = t.indexOf(QStringLiteral("<row r=\"6\""));
    return fin < 0 ? t.left(t.indexOf(QStringLiteral("</sheetData>"))) : t.left(fin);
}

Celda texto(const QString& v) { return {QStringLiteral("s"), v, 0}; }
Celda numero(const QString& v) { return {QStringLiteral("n"), v, 0}; }

qint64 serie(int a, int m, int d) { return QDate(1899, 12, 30).daysTo(QDate(a, m, d)); }

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
        if (!copiarFicheroExcel(nombrePlantilla, ruta))
            qWarning() << "no se ha copiado" << nombrePlantilla;
        return ruta;
    }

    void insertarPersona(const QString& tabla, const QVariantList& v)
    {
        // Orden: Categoria, esS, Nombre_Cli, Ape_Cli, NIF, NumColegiado, Dirección_Cli, cp,
        // Municipio_Cli, Provincia_Cli, Tfno_Cli, segundo teléfono, TelMovil, Fax_Cli, Correo_Cli
        UsoConexion uso;
        const bool otros = tabla == u"OTROS";
        Campos c = {{QStringLiteral("Codigo_Cli"), siguienteClave(tabla, QStringLiteral("Codigo_Cli"))}};
        const QStringList nombres = {QStringLiteral("Categoria"), QStringLiteral("esS"), QStringLiteral("Nombre_Cli"),
                                     QStringLiteral("Ape_Cli"), QStringLiteral("NIF"), QStringLiteral("NumColegiado"),
                                     QStringLiteral("Dirección_Cli"), QStringLiteral("cp"), QStringLiteral("Municipio_Cli"),
                                     QStringLiteral("Provincia_Cli"), QStringLiteral("Tfno_Cli"),
                                     otros ? QStringLiteral("Tfno_Cli1") : QStringLiteral("tf"), QStringLiteral("TelMovil"),
                                     QStringLiteral("Fax_Cli"), QStringLiteral("Correo_Cli")};
        for (int i = 0; i < nombres.size(); ++i)
            if (otros || (i >= 2 && i != 5))
                c.append({nombres[i], v.value(i)});
        insertar(tabla, c);
    }

    void insertarProyecto(const QString& expnum, const QVariant& fv, const QVariant& ffo, const QString& trabajo = {})
    {
        UsoConexion uso;
        insertar(QStringLiteral("PROYECTOS_A"),
                            {{QStringLiteral("EXPNUM"), expnum}, {QStringLiteral("EXPFV"), fv}, {QStringLiteral("EXPFFO"), ffo},
                             {QStringLiteral("Trabajo"), trabajo.isEmpty() ? QStringLiteral("Vivienda ") + expnum : trabajo}});
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_programa = m_dir.filePath(QStringLiteral("programa"));
        m_salida = m_dir.filePath(QStringLiteral("salida"));
        for (const char* d : {"programa/Excel", "programa/Logs", "datos", "salida"})
            QVERIFY(QDir().mkpath(m_dir.filePath(QString::fromLatin1(d))));
        const QDir origen(QStringLiteral(DIRECTORIO_FUENTES "/resources/Excel"));
        const QStringList plantillas = origen.entryList({QStringLiteral("*.xlsx")});
        QCOMPARE(plantillas.size(), 5);
        for (const QString& p : plantillas)
            QVERIFY(QFile::copy(origen.filePath(p), plantilla(p)));
        Rutas::establecerDirectorioPrograma(m_programa);

        QVERIFY(QFile::copy(QStringLiteral(PLANTILLA_BD), m_dir.filePath(QStringLiteral("datos/Usuarios.qst"))));
        QFile::setPermissions(m_dir.filePath(QStringLiteral("datos/Usuarios.qst")), QFile::ReadOwner | QFile::WriteOwner);
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

    // Cada plantilla: título, nombre del programa y columnas en la fila 5, datos libres desde la 6.
    void plantillas_data()
    {
        QTest::addColumn<QString>("fichero");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<QStringList>("columnas");
        const QStringList persona = {"Nombre", "Apellidos", "NIF", "Nº colegiado", "Dirección", "C.P.", "Municipio", "Provincia",
                                     "Teléfono", "Teléfono 2", "Móvil", "Fax", "Correo electrónico"};
        QStringList sinColegiado = persona;
        sinColegiado.removeAt(3);
        QTest::newRow("proyectos") << "Plantilla_ListadoProyectos.xlsx" << "Listado de proyectos"
                                   << QStringList{"Nº expediente", "Referencia", "Trabajo", "Emplazamiento", "Municipio",
                                                  "Provincia", "Cliente", "Fecha de visado", "Fecha fin de obra"};
        QTest::newRow("arquitectos") << "Plantilla_ListadoArquitectos.xlsx" << "Listado de arquitectos" << persona;
        QTest::newRow("técnicos") << "Plantilla_ListadoArquitectosTecnicos.xlsx" << "Listado de arquitectos técnicos" << persona;
        QTest::newRow("contratistas") << "Plantilla_ListadoContratistas.xlsx" << "Listado de contratistas" << sinColegiado;
        QTest::newRow("clientes") << "Plantilla_ListadoClientes.xlsx" << "Listado de clientes" << sinColegiado;
    }

    void plantillas()
    {
        QFETCH(QString, fichero);
        QFETCH(QString, titulo);
        QFETCH(QStringList, columnas);
        const auto celdas = leerCeldas(entradasZip(plantilla(fichero)).value(HOJA));
        QCOMPARE(celdas.value("A1").valor, titulo);
        QCOMPARE(celdas.value("A2").valor, QStringLiteral("PLANORUM MIRVADE"));
        const auto fila5 = celdasFila(celdas, 5);
        QCOMPARE(fila5.size(), columnas.size());
        QStringList leidas;
        for (const Celda& c : fila5)
            leidas << c.valor;
        QCOMPARE(leidas, columnas);
        QVERIFY(celdasFila(celdas, 6).isEmpty());
    }

    // Las cuatro claves de la barra de exportación con filas de todo tipo.
    void listados_data()
    {
        QTest::addColumn<QString>("tabla");
        QTest::addColumn<QString>("categoria");
        QTest::addColumn<QString>("fichero");
        QTest::addColumn<bool>("conColegiado");
        QTest::newRow("arquitectos") << "ARQUITECTOS" << "arquitecto" << "Plantilla_ListadoArquitectos.xlsx" << true;
        QTest::newRow("técnicos") << "APAREJADORES" << "ARQUITECTO TECNICO" << "Plantilla_ListadoArquitectosTecnicos.xlsx" << true;
        QTest::newRow("contratistas") << "CONTRATISTAS" << "Constructor" << "Plantilla_ListadoContratistas.xlsx" << false;
        QTest::newRow("clientes") << "CLIENTES" << "" << "Plantilla_ListadoClientes.xlsx" << false;
    }

    void listados()
    {
        QFETCH(QString, tabla);
        QFETCH(QString, categoria);
        QFETCH(QString, fichero);
        QFETCH(bool, conColegiado);
        const QString t = categoria.isEmpty() ? QStringLiteral("CLIENTES") : QStringLiteral("OTROS");
        const QVariant nulo;
        insertarPersona(t, {categoria, 0, "José María", "Muñoz Ibáñez", "12345678Z", 1234, "C/ O'Donnell, 5 \"bajo\"", "01001",
                            "Logroño", "La Rioja", "941000000", "941000001", "600000000", "941000002", "jm@ejemplo.es"});
        insertarPersona(t, {categoria, 1, "Estudio <A&B>", nulo, nulo, nulo, nulo, nulo, nulo, nulo, nulo, nulo, nulo, nulo, nulo});
        insertarPersona(t, {categoria, 0, QString(" sangría\x01"), "", nulo, 7, nulo, "26001"});
        if (!categoria.isEmpty()) {  // otra categoría: no sale
            insertarPersona(t, {categoria == u"Constructor" ? "ARQUITECTO" : "CONSTRUCTOR", 0, "Ajeno"});
        }

        const QString destino = copia(fichero, QStringLiteral("Listado.xlsx"));
        const auto permisos = QFileInfo(destino).permissions();
        QVERIFY(permisos & QFile::ReadOther);
        QCOMPARE(escribirExcel(destino, tabla), 3);
        QCOMPARE(QFileInfo(destino).permissions(), permisos);
        QVERIFY(m_cuadros.isEmpty());
        QCOMPARE(m_abiertos, QStringList{destino});
        QVERIFY(!BaseDatos::estaAbierta());

        const auto antes = entradasZip(plantilla(fichero));
        const auto despues = entradasZip(destino);
        QCOMPARE(despues.keys(), antes.keys());
        for (const QString& k : antes.keys())
            if (k != HOJA)
                QCOMPARE(despues.value(k), antes.value(k));
        QCOMPARE(cabeceraHoja(despues.value(HOJA)), cabeceraHoja(antes.value(HOJA)));

        QString dimension;
        const auto celdas = leerCeldas(despues.value(HOJA), &dimension);
        const int ncol = conColegiado ? 13 : 12;
        QCOMPARE(dimension, QStringLiteral("A1:%1%2").arg(QChar(u'A' + ncol - 1)).arg(8));
        QVERIFY(celdasFila(celdas, 9).isEmpty());

        // Fila 6: todos los campos, en el orden del listado
        QStringList esperados = {"José María", "Muñoz Ibáñez", "12345678Z", "1234", "C/ O'Donnell, 5 \"bajo\"", "01001",
                                 "Logroño", "La Rioja", "941000000", "941000001", "600000000", "941000002", "jm@ejemplo.es"};
        if (!conColegiado)
            esperados.removeAt(3);
        const auto fila6 = celdasFila(celdas, 6);
        QCOMPARE(fila6.size(), ncol);
        for (int i = 0; i < ncol; ++i) {
            const Celda c = fila6.value(QString(QChar(u'A' + i)));
            const bool esNumero = conColegiado && i == 3;
            QCOMPARE(c, esNumero ? numero(esperados[i]) : texto(esperados[i]));
        }
        // Nulos y textos vacíos: celdas vacías; caracteres especiales intactos
        QCOMPARE(celdasFila(celdas, 7), (QMap<QString, Celda>{{"A", texto("Estudio <A&B>")}}));
        auto fila8 = celdasFila(celdas, 8);
        QCOMPARE(fila8.value("A"), texto(" sangría"));
        QCOMPARE(fila8.size(), conColegiado ? 3 : 2);
        if (conColegiado)
            QCOMPARE(fila8.value("D"), numero("7"));
        QVERIFY(despues.value(HOJA).contains("xml:space=\"preserve\""));
    }

    // Las variantes de arquitectos: sociedad o persona por esS.
    void arquitectosPorSociedad()
    {
        insertarPersona(QStringLiteral("OTROS"), {"ARQUITECTO", 1, "Sociedad"});
        insertarPersona(QStringLiteral("OTROS"), {"ARQUITECTO", 0, "Persona"});
        insertarPersona(QStringLiteral("OTROS"), {"CONSTRUCTOR", 1, "Empresa"});
        const QString destino = m_salida + QStringLiteral("/Socios.xlsx");
        const QList<QPair<QString, QStringList>> casos = {{"ARQUITECTOS_SOCIEDAD", {"Sociedad"}},
                                                         {"ARQUITECTOS_SIMPLE", {"Persona"}},
                                                         {"COORDINADOR_SS", {"Sociedad", "Persona"}},
                                                         {"ARQUITECTOS_AUTORES", {"Sociedad", "Persona"}}};
        for (const auto& [tabla, nombres] : casos) {
            QVERIFY(copiarFicheroExcel(QStringLiteral("Plantilla_ListadoArquitectos.xlsx"), destino));
            QCOMPARE(escribirExcel(destino, tabla), int(nombres.size()));
            const auto celdas = leerCeldas(entradasZip(destino).value(HOJA));
            QStringList leidos;
            for (int f = 6; celdas.contains(QStringLiteral("A%1").arg(f)); ++f)
                leidos << celdas.value(QStringLiteral("A%1").arg(f)).valor;
            QCOMPARE(leidos, nombres);
        }
    }

    void proyectos()
    {
        {
            UsoConexion uso;
            insertar(QStringLiteral("PROYECTOS_A"),
                                {{"EXPNUM", "0042"}, {"EXPREF", "R-1"}, {"Trabajo", "Reforma de ático"}, {"Emplazamiento", "Pza. España, 1"},
                                 {"Municipio", "Logroño"}, {"Provincia", "La Rioja"}, {"CLINOM", "Peña & Cía"},
                                 {"EXPFV", "2024-03-15"}, {"EXPFFO", QVariant()}});
        }
        insertarProyecto(QStringLiteral("7"), QVariant(), QStringLiteral("2023-12-31"));
        const QString destino = copia(QStringLiteral("Plantilla_ListadoProyectos.xlsx"), QStringLiteral("ListadoDeProyectos.xlsx"));
        QCOMPARE(escribirExcel(destino, QStringLiteral("PROYECTOS_A")), 2);

        const auto celdas = leerCeldas(entradasZip(destino).value(HOJA));
        const auto f6 = celdasFila(celdas, 6);
        QCOMPARE(f6.value("A"), texto("0042"));
        QCOMPARE(f6.value("C"), texto("Reforma de ático"));
        QCOMPARE(f6.value("G"), texto("Peña & Cía"));
        // Fechas: número de serie con el estilo de fecha de la columna de la plantilla (4)
        QCOMPARE(f6.value("H"), (Celda{"n", QString::number(serie(2024, 3, 15)), 4}));
        QVERIFY(!f6.contains("I"));
        const auto f7 = celdasFila(celdas, 7);
        QVERIFY(!f7.contains("H"));
        QCOMPARE(f7.value("I"), (Celda{"n", QString::number(serie(2023, 12, 31)), 4}));
        QCOMPARE(QString::number(serie(2024, 3, 15)), QStringLiteral("45366"));  // lo que muestra una hoja de cálculo
    }

    // Una plantilla retocada con otro programa: otra ruta de hoja, prefijo de espacio de
    // nombres, filas sobrantes desde la 6 o zona de datos vacía.
    void plantillaRetocada_data()
    {
        QTest::addColumn<QString>("hoja");
        QTest::addColumn<QString>("dimension");
        const QString ns = QStringLiteral("http://schemas.openxmlformats.org/spreadsheetml/2006/main");
        QTest::newRow("prefijo y filas sobrantes")
            << QStringLiteral("<x:worksheet xmlns:x=\"%1\"><x:dimension ref=\"A1:B9\"/><x:sheetData>"
                              "<x:row r=\"1\"><x:c r=\"A1\" t=\"inlineStr\"><x:is><x:t>Título</x:t></x:is></x:c></x:row>"
                              "<x:row r=\"6\"><x:c r=\"A6\"><x:v>1</x:v></x:c></x:row><x:row r=\"9\"/>"
                              "</x:sheetData></x:worksheet>").arg(ns)
            << "A1:L6";
        QTest::newRow("sin filas")
            << QStringLiteral("<worksheet xmlns=\"%1\"><sheetData/><pageMargins left=\"1\" right=\"1\" top=\"1\" bottom=\"1\" "
                              "header=\"0\" footer=\"0\"/></worksheet>").arg(ns)
            << "";
    }

    void plantillaRetocada()
    {
        QFETCH(QString, hoja);
        QFETCH(QString, dimension);
        insertarPersona(QStringLiteral("CLIENTES"), {"", 0, "Íñigo"});
        const QString destino = m_salida + QStringLiteral("/Retocada.xlsx");
        QFile::remove(destino);
        const QMap<QString, QByteArray> partes = {
            {"xl/workbook.xml",
             "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
             "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">"
             "<sheets><sheet name=\"Hoja\" sheetId=\"1\" r:id=\"rId7\"/></sheets></workbook>"},
            {"xl/_rels/workbook.xml.rels",
             "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
             "<Relationship Id=\"rId7\" Type=\"t\" Target=\"worksheets/datos.xml\"/></Relationships>"},
            {"xl/styles.xml", "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"/>"},
            {"xl/worksheets/datos.xml", hoja.toUtf8()}};
        int err = 0;
        zip_t* z = zip_open(QFile::encodeName(destino).constData(), ZIP_CREATE, &err);
        QVERIFY(z);
        for (auto it = partes.begin(); it != partes.end(); ++it)
            zip_file_add(z, it.key().toUtf8().constData(), zip_source_buffer(z, it.value().constData(), zip_uint64_t(it.value().size()), 0), 0);
        QCOMPARE(zip_close(z), 0);

        QCOMPARE(escribirExcel(destino, QStringLiteral("CLIENTES")), 1);
        QString dim;
        const auto celdas = leerCeldas(entradasZip(destino).value(QStringLiteral("xl/worksheets/datos.xml")), &dim);
        QCOMPARE(dim, dimension);
        if (hoja.startsWith(QStringLiteral("<x:")))  // las filas nuevas, en el mismo espacio de nombres
            QVERIFY(!entradasZip(destino).value(QStringLiteral("xl/worksheets/datos.xml")).contains("<row"));
        QCOMPARE(celdas.value("A6"), texto("Íñigo"));
        QCOMPARE(celdas.size(), dimension.isEmpty() ? 1 : 2);  // la fila 6 antigua y la 9 se han ido
        if (!dimension.isEmpty())
            QCOMPARE(celdas.value("A1"), texto("Título"));
        QVERIFY(m_cuadros.isEmpty());
    }

    void filtroProyectos_data()
    {
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QDate>("fecha1");
        QTest::addColumn<QDate>("fecha2");
        QTest::addColumn<QStringList>("esperados");
        const int fv = int(FiltroProyectos::Campo::FechaVisado), ffo = int(FiltroProyectos::Campo::FechaFinObra);
        const QDate d13(2024, 3, 13), d15(2024, 3, 15);
        QTest::newRow("todos") << int(FiltroProyectos::Campo::Ninguno) << "" << QDate() << QDate()
                               << QStringList{"1", "2", "3", "4"};
        QTest::newRow("visado =") << fv << "=" << d13 << QDate() << QStringList{"2"};
        QTest::newRow("visado >") << fv << ">" << d13 << QDate() << QStringList{"3"};
        QTest::newRow("visado <") << fv << "<" << d13 << QDate() << QStringList{"1"};
        QTest::newRow("visado >=") << fv << ">=" << d13 << QDate() << QStringList{"2", "3"};
        QTest::newRow("visado <=") << fv << "<=" << d13 << QDate() << QStringList{"1", "2"};
        QTest::newRow("visado entre") << fv << "Entre" << d13 << d15 << QStringList{"2", "3"};
        QTest::newRow("visado entre sin filas") << fv << "Entre" << QDate(2030, 1, 1) << QDate(2030, 2, 1) << QStringList{};
        QTest::newRow("fin de obra =") << ffo << "=" << QDate(2025, 12, 13) << QDate() << QStringList{"1"};
        QTest::newRow("fin de obra >=") << ffo << ">=" << QDate(2025, 1, 31) << QDate() << QStringList{"1", "4"};
        QTest::newRow("fin de obra entre") << ffo << "Entre" << QDate(2025, 1, 1) << QDate(2025, 6, 30)
                                           << QStringList{"4"};
    }

    void filtroProyectos()
    {
        QFETCH(int, campo);
        QFETCH(QString, operador);
        QFETCH(QDate, fecha1);
        QFETCH(QDate, fecha2);
        QFETCH(QStringList, esperados);
        insertarProyecto("1", "2024-01-12", "2025-12-13");
        insertarProyecto("2", "2024-03-13", QVariant());
        insertarProyecto("3", "2024-03-15", "2024-12-01");
        insertarProyecto("4", QVariant(), "2025-01-31");
        const QString destino = copia(QStringLiteral("Plantilla_ListadoProyectos.xlsx"), QStringLiteral("Filtrado.xlsx"));
        const FiltroProyectos filtro{FiltroProyectos::Campo(campo), operador, fecha1, fecha2};
        QCOMPARE(escribirExcel(destino, QStringLiteral("PROYECTOS_A"), filtro), int(esperados.size()));
        QCOMPARE(log(), QString());
        const auto celdas = leerCeldas(entradasZip(destino).value(HOJA));
        QStringList leidos;
        for (int f = 6; celdas.contains(QStringLiteral("A%1").arg(f)); ++f)
            leidos << celdas.value(QStringLiteral("A%1").arg(f)).valor;
        QCOMPARE(leidos, esperados);
    }

    // Un filtro mal formado no llega a la base de datos: se anota y la copia queda como estaba.
    void filtroInvalido_data()
    {
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QDate>("fecha1");
        QTest::addColumn<QDate>("fecha2");
        QTest::newRow("operador ajeno") << "LIKE" << QDate(2024, 1, 1) << QDate();
        QTest::newRow("inyección") << "= '' OR 1=1 --" << QDate(2024, 1, 1) << QDate();
        QTest::newRow("sin fecha") << ">" << QDate() << QDate();
        QTest::newRow("entre sin segunda") << "Entre" << QDate(2024, 1, 1) << QDate();
    }

    void filtroInvalido()
    {
        QFETCH(QString, operador);
        QFETCH(QDate, fecha1);
        QFETCH(QDate, fecha2);
        insertarProyecto("1", "2024-01-12", QVariant());
        const QString destino = copia(QStringLiteral("Plantilla_ListadoProyectos.xlsx"), QStringLiteral("Malo.xlsx"));
        const FiltroProyectos f{FiltroProyectos::Campo::FechaVisado, operador, fecha1, fecha2};
        QCOMPARE(escribirExcel(destino, QStringLiteral("PROYECTOS_A"), f), -1);
        QVERIFY(log().contains(QStringLiteral("Formulario: modExcel\r\nProcedimiento: escribirExcel\r\n")));
        QCOMPARE(m_cuadros.size(), 1);
        QCOMPARE(m_cuadros[0].titulo, QStringLiteral("Aviso"));
        QVERIFY(m_abiertos.isEmpty());
        QCOMPARE(entradasZip(destino), entradasZip(plantilla(QStringLiteral("Plantilla_ListadoProyectos.xlsx"))));
        QVERIFY(!BaseDatos::estaAbierta());
    }

    void tablaVacia()
    {
        const QString destino = copia(QStringLiteral("Plantilla_ListadoClientes.xlsx"), QStringLiteral("Vacio.xlsx"));
        QCOMPARE(escribirExcel(destino, QStringLiteral("CLIENTES")), 0);
        QFile a(destino), b(plantilla(QStringLiteral("Plantilla_ListadoClientes.xlsx")));
        QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
        QCOMPARE(a.readAll(), b.readAll());
        QCOMPARE(m_abiertos, QStringList{destino});
    }

    // Sin programa para abrirlo: el aviso de siempre; el fichero ya está completo.
    void sinHojaDeCalculo()
    {
        insertarPersona(QStringLiteral("CLIENTES"), {"", 0, "Ana"});
        m_resultadoAbrir = 31;
        const QString destino = copia(QStringLiteral("Plantilla_ListadoClientes.xlsx"), QStringLiteral("Sin.xlsx"));
        QCOMPARE(escribirExcel(destino, QStringLiteral("CLIENTES")), 1);
        QCOMPARE(m_cuadros.size(), 1);
        QCOMPARE(m_cuadros[0].titulo, QStringLiteral("Aviso"));
        QCOMPARE(m_cuadros[0].icono, Mensajes::Icono::Exclamacion);
        QCOMPARE(m_cuadros[0].texto,
                 QStringLiteral("No tiene instalado en su equipo Microsoft Excel, por lo que no se ha podido\n"
                                "crear el listado solicitado. Por favor, antes de generar de nuevo el listado instale Microsoft Excel"));
        QCOMPARE(log(), QString());
        QCOMPARE(leerCeldas(entradasZip(destino).value(HOJA)).value("A6"), texto("Ana"));

        // Cualquier otro fallo al abrirlo se anota
        m_cuadros.clear();
        m_resultadoAbrir = 2;
        QCOMPARE(escribirExcel(destino, QStringLiteral("CLIENTES")), 1);
        QVERIFY(log().contains(QStringLiteral("Procedimiento: escribirExcel\r\nLinea: 0\r\nNúmero: 2\r\n")));
    }

    void conTransaccionEnCurso()
    {
        BaseDatos::abrir();
        transaccionEnCurso = true;
        const QString destino = copia(QStringLiteral("Plantilla_ListadoClientes.xlsx"), QStringLiteral("Tr.xlsx"));
        QCOMPARE(escribirExcel(destino, QStringLiteral("CLIENTES")), 0);
        QVERIFY(BaseDatos::estaAbierta());
        transaccionEnCurso = false;
        BaseDatos::cerrar();
    }

    void copiar()
    {
        const QString destino = m_salida + QStringLiteral("/Viejo.xlsx");
        QFile viejo(destino);
        QVERIFY(viejo.open(QIODevice::WriteOnly));
        viejo.write("listado anterior");
        viejo.close();
        QVERIFY(copiarFicheroExcel(QStringLiteral("Plantilla_ListadoContratistas.xlsx"), destino));
        QCOMPARE(entradasZip(destino), entradasZip(plantilla(QStringLiteral("Plantilla_ListadoContratistas.xlsx"))));
        QVERIFY(m_cuadros.isEmpty());

        // Plantilla que falta y carpeta de destino que no existe: al registro, y false
        QVERIFY(!copiarFicheroExcel(QStringLiteral("NoExiste.xlsx"), m_salida + QStringLiteral("/Otro.xlsx")));
        QVERIFY(!QFile::exists(m_salida + QStringLiteral("/Otro.xlsx")));
        const QString sinCarpeta = m_salida + QStringLiteral("/no/hay/Listado.xlsx");
        QVERIFY(!copiarFicheroExcel(QStringLiteral("Plantilla_ListadoClientes.xlsx"), sinCarpeta));
        QVERIFY(!QFile::exists(sinCarpeta));
        QCOMPARE(log().count(QStringLiteral("Formulario: modExcel\r\nProcedimiento: copiarFicheroExcel\r\n")), 2);
        QCOMPARE(m_cuadros.size(), 2);

        // escribirExcel sobre un fichero que no está
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
        QVERIFY(copiarFicheroExcel(QStringLiteral("Plantilla_ListadoClientes.xlsx"), destino));
        const auto original = entradasZip(destino);

        // Sin privilegios basta quitar la escritura; como root, el atributo de inmutable
        const bool root = geteuid() == 0;
        auto bloquear = [&](bool si) {
            if (root)
                return QProcess::execute(QStringLiteral("chattr"), {si ? QStringLiteral("+i") : QStringLiteral("-i"), destino}) == 0;
            return QFile::setPermissions(carpeta, si ? QFile::ReadOwner | QFile::ExeOwner
                                                     : QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)
                   && QFile::setPermissions(destino, si ? QFile::ReadOwner : QFile::ReadOwner | QFile::WriteOwner);
        };
        if (!bloquear(true))
            QSKIP("No se puede bloquear el fichero en este sistema");
        const int filas = escribirExcel(destino, QStringLiteral("CLIENTES"));
        const bool copiado = copiarFicheroExcel(QStringLiteral("Plantilla_ListadoProyectos.xlsx"), destino);
        QVERIFY(bloquear(false));

        QCOMPARE(filas, -1);
        QVERIFY(!copiado);
        QVERIFY(m_abiertos.isEmpty());
        QVERIFY(log().contains(QStringLiteral("Procedimiento: escribirExcel\r\nLinea: 0\r\nNúmero: 75\r\n")));
        QVERIFY(log().contains(QStringLiteral("Procedimiento: copiarFicheroExcel\r\nLinea: 0\r\nNúmero: 75\r\n")));
        QCOMPARE(entradasZip(destino), original);
        QCOMPARE(QDir(carpeta).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("ListadoDeClientes.xlsx")});
    }

    // Con LibreOffice en la máquina: el libro se abre y da las mismas celdas.
    void abreEnLibreOffice()
    {
        const QString soffice = QStandardPaths::findExecutable(QStringLiteral("soffice"));
        if (soffice.isEmpty())
            QSKIP("LibreOffice no está instalado");
        {
            UsoConexion uso;
            insertar(QStringLiteral("PROYECTOS_A"),
                                {{"EXPNUM", "0042"}, {"Trabajo", "Reforma \"ático\", Logroño"}, {"CLINOM", "Peña & Cía"},
                                 {"EXPFV", "2024-03-15"}, {"EXPFFO", "2025-01-02"}});
        }
        // La plantilla tal cual y guardada de nuevo por LibreOffice (como si la retocara el estudio)
        const QString perfil = QStringLiteral("-env:UserInstallation=file://") + m_dir.filePath(QStringLiteral("perfil"));
        auto convertir = [&](const QString& filtro, const QString& carpeta, const QString& fichero) {
            QProcess p;
            p.start(soffice, {perfil, QStringLiteral("--headless"), QStringLiteral("--convert-to"), filtro,
                              QStringLiteral("--outdir"), carpeta, fichero});
            return p.waitForFinished(180000) && p.exitCode() == 0;
        };
        const QString retocadas = m_dir.filePath(QStringLiteral("retocadas"));
        QVERIFY(convertir(QStringLiteral("xlsx"), retocadas, plantilla(QStringLiteral("Plantilla_ListadoProyectos.xlsx"))));
        QFile::remove(plantilla(QStringLiteral("Plantilla_LO.xlsx")));
        QVERIFY(QFile::copy(retocadas + QStringLiteral("/Plantilla_ListadoProyectos.xlsx"), plantilla(QStringLiteral("Plantilla_LO.xlsx"))));

        for (const QString& p : {QStringLiteral("Plantilla_ListadoProyectos.xlsx"), QStringLiteral("Plantilla_LO.xlsx")}) {
            const QString destino = copia(p, QStringLiteral("Calc.xlsx"));
            QCOMPARE(escribirExcel(destino, QStringLiteral("PROYECTOS_A")), 1);
            QFile::remove(m_salida + QStringLiteral("/Calc.csv"));
            QVERIFY(convertir(QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1"), m_salida, destino));
            QFile csv(m_salida + QStringLiteral("/Calc.csv"));
            QVERIFY(csv.open(QIODevice::ReadOnly));
            const QStringList lineas = QString::fromUtf8(csv.readAll()).split(u'\n');
            // Los textos salen entre comillas; números y fechas, tal como se ven
            QCOMPARE(lineas.value(0), QStringLiteral("\"Listado de proyectos\",,,,,,,,"));
            QCOMPARE(lineas.value(1), QStringLiteral("\"PLANORUM MIRVADE\",,,,,,,,"));
            QCOMPARE(lineas.value(4), QStringLiteral("\"Nº expediente\",\"Referencia\",\"Trabajo\",\"Emplazamiento\",\"Municipio\","
                                                     "\"Provincia\",\"Cliente\",\"Fecha de visado\",\"Fecha fin de obra\""));
            QCOMPARE(lineas.value(5),
                     QStringLiteral("\"0042\",,\"Reforma \"\"ático\"\", Logroño\",,,,\"Peña & Cía\",15/03/2024,02/01/2025"));
        }
    }

    void cleanupTestCase()
    {
        Mensajes::instalarContestador({});
        Sistema::instalarAbridor({});
    }
};

QTEST_MAIN(TstExcel)
#include "tst_excel.moc"
