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

// Reads the local zone, which is the one that /etc/localtime points to. If it points to none, a
// zone that the localtime link or /etc/timezone names is the local one if /etc/localtime holds
// exactly its file of one of these trees, and the other names no other such zone. Throws
// std::system_error for what cannot be looked at.
[[nodiscard]] local_zone read_local_zone(const std::vector<std::string>& trees);

// Returns the zone that a path names, or an empty string.
[[nodiscard]] std::string zone_in(const std::string& path);

} // namespace quorrel::status
