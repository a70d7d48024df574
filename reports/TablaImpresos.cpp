#include "reports/TablaImpresos.h"

namespace TablaImpresos {

namespace {

QString categoria(const char* nombre)
{
    return QStringLiteral("Impresos encontrados de la categoría '") + QString::fromUtf8(nombre) + QLatin1Char('\'');
}
QString nuevo(const char* titulo) { return QStringLiteral("Nuevo impreso '") + QString::fromUtf8(titulo) + QLatin1Char('\''); }
QString modificar(const char* titulo) { return QStringLiteral("Modificar impreso '") + QString::fromUtf8(titulo) + QLatin1Char('\''); }

// Lo habitual: un impreso con el mismo título en la pantalla, el visor, la lista y el blanco.
VarianteImpreso sencilla(const char* tipo, const char* codigo, const char* marca, const char* informe, const char* titulo,
                         const char* entrada, int blanco)
{
    const QString t = QString::fromUtf8(titulo);
    return {.tipoImpreso = QString::fromLatin1(tipo),
            .codigo = QString::fromLatin1(codigo),
            .marcaTipo = QString::fromLatin1(marca),
            .informe = QString::fromLatin1(informe),
            .tituloVisor = t,
            .tituloAlta = nuevo(titulo),
            .tituloModificar = modificar(titulo),
            .entradaMenu = QString::fromLatin1(entrada),
            .tituloLista = categoria(titulo),
            .codigoBlanco = blanco,
            .tituloBlanco = t};
}

QList<DefinicionImpreso> construir()
{
    QList<DefinicionImpreso> t;
    t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_A1"),
                           .tablaHistorico = QStringLiteral("datosA1B2"),
                           .columnaTipo = QStringLiteral("TIPODOC"),
                           .tablaTemporal = QStringLiteral("A1B2"),
                           .tablaBusqueda = QStringLiteral("DATOSA1B2"),
                           .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_A1"),
                           .claveRetorno = QStringLiteral("FRMDATOSIMPRESOA1_PROYECTO"),
                           .variantes = {sencilla("A1", "A1", "A1", "crImpresoA1", "Comunicación de encargo profesional", "mnu_A1", 1)}};
    t << DefinicionImpreso{
        .pantalla = QStringLiteral("frmDatosImpreso_B2"),
        .tablaHistorico = QStringLiteral("datosA1B2"),
        .columnaTipo = QStringLiteral("TIPODOC"),
        .tablaTemporal = QStringLiteral("A1B2"),
        .tablaBusqueda = QStringLiteral("DATOSA1B2"),
        .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_B2"),
        .claveRetorno = QStringLiteral("FRMDATOSIMPRESOB2_PROYECTO"),
        .variantes = {sencilla("B2", "B2", "B2", "crImpresoB2", "Compromiso de aportar licencia municipal de obras", "mnu_B2", 2)}};
    t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_A2"),
                           .tablaHistorico = QStringLiteral("datosA2"),
                           .columnaTipo = QStringLiteral("TIPODOC"),
                           .tablaTemporal = QStringLiteral("A2"),
                           .tablaBusqueda = QStringLiteral("DATOSA2"),
                           .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_A2"),
                           .claveRetorno = QStringLiteral("FRMDATOSIMPRESOA2_PROYECTO"),
                           .variantes = {sencilla("A2", "A2", "A2", "crImpresoA2", "Presentación de documentos", "mnu_A2", 3)}};
    {
        VarianteImpreso a3 = sencilla("A3", "A3", "A3", "crImpresoA3", "Costes de referencia", "mnu_A3", 4);
        a3.tituloBlanco = QStringLiteral("Costes de referencia. CR.");
        t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_A3"),
                               .tablaHistorico = QStringLiteral("datosA3"),
                               .columnaTipo = QStringLiteral("TIPODOC"),
                               .tablaTemporal = QStringLiteral("A3"),
                               .tablaBusqueda = QStringLiteral("DATOSA3"),
                               .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_A3"),
                               .claveRetorno = QStringLiteral("FRMDATOSIMPRESOA3_PROYECTO"),
                               .variantes = {a3}};
    }
    t << DefinicionImpreso{
        .pantalla = QStringLiteral("frmDatosImpreso_A4"),
        .tablaHistorico = QStringLiteral("datosA4A5"),
        .columnaTipo = QStringLiteral("TIPODOC"),
        .tablaTemporal = QStringLiteral("A4"),
        .tablaBusqueda = QStringLiteral("DATOSA4A5"),
        .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_A4"),
        .claveRetorno = QStringLiteral("FRMDATOSIMPRESOA4_PROYECTO"),
        .variantes = {sencilla("A4", "A4", "A4", "crImpresoA4", "Comunicación de nombramiento de dirección de obra", "mnu_A4", 5)}};
    t << DefinicionImpreso{
        .pantalla = QStringLiteral("frmDatosImpreso_A5"),
        .tablaHistorico = QStringLiteral("datosA4A5"),
        .columnaTipo = QStringLiteral("TIPODOC"),
        .tablaTemporal = QStringLiteral("A5"),
        .tablaBusqueda = QStringLiteral("DATOSA4A5"),
        .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_A5"),
        .claveRetorno = QStringLiteral("FRMDATOSIMPRESOA5_PROYECTO"),
        .variantes = {sencilla("A5", "A5", "A5", "crImpresoA5", "Hoja resumen de características urbanísticas", "mnu_A5", 6)}};
    {
        // Los títulos del CSS difieren entre sí ("Comunicación nombramiento", "Seg. y Salud"): son así.
        VarianteImpreso css = sencilla("CSS", "CSS", "", "crImpresoCSS", "Comunicación de nombramiento de coordinador de Seg. y Salud",
                                       "mnu_CSS", 7);
        css.tituloVisor = QStringLiteral("Comunicación de nombramiento de coordinador de Seguridad y Salud");
        css.tituloAlta = nuevo("Comunicación nombramiento de coordinador de Seg. y Salud");
        t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_CSS"),
                               .tablaHistorico = QStringLiteral("datosCOORDINADOR_SEGURIDAD_Y_SALUD"),
                               .tablaTemporal = QStringLiteral("COORDINADOR_SEGURIDAD_Y_SALUD"),
                               .tablaBusqueda = QStringLiteral("DATOSCOORDINADOR_SEGURIDAD_Y_SALUD"),
                               .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_CSS"),
                               .claveRetorno = QStringLiteral("FRMDATOSIMPRESOCSS_PROYECTO"),
                               .variantes = {css}};
    }
    {
        VarianteImpreso b1 = sencilla("B1", "B1", "", "crImpresoB1", "Factura de honorarios profesionales", "mnu_B1", 9);
        b1.subinformes = {QStringLiteral("Detalle_Factura_Honorarios")};
        // Las líneas de la factura que se imprime, no las de todas: Id_Factura de B1B3B4.
        b1.enlace = QStringLiteral("Id_Factura");
        // Rama a la que el menú nunca llega: tras su "ALTA" no se abre ninguna lista, y su informe lee
        // la tabla de los certificados B4, no la de la factura.
        VarianteImpreso b4{.tipoImpreso = QStringLiteral("B4"),
                           .codigo = QStringLiteral("B4"),
                           .informe = QStringLiteral("crImpresoB4"),
                           .tituloVisor = QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F."),
                           .tituloAlta = nuevo("Certificado de retenciones a cuenta del I.R.P.F."),
                           .tituloModificar = modificar("Certificado de retenciones a cuenta del I.R.P.F."),
                           .tablaInforme = QStringLiteral("B4")};
        t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_B1_B3_B4"),
                               .tablaHistorico = QStringLiteral("datosB1B3B4"),
                               .tablaTemporal = QStringLiteral("B1B3B4"),
                               .tablaBusqueda = QStringLiteral("DATOSB1B3B4"),
                               .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_B1_B3_B4"),
                               .claveRetorno = QStringLiteral("FRMDATOSIMPRESOB1B3B4_PROYECTO"),
                               .variantes = {b1,
                                             sencilla("B3", "B3", "", "crImpresoB3", "Retención a cuenta del I.R.P.F.", "mnu_B3", 10),
                                             b4}};
    }
    for (const bool propio : {false, true}) {
        const char* titulo = propio ? "Certificado de retenciones a cuenta del I.R.P.F. (propio)"
                                    : "Certificado de retenciones a cuenta del I.R.P.F. (ajeno)";
        VarianteImpreso v = sencilla(propio ? "B4_P" : "B4_A", "B4", propio ? "P" : "A", "crImpresoB4", titulo,
                                     propio ? "mnu_B4_Propio" : "mnu_B4_Ajeno", 11);
        v.tituloVisor = propio ? QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F. (propio)")
                               : QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F. (ajeno)");
        v.tituloBlanco = QStringLiteral("Certificado anual de retenciones a cuenta del I.R.P.F.");
        t << DefinicionImpreso{.pantalla = propio ? QStringLiteral("frmDatosImpreso_B4_Propio") : QStringLiteral("frmDatosImpreso_B4"),
                               .tablaHistorico = QStringLiteral("datosB4"),
                               .columnaTipo = QStringLiteral("TipoCertificado"),
                               .tablaTemporal = QStringLiteral("B4"),
                               .tablaBusqueda = QStringLiteral("DATOSB4"),
                               .claveSeleccion = propio ? QStringLiteral("SELECCIONAR_EN_IMPRESO_B4_PROPIO")
                                                        : QStringLiteral("SELECCIONAR_EN_IMPRESO_B4"),
                               .conProyecto = false,
                               .variantes = {v}};
    }
    {
        VarianteImpreso c = sencilla("", "CERTIFICADO", "", "crCertificado", "Certificado", "mnu_Certificado", 12);
        c.tituloAlta = QStringLiteral("Nuevo certificado");
        c.tituloModificar = QStringLiteral("Modificar certificado");
        t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_Certificado"),
                               .tablaHistorico = QStringLiteral("datosCERTIFICADO"),
                               .tablaTemporal = QStringLiteral("CERTIFICADO"),
                               .tablaBusqueda = QStringLiteral("DATOSCERTIFICADO"),
                               .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_CERTIFICADO_ARQ"),
                               .claveRetorno = QStringLiteral("FRMDATOSIMPRESO_CERTIFICADO"),
                               .conProyecto = false,
                               .variantes = {c}};
    }
    {
        // Cuatro diseños de un mismo impreso: los elige frmSeleccionarTipoCertificado tras guardar.
        // El de "Legalización sólo arquitecto" no da título: el visor se queda con el que tenga.
        const QString cfo = QStringLiteral("Certificado final de la dirección de obra");
        VarianteImpreso conjunto = sencilla("FINOBRA", "CFO", "CFO", "crImpresoCFO", "Certificado Fin de obra",
                                            "mnu_CertificadoFinObra", 8);
        conjunto.tituloVisor = cfo;
        conjunto.tituloBlanco.clear();
        const auto diseno = [](const char* informe, const QString& titulo) {
            return VarianteImpreso{.tipoImpreso = QStringLiteral("FINOBRA"),
                                   .codigo = QStringLiteral("CFO"),
                                   .marcaTipo = QStringLiteral("CFO"),
                                   .informe = QString::fromLatin1(informe),
                                   .tituloVisor = titulo};
        };
        t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_CertificadoFinObra"),
                               .tablaHistorico = QStringLiteral("datosFinObra"),
                               .columnaTipo = QStringLiteral("TIPODOC"),
                               .tablaTemporal = QStringLiteral("FinObra"),
                               .tablaBusqueda = QStringLiteral("DATOSFINOBRA"),
                               .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_CERTIFICADO"),
                               .claveRetorno = QStringLiteral("FRMDATOSIMPRESOCFO_PROYECTO"),
                               .variantes = {conjunto, diseno("crImpresoCFO_2", cfo),
                                             diseno("crImpresoCFO_4", cfo + QStringLiteral(" (Legalización)")),
                                             diseno("crImpresoCFO_3", {})}};
    }
    {
        const QStringList listas = {QStringLiteral("DirectoresObra_Tmp"), QStringLiteral("DirectoresDeEjecucion_Tmp"),
                                    QStringLiteral("CoordinadoresSS_Tmp")};
        VarianteImpreso cdc = sencilla("CDC", "CDC", "", "crImpresoComunicadoDireccionCoordinador", "Comunicado Dirección y Coordinador",
                                       "mnu_ComunicadoDireccionCoordinador", 13);
        cdc.tituloModificar = modificar("Comunicado dirección y coordinador");
        cdc.subinformes = listas;
        t << DefinicionImpreso{.pantalla = QStringLiteral("frmDatosImpreso_ComunicadoDireccionCoordinador"),
                               .tablaHistorico = QStringLiteral("datosCOMUNICADO_DIRECCION_Y_COORDINADOR"),
                               .tablaTemporal = QStringLiteral("COMUNICADO_DIRECCION_Y_COORDINADOR"),
                               .temporalesExtra = listas,
                               .tablaBusqueda = QStringLiteral("DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR"),
                               .claveSeleccion = QStringLiteral("SELECCIONAR_EN_IMPRESO_CDC"),
                               .claveRetorno = QStringLiteral("FRMDATOSIMPRESOCDC_PROYECTO"),
                               .variantes = {cdc}};
    }
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
    // La lista de DATOSCOORDINADOR_SEGURIDAD_Y_SALUD abre, según su tipo, las pantallas de DATOSA4A5.
    const QString clave = tabla.toUpper() == QLatin1String("DATOSCOORDINADOR_SEGURIDAD_Y_SALUD") && tipoImpreso != QLatin1String("CSS")
                              ? QStringLiteral("DATOSA4A5")
                              : tabla.toUpper();
    QList<const DefinicionImpreso*> deLaLista;
    for (const DefinicionImpreso& d : todas())
        if (d.tablaBusqueda == clave || (d.pantalla == QLatin1String("frmDatosImpreso_CSS") && clave == QLatin1String("DATOSA4A5")))
            deLaLista << &d;
    const auto devolver = [variante](const DefinicionImpreso* d, const VarianteImpreso* v) {
        if (variante)
            *variante = v;
        return d;
    };
    for (const DefinicionImpreso* d : deLaLista)
        for (const VarianteImpreso& v : d->variantes)
            if (v.tipoImpreso == tipoImpreso)
                return devolver(d, &v);
    // Una lista de una sola pantalla que da un solo impreso (con uno o varios diseños) no mira el tipo.
    if (deLaLista.size() == 1) {
        const DefinicionImpreso* d = deLaLista.first();
        bool unImpreso = true;
        for (const VarianteImpreso& v : d->variantes)
            unImpreso = unImpreso && v.tipoImpreso == d->variantes.first().tipoImpreso;
        if (unImpreso)
            return devolver(d, &d->variantes.first());
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

OrigenInforme origenInforme(const QString& codigo)
{
    for (const DefinicionImpreso& d : todas())
        for (const VarianteImpreso& v : d.variantes)
            if (v.codigo == codigo)
                return {v.tablaInforme.isEmpty() ? d.tablaTemporal : v.tablaInforme, v.subinformes, v.enlace};
    return {};
}

}  // namespace TablaImpresos
