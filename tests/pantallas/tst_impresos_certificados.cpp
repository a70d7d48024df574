// Certificado libre y certificado fin de obra por sus pantallas: el arquitecto y su domicilio, el
// texto largo en varias páginas, las listas de personas cortadas a 255, la fecha fin de obra del
// proyecto, los cuatro diseños y el impreso en blanco de la lista.
#include "forms/frmDatosImpreso_Certificado.h"
#include "forms/frmSeleccionarTipoCertificado.h"
#include "reports/DisenoInforme.h"
#include "reports/TablasTemporales.h"
#include "reports/frmVisorCrystal.h"
#include "search/AbrirBusqueda.h"
#include "search/frmBuscar.h"
#include "tests/pantallas/PruebaImpresos.h"

#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

using namespace impresos;

namespace {

const Impreso CERTIFICADO{QStringLiteral("DATOSCERTIFICADO")}, FIN_OBRA{QStringLiteral("DATOSFINOBRA")};
const QString CFO = QStringLiteral("Certificado final de la dirección de obra");
const QString AVISO_APANOM = QStringLiteral(
    "Los nombres de los arquitectos técnicos exceden del máximo número de caracteres admitidos en la base de datos.\n"
    "Los nombres de los arquitectos técnicos aparecerán cortados hasta el máximo número admitido");

// Una persona de OTROS.
void otros(int codigo, const char* categoria, const QVariant& nombre, const QVariant& apellidos, const QVariant& numero = {},
           const QVariantList& domicilio = {QVariant(), QVariant(), QVariant(), QVariant(), QVariant()})
{
    sql(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Colegio, Nombre_Cli, Ape_Cli, Dirección_Cli, cp, "
                       "Municipio_Cli, Provincia_Cli, NIF) VALUES (?, ?, 0, ?, 'COA Aragón', ?, ?, ?, ?, ?, ?, ?)"),
        QVariantList{codigo, QString::fromUtf8(categoria), numero, nombre, apellidos} + domicilio);
}

qint64 proyecto(const QVariant& finObra = {})
{
    UsoConexion uso;
    insertar("Proyectos_A", {{"EXPNUM", "2008/1"}, {"Trabajo", "Vivienda unifamiliar"}, {"Emplazamiento", "C/ Alta 1"},
                             {"Municipio", "Villanueva"}, {"Provincia", "Huesca"}, {"Codigo_Cliente", 1}, {"EXPFFO", finObra}});
    return ultimoIdentificador();
}

// Personas del proyecto: aparejadores, constructores, arquitectos y autores por sus códigos.
void asignar(qint64 pry, const QList<int>& apa, const QList<int>& con, const QList<int>& arq, const QList<int>& aut)
{
    for (int c : apa)
        sql(QStringLiteral("INSERT INTO Aparejadores_Proyecto (PryCod, Codigo_Apa) VALUES (?, ?)"), {pry, c});
    for (int c : con)
        sql(QStringLiteral("INSERT INTO Constructores_Proyecto (PryCod, Codigo_Cons) VALUES (?, ?)"), {pry, c});
    for (int c : arq)
        sql(QStringLiteral("INSERT INTO Arquitectos_Proyecto (PryCod, Codigo_Arq, NumCol, EsPropiaSociedad) VALUES (?, ?, ?, 0)"),
            {pry, c, QString::number(c)});
    for (int c : aut)
        sql(QStringLiteral("INSERT INTO Autores_Proyecto (PryCod, Codigo_Arq) VALUES (?, ?)"), {pry, c});
}

// Abre el selector de la pantalla y elige en él la fila de ese código.
void elegirEnSelector(QWidget* f, qint64 codigo)
{
    control<QToolButton>(f, QStringLiteral("img_Buscar"))->click();
    QVERIFY(elegir(codigo));
}

// Lo que se vio del diálogo de los diseños y cómo se contestó.
struct Diseno {
    int opcion = 0;  // -1: "&Cancelar"
    bool visto = false;
    QString claveRetorno = {};
    int porDefecto = -1;
};

// Contesta el diálogo de los diseños en cuanto se abra (es modal: se contesta desde el bucle que abre).
void contestarDiseno(QObject* dueno, Diseno* d)
{
    auto* reloj = new QTimer(dueno);
    QObject::connect(reloj, &QTimer::timeout, reloj, [reloj, d] {
        auto* f = Pantallas::cargada<frmSeleccionarTipoCertificado>();
        if (!f || !f->isVisible())
            return;
        reloj->stop();
        d->visto = true;
        d->claveRetorno = f->ClaveRetorno;
        d->porDefecto = f->opcionElegida();
        if (d->opcion < 0) {
            control<QPushButton>(f, QStringLiteral("cmd_Cerrar"))->click();
            return;
        }
        control<QRadioButton>(f, QStringLiteral("opt_Impreso_%1").arg(d->opcion))->setChecked(true);
        control<QPushButton>(f, QStringLiteral("cmd_Imprimir"))->click();
    });
    reloj->start(5);
}

