#pragma once
#include <QList>
#include <QString>
#include <QStringList>

// Tabla de los trece impresos: lo que leen de cada uno su pantalla, su lista, el impreso en
// blanco y el conductor de informes. Una pantalla puede dar varios impresos o varios diseños
// (frmDatosImpreso_B1_B3_B4, el certificado fin de obra): cada uno es una variante.

struct VarianteImpreso {
    QString tipoImpreso{};        // TipoImpreso que da el menú a la lista ("A1", "B4_A"...)
    QString codigo{};             // el de iniciarInforme_Impreso
    QString marcaTipo{};          // valor de TIPODOC o TipoCertificado; vacío: no se escribe
    QString informe{};            // diseño del informe (crImpresoA1...)
    QString tituloVisor{};        // vacío: el visor conserva el título que tenga
    QString tituloAlta{};         // títulos de la pantalla al abrirla desde la lista
    QString tituloModificar{};
    QString entradaMenu{};        // "mnu_A1"
    QString tituloLista{};        // título de la lista del menú; vacío: tras un "ALTA" no se abre ninguna
    int codigoBlanco = 0;       // código del impreso en blanco (1 a 13); 0: no tiene
    QString tituloBlanco{};       // título del visor del impreso en blanco
    QString tablaInforme{};       // filas del informe, si no son las de la tabla temporal
    QStringList subinformes{};    // tablas de Subreport1, Subreport2...
    QString enlace{};             // columna que ata las filas de los subinformes a las del informe
};

struct DefinicionImpreso {
    QString pantalla{};           // frmDatosImpreso_A1
    QString tablaHistorico{};     // datosA1B2
    QString columnaTipo{};        // TIPODOC, TipoCertificado o vacío
    QString tablaTemporal{};      // A1B2
    QStringList temporalesExtra{};  // se vacían también en cada vista previa
    QString tablaBusqueda{};      // clave de la lista: DATOSA1B2
    QString claveSeleccion{};     // Tag del selector de proyecto
    QString claveRetorno{};       // nombre de la devolución del selector de proyecto
    bool conProyecto = true;    // el par del proyecto (txt_CodProyecto, txt_Proyecto) y su selector
    QList<VarianteImpreso> variantes{};
};

namespace TablaImpresos {

const QList<DefinicionImpreso>& todas();
const DefinicionImpreso* porPantalla(const QString& pantalla);
// Por clave de la lista y tipo de impreso (el tipo no cuenta si la pantalla sólo da un impreso).
const DefinicionImpreso* porLista(const QString& tabla, const QString& tipoImpreso, const VarianteImpreso** variante = nullptr);
const VarianteImpreso* porCodigoBlanco(int codigo, const DefinicionImpreso** definicion = nullptr);
const VarianteImpreso* porEntradaMenu(const QString& entradaMenu, const DefinicionImpreso** definicion = nullptr);

// Filas que recibe el informe de un código de impreso: la tabla principal y las de sus
// subinformes, en orden. Vacío si el código no existe.
struct OrigenInforme {
    QString tabla;
    QStringList subinformes;
    QString enlace;  // con él, cada subinforme sólo da las filas de las del informe
};
OrigenInforme origenInforme(const QString& codigo);

inline const QString AVISO_FALLO =
    QStringLiteral("La operación no se ha podido realizar correctamente.\nPor favor, inténtelo de nuevo");

}  // namespace TablaImpresos
