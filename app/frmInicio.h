#pragma once
#include <QList>
#include <QTimer>
#include <QWidget>

namespace Ui {
class frmInicio;
}

// Pantalla de arranque: comprueba, en un orden fijo, todo aquello en lo que se apoya el resto
// del programa (ubicación de la base de datos, fila de Config con IVA e IRPF), compacta la base
// de datos y da paso a la pantalla principal.
class frmInicio : public QWidget {
    Q_OBJECT
public:
    explicit frmInicio(QWidget* padre = nullptr);
    ~frmInicio() override;

    void Form_Load();
    int progreso() const { return m_progreso; }
    QList<int> valoresBarra() const { return m_valores; }  // para las pruebas
    bool abrirConfiguracion() const { return m_abrirConfiguracion; }
    bool temporizadorActivo() const { return tmr_1.isActive(); }

public slots:
    void tmr_1_Timer();

protected:
    void keyPressEvent(QKeyEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;

private:
    void comprobarBD();
    void compactarBD();
    void valoresPorDefectoTipos();
    void pasoBarra();
    void fijarBarra(int valor);

    Ui::frmInicio* ui;
    QTimer tmr_1;
    int m_progreso = 0;
    QList<int> m_valores;
    bool m_abrirConfiguracion = false;
    bool m_fallido = false;
};
