#include "status/state.h"

#include "components/kelvo_icu.h"
#include "dataset/link_resolution.h"
#include "dataset/select_dataset.h"
#include "fs/paths.h"

#include <sys/statvfs.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace quorrel::status
{
namespace
{

using namespace std::string_literals;

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
    return !text.empty() && kelvo_icu::schema_in("icutz" + text + ".dat") == text;
}

// Returns the release that zic's source names in its first line, "# version 2026b".
std::string read_source_release(const std::string& tree)
{
    constexpr std::string_view begin = "# version ";
    const std::string source = content_of(tree + paths::zone_source_file);
    const std::string release = source.starts_with(begin)
                                    ? source.substr(begin.size(), source.find('\n') - begin.size())
                                    : "";
    return is_release(release) ? release : "";
}

// Returns what makes it impossible to judge updates.
std::vector<std::string> find_system_faults(const dataset& system)
{
    std::vector<std::string> faults;
    const std::string release_file = system.tree + paths::release_file;
    const std::string schema_file = system.icu_directory + paths::icu_format_file;
    const std::string release = word_of(release_file);
    const std::string built = read_source_release(system.tree);
    if (!system.has_tree)
        faults.push_back("The system partition's zoneinfo tree, " + system.tree + ", is missing.");
    else if (release.empty())
        faults.push_back(release_file + " is missing, empty or not a file.");
    else if (!is_release(release))
        faults.push_back(release_file + " begins with " + release + ", which is not a tz release.");
    else if (!built.empty() && built != release)
        faults.push_back(release_file + " says " + release + ", but its tree is " + built +
                         ", so a run may choose older data. The file has to say " + built + ".");
    if (system.schema.empty())
        faults.push_back(schema_file + " is missing, empty or not a file.");
    else if (!is_schema(system.schema))
        faults.push_back(schema_file + " begins with " + system.schema +
                         ", which is not an ICU schema.");
    return faults;
}

// Skips an update that this user cannot look at, unless it is in use or the latest.
std::vector<dataset> read_updates(const std::string& zoneinfo_target, const std::string& latest)
{
    std::vector<dataset> updates;
    std::vector<std::string> names;
    try {
        names = names_in(paths::update_directory);
    } catch (const std::system_error&) {
    }
    for (const std::string& name : names) {
        const std::string path = paths::update_directory + name;
        try {
            if (S_ISDIR(mode_of(path)))
                updates.push_back(read_dataset(path));
        } catch (const std::system_error&) {
            if (is_within(zoneinfo_target, path) || is_within(latest, path))
                throw;
        }
    }
    std::sort(updates.begin(), updates.end(), [](const dataset& left, const dataset& right) {
        return left.version == right.version ? left.name < right.name
                                             : left.version < right.version;
    });
    return updates;
}

// The link may be relative or go through others. If it dangles, its text decides.
std::optional<dataset> read_in_use(const state& now)
{
    if (!now.zoneinfo.is_link())
        return {};
    const std::string tree = destination(now.zoneinfo.path);
    std::vector<dataset> all = now.updates;
    all.push_back(now.system);
    for (const dataset& data : all)
        if (data.tree == tree)
            return data;
    for (const dataset& data : all)
        if (is_same_directory(data.tree, now.zoneinfo.path))
            return data;
    try {
        if (const dataset data = read_dataset(dataset_path_from_link(tree)); data.tree == tree)
            return data;
    } catch (int) {
        // It points to something else.
    }
    return {};
}

std::optional<dataset> read_latest(const state& now)
{
    const std::string_view updates = paths::update_directory;
    const std::string& path = now.tz_latest.target;
    if (!path.starts_with(updates) || path.size() == updates.size())
        return {};
    return read_dataset(path);
}

// Returns whether root can write there without special privileges, as under the systemd unit.
bool can_write(const std::string& directory)
{
    struct stat status;
    struct statvfs system;
    if (stat(directory.c_str(), &status) != 0 || statvfs(directory.c_str(), &system) != 0)
        return false;
    const mode_t needed = status.st_uid == 0   ? S_IWUSR | S_IXUSR
                          : status.st_gid == 0 ? S_IWGRP | S_IXGRP
                                               : S_IWOTH | S_IXOTH;
    return (status.st_mode & needed) == needed && (system.f_flag & ST_RDONLY) == 0;
}

// Returns the newest update that a run would activate after the system partition, and that programs
// can use for the zone. Permissions do not matter here, because a command can open them.
std::optional<dataset> find_best(const state& now, const std::string& zone)
{
    for (auto update = now.updates.rbegin(); update != now.updates.rend(); ++update)
        if (update->version > now.system.version && !update->stalls &&
            update->schema == now.system.schema && fault_seen_in(*update, zone).empty())
            return *update;
    return {};
}

// If no dataset has the zone, it is chosen as if none were asked for.
dataset find_right(const state& now, const std::string& local_zone)
{
    for (const std::string& zone : {local_zone, std::string()}) {
        if (now.in_use && fault_in(*now.in_use, zone).empty())
            return *now.in_use;
        if (const auto best = find_best(now, zone); best && now.system_faults.empty())
            return *best;
        if (fault_in(now.system, zone).empty())
            return now.system;
    }
    return now.system;
}

// Returns whether tz_latest leads to an installed update, but its target is no update's exact path.
bool is_inexact(const state& now)
{
    const auto is_exact = [&](const dataset& update) {
        return update.path == now.tz_latest.target;
    };
    const auto leads_to = [&](const dataset& update) {
        return update.version != tz_version() && is_same_directory(update.path, now.tz_latest.path);
    };
    return std::none_of(now.updates.begin(), now.updates.end(), is_exact) &&
           std::any_of(now.updates.begin(), now.updates.end(), leads_to);
}

verdict judge_latest(const state& now)
{
    const auto refused = [](const std::string& why) { return verdict{why, "", false}; };
    const auto harmful = [](const std::string& why) { return verdict{"", why, true}; };
    const auto useless = [](const std::string& why) {
        return verdict{"", why + ", so a run never uses it. Have it installed again", false};
    };
    const std::string lost = ", so every run ends on the system partition";
    const std::string inexact = "is not exactly an update's path";
    const std::string agent = ". If the update agent wrote it, correct the agent too";

    if (now.tz_latest.is_missing())
        return {};
    if (!now.tz_latest.is_link())
        return harmful("is not a link" + lost);
    if (!now.latest)
        return harmful(is_inexact(now) ? inexact + lost + agent
                                       : "is no update in "s + paths::updates + lost);
    const dataset& latest = *now.latest;
    if (latest.has_too_big_number)
        return harmful("has a number above 2147483647 in its name" + lost);
    if (latest.stalls && !now.uses(latest))
        return harmful(
            "has a pipe, a device or a huge file at zoneinfo/+VERSION, which stalls a run");
    if (is_inexact(now) || latest.name.find('/') != latest.name.npos)
        return harmful(inexact + ", so a run never uses it" + agent);
    if (!latest.is_installed)
        return refused("not installed");
    if (latest.version == tz_version())
        return useless("has a name that is not a version");
    const bool is_next = now.after_next_run == latest.path; // even if it is older than these
    if (!is_next && latest.version <= now.system.version)
        return refused("not newer than the system partition");
    // If a run takes what is in use away, the one after it compares with the system partition.
    const bool is_kept = now.after_next_run != "" && latest.path != now.right.path;
    if (!is_next && is_kept && latest.version <= now.right.version)
        return refused("not newer than what is in use");
    if (latest.schema.empty())
        return useless("has no ICU data file");
    if (latest.schema != now.system.schema)
        return refused("the system partition has schema " + now.system.schema);
    if (const std::string fault = fault_in(latest, now.right_zone); !fault.empty())
        return harmful(fault);
    return {};
}

// Returns the dataset path that a run reads from the zoneinfo link; that of the system partition if
// the link points to none, because the run then publishes that.
std::string current_path_of_a_run()
{
    try {
        return current_dataset_path();
    } catch (int) {
        return {};
    }
}

// Makes the decisions of a run on the links as they are. What may stall it, or keep it from reading
// or replacing something, makes the end unknown. If nothing can be published, what is in use stays.
std::optional<std::string> predict(const state& now)
{
    for (const place& link : {now.zoneinfo, now.icutz, now.tz_latest})
        if (!link.is_missing() && !link.is_link())
            return {};
    std::vector<std::string> read = {now.system.tree + paths::release_file,
                                     now.system.icu_directory + paths::icu_format_file};
    for (const std::string& path : {now.current_path, now.tz_latest.target})
        if (!path.empty())
            read.insert(read.end(), {path + paths::update_zoneinfo + paths::release_file,
                                     path + paths::update_icu});
    for (const std::string& path : read) {
        const route way = follow(path);
        if (may_stall(path) || !way.closed.empty() ||
            (S_ISDIR(way.mode) && !is_open(way.mode, S_IROTH)))
            return {};
    }
    if (!now.can_write || now.system.has_too_big_number) // then nothing can be published
        return now.in_use ? std::optional(now.in_use->path) : std::nullopt;
    try {
        const kelvo_dataset system, current(now.current_path);
        if (!now.tz_latest.is_missing()) {
            const kelvo_dataset latest(now.tz_latest.target);
            if (may_replace(current, latest, system))
                return S_ISFIFO(mode_of(paths::version_diff_record))
                           ? std::nullopt
                           : std::optional(now.tz_latest.target);
        }
        return may_stay(current, system) ? now.current_path : "";
    } catch (...) {
        return ""; // a run that fails ends on the system partition
    }
}

} // namespace

