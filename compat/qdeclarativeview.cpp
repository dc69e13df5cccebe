#include "qdeclarativeview.h"

QDeclarativeView::QDeclarativeView(QWidget *parent)
    : QQuickWidget(parent)
{
    // As touches, of which Qt Quick follows one finger, and not as a mouse for each.
    setAttribute(Qt::WA_AcceptTouchEvents);
}

QDeclarativeView::QDeclarativeView(const QUrl &source, QWidget *parent)
    : QDeclarativeView(parent)
{
    setSource(source);
}

QWidget *QDeclarativeView::viewport()
{
    return this;
}
