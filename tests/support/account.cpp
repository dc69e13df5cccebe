#include "support/account.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
const char passwd[] = "/etc/passwd";

void check(bool done, const char *what)
{
    if (done)
        return;
    fprintf(stderr, "account: can't %s: %s\n", what, strerror(errno));
    abort();
}
} // namespace

AccountDatabase::AccountDatabase(const QByteArray &contents, mode_t mode)
    : m_file(QFile::encodeName(QDir::tempPath() + QLatin1String("/accounts-XXXXXX")))
{
    const int fd = mkstemp(m_file.data());
    check(fd != -1 && write(fd, contents.constData(), contents.size()) == contents.size(),
          "write an account database");
    fchmod(fd, mode);
    close(fd);
    check(mount(m_file.constData(), passwd, "none", MS_BIND, nullptr) == 0,
          "put an account database in place");
}

AccountDatabase::~AccountDatabase()
{
    umount2(passwd, MNT_DETACH);
    unlink(m_file.constData());
}

EffectiveUser::EffectiveUser(uid_t id)
    : m_previous(geteuid())
{
    check(seteuid(id) == 0, "switch the effective user");
}

EffectiveUser::~EffectiveUser()
{
    check(seteuid(m_previous) == 0, "switch the effective user back");
}

uid_t ownerOf(const QByteArray &path)
{
    struct stat info;
    return lstat(path.constData(), &info) == 0 ? info.st_uid : static_cast<uid_t>(-1);
}
