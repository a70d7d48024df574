#pragma once
#include <QDialog>

// Guía rápida de los iconos del programa: cada dibujo con lo que hace.
class frmAyudaIconos : public QDialog {
    Q_OBJECT
public:
    explicit frmAyudaIconos(QWidget* padre = nullptr);
};
