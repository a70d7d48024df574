// Contratos: el registro y la creación de documentos copiando sus plantillas.
#include "app/Aplicacion.h"
#include "app/frmMenu.h"
#include "contracts/frmAddModContrato.h"
#include "contracts/frmContratos.h"
#include "core/modFunciones.h"
#include "tests/pantallas/tst_fichas_comun.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

using Mensajes::Respuesta;

namespace {

using namespace fichas;

const char* PLANTILLAS[] = {"Nota_encargo.doc", "Tiempo_retribuido.doc", "Trabajos_de_edificacion.doc", "Trabajos_de_urbanismo.doc",
                            "Trabajos_especiales.doc"};
const QString EDIFICACION = QStringLiteral("[Plantilla] Trabajos de edificación");
const QString SIN_FICHERO = QStringLiteral("No se ha podido encontrar el fichero asociado al documento que está abriendo");

QByteArray bytes(const QString& fichero)
{
    QFile f(fichero);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Nombre, ruta, tipo, plantilla empleada y si es plantilla, en el orden de creación.
QList<QStringList> filas()
{
    QList<QStringList> l;
    UsoConexion uso;
    Consulta c(QStringLiteral("SELECT Nombre, RutaDocumento, TipoDocumento, PlantillaEmpleada, EsPlantilla FROM Contratos ORDER BY Clave"));
    while (c.siguiente())
        l << QStringList{c.texto(QStringLiteral("Nombre")), c.texto(QStringLiteral("RutaDocumento")), c.texto(QStringLiteral("TipoDocumento")),
                         c.texto(QStringLiteral("PlantillaEmpleada")), c.texto(QStringLiteral("EsPlantilla"))};
    return l;
}

// Textos de una columna de una lista, o de las opciones de una lista desplegable.
QStringList textos(QWidget* f, const QString& nombre, int columna = 0)
{
    QStringList l;
    if (auto* cbo = qobject_cast<QComboBox*>(control(f, nombre)))
        for (int i = 0; i < cbo->count(); ++i)
            l << cbo->itemText(i);
    if (auto* lista = qobject_cast<QTreeWidget*>(control(f, nombre)))
        for (int i = 0; i < lista->topLevelItemCount(); ++i)
            l << lista->topLevelItem(i)->text(columna);
    return l;
}
QStringList documentos(int columna = 0)
{
    return textos(Pantallas::cargada<frmContratos>(), QStringLiteral("lvw_Documentos"), columna);
}
QComboBox* plantillas(QWidget* f) { return qobject_cast<QComboBox*>(control(f, QStringLiteral("cbo_Plantilla"))); }

}  // namespace

class tst_contratos : public QObject {
    Q_OBJECT

    std::unique_ptr<Entorno> m_e;
    EntornoPrueba& e() { return *m_e; }
    // Carpeta de los documentos, con separador final, como la deja el diálogo de carpetas.
    QString carpeta() const { return m_e->directorio() + QDir::separator() + QStringLiteral("Obras") + QDir::separator(); }
    QString plantilla(int i) const { return Rutas::enPrograma(QStringLiteral("Contratos/") + QLatin1String(PLANTILLAS[i])); }

    // El registro abierto desde el menú, con el tipo elegido (0: nota de encargo) y, si se pide, una fila.
    frmContratos* registro(int nodo, int fila = -1)
    {
        frmMenu::instancia()->mnu_Contrato_Click();
        auto* f = Pantallas::cargada<frmContratos>();
        auto* arbol = qobject_cast<QTreeWidget*>(control(f, QStringLiteral("tre_1")));
        arbol->setCurrentItem(arbol->topLevelItem(nodo));
        if (fila >= 0) {
            auto* lista = qobject_cast<QTreeWidget*>(control(f, QStringLiteral("lvw_Documentos")));
            lista->setCurrentItem(lista->topLevelItem(fila));
        }
        e().limpiarCuadros();
        return f;
    }

    frmAddModContrato* nuevo(int nodo)
    {
        registro(nodo)->cmd_Nuevo_Click();
        return Pantallas::cargada<frmAddModContrato>();
    }

    // Rellena el alta y pulsa Aceptar; la pregunta de abrir se contesta que no. Devuelve la ruta esperada.
    QString generar(frmAddModContrato* f, const QString& nombre, int plantilla, const QString& directorio, bool esPlantilla = false)
    {
        poner(f, {{"txt_Nombre", nombre}, {"txt_Directorio", directorio}});
        plantillas(f)->setCurrentIndex(plantilla);
        qobject_cast<QCheckBox*>(control(f, QStringLiteral("chk_EsPlantilla")))->setChecked(esPlantilla);
        e().limpiarCuadros();
        e().respuestas = {Respuesta::Aceptar, Respuesta::No};
        f->cmd_Generar_Click();
        return directorio.trimmed() + QString(nombre).trimmed().remove(QLatin1Char(' ')) + QStringLiteral(".doc");
    }

