#pragma once

#include "version/tz_version.h"

#include <sys/stat.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

// What quorrel-status judges: everything that it looks at, read once into one value; but whether a
// new name is free is seen when a command is made.
namespace quorrel::status
{

// What is at a path, without following a symbolic link.
struct entry {
    std::string path;
    mode_t mode;        // 0 if nothing is there
    std::string target; // of a link

    [[nodiscard]] bool is_missing() const { return mode == 0; }
    [[nodiscard]] bool is_link() const { return S_ISLNK(mode); }
    [[nodiscard]] bool is_file() const { return S_ISREG(mode); }
};

// A small file of the system partition whose first word a run reads.
struct word_file {
    entry at;
    bool is_regular;  // a link is followed
    std::string word; // empty if it is not a regular file
};

// The system partition's data, or an update, which need not be installed.
struct dataset {
    std::string path; // as for kelvo_dataset: empty for the system partition
    std::string name; // the version as text, as kelvo_dataset has it
    std::string tree, icu_directory;
    tz_version version; // unset if the name is none
    bool has_too_big_number;
    bool is_installed, has_tree;
    bool stalls;                   // a run that reads its release: a named pipe or a device
    bool has_zone;                 // the local one
    std::set<std::string> schemas; // of its data files, readable or not
    std::string unreadable;        // something in it that others cannot read, or empty; known of
                                   // what is in use, the latest, the best, and the system
                                   // partition if there is no best

    [[nodiscard]] bool is_system() const { return path.empty(); }
};

struct disk {
    entry zoneinfo, icutz, localtime, tz_latest, legacy_icu_link, etc_localtime;
    entry data_directory;
    bool has_data_directory, data_is_read_only;
    bool root_may_write; // in the data directory, without special privileges
    bool root_owns_data_directory;
    std::string closed_directories;   // on the way to data, which others cannot enter; or empty
    bool publishes_usr_share;         // /usr/share/zoneinfo is a link to the zoneinfo link
    bool etc_leads_to_published_tree; // /etc/localtime does

    dataset system;
    entry icu_directory; // the system partition's
    bool has_icu_directory;
    word_file release, schema;
    std::string built_release; // the release in the comments of the system's tree, or empty
    bool system_is_read_only;

    std::vector<dataset> updates;         // those that are installed, the oldest first
    std::optional<dataset> in_use;        // none if the zoneinfo link names none
    std::optional<dataset> latest;        // none if tz_latest names none
    std::optional<dataset> best;          // the newest good update
    std::string version_after_next_run;   // "unknown" if a run would stall; empty if none
    std::string localtime_zone, etc_zone; // the zone that each link names, or an empty string
    std::string zone;                     // the local zone, as far as it is known
};

// Reads the disk. Throws std::system_error, with the path, if something cannot be looked at, and
// std::bad_alloc.
[[nodiscard]] disk read_disk();

} // namespace quorrel::status
