#pragma once

#include "status/dataset.h"
#include "status/local_zone.h"
#include "status/route.h"

#include <optional>
#include <string>
#include <vector>

namespace quorrel::status
{

// What a run makes of the latest update, to be read after its name. Both are empty if a run
// activates it or has activated it.
struct verdict {
    std::string refusal;     // why a run refuses it, which loses nothing
    std::string fault;       // why it harms, or is never used
    bool is_curable = false; // by another target
};

// Everything that quorrel-status looks at, read once, and what follows from it.
struct state {
    place zoneinfo, icutz, localtime, tz_latest;
    bool can_write = false;           // a run can, in the data directory
    bool publishes_usr_share = false; // /usr/share/zoneinfo leads to the published tree
    local_zone zone;

    dataset system;
    std::vector<std::string> system_faults; // that make it impossible to judge updates
    std::vector<dataset> updates;           // those that are installed, the oldest first
    std::optional<dataset> in_use;          // none if the zoneinfo link points to none
    std::string current_path;               // what a run takes for the path of the dataset in use
    std::optional<dataset> latest;          // none if tz_latest points to nothing below tz/

    // What should be in use: the dataset in use if programs can use it, or else the newest good
    // update, or else the system partition.
    dataset right;
    std::string right_zone;      // the local zone, if the right data has it
    std::optional<dataset> best; // the newest good update

    // The path of the dataset in use after the next run; none if it is not known.
    std::optional<std::string> after_next_run;
    verdict latest_verdict;

    [[nodiscard]] bool uses(const dataset& data) const
    {
        return in_use && in_use->path == data.path;
    }
};

// Reads the state. Throws std::system_error, with the path, for something that cannot be looked at
// and is in use, the latest, or on the way to them.
[[nodiscard]] state read_state();

// Returns whether both are the same directory, whichever way leads there.
[[nodiscard]] bool is_same_directory(const std::string& left, const std::string& right);

} // namespace quorrel::status
