-- Esquema de Usuarios.qst: la base de datos que se entrega con el programa.
-- Todas las tablas van vacías salvo las dos listas de provincias.
--
-- Tipos: contadores INTEGER PRIMARY KEY AUTOINCREMENT (no reutilizan números);
-- claves "mayor más uno" INTEGER PRIMARY KEY (las calcula el programa);
-- sí/no INTEGER 0/1; fechas TEXT 'AAAA-MM-DD'; importes y coeficientes REAL; textos TEXT.
-- Las tablas temporales de los impresos guardan lo que se imprime: sus fechas e
-- importes son texto tal como se escribieron o formatearon. Cada fila lleva en Puesto la
-- marca del puesto que la escribió: cada puesto imprime sólo las suyas.
-- Sin claves ajenas ni cotejos de columna: el cotejo español lo registra cada conexión.

PRAGMA user_version = 2;

BEGIN TRANSACTION;

-- ===========================================================================
-- Datos maestros
-- ===========================================================================

-- El estudio: siempre una sola fila (la crea el arranque si falta).
CREATE TABLE Config (
    CodArq1 INTEGER,
    CodArq2 INTEGER,
    CodArq3 INTEGER,
    CodArq4 INTEGER,
    Arq1Nom TEXT,
    Arq1Col TEXT,
    Arq2Nom TEXT,
    Arq2Col TEXT,
    Arq3Nom TEXT,
    Arq3Col TEXT,
    Arq4Nom TEXT,
    Arq4Col TEXT,
    CodSoc INTEGER,
    SocNom TEXT,
    SocReg TEXT,
    NIF TEXT,
    Domicilio TEXT,
    CP TEXT,
    Municipio TEXT,
    Provincia TEXT,
    Telefono TEXT,
    Fax TEXT,
    TfnMovil TEXT,
    CorreoElectronico TEXT,
    PaginaWeb TEXT,
    Modulo REAL,
    IVA REAL,
    IRPF REAL,
    AgenciaTributaria TEXT
);

-- Clientes y representantes: misma forma, cada tabla con su propia serie de códigos.
-- esR: -1 (o nulo) persona física sin representante; otro valor, código en Representantes.
CREATE TABLE Clientes (
    Codigo_Cli INTEGER PRIMARY KEY,
    Nombre_Cli TEXT,
    Ape_Cli TEXT,
    NIF TEXT,
    Dirección_Cli TEXT,
    Municipio_Cli TEXT,
    Provincia_Cli TEXT,
    Tfno_Cli TEXT,
    tf TEXT,
    TelMovil TEXT,
    Fax_Cli TEXT,
    cp TEXT,
    Otros TEXT,
    Correo_Cli TEXT,
    esR INTEGER
);

CREATE TABLE Representantes (
    Codigo_Cli INTEGER PRIMARY KEY,
    Nombre_Cli TEXT,
    Ape_Cli TEXT,
    NIF TEXT,
    Dirección_Cli TEXT,
    Municipio_Cli TEXT,
    Provincia_Cli TEXT,
    Tfno_Cli TEXT,
    tf TEXT,
    TelMovil TEXT,
    Fax_Cli TEXT,
    cp TEXT,
    Otros TEXT,
    Correo_Cli TEXT,
    Representacion TEXT
);

-- Arquitectos, sociedades, arquitectos técnicos y constructores en una sola serie de códigos.
-- Categoria: ARQUITECTO, ARQUITECTO TECNICO o CONSTRUCTOR. esS: 1 sociedad o empresa, 0 persona.
CREATE TABLE OTROS (
    Codigo_Cli INTEGER PRIMARY KEY,
    Categoria TEXT,
    esS INTEGER,
    NumColegiado INTEGER,
    Colegio TEXT,
    Nombre_Cli TEXT,
    Ape_Cli TEXT,
    NIF TEXT,
    Dirección_Cli TEXT,
    Municipio_Cli TEXT,
    Provincia_Cli TEXT,
    Tfno_Cli TEXT,
    Tfno_Cli1 TEXT,
    TelMovil TEXT,
    Fax_Cli TEXT,
    cp TEXT,
    Otros TEXT,
    Correo_Cli TEXT
);

CREATE INDEX idx_OTROS_Categoria ON OTROS (Categoria);
CREATE INDEX idx_OTROS_NumColegiado ON OTROS (NumColegiado);

-- Costes de referencia del Colegio; el código lo escribe el usuario.
CREATE TABLE Costes (
    CODIGO TEXT PRIMARY KEY,
    TIPO TEXT,
    DESCRIPCION TEXT,
    CT REAL,
    CC REAL
);

