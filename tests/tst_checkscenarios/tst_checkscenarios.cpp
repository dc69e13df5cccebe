// The rules of checking, played from checking.txt, where they can be read and added to.

#include "tree/filesystemmodel.h"

#include "support/loading.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace {
/** One scenario on a folder and a model of its own. */
class Stage
{
public:
    Stage()
    {
        m_model.setIsSelectable(true);
    }

    /** Plays one line. @return what is wrong, empty when all is as the line says */
    QString play(const QString &line)
    {
        const QString verb = line.section(' ', 0, 0);
        const QString name = line.section(' ', 1, 1);
        const qint64 bytes = line.section(' ', 2, 2).toLongLong();
        const bool all = name == "all";
        if (verb == "file" || verb == "grows")
            m_dir.file(name, bytes);
        else if (verb == "folder")
            m_dir.folder(name);
        else if (verb == "open")
            return load(m_model, path(name)) ? QString() : "not loaded";
        else if (verb == "check" && all)
            m_model.selectAll();
        else if (verb == "uncheck" && all)
            m_model.clearAll();
        else if (verb == "check" || verb == "uncheck")
            m_model.setData(row(name), verb == "check" ? Qt::Checked : Qt::Unchecked,
                            Qt::CheckStateRole);
        else if (verb == "boxes")
            m_model.setIsSelectable(name == "on");
        else if (verb == "appears")
            return appear(name, bytes);
        else if (verb == "vanishes")
            return vanish(name);
        else if (verb == "total")
            return total(line.section(' ', 1));
        else
            return state(verb, name);
        return QString();
    }

private:
    QString path(const QString &name) const
    {
        return name == "." ? m_dir.path() : m_dir.path(name);
    }

    /** Row of the entry @p name; invalid while it is not loaded. Asks the model for nothing that
     * would load it. */
    QModelIndex row(const QString &name) const
    {
        QModelIndex index = m_model.index(m_dir.path());
        for (const QString &part : name.split('/')) {
            const QModelIndexList found = m_model.match(m_model.index(0, 0, index), Qt::DisplayRole,
                                                        part, 1, Qt::MatchExactly);
            if (m_model.rowCount(index) == 0 || found.isEmpty())
                return QModelIndex();
            index = found.first();
        }
        return index;
    }

    QString appear(const QString &name, qint64 bytes)
    {
        m_dir.file(name, bytes);
        return waitUntil([&] { return row(name).isValid(); }) ? QString() : "did not appear";
    }

    QString vanish(const QString &name)
    {
        QFile::remove(path(name));
        return waitUntil([&] { return !row(name).isValid(); }) ? QString() : "did not vanish";
    }

    QString state(const QString &expected, const QString &name) const
    {
        if (!row(name).isValid())
            return expected == "?" ? QString() : "not loaded";
        const QVariant value = m_model.data(row(name), Qt::CheckStateRole);
        QString actual = "-";
        if (value.isValid())
            actual = value.toInt() == Qt::Checked ? "x" : "o";
        return actual == expected ? QString() : "shows " + actual;
    }

    QString total(const QString &sum)
    {
        quint64 expected = 0;
        bool adds = true;
        for (const QString &term : sum.split(' ')) {
            if (term == "+" || term == "-") {
                adds = term == "+";
                continue;
            }
            bool isNumber = false;
            quint64 bytes = term.toULongLong(&isNumber);
            if (!isNumber)
                bytes = QFileInfo(path(term)).size();
            expected += adds ? bytes : 0 - bytes;
        }
        const quint64 actual = m_model.checkedFilesKB();
        return actual == expected ? QString()
                                  : QString("is %1 instead of %2").arg(actual).arg(expected);
    }

    const TestDir m_dir;
    FileSystemModel m_model;
};
} // namespace

class tst_CheckScenarios : public QObject
{
    Q_OBJECT

private slots:
    void scenario_data();
    void scenario();
};

void tst_CheckScenarios::scenario_data()
{
    QTest::addColumn<QStringList>("lines");
    QFile file(CHECKING_TXT);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QString title;
    QStringList lines;
    QStringList text = QString::fromUtf8(file.readAll()).split('\n');
    text.append("= ");
    for (const QString &line : text) {
        if (line.startsWith("= ")) {
            if (!title.isEmpty())
                QTest::newRow(title.toUtf8()) << lines;
            title = line.mid(2);
            lines.clear();
        } else if (!line.isEmpty() && !line.startsWith('#')) {
            lines.append(line);
        }
    }
}

void tst_CheckScenarios::scenario()
{
    QFETCH(QStringList, lines);
    QVERIFY(!lines.isEmpty());
    Stage stage;
    for (int i = 0; i < lines.count(); ++i) {
        const QString wrong = stage.play(lines.at(i));
        const QString report = QString("step %1, \"%2\": %3").arg(i + 1).arg(lines.at(i), wrong);
        QVERIFY2(wrong.isEmpty(), report.toUtf8());
    }
}

QTEST_MAIN(tst_CheckScenarios)
#include "tst_checkscenarios.moc"