    QString crear(int nodo, const QString& nombre, int plantilla = 0, bool esPlantilla = false)
    {
        return generar(nuevo(nodo), nombre, plantilla, carpeta(), esPlantilla);
    }

    void comprobarEntrada(int numero, const QString& formulario, const QString& procedimiento, const QString& comentario)
    {
        const QString log = e().leerLog();
        QCOMPARE(e().entradasLog(), 1);
        for (const QString& linea : {QStringLiteral("Formulario: ") + formulario, QStringLiteral("Procedimiento: ") + procedimiento,
                                     QStringLiteral("Número: %1").arg(numero), QStringLiteral("Comentario: ") + comentario})
            QVERIFY2(log.contains(linea + QStringLiteral("\r\n")), qPrintable(log));
    }

private slots:
    void initTestCase() { Aplicacion::prepararEntorno(); }

    void init()
    {
        Aplicacion::reiniciar();
        m_e = std::make_unique<Entorno>();
        QDir().mkpath(carpeta());
        // Como el inicio.ini que monta la compilación: rutas relativas al directorio del programa.
        for (int i = 0; i < 5; ++i) {
            QFile::copy(QStringLiteral(DIRECTORIO_FUENTES "/resources/Contratos/") + QLatin1String(PLANTILLAS[i]), plantilla(i));
            escribirAjuste(QStringLiteral("PLANTILLAS_CONTRATOS"), QStringLiteral("P%1").arg(i + 1),
                           QStringLiteral("Contratos/") + QLatin1String(PLANTILLAS[i]));
        }
        frmMenu::instancia()->show();
    }

    void cleanup()
    {
        limpiar();
        m_e.reset();
        Aplicacion::reiniciar();
    }

    // El menú abre una sola; dos documentos de una plantilla en una carpeta: copias exactas, sus
    // filas y la lista; un tercero con el mismo nombre pisa el fichero sin preguntar.
    void dosContratosDesdeUnaPlantilla()
    {
        frmAddModContrato* f = nuevo(2);
        QCOMPARE(frmMenu::instancia()->area()->subWindowList().size(), 2);
        QVERIFY(!control(f, QStringLiteral("cmd_Actualizar"))->isVisibleTo(f));
        QCOMPARE(textos(f, QStringLiteral("cbo_Plantilla")), QStringList{EDIFICACION});
        QCOMPARE(plantillas(f)->currentIndex(), -1);
        // La carpeta se elige con su diálogo; cancelarlo deja lo escrito.
        e().carpetas << QString() << carpeta();
        pulsar(f, QStringLiteral("cmd_Examinar"));
        QCOMPARE(leer(f, QStringLiteral("txt_Directorio")), QString());
        pulsar(f, QStringLiteral("cmd_Examinar"));
        QCOMPARE(e().titulosCarpeta, QStringList(2, tituloCambiarRuta(5)));
        QCOMPARE(leer(f, QStringLiteral("txt_Directorio")), carpeta());

        const QString casa = generar(f, QStringLiteral("  Casa de Ana "), 0, carpeta());
        QCOMPARE(casa, carpeta() + QStringLiteral("CasadeAna.doc"));
        QCOMPARE(e().textos(), (QStringList{QStringLiteral("Documento creado correctamente en: \n") + casa,
                                            QStringLiteral("¿Desea abrir el documento creado?")}));
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Información"));
        QVERIFY(e().abiertos.isEmpty());
        // Sin separador entre la carpeta escrita a mano y el nombre; y se abre.
        const QString nave = generar(f, QStringLiteral("Nave López"), 0, carpeta() + QStringLiteral("Obra "));
        QCOMPARE(nave, carpeta() + QStringLiteral("ObraNaveLópez.doc"));
        e().respuestas = {Respuesta::Aceptar, Respuesta::Si};
        f->cmd_Generar_Click();
        QCOMPARE(e().abiertos, QStringList{nave});

        for (const QString& doc : {casa, nave})
            QCOMPARE(bytes(doc), bytes(plantilla(2)));
        QCOMPARE(filas(), (QList<QStringList>{{"Casa de Ana", casa, "3", EDIFICACION, "0"},
                                              {"Nave López", nave, "3", EDIFICACION, "0"},
                                              {"Nave López", nave, "3", EDIFICACION, "0"}}));
        QCOMPARE(documentos(), (QStringList{"Casa de Ana", "Nave López", "Nave López"}));
        QCOMPARE(documentos(1), (QStringList{casa, nave, nave}));
        QCOMPARE(documentos(2), QStringList(3, EDIFICACION));

        QFile(casa).open(QIODevice::WriteOnly);
        crear(2, QStringLiteral("Casa de Ana"));
        QCOMPARE(e().cuadros.size(), 2);
        QCOMPARE(bytes(casa), bytes(plantilla(2)));
        QCOMPARE(filas().size(), 4);
        // Cada tipo enseña los suyos; el menú trae delante la que ya estaba abierta.
        registro(0);
        QCOMPARE(documentos(), QStringList());
        QCOMPARE(frmMenu::instancia()->area()->subWindowList().size(), 2);
    }

