// Configuración del estudio: huecos de arquitectos, borrados, devoluciones, validación,
// guardado y pregunta al salir.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "core/modFunciones.h"
#include "masterdata/frmConfiguracion.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QTabWidget>
#include <QToolButton>

using Mensajes::Respuesta;
using namespace fichas;

namespace {

const QStringList DOMICILIO = {"txt_Domicilio", "txt_NIF", "txt_CodigoPostal", "txt_Municipio", "txt_Provincia",
                               "txt_Telefono", "txt_Fax", "txt_Movil", "txt_CorreoElectronico"};
const QStringList ANA = {"C/ Portales 12, 2º", "16543219Q", "26001", "Logroño", "La Rioja", "941234567", "941234568", "600111222",
                         "ana@estudio.es"};
const QStringList SOCIEDAD = {"Avda. de la Paz 3", "B26412345", "26004", "Logroño", "La Rioja", "941000111", "941000112", "", "info@rioja.es"};
const QStringList LUIS = {"C/ Mayor 5", "22334455Y", "26200", "Haro", "La Rioja", "941300300", "", "", ""};

void persona(qint64 codigo, const QString& nombre, const QString& apellidos, int numero, const QVariant& esS, const QStringList& d,
             const QString& categoria = QStringLiteral("Arquitecto"))
{
    ejecutar(QStringLiteral("INSERT INTO OTROS (Codigo_Cli, Categoria, esS, NumColegiado, Nombre_Cli, Ape_Cli, Dirección_Cli, NIF, cp, "
                            "Municipio_Cli, Provincia_Cli, Tfno_Cli, Fax_Cli, TelMovil, Correo_Cli) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
             {codigo, categoria, esS, numero, nombre, apellidos, d[0], d[1], d[2], d[3], d[4], d[5], d[6], textoONulo(d[7]), textoONulo(d[8])});
}

}  // namespace

class tst_configuracion : public QObject {
    Q_OBJECT

    std::unique_ptr<EntornoPrueba> m_e;

    EntornoPrueba& e() { return *m_e; }

    frmConfiguracion* abrir(int pestana = 0)
    {
        frmConfiguracion* f = frmConfiguracion::abrir(pestana);
        e().limpiarCuadros();
        return f;
    }
    static void escribir(QWidget* f, const QStringList& nombres, const QStringList& textos)
    {
        for (int i = 0; i < nombres.size(); ++i)
            poner(f, nombres[i], textos[i]);
    }
    static int filasConfig() { return valor(QStringLiteral("SELECT count(*) FROM Config")).toInt(); }

private slots:
    void initTestCase() { Aplicacion::prepararEntorno(); }

    void init()
    {
        Aplicacion::reiniciar();
        m_e = std::make_unique<EntornoPrueba>();
        e().conectar();
        UsoConexion uso;
        persona(1, QStringLiteral("Ana"), QStringLiteral("García Sáenz"), 1234, 0, ANA);
        persona(2, QStringLiteral("Luis"), QStringLiteral("Pérez Ochoa"), 2345, QVariant(), LUIS);
        persona(10, QStringLiteral("Estudio Rioja"), QStringLiteral("SLP"), 77, 1, SOCIEDAD);
        persona(20, QStringLiteral("Pedro"), QStringLiteral("Ruiz"), 999, 0, LUIS, QStringLiteral("Aparejador"));
        ejecutar(QStringLiteral("INSERT INTO Config (CodArq1, Arq1Nom, Arq1Col, Domicilio, Municipio, Modulo, IVA, IRPF, AgenciaTributaria) "
                                "VALUES (1, 'Ana García Sáenz', '1234', 'C/ Portales 12, 2º', 'Logroño', 525.5, 16, 15, 'Logroño')"));
        frmMenu::instancia();
    }

    void cleanup()
    {
        limpiar();
        m_e.reset();
        Aplicacion::reiniciar();
    }

