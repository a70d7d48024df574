#pragma once
#include <QColor>
#include <QObject>
#include <QPixmap>
#include <QMdiArea>
#include <QPointer>



// Fondo de la pantalla principal: color liso o degradado de 64 bandas y un dibujo centrado,
// en mosaico o estirado. Se repinta al cambiar el tamaño de la ventana.
class CMdiBackground : public QObject {
    Q_OBJECT
public:
    explicit CMdiBackground(QObject* padre = nullptr);
    ~CMdiBackground() override;

    bool AutoRefresh() const { return m_AutoRefresh; }
    void setAutoRefresh(bool v);
    int BackStyle() const { return m_BackStyle; }  // 0 liso, otro degradado
    void setBackStyle(int v);
    QMdiArea* Client() const { return m_Client; }
    void setClient(QMdiArea* area);
    QColor Color(int indice) const { return m_Color[indice == 0 ? 0 : 1]; }
    void setColor(int indice, const QColor& c);
    QPixmap Graphic() const { return m_Graphic; }
    void setGraphic(const QPixmap& p);
    int GraphicPosition() const { return m_GraphicPosition; }  // 1 centrado, 2 mosaico, 3 estirado
    void setGraphicPosition(int v);
    void Refresh();

    QPixmap pintar(const QSize& tamano) const;  // la imagen del fondo para un tamaño

protected:
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void separar();
    void repintarSiAutomatico();

    QPointer<QMdiArea> m_Client;
    QPointer<QWidget> m_viewport;  // se vigila aparte: el área puede estar a medio destruir
    QPixmap m_Graphic;
    bool m_AutoRefresh = false;
    QColor m_Color[2];
    int m_BackStyle = 0;
    int m_GraphicPosition = 1;
};
