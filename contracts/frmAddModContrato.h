#pragma once
#include "core/Pantallas.h"

namespace Ui {
class frmAddModContrato;
}
namespace RegistroContratos {
struct Contrato;
}

// Un documento de contrato: en "ALTA" se crea copiando su plantilla (la base del tipo o una
// personal) en la carpeta elegida y se anota en el registro; en "MODIFICAR" se cambia su
// anotación (nombre, ruta, si sirve de plantilla) sin tocar el fichero.
class frmAddModContrato : public Pantalla {
    Q_OBJECT
public:
    ~frmAddModContrato() override;

    // Abren la pantalla (la que hubiera abierta se cierra antes).
    static frmAddModContrato* alta(const QString& tipoDocumento);
    static frmAddModContrato* modificar(const RegistroContratos::Contrato& contrato);

    QString TipoDocumento;  // "1" a "5"
    qint64 Clave = 0;       // el documento en mano, en "MODIFICAR"
    bool esModificar() const { return tag() == QLatin1String("MODIFICAR"); }

    bool validarDatos();

public slots:
    void cmd_Generar_Click();
    void cmd_Actualizar_Click();
    void cmd_Examinar_Click();
    void cbo_Plantilla_DropDown();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    explicit frmAddModContrato(QWidget* padre = nullptr);
    static frmAddModContrato* crear(const QString& operacion, const QString& titulo, const QString& tipoDocumento);
    void Form_Load();
    void cargarPlantillas();
    // Fichero de la plantilla elegida y tipo del documento nuevo; vacíos si no se pueden establecer.
    void buscarPlantilla(QString& origen, QString& tipo) const;
    bool rutaAdmitida(const QString& ruta);
    void refrescarRegistro() const;

    Ui::frmAddModContrato* ui;
};
