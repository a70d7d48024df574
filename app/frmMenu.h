#pragma once
#include <QMainWindow>

namespace Ui {
class frmMenu;
}
class CMdiBackground;
class QMdiArea;

// Pantalla principal: menú, barra de herramientas, fondo pintado; dentro se abren todas las
// demás pantallas. Decide también la salida del programa.
class frmMenu : public QMainWindow {
    Q_OBJECT
public:
    static frmMenu* instancia();       // la crea la primera vez
    static frmMenu* existente();       // nullptr si no está cargada
    ~frmMenu() override;

    QMdiArea* area() const;
    CMdiBackground* fondo() const { return m_fondo; }
    void abrirConfiguracion(int pestana);
    // Abre la lista de búsqueda de una entrada del menú (descarga la que hubiera antes).
    void abrirListaMaestra(const QString& tabla);
    void abrirListaImpreso(const QString& entradaMenu);

public slots:
    void mnu_Configuracion_Click();
    void mnu_RealizarCopia_Click();
    void mnu_RestaurarCopia_Click();
    void mnu_Salir_Click();
    void mnu_Proyectos_Click();
    void mnu_Arquitectos_Click();
    void mnu_Aparejadores_Click();
    void mnu_Contratistas_Click();
    void mnu_Clientes_Click();
    void mnu_A1_Click();
    void mnu_A2_Click();
    void mnu_A3_Click();
    void mnu_A4_Click();
    void mnu_A5_Click();
    void mnu_CSS_Click();
    void mnu_CertificadoFinObra_Click();
    void mnu_B1_Click();
    void mnu_B2_Click();
    void mnu_B3_Click();
    void mnu_B4_Ajeno_Click();
    void mnu_B4_Propio_Click();
    void mnu_ComunicadoDireccionCoordinador_Click();
    void mnu_Certificado_Click();
    void mnu_Contrato_Click();
    void mnu_Incompatibilidades_Click();
    void mnu_ListaChequeo_Click(int indice);
    void mnu_Editor_Click();
    void mnu_Indice_Click();
    void mnu_AyudaSimbolos_Click();
    void mnu_Ventana_Abrir();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    explicit frmMenu(QWidget* padre = nullptr);
    void MDIForm_Load();
    void crearBarra();
    void conectarMenu();
    void habilitarEntradas();

    Ui::frmMenu* ui;
    CMdiBackground* m_fondo = nullptr;
};
