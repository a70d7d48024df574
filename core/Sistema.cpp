#include "core/Sistema.h"

#include "core/Pantallas.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

namespace Sistema {

namespace {
ElectorCarpeta& elector()
{
    static ElectorCarpeta e;
    return e;
}
ElectorFichero& electorFichero()
{
    static ElectorFichero e;
    return e;
}
ElectorFichero& electorGuardar()
{
    static ElectorFichero e;
    return e;
}
Abridor& abridor()
{
    static Abridor a;
    return a;
}
}  // namespace

void instalarElectorCarpeta(ElectorCarpeta e) { elector() = std::move(e); }

QString elegirCarpeta(const QString& titulo)
{
    if (elector())
        return elector()(titulo);
    const QString d = QFileDialog::getExistingDirectory(Pantallas::ventanaPrincipal(), titulo, QString(),
                                                        QFileDialog::ShowDirsOnly);
    return QDir::toNativeSeparators(d);
}

void instalarElectorFichero(ElectorFichero e) { electorFichero() = std::move(e); }

QString elegirFichero(const QString& titulo, const QString& filtro)
{
    if (electorFichero())
        return electorFichero()(titulo, filtro);
    const QString f = QFileDialog::getOpenFileName(Pantallas::ventanaPrincipal(), titulo, QString(), filtro);
    return QDir::toNativeSeparators(f);
}

void instalarElectorGuardar(ElectorFichero e) { electorGuardar() = std::move(e); }

QString elegirFicheroGuardar(const QString& titulo, const QString& filtro, const QString& propuesto)
{
    if (electorGuardar())
        return electorGuardar()(titulo, filtro);
    const QString f = QFileDialog::getSaveFileName(Pantallas::ventanaPrincipal(), titulo, propuesto, filtro);
    return QDir::toNativeSeparators(f);
}

void instalarAbridor(Abridor a) { abridor() = std::move(a); }

int abrirDocumento(const QString& ruta)
{
    if (abridor())
        return abridor()(ruta);
    if (!QFileInfo::exists(ruta))
        return 2;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ruta)) ? 42 : 31;
}

QString carpetaDocumentos()
{
    return QDir::toNativeSeparators(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

}  // namespace Sistema
