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
    if (view->itemDelegate()->metaObject() == &QStyledItemDelegate::staticMetaObject) {
        view->setItemDelegate(new SheetDelegate(view));
    }
}

SheetDelegate::SheetDelegate(QAbstractItemView *view)
    : QStyledItemDelegate(view)
    , m_cellStyle(new CellStyle)
{
}

SheetDelegate::~SheetDelegate() = default;

void SheetDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    m_cellStyle->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
}
