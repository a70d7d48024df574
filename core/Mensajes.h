#pragma once
#include <QString>
#include <functional>

class QWidget;

// Cuadros de mensaje del programa, con sus títulos, iconos y botones fijos.
// Las pruebas instalan un contestador que registra cada cuadro y elige la respuesta.
namespace Mensajes {

enum class Icono { Ninguno, Exclamacion, Pregunta, Informacion };
enum class Botones { Aceptar, SiNo, SiNoCancelar };
enum class Respuesta { Aceptar, Si, No, Cancelar };

struct Cuadro {
    QString titulo;
    QString texto;
    Icono icono = Icono::Ninguno;
    Botones botones = Botones::Aceptar;
    Respuesta porDefecto = Respuesta::Aceptar;
};

using Contestador = std::function<Respuesta(const Cuadro&)>;
void instalarContestador(Contestador c);  // vacío: cuadros reales
bool hayContestador();

Respuesta mostrar(const Cuadro& cuadro);

// "Aviso", exclamación, Aceptar: regla incumplida, algo falta o ha fallado.
void aviso(const QString& texto);
// "Información", información, Aceptar: algo se ha hecho.
void informacion(const QString& texto);
// "Pregunta", interrogación, Sí y No; Sí por defecto salvo que se pida No.
Respuesta pregunta(const QString& texto, Respuesta porDefecto = Respuesta::Si);
// "Pregunta", interrogación, Sí, No y Cancelar, Sí por defecto.
Respuesta preguntaCancelar(const QString& texto);
// "Aviso" con interrogación, Sí y No, No por defecto: los tres cuadros de los tipos de IVA e IRPF.
Respuesta preguntaAviso(const QString& texto);
// "Aviso" sin icono: la entrada del registro enseñada al usuario.
void mostrarEntradaLog(const QString& entrada);

// Mientras una transacción sigue abierta, los cuadros que sólo informan (Aceptar) esperan a que se
// confirme o se deshaga: nadie lee un cuadro mientras los demás puestos esperan al cerrojo. Las
// llamadas se anidan; al soltar la última, los retenidos salen en su orden.
void retener();
void soltar();

}  // namespace Mensajes
