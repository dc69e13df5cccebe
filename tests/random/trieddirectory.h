#ifndef TRIEDDIRECTORY_H
#define TRIEDDIRECTORY_H

#include "directory/directory.h"

#include "random/plaindirectory.h"
#include "random/steps.h"
#include "support/reaction.h"

#include <QList>
#include <QPointer>

#include <memory>

/**
 * A Directory, the plain one that says what it must show, and at times a handler that calls back.
 *
 * While filesChanged() is emitted the object is locked: there a handler calls only what takes no
 * lock, as the object's documentation asks for. Every handler may delete the object later.
 */
class TriedDirectory
{
public:
    /** Adds to @p items whatever the object ever lists. */
    explicit TriedDirectory(QList<QPointer<QObject>> *items);
    ~TriedDirectory();

    /** A new object instead of the one there is, whatever that has put off. */
    void begin();

    /** No object from now on. */
    void end();

    void act(const Step &step);

    /** A handler from now on, or none. @p other goes when that handler is one that ends it. */
    void hear(int number, TriedDirectory *other);

    /** Timers have fired. */
    void timeHasPassed();

    void compare();

    QString currentPath() const;

    std::string complaint;

    static const int actions = 20;

private:
    void noteItems();
    void expect(bool holds, const QString &what);
    void expectResult(bool result, bool expected, const char *what);
    void reorder(int type);
    void setRoot(int number);
    void makeFile(const QString &name);
    void makeFolder(const QString &name);
    void rename(int index, const QString &name);
    void remove(int index);
    void copy();
    void react(const char *signal, const std::function<void()> &action);

    QList<QPointer<QObject>> *const m_items;
    QPointer<Directory> m_directory;
    PlainDirectory m_plain;
    bool m_isDying;
    std::unique_ptr<Reaction> m_pathLog;
    std::unique_ptr<Reaction> m_fileLog;
    std::unique_ptr<Reaction> m_handler;
};

#endif // TRIEDDIRECTORY_H
