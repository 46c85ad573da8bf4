#include "dataset/select_dataset.h"

#include "dataset/cleanup_marker.h"
#include "dataset/link_resolution.h"
#include "fs/paths.h"
#include "fs/small_file.h"

#include <err.h>

#include <string>

namespace quorrel
{
namespace
{

// Returns the path of the dataset in use. If the link points to none, publishes the system
// partition and returns its empty path.
std::string current_path_or_reset()
{
    try {
        return current_dataset_path();
    } catch (...) {
        // Without a link that can be trusted, begin again.
        warn("Invalid current symlinks; resetting to system partition");
        kelvo_dataset::reset_to_system_partition();
        return {};
    }
}

void activate(const kelvo_dataset& in_use, const kelvo_dataset& latest, const kelvo_dataset& system)
{
    latest.publish_links();
    if (in_use != system)
        touch_needs_cleanup();

    // The activation stands even if its record cannot be opened or written.
    fs::write_file(paths::version_diff_record,
                   in_use.version_string() + "_" + latest.version_string());
}

void decide()
{
    const kelvo_dataset system;
    const std::string latest_path = latest_update_path();
    const kelvo_dataset current(current_path_or_reset());

    const bool keep = may_stay(current, system);
    const kelvo_dataset& in_use = keep ? current : system;
    if (!keep) {
        warn("Symlink points at data incompatible with installed system");
        kelvo_dataset::reset_to_system_partition();
        touch_needs_cleanup();
    }

    if (latest_path.empty())
        return;
    const kelvo_dataset latest(latest_path);
    if (may_replace(current, latest, system))
        activate(in_use, latest, system);
    else
        warn("New update not compatible or older version: %s vs. %s",
             latest.version_string().c_str(), current.version_string().c_str());
}

} // namespace

bool may_stay(const kelvo_dataset& current, const kelvo_dataset& system)
{
    return current.compatible(system) && !(system > current);
}

bool may_replace(const kelvo_dataset& current, const kelvo_dataset& latest,
                 const kelvo_dataset& system)
{
    return latest.compatible(system) && latest > current;
}

void select_dataset() noexcept
{
    try {
        decide();
        return;
    } catch (...) {
        // Whatever failed, the system partition is a safe answer. It is published outside of the
        // handler, where the memory of what was thrown is free again.
    }
    warn("Unable to locate data; resetting to system partition");
    try {
        kelvo_dataset::reset_to_system_partition();
    } catch (...) {
        // The last resort has failed. The boot must go on.
    }
}

} // namespace quorrel
