#include "forms/TablaImpresos.h"

#include "app/frmMenu.h"

namespace TablaImpresos {

namespace {

VarianteImpreso variante(const QString& tipo, const QString& codigo, const QString& marca, const QString& informe,
                         const QString& visor, const QString& alta, const QString& modificar, const QString& entrada,
                         AccionMenu accion, int blanco, const QString& tituloBlanco)
{
    return {tipo, codigo, marca, informe, visor, alta, modificar, entrada, accion, blanco, tituloBlanco};
}

QList<DefinicionImpreso> construir()
{
    QList<DefinicionImpreso> t;
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_A1"), QStringLiteral("datosA1B2"), QStringLiteral("TIPODOC"), QStringLiteral("A1B2"), {},
        QStringLiteral("DATOSA1B2"), QStringLiteral("SELECCIONAR_EN_IMPRESO_A1"), QStringLiteral("FRMDATOSIMPRESOA1_PROYECTO"),
        {variante(QStringLiteral("A1"), QStringLiteral("A1"), QStringLiteral("A1"), QStringLiteral("crImpresoA1"),
                  QStringLiteral("Comunicación de encargo profesional"),
                  QStringLiteral("Nuevo impreso 'Comunicación de encargo profesional'"),
                  QStringLiteral("Modificar impreso 'Comunicación de encargo profesional'"), QStringLiteral("mnu_A1"),
                  &frmMenu::mnu_A1_Click, 1, QStringLiteral("Comunicación de encargo profesional"))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_B2"), QStringLiteral("datosA1B2"), QStringLiteral("TIPODOC"), QStringLiteral("A1B2"), {},
        QStringLiteral("DATOSA1B2"), QStringLiteral("SELECCIONAR_EN_IMPRESO_B2"), QStringLiteral("FRMDATOSIMPRESOB2_PROYECTO"),
        {variante(QStringLiteral("B2"), QStringLiteral("B2"), QStringLiteral("B2"), QStringLiteral("crImpresoB2"),
                  QStringLiteral("Compromiso de aportar licencia municipal de obras"),
                  QStringLiteral("Nuevo impreso 'Compromiso de aportar licencia municipal de obras'"),
                  QStringLiteral("Modificar impreso 'Compromiso de aportar licencia municipal de obras'"), QStringLiteral("mnu_B2"),
                  &frmMenu::mnu_B2_Click, 2, QStringLiteral("Compromiso de aportar licencia municipal de obras"))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_A2"), QStringLiteral("datosA2"), QStringLiteral("TIPODOC"), QStringLiteral("A2"), {},
        QStringLiteral("DATOSA2"), QStringLiteral("SELECCIONAR_EN_IMPRESO_A2"), QStringLiteral("FRMDATOSIMPRESOA2_PROYECTO"),
        {variante({}, QStringLiteral("A2"), QStringLiteral("A2"), QStringLiteral("crImpresoA2"), QStringLiteral("Presentación de documentos"),
                  QStringLiteral("Nuevo impreso 'Presentación de documentos'"),
                  QStringLiteral("Modificar impreso 'Presentación de documentos'"), QStringLiteral("mnu_A2"),
                  &frmMenu::mnu_A2_Click, 3, QStringLiteral("Presentación de documentos"))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_A3"), QStringLiteral("datosA3"), QStringLiteral("TIPODOC"), QStringLiteral("A3"), {},
        QStringLiteral("DATOSA3"), QStringLiteral("SELECCIONAR_EN_IMPRESO_A3"), QStringLiteral("FRMDATOSIMPRESOA3_PROYECTO"),
        {variante({}, QStringLiteral("A3"), QStringLiteral("A3"), QStringLiteral("crImpresoA3"), QStringLiteral("Costes de referencia"),
                  QStringLiteral("Nuevo impreso 'Costes de referencia'"), QStringLiteral("Modificar impreso 'Costes de referencia'"),
                  QStringLiteral("mnu_A3"), &frmMenu::mnu_A3_Click, 4, QStringLiteral("Costes de referencia. CR."))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_A4"), QStringLiteral("datosA4A5"), QStringLiteral("TIPODOC"), QStringLiteral("A4"), {},
        QStringLiteral("DATOSA4A5"), QStringLiteral("SELECCIONAR_EN_IMPRESO_A4"), QStringLiteral("FRMDATOSIMPRESOA4_PROYECTO"),
        {variante(QStringLiteral("A4"), QStringLiteral("A4"), QStringLiteral("A4"), QStringLiteral("crImpresoA4"),
                  QStringLiteral("Comunicación de nombramiento de dirección de obra"),
                  QStringLiteral("Nuevo impreso 'Comunicación de nombramiento de dirección de obra'"),
                  QStringLiteral("Modificar impreso 'Comunicación de nombramiento de dirección de obra'"), QStringLiteral("mnu_A4"),
                  &frmMenu::mnu_A4_Click, 5, QStringLiteral("Comunicación de nombramiento de dirección de obra"))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_A5"), QStringLiteral("datosA4A5"), QStringLiteral("TIPODOC"), QStringLiteral("A5"), {},
        QStringLiteral("DATOSA4A5"), QStringLiteral("SELECCIONAR_EN_IMPRESO_A5"), QStringLiteral("FRMDATOSIMPRESOA5_PROYECTO"),
        {variante(QStringLiteral("A5"), QStringLiteral("A5"), QStringLiteral("A5"), QStringLiteral("crImpresoA5"),
                  QStringLiteral("Hoja resumen de características urbanísticas"),
                  QStringLiteral("Nuevo impreso 'Hoja resumen de características urbanísticas'"),
                  QStringLiteral("Modificar impreso 'Hoja resumen de características urbanísticas'"), QStringLiteral("mnu_A5"),
                  &frmMenu::mnu_A5_Click, 6, QStringLiteral("Hoja resumen de características urbanísticas"))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_CSS"), QStringLiteral("datosCOORDINADOR_SEGURIDAD_Y_SALUD"), {},
        QStringLiteral("COORDINADOR_SEGURIDAD_Y_SALUD"), {}, QStringLiteral("DATOSCOORDINADOR_SEGURIDAD_Y_SALUD"),
        QStringLiteral("SELECCIONAR_EN_IMPRESO_CSS"), QStringLiteral("FRMDATOSIMPRESOCSS_PROYECTO"),
        {variante(QStringLiteral("CSS"), QStringLiteral("CSS"), {}, QStringLiteral("crImpresoCSS"),
                  QStringLiteral("Comunicación de nombramiento de coordinador de Seguridad y Salud"),
                  QStringLiteral("Nuevo impreso 'Comunicación nombramiento de coordinador de Seg. y Salud'"),
                  QStringLiteral("Modificar impreso 'Comunicación de nombramiento de coordinador de Seg. y Salud'"),
                  QStringLiteral("mnu_CSS"), &frmMenu::mnu_CSS_Click, 7,
                  QStringLiteral("Comunicación de nombramiento de coordinador de Seg. y Salud"))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_B1_B3_B4"), QStringLiteral("datosB1B3B4"), {}, QStringLiteral("B1B3B4"), {},
        QStringLiteral("DATOSB1B3B4"), QStringLiteral("SELECCIONAR_EN_IMPRESO_B1_B3_B4"), QStringLiteral("FRMDATOSIMPRESOB1B3B4_PROYECTO"),
        {variante(QStringLiteral("B1"), QStringLiteral("B1"), {}, QStringLiteral("crImpresoB1"),
                  QStringLiteral("Factura de honorarios profesionales"),
                  QStringLiteral("Nuevo impreso 'Factura de honorarios profesionales'"),
                  QStringLiteral("Modificar impreso 'Factura de honorarios profesionales'"), QStringLiteral("mnu_B1"),
                  &frmMenu::mnu_B1_Click, 9, QStringLiteral("Factura de honorarios profesionales")),
         variante(QStringLiteral("B3"), QStringLiteral("B3"), {}, QStringLiteral("crImpresoB3"),
                  QStringLiteral("Retención a cuenta del I.R.P.F."), QStringLiteral("Nuevo impreso 'Retención a cuenta del I.R.P.F.'"),
                  QStringLiteral("Modificar impreso 'Retención a cuenta del I.R.P.F.'"), QStringLiteral("mnu_B3"),
                  &frmMenu::mnu_B3_Click, 10, QStringLiteral("Retención a cuenta del I.R.P.F.")),
         // Rama a la que el menú nunca llega; tras su "ALTA" no se abre ninguna lista.
         variante(QStringLiteral("B4"), QStringLiteral("B4"), {}, QStringLiteral("crImpresoB4"),
                  QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F."),
                  QStringLiteral("Nuevo impreso 'Certificado de retenciones a cuenta del I.R.P.F.'"),
                  QStringLiteral("Modificar impreso 'Certificado de retenciones a cuenta del I.R.P.F.'"), {}, nullptr, 0, {})}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_B4"), QStringLiteral("datosB4"), QStringLiteral("TipoCertificado"), QStringLiteral("B4"), {},
        QStringLiteral("DATOSB4"), QStringLiteral("SELECCIONAR_EN_IMPRESO_B4"), {},
        {variante(QStringLiteral("B4_A"), QStringLiteral("B4"), QStringLiteral("A"), QStringLiteral("crImpresoB4"),
                  QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F. (ajeno)"),
                  QStringLiteral("Nuevo impreso 'Certificado de retenciones a cuenta del I.R.P.F. (ajeno)'"),
                  QStringLiteral("Modificar impreso 'Certificado de retenciones a cuenta del I.R.P.F. (ajeno)'"),
                  QStringLiteral("mnu_B4_Ajeno"), &frmMenu::mnu_B4_Ajeno_Click, 11,
                  QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F."))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_B4_Propio"), QStringLiteral("datosB4"), QStringLiteral("TipoCertificado"), QStringLiteral("B4"), {},
        QStringLiteral("DATOSB4"), QStringLiteral("SELECCIONAR_EN_IMPRESO_B4_PROPIO"), {},
        {variante(QStringLiteral("B4_P"), QStringLiteral("B4"), QStringLiteral("P"), QStringLiteral("crImpresoB4"),
                  QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F. (propio)"),
                  QStringLiteral("Nuevo impreso 'Certificado de retenciones a cuenta del I.R.P.F. (propio)'"),
                  QStringLiteral("Modificar impreso 'Certificado de retenciones a cuenta del I.R.P.F. (propio)'"),
                  QStringLiteral("mnu_B4_Propio"), &frmMenu::mnu_B4_Propio_Click, 11,
                  QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F."))}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_Certificado"), QStringLiteral("datosCERTIFICADO"), {}, QStringLiteral("CERTIFICADO"), {},
        QStringLiteral("DATOSCERTIFICADO"), QStringLiteral("SELECCIONAR_EN_IMPRESO_CERTIFICADO_ARQ"),
        QStringLiteral("FRMDATOSIMPRESO_CERTIFICADO"),
        {variante({}, QStringLiteral("CERTIFICADO"), {}, QStringLiteral("crCertificado"), QStringLiteral("Certificado"),
                  QStringLiteral("Nuevo certificado"), QStringLiteral("Modificar certificado"), QStringLiteral("mnu_Certificado"),
                  &frmMenu::mnu_Certificado_Click, 12, QStringLiteral("Certificado"))}};
    // El informe y el título los elige frmSeleccionarTipoCertificado.
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_CertificadoFinObra"), QStringLiteral("datosFinObra"), QStringLiteral("TIPODOC"),
        QStringLiteral("FinObra"), {}, QStringLiteral("DATOSFINOBRA"), QStringLiteral("SELECCIONAR_EN_IMPRESO_CERTIFICADO"),
        QStringLiteral("FRMDATOSIMPRESOCFO_PROYECTO"),
        {variante({}, QStringLiteral("CFO"), QStringLiteral("CFO"), {}, {}, QStringLiteral("Nuevo impreso 'Certificado Fin de obra'"),
                  QStringLiteral("Modificar impreso 'Certificado Fin de obra'"), QStringLiteral("mnu_CertificadoFinObra"),
                  &frmMenu::mnu_CertificadoFinObra_Click, 8, {})}};
    t << DefinicionImpreso{
        QStringLiteral("frmDatosImpreso_ComunicadoDireccionCoordinador"), QStringLiteral("datosCOMUNICADO_DIRECCION_Y_COORDINADOR"), {},
        QStringLiteral("COMUNICADO_DIRECCION_Y_COORDINADOR"),
        {QStringLiteral("DirectoresObra_Tmp"), QStringLiteral("DirectoresDeEjecucion_Tmp"), QStringLiteral("CoordinadoresSS_Tmp")},
        QStringLiteral("DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR"), QStringLiteral("SELECCIONAR_EN_IMPRESO_CDC"),
        QStringLiteral("FRMDATOSIMPRESOCDC_PROYECTO"),
        {variante({}, QStringLiteral("CDC"), {}, QStringLiteral("crImpresoComunicadoDireccionCoordinador"),
                  QStringLiteral("Comunicado Dirección y Coordinador"),
                  QStringLiteral("Nuevo impreso 'Comunicado Dirección y Coordinador'"),
                  QStringLiteral("Modificar impreso 'Comunicado dirección y coordinador'"),
                  QStringLiteral("mnu_ComunicadoDireccionCoordinador"), &frmMenu::mnu_ComunicadoDireccionCoordinador_Click, 13,
                  QStringLiteral("Comunicado Dirección y Coordinador"))}};
    return t;
}

}  // namespace

const QList<DefinicionImpreso>& todas()
{
    static const QList<DefinicionImpreso> t = construir();
    return t;
}

const DefinicionImpreso* porPantalla(const QString& pantalla)
{
    for (const DefinicionImpreso& d : todas())
        if (d.pantalla == pantalla)
            return &d;
    return nullptr;
}

const DefinicionImpreso* porLista(const QString& tabla, const QString& tipoImpreso, const VarianteImpreso** variante)
{
    // DATOSCOORDINADOR_SEGURIDAD_Y_SALUD comparte las pantallas de DATOSA4A5 según su tipo.
    const QString clave = tabla.toUpper() == QLatin1String("DATOSCOORDINADOR_SEGURIDAD_Y_SALUD") && tipoImpreso != QLatin1String("CSS")
                              ? QStringLiteral("DATOSA4A5")
                              : tabla.toUpper();
    for (const DefinicionImpreso& d : todas()) {
        const bool mismaLista = d.tablaBusqueda == clave ||
                                (d.pantalla == QLatin1String("frmDatosImpreso_CSS") && clave == QLatin1String("DATOSA4A5"));
        if (!mismaLista)
            continue;
        for (const VarianteImpreso& v : d.variantes) {
            if (v.tipoImpreso.isEmpty() || v.tipoImpreso == tipoImpreso) {
                if (variante)
                    *variante = &v;
                return &d;
            }
        }
    }
    return nullptr;
}

const VarianteImpreso* porCodigoBlanco(int codigo, const DefinicionImpreso** definicion)
{
    for (const DefinicionImpreso& d : todas())
        for (const VarianteImpreso& v : d.variantes)
            if (v.codigoBlanco == codigo && codigo > 0) {
                if (definicion)
                    *definicion = &d;
                return &v;
            }
    return nullptr;
}

const VarianteImpreso* porEntradaMenu(const QString& entradaMenu, const DefinicionImpreso** definicion)
{
    for (const DefinicionImpreso& d : todas())
        for (const VarianteImpreso& v : d.variantes)
            if (!v.entradaMenu.isEmpty() && v.entradaMenu == entradaMenu) {
                if (definicion)
                    *definicion = &d;
                return &v;
            }
    return nullptr;
}

}  // namespace TablaImpresos
