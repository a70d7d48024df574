// Texto enriquecido: las plantillas de contratos, documentos escritos por LibreOffice, AbiWord y
// Word, ida y vuelta de todo lo que se admite, y entradas malas (cortadas, llaves, números raros).
#include "reports/Rtf.h"

#include <QFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QtTest>

#include <functional>

namespace {

QByteArray fichero(const QString& relativa)
{
    QFile f(QStringLiteral(DIRECTORIO_FUENTES "/") + relativa);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Los párrafos con texto, en orden.
QStringList textos(const QTextDocument& d)
{
    QStringList r;
    for (QTextBlock b = d.begin(); b.isValid(); b = b.next())
        if (!b.text().isEmpty())
            r << b.text();
    return r;
}

QTextBlock bloque(const QTextDocument& d, const QString& inicio)
{
    for (QTextBlock b = d.begin(); b.isValid(); b = b.next())
        if (b.text().startsWith(inicio))
            return b;
    return {};
}

// Formato del texto buscado (el de su último carácter).
QTextCharFormat formato(const QTextDocument& d, const QString& texto)
{
    const QTextCursor c = d.find(texto);
    return c.isNull() ? QTextCharFormat() : c.charFormat();
}

int alineacion(const QTextDocument& d, const QString& inicio)
{
    return int(bloque(d, inicio).blockFormat().alignment() & Qt::AlignHorizontal_Mask);
}
constexpr int IZQUIERDA = Qt::AlignLeft, CENTRO = Qt::AlignHCenter, DERECHA = Qt::AlignRight, JUSTIFICADO = Qt::AlignJustify;

QString color(const QBrush& b) { return b.style() == Qt::NoBrush ? QString() : b.color().name(); }

// Los rasgos del texto buscado: N negrita, C cursiva, S subrayado, T tachado y su color.
QString rasgos(const QTextDocument& d, const QString& texto)
{
    const QTextCharFormat f = formato(d, texto);
    return QString(f.fontWeight() >= QFont::DemiBold ? "N" : "") + (f.fontItalic() ? "C" : "")
           + (f.underlineStyle() == QTextCharFormat::SingleUnderline ? "S" : "") + (f.fontStrikeOut() ? "T" : "") + color(f.foreground());
}

// Lo que se ve de un formato de carácter, con la fuente y el tamaño del documento si no los trae.
QString resumen(const QTextCharFormat& f, const QTextDocument& d)
{
    const QString familia = f.fontFamilies().toStringList().value(0);
    return QStringList{familia.isEmpty() ? d.defaultFont().family() : familia,
                       QString::number(f.fontPointSize() > 0 ? f.fontPointSize() : d.defaultFont().pointSizeF()),
                       f.fontWeight() >= QFont::DemiBold ? "negrita" : "", f.fontItalic() ? "cursiva" : "",
                       QString::number(f.underlineStyle()), f.fontStrikeOut() ? "tachado" : "",
                       QString::number(f.fontCapitalization()), QString::number(f.verticalAlignment()),
                       color(f.foreground()), color(f.background())}
        .join(u'|');
}

QString resumen(const QTextBlockFormat& f)
{
    QStringList tabs;
    for (const QTextOption::Tab& t : f.tabPositions())
        tabs << QStringLiteral("%1:%2").arg(t.position).arg(t.type);
    // Sin alineación, Qt alinea a la izquierda.
    const int alineacion = int(f.alignment() & Qt::AlignHorizontal_Mask);
    return QStringList{QString::number(alineacion ? alineacion : IZQUIERDA), QString::number(f.leftMargin()),
                       QString::number(f.rightMargin()), QString::number(f.textIndent()), QString::number(f.topMargin()),
                       QString::number(f.bottomMargin()),
                       QStringLiteral("%1/%2").arg(f.lineHeight()).arg(f.lineHeightType()), tabs.join(u','),
                       QString::number(f.pageBreakPolicy()), f.nonBreakableLines() ? "juntas" : ""}
        .join(u'|');
}

// El documento entero, línea a línea: cada párrafo con su formato y su lista (por orden de
// aparición, para ver qué párrafos comparten lista) y sus trozos de texto, juntando los seguidos
// que se ven igual.
QStringList descripcion(const QTextDocument& d)
{
    QStringList r;
    QList<const QTextList*> listas;
    for (QTextBlock b = d.begin(); b.isValid(); b = b.next()) {
        QString lista;
        if (const QTextList* l = b.textList()) {
            if (!listas.contains(l))
                listas << l;
            const QTextListFormat lf = l->format();
            lista = QStringLiteral("lista %1 %2 %3").arg(listas.indexOf(l)).arg(lf.style()).arg(lf.indent());
            if (lf.style() != QTextListFormat::ListDisc && lf.style() != QTextListFormat::ListCircle
                && lf.style() != QTextListFormat::ListSquare)
                lista += QStringLiteral(" '%1' '%2'").arg(lf.numberPrefix(), lf.numberSuffix());
        }
        r << QStringLiteral("¶ %1 [%2] %3").arg(resumen(b.blockFormat()), resumen(b.charFormat(), d), lista);
        QString texto, formatoTrozo;
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QString f = resumen(it.fragment().charFormat(), d);
            if (f != formatoTrozo && !texto.isEmpty()) {
                r << QStringLiteral("  «%1» %2").arg(texto, formatoTrozo);
                texto.clear();
            }
            formatoTrozo = f;
            texto += it.fragment().text();
        }
        if (!texto.isEmpty())
            r << QStringLiteral("  «%1» %2").arg(texto, formatoTrozo);
    }
    return r;
}

bool leerBien(const QByteArray& rtf, QTextDocument& d)
{
    QString aviso;
    const bool ok = Rtf::leer(rtf, d, &aviso);
    if (!aviso.isEmpty())
        qWarning() << aviso;
    return ok && aviso.isEmpty();
}

} // namespace

