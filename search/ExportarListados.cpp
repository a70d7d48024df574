#include "search/ExportarListados.h"

#include "core/modFunciones.h"
#include "core/CicloPantalla.h"
#include "core/Documentos.h"
#include "core/Fichas.h"
#include "reports/frmVisorCrystal.h"
#include "reports/modExcel.h"
#include "reports/modInformes.h"
#include "search/frmFiltrarProyectos.h"

#include <QApplication>

namespace Exportar {

namespace {

const QString SALTO = QStringLiteral("\n");
const QString NUMERO_REGISTROS = QStringLiteral("Número de registros hallados: ");

struct Listado {
    const char* informe;
    const char* titulo;
    const char* ficheroExcel;
    const char* plantilla;
    const char* clave;
    const char* ficheroPdf;
};

// Por tipo, de 1 a 5.
const Listado LISTADOS[] = {
    {"crListadoArquitectos", "Listado de arquitectos", "ListadoDeArquitectos.xlsx", "Plantilla_ListadoArquitectos.xlsx",
     "ARQUITECTOS", "ListadoDeArquitectos.pdf"},
    {"crListadoAparejadores", "Listado de arquitectos técnicos", "ListadoDeArquitectosTecnicos.xlsx",
     "Plantilla_ListadoArquitectosTecnicos.xlsx", "APAREJADORES", "ListadoDeArquitectosTecnicos.pdf"},
    {"crListadoContratistas", "Listado de contratistas", "ListadoDeContratistas.xlsx", "Plantilla_ListadoContratistas.xlsx",
     "CONTRATISTAS", "ListadoDeContratistas.pdf"},
    {"crListadoClientes", "Listado de clientes", "ListadoDeClientes.xlsx", "Plantilla_ListadoClientes.xlsx", "CLIENTES",
     "ListadoDeClientes.pdf"},
    {"crListadoProyectos", "Listado de proyectos", "ListadoDeProyectos.xlsx", "Plantilla_ListadoProyectos.xlsx", "PROYECTOS",
     "ListadoDeProyectos.pdf"},
};

const Listado& listado(int tipo) { return LISTADOS[qBound(1, tipo, 5) - 1]; }

void estado(const PantallaLlamadora& l, const QString& texto)
{
    if (l.estado)
        l.estado(texto);
}

void estadoCuenta(const PantallaLlamadora& l)
{
    estado(l, NUMERO_REGISTROS + QString::number(l.registros ? l.registros() : 0));
}

// Prepara el informe del tipo sobre su conexión propia (pasos comunes de la vista y del PDF).
bool prepararInforme(int tipo)
{
    Pantallas::descargar<frmVisorCrystal>();
    if (!modInformes::nuevoInforme(QString::fromLatin1(listado(tipo).informe)) || !modInformes::conectar())
        return false;
    switch (tipo) {
    case 1: return modInformes::iniciarInforme_ListadoArquitectos();
    case 2: return modInformes::iniciarInforme_ListadoAparejadores();
    case 3: return modInformes::iniciarInforme_ListadoContratistas();
    case 4: return modInformes::iniciarInforme_ListadoClientes();
    default: return false;
    }
}

QString carpetaExportacion(const QString& clave, const QString& queDocumento)
{
    const QString ruta = leerAjuste(QStringLiteral("EXPORTACION"), clave);
    if (ruta.isEmpty()) {
        Mensajes::aviso(QStringLiteral("No se ha establecido el directorio en el que se exportará el documento ") + queDocumento
                        + QStringLiteral(".") + SALTO
                        + QStringLiteral("Por favor, selecciónelo en la pantalla de configuración e intente de nuevo la operación"));
        Fichas::abrir({.tabla = Fichas::CONFIGURACION, .pestana = 1});
    }
    return ruta;
}

}  // namespace

int tipoDeTabla(const QString& t)
{
    if (t == QLatin1String("ARQUITECTOS") || t == QLatin1String("ARQUITECTOS_SIMPLE") || t == QLatin1String("ARQUITECTOS_SOCIEDAD")
        || t == QLatin1String("ARQUITECTOS_AUTORES") || t == QLatin1String("COORDINADOR_SS"))
        return 1;
    if (t == QLatin1String("APAREJADORES"))
        return 2;
    if (t == QLatin1String("CONTRATISTAS"))
        return 3;
    if (t == QLatin1String("CLIENTES"))
        return 4;
    if (t == QLatin1String("PROYECTOS_A"))
        return 5;
    return 0;
}

void generarListado(const PantallaLlamadora& l, int tipo)
{
    guardia(l.nombre, QStringLiteral("generarListado"), [&] {
        {
            CursorEspera espera;
            estado(l, QStringLiteral("Generando la vista preliminar..."));
            prepararInforme(tipo);
            estadoCuenta(l);
        }
        frmVisorCrystal::mostrarInforme(QString::fromUtf8(listado(tipo).titulo));
    });
}

void exportarListadoExcel(const PantallaLlamadora& l, int tipo)
{
    guardia(l.nombre, QStringLiteral("exportarListadoExcel"), [&] {
        const QString ruta = carpetaExportacion(QStringLiteral("rutaExcel"), QStringLiteral("Excel"));
        if (ruta.isEmpty())
            return;
        // El nombre va directamente detrás de la carpeta configurada.
        const QString destino = ruta + QString::fromLatin1(listado(tipo).ficheroExcel);
        if (!copiarFicheroExcel(QString::fromLatin1(listado(tipo).plantilla), destino))
            return;
        if (tipo == 5) {
            frmFiltrarProyectos::abrir(2, l);
            return;
        }
        estado(l, QStringLiteral("Generando el fichero Excel..."));
        escribirExcel(destino, QString::fromLatin1(listado(tipo).clave));
        estadoCuenta(l);
    });
}

void ofrecerAbrirPDF(const QString& fichero, const QString& formulario, const QString& procedimiento)
{
    if (Mensajes::pregunta(QStringLiteral("¿Desea abrir el documento creado?")) != Mensajes::Respuesta::Si)
        return;
    abrirConSuPrograma(fichero,
                       {.noEncontrado = QStringLiteral("Documento PDF no encontrado. Ha podido existir un error durante su generación") + SALTO
                                        + QStringLiteral("Por favor, genere otra vez el documento e inténtelo de nuevo"),
                        .comentarioNoEncontrado = QStringLiteral("[Error 2]: Documento PDF no encontrado. Ha podido existir un error "
                                                                 "durante su generación o bien haberlo borrado")},
                       formulario, procedimiento);
}

void exportarListadoPDF(const PantallaLlamadora& l, int tipo)
{
    guardia(l.nombre, QStringLiteral("exportarListadoPDF"), [&] {
        if (tipo == 5) {
            frmFiltrarProyectos::abrir(3, l);
            return;
        }
        const QString ruta = carpetaExportacion(QStringLiteral("rutaPdf"), QStringLiteral("PDF"));
        if (ruta.isEmpty())
            return;
        estado(l, QStringLiteral("Generando el fichero PDF..."));
        const QString fichero = ruta + QString::fromLatin1(listado(tipo).ficheroPdf);
        bool bien = false;
        {
            CursorEspera espera;
            bien = prepararInforme(tipo) && modInformes::exportarPDF(fichero);
            modInformes::cerrar();
        }
        if (!bien)
            lanzarError(-1, QStringLiteral("No se ha podido generar el documento PDF ") + fichero);
        ofrecerAbrirPDF(fichero, l.nombre, QStringLiteral("exportarListadoPDF"));
        estadoCuenta(l);
    });
}

void pulsarBotonExportar(const PantallaLlamadora& l, const QString& tabla, int boton)
{
    const int tipo = tipoDeTabla(tabla);
    if (tipo == 0)
        return;
    switch (boton) {
    case 1:
        if (tipo == 5)
            frmFiltrarProyectos::abrir(1, l);
        else
            generarListado(l, tipo);
        break;
    case 2: exportarListadoExcel(l, tipo); break;
    case 3: exportarListadoPDF(l, tipo); break;
    default: break;
    }
}

}  // namespace Exportar
