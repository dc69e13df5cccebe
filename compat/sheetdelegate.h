#ifndef COMPAT_SHEETDELEGATE_H
#define COMPAT_SHEETDELEGATE_H

#include <QScopedPointer>
#include <QStyledItemDelegate>

class QAbstractItemView;
class QStyle;

/**
 * Draws the cells of an item view under a style sheet as Qt 4.8 and Qt 5 do: box, image and text
 * each once, where the sheet has them.
 *
 * Qt 6 draws them in two goes when the sheet has a rule for the box and none that fills the cell:
 * the box and the image in the sheet's places, then all but the box once more in the places of the
 * style underneath.
 */
class SheetDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /** Makes such a delegate that of @p view, unless the view has one of its own. */
    static void install(QAbstractItemView *view);

    /** A delegate for @p view, which owns it. */
    explicit SheetDelegate(QAbstractItemView *view);
    ~SheetDelegate() override;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    Q_DISABLE_COPY(SheetDelegate)

    const QScopedPointer<QStyle> m_cellStyle;
};

#endif // COMPAT_SHEETDELEGATE_H
