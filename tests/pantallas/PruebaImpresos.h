#pragma once
// Base y ayudas de las pruebas de los impresos: la clase de prueba con su entorno por caso, y lo
// que todas hacen con la base de datos, los controles, el selector y el informe en curso.
#include "app/frmMenu.h"
#include "core/Fichas.h"
#include "core/modFunciones.h"
#include "forms/DatosImpreso.h"
#include "reports/modInformes.h"
#include "search/frmBuscarSeleccionar.h"
#include "tests/comun/EntornoPrueba.h"
#include "tests/comun/ServidorPrueba.h"
#include "tests/pantallas/PruebaPantallas.h"

#include <QAction>
#include <QLineEdit>
#include <QSqlRecord>
#include <QtTest>

#include <memory>

using Mensajes::Respuesta;

namespace impresos {

// Una fila leída: sus columnas por nombre sin mirar mayúsculas, que el servidor las da en
// minúsculas y el fichero como están en el esquema.
class Fila : public QVariantMap {
public:
    QVariant value(const QString& columna) const { return QVariantMap::value(columna.toLower()); }
    QVariant operator[](const QString& columna) const { return value(columna); }
};

// Filas de una sentencia, cada una con sus columnas por nombre.
inline QList<Fila> filas(const QString& q, const QVariantList& valores = {})
{
    UsoConexion uso;
    QList<Fila> r;
    for (Consulta c(q, valores); c.siguiente();) {
        const QSqlRecord rec = c.query().record();
        r << Fila();
        for (int i = 0; i < rec.count(); ++i)
            r.last().insert(rec.fieldName(i).toLower(), c.valor(i));
    }
    return r;
}

inline void sql(const QString& q, const QVariantList& valores = {})
{
    UsoConexion uso;
    ejecutar(q, valores);
}

// Una columna de una fila leída, como texto.
inline QString t(const Fila& m, const char* columna) { return m.value(QString::fromLatin1(columna)).toString(); }

// El control de ese nombre; si no está, la prueba no puede seguir.
template <class T = QLineEdit>
T* control(QWidget* w, const QString& nombre)
{
    T* c = w->findChild<T*>(nombre);
    if (!c)
        qFatal("falta el control %s", qPrintable(nombre));
    return c;
}

inline QString texto(QWidget* w, const QString& nombre) { return control(w, nombre)->text(); }

// Los textos de esos controles, en orden: muchos campos comparados de una vez.
inline QStringList textos(QWidget* w, const QStringList& nombres)
{
    QStringList r;
    for (const QString& n : nombres)
        r << texto(w, n);
    return r;
}

// Esas columnas de una fila leída, como texto y en orden.
inline QStringList columnas(const Fila& m, const QStringList& nombres)
{
    QStringList r;
    for (const QString& n : nombres)
        r << m.value(n).toString();
    return r;
}
inline void escribir(QWidget* w, const QString& nombre, const QString& valor) { control(w, nombre)->setText(valor); }

// Un impreso como lo abre el menú: la clave de tabla de su lista y, si la comparte, su tipo.
struct Impreso {
    QString tabla;
    QString tipo = {};
};

// Abre el impreso ("ALTA", o "MODIFICAR" con la clave de su fila) y devuelve la pantalla abierta.
template <class F = DatosImpreso>
F* abrir(const Impreso& i, const QString& operacion = QStringLiteral("ALTA"), qint64 clave = 0)
{
    if (!Fichas::abrir({.tabla = i.tabla, .tipoImpreso = i.tipo, .operacion = operacion, .codigo = clave}))
        return nullptr;
    const QList<QWidget*> l = Pantallas::cargadas();
    for (auto it = l.rbegin(); it != l.rend(); ++it)
        if (auto* f = qobject_cast<F*>(*it))
            return f;
    return nullptr;
}

// Lo que devuelve el selector de proyectos, escrito por nombre como lo hará él.
inline void elegirProyecto(QWidget* f, qint64 codigo, const QString& nombre = QStringLiteral("Vivienda unifamiliar"))
{
    escribir(f, QStringLiteral("txt_CodProyecto"), QString::number(codigo));
    escribir(f, QStringLiteral("txt_Proyecto"), nombre);
}

// "Vista previa" de la botonera del impreso.
inline void imprimir(QWidget* f)
{
    control<QAction>(f, QStringLiteral("tlb_BotoneraImprimir_1"))->trigger();
    procesarEventos();
}

inline bool cargada(const QString& pantalla)
{
    for (QWidget* w : Pantallas::cargadas())
        if (w->objectName() == pantalla)
            return true;
    return false;
}

// Elige en el selector abierto la fila de esa clave; devuelve si estaba y el selector se ha cerrado.
inline bool elegir(const QString& clave)
{
    frmBuscarSeleccionar* s = Pantallas::cargada<frmBuscarSeleccionar>();
    if (!s)
        return false;
    const QList<FilaResultado> l = s->filasResultado();
    int fila = -1;
    for (int i = 0; i < l.size(); ++i)
        if (l[i].clave == clave)
            fila = i;
    if (fila < 0)
        return false;
    s->seleccionarFila(fila);
    s->cmd_Seleccionar_Click();
    procesarEventos();
    return !Pantallas::cargada<frmBuscarSeleccionar>();
}

inline bool elegir(qint64 codigo) { return elegir(QString::number(codigo)); }

// Textos del informe en curso, en orden: los de esa página o, sin página, los de todas.
inline QStringList textosInforme(int pagina = -1)
{
    DocumentoInforme& d = *modInformes::Informe;
    const int desde = pagina < 0 ? 0 : pagina, hasta = pagina < 0 ? d.numeroPaginas() : pagina + 1;
    QStringList r;
    for (int p = desde; p < hasta; ++p)
        for (const TrazoInforme& tr : d.pagina(p).trazos)
            if (tr.tipo == TrazoInforme::Texto)
                r << tr.texto;
    return r;
}

}  // namespace impresos

// Clase de prueba de un impreso: una sola pantalla principal para todos los casos; cada caso con
// su entorno y su base de datos nuevos, poblada por la prueba, y sin pantallas al terminar.
class PruebaImpresos : public QObject {
    Q_OBJECT

protected:
    std::unique_ptr<EntornoPrueba> m_e;
    std::optional<ServidorPrueba> m_servidor;  // con PLANORUM_PRUEBAS_MOTOR=postgresql

    // Los datos de partida de cada caso, con la base de datos ya conectada.
    virtual void poblar() = 0;
    // Lo que un caso deja vivo y ha de irse antes de cerrar sus pantallas.
    virtual void terminarCaso() {}

private slots:
    void initTestCase() { modInformes::inicializarRecursos(), frmMenu::instancia(); }

    void init()
    {
        m_e = std::make_unique<EntornoPrueba>();
        ServidorPrueba::conectarAlPedido(*m_e, m_servidor);
        poblar();
    }

    void cleanup()
    {
        terminarCaso();
        cerrarPantallas();
        m_e.reset();
        m_servidor.reset();
    }
};
