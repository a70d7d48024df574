#pragma once
#include "core/Pantallas.h"

#include <memory>

class VisorPaginas;
namespace Ui { class frmVisorCrystal; }

// La vista preliminar de todos los informes: enseña modInformes::Informe, imprime y guarda PDF.
// Al descargarse llama a modInformes::cerrar(). El título lo pone quien la abre.
class frmVisorCrystal : public Pantalla {
    Q_OBJECT
public:
    explicit frmVisorCrystal(QWidget* padre = nullptr);
    ~frmVisorCrystal() override;

    // Crea el visor del informe en curso, le pone el título y lo enseña en la ventana principal.
    static frmVisorCrystal* mostrarInforme(const QString& titulo);

    VisorPaginas* visor() const { return CRViewer91; }
    int paginaActual() const;
    int numeroPaginas() const;
    void irAPagina(int pagina);
    // Escribe el PDF sin preguntar (lo que hace el botón tras su diálogo).
    bool guardarPDF(const QString& ruta);

protected:
    bool alDescargar() override;

private slots:
    void cmd_Imprimir_Click();
    void cmd_GuardarPDF_Click();
    void actualizarPagina();

private:
    std::unique_ptr<Ui::frmVisorCrystal> ui;
    VisorPaginas* CRViewer91 = nullptr;
    bool m_fallo = false;
};
