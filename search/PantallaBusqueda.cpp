#include "search/PantallaBusqueda.h"

#include "reports/TablaImpresos.h"
#include "reports/VistaImpreso.h"
#include "search/ExportarListados.h"

#include "core/CicloPantalla.h"
#include "core/Iconos.h"
#include "core/modFunciones.h"
#include "search/frmAyudaBuscar.h"
#include "search/frmAyudaBuscarSeleccionar.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <sqlite3.h>

using namespace TablasBusqueda;

namespace {

constexpr int TECLA_SUPRIMIR = 46;

// Reglas de teclas del valor, por clave de tabla e índice del campo, tal como quedaron.
enum class Teclas { Numeros, LetrasNumeros };
struct ReglaValor {
    const char* tabla;
    int indice;
    Teclas teclas;
    Admite admite;
};
const ReglaValor REGLAS_VALOR[] = {
    {.tabla = "PROYECTOS_A", .indice = 0, .teclas = Teclas::Numeros, .admite = {.menos = true}},
    {.tabla = "ARQUITECTOS", .indice = 0, .teclas = Teclas::Numeros, .admite = {}},
    {.tabla = "APAREJADORES", .indice = 0, .teclas = Teclas::Numeros, .admite = {}},
    {.tabla = "ARQUITECTOS", .indice = 3, .teclas = Teclas::LetrasNumeros, .admite = {.menos = true}},
    {.tabla = "APAREJADORES", .indice = 3, .teclas = Teclas::LetrasNumeros, .admite = {.menos = true}},
    {.tabla = "CLIENTES", .indice = 2, .teclas = Teclas::LetrasNumeros, .admite = {.menos = true}},
    {.tabla = "CONTRATISTAS", .indice = 2, .teclas = Teclas::LetrasNumeros, .admite = {.menos = true}},
};

// Sentencia preparada del motor, liberada al salir.
struct Preparada {
    sqlite3_stmt* st = nullptr;
    ~Preparada() { sqlite3_finalize(st); }
};

// La carga del modelo se cierra siempre, también si la lectura falla a medias.
struct CargaAbierta {
    ModeloResultados* m;
    explicit CargaAbierta(ModeloResultados* modelo) : m(modelo) { m->empezarCarga(); }
    ~CargaAbierta() { m->terminarCarga(); }
};

bool esFechaIso(const unsigned char* t, int n)
{
    if (n != 10 || t[4] != '-' || t[7] != '-')
        return false;
    for (int i : {0, 1, 2, 3, 5, 6, 8, 9})
        if (t[i] < '0' || t[i] > '9')
            return false;
    return true;
}

// Una celda como la ve el usuario: las fechas "AAAA-MM-DD" de las columnas de fecha, "dd/mm/aaaa".
void agregarTexto(ModeloResultados* modelo, const unsigned char* t, int l, bool fecha)
{
    if (fecha && esFechaIso(t, l)) {
        const char orden[] = {8, 9, '/', 5, 6, '/', 0, 1, 2, 3};
        char convertida[10];
        for (int i = 0; i < 10; ++i)
            convertida[i] = orden[i] == '/' ? '/' : static_cast<char>(t[static_cast<int>(orden[i])]);
        modelo->agregarCelda(convertida, 10);
    } else {
        modelo->agregarCelda(reinterpret_cast<const char*>(t), static_cast<size_t>(l));
    }
}

// Número con la coma decimal del sistema, sin formato.
void agregarDecimal(ModeloResultados* modelo, double v)
{
    QByteArray t = QByteArray::number(v, 'g', 15);
    t.replace('.', ',');
    modelo->agregarCelda(t.constData(), t.size());
}

std::vector<bool> columnasDeFecha(const Descripcion& d)
{
    const int columnas = static_cast<int>(d.columnas.size()) + 1;
    std::vector<bool> fecha(columnas, false);
    for (int c = 1; c < columnas; ++c)
        fecha[c] = d.columnas.at(c - 1).fecha;
    return fecha;
}

// En el servidor, la misma lectura por el controlador.
void leerFilasServidor(const Descripcion& d, const Sentencia& s, ModeloResultados* modelo)
{
    const std::vector<bool> fecha = columnasDeFecha(d);
    QVariantList valores;
    for (const QVariant& v : s.valores)
        valores << v.toString();
    Consulta c(s.sql, valores);
    CargaAbierta carga(modelo);
    while (c.siguiente()) {
        modelo->empezarFila();
        for (int col = 0; col < static_cast<int>(fecha.size()); ++col) {
            const QVariant v = c.valor(col);
            if (v.isNull()) {
                modelo->agregarCelda("", 0);
            } else if (v.typeId() == QMetaType::Double) {
                agregarDecimal(modelo, v.toDouble());
            } else {
                const QByteArray t = v.toString().toUtf8();
                agregarTexto(modelo, reinterpret_cast<const unsigned char*>(t.constData()), static_cast<int>(t.size()), fecha[col]);
            }
        }
    }
}

// Lee las filas con un cursor de sólo avance y las deja en el modelo como texto compacto.
void leerFilas(const Descripcion& d, const Sentencia& s, ModeloResultados* modelo)
{
    if (BaseDatos::esServidor(BaseDatos::conexionBD())) {
        leerFilasServidor(d, s, modelo);
        return;
    }
    sqlite3* h = BaseDatos::motor(BaseDatos::conexionBD());
    Preparada p;
    const QByteArray sql = s.sql.toUtf8();
    if (sqlite3_prepare_v2(h, sql.constData(), static_cast<int>(sql.size()), &p.st, nullptr) != SQLITE_OK)
        lanzarError(sqlite3_extended_errcode(h), QString::fromUtf8(sqlite3_errmsg(h)));
    int n = 1;
    for (const QVariant& v : s.valores) {
        const QByteArray t = v.toString().toUtf8();
        sqlite3_bind_text(p.st, n++, t.constData(), static_cast<int>(t.size()), SQLITE_TRANSIENT);
    }
    const std::vector<bool> fecha = columnasDeFecha(d);
    const int columnas = static_cast<int>(fecha.size());

    CargaAbierta carga(modelo);
    int rc;
    while ((rc = sqlite3_step(p.st)) == SQLITE_ROW) {
        modelo->empezarFila();
        for (int c = 0; c < columnas; ++c) {
            const int tipo = sqlite3_column_type(p.st, c);
            if (tipo == SQLITE_NULL)
                modelo->agregarCelda("", 0);
            else if (tipo == SQLITE_FLOAT)
                agregarDecimal(modelo, sqlite3_column_double(p.st, c));
            else
                agregarTexto(modelo, sqlite3_column_text(p.st, c), sqlite3_column_bytes(p.st, c), fecha[c]);
        }
    }
    if (rc != SQLITE_DONE)
        lanzarError(sqlite3_extended_errcode(h), QString::fromUtf8(sqlite3_errmsg(h)));
}

}  // namespace

