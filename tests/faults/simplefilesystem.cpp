#include "faults/simplefilesystem.h"

#include <QtGlobal>

#include <cerrno>
#include <cstddef>
#include <vector>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

namespace {
struct Refusal
{
    unsigned call;
    unsigned error;
};

const Refusal refusals[] = {
    {SYS_sendfile, EINVAL},  {SYS_copy_file_range, EOPNOTSUPP},
    {SYS_renameat2, EINVAL}, {SYS_linkat, EPERM},
#ifdef SYS_link
    {SYS_link, EPERM},
#endif
};

sock_filter load(size_t offset)
{
    const sock_filter statement = BPF_STMT(BPF_LD | BPF_W | BPF_ABS, unsigned(offset));
    return statement;
}

/** Leaves @p skipped statements out unless @p comparison with @p value is true. */
sock_filter unless(unsigned short comparison, unsigned value, unsigned char skipped)
{
    const sock_filter statement =
        BPF_JUMP(static_cast<unsigned short>(BPF_JMP | comparison | BPF_K), value, 0, skipped);
    return statement;
}

sock_filter answer(unsigned what)
{
    const sock_filter statement = BPF_STMT(BPF_RET | BPF_K, what);
    return statement;
}
} // namespace

void makeFileSystemsSimple()
{
    std::vector<sock_filter> filter(1, load(offsetof(seccomp_data, nr)));
    for (const Refusal &refusal : refusals) {
        filter.push_back(unless(BPF_JEQ, refusal.call, 1));
        filter.push_back(answer(SECCOMP_RET_ERRNO | refusal.error));
    }
    const unsigned withoutName = O_TMPFILE & ~O_DIRECTORY;
    filter.push_back(unless(BPF_JEQ, SYS_openat, 3));
    filter.push_back(load(offsetof(seccomp_data, args[2])));
    filter.push_back(unless(BPF_JSET, withoutName, 1));
    filter.push_back(answer(SECCOMP_RET_ERRNO | EOPNOTSUPP));
    filter.push_back(answer(SECCOMP_RET_ALLOW));
    const sock_fprog program = {static_cast<unsigned short>(filter.size()), filter.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        qFatal("can't refuse system calls");
}