class tst_rtf : public QObject {
    Q_OBJECT
private slots:
    void plantillas_data();
    void plantillas();
    void documentoVacio();
    void otrosProgramas_data();
    void otrosProgramas();
    void escritoPorWord();
    void idaYVuelta();
    void pagina();
    void noEsRtf_data();
    void noEsRtf();
    void entradasMalas_data();
    void entradasMalas();
    void cortadoEnCadaPosicion();
};

void tst_rtf::plantillas_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<QString>("titulo");
    const QString arrendamiento = QStringLiteral("CONTRATO DE ARRENDAMIENTO DE SERVICIOS PROFESIONALES · ");
    QTest::newRow("nota") << "Nota_encargo.doc" << "NOTA DE ENCARGO PROFESIONAL";
    QTest::newRow("tiempo") << "Tiempo_retribuido.doc" << "CONTRATO DE SERVICIOS PROFESIONALES POR TIEMPO RETRIBUIDO";
    QTest::newRow("edificacion") << "Trabajos_de_edificacion.doc" << arrendamiento + "TRABAJOS DE EDIFICACIÓN";
    QTest::newRow("urbanismo") << "Trabajos_de_urbanismo.doc" << arrendamiento + "TRABAJOS DE URBANISMO";
    QTest::newRow("especiales") << "Trabajos_especiales.doc" << arrendamiento + "TRABAJOS ESPECIALES";
}

