#!/usr/bin/env python3
# Genera las plantillas .xlsx de los listados (se ejecuta una vez; los .xlsx se guardan en el
# repositorio). Filas 1 a 5: cabecera; los datos los escribe escribirExcel desde la fila 6.
# Uso: python3 generar_plantillas.py   (deja los ficheros junto a este script)
import os
import zipfile
from xml.sax.saxutils import escape

# Estilos de celda (índices de cellXfs en styles.xml)
NORMAL, TITULO, SUBTITULO, CABECERA, FECHA = range(5)

PERSONA_13 = [  # arquitectos y arquitectos técnicos
    ("Nombre", 22), ("Apellidos", 28), ("NIF", 13), ("Nº colegiado", 12), ("Dirección", 34),
    ("C.P.", 7), ("Municipio", 22), ("Provincia", 16), ("Teléfono", 13), ("Teléfono 2", 13),
    ("Móvil", 13), ("Fax", 13), ("Correo electrónico", 30)]
PERSONA_12 = [c for c in PERSONA_13 if c[0] != "Nº colegiado"]  # contratistas y clientes
PROYECTOS = [
    ("Nº expediente", 14), ("Referencia", 14), ("Trabajo", 40), ("Emplazamiento", 32),
    ("Municipio", 22), ("Provincia", 16), ("Cliente", 32), ("Fecha de visado", 15),
    ("Fecha fin de obra", 16)]
COLUMNAS_FECHA = {"Fecha de visado", "Fecha fin de obra"}

PLANTILLAS = [
    ("Plantilla_ListadoProyectos.xlsx", "Listado de proyectos", PROYECTOS),
    ("Plantilla_ListadoArquitectos.xlsx", "Listado de arquitectos", PERSONA_13),
    ("Plantilla_ListadoArquitectosTecnicos.xlsx", "Listado de arquitectos técnicos", PERSONA_13),
    ("Plantilla_ListadoContratistas.xlsx", "Listado de contratistas", PERSONA_12),
    ("Plantilla_ListadoClientes.xlsx", "Listado de clientes", PERSONA_12),
]

NS_MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
NS_REL = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
NS_PKG = "http://schemas.openxmlformats.org/package/2006/relationships"
CABECERA_XML = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'

CONTENT_TYPES = CABECERA_XML + (
    '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
    '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
    '<Default Extension="xml" ContentType="application/xml"/>'
    '<Override PartName="/xl/workbook.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>'
    '<Override PartName="/xl/worksheets/sheet1.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>'
    '<Override PartName="/xl/styles.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/>'
    '<Override PartName="/docProps/core.xml" ContentType="application/vnd.openxmlformats-package.core-properties+xml"/>'
    '<Override PartName="/docProps/app.xml" ContentType="application/vnd.openxmlformats-officedocument.extended-properties+xml"/>'
    '</Types>')

RELS = CABECERA_XML + (
    f'<Relationships xmlns="{NS_PKG}">'
    '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/>'
    '<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties" Target="docProps/core.xml"/>'
    '<Relationship Id="rId3" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/extended-properties" Target="docProps/app.xml"/>'
    '</Relationships>')

WORKBOOK_RELS = CABECERA_XML + (
    f'<Relationships xmlns="{NS_PKG}">'
    '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet1.xml"/>'
    '<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" Target="styles.xml"/>'
    '</Relationships>')

STYLES = CABECERA_XML + (
    f'<styleSheet xmlns="{NS_MAIN}">'
    '<numFmts count="1"><numFmt numFmtId="164" formatCode="dd/mm/yyyy"/></numFmts>'
    '<fonts count="3">'
    '<font><sz val="10"/><name val="Arial"/><family val="2"/></font>'
    '<font><b/><sz val="14"/><name val="Arial"/><family val="2"/></font>'
    '<font><b/><sz val="10"/><name val="Arial"/><family val="2"/></font>'
    '</fonts>'
    '<fills count="3">'
    '<fill><patternFill patternType="none"/></fill>'
    '<fill><patternFill patternType="gray125"/></fill>'
    '<fill><patternFill patternType="solid"><fgColor rgb="FFD9D9D9"/><bgColor indexed="64"/></patternFill></fill>'
    '</fills>'
    '<borders count="2">'
    '<border><left/><right/><top/><bottom/><diagonal/></border>'
    '<border><left/><right/><top/><bottom style="thin"><color auto="1"/></bottom><diagonal/></border>'
    '</borders>'
    '<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>'
    '<cellXfs count="5">'
    '<xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>'
    '<xf numFmtId="0" fontId="1" fillId="0" borderId="0" xfId="0" applyFont="1"/>'
    '<xf numFmtId="0" fontId="2" fillId="0" borderId="0" xfId="0" applyFont="1"/>'
    '<xf numFmtId="0" fontId="2" fillId="2" borderId="1" xfId="0" applyFont="1" applyFill="1" applyBorder="1" applyAlignment="1">'
    '<alignment vertical="center" wrapText="1"/></xf>'
    '<xf numFmtId="164" fontId="0" fillId="0" borderId="0" xfId="0" applyNumberFormat="1" applyAlignment="1">'
    '<alignment horizontal="center"/></xf>'
    '</cellXfs>'
    '<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>'
    '</styleSheet>')

