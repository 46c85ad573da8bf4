#pragma once

#include "status/route.h"

#include <string>
#include <vector>

namespace quorrel::status
{

// Where programs find the local zone, and which it is.
struct local_zone {
    place link;                     // /etc/localtime
    route way;                      // from there
    std::string name;               // empty if it is not known
    std::string localtime_name;     // of the zone that the localtime link points to, or empty
    std::string timezone_name;      // of the zone in /etc/timezone, or empty
    bool is_sound = false;          // programs find a compiled zone
    bool follows_published = false; // the way leads through the published tree
    bool asks_localtime = false;    // the way leads through the localtime link
};

// Reads the local zone, which is the one that /etc/localtime points to. Throws std::system_error
// for what cannot be looked at.
//
// If it points to no zone, the localtime link and /etc/timezone are asked. A zone that one of them
// names is the local zone if /etc/localtime has the content of its file in one of these trees, and
// the other names no second such zone. If /etc/localtime is missing, the zone is UTC, unless they
// name another; America/Los_Angeles in the localtime link does not count then, because a run may
// have reset that link. Nor is it believed where /etc/localtime leads through that link and
// /etc/timezone names another zone.
[[nodiscard]] local_zone read_local_zone(const std::vector<std::string>& trees);

} // namespace quorrel::status
