// Prueba a ciegas del lector de RTF: durante N segundos lee entradas sacadas de los documentos de
// prueba y de las plantillas con cambios al azar (bytes, cortes, llaves, palabras de control con
// números raros, trozos de otro documento, o bytes sueltos con aspecto de RTF), y lo leído lo
// escribe y lo vuelve a leer. Se pasa con los comprobadores (fuzz_rtf.sh): una caída la dan ellos,
// y la entrada que la provocó queda en /tmp/fuzz_rtf_caida.rtf.
//   bench_fuzz_rtf [segundos=60] [semilla]
//   bench_fuzz_rtf --ver entrada.rtf   (deja lo escrito la primera y la segunda vez en /tmp/fuzz_rtf_ida*.rtf)
#include "reports/Rtf.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTextDocument>

#include <cstdio>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#define CON_COMPROBADORES 1
#endif

namespace {

QByteArray entradaActual;

void guardar(const char* ruta, const QByteArray& datos)
{
    if (FILE* f = std::fopen(ruta, "wb")) {
        std::fwrite(datos.constData(), 1, size_t(datos.size()), f);
        std::fclose(f);
    }
}

#ifdef CON_COMPROBADORES
void alCaer() { guardar("/tmp/fuzz_rtf_caida.rtf", entradaActual); }
#endif

QList<QByteArray> semillas()
{
    QList<QByteArray> r;
    for (const char* carpeta : {"tests/datos/rtf", "resources/Contratos"}) {
        const QDir dir(QStringLiteral(DIRECTORIO_FUENTES "/") + carpeta);
        for (const QString& nombre : dir.entryList(QDir::Files)) {
            QFile f(dir.filePath(nombre));
            if (f.open(QIODevice::ReadOnly) && f.peek(5) == "{\\rtf")
                r << f.readAll();
        }
    }
    return r;
}

class Mutador {
public:
    explicit Mutador(quint32 semilla) : azar_(semilla) {}

    QByteArray entrada(const QList<QByteArray>& semillas)
    {
        if (azar_.bounded(20) == 0)
            return aleatoria();
        QByteArray d = semillas.at(int(azar_.bounded(int(semillas.size()))));
        const int cambios = 1 + int(azar_.bounded(8));
        for (int i = 0; i < cambios && !d.isEmpty(); ++i)
            mutar(d, semillas);
        return d;
    }

private:
    qsizetype posicion(const QByteArray& d) { return qsizetype(azar_.bounded(quint32(d.size() + 1))); }

    QByteArray numero()
    {
        static const char* raros[] = {"0", "-1", "1", "8", "9", "23", "255", "256", "-32768", "32767", "65535", "65536",
                                      "-65536", "2147483647", "-2147483648", "4294967296", "99999999999999999999", "-"};
        if (azar_.bounded(3) == 0)
            return QByteArray::number(qint32(azar_.generate()));
        return raros[azar_.bounded(int(std::size(raros)))];
    }

    QByteArray palabra()
    {
        static const char* palabras[] = {
            "u", "uc", "bin", "'", "*", "fs", "f", "li", "ri", "fi", "sb", "sa", "sl", "slmult", "ls", "ilvl", "tx",
            "tqr", "cf", "cb", "highlight", "par", "pard", "plain", "line", "tab", "page", "cell", "row", "b", "i", "ul",
            "strike", "super", "v", "paperw", "margl", "ansicpg", "deff", "fonttbl", "colortbl", "red", "listtable",
            "list", "listlevel", "levelnfc", "leveltext", "listid", "listoverridetable", "listoverride", "pn",
            "pnlvlblt", "pnlvl", "pntxtb", "pntext", "listtext", "field", "fldinst", "fldrslt", "upr", "ud", "info",
            "pict", "stylesheet", "header", "footnote", "mac", "pc", "qc", "qj", "keep", "pagebb", "sect"};
        const QByteArray p = palabras[azar_.bounded(int(std::size(palabras)))];
        if (p == "'")
            return "\\'" + QByteArray::number(azar_.bounded(256), 16);
        QByteArray r = '\\' + p;
        if (azar_.bounded(2))
            r += numero();
        if (azar_.bounded(2))
            r += ' ';
        return r;
    }

    // Bytes con aspecto de RTF: llaves, barras, letras, cifras y algún byte alto.
    QByteArray aleatoria()
    {
        static const char alfabeto[] = "{}\\\\\\'*abcdefuilpqrs0123456789- ;\r\n\x80\xf1\xff";
        QByteArray r = "{\\rtf1";
        const int n = int(azar_.bounded(2000));
        for (int i = 0; i < n; ++i)
            r += azar_.bounded(4) == 0 ? palabra() : QByteArray(1, alfabeto[azar_.bounded(int(sizeof(alfabeto) - 1))]);
        return r;
    }

