#pragma once

#include "components/kelvo_dataset_component.h"
#include "version/tz_version.h"

#include <memory>
#include <string>
#include <vector>

namespace quorrel
{

// A set of time-zone data that the system could use: the system partition's, or that of one update
// installed below /var/db/timezone/tz/.
class kelvo_dataset
{
public:
    // The dataset in the given directory: "/var/db/timezone/tz/" and an update's version string, or
    // the empty path, which stands for the system partition.
    //
    // Any other path prints "kelvo_dataset::create_components: bad path PATH" and throws
    // std::invalid_argument("badpath"). Otherwise prints and throws as tz_version::parse does, and
    // then as kelvo_icu does. A name that is no version string leaves the version unset.
    explicit kelvo_dataset(const std::string& directory = {});

    kelvo_dataset(const kelvo_dataset&) = delete;
    kelvo_dataset& operator=(const kelvo_dataset&) = delete;

    // Publishes a freshly built system partition dataset. Prints and throws as building and
    // publishing one do.
    static void reset_to_system_partition();

    // Tells whether this dataset's components may be used with those of `other`, each with the one
    // in the same place.
    [[nodiscard]] bool compatible(const kelvo_dataset& other) const;

    // The version as text, "2024b.1.0": the name of an update's directory, or the system
    // partition's release and ".1.0".
    [[nodiscard]] std::string version_string() const { return version_string_; }

    // Publishes the components' links in their order. Prints and throws as the components do; the
    // first that throws ends it, and links published before stay.
    void publish_links() const;

    // Equal datasets are the same directory, greater ones are newer. So two datasets of the same
    // version are neither equal nor greater.
    friend bool operator==(const kelvo_dataset& left, const kelvo_dataset& right)
    {
        return left.path == right.path;
    }
    friend bool operator>(const kelvo_dataset& left, const kelvo_dataset& right)
    {
        return left.version > right.version;
    }

private:
    void create_components();

    tz_version version;
    std::string version_string_;
    std::string path;
    std::vector<std::shared_ptr<kelvo_dataset_component>> components; // zoneinfo, then ICU
};

} // namespace quorrel