CORE = CABECERA_XML + (
    '<cp:coreProperties xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties" '
    'xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:dcterms="http://purl.org/dc/terms/" '
    'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">'
    '<dc:title>{titulo}</dc:title><dc:creator>PLANORUM MIRVADE</dc:creator>'
    '<dcterms:created xsi:type="dcterms:W3CDTF">2026-01-01T00:00:00Z</dcterms:created>'
    '</cp:coreProperties>')

APP = CABECERA_XML + (
    '<Properties xmlns="http://schemas.openxmlformats.org/officeDocument/2006/extended-properties">'
    '<Application>PLANORUM MIRVADE</Application></Properties>')


def letra(columna):  # 1 -> A, 27 -> AA
    texto = ""
    while columna:
        columna, resto = divmod(columna - 1, 26)
        texto = chr(65 + resto) + texto
    return texto


def celda(fila, columna, texto, estilo):
    return (f'<c r="{letra(columna)}{fila}" s="{estilo}" t="inlineStr">'
            f'<is><t>{escape(texto)}</t></is></c>')


def hoja(titulo, columnas):
    ultima = letra(len(columnas))
    cols = "".join(
        f'<col min="{i}" max="{i}" width="{ancho}" customWidth="1"'
        + (f' style="{FECHA}"' if nombre in COLUMNAS_FECHA else "") + "/>"
        for i, (nombre, ancho) in enumerate(columnas, 1))
    filas = [
        f'<row r="1" ht="20" customHeight="1">{celda(1, 1, titulo, TITULO)}</row>',
        f'<row r="2">{celda(2, 1, "PLANORUM MIRVADE", SUBTITULO)}</row>',
        '<row r="5" ht="18" customHeight="1">'
        + "".join(celda(5, i, nombre, CABECERA) for i, (nombre, _) in enumerate(columnas, 1))
        + "</row>",
    ]
    return CABECERA_XML + (
        f'<worksheet xmlns="{NS_MAIN}" xmlns:r="{NS_REL}">'
        f'<dimension ref="A1:{ultima}5"/>'
        '<sheetViews><sheetView workbookViewId="0">'
        '<pane ySplit="5" topLeftCell="A6" activePane="bottomLeft" state="frozen"/>'
        '<selection pane="bottomLeft" activeCell="A6" sqref="A6"/>'
        '</sheetView></sheetViews>'
        '<sheetFormatPr defaultRowHeight="12.75"/>'
        f'<cols>{cols}</cols>'
        f'<sheetData>{"".join(filas)}</sheetData>'
        '<pageMargins left="0.5" right="0.5" top="0.75" bottom="0.75" header="0.3" footer="0.3"/>'
        '<pageSetup paperSize="9" orientation="landscape"/>'
        '</worksheet>')


def libro(titulo):
    nombre_hoja = escape(titulo[len("Listado de "):].capitalize()[:31])
    return CABECERA_XML + (
        f'<workbook xmlns="{NS_MAIN}" xmlns:r="{NS_REL}">'
        '<bookViews><workbookView/></bookViews>'
        f'<sheets><sheet name="{nombre_hoja}" sheetId="1" r:id="rId1"/></sheets>'
        f'<definedNames><definedName name="_xlnm.Print_Titles" localSheetId="0">'
        f"'{nombre_hoja}'!$5:$5</definedName></definedNames>"
        '</workbook>')


def escribir(carpeta, fichero, titulo, columnas):
    partes = [
        ("[Content_Types].xml", CONTENT_TYPES),
        ("_rels/.rels", RELS),
        ("docProps/core.xml", CORE.replace("{titulo}", escape(titulo))),
        ("docProps/app.xml", APP),
        ("xl/workbook.xml", libro(titulo)),
        ("xl/_rels/workbook.xml.rels", WORKBOOK_RELS),
        ("xl/styles.xml", STYLES),
        ("xl/worksheets/sheet1.xml", hoja(titulo, columnas)),
    ]
    with zipfile.ZipFile(os.path.join(carpeta, fichero), "w", zipfile.ZIP_DEFLATED) as z:
        for nombre, contenido in partes:
            # Fecha fija: los ficheros salen iguales cada vez que se generan
            info = zipfile.ZipInfo(nombre, date_time=(2026, 1, 1, 0, 0, 0))
            info.compress_type = zipfile.ZIP_DEFLATED
            z.writestr(info, contenido.encode("utf-8"))


if __name__ == "__main__":
    aqui = os.path.dirname(os.path.abspath(__file__))
    for fichero, titulo, columnas in PLANTILLAS:
        escribir(aqui, fichero, titulo, columnas)
        print(fichero)
