#include "search/frmAyudaBuscar.h"

#include "ui_frmAyudaBuscar.h"

frmAyudaBuscar::frmAyudaBuscar(QWidget* padre) : AyudaBusqueda(padre), ui(new Ui::frmAyudaBuscar)
{
    ui->setupUi(this);
    enlazarControles();
}

frmAyudaBuscar::~frmAyudaBuscar() { delete ui; }