PantallaBusqueda::PantallaBusqueda(QWidget* padre) : Pantalla(padre), m_modelo(new ModeloResultados(this)) {}

void PantallaBusqueda::enlazarControles()
{
    lbl_Titulo1 = findChild<QLabel*>(QStringLiteral("lbl_Titulo1"));
    lbl_Titulo2 = findChild<QLabel*>(QStringLiteral("lbl_Titulo2"));
    cbo_CampoBusqueda = findChild<QComboBox*>(QStringLiteral("cbo_CampoBusqueda"));
    msk_ValorBusqueda = findChild<QLineEdit*>(QStringLiteral("msk_ValorBusqueda"));
    tlb_BotoneraBuscar = findChild<QToolBar*>(QStringLiteral("tlb_BotoneraBuscar"));
    tlb_BotoneraExportar = findChild<QToolBar*>(QStringLiteral("tlb_BotoneraExportar"));
    lvw_Resultados = findChild<QTreeView*>(QStringLiteral("lvw_Resultados"));
    sta_1 = findChild<QStatusBar*>(QStringLiteral("sta_1"));
    cmd_Ayuda = findChild<QPushButton*>(QStringLiteral("cmd_Ayuda"));

    QAction* buscar = tlb_BotoneraBuscar->addAction(Iconos::icono(QStringLiteral("buscar"), 24), QString());
    buscar->setObjectName(QStringLiteral("tlb_BotoneraBuscar_1"));
    buscar->setToolTip(QStringLiteral("Buscar"));
    connect(buscar, &QAction::triggered, this, &PantallaBusqueda::tlb_BotoneraBuscar_Click);

    const char* iconos[] = {"listado", "excel", "pdf", "impresoBlanco"};
    const char* consejos[] = {"Ver listado", "Exportar a Excel", "Exportar a PDF", "Impreso en blanco"};
    for (int i = 0; i < 4; ++i) {
        QAction* a = tlb_BotoneraExportar->addAction(Iconos::icono(QString::fromLatin1(iconos[i]), 24), QString());
        a->setObjectName(QStringLiteral("tlb_BotoneraExportar_%1").arg(i + 1));
        a->setToolTip(QString::fromUtf8(consejos[i]));
        connect(a, &QAction::triggered, this, [this, i] { tlb_BotoneraExportar_ButtonClick(i + 1); });
        m_exportar << a;
    }
    // El impreso en blanco lleva su texto: un icono gris solo no dice qué hace.
    m_exportar[3]->setText(QString::fromUtf8(consejos[3]));
    if (auto* b = qobject_cast<QToolButton*>(tlb_BotoneraExportar->widgetForAction(m_exportar[3])))
        b->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    // Las botoneras no ceden ancho a la caja de búsqueda: ningún botón acaba tras "»".
    for (QToolBar* t : {tlb_BotoneraBuscar, tlb_BotoneraExportar}) {
        t->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        t->setMinimumWidth(t->sizeHint().width());
    }

    m_panel1 = new QLabel(sta_1);
    m_panel1->setObjectName(QStringLiteral("sta_1_Panel1"));
    sta_1->addWidget(m_panel1, 1);
    sta_1->setSizeGripEnabled(false);

    lvw_Resultados->setModel(m_modelo);
    lvw_Resultados->setRootIsDecorated(false);
    lvw_Resultados->setUniformRowHeights(true);
    lvw_Resultados->setAllColumnsShowFocus(true);
    lvw_Resultados->setAlternatingRowColors(true);
    lvw_Resultados->setSelectionMode(QAbstractItemView::SingleSelection);
    lvw_Resultados->setSelectionBehavior(QAbstractItemView::SelectRows);
    lvw_Resultados->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvw_Resultados->header()->setSectionsClickable(true);
    lvw_Resultados->header()->setStretchLastSection(false);
    lvw_Resultados->header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(lvw_Resultados->header(), &QHeaderView::sectionClicked, this,
            [this](int seccion) { lvw_Resultados_ColumnClick(seccion + 1); });
    connect(lvw_Resultados, &QTreeView::doubleClicked, this, [this](const QModelIndex& i) {
        if (i.isValid())
            lvw_Resultados_DblClick();
    });

    connect(cbo_CampoBusqueda, &QComboBox::currentIndexChanged, this, [this] { cbo_CampoBusqueda_Click(); });
    cbo_CampoBusqueda->installEventFilter(this);
    msk_ValorBusqueda->installEventFilter(this);
    new FiltroTeclas(msk_ValorBusqueda, [this](int tecla, const QString&) { return reglaTeclas(tecla); });
    connect(cmd_Ayuda, &QPushButton::clicked, this, &PantallaBusqueda::cmd_Ayuda_Click);
}

