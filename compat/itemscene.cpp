#include "itemscene.h"

#if QT_VERSION >= 0x060000
#include "sheetdelegate.h"

#include <QAbstractItemView>
#endif

#include <QCoreApplication>
#include <QEvent>
#include <QGraphicsProxyWidget>
#include <QPainter>
#include <QScopedValueRollback>
#include <QWidget>
#include <QtMath>

ItemScene::ItemScene(QGraphicsItem *item)
    : m_item(item)
    , m_isDrawing(false)
    , m_isPointed(false)
{
    setItemIndexMethod(NoIndex);
    addItem(m_item);
    connect(this, SIGNAL(changed(QList<QRectF>)), this, SLOT(noteChange(QList<QRectF>)));
    connect(this, SIGNAL(focusItemChanged(QGraphicsItem *, QGraphicsItem *, Qt::FocusReason)), this,
            SLOT(refuseFocus(QGraphicsItem *)));
    QCoreApplication::instance()->installEventFilter(this);

    // Without a view nobody else says so, and widgets in an inactive scene look inactive.
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(this, &activation);
}

ItemScene::~ItemScene()
{
    // The scene would delete it.
    removeItem(m_item);
}

QImage ItemScene::picture(const QSizeF &size, qreal pixelRatio)
{
    const QSize pixels(qCeil(size.width() * pixelRatio), qCeil(size.height() * pixelRatio));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return image;
    }
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    const QScopedValueRollback<bool> once(m_isDrawing, true);
    const QRectF area(QPointF(), size);
    QPainter painter(&image);
    render(&painter, area, area);
    return image;
}

void ItemScene::drawBackground(QPainter *painter, const QRectF &)
{
    // render() clips to its area. Under such a clip widgets are not held within their own edges, so
    // that a tree draws over its frame; the picture has edges of its own.
    painter->setClipping(false);
}

bool ItemScene::eventFilter(QObject *watched, QEvent *event)
{
#if QT_VERSION >= 0x060000
    if (event->type() == QEvent::Show && shows(watched)) {
        if (QAbstractItemView *view = qobject_cast<QAbstractItemView *>(watched)) {
            SheetDelegate::install(view);
        }
    }
#endif
    if (event->type() != QEvent::UpdateRequest || m_isDrawing || !shows(watched)) {
        return QGraphicsScene::eventFilter(watched, event);
    }
    // A widget's repaint() comes this way inside the call, its update() later. The scene would
    // collect either until the next turn of the event loop.
    {
        const QScopedValueRollback<bool> once(m_isDrawing, true);
        QCoreApplication::sendEvent(watched, event);
    }
    if (!m_isPointed) {
        QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
        emit widgetRepainted();
    }
    return true;
}

bool ItemScene::event(QEvent *event)
{
    const bool isPointers = event->type() >= QEvent::GraphicsSceneMouseMove &&
                            event->type() <= QEvent::GraphicsSceneWheel;
    const QScopedValueRollback<bool> pointed(m_isPointed, m_isPointed || isPointers);
    return QGraphicsScene::event(event);
}

void ItemScene::noteChange(const QList<QRectF> &region)
{
    // The scene announces what it has delivered directly a second time, as an empty region.
    if (!region.isEmpty()) {
        emit appearanceChanged();
    }
}

void ItemScene::refuseFocus(QGraphicsItem *newFocus)
{
    // A proxy widget takes the focus at every press, whatever its widget's focus policy is, and a
    // widget that is deleted while its proxy has it walks along a focus chain that is gone.
    if (newFocus) {
        setFocusItem(nullptr);
    }
}

bool ItemScene::shows(QObject *object) const
{
    const QWidget *widget = qobject_cast<QWidget *>(object);
    const QGraphicsProxyWidget *proxy = widget ? widget->graphicsProxyWidget() : nullptr;
    return proxy && proxy->scene() == this;
}
