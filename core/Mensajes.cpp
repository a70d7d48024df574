#include "core/Mensajes.h"

#include <QApplication>
#include <QList>
#include <QMessageBox>
#include <QPushButton>

namespace Mensajes {

namespace {
Contestador& contestador()
{
    static Contestador c;
    return c;
}

int& retenciones()
{
    static int n = 0;
    return n;
}

QList<Cuadro>& retenidos()
{
    static QList<Cuadro> l;
    return l;
}

QMessageBox::StandardButton boton(Respuesta r)
{
    switch (r) {
    case Respuesta::Si: return QMessageBox::Yes;
    case Respuesta::No: return QMessageBox::No;
    case Respuesta::Cancelar: return QMessageBox::Cancel;
    case Respuesta::Aceptar: break;
    }
    return QMessageBox::Ok;
}
}  // namespace

void instalarContestador(Contestador c) { contestador() = std::move(c); }

bool hayContestador() { return static_cast<bool>(contestador()); }

void retener() { ++retenciones(); }

void soltar()
{
    if (retenciones() > 0 && --retenciones() > 0)
        return;
    while (!retenidos().isEmpty())
        mostrar(retenidos().takeFirst());
}

Respuesta mostrar(const Cuadro& cuadro)
{
    if (retenciones() > 0 && cuadro.botones == Botones::Aceptar) {
        retenidos() << cuadro;
        return Respuesta::Aceptar;
    }
    if (contestador())
        return contestador()(cuadro);

    QMessageBox caja(QApplication::activeWindow());
    caja.setWindowTitle(cuadro.titulo);
    caja.setText(cuadro.texto);
    switch (cuadro.icono) {
    case Icono::Exclamacion: caja.setIcon(QMessageBox::Warning); break;
    case Icono::Pregunta: caja.setIcon(QMessageBox::Question); break;
    case Icono::Informacion: caja.setIcon(QMessageBox::Information); break;
    case Icono::Ninguno: caja.setIcon(QMessageBox::NoIcon); break;
    }
    switch (cuadro.botones) {
    case Botones::Aceptar: caja.setStandardButtons(QMessageBox::Ok); break;
    case Botones::SiNo: caja.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case Botones::SiNoCancelar:
        caja.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    caja.setDefaultButton(boton(cuadro.porDefecto));
    if (cuadro.botones == Botones::SiNoCancelar)
        caja.setEscapeButton(QMessageBox::Cancel);
    else if (cuadro.botones == Botones::SiNo)
        caja.setEscapeButton(QMessageBox::No);

    switch (caja.exec()) {
    case QMessageBox::Yes: return Respuesta::Si;
    case QMessageBox::No: return Respuesta::No;
    case QMessageBox::Cancel: return Respuesta::Cancelar;
    default: return Respuesta::Aceptar;
    }
}

void aviso(const QString& texto)
{
    mostrar({QStringLiteral("Aviso"), texto, Icono::Exclamacion, Botones::Aceptar, Respuesta::Aceptar});
}

void informacion(const QString& texto)
{
    mostrar({QStringLiteral("Información"), texto, Icono::Informacion, Botones::Aceptar, Respuesta::Aceptar});
}

Respuesta pregunta(const QString& texto, Respuesta porDefecto)
{
    return mostrar({QStringLiteral("Pregunta"), texto, Icono::Pregunta, Botones::SiNo, porDefecto});
}

Respuesta preguntaCancelar(const QString& texto)
{
    return mostrar({QStringLiteral("Pregunta"), texto, Icono::Pregunta, Botones::SiNoCancelar, Respuesta::Si});
}

Respuesta preguntaAviso(const QString& texto)
{
    return mostrar({QStringLiteral("Aviso"), texto, Icono::Pregunta, Botones::SiNo, Respuesta::No});
}

void mostrarEntradaLog(const QString& entrada)
{
    mostrar({QStringLiteral("Aviso"), entrada, Icono::Ninguno, Botones::Aceptar, Respuesta::Aceptar});
}

}  // namespace Mensajes
