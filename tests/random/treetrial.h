#ifndef TREETRIAL_H
#define TREETRIAL_H

#include "tree/filesystemmodel.h"
#include "tree/filetreevieweritem.h"

#include "random/disorder.h"
#include "random/steps.h"
#include "support/loading.h"
#include "support/reaction.h"
#include "support/testdir.h"
#include "support/treeparts.h"
#include "support/waiting.h"

#include <QPointer>

#include <memory>

/** A tree, and the checked entries as a list of persistent indexes. */
class TreeTrial
{
public:
    TreeTrial()
        : m_dir("/home/ostan/random")
    {
        for (const char *folder : {"sub", "deep", "sub/deep"})
            m_dir.folder(folder);
        for (const char *name : {"a.csv", "B.csv", "sub/run 1.py", "sub/deep/z", "deep/b.csv"})
            m_dir.file(name, qint64(100 + name[0]));
        show();
    }

    void act(const Step &step)
    {
        switch (step.action) {
        case 0:
        case 1:
        case 2:
        case 3:
            check(row(step.first), step.second % 2 ? Qt::Checked : Qt::Unchecked);
            break;
        case 4:
        case 5:
            break; // looking is what follows every step
        case 6:
            m_item->setDirsFirst(step.first % 2);
            break;
        case 7:
            parts().view->sortByColumn(step.first % 4,
                                       step.second % 2 ? Qt::AscendingOrder : Qt::DescendingOrder);
            break;
        case 8:
            m_item->selectAll();
            selectAll();
            break;
        case 9:
            copy(step.first % 2);
            break;
        case 10:
            m_item->setIsSelectable(step.first % 4 != 0);
            break;
        case 11:
            touch(step);
            break;
        case 12:
            if (step.first % 6 == 0)
                changeDisk(step);
            break;
        case 13:
            if (step.first % 6 == 0)
                filter(step.second);
            break;
        default:
            if (step.first % 12 == 0) {
                m_checked.clear();
                m_bytes = 0;
                m_word.clear();
                show();
            }
            break;
        }
        compare();
    }

    static const int actions = 15;

    std::string complaint;

private:
    TreeParts parts() const
    {
        return TreeParts(m_item.get());
    }

    FileSystemModel *model() const
    {
        return static_cast<FileSystemModel *>(parts().model);
    }

    void show()
    {
        m_item.reset(new FileTreeViewerItem);
        m_item->setIsSelectable(true);
        m_item->setRoot(m_dir.path()); // loads all below, as it is in the account's home
        waitForRows();
    }

    /** Until the model has read what is on the disk. */
    void waitForRows()
    {
        const bool hasCome =
            waitUntil([this] { return loaded(m_dir.path()) == onDisk(m_dir.path()); });
        if (!hasCome && complaint.empty())
            complaint = inWords("the tree has " + loaded(m_dir.path()).join(", "));
    }

    QStringList loaded(const QString &folder) const
    {
        QStringList names;
        const QModelIndex index = model()->index(folder);
        for (int i = 0; i < model()->rowCount(index); ++i) {
            const QString path = model()->filePath(model()->index(i, 0, index));
            names.append(path);
            names += loaded(path);
        }
        names.sort();
        return names;
    }

    QStringList onDisk(const QString &folder) const
    {
        QStringList names;
        for (const QFileInfo &info :
             QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            if (info.isFile() && !m_word.isEmpty() &&
                !info.fileName().contains(m_word, Qt::CaseInsensitive))
                continue;
            names.append(info.filePath());
            if (info.isDir())
                names += onDisk(info.filePath());
        }
        names.sort();
        return names;
    }

    QModelIndex row(int number) const
    {
        const QStringList paths = loaded(m_dir.path());
        return paths.isEmpty() ? QModelIndex() : model()->index(paths.at(number % paths.size()));
    }

    bool isChecked(const QModelIndex &index) const
    {
        return m_checked.contains(QPersistentModelIndex(index));
    }

    void check(const QModelIndex &index, Qt::CheckState state)
    {
        if (!index.isValid())
            return;
        mirror(index, state);
        model()->setData(index, state, Qt::CheckStateRole);
    }