-- ===========================================================================
-- Proyectos y sus tablas de enlace
-- ===========================================================================

-- El proyecto. Las columnas CLI*, REP*, CONNOM, APACOL y APANOM son copias que mantienen
-- las fichas al guardarse. EXPFV fecha de visado, EXPFFO fecha de fin de obra.
CREATE TABLE Proyectos_A (
    PryCod INTEGER PRIMARY KEY AUTOINCREMENT,
    Trabajo TEXT,
    Emplazamiento TEXT,
    Municipio TEXT,
    Provincia TEXT,
    EXPNUM TEXT,
    EXPREF TEXT,
    EXPFV TEXT,
    EXPFFO TEXT,
    PRYF1 INTEGER,
    PRYF2 INTEGER,
    PRYF3 INTEGER,
    PRYF4 INTEGER,
    PRYNTS TEXT,
    Codigo_Cliente INTEGER,
    Codigo_Representante INTEGER,
    Codigo_SeguridadSalud INTEGER,
    ARQREG INTEGER,
    ARQSOC TEXT,
    CLINOM TEXT,
    CLINIF TEXT,
    CLIDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLITEL TEXT,
    CLICP TEXT,
    REPNOM TEXT,
    REPNIF TEXT,
    REPDOM TEXT,
    REPMUN TEXT,
    REPPRO TEXT,
    REPTEL TEXT,
    REPCP TEXT,
    Codigo_Constructor INTEGER,
    CONNOM TEXT,
    APACOL TEXT,
    APANOM TEXT
);

CREATE INDEX idx_Proyectos_A_EXPNUM ON Proyectos_A (EXPNUM);
CREATE INDEX idx_Proyectos_A_Cliente ON Proyectos_A (Codigo_Cliente);
CREATE INDEX idx_Proyectos_A_Representante ON Proyectos_A (Codigo_Representante);
CREATE INDEX idx_Proyectos_A_Constructor ON Proyectos_A (Codigo_Constructor);
CREATE INDEX idx_Proyectos_A_APACOL ON Proyectos_A (APACOL);

-- Enlaces de un proyecto: sin clave propia, se reescriben enteros en cada guardado.
-- NumImpreso: hoja del impreso (tres arquitectos por hoja) en que cae la fila.
CREATE TABLE Arquitectos_Proyecto (
    PryCod INTEGER,
    Codigo_Arq INTEGER,
    NumCol TEXT,
    PorPar_Arq REAL,
    EsAutorProyecto INTEGER,
    PerteneceSociedad INTEGER,
    EsPropiaSociedad INTEGER,
    NumImpreso INTEGER
);

CREATE INDEX idx_Arquitectos_Proyecto_PryCod ON Arquitectos_Proyecto (PryCod);
CREATE INDEX idx_Arquitectos_Proyecto_NumCol ON Arquitectos_Proyecto (NumCol);

CREATE TABLE Autores_Proyecto (
    PryCod INTEGER,
    Codigo_Arq INTEGER
);

CREATE INDEX idx_Autores_Proyecto_PryCod ON Autores_Proyecto (PryCod);

CREATE TABLE Aparejadores_Proyecto (
    PryCod INTEGER,
    Codigo_Apa INTEGER
);

CREATE INDEX idx_Aparejadores_Proyecto_PryCod ON Aparejadores_Proyecto (PryCod);

CREATE TABLE Constructores_Proyecto (
    PryCod INTEGER,
    Codigo_Cons INTEGER
);

CREATE INDEX idx_Constructores_Proyecto_PryCod ON Constructores_Proyecto (PryCod);

-- ===========================================================================
-- Contratos
-- ===========================================================================

-- Registro de documentos de contrato. TipoDocumento: "1" a "5" según la plantilla, "6" otros.
CREATE TABLE Contratos (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    Nombre TEXT,
    TipoDocumento TEXT,
    RutaDocumento TEXT,
    PlantillaEmpleada TEXT,
    EsPlantilla INTEGER
);

CREATE INDEX idx_Contratos_TipoDocumento ON Contratos (TipoDocumento);

-- ===========================================================================
-- Impresos A1 y B2: histórico compartido (TIPODOC 'A1' o 'B2') y temporal
-- ===========================================================================

CREATE TABLE datosA1B2 (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    OBS1SI TEXT,
    OBS1NO TEXT,
    OBS2SI TEXT,
    OBS2NO TEXT,
    CONDICIONES TEXT,
    LUGAR_A1 TEXT,
    FECHA_A1 TEXT,
    LUGAR_B2 TEXT,
    FECHA_B2 TEXT,
    TIPODOC TEXT
);

