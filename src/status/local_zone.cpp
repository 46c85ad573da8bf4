#include "status/local_zone.h"

#include "fs/paths.h"
#include "status/commands.h"
#include "status/dataset.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace quorrel::status
{
namespace
{

// Returns what a path below a zoneinfo tree names there, or an empty string.
std::string below_a_tree(const std::string& path)
{
    for (const std::string tree :
         {paths::zoneinfo_link, paths::legacy_zoneinfo, paths::system_zoneinfo})
        if (path.starts_with(tree + "/"))
            return path.substr(tree.size() + 1);
    const std::string updates = paths::update_directory, tree = paths::update_zoneinfo;
    const auto name_end = path.find('/', updates.size());
    if (path.starts_with(updates) && name_end != path.npos &&
        path.compare(name_end, tree.size() + 1, tree + "/") == 0)
        return path.substr(name_end + tree.size() + 1);
    return {};
}

// Returns the zone that a path names, or an empty string.
std::string zone_in(const std::string& path)
{
    const std::string zone = below_a_tree(path);
    // In a tree, localtime is a link back.
    return has_control_character(zone) || zone == "localtime" ? "" : zone;
}

std::string zone_on(const route& way)
{
    for (const std::string& station : way.stations)
        if (const std::string zone = zone_in(station); !zone.empty())
            return zone;
    return {};
}

// Returns the name whose zone has this content in one of the trees, or an empty string if none
// has, or more than one.
std::string confirm(const std::string& content, const std::set<std::string>& names,
                    const std::vector<std::string>& trees)
{
    std::set<std::string> confirmed;
    for (const std::string& name : names)
        if (!name.empty() && std::any_of(trees.begin(), trees.end(), [&](const std::string& tree) {
                return content_of(tree + "/" + name) == content;
            }))
            confirmed.insert(name);
    return confirmed.size() == 1 ? *confirmed.begin() : "";
}

bool is_utc(const std::string& zone)
{
    return zone.empty() || zone == "UTC" || zone == "Etc/UTC";
}

} // namespace

local_zone read_local_zone(const std::vector<std::string>& trees)
{
    local_zone zone;
    zone.link = look_at(paths::etc_localtime);
    zone.way = follow(paths::etc_localtime);
    zone.name = zone_on(zone.way);
    zone.localtime_name = zone_in(destination(paths::localtime_link));
    const std::filesystem::path tree = paths::zoneinfo_link;
    zone.timezone_name = zone_in((tree / word_of(paths::etc_timezone)).lexically_normal());
    zone.follows_published = zone.way.passes(paths::zoneinfo_link);
    zone.asks_localtime = zone.way.passes(paths::localtime_link);
    const std::string content = content_of(paths::etc_localtime);
    zone.is_sound = is_sound_zone(content);
    const std::set<std::string> others = {zone.localtime_name, zone.timezone_name};
    if (zone.link.is_missing())
        zone.name = (is_utc(zone.localtime_name) || zone.localtime_name == paths::default_zone) &&
                            is_utc(zone.timezone_name)
                        ? "UTC"
                        : "";
    else if (zone.name.empty() && zone.is_sound)
        zone.name = confirm(content, others, trees);
    else if (zone.asks_localtime && zone.name == paths::default_zone &&
             !zone.timezone_name.empty() && zone.timezone_name != zone.name)
        zone.name.clear(); // a run may have reset the link
    return zone;
}

} // namespace quorrel::status