int PantallaBusqueda::reglaTeclas(int tecla) const
{
    const int indice = cbo_CampoBusqueda->currentIndex();
    for (const ReglaValor& r : REGLAS_VALOR) {
        if (indice != r.indice || Tabla != QLatin1String(r.tabla))
            continue;
        return r.teclas == Teclas::LetrasNumeros ? admitirLetrasNumeros(tecla, r.admite) : admitirNumeros(tecla, r.admite);
    }
    return tecla;
}

bool PantallaBusqueda::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == cbo_CampoBusqueda) {
        if (evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Delete) {
            cbo_CampoBusqueda_KeyDown(TECLA_SUPRIMIR);
            return true;
        }
        // Abrir la lista desplegable no es salir del campo.
        if (evento->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(evento)->reason() != Qt::PopupFocusReason)
            cbo_CampoBusqueda_LostFocus();
    } else if (objeto == msk_ValorBusqueda && evento->type() == QEvent::KeyPress) {
        const int k = static_cast<QKeyEvent*>(evento)->key();
        if (k == Qt::Key_Return || k == Qt::Key_Enter) {
            tlb_BotoneraBuscar_Click();
            return true;
        }
    }
    return Pantalla::eventFilter(objeto, evento);
}

void PantallaBusqueda::Form_Load()
{
    guardia(nombreFormulario(), QStringLiteral("Form_Load"), [&] {
        setWindowIcon(Iconos::iconoPrograma());
        Pantallas::centrar(this);
        lbl_Titulo2->setEnabled(false);
        msk_ValorBusqueda->setEnabled(false);
        // Los datos maestros se listan y exportan; un tipo de impreso sólo ofrece el impreso en blanco.
        const bool maestro = esDatoMaestro(Tabla);
        for (int i = 0; i < 3; ++i)
            m_exportar[i]->setEnabled(maestro);
        m_exportar[3]->setEnabled(!maestro);
        m_descripcion = descripcion(Tabla, TipoImpreso);
        cargarCamposBusqueda();
        crearEncabezadosLista();
        m_modelo->vaciar();
    });
    BusquedaSilenciosa = true;
    tlb_BotoneraBuscar_Click();
    BusquedaSilenciosa = false;
}

