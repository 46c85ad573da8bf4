#include "boot/legacy_icu_link.h"

#include "fs/paths.h"
#include "fs/primitives.h"

#include <err.h>

namespace quorrel
{

// The tests stand inside the handlers with what they guard: the path that they are given is a copy,
// for which memory may be wanting.
void migrate_legacy_icu_link() noexcept
{
    try {
        if (fs::exists(paths::older_icu_link) && !fs::exists(paths::icu_link))
            fs::create_symlink(fs::read_symlink(paths::older_icu_link), paths::icu_link);
    } catch (...) {
        // The older link goes all the same; the next update to be activated brings a new one.
        warn("Could not migrate /var/db/icutz to /var/db/timezone/icutz");
    }
    try {
        if (fs::exists(paths::older_icu_link))
            fs::remove(paths::older_icu_link);
    } catch (...) {
        // It is tried again at the next start.
        warn("Could not remove /var/db/icutz");
    }
}

} // namespace quorrel