    // Los huecos se rellenan en orden; el selector recibe tabla, clave de llamada, título,
    // clave de devolución y posición.
    void selector_data()
    {
        QTest::addColumn<QStringList>("nombres");   // txt_Arquitecto_1..4
        QTest::addColumn<int>("indice");
        QTest::addColumn<bool>("abre");
        QTest::newRow("primero") << QStringList{"", "", "", ""} << 0 << true;
        QTest::newRow("segundo con el primero") << QStringList{"A", "", "", ""} << 1 << true;
        QTest::newRow("segundo sin el primero") << QStringList{"", "", "", ""} << 1 << false;
        QTest::newRow("tercero sin el segundo") << QStringList{"A", "", "", ""} << 2 << false;
        QTest::newRow("cuarto sólo con el tercero") << QStringList{"", "", "C", ""} << 3 << true;
        QTest::newRow("tercero con blancos en el segundo") << QStringList{"A", "  ", "", ""} << 2 << false;
        QTest::newRow("sociedad sin arquitectos") << QStringList{"", "", "", ""} << 4 << true;
    }
    void selector()
    {
        QFETCH(QStringList, nombres);
        QFETCH(int, indice);
        QFETCH(bool, abre);
        frmConfiguracion* f = abrir();
        escribir(f, {"txt_Arquitecto_1", "txt_Arquitecto_2", "txt_Arquitecto_3", "txt_Arquitecto_4"}, nombres);
        f->findChild<QToolButton*>(QStringLiteral("img_Buscar_%1").arg(indice))->click();
        frmBuscarSeleccionar* p = Pantallas::cargada<frmBuscarSeleccionar>();
        if (!abre) {
            QCOMPARE(e().textos(), QStringList{"Antes de incluir este arquitecto, debe completar primero los arquitectos anteriores"});
            QVERIFY(!p);
            return;
        }
        QVERIFY(e().cuadros.isEmpty());
        QVERIFY(p);
        QCOMPARE(p->tag(), QStringLiteral("SELECCIONAR_EN_CONFIGURACION"));
        QCOMPARE(p->windowTitle(), QStringLiteral("Buscar arquitecto"));
        const bool soc = indice == 4;
        QCOMPARE(p->Tabla, soc ? QStringLiteral("ARQUITECTOS_SOCIEDAD") : QStringLiteral("ARQUITECTOS_SIMPLE"));
        QCOMPARE(p->ClaveRetorno, soc ? QStringLiteral("FRMCONFIGURACION_SOCIEDAD_PROFESIONAL")
                                      : QStringLiteral("FRMCONFIGURACION_ARQUITECTO_%1").arg(indice + 1));
        if (!soc)
            QCOMPARE(int(p->Posicion), indice + 1);
    }

    // Devolución del selector y de una ficha nueva.
    void devolucion()
    {
        const QStringList vacio(9, QString());
        frmConfiguracion* f = abrir();
        escribir(f, DOMICILIO, vacio);
        // El primero sin sociedad trae los datos del estudio; el segundo no toca el domicilio.
        f->recibirArquitecto(1, 1, QStringLiteral("Ana García Sáenz"), QStringLiteral("1234"));
        QCOMPARE(leer(f, (QStringList{"txt_CodArq_1", "txt_Arquitecto_1", "txt_NumColegiado_1"} + DOMICILIO)),
                 (QStringList{"1", "Ana García Sáenz", "1234"} + ANA));
        f->recibirArquitecto(2, 2, QStringLiteral("Luis Pérez Ochoa"), QStringLiteral("2345"));
        QCOMPARE(leer(f, {"txt_CodArq_2", "txt_Arquitecto_2", "txt_NumColegiado_2"}), (QStringList{"2", "Luis Pérez Ochoa", "2345"}));
        QCOMPARE(leer(f, DOMICILIO), ANA);
        // La sociedad siempre, también con valores nulos (vacíos); con ella, el primero ya no cambia el domicilio.
        f->recibirSociedad(10, QStringLiteral("Estudio Rioja SLP"), QStringLiteral("77"));
        QCOMPARE(leer(f, (QStringList{"txt_CodSoc", "txt_Sociedad", "txt_NumRegistro"} + DOMICILIO)),
                 (QStringList{"10", "Estudio Rioja SLP", "77"} + SOCIEDAD));
        f->recibirArquitecto(1, 2, QStringLiteral("Luis Pérez Ochoa"), QStringLiteral("2345"));
        QCOMPARE(leer(f, DOMICILIO), SOCIEDAD);
        QVERIFY(e().cuadros.isEmpty());

        // Ficha nueva: nombre y número, nunca el código; el domicilio sólo sin sociedad.
        const QStringList nuevo = {"C/ Nueva 1", "11111111H", "26003", "Logroño", "La Rioja", "941", "942", "600", "n@e.es"};
        const DatosContacto datos{nuevo[0], nuevo[1], nuevo[2], nuevo[3], nuevo[4], nuevo[5], nuevo[6], nuevo[7], nuevo[8]};
        f->recibirNuevoArquitecto(1, QStringLiteral("Nuevo Uno"), QStringLiteral("111"), datos);
        QCOMPARE(leer(f, (QStringList{"txt_CodArq_1", "txt_Arquitecto_1"} + DOMICILIO)), (QStringList{"2", "Nuevo Uno"} + SOCIEDAD));
        poner(f, "txt_Sociedad", QString());
        f->recibirNuevoArquitecto(1, QStringLiteral("Nuevo Uno"), QStringLiteral("111"), datos);
        QCOMPARE(leer(f, DOMICILIO), nuevo);
        escribir(f, DOMICILIO, vacio);
        f->recibirNuevaSociedad(QStringLiteral("Sociedad Nueva"), QStringLiteral("88"), datos);
        QCOMPARE(leer(f, (QStringList{"txt_CodSoc", "txt_Sociedad", "txt_NumRegistro"} + DOMICILIO)),
                 (QStringList{"10", "Sociedad Nueva", "88"} + nuevo));
    }

