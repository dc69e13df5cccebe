#include "common/privilegedropguard.h"

#include "common/datafolders.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

#include <pwd.h>
#include <unistd.h>

namespace {
// Spelled so on purpose: whoever reads the instrument's logs searches for this text.
const char failure[] = "Unable to drop priviledges: ";

uid_t accountId()
{
    const std::string account = DataFolders::account().toLatin1().constData();
    errno = 0;
    const passwd *entry = getpwnam(account.c_str());
    if (entry)
        return entry->pw_uid;
    if (errno != 0)
        throw std::runtime_error(failure + std::string(strerror(errno)));
    throw std::runtime_error(failure + ("Username '" + account + "' not found"));
}
} // namespace

PrivilegeDropGuard::PrivilegeDropGuard()
    : m_previousId(geteuid())
{
    if (seteuid(accountId()) != 0)
        throw std::runtime_error(failure + std::string(strerror(errno)));
}

PrivilegeDropGuard::~PrivilegeDropGuard()
{
    // Nothing could be done about a failure here, least of all in the middle of an exception.
    const int result = seteuid(m_previousId);
    static_cast<void>(result);
}
