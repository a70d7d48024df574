#pragma once
#include "core/Pantallas.h"

#include <QPointer>
#include <QTextCursor>
#include <memory>

class QLabel;
class QPrinter;
class QTextCharFormat;
class QTextDocument;
class QTextEdit;
class QTimer;
class frmEditor_Buscar;
class frmEditor_Reemplazar;
namespace Ui {
class frmEditorRTF;
}

// Editor de texto enriquecido (RTF): un procesador de textos pequeño para los contratos y las
// notas del estudio. No comparte datos con el resto del programa.
class frmEditorRTF : public Pantalla {
    Q_OBJECT
public:
    explicit frmEditorRTF(QWidget* padre = nullptr);
    ~frmEditorRTF() override;

    // Abre el editor con el fichero de la línea de mandatos, o con la plantilla vacía, o trae
    // delante el que ya esté abierto.
    static frmEditorRTF* abrir();

    QSize sizeHint() const override { return QSize(960, 640); }

    QTextEdit* editor() const;
    QString fichero() const { return m_fichero; }  // "" para un documento sin título

    // Lee el fichero entero en el editor; si no se puede, avisa, lo anota y deja el documento que había.
    bool abrirFichero(const QString& ruta);
    // Guarda el documento en ese fichero y lo toma como suyo; si no se puede, avisa y lo anota.
    bool guardarEn(const QString& ruta);

    // Busca el texto desde la última coincidencia (o desde el cursor si no la hay o ya no vale) y la
    // selecciona. Sin más coincidencias avisa y olvida la última. Lo usan buscar y reemplazar.
    bool buscarSiguiente(const QString& texto, QTextCursor& ultima);
    QString textoParaBuscar() const;  // lo seleccionado, si no pasa de una línea

    static QString titulo(const QString& ruta);  // "nombre - PLANORUM MIRVADE" o "Sin título - ..."

public slots:
    void mnuArchivoNuevo_Click();
    void mnuArchivoAbrir_Click();
    void mnuArchivoGuardar_Click();
    void mnuArchivoGuardarComo_Click();
    void subImpresora_Click();
    void subImprimir_Click();
    void mnuArchivoSalir_Click();
    void subDeshacer_Click();
    void mnuEdicionCortar_Click();
    void mnuEdicionCopiar_Click();
    void mnuEdicionPegar_Click();
    void opEliminar_Click();
    void opBuscar_Click();
    void opReemplazar_Click();
    void subSeleccTodo_Click();
    void subHoraFecha_Click();
    void subajuste_Click();
    void subFuente_Click();
    void subVinetas_Click();
    void mnu_Negrita_Click();
    void mnu_Subrayada_Click();
    void mnu_Cursiva_Click();
    void mnu_Tachada_Click();
    void subIzquierda_Click();
    void subCentrado_Click();
    void subDerecha_Click();
    void cbo_TipoLetra_Click();
    void cbo_TamanoLetra_Click();
    void tmr_1_Timer();

protected:
    bool alDescargar() override;

private:
    void Form_Load();
    void prepararBarras();
    void conectar();
    void llenarCombos();
    // Devuelve si se puede seguir (nuevo, abrir, salir): sin cambios, guardados o descartados.
    bool PreguntarGuardarCambios();
    bool guardar();
    bool guardarComo();
    void documentoNuevo();
    // Documento nuevo con lo leído del fichero; nullptr (tras avisar) si no se ha podido leer.
    QTextDocument* leerDocumento(const QString& ruta, const QString& procedimiento, bool* incompleto);
    void ponerDocumento(QTextDocument* documento, const QString& ruta);
    QTextDocument* documentoVacio();
    QPrinter& impresora();
    QFont fuente(const QTextCharFormat& formato) const;  // con lo que no diga, la del documento
    void aplicar(const QTextCharFormat& formato);
    void ponerTitulo();
    void actualizarCombosFuentes();
    void actualizarLineaEstado();
    void actualizarBotonesFormato();
    void alinear(Qt::Alignment alineacion);
    // Un fichero que no se lee o no se escribe: aviso al usuario y entrada en el registro.
    void avisarFallo(const QString& texto, const QString& procedimiento, const QString& detalle);

    Ui::frmEditorRTF* ui;
    QTimer* tmr_1 = nullptr;
    QLabel* m_linea = nullptr;
    QString m_fichero;
    // Leído sólo en parte: guardarlo encima perdería lo que no se leyó, así que va por "Guardar como".
    bool m_incompleto = false;
    std::unique_ptr<QPrinter> m_impresora;
    QPointer<frmEditor_Buscar> m_buscar;
    QPointer<frmEditor_Reemplazar> m_reemplazar;
};
