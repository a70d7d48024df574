#pragma once
#include <QFrame>
#include <QStringList>

class QLabel;
class QLineEdit;

// Globo de ayuda de los campos de fecha: un marco con el icono img_Ayuda y la etiqueta
// lbl_AyudaFecha ("  El formato de la fecha ha de ser dd/mm/aaaa." y líneas de más).
// mostrarAyuda(1) lo enseña de golpe (sin la animación antigua), mostrarAyuda(0) lo oculta.
class AyudaFecha : public QFrame {
    Q_OBJECT
public:
    static const QString TEXTO;

    explicit AyudaFecha(QWidget* padre = nullptr, const QStringList& lineasExtra = {});

    void mostrarAyuda(int mostrar);
    // Cambia el texto completo de la etiqueta (pantallas con su propio primer renglón).
    void setTexto(const QString& texto);
    QString texto() const;
    // Añade la etiqueta lbl_Cerrar ("x"): un clic en ella oculta el globo.
    void permitirCerrar();

    // Enseña el globo al entrar en el campo (con el cursor al principio) y lo oculta al salir o
    // al teclear en él.
    void vigilar(QLineEdit* campo);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QLabel* m_texto;
    QLabel* m_icono;
    QLabel* m_cerrar = nullptr;
};
