// Escribe con Rtf::escribir un documento con negrita, cursiva, subrayado, las cuatro alineaciones,
// viñetas, números y caracteres españoles, para abrirlo con LibreOffice (libreoffice_rtf.sh).
//   bench_rtf_escribir fichero.rtf
#include "reports/Rtf.h"

#include <QFile>
#include <QGuiApplication>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <cstdio>

int main(int argc, char** argv)
{
    QGuiApplication aplicacion(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "Uso: bench_rtf_escribir fichero.rtf\n");
        return 2;
    }
    QTextDocument d;
    d.setDefaultFont(QFont(QStringLiteral("Arial"), 12));
    QTextCursor c(&d);
    const auto parrafo = [&](Qt::Alignment alineacion, bool primero = false) {
        QTextBlockFormat f;
        f.setAlignment(alineacion);
        if (primero)
            c.setBlockFormat(f);
        else
            c.insertBlock(f, QTextCharFormat());
    };
    QTextCharFormat normal, negrita, cursiva, subrayado;
    negrita.setFontWeight(QFont::Bold);
    cursiva.setFontItalic(true);
    subrayado.setFontUnderline(true);

    parrafo(Qt::AlignHCenter, true);
    QTextCharFormat titulo = negrita;
    titulo.setFontPointSize(16);
    c.insertText(QStringLiteral("CONTRATO DE ENCARGO PROFESIONAL"), titulo);
    parrafo(Qt::AlignLeft);
    c.insertText(QStringLiteral("Texto con "), normal);
    c.insertText(QStringLiteral("palabras en negrita"), negrita);
    c.insertText(QStringLiteral(", "), normal);
    c.insertText(QStringLiteral("otras en cursiva"), cursiva);
    c.insertText(QStringLiteral(" y "), normal);
    c.insertText(QStringLiteral("subrayadas"), subrayado);
    c.insertText(QStringLiteral("."), normal);
    parrafo(Qt::AlignRight);
    c.insertText(QStringLiteral("Párrafo alineado a la derecha"), normal);
    parrafo(Qt::AlignJustify);
    c.insertText(QStringLiteral("Cláusula única: el señor Muñoz abonará 1.500 € por el diseño; «el año» y Ω."), normal);
    QTextListFormat vinetas;
    vinetas.setStyle(QTextListFormat::ListDisc);
    parrafo(Qt::AlignLeft);
    c.insertText(QStringLiteral("Primera viñeta"), normal);
    QTextList* lista = c.createList(vinetas);
    parrafo(Qt::AlignLeft);
    c.insertText(QStringLiteral("Segunda viñeta"), normal);
    lista->add(c.block());
    QTextListFormat numeros;
    numeros.setStyle(QTextListFormat::ListDecimal);
    numeros.setNumberSuffix(QStringLiteral("."));
    parrafo(Qt::AlignLeft);
    c.insertText(QStringLiteral("Primer punto"), normal);
    lista = c.createList(numeros);
    parrafo(Qt::AlignLeft);
    c.insertText(QStringLiteral("Segundo punto"), normal);
    lista->add(c.block());

    QFile f(QString::fromLocal8Bit(argv[1]));
    if (!f.open(QIODevice::WriteOnly) || f.write(Rtf::escribir(d)) < 0) {
        std::fprintf(stderr, "No se puede escribir %s\n", argv[1]);
        return 1;
    }
    return 0;
}