void tst_rtf::plantillas()
{
    QFETCH(QString, nombre);
    QFETCH(QString, titulo);
    QTextDocument d;
    QVERIFY(leerBien(fichero("resources/Contratos/" + nombre), d));

    // Título centrado, en negrita, Arial de 14 puntos; el resto justificado y en 11.
    const QTextBlock primero = d.begin();
    QCOMPARE(primero.text(), titulo);
    QCOMPARE(alineacion(d, titulo), CENTRO);
    QCOMPARE(primero.blockFormat().bottomMargin(), 16.0);  // \sa240
    const QTextCharFormat t = primero.begin().fragment().charFormat();
    QCOMPARE(t.fontWeight(), int(QFont::Bold));
    QCOMPARE(t.fontPointSize(), 14.0);
    QCOMPARE(t.fontFamilies().toStringList(), QStringList{"Arial"});
    QCOMPARE(alineacion(d, "REUNIDOS"), JUSTIFICADO);
    QCOMPARE(formato(d, "REUNIDOS").fontWeight(), int(QFont::Bold));
    QCOMPARE(formato(d, "CLÁUSULAS").fontWeight(), int(QFont::Bold));
    QCOMPARE(formato(d, "CLÁUSULAS").fontPointSize(), 11.0);
    const QTextBlock primera = bloque(d, "PRIMERA");
    QVERIFY(primera.isValid());
    QCOMPARE(formato(d, "PRIMERA").fontWeight(), int(QFont::Normal));
    QCOMPARE(primera.blockFormat().topMargin(), 0.0);

    // Ni el título del \info ni restos del RTF; acentos y eñes en su sitio.
    const QString todo = d.toPlainText();
    QCOMPARE(todo.count(titulo), 1);
    for (const QChar c : QStringLiteral(u"\\{}\uFFFD"))
        QVERIFY2(!todo.contains(c), qPrintable(QString(c)));
    QVERIFY(todo.contains(u'ñ'));
    QVERIFY(todo.contains("D./D.ª"));
    QVERIFY(todo.contains("n.º"));
    QVERIFY(todo.contains("EL CLIENTE\t\t"));

    const Rtf::Pagina pagina{11906, 16838, 1701, 1418, 1418, 1418};
    QCOMPARE(Rtf::pagina(d), std::optional(pagina));
}

void tst_rtf::documentoVacio()
{
    // El documento nuevo del editor: vacío, pero lo que se escriba sale en Arial de 10.
    QTextDocument d;
    QVERIFY(leerBien(fichero("resources/Contratos/Vacio.rtf"), d));
    QCOMPARE(d.toPlainText().trimmed(), QString());
    QTextCursor c(&d);
    c.movePosition(QTextCursor::End);
    QCOMPARE(c.charFormat().fontFamilies().toStringList(), QStringList{"Arial"});
    QCOMPARE(c.charFormat().fontPointSize(), 10.0);
    QVERIFY(!Rtf::pagina(d));
    QVERIFY(!d.isModified());
    QVERIFY(!d.isUndoAvailable());
}

void tst_rtf::otrosProgramas_data()
{
    // El mismo documento (tests/datos/rtf/origen.html) pasado a RTF por cada programa.
    QTest::addColumn<QString>("nombre");
    QTest::newRow("LibreOffice") << "libreoffice.rtf";
    QTest::newRow("AbiWord") << "abiword.rtf";
}

void tst_rtf::otrosProgramas()
{
    QFETCH(QString, nombre);
    QTextDocument d;
    QVERIFY(leerBien(fichero("tests/datos/rtf/" + nombre), d));
    const QStringList esperado{"CONTRATO DE PRUEBA",
                               "Texto normal con negrita, cursiva, subrayado y tachado.",
                               "Alineado a la derecha",
                               "Cláusula única: el señor Muñoz pagará 1.500 € al año; el arquitecto, Ω.",
                               "Primera viñeta",
                               "Segunda viñeta con ñ",
                               "Uno",
                               "Dos",
                               "Celda A1\tCelda B1",
                               "Celda A2\tCelda B2",
                               "Texto en rojo al final."};
    QCOMPARE(textos(d), esperado);

    QCOMPARE((QList<int>{alineacion(d, "CONTRATO"), alineacion(d, "Alineado"), alineacion(d, "Cláusula"), alineacion(d, "Texto normal")}),
             (QList<int>{CENTRO, DERECHA, JUSTIFICADO, IZQUIERDA}));
    QStringList vistos;
    for (const char* t : {"CONTRATO DE PRUEBA", "negrita", "normal con", "cursiva", "subrayado", "tachado", "rojo", "al final"})
        vistos << rasgos(d, QString::fromUtf8(t));
    QCOMPARE(vistos, (QStringList{"N", "N", "", "C", "S", "T", "#ff0000", ""}));

    // Viñetas en una lista, números en otra.
    const QTextList* vinetas = bloque(d, "Primera").textList();
    QVERIFY(vinetas);
    QCOMPARE(vinetas->format().style(), QTextListFormat::ListDisc);
    QCOMPARE(bloque(d, "Segunda").textList(), vinetas);
    const QTextList* numeros = bloque(d, "Uno").textList();
    QVERIFY(numeros && numeros != vinetas);
    QCOMPARE(numeros->format().style(), QTextListFormat::ListDecimal);
    QCOMPARE(numeros->itemText(bloque(d, "Dos")), QStringLiteral("2."));
    QVERIFY(!bloque(d, "Cláusula").textList());
    QVERIFY(!bloque(d, "Celda A1").textList());
}

