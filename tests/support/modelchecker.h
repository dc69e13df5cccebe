#ifndef MODELCHECKER_H
#define MODELCHECKER_H

#include <QAbstractItemModel>

#if QT_VERSION >= 0x050B00
#include <QAbstractItemModelTester>

/** Fails the test when a model breaks the contract of item models. */
typedef QAbstractItemModelTester Checker;
#else
/** Qt 4.8 can't check models. */
struct Checker
{
    explicit Checker(QAbstractItemModel *)
    {
    }
};
#endif

#endif // MODELCHECKER_H
