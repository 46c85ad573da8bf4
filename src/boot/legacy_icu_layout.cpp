#include "boot/legacy_icu_layout.h"

#include "fs/paths.h"
#include "fs/primitives.h"

#include <err.h>
#include <stdio.h>

namespace quorrel
{

// The checks are inside the try blocks because making a std::string of the path may throw.
void migrate_legacy_icu_link() noexcept
{
    try {
        if (fs::exists(paths::legacy_icu_link) && !fs::exists(paths::icu_link))
            fs::create_symlink(fs::read_symlink(paths::legacy_icu_link), paths::icu_link);
    } catch (...) {
        // The legacy link is removed regardless, so there may be no ICU link until an update is
        // published.
        warn("Could not migrate %s to %s", paths::legacy_icu_link, paths::icu_link);
    }
    try {
        if (fs::exists(paths::legacy_icu_link))
            fs::remove(paths::legacy_icu_link);
    } catch (...) {
        // The next run tries again.
        warn("Could not remove %s", paths::legacy_icu_link);
    }
}

void delete_legacy_icu_data() noexcept
{
    ::remove(paths::legacy_icu_data);
}

} // namespace quorrel
