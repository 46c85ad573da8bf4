#pragma once

#include "components/kelvo_dataset_component.h"

namespace quorrel
{

// The compiled zoneinfo tree of a dataset, published as /var/db/timezone/zoneinfo.
class kelvo_zoneinfo final : public kelvo_dataset_component
{
public:
    // Finds the tree of an update, or of the system partition if the path is empty, and reads its
    // release. Warns of nothing; may throw std::bad_alloc.
    explicit kelvo_zoneinfo(const std::string& path = {});

    // Returns the tz release that the tree's +VERSION file names, for example "2024a", or an empty
    // string if the file is missing, empty or unreadable.
    [[nodiscard]] std::string release() const { return release_; }

    // Returns true: all zoneinfo trees have one format.
    [[nodiscard]] bool compatible_schema(const kelvo_dataset_component& other) const override;

    void publish_link() const override;

private:
    std::string zoneinfo_dir;
    std::string release_;
};

} // namespace quorrel
