#include "search/SeleccionTipo.h"

#include "core/modFunciones.h"

#include <QPushButton>
#include <QRadioButton>

SeleccionTipo::SeleccionTipo(QWidget* padre, QString claveLlamada, QString claveRetorno, QString prefijoOpciones, QList<Opcion> opciones)
    : Pantalla(padre), m_llamada(std::move(claveLlamada)), m_retorno(std::move(claveRetorno)), m_prefijo(std::move(prefijoOpciones)),
      m_opciones(std::move(opciones))
{
}

void SeleccionTipo::prepararPantalla()
{
    connect(findChild<QPushButton*>(QStringLiteral("cmd_Seleccionar")), &QPushButton::clicked, this,
            &SeleccionTipo::cmd_Seleccionar_Click);
    connect(findChild<QPushButton*>(QStringLiteral("cmd_Cerrar")), &QPushButton::clicked, this, [this] { Pantallas::descargar(this); });
}

void SeleccionTipo::preparar(PeticionSelector destino, std::function<void(const QString&)> alElegirTipo)
{
    m_destino = std::move(destino);
    m_alElegirTipo = std::move(alElegirTipo);
}

void SeleccionTipo::cmd_Seleccionar_Click()
{
    guardia(objectName(), QStringLiteral("cmd_Seleccionar_Click"), [&] {
        int elegida = 0;
        for (int i = 0; i < m_opciones.size(); ++i)
            if (auto* o = findChild<QRadioButton*>(m_prefijo + QStringLiteral("_%1").arg(i)); o && o->isChecked())
                elegida = i;
        const Opcion& o = m_opciones.at(elegida);
        if (m_alElegirTipo && !o.tipo.isEmpty())
            m_alElegirTipo(o.tipo);
        PeticionSelector p = m_destino;
        p.tabla = o.tabla;
        p.titulo = o.titulo;
        p.claveLlamada = m_llamada;
        p.claveRetorno = m_retorno;
        Pantallas::descargar(this);
        frmBuscarSeleccionar::abrir(p);
    });
}
