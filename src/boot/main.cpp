#include "boot/directory_protection.h"
#include "boot/legacy_icu_link.h"
#include "boot/localtime_link.h"
#include "dataset/select_dataset.h"
#include "fs/paths.h"

#include <stdio.h>

#include <csignal>

namespace
{

// Identifies the executable to what(1). Nothing refers to it: the attributes keep it through the
// compiler and through a linker that drops unused sections.
[[gnu::used, gnu::retain]] const char identification[] = "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";

} // namespace

// One pass over the phases of a start, each of which deals with its own failures.
int main()
{
    using namespace quorrel;

    // A warning that nobody reads and a file that may not grow are failures of write(2), not the
    // end.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);

    protect_data_directories();
    migrate_legacy_icu_link();
    // Deleted before the dataset phase, which may create it again.
    ::remove(paths::needs_cleanup);
    ::remove(paths::older_icu);
    select_dataset();
    repair_localtime_link();
    return 0;
}
