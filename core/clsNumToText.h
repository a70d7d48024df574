#pragma once
#include <QString>

// Importes en letra, con género y unidades, para la línea del total de las facturas.
// La única llamada del programa es Numero2Letra(texto sin puntos, 0, 2, "euro", "céntimo", -1, -1).
// Las faltas de ortografía de la salida ("un euros", "veintiuna céntimos") son las de siempre.
// Cada rutina atrapa sus propios fallos: los anota en el registro con su nombre, los enseña y
// devuelve lo que llevaba (el texto vacío), y quien la llamó sigue.
class clsNumToText {
public:
    static constexpr int VERDADERO = -1;

    clsNumToText();

    // Importe en letra. longitudFija 0: longitud libre; si no, el resultado se rellena o corta a
    // esa longitud. Un texto que no es número falla aquí y devuelve "". Con longitud fija y sin
    // céntimos, Pluralizar falla (recibe el relleno de espacios): salen las palabras sin unidad.
    QString Numero2Letra(const QString& numero, int longitudFija, int decimales, const QString& unidad,
                         const QString& centimos, int masculino, int centimosMasculino);

    // Palabras de un número entero; conserva las 12 últimas cifras. Sólo la preparación tiene
    // trampa propia: si el texto no es numérico lanza ErrorPrograma a quien llama.
    QString UnNumero(QString numero, const QString& generoRecibido);

    // Unidad con sus espacios alrededor, en plural salvo que la cantidad valga exactamente 1.
    // Una cantidad que no es número da "" (y la entrada del registro).
    QString Pluralizar(QString cantidad, QString unidad, bool todasLasPalabras);

    // Normaliza los separadores del texto y devuelve los del sistema.
    QString ConvDecimal(QString numero, QString* separadorDecimal = nullptr, QString* separadorMiles = nullptr);

    void InicializarArrays();

private:
    QString arrUnidades[10];
    QString arrDecenas[10];
    QString arrCentenas[11];
    QString arrDecenasCompuestas[10];
    QString arrEspeciales[16];

    QString genero = QStringLiteral("a");
    QString plural = QStringLiteral("as");
    int longGenero = 1;
    int masculinoAnterior = 0;
};