void tst_rtf::escritoPorWord()
{
    // Escrito a mano con lo que pone Word: tablas de estilos, temas, listas nuevas y antiguas,
    // campos, cabecera, nota al pie, imágenes, objetos, \upr y \bin.
    QTextDocument d;
    QVERIFY(leerBien(fichero("tests/datos/rtf/word.rtf"), d));
    const QStringList esperado{
        "CONTRATO DE ARRENDAMIENTO DE SERVICIOS",
        "En Jaén, a 5 de marzo de 2024, D.\u00A0José Peña “El Arquitecto” y Doña Inés — la cliente — acuerdan lo "
        "siguiente (véase el anexo), por 2.000€ más IVA.",
        "Redacción del proyecto básico", "Memoria y planos", "Dirección de obra", "Primer plazo", "Segundo plazo",
        "Viñeta antigua", "Número antiguo", "www.ejemplo.es", "Tachado y subrayado con Ω y resaltado."};
    QCOMPARE(textos(d), esperado);

    QCOMPARE(alineacion(d, "CONTRATO"), CENTRO);
    const QTextCharFormat titulo = formato(d, "CONTRATO");
    QCOMPARE(titulo.fontWeight(), int(QFont::Bold));
    QCOMPARE(titulo.fontPointSize(), 14.0);
    QCOMPARE(titulo.fontFamilies().toStringList(), QStringList{"Calibri"});
    QCOMPARE(alineacion(d, "En Jaén"), JUSTIFICADO);
    QCOMPARE(bloque(d, "En Jaén").blockFormat().bottomMargin(), 160 / 15.0);
    QCOMPARE(bloque(d, "En Jaén").blockFormat().lineHeightType(), int(QTextBlockFormat::ProportionalHeight));
    QCOMPARE(formato(d, "acuerdan").fontFamilies().toStringList(), QStringList{"Times New Roman"});
    QCOMPARE(formato(d, "acuerdan").fontPointSize(), 11.0);
    QCOMPARE(alineacion(d, "www"), DERECHA);
    QStringList vistos;
    for (const char* t : {"anexo", "acuerdan", "ejemplo", "Tachado", "subrayado"})
        vistos << rasgos(d, QString::fromUtf8(t));
    QCOMPARE(vistos, (QStringList{"C", "", "S#0563c1", "T", "S"}));
    QCOMPARE(color(formato(d, "resaltado").background()), QStringLiteral("#ffff00"));

    // Listas de \listtable por nivel, y las antiguas de \pn.
    const QTextList* vinetas = bloque(d, "Redacción").textList();
    QVERIFY(vinetas);
    QCOMPARE(vinetas->format().style(), QTextListFormat::ListDisc);
    QCOMPARE(vinetas->format().indent(), 1);
    QCOMPARE(bloque(d, "Dirección").textList(), vinetas);
    QCOMPARE(bloque(d, "Redacción").blockFormat().leftMargin(), 0.0);
    const QTextList* segundo = bloque(d, "Memoria").textList();
    QVERIFY(segundo && segundo != vinetas);
    QCOMPARE(segundo->format().style(), QTextListFormat::ListCircle);
    QCOMPARE(segundo->format().indent(), 2);
    const QTextList* letras = bloque(d, "Primer plazo").textList();
    QVERIFY(letras);
    QCOMPARE(letras->format().style(), QTextListFormat::ListLowerAlpha);
    QCOMPARE(letras->itemText(bloque(d, "Segundo plazo")), QStringLiteral("b)"));
    const QTextList* antigua = bloque(d, "Viñeta antigua").textList();
    QVERIFY(antigua && antigua != vinetas);
    QCOMPARE(antigua->format().style(), QTextListFormat::ListDisc);
    const QTextList* numero = bloque(d, "Número antiguo").textList();
    QVERIFY(numero && numero != antigua);
    QCOMPARE(numero->itemText(bloque(d, "Número antiguo")), QStringLiteral("1."));

    QCOMPARE(Rtf::pagina(d), std::optional(Rtf::Pagina{11906, 16838, 1701, 1701, 1417, 1417}));
}

