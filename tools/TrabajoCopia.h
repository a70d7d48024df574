#pragma once
#include "core/Almacen.h"
#include "core/Error.h"

#include <QPointer>

class QProgressBar;
class QWidget;

// Mientras una copia o una restauración trabaja: cursor de espera, pantalla deshabilitada y la
// barra avanzando. La pantalla se repinta; lo que el usuario teclee o pulse espera a que termine,
// así nadie cierra nada ni abre un cuadro con el cerrojo de la base de datos tomado.
class TrabajoCopia {
public:
    TrabajoCopia(QWidget* pantalla, QProgressBar* barra);
    ~TrabajoCopia();
    TrabajoCopia(const TrabajoCopia&) = delete;
    TrabajoCopia& operator=(const TrabajoCopia&) = delete;
    Almacen::Latido latido();

private:
    QPointer<QWidget> m_pantalla;
    QPointer<QProgressBar> m_barra;
    QPointer<QWidget> m_foco;
};

// La barra de una pantalla de copia: oculta en reposo, sin mover lo demás al aparecer.
void prepararBarra(QProgressBar* barra);

// Otro puesto usa la base de datos: el aviso de la restauración (también en la copia, de la que
// se heredó) y su entrada callada en el registro, a nombre de la restauración.
void avisarBaseEnUso(const ErrorPrograma& e);
