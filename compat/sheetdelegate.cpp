#include "sheetdelegate.h"

#include <QAbstractItemView>
#include <QCommonStyle>

namespace {
/** Draws a whole cell as every plain style does, with each part and its place asked from the view's
 * own style: the one with the sheet. */
class CellStyle : public QCommonStyle
{
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *view) const override
    {
        view->style()->drawPrimitive(element, option, painter, view);
    }

    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *view) const override
    {
        return view->style()->subElementRect(element, option, view);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *view) const override
    {
        return view->style()->pixelMetric(metric, option, view);
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *view,
                  QStyleHintReturn *result) const override
    {
        return view->style()->styleHint(hint, option, view, result);
    }
};
} // namespace

void SheetDelegate::install(QAbstractItemView *view)
{
    if (view->itemDelegate()->metaObject() != &QStyledItemDelegate::staticMetaObject) {
        return;
    }
    view->setItemDelegate(new SheetDelegate(view));
    for (int column = 0; view->model() && column < view->model()->columnCount(); ++column) {
        const QStyledItemDelegate *writer =
            qobject_cast<QStyledItemDelegate *>(view->itemDelegateForColumn(column));
        if (writer) {
            view->setItemDelegateForColumn(column, new SheetDelegate(view, writer));
        }
    }
}

SheetDelegate::SheetDelegate(QAbstractItemView *view, const QStyledItemDelegate *writer)
    : QStyledItemDelegate(view)
    , m_cellStyle(new CellStyle)
    , m_writer(writer)
{
}

SheetDelegate::~SheetDelegate() = default;

QString SheetDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    return m_writer ? m_writer->displayText(value, locale)
                    : QStyledItemDelegate::displayText(value, locale);
}

void SheetDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    m_cellStyle->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
}
