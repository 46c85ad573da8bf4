#include "boot/directory_protection.h"
#include "boot/legacy_icu_link.h"
#include "boot/localtime_link.h"
#include "dataset/select_dataset.h"
#include "fs/paths.h"

#include <stdio.h>

#include <csignal>
#include <cstdlib>

namespace
{

// Identifies the executable to what(1). Nothing refers to it: the attributes keep it through the
// compiler and through a linker that drops unused sections.
[[gnu::used, gnu::retain]] const char identification[] = "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";

// Where the runtime sees no way on (no memory even for an exception, a system call refused that it
// takes for granted), it aborts. A start must not end so: these handlers take it up again at the
// dataset phase, and if it comes to that twice, at the last one. Nothing about them is
// asynchronous; abort(3) calls them.

[[noreturn]] void go_on_with_localtime_link(int)
{
    std::signal(SIGABRT, [](int) { std::_Exit(0); });
    quorrel::repair_localtime_link();
    std::_Exit(0);
}

[[noreturn]] void go_on_with_dataset(int)
{
    std::signal(SIGABRT, go_on_with_localtime_link);
    quorrel::select_dataset();
    go_on_with_localtime_link(SIGABRT);
}

} // namespace

// One pass over the phases of a start, each of which deals with its own failures.
int main()
{
    using namespace quorrel;

    // What nobody reads, and a file that may not grow, are to be failures of write(2) and no more.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGABRT, go_on_with_dataset);

    protect_data_directories();
    migrate_legacy_icu_link();
    // Deleted before the dataset phase, which may create it again.
    ::remove(paths::needs_cleanup);
    ::remove(paths::older_icu);
    select_dataset();
    repair_localtime_link();
    return 0;
}