    // img_Borrar: 1 a 3 vacían su hueco; 0 también el domicilio si no hay sociedad; 4 la sociedad
    // y el domicilio, que vuelve del primer arquitecto (por su número, no sociedad).
    void borrar_data()
    {
        QTest::addColumn<int>("indice");
        QTest::addColumn<bool>("conSociedad");
        QTest::addColumn<QString>("numero1");
        QTest::addColumn<QStringList>("domicilio");
        QTest::newRow("primero sin sociedad") << 0 << false << "1234" << QStringList(9, QString());
        QTest::newRow("primero con sociedad") << 0 << true << "1234" << SOCIEDAD;
        QTest::newRow("segundo") << 1 << false << "1234" << SOCIEDAD;
        QTest::newRow("sociedad, vuelve el primero") << 4 << true << "1234" << ANA;
        QTest::newRow("sociedad, primero sin ficha") << 4 << true << "4321" << QStringList(9, QString());
        QTest::newRow("sociedad, sin primero") << 4 << true << "" << QStringList(9, QString());
        QTest::newRow("sociedad, número de una sociedad") << 4 << true << "77" << QStringList(9, QString());
    }
    void borrar()
    {
        QFETCH(int, indice);
        QFETCH(bool, conSociedad);
        QFETCH(QString, numero1);
        QFETCH(QStringList, domicilio);
        frmConfiguracion* f = abrir();
        for (int i = 1; i <= 4; ++i) {
            poner(f, QStringLiteral("txt_CodArq_%1").arg(i), QString::number(i));
            poner(f, QStringLiteral("txt_Arquitecto_%1").arg(i), QStringLiteral("Arq %1").arg(i));
            poner(f, QStringLiteral("txt_NumColegiado_%1").arg(i), QString::number(i * 11));
        }
        escribir(f, {"txt_NumColegiado_1", "txt_CodSoc", "txt_Sociedad", "txt_NumRegistro"},
                 {numero1, "10", conSociedad ? "Estudio Rioja SLP" : "", "77"});
        escribir(f, DOMICILIO, SOCIEDAD);
        f->findChild<QToolButton*>(QStringLiteral("img_Borrar_%1").arg(indice))->click();
        for (int i = 1; i <= 4; ++i) {
            const bool vacio = i == indice + 1;
            QCOMPARE(leer(f, QStringLiteral("txt_Arquitecto_%1").arg(i)).isEmpty(), vacio);
            QCOMPARE(leer(f, QStringLiteral("txt_CodArq_%1").arg(i)).isEmpty(), vacio);
            QCOMPARE(leer(f, QStringLiteral("txt_NumColegiado_%1").arg(i)).isEmpty(), vacio || (i == 1 && numero1.isEmpty()));
        }
        const bool sinSociedad = indice == 4;
        QCOMPARE(leer(f, {"txt_CodSoc", "txt_NumRegistro"}).join(QString()).isEmpty(), sinSociedad);
        QCOMPARE(leer(f, "txt_Sociedad").isEmpty(), sinSociedad || !conSociedad);
        QCOMPARE(leer(f, DOMICILIO), domicilio);
        QVERIFY(e().cuadros.isEmpty());
    }

