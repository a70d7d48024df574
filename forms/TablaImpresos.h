#pragma once
#include <QList>
#include <QString>
#include <QStringList>

class frmMenu;
class QWidget;

// Tabla de los trece impresos: lo que el esqueleto común lee de cada uno. Una pantalla puede
// dar varios impresos (frmDatosImpreso_B1_B3_B4): cada uno es una variante con su código,
// informe, títulos y entrada del menú.
using AccionMenu = void (frmMenu::*)();

struct VarianteImpreso {
    QString tipoImpreso;        // TipoImpreso de la lista ("A1", "B4_A"...); vacío si la tabla sólo tiene uno
    QString codigo;             // el de iniciarInforme_Impreso
    QString marcaTipo;          // valor de TIPODOC o TipoCertificado; vacío: no se escribe
    QString informe;            // diseño del informe (crImpresoA1...); vacío: lo elige otra pantalla
    QString tituloVisor;
    QString tituloAlta;         // títulos de la pantalla al abrirla desde la lista
    QString tituloModificar;
    QString entradaMenu;        // "mnu_A1"
    AccionMenu accionMenu = nullptr;  // lista que se abre tras un "ALTA"
    int codigoBlanco = 0;       // código del impreso en blanco (1 a 13)
    QString tituloBlanco;       // título del visor del impreso en blanco
};

struct DefinicionImpreso {
    QString pantalla;           // frmDatosImpreso_A1
    QString tablaHistorico;     // datosA1B2
    QString columnaTipo;        // TIPODOC, TipoCertificado o vacío
    QString tablaTemporal;      // A1B2
    QStringList temporalesExtra;  // se vacían también en cada vista previa
    QString tablaBusqueda;      // clave de la lista: DATOSA1B2
    QString claveSeleccion;     // Tag del selector de proyecto
    QString claveRetorno;       // devolución del selector de proyecto
    QList<VarianteImpreso> variantes;
};

namespace TablaImpresos {

const QList<DefinicionImpreso>& todas();
const DefinicionImpreso* porPantalla(const QString& pantalla);
// Por clave de la lista y tipo de impreso (el tipo se ignora si la tabla sólo tiene uno).
const DefinicionImpreso* porLista(const QString& tabla, const QString& tipoImpreso, const VarianteImpreso** variante = nullptr);
const VarianteImpreso* porCodigoBlanco(int codigo, const DefinicionImpreso** definicion = nullptr);
const VarianteImpreso* porEntradaMenu(const QString& entradaMenu, const DefinicionImpreso** definicion = nullptr);

}  // namespace TablaImpresos

// ¿Está hecha la pantalla del impreso de esa entrada del menú ("mnu_A1")?
bool pantallaImpresoExiste(const QString& entradaMenu);