    // Una plantilla personal se ofrece a los documentos de su tipo y deja de ofrecerse al borrarla;
    // lo hecho con ella conserva su nombre, y su fichero se queda.
    void plantillaPersonal()
    {
        const QString propia = crear(0, QStringLiteral("Encargo propio"), 0, true);
        {
            QFile fichero(propia);
            QVERIFY(fichero.open(QIODevice::Append));
            fichero.write("\n{cláusula propia}");
        }
        QCOMPARE(textos(nuevo(1), QStringLiteral("cbo_Plantilla")), QStringList{QStringLiteral("[Plantilla] Tiempo retribuido")});
        frmAddModContrato* f = nuevo(0);
        QCOMPARE(textos(f, QStringLiteral("cbo_Plantilla")), (QStringList{"[Plantilla] Nota de encargo", "[Personal] Encargo propio"}));
        const QString deLuis = generar(f, QStringLiteral("Encargo de Luis"), 1, carpeta());
        QCOMPARE(bytes(deLuis), bytes(propia));
        const QList<QStringList> queda = {{"Encargo de Luis", deLuis, "1", "[Personal] Encargo propio", "0"}};
        QCOMPARE(filas().last(), queda[0]);

        e().respuestas = {Respuesta::No};
        registro(0, 0)->cmd_Borrar_Click();
        QCOMPARE(filas().size(), 2);
        e().respuestas = {Respuesta::Si};
        registro(0, 0)->cmd_Borrar_Click();
        QCOMPARE(e().textos(), (QStringList{QStringLiteral("¿Realmente desea borrar del programa la referencia al documento seleccionado?\n\n"
                                                           "NOTA: El fichero físico NO será eliminado de su ordenador"),
                                            QStringLiteral("Referencia al documento eliminada correctamente de la base de datos")}));
        QVERIFY(QFileInfo::exists(propia));
        QCOMPARE(documentos(), QStringList{"Encargo de Luis"});
        QCOMPARE(textos(nuevo(0), QStringLiteral("cbo_Plantilla")), QStringList{"[Plantilla] Nota de encargo"});
        QCOMPARE(filas(), queda);
    }

