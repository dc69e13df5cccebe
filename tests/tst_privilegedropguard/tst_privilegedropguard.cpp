#include "common/privilegedropguard.h"

#include "support/account.h"

#include <QTest>

#include <stdexcept>

#include <unistd.h>

namespace {
QByteArray failureText()
{
    try {
        PrivilegeDropGuard guard;
    } catch (const std::runtime_error &error) {
        return error.what();
    }
    return "no failure";
}
} // namespace

class tst_PrivilegeDropGuard : public QObject
{
    Q_OBJECT

private slots:
    void anUnknownAccountIsNamed();
};

void tst_PrivilegeDropGuard::anUnknownAccountIsNamed()
{
    const AccountDatabase withoutTheAccount("root:x:0:0:root:/root:/bin/sh\n");
    QCOMPARE(failureText(), QByteArray("Unable to drop priviledges: Username 'ostan' not found"));
}

QTEST_MAIN(tst_PrivilegeDropGuard)
#include "tst_privilegedropguard.moc"
