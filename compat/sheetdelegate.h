#ifndef COMPAT_SHEETDELEGATE_H
#define COMPAT_SHEETDELEGATE_H

#include <QPointer>
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
 *
 * In place of a delegate that a column has for itself, it writes what that one would.
 */
class SheetDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /** Makes such delegates those of @p view and its columns, unless the view has one of its own.
     */
    static void install(QAbstractItemView *view);

    /** A delegate for @p view, which owns it, with the texts of @p writer if that is not null. */
    explicit SheetDelegate(QAbstractItemView *view, const QStyledItemDelegate *writer = nullptr);
    ~SheetDelegate() override;

    QString displayText(const QVariant &value, const QLocale &locale) const override;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    Q_DISABLE_COPY(SheetDelegate)

    const QScopedPointer<QStyle> m_cellStyle;
    const QPointer<const QStyledItemDelegate> m_writer;
};

#endif // COMPAT_SHEETDELEGATE_H