    void validacion_data()
    {
        QTest::addColumn<QStringList>("codigos");
        QTest::addColumn<QString>("modulo");
        QTest::addColumn<QString>("iva");
        QTest::addColumn<QString>("irpf");
        QTest::addColumn<QString>("mensaje");
        QTest::addColumn<int>("pestana");
        auto rep = [](int n) { return QStringLiteral("No se puede incluir dos veces al arquitecto Arq %1.\nPor favor, elimine los arquitectos repetidos").arg(n); };
        auto falta = [](const char* c) { return QStringLiteral("%1 es obligatorio.\nPor favor, escriba un valor").arg(QString::fromUtf8(c)); };
        using L = QStringList;
        QTest::newRow("válido") << L{"1", "2", "", ""} << "525,5" << "16" << "15" << "" << 2;
        QTest::newRow("1 y 3 iguales") << L{"1", "2", "1", ""} << "1" << "1" << "1" << rep(1) << 0;
        QTest::newRow("3 y 4 iguales") << L{"", "", "7", "7"} << "1" << "1" << "1" << rep(3) << 0;
        QTest::newRow("códigos vacíos no repiten") << L{"", "", "", ""} << "1" << "1" << "1" << "" << 2;
        QTest::newRow("sin módulo") << L{"1", "", "", ""} << " " << "16" << "15" << falta("El módulo M") << 1;
        QTest::newRow("sin IVA") << L{"1", "", "", ""} << "1" << "" << "15" << falta("El porcentaje de IVA") << 1;
        QTest::newRow("sin IRPF") << L{"1", "", "", ""} << "1" << "16" << "" << falta("El porcentaje de IRPF") << 1;
        QTest::newRow("repetidos antes que el módulo") << L{"5", "5", "", ""} << "" << "" << "" << rep(1) << 0;
    }
    void validacion()
    {
        QFETCH(QStringList, codigos);
        QFETCH(QString, modulo);
        QFETCH(QString, iva);
        QFETCH(QString, irpf);
        QFETCH(QString, mensaje);
        QFETCH(int, pestana);
        frmConfiguracion* f = abrir(2);
        for (int i = 1; i <= 4; ++i) {
            poner(f, QStringLiteral("txt_CodArq_%1").arg(i), codigos[i - 1]);
            poner(f, QStringLiteral("txt_Arquitecto_%1").arg(i), QStringLiteral("Arq %1").arg(i));
        }
        escribir(f, {"txt_ModuloM", "txt_Iva", "txt_Irpf"}, {modulo, iva, irpf});
        f->cmd_Guardar_Click();
        QCOMPARE(f->pestanas()->currentIndex(), pestana);
        QCOMPARE(e().textos(), QStringList{mensaje.isEmpty() ? QStringLiteral("La configuración se ha guardado correctamente") : mensaje});
        QCOMPARE(f->cancelarCierre(), !mensaje.isEmpty());
        if (mensaje.isEmpty())
            return;
        // Nada se ha escrito.
        QVERIFY(valor(QStringLiteral("SELECT Arq2Nom FROM Config")).isNull());
    }

