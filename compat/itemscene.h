#ifndef COMPAT_ITEMSCENE_H
#define COMPAT_ITEMSCENE_H

#include <QGraphicsScene>
#include <QImage>

/** The private scene around the graphics side of one QDeclarativeItem. */
class ItemScene : public QGraphicsScene
{
    Q_OBJECT

public:
    /** A scene with @p item as its only top-level item. The item must outlive the scene. */
    explicit ItemScene(QGraphicsItem *item);
    ~ItemScene() override;

    /** A picture of the area (0, 0, @p size), in item coordinates, with @p pixelRatio pixels per
     * unit and transparent where nothing is; a null image when the size is empty. */
    QImage picture(const QSizeF &size, qreal pixelRatio);

    /** When @p watched, a widget shown in this scene, is told to draw itself: delivers that
     * at once, with all that follows from it. While a pointer's event is delivered nothing follows
     * yet: a scroll bar repaints itself several times for one, and is seen only once. */
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;

    /** Draws no background. */
    void drawBackground(QPainter *painter, const QRectF &area) override;

signals:
    /** Something looks different since the last picture. */
    void appearanceChanged();

    /** A widget has been told to draw itself, now: appearanceChanged() comes first. */
    void widgetRepainted();

private slots:
    void noteChange(const QList<QRectF> &region);
    void refuseFocus(QGraphicsItem *newFocus);

private:
    Q_DISABLE_COPY(ItemScene)

    bool shows(QObject *object) const;

    QGraphicsItem *m_item;
    bool m_isDrawing; // or telling a widget to
    bool m_isPointed; // a pointer's event is being delivered
};

#endif // COMPAT_ITEMSCENE_H
