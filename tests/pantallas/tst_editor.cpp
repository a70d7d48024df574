// Editor de texto enriquecido: apertura con la línea de mandatos o con la plantilla vacía, la
// pregunta de cambios, guardar y volver a abrir, buscar y reemplazar, la línea de estado, los
// cuadros y botones que siguen a la selección, y los atajos de teclado.
#include "core/Programa.h"
#include "reports/Rtf.h"
#include "tests/pantallas/tst_fichas_comun.h"
#include "tools/frmCopiaSeguridad.h"
#include "tools/frmEditorRTF.h"
#include "tools/frmEditor_Buscar.h"
#include "tools/frmEditor_Reemplazar.h"

#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextList>

using Mensajes::Respuesta;
using fichas::control;

namespace {

const QString PROGRAMA = QStringLiteral(" - PLANORUM MIRVADE");
const QString NO_ENCONTRADO = QStringLiteral("Texto no encontrado o no hay más ocurrencias en el documento");
const QString TEXTO_BUSQUEDA = QStringLiteral("El camión de Ávila.\nOtro CAMIÓN aparcado junto al Camión grande.\nLa camioneta.");

// Un RTF con ese texto (bytes de la página 1252): el lector provisional y el completo lo dejan igual.
QByteArray rtfCon(const QByteArray& texto) { return "{\\rtf1\\ansi\\ansicpg1252\\deff0 " + texto + "\\par}"; }

QByteArray leerFichero(const QString& ruta)
{
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void escribirFichero(const QString& ruta, const QByteArray& datos)
{
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile f(ruta);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(datos);
}

QAction* accion(QWidget* f, const QString& nombre)
{
    auto* a = f->findChild<QAction*>(nombre);
    if (!a)
        qFatal("falta la acción %s", qPrintable(nombre));
    return a;
}

QComboBox* cuadro(QWidget* f, const char* nombre) { return qobject_cast<QComboBox*>(control(f, QString::fromLatin1(nombre))); }

// Escribe en el cuadro y pulsa Intro, como quien teclea un tamaño o una letra.
void teclearEnCuadro(QComboBox* c, const QString& texto)
{
    c->lineEdit()->setText(texto);
    QTest::keyClick(c->lineEdit(), Qt::Key_Return);
}

// Selecciona del carácter desde al hasta y deja que la pantalla lo atienda.
void seleccionar(QTextEdit* t, int desde, int hasta)
{
    QTextCursor c(t->document());
    c.setPosition(desde);
    c.setPosition(hasta, QTextCursor::KeepAnchor);
    t->setTextCursor(c);
    procesarEventos();
}

QString seleccion(QTextEdit* t) { return t->textCursor().selectedText(); }

}  // namespace

class tst_editor : public QObject {
    Q_OBJECT

    std::unique_ptr<EntornoPrueba> m_e;
    EntornoPrueba& e() { return *m_e; }
    QString ruta(const QString& relativa) const { return m_e->directorio() + QDir::separator() + Rutas::nativa(relativa); }
    QString plantilla() const { return ruta(QStringLiteral("Contratos/Vacio.rtf")); }

    frmEditorRTF* abrirEditor(const QString& lineaMandatos = {})
    {
        Programa::fijarLineaMandatos(lineaMandatos);
        frmMenu::instancia()->mnu_Editor_Click();
        procesarEventos();
        return Pantallas::cargada<frmEditorRTF>();
    }

    // Editor con el texto puesto (sin fichero), sin cambios pendientes y con el cursor al principio.
    frmEditorRTF* editorCon(const QString& texto)
    {
        frmEditorRTF* f = abrirEditor();
        f->editor()->setPlainText(texto);
        f->editor()->document()->setModified(false);
        f->editor()->moveCursor(QTextCursor::Start);
        procesarEventos();
        e().limpiarCuadros();
        return f;
    }

    QString lineaEstado(frmEditorRTF* f)
    {
        procesarEventos();
        return f->findChild<QLabel*>(QStringLiteral("lbl_Linea"))->text();
    }

private slots:
    void initTestCase() { Aplicacion::prepararEntorno(); }

