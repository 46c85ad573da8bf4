#include "status/disk.h"

#include "components/kelvo_icu.h"
#include "dataset/link_resolution.h"
#include "dataset/select_dataset.h"
#include "fs/paths.h"
#include "fs/primitives.h"
#include "fs/small_file.h"
#include "status/goodness.h"

#include <fts.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace quorrel::status
{
namespace
{

using namespace std::string_literals;

// Whoever cannot look must not take that for "there is nothing".
[[noreturn]] void cannot_look_at(const std::string& path, int error)
{
    throw std::system_error(error, std::generic_category(), path);
}

// Returns the mode of what is at the path, or 0 for nothing, a loop of links and a name too long.
mode_t mode_of(const std::string& path, decltype(stat) look = stat)
{
    struct stat status;
    if (look(path.c_str(), &status) == 0)
        return status.st_mode;
    if (errno != ENOENT && errno != ENOTDIR && errno != ELOOP && errno != ENAMETOOLONG)
        cannot_look_at(path, errno);
    return 0;
}

bool is_directory(const std::string& path)
{
    return S_ISDIR(mode_of(path));
}

bool is_regular(const std::string& path)
{
    return S_ISREG(mode_of(path));
}

entry look_at(const std::string& path)
{
    entry result = {path, mode_of(path, lstat), {}};
    try {
        if (result.is_link())
            result.target = fs::read_symlink(path);
    } catch (int error) {
        cannot_look_at(path, error);
    }
    return result;
}

// Returns where a link leads, as an absolute path without "..", ".", or a slash at its end.
std::string destination(const entry& link)
{
    const auto folder = std::filesystem::path(link.path).parent_path();
    const std::string path = (folder / link.target).lexically_normal();
    return path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
}

// Returns whether reading what is at the path may never end.
bool stalls(const std::string& path)
{
    const mode_t mode = mode_of(path);
    return S_ISFIFO(mode) || S_ISCHR(mode) || S_ISBLK(mode);
}

// Reads nothing but regular files: a named pipe would stall.
word_file read_word(const std::string& path)
{
    const bool is_file = is_regular(path);
    if (is_file && access(path.c_str(), R_OK) != 0)
        cannot_look_at(path, errno);
    return {look_at(path), is_file, is_file ? fs::first_word(path) : ""};
}

// Returns the path of something in a directory that others cannot read, or an empty string. The
// targets of links are not looked at.
std::string find_unreadable(const std::string& directory)
{
    struct close_walk {
        void operator()(FTS* walk) const { fts_close(walk); }
    };
    std::string root = directory;
    char* const roots[] = {root.data(), nullptr};
    const std::unique_ptr<FTS, close_walk> walk(
        fts_open(roots, FTS_COMFOLLOW | FTS_PHYSICAL, nullptr));
    if (walk == nullptr)
        cannot_look_at(directory, errno);
    errno = 0;
    while (const FTSENT* const found = fts_read(walk.get())) {
        const mode_t needed = found->fts_info == FTS_D ? S_IROTH | S_IXOTH : S_IROTH;
        if (found->fts_info == FTS_DNR)
            cannot_look_at(found->fts_path, found->fts_errno);
        if ((found->fts_info == FTS_D || found->fts_info == FTS_F) &&
            (found->fts_statp->st_mode & needed) != needed)
            return found->fts_path;
        errno = 0;
    }
    if (errno != 0)
        cannot_look_at(directory, errno);
    return {};
}

bool is_read_only(const char* path)
{
    struct statvfs status;
    return statvfs(path, &status) == 0 && (status.f_flag & ST_RDONLY) != 0;
}

// Returns the directories on the way to data that others cannot enter, a blank before each.
std::string find_closed_directories()
{
    std::string closed;
    for (const char* path : {"/etc", "/usr", "/usr/share", "/var", "/var/db", "/var/db/timezone",
                             "/var/db/timezone/tz"})
        if (const mode_t mode = mode_of(path); S_ISDIR(mode) && (mode & S_IXOTH) == 0)
            closed += std::string(" ") + path;
    return closed;
}

// Returns the release that zic's source names in its first line, "# version 2026b".
std::string read_built_release(const std::string& path)
{
    constexpr std::string_view begin = "# version ";
    std::string line;
    if (is_regular(path))
        std::getline(std::ifstream(path), line);
    return line.starts_with(begin) ? line.substr(begin.size()) : "";
}

// Returns the zone that a path names, or an empty string. Control characters would mislead whoever
// reads or pastes it.
std::string zone_in(const std::string& path)
{
    for (const std::string tree : {"/zoneinfo.default/", "/zoneinfo/"})
        if (const auto begin = path.rfind(tree); begin != path.npos) {
            const std::string zone = path.substr(begin + tree.size());
            if (std::none_of(zone.begin(), zone.end(),
                             [](unsigned char c) { return std::iscntrl(c); }))
                return zone;
        }
    return {};
}

// Returns the names in a directory; none if it is missing.
std::vector<std::string> names_in(const std::string& directory)
{
    std::vector<std::string> names;
    if (!is_directory(directory))
        return names;
    std::error_code error;
    for (const auto& item : std::filesystem::directory_iterator(directory, error))
        names.push_back(item.path().filename());
    if (error)
        cannot_look_at(directory, error.value());
    return names;
}

dataset read_dataset(const disk& now, const std::string& path)
{
    const std::string_view updates = paths::update_directory;
    dataset result = {};
    result.path = path;
    result.tree = path.empty() ? paths::system_zoneinfo : path + paths::update_zoneinfo;
    result.icu_directory = path.empty() ? paths::system_icu : path + paths::update_icu;
    result.name = path.empty() ? now.release.word + ".1.0" : path.substr(updates.size());
    try {
        result.version.parse(result.name);
    } catch (const std::out_of_range&) {
        result.version = {};
        result.has_too_big_number = true;
    }
    result.is_installed = path.empty() || is_directory(path);
    result.has_tree = is_directory(result.tree);
    result.stalls = stalls(result.tree + paths::release_file);
    result.has_zone = !now.zone.empty() && is_regular(result.tree + "/" + now.zone);
    for (const std::string& name : names_in(result.icu_directory))
        if (S_ISREG(mode_of(result.icu_directory + "/" + name, lstat)))
            result.schemas.insert(kelvo_icu::schema_in(name.c_str()));
    result.schemas.erase("");
    return result;
}

std::vector<dataset> read_updates(const disk& now)
{
    std::vector<dataset> updates;
    for (const std::string& name : names_in(paths::update_directory))
        if (is_directory(paths::update_directory + name))
            updates.push_back(read_dataset(now, paths::update_directory + name));
    std::sort(updates.begin(), updates.end(), [](const dataset& left, const dataset& right) {
        return left.version == right.version ? left.name < right.name
                                             : left.version < right.version;
    });
    return updates;
}

std::optional<dataset> read_in_use(const disk& now)
{
    try {
        const std::string path = dataset_path_from_link(now.zoneinfo.target);
        return path.empty() ? now.system : read_dataset(now, path);
    } catch (int) {
        return {};
    }
}

std::optional<dataset> read_latest(const disk& now)
{
    const std::string_view updates = paths::update_directory;
    const std::string& path = now.tz_latest.target;
    if (!path.starts_with(updates) || path.size() == updates.size())
        return {};
    return read_dataset(now, path);
}

// Looks for what others cannot read in the datasets that matter, in each once: the system
// partition matters if it is in use or nothing is better.
void read_modes(disk& now)
{
    std::map<std::string, std::string> unreadable; // by directory
    if (!now.best && now.system.has_tree)
        now.system.unreadable = unreadable[now.system.tree] = find_unreadable(now.system.tree);
    for (std::optional<dataset>* const data : {&now.in_use, &now.latest, &now.best})
        if (*data) {
            dataset& found = **data;
            const std::string& directory = found.is_system() ? found.tree : found.path;
            if (!unreadable.contains(directory))
                unreadable[directory] = find_unreadable(directory);
            found.unreadable = unreadable[directory];
        }
}

// Makes the decisions of a run on the links as they are. A failure inside ends on the system
// partition, and one to build that leaves everything as it is.
std::string predict(const disk& now)
{
    if (now.system.stalls || stalls(now.schema.at.path) || (now.in_use && now.in_use->stalls) ||
        stalls(now.tz_latest.target + paths::update_zoneinfo + paths::release_file))
        return "unknown";
    std::string result = now.in_use ? now.in_use->name : "";
    try {
        const kelvo_dataset system;
        result = system.version_string();
        const std::string latest_path = latest_update_path();
        const kelvo_dataset current(now.in_use ? now.in_use->path : "");
        std::string in_use = may_stay(current, system) ? current.version_string() : result;
        if (!latest_path.empty()) {
            const kelvo_dataset latest(latest_path);
            if (may_replace(current, latest, system))
                in_use = stalls(paths::version_diff_record) ? "unknown" : latest.version_string();
        }
        result = in_use;
    } catch (...) {
        // The result is what such a run ends on.
    }
    return result;
}

// Returns what a regular file holds, or an empty string.
std::string content_of(const std::string& path)
{
    std::ostringstream content;
    if (is_regular(path))
        content << std::ifstream(path).rdbuf();
    return content.str();
}

// Returns the local zone: the one that /etc/localtime names, which programs follow, or else that of
// the localtime link; one that some tree has, if possible. If /etc/localtime neither names nor
// holds the default zone, that means only that a run has reset the localtime link.
std::string choose_zone(const disk& now)
{
    std::vector<std::string> trees = {paths::system_zoneinfo};
    for (const std::string& name : names_in(paths::update_directory))
        trees.push_back(paths::update_directory + name + paths::update_zoneinfo);
    for (const std::string& zone : {now.etc_zone, now.localtime_zone})
        for (const std::string& tree : trees)
            if (!zone.empty() && is_regular(tree + "/" + zone)) {
                const bool was_reset =
                    zone == paths::default_zone && zone != now.etc_zone &&
                    content_of(now.etc_localtime.path) != content_of(tree + "/" + zone);
                return was_reset ? "" : zone;
            }
    return now.etc_zone.empty() ? now.localtime_zone : now.etc_zone;
}

} // namespace

disk read_disk()
{
    disk now = {};
    now.zoneinfo = look_at(paths::zoneinfo_link);
    now.icutz = look_at(paths::icu_link);
    now.localtime = look_at(paths::localtime_link);
    now.tz_latest = look_at(paths::latest_update_link);
    now.legacy_icu_link = look_at(paths::legacy_icu_link);
    now.etc_localtime = look_at("/etc/localtime");
    now.data_directory = look_at("/var/db/timezone");
    now.has_data_directory = is_directory(paths::data_directory);
    now.data_is_read_only = is_read_only(now.has_data_directory ? paths::data_directory : "/var");
    if (struct stat status; stat(paths::data_directory, &status) == 0) {
        now.root_owns_data_directory = status.st_uid == 0;
        const mode_t needed = status.st_uid == 0 ? S_IRWXU : status.st_gid == 0 ? S_IRWXG : S_IRWXO;
        now.root_may_write = (status.st_mode & needed) == needed;
    }
    now.closed_directories = find_closed_directories();
    now.publishes_usr_share = destination(look_at(paths::legacy_zoneinfo)) == paths::zoneinfo_link;

    const std::string etc = destination(now.etc_localtime);
    now.etc_leads_to_published_tree =
        etc == paths::localtime_link || etc.starts_with(paths::zoneinfo_link + "/"s) ||
        (now.publishes_usr_share && etc.starts_with(paths::legacy_zoneinfo + "/"s));
    now.localtime_zone = zone_in(destination(now.localtime));
    now.etc_zone = etc == paths::localtime_link ? now.localtime_zone : zone_in(etc);
    now.zone = choose_zone(now);

    now.icu_directory = look_at(paths::system_icu);
    now.has_icu_directory = is_directory(paths::system_icu);
    now.release = read_word(std::string(paths::system_zoneinfo) + paths::release_file);
    now.schema = read_word(std::string(paths::system_icu) + paths::icu_format_file);
    now.system = read_dataset(now, {});
    now.system.schemas = {now.schema.word};
    now.system.schemas.erase("");
    now.built_release = read_built_release(now.system.tree + "/tzdata.zi");
    now.system_is_read_only = is_read_only("/usr/share") || is_read_only(paths::system_zoneinfo);
    now.updates = read_updates(now);
    now.in_use = read_in_use(now);
    now.latest = read_latest(now);
    now.best = find_best(now);
    read_modes(now);
    now.version_after_next_run = predict(now);
    return now;
}

} // namespace quorrel::status
