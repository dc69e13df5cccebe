#ifndef TREETRIAL_H
#define TREETRIAL_H

#include "random/steps.h"
#include "random/triedtree.h"
#include "support/testdir.h"

/** One tree or two on the same folder, and a disk that others write to. */
class TreeTrial
{
public:
    TreeTrial();

    void act(const Step &step);

    static const int actions = TriedTree::actions + 5;

    std::string complaint;

private:
    bool mayGo(const QString &path) const;
    void changeDisk(const Step &step);

    const TestDir m_dir;
    const TestDir m_aside;
    const TestDir m_copies;
    TriedTree m_one;
    TriedTree m_two;
};

#endif // TREETRIAL_H
