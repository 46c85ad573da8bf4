#include "boot/repair_localtime_link.h"

#include "fs/paths.h"
#include "fs/primitives.h"

#include <err.h>
#include <stdio.h>

#include <string>
#include <string_view>

namespace quorrel
{
namespace
{

// Returns whether the link points into the published zoneinfo tree, after correcting it if
// necessary. Throws what reading or creating the link throws.
bool keep_or_correct()
{
    const std::string link = paths::localtime_link;
    const std::string target = fs::read_symlink(link);
    if (target.starts_with(paths::zoneinfo_link))
        return true;
    if (!target.starts_with(paths::legacy_zoneinfo))
        return false;

    const std::string corrected =
        paths::zoneinfo_link + target.substr(std::string_view(paths::legacy_zoneinfo).size());
    warn("Correcting localtime link to %s", corrected.c_str());
    if (!fs::exists(corrected))
        return false;
    // Both strings exist already: running out of memory after the removal would leave no link.
    ::remove(link.c_str());
    fs::create_symlink(corrected, link);
    return true;
}

void reset()
{
    warn("localtime link invalid; resetting to %s", paths::default_zone);
    const std::string link = paths::localtime_link;
    const std::string target = std::string(paths::zoneinfo_link) + "/" + paths::default_zone;
    // As above, both strings exist already.
    ::remove(link.c_str());
    fs::create_symlink(target, link);
}

} // namespace

void repair_localtime_link() noexcept
{
    try {
        if (keep_or_correct())
            return;
    } catch (...) {
        // Whatever went wrong, reset the link.
    }
    try {
        reset();
    } catch (...) {
        // The boot must go on even without a link.
    }
}

} // namespace quorrel