void PantallaBusqueda::cargarCamposBusqueda()
{
    const QSignalBlocker bloqueo(cbo_CampoBusqueda);
    cbo_CampoBusqueda->clear();
    cbo_CampoBusqueda->addItem(QString());
    if (m_descripcion && !(esSelector() && Tabla == QLatin1String("DATOSCOMUNICADO_DIRECCION_Y_COORDINADOR")))
        for (const CampoBusqueda& c : m_descripcion->campos)
            cbo_CampoBusqueda->addItem(c.titulo);
    cbo_CampoBusqueda->setCurrentIndex(-1);
}

void PantallaBusqueda::crearEncabezadosLista()
{
    QStringList titulos;
    int ancho = 0;
    if (m_descripcion)
        for (const Columna& c : m_descripcion->columnas) {
            titulos << c.titulo;
            ancho += c.twips / 15;
        }
    m_modelo->setTitulos(titulos);
    m_modelo->setCasillas(llevaCasillas(Tabla, ClaveRetorno));
    ajustarColumnas();
    // Tamaño de la pantalla: la lista entera a la vista, sin salirse de la principal.
    int w = qMax(760, ancho + 40);
    int h = 540;
    if (QMdiArea* area = Pantallas::areaPrincipal()) {
        w = qMin(w, area->viewport()->width() - 20);
        h = qMin(h, area->viewport()->height() - 40);
    }
    m_tamano = QSize(qMax(w, 600), qMax(h, 360));
}

// Cada columna a la medida de su título y de su contenido, al menos de su ancho de diseño.
void PantallaBusqueda::ajustarColumnas()
{
    if (!m_descripcion)
        return;
    QList<int> diseno;
    for (const Columna& c : m_descripcion->columnas)
        diseno << c.twips / 15;
    ::ajustarColumnas(lvw_Resultados, diseno);
}

QSize PantallaBusqueda::sizeHint() const { return m_tamano; }

void PantallaBusqueda::tlb_BotoneraBuscar_Click()
{
    guardia(nombreFormulario(), QStringLiteral("tlb_BotoneraBuscar_Click"), [&] {
        if (cbo_CampoBusqueda->currentIndex() != -1 && valorBusqueda().trimmed().isEmpty()) {
            Mensajes::aviso(QStringLiteral("Por favor, inserte el valor a buscar"));
            msk_ValorBusqueda->setFocus();
            return;
        }
        CursorEspera espera;
        establecerEstado(QStringLiteral("Realizando búsqueda de datos..."));
        m_modelo->vaciar();
        obtenerDatos();
        const int filas = m_modelo->rowCount();
        ajustarColumnas();
        establecerEstado(QStringLiteral("Número de registros hallados: ") + QString::number(filas));
        habilitarOperaciones(filas > 0);
        // Tras una búsqueda vacía la exportación queda apagada hasta que se abra de nuevo.
        if (filas == 0)
            for (int i = 0; i < 3; ++i)
                m_exportar[i]->setEnabled(false);
    });
}

void PantallaBusqueda::obtenerDatos()
{
    // Una sentencia que falla deja la lista sin filas.
    const bool bien = guardia(nombreFormulario(), QStringLiteral("obtenerDatos"), [&] {
        CursorEspera espera;
        if (!m_descripcion)
            lanzarError(-1, QStringLiteral("No existe la tabla ") + Tabla);
        {
            UsoConexion uso;
            leerFilas(*m_descripcion, construirSentencia(*m_descripcion, cbo_CampoBusqueda->currentIndex(), valorBusqueda()),
                      m_modelo);
        }
        if (m_ordenada)
            m_modelo->sort(m_columnaOrden, m_sentido);
        if (m_modelo->rowCount() > 0)
            seleccionarFila(0);
        else if (!BusquedaSilenciosa)
            Mensajes::aviso(QStringLiteral("No se han encontrado datos que cumplan el criterio de búsqueda"));
    });
    if (!bien)
        m_modelo->vaciar();
}

void PantallaBusqueda::cbo_CampoBusqueda_Click()
{
    guardia(nombreFormulario(), QStringLiteral("cbo_CampoBusqueda_Click"), [&] {
        const int indice = cbo_CampoBusqueda->currentIndex();
        const bool elegido = indice > 0;
        lbl_Titulo2->setEnabled(elegido);
        msk_ValorBusqueda->setEnabled(elegido);
        if (indice == 0)
            cbo_CampoBusqueda_KeyDown(TECLA_SUPRIMIR);
    });
}

