#ifndef PRIVILEGEDROPGUARD_H
#define PRIVILEGEDROPGUARD_H

#include <QtGlobal>

#include <sys/types.h>

/**
 * Runs the rest of a scope with the effective user id of the instrument's account, so that what the
 * scope creates belongs to the account and not to the user-interface process.
 *
 * The id that was in force before is set back on every way out of the scope. Only the user id is
 * switched: what is created has the account as owner and the process's own group.
 *
 * The effective user id belongs to the whole process. Use it on the user-interface thread only;
 * other threads of the process run under the switched id meanwhile. Among them is the one that
 * reads folders for the tree: a folder that the account may not read, and that it reads just then,
 * shows as empty and isn't watched. A tree that is made later shows it. The guard takes no lock.
 */
class PrivilegeDropGuard
{
public:
    /**
     * Switches to the account. The switch is tried always, also by a process that is neither root
     * nor the account and for which it must fail.
     *
     * @throws std::runtime_error when the account is unknown or the switch is refused; the
     * effective user id is then as it was.
     */
    PrivilegeDropGuard();

    /** Sets the effective user id back to what it was. */
    ~PrivilegeDropGuard();

private:
    Q_DISABLE_COPY(PrivilegeDropGuard)

    const uid_t m_previousId;
};

#endif // PRIVILEGEDROPGUARD_H
