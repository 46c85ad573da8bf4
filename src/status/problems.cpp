#include "status/problems.h"

#include "fs/paths.h"
#include "status/commands.h"

#include <sys/statvfs.h>

#include <algorithm>
#include <map>

namespace quorrel::status
{
namespace
{

using namespace std::string_literals;

// Returns what a dataset is called in a sentence, for example "update 2026c.1.0".
std::string name_of(const dataset& data)
{
    return data.is_system() ? "the system partition" : "update " + data.name;
}

// Says how a place differs from what it should be.
std::string difference(const place& at)
{
    if (at.is_missing())
        return at.path + " is missing";
    if (at.is_mount_point)
        return at.path + " is a mount point, so it cannot be made a link";
    return at.path + (at.is_link() ? " points to " + at.target : " is not a link");
}

bool is_read_only(const std::string& path)
{
    struct statvfs status;
    return statvfs(path.c_str(), &status) == 0 && (status.f_flag & ST_RDONLY) != 0;
}

// The way to the data.

// Returns whether the places in the data directory can be judged, and cured.
bool check_directories(const state& now, findings& found)
{
    const bool needs_updates = now.in_use && !now.in_use->is_installed;
    for (const std::string path : {paths::var_db, paths::data, paths::updates}) {
        const route way = follow(path);
        const bool is_link = way.stations.size() > 1;
        if (S_ISDIR(way.mode) || (path == paths::updates && !is_link && !needs_updates))
            continue;
        const std::string what =
            is_link ? path + " leads to " + way.stations.back() + ", which" : path;
        found.problem(what + (way.mode != 0 ? " is not a directory."
                                            : " is missing. If it is a file system of its own, "
                                              "mount it, now and at every boot. Otherwise create "
                                              "it, and run quorrel."));
        return false;
    }
    if (is_read_only(paths::data))
        found.problem(paths::data + " is on a read-only file system. Mount it writable."s);
    return !is_read_only(paths::data);
}

void check_writing(const state& now, findings& found)
{
    const std::string path = follow(paths::data).stations.back();
    struct stat status;
    if (now.can_write || stat(path.c_str(), &status) != 0)
        return;
    std::vector<std::string> commands;
    if (is_within(path, paths::var_db) && status.st_uid == 0)
        commands = {"chmod u+rwx " + path};
    else if (is_within(path, paths::var_db))
        commands = {"chgrp 0 " + path, "chmod g+rwx " + path};
    found.problem("The owner or the permissions of " + path + " keep quorrel from writing there.",
                  commands);
}

void check_permissions(const state& now, findings& found)
{
    std::vector<dataset> used = {now.system, now.right};
    if (now.latest && now.system_faults.empty() && now.latest_verdict.refusal.empty() &&
        now.latest_verdict.fault.empty())
        used.push_back(*now.latest);
    std::vector<std::string> contents,
        ways = {paths::etc_localtime, paths::legacy_zoneinfo, paths::zoneinfo_link, paths::icu_link,
                paths::updates};
    for (const dataset& data : used)
        for (const std::string& directory : {data.tree, data.icu_directory}) {
            ways.push_back(directory);
            contents.push_back(follow(directory).stations.back());
        }
    std::map<std::string, std::string> closed; // with the command that opens it
    for (const std::string& directory : contents)
        if (!is_open_to_all(directory))
            closed[directory] = "chmod -R a+rX ";
    for (const std::string& way : ways)
        for (const std::string& path : follow(way).closed)
            if (std::none_of(contents.begin(), contents.end(),
                             [&](const std::string& top) { return is_within(path, top); }))
                closed[path] = "chmod a+x ";
    if (!now.zone.follows_published)
        closed.erase(paths::etc_localtime); // it has to become a link

    std::string ours, others;
    std::vector<std::string> commands;
    for (const auto& [path, command] : closed) {
        (is_within(path, paths::var_db) ? ours : others) += " " + path;
        if (is_within(path, paths::var_db))
            commands.push_back(command + quoted(path));
    }
    const std::string these = "Not every user can read all of this, so programs may show UTC, and "
                              "a run may leave an update unused:";
    if (!ours.empty())
        found.problem(these + ours + ".", commands);
    if (!others.empty())
        found.problem(
            these + others +
            ". Correct the permissions; for what belongs to the image, do that in the image.");
}

void check_stalls(const state& now, findings& found)
{
    if (now.in_use && !now.in_use->is_system() && now.in_use->stalls)
        found.problem(now.in_use->tree + paths::release_file +
                      " is a pipe, a device or a huge file, which stalls a run. Remove it.");
    const place record = look_at(paths::version_diff_record);
    if (S_ISFIFO(mode_of(record.path)))
        found.problem(record.path + " is a pipe, which stalls every run that activates an update.",
                      clear(record));
}

// The system partition.

void check_image(const state& now, findings& found)
{
    const auto add = [&](const std::string& sentence) {
        found.problem(sentence + " Correct the image.");
    };
    for (const std::string& fault : now.system_faults)
        add(fault);
    if (!now.publishes_usr_share)
        add(paths::legacy_zoneinfo + " is not a link to "s + paths::zoneinfo_link +
            ", so programs that read it do not follow updates, or show UTC.");
    const bool is_overtaken = now.latest && now.after_next_run == now.latest->path &&
                              now.latest->version < now.system.version;
    if (const std::string fault = fault_in(now.system, now.right_zone);
        (now.after_next_run == "" || is_overtaken) && now.system.has_tree && !fault.empty())
        add("After the next run"s + (is_overtaken ? " but one" : "") +
            " the system partition will be in use, but it " + fault + ".");
}

// What is published.

// The data in use is right, but a run may take it out of use because of its name or its link. It is
// no problem if a newer system partition, or one with another schema, replaces it.
void check_next_run(const state& now, findings& found)
{
    const dataset& right = now.right;
    if (right.is_system() || !now.after_next_run || now.after_next_run == right.path ||
        (now.latest && now.after_next_run == now.latest->path &&
         now.latest->version > right.version))
        return;
    const std::string effect =
        ", so the next run goes back to " +
        (now.after_next_run == "" ? "the system partition" : *now.after_next_run) + ".";
    if (right.version == tz_version())
        found.problem(right.path + " is in use, but its name is not a version" + effect +
                      " Have it installed again.");
    else if (right.schema.empty() && right.version >= now.system.version)
        found.problem(name_of(right) + " is in use, but has no ICU data file" + effect +
                      " Have it installed again.");
    else if (right.schema == now.system.schema && right.version >= now.system.version &&
             now.current_path != right.path)
        found.problem(difference(now.zoneinfo) + " instead of " + right.tree + effect,
                      make_link(now.zoneinfo, right.tree));
}

void check_zoneinfo(const state& now, findings& found)
{
    if (now.uses(now.right))
        return check_next_run(now, found);
    std::string sentence = difference(now.zoneinfo);
    if (now.in_use)
        sentence = now.zoneinfo.path + " points to " + name_of(*now.in_use) + ", which " +
                   fault_in(*now.in_use, now.zone.name);
    else if (now.zoneinfo.is_link())
        sentence += ", which is no dataset's tree";
    sentence += now.right.is_system() ? ". Without a good update, the system partition is used."
                                      : ". The newest good update is " + now.right.name + ".";
    if (now.in_use && fault_in(*now.in_use, now.zone.name).starts_with("lacks"))
        sentence += " If the zone was renamed, set its new name instead, because the next update "
                    "will lack the old one too.";
    found.problem(sentence, make_link(now.zoneinfo, now.right.tree));
}

void check_icutz(const state& now, findings& found)
{
    const std::string& directory = now.right.icu_directory;
    if (now.right.is_system() && !now.icutz.is_missing())
        found.problem(now.icutz.path +
                          " exists, but the system partition is to be used and needs no ICU link.",
                      clear(now.icutz));
    const bool is_right = now.icutz.is_link() && (destination(now.icutz.path) == directory ||
                                                  is_same_directory(now.icutz.path, directory));
    if (!now.right.is_system() && !is_right)
        found.problem(difference(now.icutz) + ", but " + name_of(now.right) + " is to be used.",
                      make_link(now.icutz, directory));
}

void check_tz_latest(const state& now, findings& found)
{
    const verdict& latest = now.latest_verdict;
    std::string sentence = now.tz_latest.path;
    if (now.tz_latest.is_link())
        sentence += " points to " + now.tz_latest.target + ", which";
    sentence += " " + latest.fault + ".";
    if (!latest.fault.empty() && !latest.is_curable)
        return found.problem(sentence);
    const std::vector<std::string> cure =
        now.best ? make_link(now.tz_latest, now.best->path) : clear(now.tz_latest);
    if (!latest.fault.empty())
        found.problem(sentence + (now.best
                                      ? " The newest good update is " + now.best->name + "."
                                      : " No installed update can replace the system partition."),
                      cure);
    else if (now.best && now.best->version > now.right.version &&
             now.best->path != now.tz_latest.target)
        found.remark("the installed update " + now.best->name +
                         " is good and newer than what is in use, but " + now.tz_latest.path +
                         " does not point to it. To activate it, paste this and run quorrel:",
                     cure);
}

// The local zone.

// Returns what other places say of the zone, to be read after a sentence.
std::string other_zones(const state& now)
{
    std::string others;
    if (now.zone.asks_localtime || !now.zone.localtime_name.empty())
        others += "; " + difference(now.localtime);
    if (now.zone.localtime_name == paths::default_zone)
        others += ", to which a run resets a missing link";
    if (!now.zone.timezone_name.empty())
        others += "; "s + paths::etc_timezone + " says " + now.zone.timezone_name;
    return others;
}

// Returns the tree through which /etc/localtime follows updates.
std::string published_tree(const state& now)
{
    return now.publishes_usr_share ? paths::legacy_zoneinfo : paths::zoneinfo_link;
}

// Returns what somebody who knows the zone has to do, with the zone in /etc/timezone as an example.
std::string advice(const state& now)
{
    const bool asks_localtime = now.zone.asks_localtime;
    const std::string& named = now.zone.timezone_name;
    const bool exists = !named.empty() && (fault_seen_in(now.right, named).empty() ||
                                           fault_seen_in(now.system, named).empty());
    return (S_ISDIR(now.zone.link.mode) ? " Move it away, and link " : " Link ") +
           std::string(asks_localtime ? paths::localtime_link : paths::etc_localtime) +
           " to the right zone, for example " +
           (asks_localtime ? paths::zoneinfo_link : published_tree(now)) + "/" +
           (exists ? named : "Europe/Paris") + ".";
}

void check_etc_localtime(const state& now, findings& found)
{
    const local_zone& zone = now.zone;
    const std::string stays = ", so it does not change with an update";
    if (zone.link.is_mount_point && zone.is_sound)
        return found.remark(zone.link.path + " is a mount point" + stays + ".");
    if (zone.link.is_missing() && zone.name == "UTC")
        return found.remark(zone.link.path + " is missing, so the local time is UTC.");
    if (zone.name.empty())
        return found.problem("The local zone is unknown: " + difference(zone.link) +
                             other_zones(now) + "." + advice(now));
    if (now.right_zone.empty())
        return found.problem(zone.link.path + " points to " + zone.name +
                             ", but no dataset that can be used has that zone." + advice(now));
    // The link may lead somewhere else than its text says, for example with "..".
    const bool is_unsound = !zone.is_sound && zone.way.closed.empty() && now.uses(now.right);
    if (zone.link.is_link() && !is_unsound &&
        (zone.follows_published || zone.way.passes(paths::legacy_zoneinfo)))
        return;
    const std::string sentence =
        (S_ISREG(zone.link.mode) ? zone.link.path + " is a copy" : difference(zone.link)) + stays +
        ".";
    if (is_read_only("/etc"))
        return found.problem(sentence +
                             " /etc is on a read-only file system. Correct the link in the image.");
    found.problem(sentence, make_link(zone.link, published_tree(now) + "/" + zone.name));
}

void check_localtime(const state& now, findings& found)
{
    const local_zone& zone = now.zone;
    const std::string published = paths::zoneinfo_link + "/"s + zone.name;
    if (zone.name.empty() || now.right_zone.empty() || zone.link.is_missing())
        return;
    if (!zone.asks_localtime && zone.localtime_name != zone.name) {
        const std::vector<std::string> cure = make_link(now.localtime, published);
        return found.remark(difference(now.localtime) + ", but the local zone is " + zone.name +
                                (cure.empty() ? "." : ". To link it to that zone, paste this:"),
                            cure);
    }
    if (!zone.asks_localtime)
        return;
    // A run goes by the beginning of the link.
    const bool survives = now.localtime.target.starts_with(paths::zoneinfo_link) ||
                          now.localtime.target.starts_with(paths::legacy_zoneinfo + "/"s);
    if (!survives || zone.localtime_name != zone.name)
        found.problem(difference(now.localtime) + ", so the next run resets it to " +
                          paths::default_zone + ".",
                      make_link(now.localtime, published));
    else if (zone.name == paths::default_zone && zone.timezone_name.empty())
        found.remark(now.localtime.path + " points to "s + zone.name +
                     ". That may be the wrong zone, because a run resets a missing link to it.");
}

// The run at boot, last, because what is above may be why it failed.

void check_run(findings& found)
{
    if (mode_of(paths::systemd) == 0)
        return;
    if (look_at(paths::unit_mask).target == "/dev/null")
        found.problem("quorrel.service is masked, so quorrel does not run at boot. If that is not "
                      "intended, run \"systemctl unmask quorrel.service\" and \"systemctl start "
                      "quorrel.service\".");
    else if (mode_of(paths::trace_of_run) == 0)
        found.problem(
            "quorrel.service has not run since the boot, or it failed. \"systemctl status "
            "quorrel.service\" says why. When the cause is gone, run \"systemctl restart "
            "quorrel.service\".");
}

} // namespace

void findings::problem(const std::string& sentence, const std::vector<std::string>& commands)
{
    // A control character in a name could fake a command.
    const bool can_be_pasted =
        std::none_of(commands.begin(), commands.end(), has_control_character);
    problems.push_back({sentence, can_be_pasted ? commands : std::vector<std::string>()});
}

void findings::remark(const std::string& sentence, const std::vector<std::string>& commands)
{
    remarks.push_back({sentence, commands});
}

findings find_problems(const state& now)
{
    findings found;
    check_image(now, found);
    if (check_directories(now, found)) {
        check_writing(now, found);
        check_permissions(now, found);
        check_stalls(now, found);
        if (now.system_faults.empty()) {
            check_zoneinfo(now, found);
            check_icutz(now, found);
            check_tz_latest(now, found);
        }
        check_localtime(now, found);
    }
    check_etc_localtime(now, found);
    check_run(found);
    return found;
}

} // namespace quorrel::status
