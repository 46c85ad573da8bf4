#include "dataset/link_resolution.h"

#include "fs/paths.h"
#include "fs/primitives.h"

#include <err.h>

#include <string_view>

namespace quorrel
{

std::string latest_update_path()
{
    return fs::read_symlink(paths::latest_update_link);
}

std::string current_dataset_path()
{
    return dataset_path_from_link(fs::read_symlink(paths::zoneinfo_link));
}

std::string dataset_path_from_link(const std::string& target)
{
    constexpr int no_dataset = -1;
    constexpr std::string_view updates = paths::update_directory;

    if (target == paths::system_zoneinfo)
        return {};
    // An update's dataset is the directory that holds the tree, if that is still below `updates`.
    const std::string::size_type last_slash = target.rfind('/');
    if (target.starts_with(updates) && last_slash > updates.size())
        return target.substr(0, last_slash);

    warn("Bad zoneinfo link %s", target.c_str());
    throw no_dataset;
}

} // namespace quorrel
