// The operations of a Directory.

#include "faults/operation.h"
#include "faults/simplefilesystem.h"
#include "faults/world.h"

#include "common/datafolders.h"
#include "directory/directory.h"
#include "support/account.h"
#include "support/listing.h"

#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace {
const char newName[] = "new entry";

QString inLogs(const QString &name)
{
    return DataFolders::logs() + '/' + name;
}

/** A screen that lists the logs. */
class ListOperation : public Operation
{
public:
    void prepare() override
    {
        World::build();
        m_directory.reset(new Directory);
        m_directory->reorderByName();
        m_directory->refresh();
    }

    void perform() override
    {
        try {
            act();
        } catch (const std::runtime_error &) {
            threw = true;
        }
    }

    void inspect(Complaints *complaints) const override
    {
        World::expectSources(complaints);
        World::expectNothingIncomplete(complaints, World::destination());
    }

    void check(Complaints *complaints, const std::function<bool(const char *)> &isExcused) override
    {
        inspect(complaints);
        compare(complaints, isExcused);
        expectUsable(complaints);
    }

protected:
    virtual void act() = 0;

    /** What was told and what is on the disk. */
    virtual void compare(Complaints *complaints,
                         const std::function<bool(const char *)> &isExcused) = 0;

    /** The mutex is free, the list can be made anew and tells what is on the disk. */
    virtual void expectUsable(Complaints *complaints)
    {
        directory()->refresh();
        QStringList shown = shownNames(directory());
        shown.sort();
        QStringList names =
            QDir(directory()->currentPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        names.sort();
        complaints->expect(shown == names, "the next listing shows " + shown.join(", "));
        complaints->expect(directory()->getIndex("no such name") == -1,
                           "an entry that is not there");
        complaints->expect(
            directory()->newDirectory("one more") &&
                ownerOf(QFile::encodeName(directory()->currentPath() + "/one more")) == ostanUid,
            "the next operation does not work");
    }

    Directory *directory() const
    {
        return m_directory.get();
    }

    int indexOf(const QString &name) const
    {
        return shownNames(directory()).indexOf(name);
    }

private:
    std::unique_ptr<Directory> m_directory;
};

class CopySelected : public ListOperation
{
public:
    void prepare() override
    {
        ListOperation::prepare();
        directory()->selectAll();
    }

protected:
    void act() override
    {
        m_failed = directory()->copySelectedTo(World::destination());
    }

    void compare(Complaints *complaints,
                 const std::function<bool(const char *)> &isExcused) override
    {
        const QString missing = World::missingIn(World::destination());
        complaints->expect(threw || m_failed == missing,
                           "told that \"" + m_failed + "\" failed, missing is \"" + missing + '"');
        complaints->expect(!threw || missing == World::fileNames().join(" "),
                           "something was copied in spite of an exception");
        if (!isExcused("leftovers"))
            World::expectNothingElse(complaints, World::destination());
        if (!isExcused("figures"))
            World::expectTimes(complaints, World::destination());
    }

    void expectUsable(Complaints *complaints) override
    {
        complaints->expect(directory()->copySelectedTo(World::secondDestination()).isEmpty() &&
                               World::missingIn(World::secondDestination()).isEmpty(),
                           "the next copy does not work");
        World::expectTimes(complaints, World::secondDestination());
        ListOperation::expectUsable(complaints);
    }

private:
    QString m_failed;
};

class CopySelectedSimply : public CopySelected
{
public:
    void prepare() override
    {
        CopySelected::prepare();
        makeFileSystemsSimple();
    }
};

class NewFile : public ListOperation
{
protected:
    void act() override
    {
        m_made = directory()->newFile(inLogs(newName));
    }

    void compare(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        const QFileInfo made(inLogs(newName));
        complaints->expect(m_made == made.isFile(), "the result is another than the disk's");
        complaints->expect(!m_made || (made.size() == 0 && made.ownerId() == ostanUid),
                           "the new file is not the account's or not empty");
    }

private:
    bool m_made = false;
};

/** Asks for a file that is there: a full one must not become an empty one. */
class ExistingFile : public ListOperation
{
protected:
    void act() override
    {
        directory()->newFile(inLogs(World::fileNames().at(1)));
    }

    void compare(Complaints *, const std::function<bool(const char *)> &) override
    {
    }
};

class NewDirectory : public ListOperation
{
protected:
    void act() override
    {
        m_made = directory()->newDirectory(newName);
    }

