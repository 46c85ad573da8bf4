#include "dataset/kelvo_dataset.h"

#include "components/kelvo_icu.h"
#include "components/kelvo_zoneinfo.h"
#include "fs/paths.h"

#include <err.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace quorrel
{

kelvo_dataset::kelvo_dataset(const std::string& directory) : path(directory)
{
    create_components();
}

void kelvo_dataset::create_components()
{
    // The system partition's release, for example 2024a, is treated as version 2024a.1.0.
    constexpr char system_suffix[] = ".1.0";
    constexpr std::string_view updates = paths::update_directory;

    const auto zoneinfo = std::make_shared<kelvo_zoneinfo>(path);
    if (path.empty()) {
        version_string_ = zoneinfo->release() + system_suffix;
    } else if (path.starts_with(updates) && path.size() > updates.size()) {
        version_string_ = path.substr(updates.size());
    } else {
        warn("kelvo_dataset::create_components: bad path %s", path.c_str());
        throw std::invalid_argument("badpath");
    }
    version.parse(version_string_);
    components.push_back(zoneinfo);
    components.push_back(std::make_shared<kelvo_icu>(path));
}

void kelvo_dataset::reset_to_system_partition()
{
    kelvo_dataset().publish_links();
}

bool kelvo_dataset::compatible(const kelvo_dataset& other) const
{
    return std::equal(
        components.begin(), components.end(), other.components.begin(), other.components.end(),
        [](const auto& mine, const auto& theirs) { return mine->compatible_schema(*theirs); });
}

void kelvo_dataset::publish_links() const
{
    for (const auto& component : components)
        component->publish_link();
}

} // namespace quorrel