-- Una fila por hoja de tres arquitectos.
CREATE TABLE A1B2 (
    CLINOM TEXT,
    CLINIF TEXT,
    CLIDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLICP TEXT,
    CLITEL TEXT,
    CLIEMAIL TEXT,
    REPNOM TEXT,
    REPNIF TEXT,
    REPDOM TEXT,
    REPMUN TEXT,
    REPPRO TEXT,
    REPCP TEXT,
    REPTEL TEXT,
    REPEMAIL TEXT,
    TIPOREP TEXT,
    REPRES TEXT,
    REPRESNO TEXT,
    ARQREG TEXT,
    ARQSOC TEXT,
    SOCDOM TEXT,
    HAYSOC TEXT,
    ARQ1NOM TEXT,
    ARQ1COL TEXT,
    ARQ1PAR TEXT,
    ARQ1PERTENECE_SOC TEXT,
    ARQ1COLEGIO TEXT,
    ARQ2NOM TEXT,
    ARQ2COL TEXT,
    ARQ2PAR TEXT,
    ARQ2PERTENECE_SOC TEXT,
    ARQ2COLEGIO TEXT,
    ARQ3NOM TEXT,
    ARQ3COL TEXT,
    ARQ3PAR TEXT,
    ARQ3PERTENECE_SOC TEXT,
    ARQ3COLEGIO TEXT,
    ARQ1DOM TEXT,
    PRYNOM TEXT,
    PRYDOM TEXT,
    PRYMUN TEXT,
    PRYPRO TEXT,
    PRYF1 TEXT,
    PRYF2 TEXT,
    PRYF3 TEXT,
    PRYF4 TEXT,
    OBS1SI TEXT,
    OBS1NO TEXT,
    OBS2SI TEXT,
    OBS2NO TEXT,
    CONDICIONES TEXT,
    LUGAR_A1 TEXT,
    FECHA_A1 TEXT,
    LUGAR_B2 TEXT,
    FECHA_B2 TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Impreso A2: presentación de documentos (columna n = línea n-1 de la pantalla)
-- ===========================================================================

CREATE TABLE datosA2 (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    NDOC01 INTEGER,
    NDOC02 INTEGER,
    NDOC03 INTEGER,
    NDOC04 INTEGER,
    NDOC05 INTEGER,
    NDOC06 INTEGER,
    NDOC07 INTEGER,
    NDOC08 INTEGER,
    NDOC09 INTEGER,
    NDOC10 INTEGER,
    NDOC11 INTEGER,
    NDOC12 INTEGER,
    NDOC13 INTEGER,
    NDOC14 INTEGER,
    NDOC15 INTEGER,
    NDOC16 INTEGER,
    NDOC17 INTEGER,
    NDOC18 INTEGER,
    NDOC19 INTEGER,
    NDOC20 INTEGER,
    NDOC21 INTEGER,
    NDOC22 INTEGER,
    NDOC23 INTEGER,
    NDOC24 INTEGER,
    NDOC25 INTEGER,
    NDOC26 INTEGER,
    NDOC27 INTEGER,
    NDOC28 INTEGER,
    NDOC29 INTEGER,
    NDOC30 INTEGER,
    NDOC31 INTEGER,
    NDOC32 INTEGER,
    VBDOC01 TEXT,
    VBDOC02 TEXT,
    VBDOC03 TEXT,
    VBDOC04 TEXT,
    VBDOC05 TEXT,
    VBDOC06 TEXT,
    VBDOC07 TEXT,
    VBDOC08 TEXT,
    VBDOC09 TEXT,
    VBDOC10 TEXT,
    VBDOC11 TEXT,
    VBDOC12 TEXT,
    VBDOC13 TEXT,
    VBDOC14 TEXT,
    VBDOC15 TEXT,
    VBDOC16 TEXT,
    VBDOC17 TEXT,
    VBDOC18 TEXT,
    VBDOC19 TEXT,
    VBDOC20 TEXT,
    VBDOC21 TEXT,
    VBDOC22 TEXT,
    VBDOC23 TEXT,
    VBDOC24 TEXT,
    VBDOC25 TEXT,
    VBDOC26 TEXT,
    VBDOC27 TEXT,
    VBDOC28 TEXT,
    VBDOC29 TEXT,
    VBDOC30 TEXT,
    VBDOC31 TEXT,
    VBDOC32 TEXT,
    TXTDOC04 TEXT,
    TXTDOC12 TEXT,
    TXTDOC18 TEXT,
    TXTDOC19 TEXT,
    TXTDOC22 TEXT,
    TXTDOC23 TEXT,
    TXTDOC25 TEXT,
    TXTDOC26 TEXT,
    TXTDOC27 TEXT,
    TXTDOC28 TEXT,
    TXTDOC30 TEXT,
    OBSDOC TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    TIPODOC TEXT
);

CREATE TABLE A2 (
    PRYNOM TEXT,
    PRYDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLINOM TEXT,
    EXPNUM TEXT,
    EXPREF TEXT,
    EXPFV TEXT,
    EXPFFO TEXT,
    ARQ1NOM TEXT,
    OBSDOC TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    NDOC01 TEXT,
    NDOC02 TEXT,
    NDOC03 TEXT,
    NDOC04 TEXT,
    NDOC05 TEXT,
    NDOC06 TEXT,
    NDOC07 TEXT,
    NDOC08 TEXT,
    NDOC09 TEXT,
    NDOC10 TEXT,
    NDOC11 TEXT,
    NDOC12 TEXT,
    NDOC13 TEXT,
    NDOC14 TEXT,
    NDOC15 TEXT,
    NDOC16 TEXT,
    NDOC17 TEXT,
    NDOC18 TEXT,
    NDOC19 TEXT,
    NDOC20 TEXT,
    NDOC21 TEXT,
    NDOC22 TEXT,
    NDOC23 TEXT,
    NDOC24 TEXT,
    NDOC25 TEXT,
    NDOC26 TEXT,
    NDOC27 TEXT,
    NDOC28 TEXT,
    NDOC29 TEXT,
    NDOC30 TEXT,
    NDOC31 TEXT,
    NDOC32 TEXT,
    VBDOC01 TEXT,
    VBDOC02 TEXT,
    VBDOC03 TEXT,
    VBDOC04 TEXT,
    VBDOC05 TEXT,
    VBDOC06 TEXT,
    VBDOC07 TEXT,
    VBDOC08 TEXT,
    VBDOC09 TEXT,
    VBDOC10 TEXT,
    VBDOC11 TEXT,
    VBDOC12 TEXT,
    VBDOC13 TEXT,
    VBDOC14 TEXT,
    VBDOC15 TEXT,
    VBDOC16 TEXT,
    VBDOC17 TEXT,
    VBDOC18 TEXT,
    VBDOC19 TEXT,
    VBDOC20 TEXT,
    VBDOC21 TEXT,
    VBDOC22 TEXT,
    VBDOC23 TEXT,
    VBDOC24 TEXT,
    VBDOC25 TEXT,
    VBDOC26 TEXT,
    VBDOC27 TEXT,
    VBDOC28 TEXT,
    VBDOC29 TEXT,
    VBDOC30 TEXT,
    VBDOC31 TEXT,
    VBDOC32 TEXT,
    TXTDOC04 TEXT,
    TXTDOC12 TEXT,
    TXTDOC18 TEXT,
    TXTDOC19 TEXT,
    TXTDOC22 TEXT,
    TXTDOC23 TEXT,
    TXTDOC25 TEXT,
    TXTDOC26 TEXT,
    TXTDOC27 TEXT,
    TXTDOC28 TEXT,
    TXTDOC30 TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Impreso A3: costes de referencia (índice n = línea n-1 de la pantalla)
-- ===========================================================================

CREATE TABLE datosA3 (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    USO1 TEXT,
    USO2 TEXT,
    USO3 TEXT,
    USO4 TEXT,
    USO5 TEXT,
    USO6 TEXT,
    SUP1 REAL,
    SUP2 REAL,
    SUP3 REAL,
    SUP4 REAL,
    SUP5 REAL,
    SUP6 REAL,
    CT1 REAL,
    CT2 REAL,
    CT3 REAL,
    CT4 REAL,
    CT5 REAL,
    CT6 REAL,
    CC1 REAL,
    CC2 REAL,
    CC3 REAL,
    CC4 REAL,
    CC5 REAL,
    CC6 REAL,
    CR1 REAL,
    CR2 REAL,
    CR3 REAL,
    CR4 REAL,
    CR5 REAL,
    CR6 REAL,
    MODULO REAL,
    CREF1 REAL,
    CREF2 REAL,
    CREF3 REAL,
    CREF4 REAL,
    CREF5 REAL,
    CREF6 REAL,
    COSTE1 REAL,
    COSTE2 REAL,
    COSTE3 REAL,
    COSTE4 REAL,
    COSTE5 REAL,
    COSTE6 REAL,
    SUP REAL,
    CREF REAL,
    PEM REAL,
    COSTE_TOTAL REAL,
    LUGAR TEXT,
    FECHA TEXT,
    TIPODOC TEXT
);

CREATE TABLE A3 (
    PRYNOM TEXT,
    PRYDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLINOM TEXT,
    EXPNUM TEXT,
    EXPREF TEXT,
    EXPFV TEXT,
    EXPFFO TEXT,
    ARQ1NOM TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    USO1 TEXT,
    USO2 TEXT,
    USO3 TEXT,
    USO4 TEXT,
    USO5 TEXT,
    USO6 TEXT,
    SUP1 TEXT,
    SUP2 TEXT,
    SUP3 TEXT,
    SUP4 TEXT,
    SUP5 TEXT,
    SUP6 TEXT,
    CT1 TEXT,
    CT2 TEXT,
    CT3 TEXT,
    CT4 TEXT,
    CT5 TEXT,
    CT6 TEXT,
    CC1 TEXT,
    CC2 TEXT,
    CC3 TEXT,
    CC4 TEXT,
    CC5 TEXT,
    CC6 TEXT,
    CR1 TEXT,
    CR2 TEXT,
    CR3 TEXT,
    CR4 TEXT,
    CR5 TEXT,
    CR6 TEXT,
    MODULO TEXT,
    CREF1 TEXT,
    CREF2 TEXT,
    CREF3 TEXT,
    CREF4 TEXT,
    CREF5 TEXT,
    CREF6 TEXT,
    COSTE1 TEXT,
    COSTE2 TEXT,
    COSTE3 TEXT,
    COSTE4 TEXT,
    COSTE5 TEXT,
    COSTE6 TEXT,
    SUP TEXT,
    CREF TEXT,
    PEM TEXT,
    COSTE_TOTAL TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Impresos A4 y A5: histórico compartido (TIPODOC 'A4' o 'A5') y temporales
-- ===========================================================================

CREATE TABLE datosA4A5 (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    LUGARVIS TEXT,
    FECHAVIS TEXT,
    LUGARA4 TEXT,
    FECHAA4 TEXT,
    PLAMUN TEXT,
    FAPMUN TEXT,
    PLAPAR TEXT,
    FAPPAR TEXT,
    OBS TEXT,
    PLAN1 TEXT,
    PLAN2 TEXT,
    PLAN3 TEXT,
    PLAN4 TEXT,
    PLAN5 TEXT,
    PLAN6 TEXT,
    PROY1 TEXT,
    PROY2 TEXT,
    PROY3 TEXT,
    PROY4 TEXT,
    PROY5 TEXT,
    PROY6 TEXT,
    LUGARA5 TEXT,
    FECHAA5 TEXT,
    TIPODOC TEXT
);

CREATE TABLE A4 (
    CLINOM TEXT,
    CLINIF TEXT,
    CLIDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLICP TEXT,
    CLITEL TEXT,
    CLIEMAIL TEXT,
    REPNOM TEXT,
    REPNIF TEXT,
    REPDOM TEXT,
    REPMUN TEXT,
    REPPRO TEXT,
    REPCP TEXT,
    REPTEL TEXT,
    REPEMAIL TEXT,
    TIPOREP TEXT,
    REPRES TEXT,
    REPRESNO TEXT,
    ARQREG TEXT,
    ARQSOC TEXT,
    SOCDOM TEXT,
    HAYSOC TEXT,
    ARQ1NOM TEXT,
    ARQ1COL TEXT,
    ARQ1PAR TEXT,
    ARQ1PERTENECE_SOC TEXT,
    ARQ1COLEGIO TEXT,
    ARQ2NOM TEXT,
    ARQ2COL TEXT,
    ARQ2PAR TEXT,
    ARQ2PERTENECE_SOC TEXT,
    ARQ2COLEGIO TEXT,
    ARQ3NOM TEXT,
    ARQ3COL TEXT,
    ARQ3PAR TEXT,
    ARQ3PERTENECE_SOC TEXT,
    ARQ3COLEGIO TEXT,
    ARQ1DOM TEXT,
    AUTOR TEXT,
    PRYNOM TEXT,
    PRYDOM TEXT,
    PRYMUN TEXT,
    PRYPRO TEXT,
    LUGARVIS TEXT,
    FECHAVIS TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    Puesto TEXT
);

CREATE TABLE A5 (
    PRYNOM TEXT,
    PRYDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLINOM TEXT,
    ARQ1NOM TEXT,
    PLAMUN TEXT,
    FAPMUN TEXT,
    PLAPAR TEXT,
    FAPPAR TEXT,
    PLAN1 TEXT,
    PLAN2 TEXT,
    PLAN3 TEXT,
    PLAN4 TEXT,
    PLAN5 TEXT,
    PLAN6 TEXT,
    PROY1 TEXT,
    PROY2 TEXT,
    PROY3 TEXT,
    PROY4 TEXT,
    PROY5 TEXT,
    PROY6 TEXT,
    OBS TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Impreso CSS: nombramiento de coordinador de Seguridad y Salud
-- ===========================================================================

CREATE TABLE datosCOORDINADOR_SEGURIDAD_Y_SALUD (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    LUGARVIS TEXT,
    FECHAVIS TEXT,
    LUGAR TEXT,
    FECHA TEXT
);

CREATE TABLE COORDINADOR_SEGURIDAD_Y_SALUD (
    CLINOM TEXT,
    CLINIF TEXT,
    CLIDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLICP TEXT,
    CLITEL TEXT,
    CLIEMAIL TEXT,
    REPNOM TEXT,
    REPNIF TEXT,
    REPDOM TEXT,
    REPMUN TEXT,
    REPPRO TEXT,
    REPCP TEXT,
    REPTEL TEXT,
    REPEMAIL TEXT,
    TIPOREP TEXT,
    REPRES TEXT,
    REPRESNO TEXT,
    ARQREG TEXT,
    ARQSOC TEXT,
    SOCDOM TEXT,
    HAYSOC TEXT,
    ARQ1NOM TEXT,
    ARQ1COL TEXT,
    ARQ1PAR TEXT,
    ARQ1PERTENECE_SOC TEXT,
    ARQ1COLEGIO TEXT,
    ARQ2NOM TEXT,
    ARQ2COL TEXT,
    ARQ2PAR TEXT,
    ARQ2PERTENECE_SOC TEXT,
    ARQ2COLEGIO TEXT,
    ARQ3NOM TEXT,
    ARQ3COL TEXT,
    ARQ3PAR TEXT,
    ARQ3PERTENECE_SOC TEXT,
    ARQ3COLEGIO TEXT,
    ARQ1DOM TEXT,
    COORDINADOR_SYS TEXT,
    PRYNOM TEXT,
    PRYDOM TEXT,
    PRYMUN TEXT,
    PRYPRO TEXT,
    LUGARVIS TEXT,
    FECHAVIS TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Impresos B1, B3 y B4 de factura: un histórico sin tipo, sus líneas y el temporal
-- ===========================================================================

-- Clave es también el número de factura al que apuntan las líneas de detalle.
CREATE TABLE datosB1B3B4 (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    NUMFAC TEXT,
    REGCLI TEXT,
    IMPORTE REAL,
    IVA REAL,
    TOTAL REAL,
    IRPF REAL,
    EURABON REAL,
    TXTABON TEXT,
    ARQNOM TEXT,
    ARQCOD INTEGER,
    ARQNIF TEXT,
    ARQDOM TEXT,
    ARQMUN TEXT,
    ARQPRO TEXT,
    ARQTEL TEXT,
    ARQCP TEXT,
    AgenciaTributaria TEXT,
    LUGAR TEXT,
    FECHA TEXT
);

CREATE INDEX idx_datosB1B3B4_PRYCOD ON datosB1B3B4 (PRYCOD);
CREATE INDEX idx_datosB1B3B4_ARQCOD ON datosB1B3B4 (ARQCOD);

-- Líneas de cada factura; se borran y se vuelven a escribir en cada guardado.
CREATE TABLE Detalle_Factura_Honorarios (
    Id_Factura INTEGER,
    Concepto TEXT,
    Importe REAL
);

CREATE INDEX idx_Detalle_Factura_Honorarios_Id_Factura ON Detalle_Factura_Honorarios (Id_Factura);

CREATE TABLE B1B3B4 (
    ARQ1NOM TEXT,
    ARQ1NIF TEXT,
    ARQ1DOM TEXT,
    ARQ1CP TEXT,
    ARQ1MUN TEXT,
    ARQ1PRO TEXT,
    ARQ1TEL TEXT,
    CLINOM TEXT,
    CLINIF TEXT,
    CLIDOM TEXT,
    CLICP TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLITEL TEXT,
    AgenciaTributaria TEXT,
    NUMFAC TEXT,
    REGCLI TEXT,
    IMPORTE TEXT,
    IVA TEXT,
    TOTAL TEXT,
    IRPF TEXT,
    EURABON TEXT,
    TXTABON TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    Id_Factura INTEGER,
    Puesto TEXT
);

-- ===========================================================================
-- Impreso B4: certificado anual de retenciones (TipoCertificado 'A' ajeno, 'P' propio)
-- ===========================================================================

-- TipoPerceptor (sólo el propio): AR, AT, CO o CL.
CREATE TABLE datosB4 (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    Ejercicio TEXT,
    FechaPresentacion TEXT,
    NumJustificante TEXT,
    PERNOM TEXT,
    PERCOD INTEGER,
    PERNIF TEXT,
    PERDOM TEXT,
    PERMUN TEXT,
    PERPRO TEXT,
    PERTEL TEXT,
    PERCP TEXT,
    PAGNOM TEXT,
    PAGCOD INTEGER,
    PAGNIF TEXT,
    PAGDOM TEXT,
    PAGMUN TEXT,
    PAGPRO TEXT,
    PAGTEL TEXT,
    PAGCP TEXT,
    AgenciaTributaria TEXT,
    Rendimientos REAL,
    Retencion REAL,
    ImporteIntegro REAL,
    LUGAR TEXT,
    FECHA TEXT,
    TipoCertificado TEXT,
    TipoPerceptor TEXT
);

CREATE INDEX idx_datosB4_PERCOD ON datosB4 (PERCOD);
CREATE INDEX idx_datosB4_PAGCOD ON datosB4 (PAGCOD);

CREATE TABLE B4 (
    Ejercicio TEXT,
    FechaPresentacion TEXT,
    NumJustificante TEXT,
    PERNOM TEXT,
    PERCOD INTEGER,
    PERNIF TEXT,
    PERDOM TEXT,
    PERMUN TEXT,
    PERPRO TEXT,
    PERTEL TEXT,
    PERCP TEXT,
    PAGNOM TEXT,
    PAGCOD INTEGER,
    PAGNIF TEXT,
    PAGDOM TEXT,
    PAGMUN TEXT,
    PAGPRO TEXT,
    PAGTEL TEXT,
    PAGCP TEXT,
    AgenciaTributaria TEXT,
    Rendimientos TEXT,
    Retencion TEXT,
    ImporteIntegro TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Certificado libre de un arquitecto (sin proyecto)
-- ===========================================================================

CREATE TABLE datosCERTIFICADO (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    CodArq INTEGER,
    NomArq TEXT,
    Texto TEXT,
    Lugar TEXT,
    Fecha TEXT
);

CREATE TABLE CERTIFICADO (
    CodArq INTEGER,
    NomArq TEXT,
    NumColegiado TEXT,
    Colegio TEXT,
    NIF TEXT,
    Direccion TEXT,
    Texto TEXT,
    Lugar TEXT,
    Fecha TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Certificado final de obra
-- ===========================================================================

-- FFIN y FECHALICENCIA: fechas; LUGAR1 y LUGAR2 lugares de expedición.
CREATE TABLE datosFinObra (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    APADEM TEXT,
    LUGAR1 TEXT,
    ARQDEM TEXT,
    LUGAR2 TEXT,
    FFIN TEXT,
    FECHALICENCIA TEXT,
    FECHA TEXT,
    TIPODOC TEXT
);

CREATE TABLE FinObra (
    PRYNOM TEXT,
    PRYDOM TEXT,
    PRYMUN TEXT,
    CLIPRO TEXT,
    CLINOM TEXT,
    APACOL TEXT,
    APANOM TEXT,
    CONNOM TEXT,
    ARQSNOM TEXT,
    ARQSCOL TEXT,
    AUTOR TEXT,
    APADEM TEXT,
    LUGAR1 TEXT,
    ARQDEM TEXT,
    LUGAR2 TEXT,
    FFIN TEXT,
    FECHALICENCIA TEXT,
    FECHA TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Comunicado de dirección de obra y coordinador: histórico, personas del impreso y temporales
-- ===========================================================================

CREATE TABLE datosCOMUNICADO_DIRECCION_Y_COORDINADOR (
    Clave INTEGER PRIMARY KEY AUTOINCREMENT,
    PRYNOM TEXT,
    PRYCOD INTEGER,
    LUGAR TEXT,
    FECHA TEXT
);

CREATE TABLE DirectoresObra_Impreso (
    Id_Impreso INTEGER,
    Codigo_DirectorObra INTEGER
);

CREATE INDEX idx_DirectoresObra_Impreso_Id ON DirectoresObra_Impreso (Id_Impreso);

CREATE TABLE DirectoresDeEjecucion_Impreso (
    Id_Impreso INTEGER,
    Codigo_DirectorEjec INTEGER
);

CREATE INDEX idx_DirectoresDeEjecucion_Impreso_Id ON DirectoresDeEjecucion_Impreso (Id_Impreso);

-- TipoPerceptor: AR arquitecto, AT arquitecto técnico.
CREATE TABLE CoordinadorSS_Impreso (
    Id_Impreso INTEGER,
    Codigo_Coordinador INTEGER,
    TipoPerceptor TEXT
);

CREATE INDEX idx_CoordinadorSS_Impreso_Id ON CoordinadorSS_Impreso (Id_Impreso);

CREATE TABLE COMUNICADO_DIRECCION_Y_COORDINADOR (
    CLINOM TEXT,
    CLINIF TEXT,
    CLIDOM TEXT,
    CLIMUN TEXT,
    CLIPRO TEXT,
    CLICP TEXT,
    CLITEL TEXT,
    CLIEMAIL TEXT,
    REPNOM TEXT,
    REPNIF TEXT,
    REPDOM TEXT,
    REPMUN TEXT,
    REPPRO TEXT,
    REPCP TEXT,
    REPTEL TEXT,
    REPEMAIL TEXT,
    TIPOREP TEXT,
    REPRES TEXT,
    REPRESNO TEXT,
    PRYNOM TEXT,
    PRYDOM TEXT,
    PRYMUN TEXT,
    PRYPRO TEXT,
    LUGAR TEXT,
    FECHA TEXT,
    Puesto TEXT
);

CREATE TABLE DirectoresObra_Tmp (
    DIROBRANOM TEXT,
    DIROBRANIF TEXT,
    DIROBRADOM TEXT,
    DIROBRATEL TEXT,
    DIROBRAMAIL TEXT,
    DIROBRAMUN TEXT,
    DIROBRAPRO TEXT,
    DIROBRACP TEXT,
    Puesto TEXT
);

CREATE TABLE DirectoresDeEjecucion_Tmp (
    DIREJECNOM TEXT,
    DIREJECNIF TEXT,
    DIREJECDOM TEXT,
    DIREJECTEL TEXT,
    DIREJECMAIL TEXT,
    DIREJECMUN TEXT,
    DIREJECPRO TEXT,
    DIREJECCP TEXT,
    Puesto TEXT
);

CREATE TABLE CoordinadoresSS_Tmp (
    COORSSNOM TEXT,
    COORSSNIF TEXT,
    COORSSDOM TEXT,
    COORSSTEL TEXT,
    COORSSMAIL TEXT,
    COORSSMUN TEXT,
    COORSSPRO TEXT,
    COORSSCP TEXT,
    Puesto TEXT
);

-- ===========================================================================
-- Listas de provincias (las únicas filas que se entregan)
-- ===========================================================================

-- Todas las provincias y las dos ciudades autónomas: clientes, arquitectos y demás agentes.
CREATE TABLE PROVINCIAS (
    descripción TEXT NOT NULL PRIMARY KEY
);

INSERT INTO PROVINCIAS (descripción) VALUES
    ('A Coruña'),
    ('Álava'),
    ('Albacete'),
    ('Alicante'),
    ('Almería'),
    ('Asturias'),
    ('Ávila'),
    ('Badajoz'),
    ('Baleares'),
    ('Barcelona'),
    ('Burgos'),
    ('Cáceres'),
    ('Cádiz'),
    ('Cantabria'),
    ('Castellón'),
    ('Ceuta'),
    ('Ciudad Real'),
    ('Córdoba'),
    ('Cuenca'),
    ('Girona'),
    ('Granada'),
    ('Guadalajara'),
    ('Guipúzcoa'),
    ('Huelva'),
    ('Huesca'),
    ('Jaén'),
    ('La Rioja'),
    ('Las Palmas'),
    ('León'),
    ('Lleida'),
    ('Lugo'),
    ('Madrid'),
    ('Málaga'),
    ('Melilla'),
    ('Murcia'),
    ('Navarra'),
    ('Ourense'),
    ('Palencia'),
    ('Pontevedra'),
    ('Salamanca'),
    ('Santa Cruz de Tenerife'),
    ('Segovia'),
    ('Sevilla'),
    ('Soria'),
    ('Tarragona'),
    ('Teruel'),
    ('Toledo'),
    ('Valencia'),
    ('Valladolid'),
    ('Vizcaya'),
    ('Zamora'),
    ('Zaragoza');

-- Provincias del territorio del Colegio (Castilla y León): pantalla de proyectos.
CREATE TABLE PROVINCIAS_MIRVADE (
    descripción TEXT NOT NULL PRIMARY KEY
);

INSERT INTO PROVINCIAS_MIRVADE (descripción) VALUES
    ('Ávila'),
    ('Burgos'),
    ('León'),
    ('Palencia'),
    ('Salamanca'),
    ('Segovia'),
    ('Soria'),
    ('Valladolid'),
    ('Zamora');

-- Facturas y certificados de retenciones: el certificado "ajeno" suma todas las facturas de un
-- arquitecto a un cliente; con los importes en el índice no se lee ninguna fila de la tabla.
CREATE INDEX idx_datosB1B3B4_Certificado ON datosB1B3B4 (ARQCOD, PRYCOD, IMPORTE, IRPF);

COMMIT;