    void compare(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        const QFileInfo made(inLogs(newName));
        complaints->expect(m_made == made.isDir(), "the result is another than the disk's");
        complaints->expect(!m_made || made.ownerId() == ostanUid,
                           "the folder is not the account's");
    }

private:
    bool m_made = false;
};

/** Renames the largest file: Qt copies where renaming fails. */
class RenameFile : public ListOperation
{
public:
    void inspect(Complaints *complaints) const override
    {
        QStringList others = World::fileNames();
        others.removeAll(oldName);
        World::expectSources(complaints, others);
        QFile oldFile(inLogs(oldName));
        QFile newFile(inLogs(newName));
        const QByteArray contents = World::contentsOf(oldName);
        const bool isOld = oldFile.open(QIODevice::ReadOnly) && oldFile.readAll() == contents;
        const bool isNew = newFile.open(QIODevice::ReadOnly) && newFile.readAll() == contents;
        complaints->expect(isOld || isNew, "the file is complete under neither name");
    }

protected:
    void act() override
    {
        m_renamed = directory()->renameFile(indexOf(oldName), newName);
    }

    void compare(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        complaints->expect(m_renamed == World::isThere(inLogs(newName)) &&
                               m_renamed != World::isThere(inLogs(oldName)),
                           "the result is another than the disk's");
    }

private:
    const QString oldName = World::fileNames().at(1);
    bool m_renamed = false;
};

class DeleteFile : public ListOperation
{
public:
    void inspect(Complaints *complaints) const override
    {
        QStringList others = World::fileNames();
        others.removeAll(name);
        World::expectSources(complaints, others);
        if (World::isThere(inLogs(name)))
            World::expectSources(complaints);
    }

protected:
    void act() override
    {
        m_deleted = directory()->deleteFile(indexOf(name));
    }

    void compare(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        complaints->expect(m_deleted != World::isThere(inLogs(name)),
                           "the result is another than the disk's");
    }

private:
    const QString name = World::fileNames().at(1);
    bool m_deleted = false;
};

/** Shows a folder that is made for it. */
class SetRoot : public ListOperation
{
protected:
    void act() override
    {
        directory()->setRoot(DataFolders::graphDefinitions());
    }

    void compare(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        const QFileInfo made(DataFolders::graphDefinitions());
        complaints->expect(!threw || !made.exists(), "a folder was made in spite of an exception");
        complaints->expect(!made.exists() || (made.isDir() && made.ownerId() == ostanUid),
                           "the folder is not the account's");
    }

    void expectUsable(Complaints *complaints) override
    {
        directory()->setRoot(DataFolders::logs());
        directory()->setRoot(DataFolders::graphDefinitions());
        complaints->expect(ownerOf(QFile::encodeName(DataFolders::graphDefinitions())) == ostanUid,
                           "going there once more does not make the folder");
        ListOperation::expectUsable(complaints);
    }
};

class Listing : public ListOperation
{
public:
    void prepare() override
    {
        ListOperation::prepare();
        directory()->setCurrentPath("/home");
        directory()->setCurrentPath(DataFolders::logs());
    }

protected:
    void act() override
    {
        directory()->refresh();
    }

    void compare(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        complaints->expect(!threw, "listing threw");
        for (const QString &name : shownNames(directory()))
            complaints->expect(World::isThere(inLogs(name)), name + " is listed and is not there");
    }
};

/** Lists again what has changed meanwhile, in another order. */
class Relisting : public Listing
{
public:
    void prepare() override
    {
        Listing::prepare();
        directory()->refresh();
        const EffectiveUser account(ostanUid);
        QFile::rename(inLogs("folder"), inLogs("another folder"));
    }

protected:
    void act() override
    {
        directory()->reorderBySize();
    }
};
} // namespace

std::unique_ptr<Operation> makeListOperation(const QString &name)
{
    Operation *operation = nullptr;
    if (name == "copySelectedTo")
        operation = new CopySelected;
    else if (name == "copySelectedTo a simple file system")
        operation = new CopySelectedSimply;
    else if (name == "newFile")
        operation = new NewFile;
    else if (name == "newFile of a name in use")
        operation = new ExistingFile;
    else if (name == "newDirectory")
        operation = new NewDirectory;
    else if (name == "renameFile")
        operation = new RenameFile;
    else if (name == "deleteFile")
        operation = new DeleteFile;
    else if (name == "setRoot")
        operation = new SetRoot;
    else if (name == "listing")
        operation = new Listing;
    else if (name == "relisting")
        operation = new Relisting;
    return std::unique_ptr<Operation>(operation);
}
