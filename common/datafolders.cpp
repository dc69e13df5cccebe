#include "common/datafolders.h"

#include <QDir>
#include <QStringList>

namespace {
QString dataFolder(const QStringList &parts)
{
    const QStringList home = QStringList() << QLatin1String("/home") << DataFolders::account();
    return (home + parts).join(QString(QDir::separator()));
}
} // namespace

QString DataFolders::account()
{
    return QLatin1String("ostan");
}

QString DataFolders::logs()
{
    return dataFolder(QStringList(QLatin1String("logs")));
}

QString DataFolders::graphDefinitions()
{
    return dataFolder(QStringList(QLatin1String("graph_definitions")));
}

QString DataFolders::configurations()
{
    return dataFolder(QStringList(QLatin1String("configs")));
}

QString DataFolders::soilFlux()
{
    return dataFolder(QStringList() << QLatin1String("logs") << QLatin1String("soil"));
}

QString DataFolders::scripts()
{
    return dataFolder(QStringList(QLatin1String("autoprogs")));
}
