#pragma once
#include "core/Pantallas.h"

#include <memory>

class QRadioButton;
namespace Ui {
class frmSeleccionarTipoCertificado;
}

// Cuál de los cuatro diseños del certificado fin de obra se imprime: el conjunto, el del arquitecto
// solo y las dos legalizaciones. Se abre tras guardar el impreso o desde el impreso en blanco de su
// lista, y enseña el elegido sobre la tabla FinObra. "&Cancelar" no enseña nada (lo guardado, guardado).
class frmSeleccionarTipoCertificado : public Dialogo {
    Q_OBJECT
public:
    explicit frmSeleccionarTipoCertificado(QWidget* padre = nullptr);
    ~frmSeleccionarTipoCertificado() override;

    // Quién la abre: el impreso recién guardado o la lista, que pide el impreso en blanco.
    static inline const QString RETORNO_IMPRESO = QStringLiteral("FRMDATOSIMPRESO_CERTIFICADOFINOBRA");
    static inline const QString RETORNO_EN_BLANCO = QStringLiteral("FRMBUSCAR");
    QString ClaveRetorno;

    // La abre con su clave de retorno y espera la elección; devuelve si se ha enseñado un informe.
    static bool elegir(const QString& claveRetorno);

    void Form_Load();  // centrada, con la primera opción
    void cmd_Imprimir_Click();
    void cmd_Cerrar_Click();
    int opcionElegida() const;
    bool informeMostrado() const { return m_mostrado; }

private:
    std::unique_ptr<Ui::frmSeleccionarTipoCertificado> ui;
    QList<QRadioButton*> m_opciones;
    bool m_mostrado = false;
};
