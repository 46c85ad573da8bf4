#include "status/route.h"

#include "fs/primitives.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace quorrel::status
{
namespace
{

// Linux follows no more links than this.
constexpr int most_links = 40;

std::string normal(const std::filesystem::path& path)
{
    return path.lexically_normal();
}

bool is_mount_point(const std::string& path)
{
    std::ifstream mounts("/proc/self/mountinfo");
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::string id, parent, device, root, mount_point;
        if (fields >> id >> parent >> device >> root >> mount_point && mount_point == path)
            return true;
    }
    return false;
}

// Returns the first part of the path that is a link, or an empty string at its end. Notes the mode,
// and what is closed on the way.
std::string find_link(const std::string& path, route& way)
{
    std::size_t end = 1;
    do {
        end = path.find('/', end + 1);
        const std::string part = path.substr(0, end);
        way.mode = mode_of(part, lstat);
        if (S_ISLNK(way.mode))
            return part;
        if (!is_open(way.mode, S_ISDIR(way.mode) ? S_IXOTH : S_IROTH))
            way.closed.push_back(part);
        if (!S_ISDIR(way.mode) && end != path.npos)
            way.mode = 0;
    } while (way.mode != 0 && end != path.npos);
    return {};
}

} // namespace

struct stat status_of(const std::string& path, decltype(stat) look)
{
    struct stat status = {};
    if (look(path.c_str(), &status) != 0 && errno != ENOENT && errno != ENOTDIR && errno != ELOOP &&
        errno != ENAMETOOLONG)
        throw std::system_error(errno, std::generic_category(), path);
    return status;
}

mode_t mode_of(const std::string& path, decltype(stat) look)
{
    return status_of(path, look).st_mode;
}

bool is_open(mode_t mode, mode_t permissions)
{
    const mode_t everybody = permissions | permissions << 3 | permissions << 6;
    return mode == 0 || (mode & everybody) == everybody;
}

std::string destination(const std::string& link)
{
    return normal(std::filesystem::path(link).parent_path() / look_at(link).target);
}

place look_at(const std::string& path)
{
    place result = {path, mode_of(path, lstat), {}, false};
    result.is_mount_point = !result.is_link() && is_mount_point(path);
    try {
        if (result.is_link())
            result.target = fs::read_symlink(path);
    } catch (int error) {
        throw std::system_error(error, std::generic_category(), path);
    }
    return result;
}

bool is_within(const std::string& path, const std::string& top)
{
    return path == top || path.starts_with(top + "/");
}

bool route::passes(const std::string& path) const
{
    return std::any_of(stations.begin(), stations.end(),
                       [&](const std::string& station) { return is_within(station, path); });
}

route follow(const std::string& path)
{
    route way;
    std::string rest = normal(path);
    for (int links = 0; links <= most_links; ++links) {
        way.stations.push_back(rest);
        const std::string link = find_link(rest, way);
        if (link.empty())
            return way;
        rest = normal(destination(link) + rest.substr(link.size()));
    }
    way.mode = 0;
    return way;
}

} // namespace quorrel::status
