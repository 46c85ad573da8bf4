#include "dataset/kelvo_dataset.h"

#include "file_tree.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace quorrel;

namespace
{

const std::string updates = "/var/db/timezone/tz/";

TEST(kelvo_dataset, path_decides_between_system_partition_update_and_bad_path)
{
    file_tree::clear();
    file_tree::system_partition("2024a");
    EXPECT_EQ(kelvo_dataset().version_string(), "2024a.1.0");
    for (const std::string name : {"2024b.1.0", "x", "2024b.1.0/", "/2024b.1.0", "a/b"})
        EXPECT_EQ(kelvo_dataset(updates + name).version_string(), name);
    for (const std::string path :
         {"/var/db/timezone/tz/", "/var/db/timezone/tz_2024b.1.0", "/usr/share/zoneinfo.default",
          "/", "tz/2024b.1.0", "/var/db/timezone/TZ/2024b.1.0"}) {
        const auto build = [&] {
            EXPECT_THROW(kelvo_dataset dataset(path), std::invalid_argument);
        };
        EXPECT_EQ(file_tree::warnings_of(build),
                  "kelvo_dataset::create_components: bad path " + path + "\n");
    }
    const auto out_of_range = [] {
        EXPECT_THROW(kelvo_dataset dataset(updates + "2147483648a.1.0"), std::out_of_range);
    };
    EXPECT_EQ(file_tree::warnings_of(out_of_range), "");
}

TEST(kelvo_dataset, is_equal_by_path_greater_by_version_and_compatible_by_schema)
{
    file_tree::clear();
    file_tree::system_partition("2024a");
    file_tree::update("2024a.1.0");
    file_tree::update("2024b.1.0", "icutz44b.dat");
    const kelvo_dataset system, same(updates + "2024a.1.0"), newer(updates + "2024b.1.0");
    EXPECT_TRUE(system == kelvo_dataset() && newer == kelvo_dataset(updates + "2024b.1.0"));
    EXPECT_TRUE(system != same && !(same > system) && !(system > same));
    EXPECT_TRUE(newer > system && !(system > newer));
    EXPECT_TRUE(same.compatible(system) && !newer.compatible(system));
}

} // namespace
