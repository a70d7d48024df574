#include "core/AyudaFecha.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QStyle>
#include <QTimer>

const QString AyudaFecha::TEXTO = QStringLiteral("  El formato de la fecha ha de ser dd/mm/aaaa.");

AyudaFecha::AyudaFecha(QWidget* padre, const QStringList& lineasExtra) : QFrame(padre)
{
    setObjectName(QStringLiteral("shp_AyudaFecha"));
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, QColor(255, 255, 225));
    p.setColor(QPalette::WindowText, Qt::black);
    setPalette(p);

    m_icono = new QLabel(this);
    m_icono->setObjectName(QStringLiteral("img_Ayuda"));
    m_icono->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(24, 24));
    m_icono->setAlignment(Qt::AlignTop);

    m_texto = new QLabel(this);
    m_texto->setObjectName(QStringLiteral("lbl_AyudaFecha"));
    QStringList lineas{TEXTO};
    lineas += lineasExtra;
    m_texto->setText(lineas.join(QLatin1Char('\n')));

    auto* capa = new QHBoxLayout(this);
    capa->setContentsMargins(6, 6, 6, 6);
    capa->addWidget(m_icono);
    capa->addWidget(m_texto, 1);
    hide();
}

void AyudaFecha::mostrarAyuda(int mostrar)
{
    if (mostrar) {
        adjustSize();
        raise();
        show();
    } else {
        hide();
    }
}

void AyudaFecha::setTexto(const QString& texto) { m_texto->setText(texto); }

QString AyudaFecha::texto() const { return m_texto->text(); }

void AyudaFecha::permitirCerrar()
{
    if (m_cerrar)
        return;
    m_cerrar = new QLabel(QStringLiteral("x"), this);
    m_cerrar->setObjectName(QStringLiteral("lbl_Cerrar"));
    m_cerrar->setAlignment(Qt::AlignTop | Qt::AlignRight);
    m_cerrar->setCursor(Qt::PointingHandCursor);
    m_cerrar->installEventFilter(this);
    static_cast<QHBoxLayout*>(layout())->addWidget(m_cerrar);
}

void AyudaFecha::vigilar(QLineEdit* campo) { campo->installEventFilter(this); }

bool AyudaFecha::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == m_cerrar && evento->type() == QEvent::MouseButtonRelease) {
        mostrarAyuda(0);
        return true;
    }
    if (auto* campo = qobject_cast<QLineEdit*>(objeto)) {
        if (evento->type() == QEvent::FocusIn) {
            mostrarAyuda(1);
            // El campo coloca el cursor al recibir el foco; se lleva al principio después.
            QPointer<QLineEdit> vigilado(campo);
            QTimer::singleShot(0, campo, [vigilado] {
                if (vigilado)
                    vigilado->setCursorPosition(0);
            });
        } else if (evento->type() == QEvent::FocusOut) {
            mostrarAyuda(0);
        } else if (evento->type() == QEvent::KeyPress && !static_cast<QKeyEvent*>(evento)->text().isEmpty()) {
            // Quien ya escribe la fecha no necesita el globo, que tapa los campos de debajo.
            mostrarAyuda(0);
        }
    }
    return false;
}
