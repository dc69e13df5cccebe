#ifndef ACCOUNT_H
#define ACCOUNT_H

#include <QByteArray>

#include <sys/types.h>

/** User and group id that the private instrument gives the account "ostan". */
const uid_t ostanUid = 4711;
const gid_t ostanGid = 4711;

/** A user who is neither root nor the account. */
const uid_t strangerUid = 4712;

/**
 * Puts another account database over /etc/passwd while it lives. Needs the private instrument
 * around the test.
 */
class AccountDatabase
{
public:
    /** A database with these lines, in the format of passwd(5); only root gets around @p mode. */
    explicit AccountDatabase(const QByteArray &contents, mode_t mode = 0644);
    ~AccountDatabase();

private:
    Q_DISABLE_COPY(AccountDatabase)

    QByteArray m_file;
};

/** Runs the rest of a scope under another effective user id. */
class EffectiveUser
{
public:
    explicit EffectiveUser(uid_t id);
    ~EffectiveUser();

private:
    Q_DISABLE_COPY(EffectiveUser)

    uid_t m_previous;
};

/** Owner of @p path, or (uid_t)-1 when there is nothing. */
uid_t ownerOf(const QByteArray &path);

#endif // ACCOUNT_H
