#include "dataset/kelvo_dataset.h"
#include "dataset/link_resolution.h"

#include "file_tree.h"

using namespace quorrel;

const std::string updates = "/var/db/timezone/tz/";

TEST(kelvo_dataset, is_built_from_the_empty_path_or_an_update_directory_only)
{
    file_tree::settle();
    EXPECT_EQ(kelvo_dataset().version_string(), "2024a.1.0");
    for (const std::string name : {"2024b.1.0", "x", "2024b.1.0/", "/2024b.1.0"})
        EXPECT_EQ(kelvo_dataset(updates + name).version_string(), name);
    for (const std::string path : {"/var/db/timezone/tz/", "/var/db/timezone/tz_2024b.1.0",
                                   "/usr/share/zoneinfo.default", "tz/2024b.1.0"})
        EXPECT_EQ(file_tree::outcome_of([&] { kelvo_dataset dataset(path); }),
                  "kelvo_dataset::create_components: bad path " + path + "\nthrew badpath\n");
}

TEST(link_resolution, turns_a_tree_into_its_dataset_and_refuses_the_rest)
{
    EXPECT_EQ(dataset_path_from_link("/usr/share/zoneinfo.default"), "");
    for (const std::string dataset : {"2024a.1.0", "2024a.1.0/zoneinfo", "a"})
        for (const std::string tree : {"/zoneinfo", "/other", "/"})
            EXPECT_EQ(dataset_path_from_link(updates + dataset + tree), updates + dataset);
    for (const std::string target :
         {"/var/db/timezone/tz/2024a.1.0", "/var/db/timezone/tz//zoneinfo", "/var/db/timezone/tz/",
          "/var/db/timezone/tZ/2024a.1.0/zoneinfo", "/usr/share/zoneinfo.default/",
          "/usr/share/zoneinfo", "tz/2024a.1.0/zoneinfo", ""})
        EXPECT_EQ(file_tree::outcome_of([&] { (void)dataset_path_from_link(target); }),
                  "Bad zoneinfo link " + target + "\nthrew -1\n");
}
