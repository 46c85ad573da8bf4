#include "status/problems.h"

#include "status/goodness.h"

#include "fs/paths.h"

#include <sys/stat.h>

#include <optional>

namespace quorrel::status
{
namespace
{

using finding = std::optional<problem>;

// Texts.

// Quotes a text for the shell, if it has to be.
std::string quoted(const std::string& text)
{
    const std::string plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_/.+-";
    if (text.find_first_not_of(plain) == text.npos)
        return text;
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? "'\\''" : std::string(1, c);
    return result + "'";
}

// Commands.

// Returns a command that keeps what is in the way under a new name.
std::string keep(const std::string& path, const std::string& command = "mv ")
{
    struct stat status;
    std::string name = path + ".old";
    while (lstat(name.c_str(), &status) == 0)
        name += "~";
    return command + path + " " + name;
}

std::string link(const entry& at, const std::string& target)
{
    const std::string command = "ln -sfn " + quoted(target) + " " + at.path;
    if (at.is_missing() || at.is_link())
        return command;
    // A file may be a zone that is read: it stays until the link replaces it.
    return keep(at.path, at.is_file() ? "cp -p " : "mv ") + " && " + command;
}

std::string remove(const entry& at)
{
    return at.is_link() ? "rm " + at.path : keep(at.path);
}

std::string write(const word_file& file, const std::string& word)
{
    const std::string command = "(umask 022; echo " + word + " >" + file.at.path + ")";
    return file.at.is_missing() || file.at.is_file() ? command
                                                     : keep(file.at.path) + " && " + command;
}

// Returns a command that makes a directory at the path of the entry, or below it.
std::string make_directory(const entry& at, const std::string& path)
{
    const std::string command = "(umask 022; mkdir -p " + path + ")";
    return at.is_missing() ? command : keep(at.path) + " && " + command;
}

std::string open_up(const dataset& data)
{
    return "chmod -R go+rX " + quoted(data.is_system() ? data.tree : data.path);
}

// Puts before the commands that link to a dataset what makes it readable.
std::vector<std::string> with_modes(const dataset& data, std::vector<std::string> commands)
{
    if (!data.unreadable.empty())
        commands.insert(commands.begin(), open_up(data));
    return commands;
}

std::string relink_latest(const disk& now)
{
    return now.best ? link(now.tz_latest, now.best->path) : remove(now.tz_latest);
}

bool latest_is_in_use(const disk& now)
{
    return now.in_use && now.latest && now.in_use->path == now.latest->path;
}

std::string with_best(const disk& now, const std::string& fault)
{
    return fault + (now.best ? ". The newest good update is " + now.best->name + "."
                             : ". No update is known to be good.");
}

// Links both kinds of data to the newest good update or, if there is none, the system partition. A
// tz_latest that names what was in use goes with them.
std::vector<std::string> publish_best(const disk& now)
{
    std::vector<std::string> commands;
    if (now.best) {
        commands = {link(now.zoneinfo, now.best->tree)};
        if (now.icutz.target != now.best->icu_directory)
            commands.push_back(link(now.icutz, now.best->icu_directory));
        commands = with_modes(*now.best, commands);
    } else if (now.system.has_tree) {
        commands = {link(now.zoneinfo, now.system.tree)};
        if (!now.icutz.is_missing())
            commands.push_back(remove(now.icutz));
        if (!now.system_is_read_only)
            commands = with_modes(now.system, commands);
    }
    const bool latest_is_best = now.best && now.latest && now.best->path == now.latest->path;
    if (latest_is_in_use(now) && !latest_is_best)
        commands.push_back(relink_latest(now));
    return commands;
}

// Finishes a problem of the system partition, which no command cures if it is read only.
problem on_system(const disk& now, const problem& found)
{
    if (now.system_is_read_only)
        return {found.sentence + " It is on a read-only file system: correct the image.", {}};
    return found;
}

// The checks, one fault each.

finding check_data_directory(const disk& now)
{
    const std::string path = "/var/db/timezone";
    if (now.data_is_read_only)
        return problem{path + " is on a read-only file system. Mount it writable.", {}};
    if (!now.has_data_directory) {
        const std::string fault = now.data_directory.is_missing() ? "missing" : "not a directory";
        problem missing = {path + " is " + fault + ".",
                           {make_directory(now.data_directory, path + "/tz")}};
        if (!now.zone.empty())
            missing.commands.push_back(
                link(now.localtime, paths::zoneinfo_link + ("/" + now.zone)));
        return missing;
    }
    if (!now.root_may_write)
        return problem{"The owner or the mode of " + path + " keeps quorrel from writing there.",
                       now.root_owns_data_directory
                           ? std::vector<std::string>{"chmod u+rwx " + path}
                           : std::vector<std::string>{"chgrp 0 " + path, "chmod g+rwx " + path}};
    return {};
}

finding check_system_tree(const disk& now)
{
    if (now.system.has_tree || (now.in_use && now.in_use->is_system() && now.best))
        return {}; // or the same fault as what is in use, which is cured first
    return problem{"The system partition's zoneinfo tree, " + now.system.tree +
                       ", is missing. Put the tree of this system's image there.",
                   {}};
}

// Finds what is wrong with a word of the system partition; `right` is what belongs there, if known,
// and `reason` why.
problem check_word(const disk& now, const word_file& file, const std::string& right,
                   const std::string& reason, const std::string& fault, const std::string& advice)
{
    std::string sentence = file.at.path + " ";
    if (file.at.is_missing())
        sentence += "is missing.";
    else if (!file.is_regular)
        sentence += "is not a regular file.";
    else if (file.word.empty())
        sentence += "is blank.";
    else
        sentence += "begins with " + quoted(file.word) + ", which is " + fault + ".";
    sentence += " " + (right.empty() ? advice : reason + " " + right + ".");
    if (right.empty())
        return on_system(now, {sentence, {}});
    return on_system(now, {sentence, {write(file, right)}});
}

finding check_release(const disk& now)
{
    const std::string right = is_release(now.built_release) ? now.built_release : "";
    if (!now.system.has_tree || is_release(now.release.word))
        return {};
    return check_word(now, now.release, right, "Its tree is release", "not a tz release",
                      "Write the release that the tree was built from into it, for example 2026b.");
}

finding check_schema(const disk& now)
{
    if (is_schema(now.schema.word))
        return {};
    problem result =
        check_word(now, now.schema, system_schema(now), "The updates have",
                   "not an ICU schema, so updates are refused",
                   "Write the schema that this system's libraries read into it, for example 44l.");
    if (!result.commands.empty() && !now.has_icu_directory)
        result.commands.insert(result.commands.begin(),
                               make_directory(now.icu_directory, now.icu_directory.path));
    return result;
}

finding check_ways(const disk& now)
{
    const std::string& closed = now.closed_directories;
    if (closed.empty())
        return {};
    const problem found = {"Other users cannot enter" + closed + ", as their programs must.",
                           {"chmod go+rx" + closed}};
    return closed.find(" /usr") != closed.npos ? on_system(now, found) : found;
}

// Returns what is wrong with what is in use, or an empty string.
std::string fault_in_use(const disk& now)
{
    if (now.zoneinfo.is_missing())
        return "The zoneinfo link is missing";
    if (!now.zoneinfo.is_link())
        return now.zoneinfo.path + " is not a link";
    if (!now.in_use || now.zoneinfo.target != now.in_use->tree)
        return "The zoneinfo link names " + quoted(now.zoneinfo.target) +
               ", which is not a dataset's tree";
    const std::string fault = fault_in(now, *now.in_use);
    if (fault.empty() || (now.in_use->is_system() && !now.best))
        return ""; // or found by another check of the system partition
    return (now.in_use->is_system() ? "The system partition"
                                    : "Update " + quoted(now.in_use->name)) +
           " is in use, but " + fault;
}

finding check_in_use(const disk& now)
{
    const std::string fault = fault_in_use(now);
    return fault.empty() ? finding() : problem{with_best(now, fault), publish_best(now)};
}

finding check_icu_link(const disk& now)
{
    const entry& icutz = now.icutz;
    if (!now.in_use || !fault_in_use(now).empty())
        return {};
    const bool is_system = now.in_use->is_system();
    if (is_system ? icutz.is_missing() : icutz.target == now.in_use->icu_directory)
        return {};
    if (is_system)
        return problem{"The system partition is in use, which needs no ICU link, but " +
                           icutz.path + " exists.",
                       {remove(icutz)}};
    std::string fault = "The ICU link names " + quoted(icutz.target);
    for (const dataset& update : now.updates)
        if (icutz.target == update.icu_directory)
            fault = "The ICU link names update " + quoted(update.name);
    if (icutz.is_missing())
        fault = "The ICU link is missing";
    else if (!icutz.is_link())
        fault = icutz.path + " is not a link";
    return problem{fault + ", but " + now.in_use->name + " is in use.",
                   {link(icutz, now.in_use->icu_directory)}};
}

finding check_legacy_icu_link(const disk& now)
{
    if (now.legacy_icu_link.is_missing())
        return {};
    return problem{now.legacy_icu_link.path + ", the legacy ICU link, is left over.",
                   {remove(now.legacy_icu_link)}};
}

// Returns what is wrong with tz_latest, to be read after its name, or an empty string.
std::string fault_in_latest(const disk& now)
{
    if (!now.tz_latest.is_link())
        return "is not a link";
    if (!now.latest)
        return now.tz_latest.target.starts_with('/')
                   ? "names " + quoted(now.tz_latest.target) + ", which is not an update"
                   : "has the relative target " + quoted(now.tz_latest.target);
    if (now.latest->name.ends_with('/'))
        return "has a slash at the end of its target";
    const std::string which = "names update " + quoted(now.latest->name) + ", which ";
    if (const std::string fault = fault_in(now, *now.latest); !fault.empty())
        return which + fault;
    if (!(now.latest->version > system_version(now)))
        return which + "is not newer than the system partition";
    if (now.in_use && fault_in_use(now).empty() && now.latest->version < now.in_use->version)
        return which + "is older than " + now.in_use->name + ", which is in use";
    return "";
}

finding check_latest(const disk& now)
{
    const std::string fault = now.tz_latest.is_missing() ? "" : fault_in_latest(now);
    if (fault.empty() || (latest_is_in_use(now) && !fault_in_use(now).empty()))
        return {}; // or the same fault
    const std::vector<std::string> commands = {relink_latest(now)};
    return problem{with_best(now, "tz_latest " + fault), now.best && fault_in_use(now).empty()
                                                             ? with_modes(*now.best, commands)
                                                             : commands};
}

finding check_readers(const disk& now)
{
    // The latest comes first, since a run activates it. What has another problem is skipped, and so
    // is what that problem's commands make readable.
    const bool in_use_is_bad = !fault_in_use(now).empty();
    const bool latest_is_bad = check_latest(now).has_value();
    const std::string opened =
        now.best && (in_use_is_bad || latest_is_bad) ? now.best->path : "none";
    for (const auto& data : {latest_is_bad || latest_is_in_use(now) ? std::nullopt : now.latest,
                             in_use_is_bad ? std::nullopt : now.in_use})
        if (data && !data->unreadable.empty() && data->path != opened) {
            const problem found = {"Other users cannot read " + quoted(data->unreadable) +
                                       ", as their programs must.",
                                   {open_up(*data)}};
            return data->is_system() ? on_system(now, found) : found;
        }
    return {};
}

// Finishes a problem with a link to the local zone. No fault is no problem.
finding relink(const disk& now, const std::string& fault, const entry& at, const std::string& tree)
{
    if (fault.empty())
        return {};
    if (!now.zone.empty())
        return problem{fault, {link(at, tree + "/" + now.zone)}};
    return problem{
        fault + " It is not known which zone was meant: before the next run, link it to the " +
            "zone's file in " + tree + ".",
        {}};
}

finding check_localtime(const disk& now)
{
    const entry& localtime = now.localtime;
    std::string fault;
    if (!now.zone.empty() && now.system.has_tree && !zone_can_be_had(now))
        return problem{"No dataset has the zone " + quoted(now.zone) + ". Link " + localtime.path +
                           " and /etc/localtime to the file of the zone that was meant.",
                       {}};
    if (localtime.is_missing())
        fault = "The localtime link is missing.";
    else if (!localtime.is_link())
        fault = localtime.path + " is not a link.";
    else if (!(localtime.target + "/").starts_with(std::string(paths::zoneinfo_link) + "/"))
        fault = "The localtime link names " + quoted(localtime.target) +
                ", which is not in the published tree.";
    else if (now.localtime_zone.empty())
        fault = "The localtime link names no zone.";
    else if (!now.zone.empty() && now.zone != now.localtime_zone)
        fault = "The localtime link names the zone " + quoted(now.localtime_zone) +
                ", but the local zone is " + quoted(now.zone) + ".";
    return relink(now, fault, localtime, paths::zoneinfo_link);
}

finding check_etc_localtime(const disk& now)
{
    const entry& etc = now.etc_localtime;
    std::string fault;
    if (!now.zone.empty() && !zone_can_be_had(now))
        return {}; // nothing has the zone that it could lead to, as another problem says
    if (etc.is_missing())
        fault = "/etc/localtime is missing.";
    else if (etc.is_file())
        fault = "/etc/localtime is a copy, which follows no update.";
    else if (!etc.is_link())
        fault = "/etc/localtime is not a link.";
    else if (!now.etc_leads_to_published_tree)
        fault = "/etc/localtime names " + quoted(etc.target) + ", which follows no update.";
    else if (now.etc_zone != now.zone)
        fault = "/etc/localtime does not name an existing zone.";
    return relink(now, fault, etc,
                  now.publishes_usr_share ? paths::legacy_zoneinfo : paths::zoneinfo_link);
}

} // namespace

std::vector<problem> find_problems(const disk& now)
{
    std::vector<problem> problems;
    const auto add = [&](std::initializer_list<finding (*)(const disk&)> checks) {
        for (const auto check : checks)
            if (const finding found = check(now))
                problems.push_back(*found);
    };
    add({check_system_tree, check_release, check_schema, check_ways, check_data_directory});
    if (now.has_data_directory && !now.data_is_read_only) // or nothing else can be cured
        add({check_in_use, check_readers, check_icu_link, check_legacy_icu_link, check_latest,
             check_localtime, check_etc_localtime});
    return problems;
}

} // namespace quorrel::status