void tst_rtf::idaYVuelta()
{
    QTextDocument original;
    original.setDefaultFont(QFont("Arial", 12));  // la del editor
    QTextCursor c(&original);
    const auto trozo = [&](const QString& texto, const std::function<void(QTextCharFormat&)>& cambio = {}) {
        QTextCharFormat f;
        f.setFontFamilies({"Arial"});
        f.setFontPointSize(12);
        if (cambio)
            cambio(f);
        c.insertText(texto, f);
    };
    const auto parrafo = [&](const std::function<void(QTextBlockFormat&)>& cambio = {}) {
        QTextBlockFormat f;
        if (cambio)
            cambio(f);
        if (c.position() > 0)
            c.insertBlock(f);
        else
            c.setBlockFormat(f);
    };

    parrafo([](QTextBlockFormat& f) { f.setAlignment(Qt::AlignHCenter); f.setBottomMargin(16); });
    trozo("Título", [](QTextCharFormat& f) { f.setFontWeight(QFont::Bold); f.setFontPointSize(14); });
    parrafo([](QTextBlockFormat& f) {
        f.setAlignment(Qt::AlignJustify);
        f.setLeftMargin(20);
        f.setRightMargin(10);
        f.setTextIndent(-12);
        f.setTopMargin(8);
        f.setLineHeight(150, QTextBlockFormat::ProportionalHeight);
    });
    trozo("normal ");
    trozo("cursiva ", [](QTextCharFormat& f) { f.setFontItalic(true); });
    trozo("subrayada ", [](QTextCharFormat& f) { f.setFontUnderline(true); });
    trozo("punteada ", [](QTextCharFormat& f) { f.setUnderlineStyle(QTextCharFormat::DotLine); });
    trozo("ondulada ", [](QTextCharFormat& f) { f.setUnderlineStyle(QTextCharFormat::WaveUnderline); });
    trozo("tachada ", [](QTextCharFormat& f) { f.setFontStrikeOut(true); });
    trozo("Times 10,5 ", [](QTextCharFormat& f) { f.setFontFamilies({"Times New Roman"}); f.setFontPointSize(10.5); });
    trozo("roja sobre amarillo ", [](QTextCharFormat& f) { f.setForeground(Qt::red); f.setBackground(Qt::yellow); });
    trozo("versalitas ", [](QTextCharFormat& f) { f.setFontCapitalization(QFont::SmallCaps); });
    trozo("2", [](QTextCharFormat& f) { f.setVerticalAlignment(QTextCharFormat::AlignSuperScript); });
    trozo("i", [](QTextCharFormat& f) { f.setVerticalAlignment(QTextCharFormat::AlignSubScript); });
    trozo(" todo junto", [](QTextCharFormat& f) {
        f.setFontWeight(QFont::Bold);
        f.setFontItalic(true);
        f.setFontUnderline(true);
        f.setFontStrikeOut(true);
        f.setFontFamilies({"Courier New"});
        f.setForeground(QColor(0, 128, 0));
    });
    parrafo([](QTextBlockFormat& f) {
        f.setAlignment(Qt::AlignRight);
        f.setLineHeight(20, QTextBlockFormat::FixedHeight);
        f.setTabPositions({QTextOption::Tab(100, QTextOption::LeftTab), QTextOption::Tab(300, QTextOption::RightTab),
                           QTextOption::Tab(200, QTextOption::CenterTab)});
        f.setNonBreakableLines(true);
    });
    trozo("áéíóú ÁÉÍÓÚ ñÑ üÜ ¿¡ ª º € “” ‘’ — – … Ω 漢 😀 \\ { } a\tb\u00A0c\u2028d");
    parrafo([](QTextBlockFormat& f) { f.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore); f.setLineHeight(18, QTextBlockFormat::MinimumHeight); });
    trozo("Tras salto de página");

    // Listas: viñetas de tres clases, números con prefijo y sufijo, letras, romanos y anidadas.
    const auto lista = [&](QTextListFormat::Style estilo, int sangria, const QStringList& elementos,
                           const QString& prefijo = {}, const QString& sufijo = ".") {
        QTextListFormat f;
        f.setStyle(estilo);
        f.setIndent(sangria);
        f.setNumberPrefix(prefijo);
        f.setNumberSuffix(sufijo);
        QTextList* l = nullptr;
        for (const QString& e : elementos) {
            parrafo();
            trozo(e);
            if (l)
                l->add(c.block());
            else
                l = c.createList(f);
        }
    };
    lista(QTextListFormat::ListDisc, 1, {"disco uno", "disco dos"});
    lista(QTextListFormat::ListCircle, 2, {"aro anidado"});
    lista(QTextListFormat::ListSquare, 3, {"cuadrado más hondo"});
    lista(QTextListFormat::ListDecimal, 1, {"número uno", "número dos"}, "(", ")");
    lista(QTextListFormat::ListLowerAlpha, 1, {"letra"});
    lista(QTextListFormat::ListUpperRoman, 1, {"romano"});
    parrafo();
    QTextCharFormat vacio;  // párrafo vacío: su marca guarda el formato que tomará lo que se escriba
    vacio.setFontFamilies({"Times New Roman"});
    vacio.setFontPointSize(20);
    vacio.setFontWeight(QFont::Bold);
    c.setBlockCharFormat(vacio);
    parrafo();
    trozo("último");
    const Rtf::Pagina pagina{16838, 11906, 1000, 1100, 1200, 1300};
    Rtf::ponerPagina(original, pagina);

    const QByteArray rtf = Rtf::escribir(original);
    QVERIFY(rtf.startsWith("{\\rtf1\\ansi\\ansicpg1252\\deff0"));
    QVERIFY(rtf.contains("{\\fonttbl{\\f0"));
    QVERIFY(rtf.contains("{\\colortbl;\\red"));
    QVERIFY(rtf.contains("{\\*\\listtable"));
    QCOMPARE(rtf.count("\\pard"), original.blockCount());
    for (const char* escape : {"\\'e1", "\\'f1", "\\'80", "\\'93", "\\u937?", "\\u28450?", "\\u-10179?", "\\\\", "\\{", "\\}",
                               "\\tab ", "\\~", "\\line "})
        QVERIFY2(rtf.contains(escape), escape);
    for (const char byte : rtf)
        QVERIFY2(uchar(byte) < 0x80, "sólo ASCII");

    QTextDocument leido;
    leido.setDefaultFont(original.defaultFont());
    QVERIFY(leerBien(rtf, leido));
    QCOMPARE(descripcion(leido), descripcion(original));
    QCOMPARE(leido.toPlainText(), original.toPlainText());
    QCOMPARE(Rtf::pagina(leido), std::optional(pagina));
    // Lo leído se vuelve a escribir igual, byte a byte.
    QCOMPARE(Rtf::escribir(leido), rtf);
}

