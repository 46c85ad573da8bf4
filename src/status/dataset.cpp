#include "status/dataset.h"

#include "components/kelvo_icu.h"
#include "fs/paths.h"
#include "fs/small_file.h"
#include "status/route.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace quorrel::status
{
namespace
{

[[noreturn]] void cannot_look_at(const std::string& path, int error)
{
    throw std::system_error(error, std::generic_category(), path);
}

// No zone's file and no word is longer. Reading a longer word may take a run seconds.
constexpr off_t longest_file = 1 << 20;

// Returns whether there is a file to read, links followed.
bool can_read(const std::string& path)
{
    if (!S_ISREG(mode_of(path)) || may_stall(path))
        return false;
    if (access(path.c_str(), R_OK) != 0)
        cannot_look_at(path, errno);
    return true;
}

// Returns the schema of an update as a run finds it, or that of a data file which the run passes
// over because others cannot read it.
std::string find_schema(const std::string& path)
{
    try {
        if (const kelvo_icu icu(path); !icu.schema_text().empty())
            return icu.schema_text();
    } catch (int error) {
        cannot_look_at(path, error);
    }
    const std::string directory = path + paths::update_icu;
    for (const std::string& name : names_in(directory))
        if (const std::string schema = kelvo_icu::schema_in(name);
            !schema.empty() && S_ISREG(mode_of(directory + "/" + name, lstat)))
            return schema;
    return {};
}

// Parses the name. A run fails if a number in it is too big.
void read_version(dataset& data)
{
    try {
        data.version.parse(data.name);
    } catch (const std::out_of_range&) {
        data.version = {};
        data.has_too_big_number = true;
    }
}

} // namespace

dataset read_dataset(const std::string& path)
{
    dataset data;
    data.path = path;
    data.tree = path.empty() ? paths::system_zoneinfo : path + paths::update_zoneinfo;
    data.icu_directory = path.empty() ? paths::system_icu : path + paths::update_icu;
    const std::string release_file = data.tree + paths::release_file;
    data.name = path.empty() ? word_of(release_file) + ".1.0"
                             : path.substr(std::string_view(paths::update_directory).size());
    read_version(data);
    data.is_installed = path.empty() || S_ISDIR(mode_of(path));
    data.has_tree = S_ISDIR(mode_of(data.tree));
    data.stalls = may_stall(release_file);
    data.schema =
        path.empty() ? word_of(data.icu_directory + paths::icu_format_file) : find_schema(path);
    return data;
}

std::string fault_in(const dataset& data, const std::string& zone)
{
    if (!data.is_installed)
        return "is not installed";
    if (!data.has_tree)
        return "has no zoneinfo tree";
    const std::string file = data.tree + "/" + zone;
    if (zone.empty())
        return "";
    if (!can_read(file))
        return "lacks the zone " + zone;
    return is_sound_zone(content_of(file)) ? "" : "has a damaged file for the zone " + zone;
}

std::string fault_seen_in(const dataset& data, const std::string& zone)
{
    try {
        return fault_in(data, zone);
    } catch (const std::system_error&) {
        return "cannot be read";
    }
}

bool is_open_to_all(const std::string& directory)
{
    using iterator = std::filesystem::recursive_directory_iterator;
    constexpr auto skip = std::filesystem::directory_options::skip_permission_denied;
    const auto is_closed = [](const std::filesystem::path& path) {
        const mode_t mode = mode_of(path, lstat);
        return (S_ISDIR(mode) && !is_open(mode, S_IROTH | S_IXOTH)) ||
               (S_ISREG(mode) && !is_open(mode, S_IROTH));
    };
    return !S_ISDIR(mode_of(directory)) ||
           (!is_closed(directory) &&
            std::none_of(iterator(directory, skip), iterator(), is_closed));
}

bool may_stall(const std::string& path)
{
    const struct stat status = status_of(path);
    const mode_t mode = status.st_mode;
    return S_ISFIFO(mode) || S_ISCHR(mode) || S_ISBLK(mode) ||
           (S_ISREG(mode) && status.st_size > longest_file);
}

std::string word_of(const std::string& path)
{
    return can_read(path) ? fs::first_word(path) : "";
}

std::string content_of(const std::string& path)
{
    struct stat status;
    std::ostringstream content;
    if (stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_size <= longest_file)
        content << std::ifstream(path).rdbuf();
    return content.str();
}

bool is_sound_zone(const std::string& content)
{
    constexpr std::string_view magic = "TZif";
    // From version 2 on, the file ends with a rule on a line of its own.
    return content.starts_with(magic) && content.size() > magic.size() &&
           (content[magic.size()] == '\0' || content.ends_with('\n'));
}

std::vector<std::string> names_in(const std::string& directory)
{
    std::vector<std::string> names;
    if (S_ISDIR(mode_of(directory)))
        for (const auto& entry : std::filesystem::directory_iterator(directory))
            names.push_back(entry.path().filename());
    return names;
}

} // namespace quorrel::status