    /** What checking must do, as the rule for it says. */
    void mirror(const QModelIndex &index, Qt::CheckState state)
    {
        const qint64 size = QFileInfo(model()->filePath(index)).size();
        const bool wasChecked = isChecked(index);
        if (state == Qt::Checked) {
            m_bytes += size >= 1 && !wasChecked ? size : 0;
            if (!wasChecked)
                m_checked.append(index);
        } else {
            m_bytes -= size >= 1 && wasChecked ? size : 0;
            m_checked.removeAll(index);
        }
        for (int i = 0; i < model()->rowCount(index); ++i)
            mirror(model()->index(i, 0, index), state);
    }

    void selectAll()
    {
        const QModelIndex root = model()->index(m_dir.path());
        for (int i = 0; i < model()->rowCount(root); ++i)
            mirror(model()->index(i, 0, root), Qt::Checked);
    }

    void copy(bool unchecks)
    {
        QStringList names;
        for (const QPersistentModelIndex &index : m_checked)
            names.append(index.data().toString());
        names.sort();
        QStringList failed;
        const QString told = unchecks ? m_item->copyCheckedFilesTo("/nowhere")
                                      : model()->copyCheckedFilesTo("/nowhere");
        if (unchecks)
            mirror(model()->index(0, 0), Qt::Unchecked);
        QString expected = names.join(" ");
        // Names have blanks in them, and their order is nobody's business.
        QString sorted = told;
        std::sort(sorted.begin(), sorted.end());
        std::sort(expected.begin(), expected.end());
        if (sorted != expected && complaint.empty())
            complaint = inWords("copied: " + told + ", and not: " + names.join(" "));
    }

    void touch(const Step &step)
    {
        const QModelIndex index = row(step.first);
        if (!index.isValid())
            return;
        const QModelIndex inView = parts().proxyModel->mapFromSource(index);
        parts().view->setCurrentIndex(inView);
        const QString path = model()->filePath(index);
        const bool isDir = QFileInfo(path).isDir();
        m_item->updateSelection(inView);
        const QString folder = isDir ? path : QFileInfo(path).path();
        if ((m_item->absoluteFilePath() != path || m_item->currentFilepath() != folder ||
             m_item->currentFilename() != (isDir ? QString() : QFileInfo(path).fileName())) &&
            complaint.empty())
            complaint = inWords("touched: " + path + ", told is " + m_item->absoluteFilePath());
    }

    void changeDisk(const Step &step)
    {
        const char *const folders[] = {"", "/sub", "/deep", "/sub/deep"};
        const QString folder = m_dir.path() + folders[step.first / 6 % 4];
        if (!QDir(folder).exists())
            return;
        meddle(folder, nameOf(step.second), step.first);
        waitForRows();
    }

    void filter(int number)
    {
        m_word = number % 3 ? QString(number % 3 == 1 ? "b" : "run") : QString();
        m_item->setNameFilters(m_word);
        m_item->setNameFilterOn(!m_word.isEmpty());
        waitForRows();
    }

    void compare()
    {
        for (const QString &path : loaded(m_dir.path())) {
            const QModelIndex index = model()->index(path);
            const bool isShown = m_item->isSelectable();
            bool expected = isChecked(index);
            for (QModelIndex above = index.parent(); isShown && !expected && above.isValid();
                 above = above.parent()) {
                if (isChecked(above)) {
                    expected = true;
                    m_checked.append(index); // looking checks what is below a checked folder
                }
            }
            const QVariant state = index.data(Qt::CheckStateRole);
            const bool holds = isShown ? state.toInt() == (expected ? Qt::Checked : Qt::Unchecked)
                                       : !state.isValid() || state.toInt() == Qt::Unchecked;
            if (!holds && complaint.empty())
                complaint =
                    inWords(path + (expected ? " must be checked" : " must not be checked"));
        }
        if (m_item->checkedFilesKB() != m_bytes && complaint.empty())
            complaint = inWords(
                QString("the total is %1 and not %2").arg(m_item->checkedFilesKB()).arg(m_bytes));
    }

    const TestDir m_dir;
    std::unique_ptr<FileTreeViewerItem> m_item;
    QList<QPersistentModelIndex> m_checked;
    quint64 m_bytes = 0;
    QString m_word;
};

#endif // TREETRIAL_H