QString tituloVisor()
{
    frmVisorCrystal* v = Pantallas::cargada<frmVisorCrystal>();
    return v ? v->windowTitle() : QString();
}

// Un certificado fin de obra nuevo del proyecto, con sus dos lugares de expedición y la fecha.
DatosImpreso* finObra(qint64 pry, const QString& lugarApa = QStringLiteral("Jaca"), const QString& lugarArq = QStringLiteral("Huesca"))
{
    DatosImpreso* f = abrir(FIN_OBRA, QStringLiteral("ALTA"));
    elegirProyecto(f, pry);
    escribir(f, "txt_Apa_Demarcacion", QStringLiteral("Huesca"));
    escribir(f, "txt_Apa_LugarExpedicion", lugarApa);
    escribir(f, "txt_Arq_Demarcacion", QStringLiteral("Alto Aragón"));
    escribir(f, "txt_Arq_LugarExpedicion", lugarArq);
    escribir(f, "txt_Fecha", QStringLiteral("5 de mayo de 2008"));
    return f;
}

const QStringList LISTAS = {"APACOL", "APANOM", "CONNOM", "ARQSNOM", "ARQSCOL", "AUTOR"};

}  // namespace

class tst_impresos_certificados : public PruebaImpresos {
    Q_OBJECT

    // Los relojes que contestan los diálogos de un caso: se van con él, antes de cerrar sus pantallas.
    std::unique_ptr<QObject> m_relojes = std::make_unique<QObject>();
    void terminarCaso() override { m_relojes = std::make_unique<QObject>(); }

    // Estudio en Villanueva, dos arquitectos, dos arquitectos técnicos, un constructor y una clienta.
    void poblar() override
    {
        sql(QStringLiteral("DELETE FROM Config"));
        sql(QStringLiteral("INSERT INTO Config (Municipio, SocNom, IVA, IRPF) VALUES ('Villanueva', 'Estudio Norte SLP', 21, 15)"));
        sql(QStringLiteral("INSERT INTO Clientes (Codigo_Cli, Nombre_Cli, Ape_Cli, esR) VALUES (1, 'Lucía', 'Ferrer Gil', -1)"));
        otros(11, "Arquitecto", "Ana", "Ruiz", 11,
              {QStringLiteral("C/ Mayor 3"), QStringLiteral("22700"), QStringLiteral("Jaca"), QStringLiteral("Huesca"), QStringLiteral("12345678Z")});
        otros(12, "ARQUITECTO", "Luis", "Gil", 12);
        otros(21, "Arquitecto Tecnico", "Eva", "Sanz", 22);
        otros(22, "ARQUITECTO TECNICO", "Pablo", "Ortega", 23);
        otros(31, "CONSTRUCTOR", "Obras Duero SA", QVariant());
    }

private slots:
    // ------------------------------------------------------------------ certificado libre

