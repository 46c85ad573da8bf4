#include "boot/directory_protection.h"
#include "boot/legacy_icu_link.h"
#include "boot/localtime_link.h"
#include "boot/recovery.h"
#include "dataset/select_dataset.h"
#include "fs/paths.h"

#include <stdio.h>

// Identifies the executable to what(1). Nothing refers to it: the attributes keep it through the
// compiler and through a linker that drops unused sections.
[[gnu::used, gnu::retain]] static const char identification[] =
    "@(#)PROGRAM:quorrel  PROJECT:Kelvo-66\n";

// One pass over the steps of a start. Each deals with its own failures, and an abort fails only the
// step that it happens in.
int main()
{
    using namespace quorrel;

    attempt(survive_signals);
    attempt(protect_data_directories);
    attempt(migrate_legacy_icu_link);
    // Deleted before the dataset phase, which may create it again.
    attempt([]() noexcept { ::remove(paths::needs_cleanup); });
    attempt([]() noexcept { ::remove(paths::older_icu); });
    if (!attempt(select_dataset))
        attempt(fall_back_to_system_partition);
    // Last, because it looks through the published zoneinfo link. It changes nothing that is in
    // order, so it can be repeated.
    if (!attempt(repair_localtime_link))
        attempt(repair_localtime_link);
    return 0;
}
