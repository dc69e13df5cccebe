#ifndef LISTTRIAL_H
#define LISTTRIAL_H

#include "directory/directory.h"

#include "random/disorder.h"
#include "random/plaindirectory.h"
#include "random/steps.h"
#include "support/listing.h"
#include "support/reaction.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QPointer>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

/** A Directory, what it must show, and every item that it ever had. */
class ListTrial
{
public:
    ListTrial()
    {
        begin();
    }

    ~ListTrial()
    {
        m_directory.reset();
        // The documented leak: to the last item, and no more than that.
        for (const QPointer<QObject> &item : m_items)
            delete item.data();
    }

    void act(const Step &step)
    {
        const QString name = nameOf(step.second);
        switch (step.action) {
        case 0:
        case 1:
        case 2:
            meddle(m_plain.currentPath, name, step.first);
            break;
        case 3:
        case 4:
        case 5:
            m_directory->refresh();
            m_plain.refresh();
            break;
        case 6:
        case 7:
            reorder(step.first % 4);
            break;
        case 8:
        case 9:
        case 10:
            m_directory->setIsSelectedAt(step.first % 6, step.second % 2 == 0);
            m_plain.mark(step.first % 6, step.second % 2 == 0);
            break;
        case 11:
            m_directory->selectAll();
            m_plain.markAll();
            break;
        case 12:
            m_directory->clearAll();
            m_plain.clearSelection();
            break;
        case 13:
        case 14:
            m_directory->selectFile(step.first % 6);
            m_plain.selectFile(step.first % 6);
            break;
        case 15:
            m_directory->selectPath(placeOf(step));
            m_plain.selectPath(placeOf(step));
            break;
        case 16:
            m_directory->setCurrentPath(placeOf(step));
            m_plain.setCurrentPath(placeOf(step));
            break;
        case 17:
            setRoot(step.first);
            break;
        case 18:
            expectResult(m_directory->newFile(m_plain.dir.filePath(name)),
                         !m_plain.dir.exists(name), "newFile");
            break;
        case 19:
            makeFolder(name);
            break;
        case 20:
            rename(step.first % 6, name);
            break;
        case 21:
            remove(step.first % 6);
            break;
        case 22:
            copy();
            break;
        case 23:
            hearSelection();
            break;
        case 24:
            if (step.first % 8 == 0) {
                letTimersFire();
                m_plain.timePasses();
            }
            break;
        default:
            if (step.first % 4 == 0)
                begin();
            break;
        }
        compare();
    }

    static const int actions = 26;

    std::string complaint;

private:
    // With a listing, as until then names are those of the process's working folder.
    void begin()
    {
        m_handler.reset();
        m_directory.reset(new Directory);
        m_plain = PlainDirectory();
        listen();
        m_directory->refresh();
        m_plain.refresh();
    }

    void listen()
    {
        m_pathLog.reset(new Reaction(m_directory.get(), SIGNAL(pathsChanged()), [this] {
            QDeclarativeListProperty<Path> paths = m_directory->paths();
            for (int i = 0; i < m_directory->pathsCount(); ++i)
                m_items.append(QPointer<QObject>(paths.at(&paths, i)));
        }));
        m_fileLog.reset(new Reaction(m_directory.get(), SIGNAL(filesChanged()), [this] {
            for (int i = 0; i < m_directory->filesCount(); ++i)
                m_items.append(QPointer<QObject>(shownFile(m_directory.get(), i)));
        }));
    }

    static QString placeOf(const Step &step)
    {
        const char *const places[] = {"/home/ostan/logs",          "/home/ostan/logs/sub",
                                      "/home/ostan/logs/deep/sub", "/home/ostan/configs",
                                      "/home/ostan/autoprogs",     "/nowhere"};
        return places[step.first % 6];
    }

    void expect(bool holds, const QString &what)
    {
        if (!holds && complaint.empty())
            complaint = inWords(what);
    }

    // A folder of the list may be gone: then there is nowhere to make, and nothing to remove.
    void expectResult(bool result, bool expected, const char *what)
    {
        m_plain.willRefresh = true;
        expect(result == (expected && m_plain.dir.exists()),
               what + QString(" tells something else"));
    }

    void reorder(int type)
    {
        switch (type) {
        case Directory::name:
            m_directory->reorderByName();
            break;
        case Directory::date:
            m_directory->reorderByDate();
            break;
        case Directory::size:
            m_directory->reorderBySize();
            break;
        default:
            m_directory->reorderByType();
            break;
        }
        m_plain.reorderBy(static_cast<Directory::SortType>(type));
    }