void PantallaBusqueda::cbo_CampoBusqueda_KeyDown(int codigoTecla)
{
    if (codigoTecla != TECLA_SUPRIMIR)
        return;
    guardia(nombreFormulario(), QStringLiteral("cbo_CampoBusqueda_KeyDown"), [&] {
        // Suprimir vuelve a la tabla entera.
        cbo_CampoBusqueda->setCurrentIndex(-1);
        vaciarValor();
        BusquedaSilenciosa = true;
        tlb_BotoneraBuscar_Click();
        BusquedaSilenciosa = false;
    });
}

void PantallaBusqueda::cbo_CampoBusqueda_LostFocus()
{
    if (Tabla != QLatin1String("PROYECTOS_A"))
        return;
    guardia(nombreFormulario(), QStringLiteral("cbo_CampoBusqueda_LostFocus"), [&] {
        const int indice = cbo_CampoBusqueda->currentIndex();
        if (indice == 6 || indice == 7)
            msk_ValorBusqueda->setInputMask(MASCARA_FECHA);
        else
            vaciarValor();
    });
}

void PantallaBusqueda::lvw_Resultados_ColumnClick(int columna)
{
    guardia(nombreFormulario(), QStringLiteral("lvw_Resultados_ColumnClick"), [&] {
        // El sentido cambia en cada clic: empieza ascendente, el primero lo deja descendente.
        m_columnaOrden = columna - 1;
        m_sentido = m_sentido == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
        m_ordenada = true;
        m_modelo->sort(m_columnaOrden, m_sentido);
        lvw_Resultados->header()->setSortIndicatorShown(true);
        lvw_Resultados->header()->setSortIndicator(m_columnaOrden, m_sentido);
    });
}

void PantallaBusqueda::tlb_BotoneraExportar_ButtonClick(int boton)
{
    if (boton == 4) {
        // Impreso en blanco: el informe del impreso sobre su tabla temporal vacía.
        guardia(nombreFormulario(), QStringLiteral("generarImpresoEnBlanco"), [&] {
            const VarianteImpreso* v = nullptr;
            TablaImpresos::porLista(Tabla, TipoImpreso, &v);
            if (!v)
                return;
            CursorEspera espera;
            establecerEstado(QStringLiteral("Generando la vista preliminar..."));
            generarImpresoEnBlanco(v->codigoBlanco);
            establecerEstado(QStringLiteral("Número de registros hallados: ") + QString::number(m_modelo->rowCount()));
        });
        return;
    }
    PantallaLlamadora l;
    l.pantalla = this;
    l.nombre = nombreFormulario();
    l.estado = [this](const QString& t) { establecerEstado(t); };
    l.registros = [this] { return m_modelo->rowCount(); };
    Exportar::pulsarBotonExportar(l, Tabla, boton);
}

void PantallaBusqueda::cmd_Ayuda_Click()
{
    guardia(nombreFormulario(), QStringLiteral("cmd_Ayuda_Click"), [&] {
        AyudaBusqueda* ayuda = esSelector() ? static_cast<AyudaBusqueda*>(new frmAyudaBuscarSeleccionar)
                                            : static_cast<AyudaBusqueda*>(new frmAyudaBuscar);
        ayuda->Tabla = Tabla;
        ayuda->Form_Load();
        ayuda->show();
    });
}

QString PantallaBusqueda::textoEstado() const { return m_panel1->text(); }

void PantallaBusqueda::establecerEstado(const QString& texto)
{
    m_panel1->setText(texto);
    m_panel1->repaint();
}

QString PantallaBusqueda::valorBusqueda() const
{
    return msk_ValorBusqueda->inputMask().isEmpty() ? msk_ValorBusqueda->text() : msk_ValorBusqueda->displayText();
}

void PantallaBusqueda::vaciarValor()
{
    msk_ValorBusqueda->setInputMask(QString());
    msk_ValorBusqueda->clear();
}

int PantallaBusqueda::filaSeleccionada() const
{
    if (m_modelo->rowCount() == 0)
        return -1;
    const QModelIndex i = lvw_Resultados->currentIndex();
    return i.isValid() ? i.row() : 0;
}

void PantallaBusqueda::seleccionarFila(int fila)
{
    const QModelIndex i = m_modelo->index(fila, 0);
    lvw_Resultados->setCurrentIndex(i);
}
