#pragma once
#include <QObject>
#include <QString>
#include <functional>

class QLineEdit;

// Filtros de teclas de los campos de texto, por código de carácter como en KeyPress:
// devuelven el código si se admite y 0 si no (y dejan ese valor en "tecla").
constexpr int TECLA_RETROCESO = 8;

// Lo que un campo admite además de las cifras: {.menos = true}, {.coma = true}.
struct Admite {
    bool menos = false;
    bool coma = false;
};

// Retroceso y "0" a "9"; "-" sólo con menos y "," sólo con coma.
int admitirNumeros(int& tecla, Admite admite = {});
// Además las letras "a" a "z" y "A" a "Z" (ni acentos, ni "ñ", ni espacio).
int admitirLetrasNumeros(int& tecla, Admite admite = {});
// Campo del NIF: un "-" si el campo aún no tiene ninguno; lo demás, letras y números con guion.
int admitirTeclaNIF(int& tecla, const QString& textoActual);

// Instala una regla de teclas en un QLineEdit. Las pulsaciones rechazadas se descartan; las de
// movimiento, Suprimir, Retroceso y Ctrl+C/X/A siguen igual; lo que se pega (Ctrl+V, Mayús+Insert,
// menú contextual, botón central) pasa carácter a carácter por la misma regla. Se destruye con el campo.
class FiltroTeclas : public QObject {
    Q_OBJECT
public:
    // Recibe el código y el texto que quedaría delante de la inserción; 0 rechaza.
    using Regla = std::function<int(int tecla, const QString& textoActual)>;

    FiltroTeclas(QLineEdit* campo, Regla regla);

    // Pega el texto dado filtrándolo (lo que hace Ctrl+V con el portapapeles).
    void pegarFiltrado(const QString& texto);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QLineEdit* m_campo;
    Regla m_regla;
};

FiltroTeclas* instalarFiltroNumeros(QLineEdit* campo, Admite admite = {});
FiltroTeclas* instalarFiltroLetrasNumeros(QLineEdit* campo, Admite admite = {});
FiltroTeclas* instalarFiltroNIF(QLineEdit* campo);

// El "." (el del teclado numérico) escribe la coma decimal si el campo aún no tiene una, y si no
// se descarta. Se instala después del filtro de teclas del campo, para que se consulte antes.
void instalarPuntoComoComa(QLineEdit* campo);
