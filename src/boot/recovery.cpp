#include "boot/recovery.h"

#include <setjmp.h>
#include <signal.h>

#include <cstdlib>
#include <exception>

namespace quorrel
{
namespace
{

// Where to go on when the running step aborts; null between steps.
sigjmp_buf* volatile way_out = nullptr;

// Skips the step's destructors, so what it holds leaks. That is more than a signal handler may do,
// but the process was about to die anyway.
[[noreturn]] void leave_step(int /*signal*/)
{
    if (way_out == nullptr)
        std::_Exit(0);
    siglongjmp(*way_out, 1);
}

} // namespace

void survive_signals() noexcept
{
    struct sigaction action = {};
    action.sa_handler = leave_step;
    action.sa_flags = SA_NODEFER; // leave_step does not return, and a later step may abort too
    sigaction(SIGABRT, &action, nullptr);
    sigset_t abort_only;
    sigemptyset(&abort_only);
    sigaddset(&abort_only, SIGABRT);
    sigprocmask(SIG_UNBLOCK, &abort_only, nullptr);
    std::set_terminate(std::abort);

    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
}

bool attempt(void (*step)() noexcept) noexcept
{
    sigjmp_buf before_step;
    if (sigsetjmp(before_step, 0) != 0) {
        way_out = nullptr;
        return false;
    }
    way_out = &before_step;
    step();
    way_out = nullptr;
    return true;
}

} // namespace quorrel
