#pragma once
#include <QString>
#include <functional>

struct DefinicionImpreso;
struct VarianteImpreso;

// Vista previa de un impreso sobre su tabla temporal ya confirmada: descarga el visor que hubiera,
// crea el informe de la variante, lo conecta, le da sus filas y enseña el visor con el título.
// Sin título, el visor conserva el que tenía el que estaba abierto.
// Lanza ErrorPrograma si el diseño no existe; conectar y dar las filas anotan sus propios fallos.
void mostrarImpreso(const VarianteImpreso& variante, const QString& tituloVisor);

// Impreso en blanco (códigos 1 a 13 de la barra de la lista): vacía la tabla temporal y enseña
// el informe del impreso sobre ella. False si el código no tiene aún diseño o ha fallado.
bool generarImpresoEnBlanco(int codigo);

// Una variante concreta del impreso en blanco, con el título dado (vacío: el del visor abierto).
bool mostrarImpresoEnBlanco(const DefinicionImpreso& definicion, const VarianteImpreso& variante, const QString& tituloVisor);

// Impresos en blanco que no son un informe directo, sino una pantalla de las de arriba (el
// certificado fin de obra pregunta antes su diseño): generarImpresoEnBlanco(codigo) llama primero
// a lo registrado para el código, que devuelve si se ha enseñado.
void registrarImpresoEnBlanco(int codigo, std::function<bool()> generar);
