#include "status/goodness.h"

#include "components/kelvo_icu.h"

#include <algorithm>
#include <stdexcept>

namespace quorrel::status
{
namespace
{

// Returns what is wrong with an update, whatever zones it has, to be read after "update 2024b.1.0";
// or an empty string.
std::string fault_in_data(const disk& now, const dataset& update)
{
    const std::string schema = system_schema(now);
    if (!update.is_installed)
        return "is not installed";
    if (update.has_too_big_number)
        return "has a number above 2147483647 in its name";
    if (update.version == tz_version())
        return "has a name that is not a version";
    if (!update.has_tree)
        return "has no zoneinfo tree";
    if (update.stalls)
        return "has a pipe or a device at zoneinfo/+VERSION, which would stall a run";
    if (update.schemas.empty())
        return "has no ICU data file";
    if (update.schemas.size() > 1)
        return "has ICU data files of several schemas";
    if (!schema.empty() && !update.schemas.contains(schema))
        return "has ICU schema " + *update.schemas.begin() + ", but the system partition has " +
               schema;
    if (update.version < system_version(now))
        return "is older than the system partition";
    return "";
}

} // namespace

bool is_release(const std::string& text)
{
    try {
        const tz_version version(text);
        return version != tz_version() && version.minor == -1;
    } catch (const std::out_of_range&) {
        return false;
    }
}

bool is_schema(const std::string& text)
{
    return !text.empty() && kelvo_icu::schema_in(("icutz" + text + ".dat").c_str()) == text;
}

tz_version system_version(const disk& now)
{
    const std::string& word = now.release.word;
    const std::string& release = is_release(word) ? word : now.built_release;
    return is_release(release) ? tz_version(release + ".1.0") : tz_version();
}

std::string schema_of_updates(const disk& now)
{
    std::set<std::string> schemas;
    for (const dataset& update : now.updates)
        if (update.schemas.size() == 1)
            schemas.insert(*update.schemas.begin());
    return schemas.size() == 1 ? *schemas.begin() : "";
}

std::string system_schema(const disk& now)
{
    if (is_schema(now.schema.word))
        return now.schema.word;
    if (now.in_use && !now.in_use->is_system() && now.in_use->schemas.size() == 1)
        return *now.in_use->schemas.begin();
    return schema_of_updates(now);
}

bool zone_can_be_had(const disk& now)
{
    return now.system.has_zone ||
           std::any_of(now.updates.begin(), now.updates.end(), [&](const dataset& update) {
               const bool is_in_use = now.in_use && now.in_use->path == update.path;
               return update.has_zone && fault_in_data(now, update).empty() &&
                      (is_in_use || update.version > system_version(now));
           });
}

std::string fault_in(const disk& now, const dataset& data)
{
    if (data.is_system() && !data.has_tree)
        return "has no zoneinfo tree, " + data.tree;
    const std::string fault = data.is_system() ? "" : fault_in_data(now, data);
    if (fault.empty() && !data.has_zone && zone_can_be_had(now))
        return "lacks the zone " + now.zone;
    return fault;
}

std::optional<dataset> find_best(const disk& now)
{
    const tz_version system = system_version(now);
    if (system_schema(now).empty())
        return {};
    if (system == tz_version() && now.system.has_tree) {
        const bool is_good =
            now.in_use && !now.in_use->is_system() && fault_in(now, *now.in_use).empty();
        return is_good ? now.in_use : std::nullopt;
    }
    for (auto update = now.updates.rbegin(); update != now.updates.rend(); ++update)
        if (update->version > system && fault_in(now, *update).empty())
            return *update;
    return {};
}

} // namespace quorrel::status
