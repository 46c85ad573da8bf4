#include "boot/directory_protection.h"
#include "boot/legacy_icu_link.h"
#include "boot/localtime_link.h"
#include "dataset/select_dataset.h"
#include "fs/paths.h"

#include <signal.h>
#include <stdio.h>

#include <cstdlib>

namespace
{

// Identifies the executable to what(1). Nothing refers to it: the attributes keep it through the
// compiler and through a linker that drops unused sections.
[[gnu::used, gnu::retain]] const char identification[] = "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";

// Where the runtime sees no way on (no memory even for an exception, a system call refused that it
// takes for granted), it calls abort(3). A start must not end so: these handlers take it up again
// at the dataset phase, and if it comes to that twice, at the last one. That they do far more than
// a handler for a signal from elsewhere might is meant: after an abort there is nothing to lose.

void at_abort(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_NODEFER; // abort may come again while the handler runs
    sigaction(SIGABRT, &action, nullptr);
}

[[noreturn]] void go_on_with_localtime_link(int)
{
    at_abort([](int) { std::_Exit(0); });
    quorrel::repair_localtime_link();
    std::_Exit(0);
}

[[noreturn]] void go_on_with_dataset(int signal)
{
    at_abort(go_on_with_localtime_link);
    quorrel::select_dataset();
    go_on_with_localtime_link(signal);
}

} // namespace

// One pass over the phases of a start, each of which deals with its own failures.
int main()
{
    using namespace quorrel;

    // What nobody reads, and a file that may not grow, are to be failures of write(2) and no more.
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
    at_abort(go_on_with_dataset);

    protect_data_directories();
    migrate_legacy_icu_link();
    // Deleted before the dataset phase, which may create it again.
    ::remove(paths::needs_cleanup);
    ::remove(paths::older_icu);
    select_dataset();
    repair_localtime_link();
    return 0;
}
