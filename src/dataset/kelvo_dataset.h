#pragma once

#include "components/kelvo_dataset_component.h"
#include "version/tz_version.h"

#include <memory>
#include <string>
#include <vector>

namespace quorrel
{

// A set of time-zone data that the system could use: the system partition's, or that of an update
// installed in /var/db/timezone/tz/.
class kelvo_dataset
{
public:
    // Builds the dataset in a directory: "/var/db/timezone/tz/" followed by an update's version
    // string, or the empty path, which stands for the system partition.
    //
    // Warns of any other path and throws std::invalid_argument("badpath"). Otherwise warns and
    // throws as tz_version::parse does, and then as kelvo_icu does. A name that is no version
    // string leaves the version unset.
    explicit kelvo_dataset(const std::string& directory = {});

    kelvo_dataset(const kelvo_dataset&) = delete;
    kelvo_dataset& operator=(const kelvo_dataset&) = delete;

    // Publishes a newly built system partition dataset. Warns and throws as building and publishing
    // it do.
    static void reset_to_system_partition();

    // Returns whether libraries that read `other`'s data can read this data too, component by
    // component. Warns of nothing and throws nothing.
    [[nodiscard]] bool compatible(const kelvo_dataset& other) const;

    // Returns the version as text, for example "2024b.1.0": the name of an update's directory, or
    // the system partition's release followed by ".1.0".
    [[nodiscard]] std::string version_string() const { return version_string_; }

    // Publishes the components' links in order. Warns and throws as the components do. The first
    // throw ends it; links already published are not taken back.
    void publish_links() const;

    // Datasets are equal if they are in the same directory, and greater if they are newer.
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