    void mutar(QByteArray& d, const QList<QByteArray>& semillas)
    {
        switch (azar_.bounded(9)) {
        case 0: {  // bytes cambiados
            const int n = 1 + int(azar_.bounded(16));
            for (int i = 0; i < n; ++i)
                d[qMin(posicion(d), d.size() - 1)] = char(azar_.bounded(256));
            break;
        }
        case 1:  // corte
            d.truncate(posicion(d));
            break;
        case 2:  // trozo quitado
            d.remove(posicion(d), azar_.bounded(200));
            break;
        case 3:  // llaves sueltas o en tanda
            d.insert(posicion(d), QByteArray(azar_.bounded(4) == 0 ? int(azar_.bounded(3000)) : 1, azar_.bounded(2) ? '{' : '}'));
            break;
        case 4:
        case 5:  // palabras de control con números raros
            d.insert(posicion(d), palabra());
            break;
        case 6: {  // trozo de otro documento
            const QByteArray& otro = semillas.at(int(azar_.bounded(int(semillas.size()))));
            const qsizetype desde = posicion(otro);
            d.insert(posicion(d), otro.mid(desde, azar_.bounded(500)));
            break;
        }
        case 7: {  // trozo repetido
            const qsizetype desde = posicion(d);
            d.insert(posicion(d), d.mid(desde, azar_.bounded(300)).repeated(1 + int(azar_.bounded(5))));
            break;
        }
        default:  // una cifra de un parámetro alargada
            for (qsizetype p = posicion(d); p < d.size(); ++p)
                if (d.at(p) >= '0' && d.at(p) <= '9') {
                    d.insert(p, numero());
                    break;
                }
            break;
        }
    }

    QRandomGenerator azar_;
};

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication aplicacion(argc, argv);
    if (argc > 2 && QByteArray(argv[1]) == "--ver") {
        QFile f(QString::fromLocal8Bit(argv[2]));
        if (!f.open(QIODevice::ReadOnly))
            return 2;
        QTextDocument d, otra;
        QString aviso, avisoOtra;
        const bool ok = Rtf::leer(f.readAll(), d, &aviso);
        std::printf("Primera lectura: %d %s\n", ok, qPrintable(aviso));
        const QByteArray escrito = Rtf::escribir(d);
        const bool okOtra = Rtf::leer(escrito, otra, &avisoOtra);
        std::printf("Segunda lectura: %d %s\n", okOtra, qPrintable(avisoOtra));
        guardar("/tmp/fuzz_rtf_ida1.rtf", escrito);
        guardar("/tmp/fuzz_rtf_ida2.rtf", Rtf::escribir(otra));
        return 0;
    }
    const int segundos = argc > 1 ? QByteArray(argv[1]).toInt() : 60;
    const quint32 semilla = argc > 2 ? QByteArray(argv[2]).toUInt() : QRandomGenerator::global()->generate();
#ifdef CON_COMPROBADORES
    __sanitizer_set_death_callback(alCaer);
#endif
    const QList<QByteArray> base = semillas();
    if (base.isEmpty()) {
        std::fprintf(stderr, "No hay documentos de partida en %s\n", DIRECTORIO_FUENTES);
        return 2;
    }
    std::printf("Semilla %u, %d documentos de partida, %d s\n", semilla, int(base.size()), segundos);
    std::fflush(stdout);

    Mutador mutador(semilla);
    QElapsedTimer reloj, una;
    reloj.start();
    qint64 entradas = 0, leidas = 0, noRtf = 0, conAviso = 0, textosDistintos = 0, formatosDistintos = 0, peorMs = 0;
    qint64 siguienteInforme = 60000;
    while (reloj.elapsed() < segundos * 1000LL) {
        entradaActual = mutador.entrada(base);
        ++entradas;
        una.start();
        QTextDocument d;
        QString aviso;
        if (!Rtf::leer(entradaActual, d, &aviso)) {
            ++noRtf;
        } else {
            ++leidas;
            conAviso += !aviso.isEmpty();
            // Lo escrito se lee sin avisos y con el mismo texto; escrito otra vez, sale igual.
            const QByteArray escrito = Rtf::escribir(d);
            QTextDocument otra;
            QString avisoOtra;
            const bool ok = Rtf::leer(escrito, otra, &avisoOtra);
            if (!ok || !avisoOtra.isEmpty() || otra.toPlainText() != d.toPlainText()) {
                if (textosDistintos++ < 5)
                    guardar(qPrintable(QStringLiteral("/tmp/fuzz_rtf_texto_%1.rtf").arg(textosDistintos)), entradaActual);
            } else if (Rtf::escribir(otra) != escrito) {
                if (formatosDistintos++ < 5)
                    guardar(qPrintable(QStringLiteral("/tmp/fuzz_rtf_formato_%1.rtf").arg(formatosDistintos)), entradaActual);
            }
        }
        peorMs = qMax(peorMs, una.elapsed());
        if (reloj.elapsed() >= siguienteInforme) {
            std::printf("  %lld s: %lld entradas\n", reloj.elapsed() / 1000, entradas);
            std::fflush(stdout);
            siguienteInforme += 60000;
        }
    }
    std::printf("Segundos: %lld\nEntradas: %lld (leídas %lld, con aviso %lld, no RTF %lld)\n"
                "Caídas: 0\nIda y vuelta con otro texto: %lld\nIda y vuelta con otro formato: %lld\n"
                "La entrada más lenta: %lld ms\n",
                reloj.elapsed() / 1000, entradas, leidas, conAviso, noRtf, textosDistintos, formatosDistintos, peorMs);
    return textosDistintos + formatosDistintos > 0 ? 1 : 0;
}
