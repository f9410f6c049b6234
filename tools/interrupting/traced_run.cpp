// SPDX-License-Identifier: MIT
#include "tools/interrupting/traced_run.h"

#include <algorithm>
#include <csignal>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessit::interrupting {

namespace {

#ifdef __x86_64__

constexpr bool on_this_processor = true;

// Begins no call; false for one that never fails or only for want of memory.
bool forestall_call(pid_t child) {
    user_regs_struct registers = {};
    ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    const auto unfailing = {SYS_brk,   SYS_mmap,  SYS_munmap,         SYS_mprotect, SYS_exit_group,
                            SYS_umask, SYS_futex, SYS_rt_sigprocmask, SYS_getpid,   SYS_gettid};
    if (std::find(unfailing.begin(), unfailing.end(), static_cast<long>(registers.orig_rax)) != unfailing.end()) {
        return false;
    }
    registers.orig_rax = static_cast<unsigned long long>(-1);
    ptrace(PTRACE_SETREGS, child, nullptr, &registers);
    return true;
}

void answer_call(pid_t child, int error) {
    user_regs_struct registers = {};
    ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    registers.rax = static_cast<unsigned long long>(-error);
    ptrace(PTRACE_SETREGS, child, nullptr, &registers);
}

#else

constexpr bool on_this_processor = false;
bool forestall_call(pid_t) {
    return false;
}
void answer_call(pid_t, int) {}

#endif

constexpr int cannot_be_traced = 100;

pid_t begin(const std::function<bool()>& step) {
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            _exit(cannot_be_traced);
        }
        raise(SIGSTOP);
        _exit(step() ? 0 : 1);
    }
    return child;
}

// To the next stop. False when the process has ended.
bool go_on(pid_t child, int& status) {
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    waitpid(child, &status, 0);
    return WIFSTOPPED(status);
}

Ending ending_of(int status) {
    if (!WIFEXITED(status) || WEXITSTATUS(status) > 1) {
        return Ending::crashed;
    }
    return WEXITSTATUS(status) == 0 ? Ending::done : Ending::told;
}

Ending kill_now(pid_t child) {
    int status = 0;
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return Ending::killed;
}

} // namespace

bool calls_can_fail() {
    return on_this_processor;
}

std::optional<Ending> run(const std::function<bool()>& step, Interruption interruption) {
    const pid_t child = begin(step);
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFSTOPPED(status)) {
        return std::nullopt;
    }
    Ending missed = Ending::not_reached;
    bool failed = false;
    for (int stop = 1; go_on(child, status); ++stop) {
        if (stop == interruption.stop && interruption.error == 0) {
            return kill_now(child);
        }
        if (stop == interruption.stop) {
            missed = Ending::spared;
            failed = forestall_call(child);
        } else if (stop == interruption.stop + 1 && failed) {
            answer_call(child, interruption.error);
        }
    }
    return failed || interruption.stop == 0 ? ending_of(status) : missed;
}

} // namespace tessit::interrupting