    void init()
    {
        Aplicacion::reiniciar();
        m_e = std::make_unique<EntornoPrueba>();
        escribirFichero(plantilla(), rtfCon("Plantilla vac\xed" "a"));
        frmMenu::instancia()->resize(1200, 800);
        frmMenu::instancia()->show();
    }

    void cleanup()
    {
        fichas::limpiar();
        m_e.reset();
        Aplicacion::reiniciar();
    }

    // Lo que sigue al ejecutable, unido, recortado y sin hasta dos comillas, es el fichero; si no
    // queda nada, o no se puede leer, la plantilla vacía como documento nuevo sin título.
    void apertura_data()
    {
        QTest::addColumn<QString>("linea");
        QTest::addColumn<bool>("abreFichero");
        QTest::addColumn<bool>("avisa");
        QTest::newRow("nada") << QString() << false << false;
        QTest::newRow("sólo espacios y dos comillas") << QStringLiteral("  \"\"  ") << false << false;
        QTest::newRow("entre comillas con espacios alrededor") << QStringLiteral("  \"%1\"  ") << true << false;
        QTest::newRow("ruta con espacios sin comillas") << QStringLiteral("%1") << true << false;
        QTest::newRow("tres comillas: queda una") << QStringLiteral("\"%1\"\"") << false << true;
        QTest::newRow("fichero que no existe") << QStringLiteral("\"%1.bak\"") << false << true;
    }

