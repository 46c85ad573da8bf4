#include "boot/legacy_icu_layout.h"
#include "boot/protect_data_directories.h"
#include "boot/repair_localtime_link.h"
#include "dataset/cleanup_marker.h"
#include "dataset/select_dataset.h"

#include <signal.h>

// Identifies the executable to what(1). Nothing refers to it: the attributes keep it through the
// compiler and through a linker that drops unused sections.
[[gnu::used, gnu::retain]] static const char identification[] =
    "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";

// One pass over the phases of a run. Each deals with its own failures.
int main()
{
    using namespace quorrel;

    // A closed pipe or a file-size limit may fail a write(2), but must not end the run.
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);

    protect_data_directories();
    migrate_legacy_icu_link();
    delete_cleanup_marker();
    delete_legacy_icu_data();
    select_dataset();
    repair_localtime_link();
    return 0;
}
