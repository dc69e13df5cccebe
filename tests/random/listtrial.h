#ifndef LISTTRIAL_H
#define LISTTRIAL_H

#include "random/steps.h"
#include "random/trieddirectory.h"
#include "support/testdir.h"

#include <QList>
#include <QPointer>

/** Two Directory objects at once, mostly on the same folder, and a disk that others write to. */
class ListTrial
{
public:
    ListTrial();
    ~ListTrial();

    void act(const Step &step);

    static const int actions = TriedDirectory::actions + 6;

    std::string complaint;

private:
    const TestDir m_logs;
    const TestDir m_configs;
    const TestDir m_scripts;
    const TestDir m_copies;
    QList<QPointer<QObject>> m_items; // every one that either ever had
    TriedDirectory m_one;
    TriedDirectory m_two;
};

#endif // LISTTRIAL_H
