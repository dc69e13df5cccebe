#ifndef TRIEDTREE_H
#define TRIEDTREE_H

#include "tree/filetreevieweritem.h"

#include "random/plainchecks.h"
#include "random/plaintree.h"
#include "random/steps.h"
#include "support/reaction.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <string>

class TreeParts;

/** A tree, the plain one that says what it must tell, and at times a handler that calls back. */
class TriedTree
{
public:
    /** A tree that starts at @p top. It removes and renames what @p mayGo allows. */
    TriedTree(const QString &top, const std::function<bool(const QString &)> &mayGo);
    ~TriedTree();

    /** A new tree instead of the one there is, whatever that is doing. */
    void begin();

    /** No tree from now on. */
    void end();
    bool isAlive() const;

    void act(const Step &step);

    /** A handler from now on, or none. @p other goes when that handler is one that ends it. */
    void hear(int number, TriedTree *other);

    /** The rows have come and gone as on the disk, and all is as it must be. */
    void compare();

    /** The folder that the view shows. */
    QString viewRoot() const;

    std::string complaint;

    static const int actions = 26;

private:
    TreeParts parts() const;
    QFileSystemModel *model() const;
    QStringList loaded(const QString &folder) const;
    QStringList onDisk(const QString &folder) const;
    void letBeRead();
    void reopen(const QModelIndex &folder);
    QString rowPath(int number) const;

    void browse(const Step &step);
    void filter(const Step &step);
    void check(const QString &path, bool isChecked);
    void touch(const QString &path);
    void findAndSelect(const Step &step);
    void createFile(const QString &name);
    void createFolder(const QString &name);
    void removeSelected(bool asFolder);
    void rename(const QString &name);
    void copy();
    void compareChecks();
    void selectNothing();
    bool isInOrder() const;

    void expect(bool holds, const QString &what);
    void react(const char *signal, const std::function<void()> &action);

    const QString m_top;
    const std::function<bool(const QString &)> m_mayGo;
    QPointer<FileTreeViewerItem> m_item;
    PlainTree m_plain;
    int m_movesSeen;
    std::unique_ptr<PlainChecks> m_checks;
    bool m_isDying;
    std::unique_ptr<Reaction> m_handler;
};

#endif // TRIEDTREE_H