bool is_same_directory(const std::string& left, const std::string& right)
{
    struct stat a, b;
    return stat(left.c_str(), &a) == 0 && stat(right.c_str(), &b) == 0 && a.st_dev == b.st_dev &&
           a.st_ino == b.st_ino;
}

state read_state()
{
    state now;
    now.zoneinfo = look_at(paths::zoneinfo_link);
    now.icutz = look_at(paths::icu_link);
    now.localtime = look_at(paths::localtime_link);
    now.tz_latest = look_at(paths::latest_update_link);
    now.can_write = can_write(paths::data_directory);
    now.publishes_usr_share = follow(paths::legacy_zoneinfo).passes(paths::zoneinfo_link);

    now.system = read_dataset({});
    now.system_faults = find_system_faults(now.system);
    now.updates = read_updates(destination(paths::zoneinfo_link), now.tz_latest.target);
    now.current_path = current_path_of_a_run();
    now.in_use = read_in_use(now);
    now.latest = read_latest(now);

    std::vector<std::string> trees = {now.system.tree};
    for (const dataset& update : now.updates)
        trees.push_back(update.tree);
    now.zone = read_local_zone(trees);
    const std::string zone = now.zone.link.is_missing() ? "" : now.zone.name;
    now.right = find_right(now, zone);
    now.right_zone = fault_in(now.right, zone).empty() ? zone : "";
    now.best = find_best(now, now.right_zone);
    now.after_next_run = predict(now);
    now.latest_verdict = judge_latest(now);
    return now;
}

} // namespace quorrel::status
