#include "search/frmAyudaBuscarSeleccionar.h"

#include "ui_frmAyudaBuscarSeleccionar.h"

frmAyudaBuscarSeleccionar::frmAyudaBuscarSeleccionar(QWidget* padre)
    : AyudaBusqueda(padre), ui(new Ui::frmAyudaBuscarSeleccionar)
{
    ui->setupUi(this);
    enlazarControles();
}

frmAyudaBuscarSeleccionar::~frmAyudaBuscarSeleccionar() { delete ui; }