    // El domicilio une lo que no es nulo tras ", ": sin dirección empieza por la coma.
    void certificadoDomicilio_data()
    {
        QTest::addColumn<QVariantList>("domicilio");  // dirección, cp, municipio, provincia, NIF
        QTest::addColumn<QString>("direccion");
        QTest::addColumn<QString>("nif");
        QTest::newRow("completo") << QVariantList{"C/ Mayor 3", "22700", "Jaca", "Huesca", "12345678Z"} << "C/ Mayor 3, 22700, Jaca, Huesca"
                                  << "12345678Z";
        QTest::newRow("sin dirección") << QVariantList{QVariant(), "22700", "Jaca", "Huesca", "12345678Z"} << ", 22700, Jaca, Huesca"
                                       << "12345678Z";
        QTest::newRow("sólo el municipio") << QVariantList{QVariant(), QVariant(), "Jaca", QVariant(), QVariant()} << ", Jaca" << "";
        QTest::newRow("nada") << QVariantList{QVariant(), QVariant(), QVariant(), QVariant(), QVariant()} << "" << "";
    }
    void certificadoDomicilio()
    {
        QFETCH(QVariantList, domicilio);
        QFETCH(QString, direccion);
        QFETCH(QString, nif);
        otros(40, "ARQUITECTO", "Marta", "Vidal", 4040, domicilio);
        DatosImpreso* f = abrir(CERTIFICADO, QStringLiteral("ALTA"));
        elegirEnSelector(f, 40);
        control<QPlainTextEdit>(f, QStringLiteral("txt_Texto"))->setPlainText(QStringLiteral("  Que la obra está terminada.  "));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList());
        const auto c = filas(QStringLiteral("SELECT * FROM CERTIFICADO"));
        QCOMPARE(c.size(), 1);
        QCOMPARE(columnas(c[0], {"CodArq", "NomArq", "NumColegiado", "Colegio", "NIF", "Direccion", "Texto", "Lugar"}),
                 (QStringList{"40", "Marta Vidal", "4040", "COA Aragón", nif, direccion, "Que la obra está terminada.", "Villanueva"}));
        const auto h = filas(QStringLiteral("SELECT * FROM datosCERTIFICADO"));
        QCOMPARE(h.size(), 1);
        QCOMPARE(columnas(h[0], {"CodArq", "NomArq", "Texto", "Lugar", "Fecha"}),
                 (QStringList{"40", "Marta Vidal", "Que la obra está terminada.", "Villanueva", Formato::fechaPie(QDate::currentDate())}));
        // Un certificado nuevo vive hasta su vista previa: se cierra y se abre su lista.
        QVERIFY(!cargada("frmDatosImpreso_Certificado"));
        QCOMPARE(Pantallas::cargada<frmBuscar>()->Tabla, QStringLiteral("DATOSCERTIFICADO"));
        QCOMPARE(tituloVisor(), QStringLiteral("Certificado"));
        QCOMPARE(modInformes::Informe->nombre(), QStringLiteral("crCertificado"));
    }

    // Al reabrirlo, el nombre sale del arquitecto, no de la copia guardada; si ya no está, vacío.
    void certificadoReabierto_data()
    {
        QTest::addColumn<int>("codigo");
        QTest::addColumn<QString>("nombre");
        QTest::newRow("arquitecto que sigue") << 11 << "Ana Ruiz";
        QTest::newRow("arquitecto borrado") << 99 << "";
    }
    void certificadoReabierto()
    {
        QFETCH(int, codigo);
        QFETCH(QString, nombre);
        sql(QStringLiteral("INSERT INTO datosCERTIFICADO (CodArq, NomArq, Texto, Lugar, Fecha) VALUES (?, 'Nombre de antes', 'Texto', 'Jaca', 'hoy')"),
            {codigo});
        DatosImpreso* f = abrir(CERTIFICADO, QStringLiteral("MODIFICAR"), 1);
        QCOMPARE(control<QLineEdit>(f, QStringLiteral("txt_NomArq"))->text(), nombre);
        QCOMPARE(control<QPlainTextEdit>(f, QStringLiteral("txt_Texto"))->toPlainText(), QStringLiteral("Texto"));
        Pantallas::descargar(f);  // recién cargado: nada que preguntar
        QCOMPARE(m_e->textos(), QStringList());
    }

    // Un texto de 20.000 caracteres sigue en varias páginas, entero y en orden, y la firma va detrás.
    void certificadoLargo()
    {
        // Párrafos de cien palabras hasta 20.000 caracteres justos.
        QString texto;
        for (int i = 0; texto.size() < 20000; ++i)
            texto += (i == 0 ? QString() : i % 100 == 0 ? QStringLiteral("\n") : QStringLiteral(" ")) + QStringLiteral("palabra%1").arg(i);
        texto.truncate(20000);
        DatosImpreso* f = abrir(CERTIFICADO, QStringLiteral("ALTA"));
        escribir(f, "txt_CodArq", QStringLiteral("11"));
        escribir(f, "txt_NomArq", QStringLiteral("Ana Ruiz"));
        control<QPlainTextEdit>(f, QStringLiteral("txt_Texto"))->setPlainText(texto);
        imprimir(f);
        QCOMPARE(t(filas(QStringLiteral("SELECT * FROM CERTIFICADO"))[0], "Texto").size(), texto.size());
        DocumentoInforme& d = *modInformes::Informe;
        QVERIFY2(d.numeroPaginas() >= 4, qPrintable(QString::number(d.numeroPaginas())));
        // Las líneas del texto, de todas las páginas, dan el texto entero; ninguna pasa del pie.
        const double limite = d.diseno().tamanoPapel().height() - d.diseno().margenes.bottom() - d.diseno().piePagina.alto;
        QStringList leidas;
        double finTexto = 0;
        for (int p = 0; p < d.numeroPaginas(); ++p)
            for (const TrazoInforme& tr : d.pagina(p).trazos)
                if (tr.tipo == TrazoInforme::Texto && tr.texto.startsWith(QStringLiteral("pal"))) {
                    QVERIFY(tr.rect.bottom() <= limite + 1e-6);
                    leidas << tr.texto;
                    if (p == d.numeroPaginas() - 1)
                        finTexto = tr.rect.bottom();
                }
        QCOMPARE(leidas.join(' ').simplified(), QString(texto).simplified());
        // El pie del certificado, en la última página y tras el texto.
        bool firma = false;
        for (const TrazoInforme& tr : d.pagina(d.numeroPaginas() - 1).trazos)
            if (tr.tipo == TrazoInforme::Texto && tr.texto == QStringLiteral("EL ARQUITECTO"))
                firma = tr.rect.top() > finTexto;
        QVERIFY(firma);
        // El PDF lleva las mismas páginas.
        const QString pdf = m_e->directorio() + QStringLiteral("/certificado.pdf");
        QVERIFY(modInformes::exportarPDF(pdf));
        QVERIFY(QFileInfo(pdf).size() > 0);
    }

    // Más de 65.000 caracteres: se quita lo que sobra de lo añadido, con aviso y entrada en el registro.
    void textoLimitado()
    {
        DatosImpreso* f = abrir(CERTIFICADO, QStringLiteral("ALTA"));
        auto* txt = control<QPlainTextEdit>(f, QStringLiteral("txt_Texto"));
        txt->setPlainText(QString(64990, QLatin1Char('a')) + QStringLiteral("FIN"));
        QTextCursor c = txt->textCursor();
        c.setPosition(5);
        txt->setTextCursor(c);
        const int entradas = m_e->entradasLog();
        txt->insertPlainText(QString(20, QLatin1Char('b')));
        procesarEventos();
        const QString r = txt->toPlainText();
        QCOMPARE(r.size(), frmDatosImpreso_Certificado::MAXIMO_TEXTO);
        QCOMPARE(r.mid(5, 12), QString(7, QLatin1Char('b')) + QString(5, QLatin1Char('a')));
        QVERIFY(r.endsWith(QStringLiteral("FIN")));
        QCOMPARE(m_e->textos(), QStringList{frmDatosImpreso_Certificado::AVISO_TEXTO_LARGO});
        QCOMPARE(m_e->entradasLog(), entradas + 1);
    }

    // El arquitecto borrado después de elegirlo: su aviso, histórico guardado, certificado vacío.
    void arquitectoNoHallado()
    {
        DatosImpreso* f = abrir(CERTIFICADO, QStringLiteral("ALTA"));
        escribir(f, "txt_CodArq", QStringLiteral("99"));
        escribir(f, "txt_NomArq", QStringLiteral("Nadie"));
        imprimir(f);
        QCOMPARE(m_e->textos(), QStringList{"No se han podido cargar los datos del arquitecto emisor del certificado"});
        QCOMPARE(filas(QStringLiteral("SELECT * FROM datosCERTIFICADO")).size(), 1);
        QVERIFY(filas(QStringLiteral("SELECT * FROM CERTIFICADO")).isEmpty());
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);
    }

    // ------------------------------------------------------------------ certificado fin de obra

    // Cada lista: entera hasta 255 caracteres, con su separador; más, su par de avisos una vez y
    // los primeros 255 aunque corten un nombre.
    void listas_data()
    {
        QTest::addColumn<int>("aparejadores");  // cuántos de nombre largo (además de los dos de siempre)
        QTest::addColumn<bool>("conPersonas");
        QTest::addColumn<QStringList>("esperado");  // APACOL, APANOM, CONNOM, ARQSNOM, ARQSCOL, AUTOR
        QTest::addColumn<QStringList>("avisos");
        QTest::newRow("nada asignado") << 0 << false << QStringList(6, QString()) << QStringList();
        QTest::newRow("unos pocos") << 0 << true
                                    << QStringList{"22,23", "Eva Sanz, Pablo Ortega", "Obras Duero SA", "Ana Ruiz, Luis Gil", "11, 12",
                                                   "Luis Gil"}
                                    << QStringList();
        QTest::newRow("veinte de nombre largo") << 20 << false << QStringList() << QStringList{AVISO_APANOM};
    }
    void listas()
    {
        QFETCH(int, aparejadores);
        QFETCH(bool, conPersonas);
        QFETCH(QStringList, esperado);
        QFETCH(QStringList, avisos);
        const qint64 pry = proyecto();
        QStringList nombres, numeros;
        for (int i = 0; i < aparejadores; ++i) {
            const QString ape = QStringLiteral("Fernández de Córdoba y Ximénez de Sandoval %1").arg(i, 2, 10, QLatin1Char('0'));
            otros(100 + i, "ARQUITECTO TECNICO", "María Dolores", ape, 5000 + i);
            asignar(pry, {100 + i}, {}, {}, {});
            nombres << QStringLiteral("María Dolores ") + ape;
            numeros << QString::number(5000 + i);
        }
        if (!nombres.isEmpty()) {
            const QString entero = nombres.join(QStringLiteral(", "));
            // El corte cae dentro de un nombre, no en un separador.
            QVERIFY(entero.at(254).isLetterOrNumber() && entero.at(255).isLetterOrNumber());
            esperado = QStringList{numeros.join(','), entero.left(255), "", "", "", ""};
        }
        if (conPersonas)
            asignar(pry, {21, 22}, {31}, {11, 12, 99}, {12});  // el 99 ya no está en OTROS: no cuenta
        DatosImpreso* f = finObra(pry);
        Diseno d;
        contestarDiseno(m_relojes.get(), &d);
        imprimir(f);
        QVERIFY(d.visto);
        QCOMPARE(m_e->textos(), avisos);
        const auto r = filas(QStringLiteral("SELECT * FROM FinObra"));
        QCOMPARE(r.size(), 1);
        QCOMPARE(columnas(r[0], LISTAS), esperado);
        QCOMPARE(columnas(r[0], {"PRYNOM", "PRYDOM", "PRYMUN", "CLIPRO", "CLINOM"}),
                 (QStringList{"Vivienda unifamiliar", "C/ Alta 1", "Villanueva", "Huesca", "Lucía Ferrer Gil"}));
    }

    // El lugar de expedición lleva la fecha detrás; sin lugar queda vacío aunque haya fecha.
    void lugarDeExpedicion_data()
    {
        QTest::addColumn<QString>("lugarApa");
        QTest::addColumn<QString>("lugarArq");
        QTest::addColumn<QStringList>("esperado");  // APADEM, LUGAR1, ARQDEM, LUGAR2, FECHA
        QTest::newRow("los dos") << "  Jaca " << "Huesca"
                                 << QStringList{"Huesca", "Jaca, a 5 de mayo de 2008", "Alto Aragón", "Huesca, a 5 de mayo de 2008",
                                                "5 de mayo de 2008"};
        QTest::newRow("sin lugar del aparejador") << "" << "Huesca"
                                                  << QStringList{"Huesca", "", "Alto Aragón", "Huesca, a 5 de mayo de 2008", "5 de mayo de 2008"};
    }
    void lugarDeExpedicion()
    {
        QFETCH(QString, lugarApa);
        QFETCH(QString, lugarArq);
        QFETCH(QStringList, esperado);
        DatosImpreso* f = finObra(proyecto(), lugarApa, lugarArq);
        QVERIFY(!f->findChild<QLineEdit*>(QStringLiteral("txt_Lugar")));
        Diseno d;
        contestarDiseno(m_relojes.get(), &d);
        imprimir(f);
        QCOMPARE(columnas(filas(QStringLiteral("SELECT * FROM FinObra"))[0], {"APADEM", "LUGAR1", "ARQDEM", "LUGAR2", "FECHA"}), esperado);
        // En el histórico, el lugar tal cual, sin la fecha.
        QCOMPARE(t(filas(QStringLiteral("SELECT * FROM datosFinObra"))[0], "LUGAR1"), lugarApa.trimmed());
    }

    // La fecha fin de obra del proyecto se escribe una vez, sólo si no tenía, y nunca se pisa.
    void fechaFinDelProyecto_data()
    {
        QTest::addColumn<QVariant>("antes");
        QTest::addColumn<QString>("primera");
        QTest::addColumn<QString>("segunda");
        QTest::addColumn<QVariant>("despues");
        QTest::addColumn<bool>("alSalir");  // guardado con el "Sí" de la pregunta al salir
        QTest::newRow("sin fecha") << QVariant() << "12/05/2008" << "01/06/2009" << QVariant("2008-05-12") << false;
        QTest::newRow("sin fecha, al salir") << QVariant() << "12/05/2008" << "01/06/2009" << QVariant("2008-05-12") << true;
        QTest::newRow("con fecha") << QVariant("2007-01-01") << "12/05/2008" << "01/06/2009" << QVariant("2007-01-01") << false;
        QTest::newRow("campo vacío") << QVariant() << "" << "" << QVariant() << false;
        QTest::newRow("vacío y luego fecha") << QVariant() << "" << "01/06/2009" << QVariant("2009-06-01") << false;
    }
    void fechaFinDelProyecto()
    {
        QFETCH(QVariant, antes);
        QFETCH(QString, primera);
        QFETCH(QString, segunda);
        QFETCH(QVariant, despues);
        QFETCH(bool, alSalir);
        const qint64 pry = proyecto(antes);
        DatosImpreso* f = finObra(pry);
        escribir(f, "msk_FechaFinObra", primera);
        Diseno d{.opcion = -1};
        if (alSalir) {
            m_e->respuestas << Respuesta::Si;
            Pantallas::descargar(f);
        } else {
            contestarDiseno(m_relojes.get(), &d);
            imprimir(f);
        }
        procesarEventos();
        const auto h = filas(QStringLiteral("SELECT * FROM datosFinObra"));
        QCOMPARE(h.size(), 1);
        QCOMPARE(h[0].value("FFIN").isNull(), primera.isEmpty());
        f = abrir(FIN_OBRA, QStringLiteral("MODIFICAR"), h[0].value("Clave").toLongLong());
        escribir(f, "msk_FechaFinObra", segunda);
        Diseno d2{.opcion = -1};
        contestarDiseno(m_relojes.get(), &d2);
        imprimir(f);
        const QVariant fecha = filas(QStringLiteral("SELECT EXPFFO FROM Proyectos_A WHERE PryCod = ?"), {pry})[0].value("EXPFFO");
        QCOMPARE(fecha.isNull(), despues.isNull());
        QCOMPARE(fecha.toString(), despues.toString());
    }

    // La fecha de la licencia no se carga ni entra en la copia; el siguiente guardado la sustituye.
    void fechaLicencia()
    {
        const qint64 pry = proyecto();
        sql(QStringLiteral("INSERT INTO datosFinObra (PRYNOM, PRYCOD, APADEM, LUGAR1, FFIN, FECHALICENCIA, FECHA, TIPODOC) "
                           "VALUES ('Vivienda unifamiliar', ?, 'Huesca', 'Jaca', '2008-05-12', '2008-01-10', 'hoy', 'CFO')"),
            {pry});
        DatosImpreso* f = abrir(FIN_OBRA, QStringLiteral("MODIFICAR"), 1);
        QCOMPARE(control<QLineEdit>(f, QStringLiteral("msk_FechaFinObra"))->displayText(), QStringLiteral("12/05/2008"));
        QCOMPARE(control<QLineEdit>(f, QStringLiteral("msk_FechaLicenciaObras"))->displayText(), FECHA_VACIA);
        QCOMPARE(control<QLineEdit>(f, QStringLiteral("txt_Apa_LugarExpedicion"))->text(), QStringLiteral("Jaca"));
        escribir(f, "msk_FechaLicenciaObras", QStringLiteral("20/02/2008"));
        QVERIFY(!f->hayCambios());
        escribir(f, "msk_FechaLicenciaObras", QString());
        Diseno d{.opcion = -1};
        contestarDiseno(m_relojes.get(), &d);
        imprimir(f);
        QVERIFY(filas(QStringLiteral("SELECT FECHALICENCIA FROM datosFinObra"))[0].value("FECHALICENCIA").isNull());
    }

    // Los cuatro diseños con sus títulos; el cuarto deja el título que tuviera el visor.
    void disenos_data()
    {
        QTest::addColumn<int>("antes");  // diseño impreso antes con el mismo impreso (-1: ninguno)
        QTest::addColumn<int>("opcion");
        QTest::addColumn<QString>("informe");
        QTest::addColumn<QString>("titulo");
        QTest::newRow("conjunto") << -1 << 0 << "crImpresoCFO" << CFO;
        QTest::newRow("sólo arquitecto") << -1 << 1 << "crImpresoCFO_2" << CFO;
        QTest::newRow("legalización conjunto") << -1 << 2 << "crImpresoCFO_4" << CFO + " (Legalización)";
        QTest::newRow("legalización sólo arquitecto tras otro título") << 2 << 3 << "crImpresoCFO_3" << CFO + " (Legalización)";
        QTest::newRow("legalización sólo arquitecto tras el conjunto") << 0 << 3 << "crImpresoCFO_3" << CFO;
        QTest::newRow("legalización sólo arquitecto sin visor") << -1 << 3 << "crImpresoCFO_3" << "Vista preliminar";
    }
    void disenos()
    {
        QFETCH(int, antes);
        QFETCH(int, opcion);
        QFETCH(QString, informe);
        QFETCH(QString, titulo);
        const qint64 pry = proyecto();
        asignar(pry, {21}, {31}, {11, 12}, {11});
        sql(QStringLiteral("INSERT INTO datosFinObra (PRYNOM, PRYCOD, TIPODOC) VALUES ('Vivienda unifamiliar', ?, 'CFO')"), {pry});
        DatosImpreso* f = abrir(FIN_OBRA, QStringLiteral("MODIFICAR"), 1);
        escribir(f, "txt_Fecha", QStringLiteral("5 de mayo de 2008"));
        escribir(f, "msk_FechaFinObra", QStringLiteral("12/05/2008"));
        if (antes >= 0) {
            Diseno d{.opcion = antes};
            contestarDiseno(m_relojes.get(), &d);
            imprimir(f);
        }
        Diseno d{.opcion = opcion};
        contestarDiseno(m_relojes.get(), &d);
        imprimir(f);
        QVERIFY(d.visto);
        QCOMPARE(d.claveRetorno, QStringLiteral("FRMDATOSIMPRESO_CERTIFICADOFINOBRA"));
        QCOMPARE(d.porDefecto, 0);
        QCOMPARE(modInformes::Informe->nombre(), informe);
        QCOMPARE(tituloVisor(), titulo);
        QVERIFY(cargada("frmDatosImpreso_CertificadoFinObra") && !Pantallas::cargada<frmBuscar>());
        // El código de detalle de la familia: localidad unida, autores copiados, "Arquitectos" por la lista.
        const QStringList textos = textosInforme();
        for (const char* esperado : {"Villanueva - Huesca", "Ana Ruiz", "Ana Ruiz, Luis Gil, Arquitectos", "12/05/2008"})
            QVERIFY2(textos.contains(QString::fromUtf8(esperado)), esperado);
        QCOMPARE(textos.contains(QStringLiteral("Eva Sanz")), opcion == 0 || opcion == 2);  // firma del aparejador
    }

    // "&Cancelar" deja guardado el impreso sin informe; un impreso nuevo se cierra y abre su lista.
    void aceptarOCancelar_data()
    {
        QTest::addColumn<int>("opcion");
        QTest::newRow("aceptar") << 0;
        QTest::newRow("cancelar") << -1;
    }
    void aceptarOCancelar()
    {
        QFETCH(int, opcion);
        DatosImpreso* f = finObra(proyecto());
        Diseno d{.opcion = opcion};
        contestarDiseno(m_relojes.get(), &d);
        imprimir(f);
        QVERIFY(d.visto);
        QCOMPARE(filas(QStringLiteral("SELECT * FROM datosFinObra")).size(), 1);
        QCOMPARE(t(filas(QStringLiteral("SELECT * FROM datosFinObra"))[0], "TIPODOC"), QStringLiteral("CFO"));
        QCOMPARE(filas(QStringLiteral("SELECT * FROM FinObra")).size(), 1);
        QCOMPARE(Pantallas::cargada<frmVisorCrystal>() != nullptr, opcion >= 0);
        QVERIFY(!cargada("frmDatosImpreso_CertificadoFinObra"));
        auto* lista = Pantallas::cargada<frmBuscar>();
        QVERIFY(lista);
        QCOMPARE(lista->Tabla + "|" + lista->TipoImpreso + "|" + lista->windowTitle(),
                 QStringLiteral("DATOSFINOBRA|FINOBRA|Impresos encontrados de la categoría 'Certificado Fin de obra'"));
        QVERIFY(!BaseDatos::estaAbierta() && !transaccionEnCurso);
    }

    // El impreso en blanco de la lista pasa por el mismo diálogo con "FRMBUSCAR": vacía FinObra y
    // enseña el diseño elegido sin datos ni separadores sueltos; cancelar no toca nada.
    void impresoEnBlanco_data()
    {
        QTest::addColumn<int>("opcion");
        QTest::addColumn<QString>("informe");
        QTest::addColumn<QString>("titulo");
        QTest::newRow("conjunto") << 0 << "crImpresoCFO" << CFO;
        QTest::newRow("legalización sólo arquitecto") << 3 << "crImpresoCFO_3" << "Vista preliminar";
        QTest::newRow("cancelar") << -1 << "" << "";
    }
    void impresoEnBlanco()
    {
        QFETCH(int, opcion);
        QFETCH(QString, informe);
        QFETCH(QString, titulo);
        {
            UsoConexion uso;
            TablasTemporales::insertar(QStringLiteral("FinObra"), {{QStringLiteral("PRYNOM"), QStringLiteral("de antes")}, {QStringLiteral("ARQSNOM"), QStringLiteral("Ana Ruiz")}});
        }
        QVERIFY(abrirListaImpreso(QStringLiteral("mnu_CertificadoFinObra")));
        Diseno d{.opcion = opcion};
        contestarDiseno(m_relojes.get(), &d);
        Pantallas::cargada<frmBuscar>()->tlb_BotoneraExportar_ButtonClick(4);
        procesarEventos();
        QVERIFY(d.visto);
        QCOMPARE(d.claveRetorno, QStringLiteral("FRMBUSCAR"));
        QCOMPARE(filas(QStringLiteral("SELECT * FROM FinObra")).size(), opcion < 0 ? 1 : 0);
        QCOMPARE(m_e->textos(), QStringList());
        if (opcion < 0) {
            QVERIFY(!Pantallas::cargada<frmVisorCrystal>());
            return;
        }
        QCOMPARE(modInformes::Informe->nombre(), informe);
        QCOMPARE(tituloVisor(), titulo);
        QCOMPARE(modInformes::Informe->numeroPaginas(), 1);
        for (const QString& tx : textosInforme())
            QVERIFY2(tx.trimmed() != QLatin1String("-") && !tx.contains(QLatin1String(", Arquitecto")), qPrintable(tx));
    }

    // El proyecto elegido trae su fecha fin de obra; si no tiene, la escrita se queda.
    void proyectoElegido_data()
    {
        QTest::addColumn<QVariant>("finObra");
        QTest::addColumn<QString>("escrita");
        QTest::addColumn<QString>("esperada");
        QTest::newRow("con fecha") << QVariant("2008-05-12") << "01/01/2008" << "12/05/2008";
        QTest::newRow("sin fecha") << QVariant() << "01/01/2008" << "01/01/2008";
    }
    void proyectoElegido()
    {
        QFETCH(QVariant, finObra);
        QFETCH(QString, escrita);
        QFETCH(QString, esperada);
        const qint64 pry = proyecto(finObra);
        DatosImpreso* f = abrir(FIN_OBRA, QStringLiteral("ALTA"));
        escribir(f, "msk_FechaFinObra", escrita);
        elegirEnSelector(f, pry);
        QCOMPARE(textos(f, {"txt_CodProyecto", "txt_Proyecto"}), (QStringList{QString::number(pry), "Vivienda unifamiliar"}));
        QCOMPARE(control(f, QStringLiteral("msk_FechaFinObra"))->displayText(), esperada);
    }

    // ------------------------------------------------------------------ campo que crece

    // Lo de encima del final del campo se queda; lo de debajo va tras el texto, que sigue en la
    // página siguiente; los renglones en blanco cuentan.
    void campoQueCrece_data()
    {
        QTest::addColumn<int>("renglones");
        QTest::addColumn<int>("paginas");
        QTest::addColumn<bool>("pieMovido");
        QTest::newRow("cabe") << 2 << 1 << false;
        QTest::newRow("crece en la página") << 20 << 1 << true;
        QTest::newRow("pasa de página") << 100 << 2 << true;
    }
    void campoQueCrece()
    {
        QFETCH(int, renglones);
        QFETCH(int, paginas);
        QFETCH(bool, pieMovido);
        const QByteArray xml = R"(<informe nombre="prueba" tipo="impreso" fuente="Liberation Sans" tamano="10">
            <pagina tamano="A4" margenes="10 10 10 10"/>
            <cabeceraPagina alto="10"><texto x="0" y="0" ancho="100" alto="5">CABECERA</texto></cabeceraPagina>
            <detalle alto="60">
              <texto x="0" y="0" ancho="100" alto="5">ENCIMA</texto>
              <campo campo="T" x="0" y="10" ancho="190" alto="20" crecer="true"/>
              <texto x="0" y="40" ancho="100" alto="5">DEBAJO</texto>
            </detalle>
          </informe>)";
        DocumentoInforme d(leerDisenoXml(xml));
        QStringList lineas;
        for (int i = 0; i < renglones; ++i)
            lineas << (i == 1 ? QString() : QStringLiteral("renglón %1").arg(i));
        d.asignarDatos(ConjuntoFilas({QStringLiteral("T")}, QList<QVariantList>{QVariantList{QVariant(lineas.join('\n'))}}));
        QCOMPARE(d.numeroPaginas(), paginas);
        QList<double> ys;
        double encima = -1, debajo = -1, ultimo = 0;
        int cabeceras = 0, pagDebajo = -1;
        for (int p = 0; p < d.numeroPaginas(); ++p)
            for (const TrazoInforme& tr : d.pagina(p).trazos) {
                if (tr.texto == QLatin1String("CABECERA"))
                    ++cabeceras;
                else if (tr.texto == QLatin1String("ENCIMA"))
                    encima = tr.rect.top();
                else if (tr.texto == QLatin1String("DEBAJO"))
                    debajo = tr.rect.top(), pagDebajo = p;
                else if (tr.texto.startsWith(QStringLiteral("renglón"))) {
                    ys << tr.rect.top();
                    if (p == d.numeroPaginas() - 1)
                        ultimo = tr.rect.bottom();
                }
            }
        QCOMPARE(cabeceras, paginas);
        QCOMPARE(ys.size(), renglones - 1);  // el renglón en blanco no dibuja nada, pero ocupa su sitio
        QCOMPARE(encima, 20.0);              // margen y cabecera
        QCOMPARE(pagDebajo, paginas - 1);
        // Lo de debajo, a la distancia que tenía del final del campo; si el texto no llega, en su sitio.
        const double esperado = pieMovido ? ultimo + 10 : 60.0;
        QVERIFY2(qAbs(debajo - esperado) < 1e-6, qPrintable(QStringLiteral("%1 / %2").arg(debajo).arg(esperado)));
        for (double y : ys)
            QVERIFY(y < 287);
        // El renglón en blanco deja un hueco de dos alturas entre el primero y el tercero.
        if (ys.size() >= 3)
            QVERIFY(qAbs((ys[1] - ys[0]) - 2 * (ys[2] - ys[1])) < 1e-6);
    }
};

PRUEBA_PANTALLAS(tst_impresos_certificados)
#include "tst_impresos_certificados.moc"
#include "moc_PruebaImpresos.cpp"