void tst_rtf::pagina()
{
    QTextDocument d;
    d.setPlainText("x");
    QVERIFY(!Rtf::pagina(d));
    // Sin página propia se escribe A4 con los márgenes de siempre, y la impresora la toma igual.
    QVERIFY(Rtf::escribir(d).contains("\\paperw11906\\paperh16838\\margl1701\\margr1701\\margt1417\\margb1417"));
    QPageLayout a4 = Rtf::disenoPagina(d);
    QCOMPARE(a4.orientation(), QPageLayout::Portrait);
    QCOMPARE(qRound(a4.fullRect(QPageLayout::Millimeter).width()), 210);
    QCOMPARE(qRound(a4.margins(QPageLayout::Millimeter).left()), 30);

    Rtf::ponerPagina(d, {16838, 11906, 567, 567, 567, 567});
    const QPageLayout apaisada = Rtf::disenoPagina(d);
    QCOMPARE(apaisada.orientation(), QPageLayout::Landscape);
    QCOMPARE(qRound(apaisada.fullRect(QPageLayout::Millimeter).width()), 297);
    QCOMPARE(qRound(apaisada.margins(QPageLayout::Millimeter).top()), 10);
    // Se guarda en el marco raíz junto a su margen de siempre, sin cambiarlo.
    QCOMPARE(d.documentMargin(), QTextDocument().documentMargin());
}

