#include "frames/treewindow.h"

#include "frames/touch.h"
#include "host/shownitems.h"

#include <QDeclarativeItem>
#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QScrollBar>

#include <cstdio>
#include <cstdlib>

namespace {
const int patienceMs = 20000;
const int frameMs = 100; // for a picture that need not come
const int pauseMs = 8;   // until a finger moves on; without it all would still be in the caches
const int restMs = 20;

const int pulls = 50; // pixels; as many forth as back
const int rowsStepped = 50;
const int arrowPixels = 45; // what the style sheet gives to either end of a scroll bar
const int nearMiddle = 20;

bool anyPicture()
{
    return true;
}

QTreeView *treeInView()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        QTreeView *view = qobject_cast<QTreeView *>(widget);
        if (view && view->isVisible() && view->graphicsProxyWidget())
            return view;
    }
    fprintf(stderr, "the screens show no tree\n");
    exit(EXIT_FAILURE);
}

/** Qt's model with boxes that nobody checks. */
class ModelWithBoxes : public QFileSystemModel
{
public:
    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        return QFileSystemModel::flags(index) | Qt::ItemIsUserCheckable;
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::CheckStateRole && index.column() == 0)
            return int(Qt::Unchecked);
        return QFileSystemModel::data(index, role);
    }
};
} // namespace

TreeWindow::TreeWindow(Glass *glass)
    : m_glass(glass)
    , m_view(nullptr)
{
}

TreeWindow::~TreeWindow() = default;

void TreeWindow::watch()
{
    m_glass->watch(window(), m_view->viewport());
}

QModelIndex TreeWindow::folder(const QString &name) const
{
    for (;;) {
        const QAbstractItemModel *model = m_view->model();
        const QModelIndex root = m_view->rootIndex();
        for (int row = 0; row < model->rowCount(root); ++row) {
            const QModelIndex index = model->index(row, 0, root);
            if (index.data().toString() == name && !m_view->visualRect(index).isEmpty())
                return index;
        }
        Visitor::rests(restMs);
    }
}

void TreeWindow::touchBranch(const QString &name)
{
    const QRect row = m_view->visualRect(folder(name));
    const QPoint branch(row.left() - m_view->indentation() / 2, row.center().y());
    const QPoint place = origin() + m_view->viewport()->mapTo(m_view, branch);
    Touch(window(), place).release(place);
}

bool TreeWindow::waitForRows(const QString &name, int rows)
{
    const QPersistentModelIndex index(folder(name));
    const QAbstractItemModel *model = m_view->model();
    return m_glass->waitForPicture(
        [&] {
            return model->rowCount(index) == rows &&
                   !m_view->visualRect(model->index(0, 0, index)).isEmpty();
        },
        patienceMs);
}

QPoint TreeWindow::onScrollBar(int y) const
{
    QScrollBar *bar = m_view->verticalScrollBar();
    return origin() + bar->mapTo(m_view, QPoint(bar->width() / 2, y));
}

void TreeWindow::waitForFrame(size_t shown)
{
    // A window draws what is touched at once, before anybody waits.
    if (m_glass->frames().size() == shown)
        m_glass->waitForPicture(anyPicture, frameMs);
    Visitor::rests(pauseMs);
}

std::vector<double> TreeWindow::pull()
{
    const int top = arrowPixels + nearMiddle;
    watch();
    Touch touch(window(), onScrollBar(top));
    for (int pixel = 1; pixel <= 2 * pulls; ++pixel) {
        const size_t shown = m_glass->frames().size();
        touch.move(onScrollBar(top + (pixel <= pulls ? pixel : 2 * pulls - pixel)));
        waitForFrame(shown);
    }
    touch.release(onScrollBar(top));
    return m_glass->frames();
}

std::vector<double> TreeWindow::step()
{
    const int bottom = m_view->verticalScrollBar()->height() - nearMiddle;
    watch();
    for (int row = 0; row < 2 * rowsStepped; ++row) {
        const QPoint arrow = onScrollBar(row < rowsStepped ? bottom : nearMiddle);
        const size_t shown = m_glass->frames().size();
        Touch(window(), arrow).release(arrow);
        waitForFrame(shown);
    }
    return m_glass->frames();
}

QStringList TreeWindow::shownNames() const
{
    QStringList names;
    QModelIndex index = m_view->indexAt(QPoint(m_view->columnWidth(0) / 2, 1));
    while (index.isValid() && m_view->visualRect(index).top() < m_view->viewport()->height()) {
        names.append(index.data().toString());
        index = m_view->indexBelow(index);
    }
    return names;
}

OurTree::OurTree(Glass *glass, const QString &imports)
    : TreeWindow(glass)
    , m_viewer(imports)
    , m_visitor(m_viewer)
{
    m_viewer.load(imports + "/../screens/Main.qml");
    m_viewer.show();
    m_visitor.taps("tab:Tree");
    m_visitor.sees("tree");
    m_view = treeInView();
    m_origin = shownItem(m_viewer, "tree").place.topLeft().toPoint();
    m_glass->rest();
}

QWidget *OurTree::window()
{
    return &m_viewer;
}

QPoint OurTree::origin() const
{
    return m_origin;
}

PlainTree::PlainTree(Glass *glass, const QString &root, const QTreeView *looks)
    : TreeWindow(glass)
    , m_model(new ModelWithBoxes)
    , m_proxy(new QSortFilterProxyModel)
{
    m_view = &m_plainView;
    m_proxy->setSourceModel(m_model.get());
    m_proxy->setDynamicSortFilter(true);
    m_model->setRootPath(root);
    m_view->setUniformRowHeights(true);
    m_view->setModel(m_proxy.get());
    m_view->setRootIndex(m_proxy->mapFromSource(m_model->index(root)));
    m_view->setContentsMargins(looks->contentsMargins());
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setTextElideMode(looks->textElideMode());
    m_view->setIndentation(looks->indentation());
    m_view->setVerticalScrollMode(looks->verticalScrollMode());
    m_view->horizontalScrollBar()->setStyleSheet(looks->horizontalScrollBar()->styleSheet());
    m_view->verticalScrollBar()->setStyleSheet(looks->verticalScrollBar()->styleSheet());
    m_view->header()->setStyleSheet(looks->header()->styleSheet());
    m_view->setStyleSheet(looks->styleSheet());
    for (int column = 0; column < looks->model()->columnCount(); ++column) {
        m_view->setColumnHidden(column, looks->isColumnHidden(column));
        if (!looks->isColumnHidden(column))
            m_view->setColumnWidth(column, looks->columnWidth(column));
    }
    m_view->setSortingEnabled(true);
    m_view->sortByColumn(0, Qt::AscendingOrder);
    m_view->resize(looks->size());
    m_view->show();
    m_glass->rest();
}

QWidget *PlainTree::window()
{
    return m_view;
}

QPoint PlainTree::origin() const
{
    return QPoint();
}
