#include "qdeclarativeitem.h"

#include "itemscene.h"
#include "pointerbridge.h"
#include "pointerevent.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

QDeclarativeItem::QDeclarativeItem(QDeclarativeItem *parent)
    : QQuickItem(parent)
    , m_isPictureOld(true)
    , m_isPictureUploaded(false)
{
    setFlag(QGraphicsItem::ItemHasNoContents);
    setFlag(QQuickItem::ItemHasContents);
    setAcceptedMouseButtons(Qt::AllButtons);
    setAcceptHoverEvents(true);
    QGraphicsItem::setVisible(isVisible()); // the parent may be hidden or disabled
    QGraphicsItem::setEnabled(isEnabled());

    m_scene.reset(new ItemScene(this));
    m_pointer.reset(new PointerBridge(m_scene.data()));
    m_pointer->setWindow(window());
    connect(m_scene.data(), SIGNAL(appearanceChanged()), this, SLOT(schedulePicture()));
    connect(m_scene.data(), SIGNAL(widgetRepainted()), this, SLOT(takePictureNow()));
}

QDeclarativeItem::~QDeclarativeItem() = default;

QRectF QDeclarativeItem::boundingRect() const
{
    return QRectF(0, 0, width(), height());
}

bool QDeclarativeItem::contains(const QPointF &point) const
{
    return QQuickItem::contains(point);
}

void QDeclarativeItem::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *)
{
}

#if QT_VERSION < 0x060000
void QDeclarativeItem::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    notePlace(newGeometry, oldGeometry);
}
#else
void QDeclarativeItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    notePlace(newGeometry, oldGeometry);
}
#endif

void QDeclarativeItem::notePlace(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    if (newGeometry.size() != oldGeometry.size()) {
        schedulePicture();
    }
}

void QDeclarativeItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    switch (change) {
    case QQuickItem::ItemSceneChange:
        m_pointer->setWindow(value.window);
        break;
    case QQuickItem::ItemVisibleHasChanged:
        QGraphicsItem::setVisible(value.boolValue);
        schedulePicture();
        break;
    case QQuickItem::ItemEnabledHasChanged:
        QGraphicsItem::setEnabled(value.boolValue);
        break;
    case QQuickItem::ItemOpacityHasChanged:
        // Qt Quick fades the picture. What can't be seen at all takes no events on Qt 4.8, and that
        // is the graphics side's to know.
        QGraphicsItem::setOpacity(qFuzzyIsNull(value.realValue) ? 0 : 1);
        break;
    case QQuickItem::ItemDevicePixelRatioHasChanged:
        schedulePicture();
        break;
    default:
        break;
    }
    QQuickItem::itemChange(change, value);
}

void QDeclarativeItem::schedulePicture()
{
    m_isPictureOld = true;
    polish();
}

void QDeclarativeItem::takePictureNow()
{
    if (window() && window()->visibility() != QWindow::Hidden) {
        updatePolish();
    }
}

void QDeclarativeItem::updatePolish()
{
    if (!m_isPictureOld || !isVisible()) {
        return;
    }
    m_picture = m_scene->picture(boundingRect().size(), window()->effectiveDevicePixelRatio());
    m_isPictureOld = false;
    m_isPictureUploaded = false;
    QQuickItem::update();
}

QSGNode *QDeclarativeItem::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (m_picture.isNull()) {
        delete node;
        return nullptr;
    }
    QSGImageNode *image = static_cast<QSGImageNode *>(node);
    if (!image) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        m_isPictureUploaded = false;
    }
    if (!m_isPictureUploaded) {
        image->setTexture(window()->createTextureFromImage(m_picture));
        image->setSourceRect(m_picture.rect());
        m_isPictureUploaded = true;
    }
    image->setRect(QRectF(QPointF(), QSizeF(m_picture.size()) / m_picture.devicePixelRatio()));
    image->setFiltering(smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    return image;
}

void QDeclarativeItem::mousePressEvent(QMouseEvent *event)
{
    m_pointer->press(event);
}

void QDeclarativeItem::mouseMoveEvent(QMouseEvent *event)
{
    m_pointer->move(event);
}

void QDeclarativeItem::mouseReleaseEvent(QMouseEvent *event)
{
    m_pointer->release(event);
}

void QDeclarativeItem::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_pointer->doubleClick(event);
}

void QDeclarativeItem::mouseUngrabEvent()
{
    m_pointer->cancel();
}

void QDeclarativeItem::wheelEvent(QWheelEvent *event)
{
    m_pointer->wheel(event);
}

void QDeclarativeItem::hoverEnterEvent(QHoverEvent *event)
{
    hoverMoveEvent(event);
}

void QDeclarativeItem::hoverMoveEvent(QHoverEvent *event)
{
    const QPointF position = PointerEvent::position(*event);
    m_pointer->hover(position, mapToGlobal(position).toPoint());
}

void QDeclarativeItem::hoverLeaveEvent(QHoverEvent *)
{
    m_pointer->leave();
}
