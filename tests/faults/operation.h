#ifndef OPERATION_H
#define OPERATION_H

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/** What must be so and is not, in words. */
class Complaints
{
public:
    /** Notes @p text unless @p holds. */
    void expect(bool holds, const QString &text);

    QStringList texts() const
    {
        return m_texts;
    }

private:
    QStringList m_texts;
};

/**
 * One operation of the product that system calls are made to fail in: what there is before it, the
 * call itself, and what must hold after it whatever failed.
 */
class Operation
{
public:
    virtual ~Operation();

    /** Builds the disk and the objects anew. What runs here is not tampered with. */
    virtual void prepare() = 0;

    /** The operation, and nothing else. */
    virtual void perform() = 0;

    /** What must hold of the disk, also when the process died in the middle. */
    virtual void inspect(Complaints *complaints) const = 0;

    /** What must hold when the operation returned or threw: result and disk agree, the objects can
     * be used. @p isExcused tells which of the consequences the trial itself has. */
    virtual void check(Complaints *complaints,
                       const std::function<bool(const char *)> &isExcused) = 0;

    /** Whether widgets take part. */
    virtual bool needsWidgets() const;

    /** Whether perform() ended with an exception. */
    bool threw = false;
};

/** The operation @p name; nothing if there is none. */
std::unique_ptr<Operation> makeOperation(const QString &name);

// Where makeOperation() finds them.
std::unique_ptr<Operation> makeListOperation(const QString &name);
std::unique_ptr<Operation> makeTreeOperation(const QString &name);
std::unique_ptr<Operation> makeStickOperation(const QString &name);

#endif // OPERATION_H