void tst_rtf::noEsRtf_data()
{
    QTest::addColumn<QByteArray>("datos");
    QTest::newRow("vacío") << QByteArray();
    QTest::newRow("texto") << QByteArray("Hola, esto es texto sin formato");
    QTest::newRow("cabecera cortada") << QByteArray("{\\rt");
    QTest::newRow("html") << QByteArray("<html><body>{\\rtf1 hola}</body></html>");
    QTest::newRow("word binario") << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0\0", 11);
    QTest::newRow("zip") << QByteArray("PK\x03\x04{\\rtf1}");
}

void tst_rtf::noEsRtf()
{
    QFETCH(QByteArray, datos);
    QTextDocument d;
    d.setPlainText("lo que había");
    QString aviso;
    QVERIFY(!Rtf::leer(datos, d, &aviso));
    QCOMPARE(aviso, QStringLiteral("El fichero no es un documento de texto enriquecido (RTF)"));
    QCOMPARE(d.toPlainText(), QStringLiteral("lo que había"));  // no se pierde nada
}

void tst_rtf::entradasMalas_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("aviso");  // un trozo del aviso; vacío si no debe haberlo
    const QByteArray hondo(100000, '{'), cierre(100000, '}');
    QTest::newRow("bien, con blancos y BOM") << QByteArray("\xEF\xBB\xBF \r\n{\\rtf1 hola}\r\n\0\0", 22) << "hola" << "";
    QTest::newRow("llaves sin cerrar") << QByteArray("{\\rtf1 {\\b uno {\\i dos") << "uno dos" << "cortado";
    QTest::newRow("llaves de más") << QByteArray("{\\rtf1 uno}} dos}") << "uno dos" << "Sobran llaves";
    QTest::newRow("\\u raros") << QByteArray("{\\rtf1\\uc1 a\\u-3913?b\\u99999999999999999999?c\\u-99999?d\\u8364\\'80e"
                                             "\\uc0\\u241 f\\uc5\\u241 abcdefg{\\uc2\\u241 xyz}}")
                              << "a\uF0B7b\uFFFDc\uFFFDd€eñfñfgñz" << "\\u fuera de rango";
    QTest::newRow("\\u de control y marcas de Qt")
        << QByteArray("{\\rtf1 a\\u10?\\u13?\\u8233?\\u65532?\\u64976?b\\u-2?c}") << "a\n\uFFFD\uFFFDb\uFFFDc" << "";
    QTest::newRow("números enormes")
        << QByteArray("{\\rtf1\\fs99999999999999999 a\\li-99999999999\\fi99999999 b\\sl-999999999999\\cf99999\\highlight-5 c"
                      "\\ls999999999\\ilvl-5\\tx99999999999 d\\paperw-99999999999\\margl99999999999\\uc99999999\\u65 xyz e\\par}")
        << "abcdA" << "";
    QTest::newRow("\\bin enorme") << QByteArray("{\\rtf1 a\\bin99999999999999 xyz}") << "a" << "cortado";
    QTest::newRow("\\bin con llaves") << QByteArray("{\\rtf1 a{\\*\\datos\\bin3 }}{}b}") << "ab" << "";
    QTest::newRow("anidado muy hondo") << QByteArray("{\\rtf1 " + hondo + "\\b\\fs200 x" + cierre + " y}") << "x y" << "500 niveles";
    QTest::newRow("hondo sin cerrar") << QByteArray("{\\rtf1 a" + hondo + "b") << "ab" << "cortado";
    QTest::newRow("\\' sin cifras") << QByteArray("{\\rtf1 a\\'zzb\\'4") << "azzb" << "sin sus dos cifras";
    QTest::newRow("\\' al final") << QByteArray("{\\rtf1 abc\\'") << "abc" << "cortado";
    QTest::newRow("barra al final") << QByteArray("{\\rtf1 abc\\") << "abc" << "cortado";
    QTest::newRow("destinos desconocidos")
        << QByteArray("{\\rtf1 a{\\*\\desconocido b{\\c}}c{\\desconocido2 d}e{\\*\\pn{\\pntxtb x}}f}") << "acdef" << "";
    QTest::newRow("palabra larguísima") << QByteArray("{\\rtf1 a\\" + QByteArray(5000, 'x') + "123 b}") << "ab" << "";
    QTest::newRow("tablas rotas")
        << QByteArray("{\\rtf1{\\fonttbl{\\f0{\\colortbl;\\red1;}Ari;al;}{\\f-1 X}}{\\colortbl\\red999;;}{\\*\\listtable{\\listlevel"
                      "{\\leveltext\\'ff;}}{\\list{\\leveltext;}}}\\f0\\cf1\\ls1 a\\par\\ls0 b}")
        << "a\nb" << "";
    QTest::newRow("fuente con controles") << QByteArray("{\\rtf1{\\fonttbl{\\f0 A\\'01r\\tab ial;}{\\f1 \\'02;}}\\f0 x\\f1 y}")
                                          << "xy" << "";
    QTest::newRow("nivel de lista con controles")
        << QByteArray("{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'04(\\'0b\\'00);}}\\listid5}}"
                      "{\\*\\listoverridetable{\\listoverride\\listid5\\ls1}}\\pard\\ls1 a\\par\\pard\\ls1 b}")
        << "a\nb" << "";
    QTest::newRow("sólo la cabecera") << QByteArray("{\\rtf") << "" << "cortado";
}