    void guardado()
    {
        frmConfiguracion* f = abrir();
        f->recibirArquitecto(2, 2, QStringLiteral("Luis Pérez Ochoa"), QStringLiteral("2345"));
        f->recibirSociedad(10, QStringLiteral("Estudio Rioja SLP"), QStringLiteral("77"));
        escribir(f, {"txt_PaginaWeb", "txt_Movil", "txt_ModuloM", "txt_Iva", "txt_Irpf", "txt_RutaBD"},
                 {"  www.rioja.es ", "   ", "530,25", "21", "7", "/otra/carpeta/"});
        f->cmd_Guardar_Click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("La configuración se ha guardado correctamente")});
        QCOMPARE(filasConfig(), 1);
        QCOMPARE(leerAjuste(QStringLiteral("BD"), QStringLiteral("ruta")), QStringLiteral("/otra/carpeta/"));
        {
            UsoConexion uso;
            Consulta c(QStringLiteral("SELECT * FROM Config"));
            QVERIFY(c.siguiente());
            const QList<QPair<const char*, QVariant>> esperado = {
                {"CodArq1", 1}, {"CodArq2", 2}, {"CodArq3", QVariant()}, {"CodArq4", QVariant()}, {"CodSoc", 10},
                {"Arq1Nom", "Ana García Sáenz"}, {"Arq1Col", "1234"}, {"Arq2Nom", "Luis Pérez Ochoa"}, {"Arq2Col", "2345"},
                {"Arq3Nom", QVariant()}, {"Arq4Col", QVariant()}, {"SocNom", "Estudio Rioja SLP"}, {"SocReg", "77"},
                {"NIF", "B26412345"}, {"Domicilio", "Avda. de la Paz 3"}, {"CP", "26004"}, {"Municipio", "Logroño"},
                {"Provincia", "La Rioja"}, {"Telefono", "941000111"}, {"Fax", "941000112"}, {"TfnMovil", QVariant()},
                {"CorreoElectronico", "info@rioja.es"}, {"PaginaWeb", "www.rioja.es"}, {"Modulo", 530.25}, {"IVA", 21.0},
                {"IRPF", 7.0}, {"AgenciaTributaria", "Logroño"}};
            for (const auto& [campo, valor] : esperado) {
                const QVariant v = c.valor(QString::fromLatin1(campo));
                QVERIFY2(v.isNull() == valor.isNull(), campo);
                if (!valor.isNull())
                    QVERIFY2(v.toString() == valor.toString(), qPrintable(QStringLiteral("%1: %2").arg(QString::fromLatin1(campo), v.toString())));
            }
        }
        // Al volver a abrir se ve lo guardado, sin cambios pendientes.
        QVERIFY(Pantallas::descargar(f));
        procesarEventos();
        f = abrir();
        QCOMPARE(leer(f, {"txt_CodArq_2", "txt_Sociedad", "txt_ModuloM", "txt_Iva", "txt_PaginaWeb", "txt_Movil", "txt_RutaBD"}),
                 (QStringList{"2", "Estudio Rioja SLP", "530,25", "21", "www.rioja.es", "", "/otra/carpeta/"}));
        QVERIFY(!f->PreguntarGuardarCambios());
        // Un segundo guardado sigue dejando una sola fila.
        f->cmd_Guardar_Click();
        QCOMPARE(filasConfig(), 1);
        QCOMPARE(e().entradasLog(), 0);
    }

    // Cerrar: sin cambios no pregunta; con ellos, Sí guarda y cierra salvo si no es válido.
    void cierre_data()
    {
        QTest::addColumn<QString>("modulo");
        QTest::addColumn<QString>("mensaje");
        QTest::newRow("sí") << "600" << "La configuración se ha guardado correctamente";
        QTest::newRow("sí, no válido") << "" << "El módulo M es obligatorio.\nPor favor, escriba un valor";
    }
    void cierre()
    {
        QFETCH(QString, modulo);
        QFETCH(QString, mensaje);
        QPointer<frmConfiguracion> f = abrir();
        pulsar(f, "cmd_Cerrar");
        procesarEventos();
        QVERIFY(!f);
        QVERIFY(e().cuadros.isEmpty());

        f = abrir();
        poner(f, "txt_ModuloM", modulo);
        e().respuestas << Respuesta::Si;
        pulsar(f, "cmd_Cerrar");
        procesarEventos();
        QCOMPARE(e().textos(), (QStringList{"¿Desea guardar los cambios antes de salir?", mensaje}));
        QCOMPARE(f.isNull(), !modulo.isEmpty());
        QCOMPARE(valor(QStringLiteral("SELECT Modulo FROM Config")).toDouble(), modulo.isEmpty() ? 525.5 : 600.0);
    }

};

PRUEBA_PANTALLAS(tst_configuracion)
#include "tst_configuracion.moc"
