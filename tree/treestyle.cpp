#include "tree/treestyle.h"

// The rules are those that the instrument has always shown. Deliberately kept with them: the single
// colon of "QScrollBar:left-arrow:horizontal" and the lengths without a unit.

QString TreeStyle::horizontalScrollBar()
{
    return QLatin1String(
        "QScrollBar:horizontal { border: 2px solid #CCCCCC; background: #FFFFFF; height: 40px;"
        " margin: 0px 45px 0px 45px; }"
        "QScrollBar::handle:horizontal { background: #c5e4f5; min-width: 45px; }"
        "QScrollBar::add-line:horizontal { border: 1px solid #CCCCCC; background: #F7F7F7;"
        " width: 45px; subcontrol-position: right; subcontrol-origin: margin; }"
        "QScrollBar::add-line:horizontal:pressed, QScrollBar::sub-line:horizontal:pressed"
        " { background: #D4DFEC; }"
        "QScrollBar::sub-line:horizontal { border: 1px solid #CCCCCC; background: #F7F7F7;"
        " width: 45px; subcontrol-position: left; subcontrol-origin: margin; }"
        "QScrollBar:left-arrow:horizontal, QScrollBar::right-arrow:horizontal"
        " { border: 2px solid #CCCCCC; width: 6px; height: 6px; background: white; }");
}

QString TreeStyle::verticalScrollBar()
{
    return QLatin1String(
        "QScrollBar:vertical { border: 2px solid #CCCCCC; background: #FFFFFF; width: 40px;"
        " margin: 45px 0px 45px 0px; }"
        "QScrollBar::handle:vertical { background: #c5e4f5; min-height: 45px; }"
        "QScrollBar::add-line:vertical { border: 1px solid #CCCCCC; background: #F7F7F7;"
        " height: 45px; subcontrol-position: bottom; subcontrol-origin: margin; }"
        "QScrollBar::add-line:vertical:pressed, QScrollBar::sub-line:vertical:pressed"
        " { background: #D4DFEC; }"
        "QScrollBar::sub-line:vertical { border: 1px solid #CCCCCC; background: #F7F7F7;"
        " height: 45px; subcontrol-position: top; subcontrol-origin: margin; }"
        "QScrollBar::up-arrow:vertical, QScrollBar::down-arrow:vertical"
        " { border: 2px solid #CCCCCC; width: 6px; height: 6px; background: white; }");
}

QString TreeStyle::header()
{
    return QLatin1String(
        "QHeaderView::section { height: 38; color: white; background-color: #0076BC;"
        " font: bold 16px; border: 1px solid #FFFFFF; padding-left: 3px; padding-top: 6px }"
        "QHeaderView::up-arrow { image: url(:/images/white-triangle-up.png) }"
        "QHeaderView::down-arrow { image: url(:/images/white-triangle-down.png) }");
}

QString TreeStyle::tree()
{
    return QLatin1String(
        "* { background-color: white; }"
        "* { border: 1px solid #9db7d3; }"
        "QTreeView::branch { background: #FFFFFF; }"
        "QTreeView::branch:closed { background-color: #FFFFFF; }"
        "QTreeView::branch:has-siblings:!adjoins-item"
        " { border-image: url(:/images/vline.png) 1; }"
        "QTreeView::branch:has-children:!has-siblings:closed,"
        " QTreeView::branch:closed:has-children:has-siblings"
        " { border-image: none; image: url(:/images/branch-closed.png); }"
        "QTreeView::branch:open:has-children:!has-siblings,"
        " QTreeView::branch:open:has-children:has-siblings"
        " { border-image: none; image: url(:/images/branch-open.png); }"
        "QTreeView::item { padding-left: 3; height: 45px }"
        "QTreeView::item:selected:active { background-color: #00A7E0 }"
        "QTreeView::item:selected:!active { background-color: #00A7E0 }"
        "QTreeView::icon { width: 35px; height: 24px; }"
        "QTreeView::indicator { width: 32px; height: 32px }"
        "QTreeView::indicator:checked { image: url(:/images/checkbox_full.png) }"
        "QTreeView::indicator:unchecked { image: url(:/images/checkbox_empty.png) }");
}
