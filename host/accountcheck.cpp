#include "host/accountcheck.h"

#include "common/privilegedropguard.h"

#include <stdexcept>

AccountCheck::AccountCheck(QObject *parent)
    : QObject(parent)
{
}

QString AccountCheck::refusal() const
{
    try {
        const PrivilegeDropGuard guard;
        return QString();
    } catch (const std::runtime_error &error) {
        return QString::fromLocal8Bit(error.what());
    }
}
