#ifndef COMPAT_QDECLARATIVEVIEW_H
#define COMPAT_QDECLARATIVEVIEW_H

#include <QDeclarativeContext>
#include <QDeclarativeEngine>
#include <QDeclarativeError>

#include <QQuickWidget>

/** Qt Declarative's view on Qt 5 and Qt 6: the widget that shows a QML file. */
class QDeclarativeView : public QQuickWidget
{
    Q_OBJECT

public:
    /** A view without a source. */
    explicit QDeclarativeView(QWidget *parent = nullptr);

    /** A view of the QML file @p source. */
    explicit QDeclarativeView(const QUrl &source, QWidget *parent = nullptr);

    /** The widget that draws the scene and takes its events: the view itself. */
    QWidget *viewport();

private:
    Q_DISABLE_COPY(QDeclarativeView)
};

#endif // COMPAT_QDECLARATIVEVIEW_H
