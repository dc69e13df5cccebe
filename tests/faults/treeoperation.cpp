// The tree's copying.

#include "faults/operation.h"
#include "faults/world.h"

#include "common/datafolders.h"
#include "support/treeparts.h"

namespace {
class CopyChecked : public Operation
{
public:
    bool needsWidgets() const override
    {
        return true;
    }

    void prepare() override
    {
        World::build();
        m_item.reset(new FileTreeViewerItem);
        m_item->setIsSelectable(true);
        m_item->setRoot(DataFolders::logs());
        if (!parts().waitFor(DataFolders::logs(), "folder " + World::fileNames().join(" ")))
            qFatal("the logs were not loaded");
        checkFiles();
    }

    void perform() override
    {
        m_failed = m_item->copyCheckedFilesTo(World::destination());
    }

    void inspect(Complaints *complaints) const override
    {
        World::expectSources(complaints);
        World::expectNothingIncomplete(complaints, World::destination());
    }

    void check(Complaints *complaints, const std::function<bool(const char *)> &isExcused) override
    {
        inspect(complaints);
        expectToldWhatIsMissing(complaints);
        if (!isExcused("leftovers"))
            World::expectNothingElse(complaints, World::destination());
        if (!isExcused("figures")) {
            World::expectTimes(complaints, World::destination());
            complaints->expect(m_item->checkedFilesKB() == 0, "the total is not that of nothing");
        }
        for (const QString &name : World::fileNames())
            complaints->expect(stateOf(name) == Qt::Unchecked, name + " is still checked");

        checkFiles();
        complaints->expect(m_item->copyCheckedFilesTo(World::secondDestination()).isEmpty() &&
                               World::missingIn(World::secondDestination()).isEmpty(),
                           "the next copy does not work");
        m_item->setRoot(World::secondDestination());
        complaints->expect(
            parts().waitFor(World::secondDestination(), World::fileNames().join(" ")),
            "another folder is not shown");
    }

private:
    TreeParts parts() const
    {
        return TreeParts(m_item.get());
    }

    void checkFiles() const
    {
        for (const QString &name : World::fileNames()) {
            QFileSystemModel *model = parts().model;
            model->setData(model->index(DataFolders::logs() + '/' + name), Qt::Checked,
                           Qt::CheckStateRole);
        }
    }

    int stateOf(const QString &name) const
    {
        const QModelIndex row = parts().row(DataFolders::logs() + '/' + name);
        return row.data(Qt::CheckStateRole).toInt();
    }

    // In any order: the entries have none while they are copied.
    void expectToldWhatIsMissing(Complaints *complaints) const
    {
        QString rest = m_failed;
        for (const QString &name : World::fileNames()) {
            const bool isMissing = !World::isThere(World::destination() + '/' + name);
            complaints->expect(
                isMissing == rest.contains(name),
                name + (isMissing ? " is missing, told is \"" : " is there, told is \"") +
                    m_failed + '"');
            rest.remove(name);
        }
        complaints->expect(rest.trimmed().isEmpty(), "a name nobody knows: \"" + m_failed + '"');
    }

    std::unique_ptr<FileTreeViewerItem> m_item;
    QString m_failed;
};
} // namespace

std::unique_ptr<Operation> makeTreeOperation(const QString &name)
{
    return std::unique_ptr<Operation>(name == "copyCheckedFilesTo" ? new CopyChecked : nullptr);
}
