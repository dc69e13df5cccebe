// Loads one module in a QML engine and makes its types, once: a process can't load anything afresh.
//
//   bench_loading <import path> <module> <type...>
//
// Prints "load <milliseconds>" for loading and registering, and "<type> <milliseconds>" per type.

#include <QApplication>
#include <QDeclarativeComponent>
#include <QDeclarativeEngine>
#include <QElapsedTimer>
#include <QStringList>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {
std::unique_ptr<QObject> made(QDeclarativeEngine *engine, const QString &qml)
{
    QDeclarativeComponent component(engine);
    component.setData(qml.toUtf8(), QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (!object) {
        fprintf(stderr, "%s\n", qPrintable(component.errorString()));
        exit(EXIT_FAILURE);
    }
    return object;
}

double timeToMake(QDeclarativeEngine *engine, const QString &qml)
{
    QElapsedTimer timer;
    timer.start();
    const std::unique_ptr<QObject> object = made(engine, qml);
    return timer.nsecsElapsed() / 1e6;
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QDeclarativeEngine engine;
    engine.addImportPath(arguments.at(1));
#if QT_VERSION >= 0x050000
    const QString base = QLatin1String("import QtQuick 2.0\n");
#else
    const QString base = QLatin1String("import QtQuick 1.0\n");
#endif
    const QString nothing = QLatin1String("QtObject { }");
    const QString import = QString::fromLatin1("import %1 1.0 as Module\n").arg(arguments.at(2));
    made(&engine, base + nothing); // the engine's own start
    printf("load %f\n", timeToMake(&engine, base + import + nothing));
    for (const QString &type : arguments.mid(3)) {
        const double time = timeToMake(&engine, base + import + QLatin1String("Module.") + type +
                                                    QLatin1String(" { }"));
        printf("%s %f\n", qPrintable(type), time);
    }
}
