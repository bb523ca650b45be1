#include "app/reader/SystemCalls.h"

#include <sys/syscall.h>

namespace veldraw::app {

namespace {

// Each architecture lacks some of the older ones.
std::vector<int> olderCalls()
{
    return {
#ifdef __NR_stat
        __NR_stat,       __NR_lstat,
#endif
#ifdef __NR_access
        __NR_access,     __NR_readlink,
#endif
#ifdef __NR_poll
        __NR_poll,       __NR_getdents,
#endif
#ifdef __NR_arch_prctl
        __NR_arch_prctl,
#endif
#ifdef __NR_time
        __NR_time,
#endif
#ifdef __NR_rseq
        __NR_rseq,
#endif
#ifdef __NR_faccessat2
        __NR_faccessat2,
#endif
    };
}

} // namespace

std::vector<int> allowedSystemCalls()
{
    std::vector<int> calls = olderCalls();
    calls.insert(calls.end(),
                 {// files that are open, and what is known of others
                  __NR_read, __NR_pread64, __NR_readv, __NR_write, __NR_pwrite64, __NR_writev, __NR_lseek, __NR_close,
                  __NR_fstat, __NR_newfstatat, __NR_statx, __NR_faccessat, __NR_readlinkat, __NR_getdents64,
                  __NR_getcwd, __NR_dup,
                  // memory
                  __NR_brk, __NR_mmap, __NR_munmap, __NR_mremap, __NR_mprotect, __NR_madvise, __NR_ftruncate,
                  // by which the sanitizers find out whether there is memory at an address
                  __NR_pipe2,
                  // what is said to the parent
                  __NR_sendmsg, __NR_recvmsg, __NR_ppoll,
                  // the process itself
                  __NR_futex, __NR_sched_yield, __NR_sched_getaffinity, __NR_rt_sigaction, __NR_rt_sigprocmask,
                  __NR_rt_sigreturn, __NR_sigaltstack, __NR_restart_syscall, __NR_set_robust_list, __NR_set_tid_address,
                  __NR_getpid, __NR_gettid, __NR_getuid, __NR_geteuid, __NR_getgid, __NR_getegid, __NR_getrandom,
                  __NR_uname, __NR_sysinfo, __NR_clock_gettime, __NR_clock_nanosleep, __NR_nanosleep, __NR_gettimeofday,
                  __NR_getrusage, __NR_exit, __NR_exit_group});
    return calls;
}

} // namespace veldraw::app
