#include "search/SeleccionTipo.h"

#include "core/modFunciones.h"
#include "masterdata/FichaRegistro.h"
#include "search/frmBuscarSeleccionar.h"

#include <QPushButton>
#include <QRadioButton>

SeleccionTipo::SeleccionTipo(QWidget* padre, QString claveLlamada, QString claveRetorno, QString receptor, QString campoTipo,
                             QString prefijoOpciones, QList<Opcion> opciones)
    : Pantalla(padre), m_llamada(std::move(claveLlamada)), m_retorno(std::move(claveRetorno)), m_receptor(std::move(receptor)),
      m_campoTipo(std::move(campoTipo)), m_prefijo(std::move(prefijoOpciones)), m_opciones(std::move(opciones))
{
}

void SeleccionTipo::prepararPantalla()
{
    connect(findChild<QPushButton*>(QStringLiteral("cmd_Seleccionar")), &QPushButton::clicked, this,
            &SeleccionTipo::cmd_Seleccionar_Click);
    connect(findChild<QPushButton*>(QStringLiteral("cmd_Cerrar")), &QPushButton::clicked, this, [this] { Pantallas::descargar(this); });
}

void SeleccionTipo::cmd_Seleccionar_Click()
{
    guardia(objectName(), QStringLiteral("cmd_Seleccionar_Click"), [&] {
        int elegida = 0;
        for (int i = 0; i < m_opciones.size(); ++i)
            if (auto* o = findChild<QRadioButton*>(m_prefijo + QStringLiteral("_%1").arg(i)); o && o->isChecked())
                elegida = i;
        const Opcion& o = m_opciones.at(elegida);
        if (!m_campoTipo.isEmpty())
            if (QWidget* r = Devolucion::receptor(m_receptor))
                Devolucion::escribir(r, m_campoTipo, o.tipo);
        Pantallas::descargar(this);
        frmBuscarSeleccionar::abrir(o.tabla, m_llamada, o.titulo, m_retorno);
    });
}