void tst_rtf::entradasMalas()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, texto);
    QFETCH(QString, aviso);
    QTextDocument d;
    QString recibido;
    QVERIFY(Rtf::leer(rtf, d, &recibido));
    QCOMPARE(d.toPlainText(), texto);
    if (aviso.isEmpty())
        QCOMPARE(recibido, QString());
    else
        QVERIFY2(recibido.contains(aviso), qPrintable(recibido));
    // Lo escrito de lo leído se lee igual, y vuelto a escribir sale igual.
    QTextDocument otra;
    const QByteArray escrito = Rtf::escribir(d);
    QVERIFY(leerBien(escrito, otra));
    QCOMPARE(otra.toPlainText(), texto);
    QCOMPARE(Rtf::escribir(otra), escrito);
    if (QTest::currentDataTag() == QByteArray("fuente con controles"))
        QCOMPARE(formato(d, "x").fontFamilies().toStringList(), QStringList{"Arial"});
    if (QTest::currentDataTag() == QByteArray("nivel de lista con controles"))
        QCOMPARE(bloque(otra, "b").textList()->itemText(bloque(otra, "b")), QStringLiteral("(2)"));
}

void tst_rtf::cortadoEnCadaPosicion()
{
    // Una plantilla cortada en cada byte se lee sin caerse, con el texto que hay hasta el corte.
    // Los saltos de párrafo no cuentan: un \pard cortado es un \par.
    const auto sinSaltos = [](const QTextDocument& d) { return d.toPlainText().remove(u'\n'); };
    const QByteArray rtf = fichero("resources/Contratos/Nota_encargo.doc");
    QTextDocument entero;
    QVERIFY(leerBien(rtf, entero));
    const QString completo = sinSaltos(entero);
    QString anterior;
    const qsizetype final = rtf.lastIndexOf('}') + 1;
    for (qsizetype n = 5; n <= rtf.size(); ++n) {
        QTextDocument d;
        QString aviso;
        QVERIFY(Rtf::leer(rtf.left(n), d, &aviso));
        const QString parcial = sinSaltos(d);
        QVERIFY2(completo.startsWith(parcial), qPrintable(QString::number(n)));
        QVERIFY2(parcial.size() >= anterior.size(), qPrintable(QString::number(n)));
        QCOMPARE(aviso.isEmpty(), n >= final);
        anterior = parcial;
    }
    QCOMPARE(anterior, completo);
}

QTEST_MAIN(tst_rtf)
#include "tst_rtf.moc"