    void apertura()
    {
        QFETCH(QString, linea);
        QFETCH(bool, abreFichero);
        QFETCH(bool, avisa);
        const QString contrato = ruta(QStringLiteral("Mis contratos/Nota de encargo.rtf"));
        escribirFichero(contrato, rtfCon("Contrato de \xcd\xf1igo"));

        frmEditorRTF* f = abrirEditor(linea.contains(QLatin1String("%1")) ? linea.arg(contrato) : linea);
        QVERIFY(f);
        QCOMPARE(f->fichero(), abreFichero ? contrato : QString());
        QCOMPARE(f->windowTitle(), abreFichero ? QStringLiteral("Nota de encargo.rtf") + PROGRAMA : QStringLiteral("Sin título") + PROGRAMA);
        QVERIFY(f->editor()->toPlainText().contains(abreFichero ? QStringLiteral("Contrato de Íñigo") : QStringLiteral("Plantilla vacía")));
        QVERIFY(!f->editor()->document()->isModified());
        QCOMPARE(e().cuadros.size(), avisa ? 1 : 0);
        QCOMPARE(e().entradasLog(), avisa ? 1 : 0);
        if (avisa) {
            QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));
            QVERIFY2(e().cuadros[0].texto.startsWith(QStringLiteral("No se ha encontrado el fichero ")), qPrintable(e().cuadros[0].texto));
        }
    }

    // Sin la plantilla vacía: se dice, se anota y el editor abre con un documento en blanco.
    void sinPlantilla()
    {
        QFile::remove(plantilla());
        frmEditorRTF* f = abrirEditor();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se ha encontrado el fichero %1.\nCompruebe el nombre y la carpeta e "
                                                          "inténtelo de nuevo.").arg(plantilla())});
        QCOMPARE(e().entradasLog(), 1);
        QVERIFY(e().leerLog().contains(QStringLiteral("Procedimiento: documentoNuevo")));
        QCOMPARE(f->windowTitle(), QStringLiteral("Sin título") + PROGRAMA);
        QVERIFY(f->editor()->toPlainText().isEmpty());
    }

    // El menú abre el editor dentro de la principal; pedido otra vez, trae delante el mismo con su texto.
    void entradaDelMenu()
    {
        auto* menu = frmMenu::instancia();
        frmEditorRTF* f = abrirEditor();
        QVERIFY(qobject_cast<QMdiSubWindow*>(f->parentWidget()));
        f->editor()->textCursor().insertText(QStringLiteral("Sin guardar"));
        frmCopiaSeguridad::abrir(false);
        procesarEventos();
        QVERIFY(menu->area()->activeSubWindow()->widget() != f);
        QCOMPARE(abrirEditor(), f);
        QCOMPARE(menu->area()->activeSubWindow()->widget(), f);
        QVERIFY(f->editor()->toPlainText().contains(QStringLiteral("Sin guardar")));
        int editores = 0;
        for (QWidget* w : Pantallas::cargadas())
            editores += qobject_cast<frmEditorRTF*>(w) ? 1 : 0;
        QCOMPARE(editores, 1);
    }

    // Antes de un documento nuevo, de abrir otro y de cerrar: Sí guarda y sigue, No sigue sin
    // guardar, Cancelar se queda como estaba. Sin nombre, Sí pasa por "Guardar como".
    void preguntaDeCambios_data()
    {
        QTest::addColumn<QString>("orden");
        QTest::addColumn<bool>("conFichero");
        QTest::addColumn<Respuesta>("respuesta");
        QTest::addColumn<bool>("cancelaGuardarComo");
        for (const char* orden : {"nuevo", "abrir", "cerrar"})
            for (const auto& [nombre, r] : {std::pair{"Sí", Respuesta::Si}, {"No", Respuesta::No}, {"Cancelar", Respuesta::Cancelar}})
                QTest::addRow("%s, %s", orden, nombre) << QString::fromLatin1(orden) << true << r << false;
        QTest::newRow("nuevo sin título, Sí") << QStringLiteral("nuevo") << false << Respuesta::Si << false;
        QTest::newRow("cerrar sin título, Sí y Guardar como cancelado") << QStringLiteral("cerrar") << false << Respuesta::Si << true;
    }

    void preguntaDeCambios()
    {
        QFETCH(QString, orden);
        QFETCH(bool, conFichero);
        QFETCH(Respuesta, respuesta);
        QFETCH(bool, cancelaGuardarComo);
        const QString carta = ruta(QStringLiteral("carta.rtf"));
        const QString otro = ruta(QStringLiteral("otro.rtf"));
        const QString nuevo = ruta(QStringLiteral("nueva"));
        escribirFichero(carta, rtfCon("Carta"));
        escribirFichero(otro, rtfCon("Otro documento"));
        frmEditorRTF* f = abrirEditor(conFichero ? carta : QString());
        const QString titulo = f->windowTitle();

        // Sin cambios no se pregunta nada.
        f->mnuArchivoNuevo_Click();
        QVERIFY(e().cuadros.isEmpty());
        if (conFichero)
            f->abrirFichero(carta);

        f->editor()->textCursor().insertText(QStringLiteral("Cambio "));
        e().respuestas << respuesta;
        if (respuesta == Respuesta::Si && !conFichero)
            e().ficheros << (cancelaGuardarComo ? QString() : nuevo);
        if (orden == QLatin1String("abrir"))
            e().ficheros << otro;
        QPointer<frmEditorRTF> vigilado(f);
        if (orden == QLatin1String("nuevo"))
            f->mnuArchivoNuevo_Click();
        else if (orden == QLatin1String("abrir"))
            f->mnuArchivoAbrir_Click();
        else
            Pantallas::descargar(f);
        procesarEventos();

        QCOMPARE(e().cuadros.size(), 1);
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Pregunta"));
        QCOMPARE(e().cuadros[0].botones, Mensajes::Botones::SiNoCancelar);
        QCOMPARE(e().cuadros[0].texto, QStringLiteral("El texto del archivo %1 ha cambiado.\n\n¿Desea guardar los cambios?")
                                           .arg(conFichero ? QStringLiteral("carta.rtf") : QStringLiteral("Sin título")));
        const bool guardado = respuesta == Respuesta::Si && !cancelaGuardarComo;
        const bool sigue = respuesta == Respuesta::No || guardado;
        const QString destino = conFichero ? carta : nuevo + QStringLiteral(".rtf");
        QCOMPARE(leerFichero(destino).contains("Cambio"), guardado);
        if (respuesta == Respuesta::Si && !conFichero)
            QCOMPARE(e().filtrosFichero.value(0), QStringLiteral("Documentos RTF (*.rtf)"));

        if (!sigue) {
            QVERIFY(vigilado);
            QCOMPARE(f->windowTitle(), titulo);
            QVERIFY(f->editor()->document()->isModified());
            QVERIFY(f->editor()->toPlainText().contains(QStringLiteral("Cambio")));
            QCOMPARE(e().titulosFichero.size(), cancelaGuardarComo ? 1 : 0);
        } else if (orden == QLatin1String("cerrar")) {
            QVERIFY(!vigilado);
        } else {
            const bool abre = orden == QLatin1String("abrir");
            QCOMPARE(f->windowTitle(), abre ? QStringLiteral("otro.rtf") + PROGRAMA : QStringLiteral("Sin título") + PROGRAMA);
            QCOMPARE(f->fichero(), abre ? otro : QString());
            QVERIFY(f->editor()->toPlainText().contains(abre ? QStringLiteral("Otro documento") : QStringLiteral("Plantilla vacía")));
            QVERIFY(!f->editor()->document()->isModified());
        }
    }

    // Al salir del programa, el texto cambiado pregunta antes que la principal: Cancelar detiene la
    // salida con el editor abierto; No lo cierra y sigue con "¿Desea salir del programa?".
    void salirDelProgramaConCambios()
    {
        frmEditorRTF* f = editorCon(QStringLiteral("Borrador"));
        f->editor()->textCursor().insertText(QStringLiteral("Cambio "));
        QPointer<frmEditorRTF> vigilado(f);
        const QString pregunta = QStringLiteral("El texto del archivo Sin título ha cambiado.\n\n¿Desea guardar los cambios?");
        e().respuestas << Respuesta::Cancelar;
        QVERIFY(!frmMenu::instancia()->close());
        QCOMPARE(e().textos(), QStringList{pregunta});
        QVERIFY(vigilado && f->editor()->toPlainText().contains(QStringLiteral("Cambio")));

        e().limpiarCuadros();
        e().respuestas << Respuesta::No << Respuesta::No;
        QVERIFY(!frmMenu::instancia()->close());
        procesarEventos();
        QVERIFY(!vigilado);
        QCOMPARE(e().textos(), (QStringList{pregunta, QStringLiteral("¿Desea salir del programa?")}));
    }

    // Guardar sin nombre pide uno (y le pone .rtf), después guarda sin preguntar; lo guardado se
    // vuelve a abrir. Un fichero que no es RTF o una carpeta que no existe: aviso y registro, y el
    // documento abierto sigue como estaba.
    void guardarYVolverAAbrir()
    {
        frmEditorRTF* f = abrirEditor();
        QTextEdit* t = f->editor();
        t->selectAll();
        t->textCursor().insertText(QStringLiteral("Señor Núñez: el camión"));
        e().ficheros << ruta(QStringLiteral("carta"));
        accion(f, QStringLiteral("mnuArchivoGuardar"))->trigger();
        const QString carta = ruta(QStringLiteral("carta.rtf"));
        QCOMPARE(e().titulosFichero, QStringList{QStringLiteral("Guardar como")});
        QCOMPARE(leerFichero(carta), Rtf::escribir(*t->document()));
        QCOMPARE(f->windowTitle(), QStringLiteral("carta.rtf") + PROGRAMA);
        QVERIFY(!t->document()->isModified());

        t->textCursor().insertText(QStringLiteral(" llega"));
        accion(f, QStringLiteral("mnuArchivoGuardar"))->trigger();
        QCOMPARE(e().titulosFichero.size(), 1);
        QCOMPARE(leerFichero(carta), Rtf::escribir(*t->document()));

        accion(f, QStringLiteral("mnuArchivoNuevo"))->trigger();
        e().ficheros << carta;
        accion(f, QStringLiteral("mnuArchivoAbrir"))->trigger();
        QCOMPARE(e().titulosFichero.last(), QStringLiteral("Abrir"));
        QCOMPARE(e().filtrosFichero.last(), QStringLiteral("Documentos RTF (*.rtf);;Todos los archivos (*.*)"));
        QVERIFY(t->toPlainText().contains(QStringLiteral("Señor Núñez: el camión llega")));
        QCOMPARE(f->windowTitle(), QStringLiteral("carta.rtf") + PROGRAMA);
        QVERIFY(e().cuadros.isEmpty());

        const QString texto = t->toPlainText();
        escribirFichero(ruta(QStringLiteral("hola.txt")), "hola");
        e().ficheros << ruta(QStringLiteral("hola.txt"));
        accion(f, QStringLiteral("mnuArchivoAbrir"))->trigger();
        QCOMPARE(e().textos(), QStringList{QStringLiteral("No se ha podido abrir el fichero %1.\nEl fichero no es un documento de texto "
                                                          "enriquecido (RTF)").arg(ruta(QStringLiteral("hola.txt")))});
        QCOMPARE(e().entradasLog(), 1);
        QCOMPARE(t->toPlainText(), texto);
        QCOMPARE(f->fichero(), carta);

        e().limpiarCuadros();
        t->textCursor().insertText(QStringLiteral("más "));
        const QString sinCarpeta = ruta(QStringLiteral("no existe/carta.rtf"));
        e().ficheros << sinCarpeta;
        accion(f, QStringLiteral("mnuArchivoGuardarComo"))->trigger();
        QCOMPARE(e().cuadros.size(), 1);
        QVERIFY2(e().cuadros[0].texto.startsWith(QStringLiteral("No se ha podido guardar el documento en %1.\n").arg(sinCarpeta)),
                 qPrintable(e().cuadros[0].texto));
        QCOMPARE(e().entradasLog(), 2);
        QVERIFY(!QFile::exists(sinCarpeta));
        QCOMPARE(f->fichero(), carta);
        QVERIFY(t->document()->isModified());
    }

    // Buscar sin distinguir mayúsculas (las acentuadas también), desde el cursor y siguiendo desde
    // la última coincidencia; sin más, el aviso, y la siguiente vez vuelve a salir del cursor.
    void buscar()
    {
        frmEditorRTF* f = editorCon(TEXTO_BUSQUEDA);
        QTextEdit* t = f->editor();
        seleccionar(t, 3, 9);  // "camión": lo seleccionado se propone
        accion(f, QStringLiteral("opBuscar"))->trigger();
        auto* b = qobject_cast<frmEditor_Buscar*>(control(f, QStringLiteral("frmEditor_Buscar")));
        QVERIFY(b->isVisible());
        QCOMPARE(fichas::leer(b, QStringLiteral("txt_Buscar")), QStringLiteral("camión"));

        t->moveCursor(QTextCursor::Start);
        QStringList halladas;
        for (int i = 0; i < 3; ++i) {
            fichas::pulsar(b, QStringLiteral("cmd_Siguiente"));
            halladas << QStringLiteral("%1:%2").arg(t->textCursor().selectionStart()).arg(seleccion(t));
        }
        QCOMPARE(halladas, (QStringList{QStringLiteral("3:camión"), QStringLiteral("25:CAMIÓN"), QStringLiteral("50:Camión")}));
        QVERIFY(e().cuadros.isEmpty());
        fichas::pulsar(b, QStringLiteral("cmd_Siguiente"));
        fichas::pulsar(b, QStringLiteral("cmd_Siguiente"));
        QCOMPARE(e().textos(), QStringList(2, NO_ENCONTRADO));
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Aviso"));

        // Lo que está antes del cursor no se encuentra; "camion" sin tilde es otra palabra.
        e().limpiarCuadros();
        fichas::poner(b, QStringLiteral("txt_Buscar"), QStringLiteral("ÁVILA"));
        fichas::pulsar(b, QStringLiteral("cmd_Siguiente"));
        QCOMPARE(e().textos(), QStringList{NO_ENCONTRADO});
        t->moveCursor(QTextCursor::Start);
        fichas::pulsar(b, QStringLiteral("cmd_Siguiente"));
        QCOMPARE(seleccion(t), QStringLiteral("Ávila"));
        fichas::poner(b, QStringLiteral("txt_Buscar"), QStringLiteral("camion"));
        fichas::pulsar(b, QStringLiteral("cmd_Siguiente"));
        QCOMPARE(t->textCursor().selectionStart(), TEXTO_BUSQUEDA.indexOf(QStringLiteral("camioneta")));
        fichas::poner(b, QStringLiteral("txt_Buscar"), QString());
        QVERIFY(!fichas::boton(b, QStringLiteral("cmd_Siguiente"))->isEnabled());
    }

    // Reemplazar pregunta en cada coincidencia y sigue hasta el aviso final; lo cambiado conserva su
    // formato, y un reemplazo que contiene lo buscado no se vuelve a encontrar.
    void reemplazar()
    {
        frmEditorRTF* f = editorCon(TEXTO_BUSQUEDA);
        QTextEdit* t = f->editor();
        QTextCursor negrita(t->document());
        negrita.setPosition(3);
        negrita.setPosition(9, QTextCursor::KeepAnchor);
        QTextCharFormat formato;
        formato.setFontWeight(QFont::Bold);
        negrita.mergeCharFormat(formato);

        accion(f, QStringLiteral("opReemplazar"))->trigger();
        auto* r = qobject_cast<frmEditor_Reemplazar*>(control(f, QStringLiteral("frmEditor_Reemplazar")));
        fichas::poner(r, {{QStringLiteral("txt_Buscar"), QStringLiteral("camión")}, {QStringLiteral("txt_Reemplazar"), QStringLiteral("furgón")}});
        e().respuestas << Respuesta::Si << Respuesta::No << Respuesta::Si;
        fichas::pulsar(r, QStringLiteral("cmd_Siguiente"));
        QCOMPARE(e().textos(), (QStringList{3, QStringLiteral("¿Desea realizar el cambio?")} << NO_ENCONTRADO));
        QCOMPARE(e().cuadros[0].titulo, QStringLiteral("Pregunta"));
        QCOMPARE(e().cuadros[0].botones, Mensajes::Botones::SiNo);
        QCOMPARE(t->toPlainText(), QString(TEXTO_BUSQUEDA).replace(QStringLiteral("l camión"), QStringLiteral("l furgón"))
                                       .replace(QStringLiteral("Camión"), QStringLiteral("furgón")));
        QTextCursor c(t->document());
        c.setPosition(5);
        QCOMPARE(c.charFormat().fontWeight(), int(QFont::Bold));
        QVERIFY(t->document()->isModified());

        e().limpiarCuadros();
        t->setPlainText(QStringLiteral("banana"));
        fichas::poner(r, {{QStringLiteral("txt_Buscar"), QStringLiteral("A")}, {QStringLiteral("txt_Reemplazar"), QStringLiteral("aa")}});
        fichas::pulsar(r, QStringLiteral("cmd_Siguiente"));
        QCOMPARE(t->toPlainText(), QStringLiteral("baanaanaa"));
        QCOMPARE(e().cuadros.size(), 4);
    }

    // " Línea: n / m" sigue al cursor; con el ajuste de línea cuenta las líneas como se ven, sin él
    // cada párrafo es una.
    void lineaDeEstado()
    {
        frmEditorRTF* f = editorCon(QStringLiteral("uno\n") + QStringLiteral("palabra ").repeated(200) + QStringLiteral("\ntres"));
        QTextEdit* t = f->editor();
        const QRegularExpression forma(QStringLiteral("^ Línea: (\\d+) / (\\d+)$"));
        const QRegularExpressionMatch inicio = forma.match(lineaEstado(f));
        QVERIFY2(inicio.hasMatch(), qPrintable(lineaEstado(f)));
        const int total = inicio.captured(2).toInt();
        QVERIFY(total > 5);
        QCOMPARE(inicio.captured(1), QStringLiteral("1"));
        const auto irA = [&](int bloque, bool alFinal) {
            QTextCursor c(t->document()->findBlockByNumber(bloque));
            if (alFinal)
                c.movePosition(QTextCursor::EndOfBlock);
            t->setTextCursor(c);
            return lineaEstado(f);
        };
        QCOMPARE(irA(1, false), QStringLiteral(" Línea: 2 / %1").arg(total));
        QCOMPARE(irA(1, true), QStringLiteral(" Línea: %1 / %2").arg(total - 1).arg(total));
        QCOMPARE(irA(2, true), QStringLiteral(" Línea: %1 / %1").arg(total));
        accion(f, QStringLiteral("subajuste"))->trigger();
        QCOMPARE(t->lineWrapMode(), QTextEdit::NoWrap);
        QCOMPARE(irA(1, true), QStringLiteral(" Línea: 2 / 3"));
    }

    // Los cuadros de letra y tamaño y los botones de formato dicen lo del texto seleccionado (en
    // blanco si hay varios); elegir o teclear en ellos lo aplica a la selección.
    void formatoSigueALaSeleccion()
    {
        frmEditorRTF* f = editorCon(QString());
        QTextEdit* t = f->editor();
        QTextCursor c(t->document());
        const auto trozo = [&](const QString& texto, const QString& familia, double tamano, bool negrita, bool cursiva) {
            QTextCharFormat formato;
            formato.setFontFamilies(QStringList{familia});
            formato.setFontPointSize(tamano);
            formato.setFontWeight(negrita ? QFont::Bold : QFont::Normal);
            formato.setFontItalic(cursiva);
            c.insertText(texto, formato);
        };
        trozo(QStringLiteral("Uno "), QStringLiteral("Courier New"), 20, true, false);
        trozo(QStringLiteral("dos "), QStringLiteral("Arial"), 12, false, false);
        trozo(QStringLiteral("tres"), QStringLiteral("Arial"), 10.5, false, true);
        QComboBox* letra = cuadro(f, "cbo_TipoLetra");
        QComboBox* tamano = cuadro(f, "cbo_TamanoLetra");
        const auto estado = [&] {
            QStringList marcadas;
            for (const char* n : {"mnu_Negrita", "mnu_Cursiva", "mnu_Subrayada", "mnu_Tachada"})
                if (accion(f, QString::fromLatin1(n))->isChecked())
                    marcadas << QString::fromLatin1(n);
            return QStringList{letra->currentText(), tamano->currentText()} << marcadas;
        };

        seleccionar(t, 1, 2);
        QCOMPARE(estado(), (QStringList{QStringLiteral("Courier New"), QStringLiteral("20"), QStringLiteral("mnu_Negrita")}));
        seleccionar(t, 4, 7);
        QCOMPARE(estado(), (QStringList{QStringLiteral("Arial"), QStringLiteral("12")}));
        seleccionar(t, 9, 9);
        QCOMPARE(estado(), (QStringList{QStringLiteral("Arial"), QStringLiteral("10,5"), QStringLiteral("mnu_Cursiva")}));
        seleccionar(t, 0, 12);
        QCOMPARE(estado(), (QStringList{QString(), QString()}));


        // Un tamaño de la lista, otro que no está en ella y uno que no vale.
        seleccionar(t, 4, 7);
        teclearEnCuadro(tamano, QStringLiteral("24"));
        QCOMPARE(t->textCursor().charFormat().fontPointSize(), 24.0);
        teclearEnCuadro(tamano, QStringLiteral("13,5"));
        QCOMPARE(t->textCursor().charFormat().fontPointSize(), 13.5);
        teclearEnCuadro(tamano, QStringLiteral("grande"));
        QCOMPARE(e().textos(), QStringList{QStringLiteral("El tamaño de la letra debe ser un número entre 1 y 1638.\n"
                                                          "Elija uno de la lista o escriba otro y pulse Intro.")});
        QCOMPARE(t->textCursor().charFormat().fontPointSize(), 13.5);
        teclearEnCuadro(letra, QStringLiteral("Liberation Serif"));
        QCOMPARE(t->textCursor().charFormat().fontFamilies().toStringList(), QStringList{QStringLiteral("Liberation Serif")});
        QCOMPARE(seleccion(t), QStringLiteral("dos"));

        // Negrita, alineación y viñetas van y vuelven.
        accion(f, QStringLiteral("mnu_Negrita"))->trigger();
        QCOMPARE(t->textCursor().charFormat().fontWeight(), int(QFont::Bold));
        procesarEventos();
        accion(f, QStringLiteral("mnu_Negrita"))->trigger();
        QCOMPARE(t->textCursor().charFormat().fontWeight(), int(QFont::Normal));
        accion(f, QStringLiteral("subCentrado"))->trigger();
        procesarEventos();
        QCOMPARE(t->textCursor().blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::Alignment(Qt::AlignHCenter));
        QVERIFY(accion(f, QStringLiteral("subCentrado"))->isChecked());
        QVERIFY(!accion(f, QStringLiteral("subIzquierda"))->isChecked());
        accion(f, QStringLiteral("subVinetas"))->trigger();
        QVERIFY(t->textCursor().currentList());
        QVERIFY(accion(f, QStringLiteral("subVinetas"))->isChecked());
        accion(f, QStringLiteral("subVinetas"))->trigger();
        QVERIFY(!t->textCursor().currentList());

        // Un contrato recién abierto: el cursor está al principio del título (14 puntos, negrita).
        f->abrirFichero(QStringLiteral(DIRECTORIO_FUENTES "/resources/Contratos/Nota_encargo.doc"));
        procesarEventos();
        QCOMPARE(estado(), (QStringList{QStringLiteral("Arial"), QStringLiteral("14"), QStringLiteral("mnu_Negrita")}));
        QVERIFY(accion(f, QStringLiteral("subCentrado"))->isChecked());
    }

    // Ningún atajo choca con otro ni con los del cuadro de texto: pulsado con el foco en el texto, lo
    // atiende el mandato del editor.
    void atajos()
    {
        frmEditorRTF* f = editorCon(QStringLiteral("uno dos"));
        // El cuadro de texto atiende él mismo deshacer, cortar, copiar, pegar y suprimir.
        const QStringList propios = {QStringLiteral("subDeshacer"), QStringLiteral("mnuEdicionCortar"), QStringLiteral("mnuEdicionCopiar"),
                                     QStringLiteral("mnuEdicionPegar"), QStringLiteral("opEliminar")};
        QTextEdit* t = f->editor();
        frmMenu::instancia()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(frmMenu::instancia()));
        t->setFocus();
        QSet<QKeySequence> vistos;
        for (QAction* a : f->actions()) {
            if (a->shortcut().isEmpty())
                continue;
            QVERIFY2(!vistos.contains(a->shortcut()), qPrintable(a->shortcut().toString()));
            vistos << a->shortcut();
            if (propios.contains(a->objectName()))
                continue;
            a->disconnect(f);
            QSignalSpy disparos(a, &QAction::triggered);
            QTest::keySequence(t, a->shortcut());
            QVERIFY2(disparos.size() == 1, qPrintable(a->objectName() + QLatin1Char(' ') + a->shortcut().toString()));
        }
    }

    // Fecha y hora en el cursor; eliminar borra lo seleccionado y sólo se puede con algo seleccionado.
    void fechaYEliminar()
    {
        frmEditorRTF* f = editorCon(QStringLiteral("uno dos"));
        QTextEdit* t = f->editor();
        QVERIFY(!accion(f, QStringLiteral("opEliminar"))->isEnabled());
        seleccionar(t, 3, 7);
        QVERIFY(accion(f, QStringLiteral("opEliminar"))->isEnabled());
        accion(f, QStringLiteral("opEliminar"))->trigger();
        QCOMPARE(t->toPlainText(), QStringLiteral("uno"));
        accion(f, QStringLiteral("subHoraFecha"))->trigger();
        QVERIFY2(QRegularExpression(QStringLiteral("^uno\\d\\d/\\d\\d/\\d{4} \\d{1,2}:\\d\\d:\\d\\d$")).match(t->toPlainText()).hasMatch(),
                 qPrintable(t->toPlainText()));
    }
};

PRUEBA_PANTALLAS(tst_editor)
#include "tst_editor.moc"
