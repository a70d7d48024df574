#include "core/Fichas.h"

#include <QHash>

namespace Fichas {

namespace {
QHash<QString, Abridor>& abridores()
{
    static QHash<QString, Abridor> a;
    return a;
}
}  // namespace

void registrar(const QString& tabla, Abridor abridor) { abridores().insert(tabla.toUpper(), std::move(abridor)); }

bool registrada(const QString& tabla) { return abridores().contains(tabla.toUpper()); }

bool abrir(const PeticionFicha& p)
{
    const auto it = abridores().constFind(p.tabla.toUpper());
    return it != abridores().constEnd() && (*it)(p);
}

}  // namespace Fichas
