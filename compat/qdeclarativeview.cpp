#include "qdeclarativeview.h"

QDeclarativeView::QDeclarativeView(QWidget *parent)
    : QQuickWidget(parent)
{
}

QDeclarativeView::QDeclarativeView(const QUrl &source, QWidget *parent)
    : QQuickWidget(source, parent)
{
}

QWidget *QDeclarativeView::viewport()
{
    return this;
}
