#pragma once

#include "version/tz_version.h"

#include <string>
#include <vector>

namespace quorrel::status
{

// What there is to know of the system partition's data, or of an update, which need not be
// installed.
struct dataset {
    std::string path; // as for kelvo_dataset: empty for the system partition
    std::string name; // the version as text
    std::string tree, icu_directory;
    tz_version version; // unset if the name is none
    bool has_too_big_number = false;
    bool is_installed = false, has_tree = false;
    bool stalls = false; // reading its release may stall a run: a pipe, a device or a huge file
    std::string schema;  // of its ICU data, even if others cannot read that

    [[nodiscard]] bool is_system() const { return path.empty(); }
};

// Reads the update in a directory, or the system partition's dataset if the path is empty. Throws
// std::system_error for what cannot be looked at.
[[nodiscard]] dataset read_dataset(const std::string& path);

// Returns why programs cannot use a dataset for the zone, in words that follow its name, or an
// empty string if they can. An empty zone is in every tree.
[[nodiscard]] std::string fault_in(const dataset& data, const std::string& zone);

// The same, but data that this user cannot read has that fault, and nothing is thrown.
[[nodiscard]] std::string fault_seen_in(const dataset& data, const std::string& zone);

// Returns whether everybody can read all that is in a directory. The targets of links are not
// looked at.
[[nodiscard]] bool is_open_to_all(const std::string& directory);

// Returns whether reading what is at the path may never end, or not soon: a named pipe, a device,
// or a file of more than a megabyte.
[[nodiscard]] bool may_stall(const std::string& path);

// Returns the first word of a regular file, or an empty string.
[[nodiscard]] std::string word_of(const std::string& path);

// Returns the content of a regular file of at most a megabyte, or an empty string if there is none
// that can be read.
[[nodiscard]] std::string content_of(const std::string& path);

// Returns whether the content is a compiled zone that was not cut short.
[[nodiscard]] bool is_sound_zone(const std::string& content);

// Returns the names in a directory; none if it is missing.
[[nodiscard]] std::vector<std::string> names_in(const std::string& directory);

} // namespace quorrel::status