    // Un fichero movido a mano no se abre: aviso y entrada en el registro; editarlo avisa y sigue.
    void ficheroMovidoAMano()
    {
        const QString doc = crear(3, QStringLiteral("Plan parcial"));
        QVERIFY(QFile::rename(doc, carpeta() + QStringLiteral("otro.doc")));
        registro(3, 0)->cmd_Abrir_Click();
        QCOMPARE(e().textos(), QStringList{SIN_FICHERO});
        QVERIFY(e().abiertos.isEmpty());
        comprobarEntrada(53, QStringLiteral("frmContratos"), QStringLiteral("cmd_Abrir_Click"), NOMBRE_PROGRAMA);
        QVERIFY(e().leerLog().contains(QStringLiteral("Descripción: No se encuentra el fichero ") + doc));

        registro(3, 0)->cmd_Editar_Click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se ha podido encontrar el fichero asociado al documento que se está editando.\n"
                                                          "Deberá establecerlo a continuación desde la pantalla de edición")});
        QVERIFY(Pantallas::cargada<frmAddModContrato>()->esModificar());
    }

    void rutaDe255y256_data()
    {
        QTest::addColumn<int>("longitud");
        QTest::newRow("255") << 255;
        QTest::newRow("256") << 256;
    }

    void rutaDe255y256()
    {
        QFETCH(int, longitud);
        const QString ruta = generar(nuevo(4), QString(longitud - carpeta().size() - 4, QLatin1Char('x')), 0, carpeta());
        QCOMPARE(ruta.size(), longitud);
        if (longitud == 255) {
            QCOMPARE(e().textos().value(0), QStringLiteral("Documento creado correctamente en: \n") + ruta);
            QCOMPARE(bytes(ruta), bytes(plantilla(4)));
        } else {
            QCOMPARE(e().textos(), QStringList{QStringLiteral("La ruta de creación es mayor de 255 caracteres.\n"
                                                              "Por favor, seleccione otra ubicación para el fichero a crear")});
            QVERIFY(filas().isEmpty());
            QVERIFY(!QFileInfo::exists(ruta));
        }
    }

    // Al abrir con su programa: sin programa para los .doc (31) o sin el fichero (2), desde el
    // registro y tras crear el documento.
    void fallosDeAbrir_data()
    {
        QTest::addColumn<int>("resultado");
        QTest::addColumn<bool>("alCrear");
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<QString>("comentario");
        const QString sinVisor = QStringLiteral(
            "No se ha podido mostrar el documento. Por favor, asegúrese de que tiene instalado un visor de documentos .DOC (por ejemplo, "
            "Microsoft Word)\n\nEl fichero está en:\n%1\n\nPuede abrirlo desde esa carpeta, o copiarlo a un ordenador que tenga un programa "
            "para ese tipo de ficheros.");
        const QString noEsta = QStringLiteral("Documento no encontrado. Ha podido existir un error durante su generación\n"
                                              "Por favor, genere otra vez el documento e inténtelo de nuevo");
        for (bool alCrear : {false, true}) {
            const char* donde = alCrear ? "al crear" : "al abrir";
            QTest::addRow("31 %s", donde) << 31 << alCrear << sinVisor
                                          << QStringLiteral("[Error 31]: No se tiene instalado un visor de documentos .DOC (Microsoft Word)");
            QTest::addRow("2 %s", donde) << 2 << alCrear << noEsta
                                         << QStringLiteral("[Error 2]: Documento no encontrado. Ha podido existir un error durante su "
                                                           "generación o bien haberlo borrado");
        }
    }

    void fallosDeAbrir()
    {
        QFETCH(int, resultado);
        QFETCH(bool, alCrear);
        QFETCH(QString, aviso);
        QFETCH(QString, comentario);
        e().resultadoAbrir = resultado;
        frmAddModContrato* f = nuevo(0);
        const QString doc = generar(f, QStringLiteral("Proyecto"), 0, carpeta());
        if (alCrear) {
            e().limpiarCuadros();
            f->cmd_Generar_Click();  // la pregunta de abrir se contesta que sí
        } else {
            registro(0, 0)->cmd_Abrir_Click();
        }
        QCOMPARE(e().abiertos, QStringList{doc});
        QCOMPARE(e().textos().last(), aviso.contains(QLatin1String("%1")) ? aviso.arg(doc) : aviso);
        QCOMPARE(e().cuadros.last().titulo, QStringLiteral("Aviso"));
        comprobarEntrada(resultado, alCrear ? QStringLiteral("frmAddModContrato") : QStringLiteral("frmContratos"),
                         alCrear ? QStringLiteral("cmd_Generar_Click") : QStringLiteral("cmd_Abrir_Click"), comentario);
    }

    // Editar cambia la anotación y no toca el fichero; la plantilla no se cambia.
    void editarSinRenombrar()
    {
        const QString doc = crear(2, QStringLiteral("Bloque A"), 0, true);
        registro(2, 0)->cmd_Editar_Click();
        auto* f = Pantallas::cargada<frmAddModContrato>();
        QVERIFY(control(f, QStringLiteral("cmd_Actualizar"))->isVisibleTo(f));
        QVERIFY(!control(f, QStringLiteral("cmd_Generar"))->isVisibleTo(f));
        QCOMPARE(leer(f, {"txt_Nombre", "txt_Directorio", "cbo_Plantilla"}), (QStringList{"Bloque A", doc, EDIFICACION}));
        QVERIFY(boton(f, QStringLiteral("chk_EsPlantilla"))->isChecked());
        QTest::mouseClick(plantillas(f), Qt::LeftButton);
        QTest::keyClick(plantillas(f), Qt::Key_Down);
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se puede cambiar el tipo de la plantilla")});
        QCOMPARE(plantillas(f)->currentText(), EDIFICACION);

        const QString otra = carpeta() + QStringLiteral("Bloque B.doc");
        e().ficheros << otra;
        pulsar(f, QStringLiteral("cmd_Examinar"));
        QCOMPARE(e().titulosFichero, QStringList{QStringLiteral("Seleccione el archivo asociado al documento")});
        QCOMPARE(e().filtrosFichero, QStringList{QStringLiteral("Documentos de Word (*.doc)")});
        poner(f, QStringLiteral("txt_Nombre"), QStringLiteral(" Bloque B "));
        boton(f, QStringLiteral("chk_EsPlantilla"))->setChecked(false);
        e().limpiarCuadros();
        f->cmd_Actualizar_Click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("El documento se ha actualizado correctamente")});
        QCOMPARE(filas(), (QList<QStringList>{{"Bloque B", otra, "3", EDIFICACION, "0"}}));
        QVERIFY(QFileInfo::exists(doc) && !QFileInfo::exists(otra));
        QCOMPARE(documentos(), QStringList{"Bloque B"});

        sql(QStringLiteral("DELETE FROM Contratos"));  // otro puesto lo borra entretanto
        e().limpiarCuadros();
        f->cmd_Actualizar_Click();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se ha podido hallar el contrato seleccionado para su modificación")});
    }

    // Campos obligatorios, plantilla que no se puede establecer o que falta, y la lista vacía o sin fila elegida.
    void validaciones()
    {
        frmAddModContrato* f = nuevo(1);
        const struct {
            const char* nombre;
            int plantilla;
            const char* directorio;
            const char* aviso;
            const char* foco;
        } casos[] = {
            {" ", 0, "/", "El nombre del documento es obligatorio.\nPor favor, escriba un valor", "txt_Nombre"},
            {"Hora", -1, "/", "La plantilla en la que se basa el documento es obligatoria.\nPor favor, seleccione una plantilla", "cbo_Plantilla"},
            {"Hora", 0, " ", "El directorio donde se creará el documento es obligatorio.\nPor favor, seleccione un valor", "txt_Directorio"},
        };
        for (const auto& c : casos) {
            generar(f, QString::fromUtf8(c.nombre), c.plantilla, QString::fromUtf8(c.directorio));
            QCOMPARE(e().textos(), QStringList{QString::fromUtf8(c.aviso)});
            QCOMPARE(f->focusWidget()->objectName(), QString::fromLatin1(c.foco));
        }
        escribirAjuste(QStringLiteral("PLANTILLAS_CONTRATOS"), QStringLiteral("P2"), QString());
        generar(f, QStringLiteral("Hora"), 0, carpeta());
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se ha podido establecer el directorio en el que se encuentra la plantilla a "
                                                          "emplear.\nSe aborta el proceso de creación del documento")});
        QVERIFY(filas().isEmpty());
        // Una plantilla que falta: la fila ya está escrita cuando falla la copia, y abrirla lo dice.
        escribirAjuste(QStringLiteral("PLANTILLAS_CONTRATOS"), QStringLiteral("P2"), QStringLiteral("Contratos/no_esta.doc"));
        const QString doc = generar(f, QStringLiteral("Hora"), 0, carpeta());
        QCOMPARE(e().cuadros.size(), 1);
        QVERIFY(e().textos()[0].contains(QStringLiteral("Procedimiento: cmd_Generar_Click")));
        QCOMPARE(filas().size(), 1);
        QVERIFY(!QFileInfo::exists(doc));
        registro(1, 0)->cmd_Abrir_Click();
        QCOMPARE(e().textos(), QStringList{SIN_FICHERO});

        const QString elija = QStringLiteral("Por favor, seleccione un documento en la lista");
        const QList<void (frmContratos::*)()> botones = {&frmContratos::cmd_Abrir_Click, &frmContratos::cmd_Editar_Click,
                                                         &frmContratos::cmd_Borrar_Click, &frmContratos::lvw_Documentos_DblClick,
                                                         &frmContratos::lvw_Documentos_Click};
        QStringList vistos;
        for (int nodo : {4, 1}) {
            frmContratos* r = registro(nodo);
            for (auto b : botones)
                (r->*b)();
            vistos << e().textos();
            QCOMPARE(e().cuadros[0].titulo, nodo == 4 ? QStringLiteral("Información") : QStringLiteral("Aviso"));
        }
        QCOMPARE(vistos, (QStringList(4, QStringLiteral("No hay documentos en la lista")) << elija << elija << elija << elija
                          << QStringLiteral("Por favor, seleccione un documento para abrir") << elija));
    }
};

PRUEBA_PANTALLAS(tst_contratos)
#include "tst_contratos.moc"
