#ifndef COMPAT_QDECLARATIVEITEM_H
#define COMPAT_QDECLARATIVEITEM_H

#include <qdeclarative.h>

#include <QGraphicsItem>
#include <QImage>
#include <QQuickItem>
#include <QScopedPointer>

class ItemScene;
class PointerBridge;

/**
 * Qt Declarative's item on Qt 5 and Qt 6: an item of Qt Quick's scene that takes graphics items,
 * and with them widgets, as children.
 *
 * It is a QQuickItem and a QGraphicsItem in one. As a graphics item it is the only top-level item
 * of a private QGraphicsScene, whose picture it shows in Qt Quick's scene, and to which it hands on
 * mouse, touch, wheel and hover events. Place, size, visibility, opacity and all that QML binds to
 * are those of QQuickItem; flags, contents and update() those of QGraphicsItem. A name that has no
 * one meaning in both stays ambiguous, so that the compiler asks.
 *
 * Other than on Qt 4.8, graphics items never get the keyboard focus, and scene() has no views.
 * For the user-interface thread, as all items.
 */
class QDeclarativeItem : public QQuickItem, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    /** An item without contents of its own and of no size, as a child of @p parent. */
    explicit QDeclarativeItem(QDeclarativeItem *parent = nullptr);
    ~QDeclarativeItem() override;

    /** The item's own area, from its origin: width() by height(). */
    QRectF boundingRect() const override;

    /** Whether @p point, in item coordinates, is in the item's own area. */
    bool contains(const QPointF &point) const override;

    /** Draws the item's own contents: nothing here. Only called once the flag
     * QGraphicsItem::ItemHasNoContents is cleared. */
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

    using QGraphicsItem::flags;
    using QGraphicsItem::setFlag;
    using QGraphicsItem::setFlags;
    using QGraphicsItem::update;
    using QQuickItem::setFlag;
    using QQuickItem::setFlags;

    using QQuickItem::acceptedMouseButtons;
    using QQuickItem::acceptHoverEvents;
    using QQuickItem::acceptTouchEvents;
    using QQuickItem::grabMouse;
    using QQuickItem::hasFocus;
    using QQuickItem::isEnabled;
    using QQuickItem::isUnderMouse;
    using QQuickItem::isVisible;
    using QQuickItem::mapFromItem;
    using QQuickItem::mapFromScene;
    using QQuickItem::mapToItem;
    using QQuickItem::mapToScene;
    using QQuickItem::opacity;
    using QQuickItem::parentItem;
    using QQuickItem::rotation;
    using QQuickItem::scale;
    using QQuickItem::setAcceptedMouseButtons;
    using QQuickItem::setAcceptHoverEvents;
    using QQuickItem::setAcceptTouchEvents;
    using QQuickItem::setEnabled;
    using QQuickItem::setFocus;
    using QQuickItem::setOpacity;
    using QQuickItem::setParentItem;
    using QQuickItem::setRotation;
    using QQuickItem::setScale;
    using QQuickItem::setTransformOriginPoint;
    using QQuickItem::setVisible;
    using QQuickItem::setX;
    using QQuickItem::setY;
    using QQuickItem::transform;
    using QQuickItem::transformOriginPoint;
    using QQuickItem::ungrabMouse;
    using QQuickItem::window;
    using QQuickItem::x;
    using QQuickItem::y;

protected:
    using QGraphicsItem::hoverEnterEvent;
    using QGraphicsItem::hoverLeaveEvent;
    using QGraphicsItem::hoverMoveEvent;
    using QGraphicsItem::itemChange;
    using QGraphicsItem::mouseDoubleClickEvent;
    using QGraphicsItem::mouseMoveEvent;
    using QGraphicsItem::mousePressEvent;
    using QGraphicsItem::mouseReleaseEvent;
    using QGraphicsItem::wheelEvent;

#if QT_VERSION < 0x060000
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
#else
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
#endif
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void wheelEvent(QWheelEvent *event) override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverMoveEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;

private slots:
    void schedulePicture();
    void takePictureNow();

private:
    Q_DISABLE_COPY(QDeclarativeItem)

    void notePlace(const QRectF &newGeometry, const QRectF &oldGeometry);

    // These would act in the private scene alone.
    using QGraphicsItem::hide;
    using QGraphicsItem::moveBy;
    using QGraphicsItem::setPos;
    using QGraphicsItem::setTransform;
    using QGraphicsItem::show;

    QScopedPointer<ItemScene> m_scene;
    QScopedPointer<PointerBridge> m_pointer;
    QImage m_picture;         // of the scene, shown by Qt Quick
    bool m_isPictureOld;      // the scene looks different by now
    bool m_isPictureUploaded; // the paint node's texture is this picture
};

#endif // COMPAT_QDECLARATIVEITEM_H
