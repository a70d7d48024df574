#pragma once
#include "masterdata/FichaRegistro.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;
class QToolButton;

// Parte común de las fichas de la tabla OTROS (arquitectos, arquitectos técnicos y
// contratistas): persona o sociedad, número de colegiado, filtros, validación y guardado.
// Cada ficha pone su categoría, sus textos, sus cascadas y su devolución.
class FichaOtros : public FichaRegistro {
    Q_OBJECT
public:
    struct Textos {
        QString categoria;        // valor de Categoria
        QString cargaFallida;     // sin fila al cargar
        QString nombrePersona;    // nombre vacío de una persona
        QString existePersona;    // número repetido de una persona en "ALTA"
        QString noHallado;        // sin fila al guardar
        QString alta;
        QString modificado;
        bool bloquearTipo = false;  // Frame2 deshabilitado en "MODIFICAR"
        bool conUnicidad = true;
    };

    void opt_Tipo_Click(int indice);
    void img_Validar_Click();
    bool validarDatos() override;

    // Tipo fijado por quien abre (listas de sólo personas o sólo sociedades).
    void fijarTipo(int indice, bool bloquear);
    qint64 numeroAnterior() const { return m_numeroAnterior; }

protected:
    FichaOtros(const Textos& textos, QWidget* padre);
    // Tras setupUi: localiza los controles por su nombre y los conecta.
    void iniciar();

    void cargarDatos() override;
    QList<QWidget*> controlesCopia() const override;
    bool guardarRegistro() override;
    // Código, nombre, número, NIF, la fila de su lista y el domicilio y contacto.
    RegistroGuardado registroGuardado() const override;
    QString textoAlta() const override { return m_textos.alta; }
    QString textoModificado() const override { return m_textos.modificado; }

    // Datos de pantalla que usan las cascadas y la devolución.
    QString nombre() const;           // nombre y apellidos recortados
    QString numero() const;           // número recortado
    QString texto(const char* control) const;
    qint64 claveNueva() const { return m_claveNueva; }

    QLineEdit* txt_NumColegiado = nullptr;  // no está en la ficha de contratistas
    QLineEdit* txt_Colegio = nullptr;       // sólo arquitectos
    QLineEdit* txt_Nombre = nullptr;
    QLineEdit* txt_Apellidos = nullptr;
    QLineEdit* txt_NIF = nullptr;
    QLineEdit* txt_Correo = nullptr;
    QPlainTextEdit* txt_Notas = nullptr;
    QComboBox* cbo_Provincia = nullptr;
    QRadioButton* opt_Tipo_0 = nullptr;
    QRadioButton* opt_Tipo_1 = nullptr;
    QGroupBox* Frame2 = nullptr;

private:
    Textos m_textos;
    qint64 m_numeroAnterior = -1;
    qint64 m_claveNueva = 0;
};