    void setRoot(int number)
    {
        switch (number % 4) {
        case 0:
            m_directory->viewScriptDirectory();
            m_plain.showScripts();
            break;
        case 1:
            m_directory->viewConfigsDirectory();
            m_plain.setRoot("/home/ostan/configs");
            break;
        default:
            m_directory->viewLogDirectory();
            m_plain.setRoot("/home/ostan/logs");
            break;
        }
    }

    void makeFolder(const QString &name)
    {
        const bool isFree = !m_plain.dir.exists(name);
        const bool made = m_directory->newDirectory(name);
        expectResult(made, isFree, "newDirectory");
        if (made) // by the account alone, and root meddles later
            chmod(QFile::encodeName(m_plain.dir.filePath(name)).constData(), 0777);
    }

    void rename(int index, const QString &name)
    {
        const QString oldName = m_plain.entry(index);
        const bool canBe = m_plain.dir.exists(oldName) && !m_plain.dir.exists(name);
        const bool renamed = m_directory->renameFile(index, name);
        if (oldName.isNull())
            expect(!renamed, "renameFile of nothing");
        else
            expectResult(renamed, canBe, "renameFile");
    }

    void remove(int index)
    {
        const QString name = m_plain.entry(index);
        const QFileInfo info(m_plain.dir.filePath(name));
        const bool isEmpty =
            !info.isDir() ||
            QDir(info.filePath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty();
        const bool isAsListed = info.exists() && info.isDir() == m_directory->isDir(index);
        const bool removed = m_directory->deleteFile(index);
        if (name.isNull())
            expect(!removed, "deleteFile of nothing");
        else
            expectResult(removed, isEmpty && isAsListed, "deleteFile");
    }

    void copy()
    {
        const QString expected = m_plain.namesThatFail(destination);
        const QString failed = m_directory->copySelectedTo(destination);
        expect(failed == expected, "told as failed: " + failed + ", and not: " + expected);
        m_plain.willClear = true;
        for (const QString &name : QDir(destination).entryList(QDir::Files)) {
            if (name.startsWith('a'))
                QFile::remove(destination + '/' + name);
        }
    }

    void hearSelection()
    {
        m_plain.listsWhenSelected = !m_plain.listsWhenSelected;
        m_handler.reset();
        if (m_plain.listsWhenSelected)
            m_handler.reset(new Reaction(m_directory.get(), SIGNAL(selectedFilesChanged()),
                                         [this] { m_directory->refresh(); }));
    }

    void compare()
    {
        QStringList shown;
        for (int i = 0; i < m_directory->filesCount(); ++i) {
            const File *file = shownFile(m_directory.get(), i);
            shown.append(
                describe(file->name(), file->sizeBytes(), file->isDir(), file->isSelected()));
        }
        QStringList expected;
        for (const PlainDirectory::Item &item : m_plain.shown)
            expected.append(describe(item.name, item.size, item.isDir, item.isMarked));
        expect(shown == expected,
               "shown: " + shown.join(", ") + ", and not: " + expected.join(", "));
        expect(m_directory->currentPath() == m_plain.currentPath,
               "at " + m_directory->currentPath());
        expect(m_directory->root() == m_plain.root, "root " + m_directory->root());
        expect(m_directory->selectedFiles() == QStringList(m_plain.selection.values()).join(" "),
               "selected: " + m_directory->selectedFiles());
        expect(m_directory->selectedFilesKB() == m_plain.kilobytes, "KB of the selection");
        expect(m_directory->pathsCount() == m_plain.breadcrumb.size(), "steps of the breadcrumb");
        expect(geteuid() == 0, "the user id");
    }

    static QString describe(const QString &name, qint64 size, bool isDir, bool isMarked)
    {
        return name + ' ' + QString::number(size) + (isDir ? " folder" : "") +
               (isMarked ? " marked" : "");
    }

    std::unique_ptr<Directory> m_directory;
    PlainDirectory m_plain;
    QList<QPointer<QObject>> m_items;
    std::unique_ptr<Reaction> m_pathLog;
    std::unique_ptr<Reaction> m_fileLog;
    std::unique_ptr<Reaction> m_handler;
};

#endif // LISTTRIAL_H
