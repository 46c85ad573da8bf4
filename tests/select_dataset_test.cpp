#include "dataset/cleanup_marker.h"

#include "file_tree.h"

const std::string updates = "-> /var/db/timezone/tz/";
const std::string system_tree = "-> /usr/share/zoneinfo.default";

// A disk with system partition 2024a.1.0 and updates older, equal and newer; 2024d has another ICU
// schema. The links name an update, or "system", or there is "nothing".
void disk_with(const std::string& current, const std::string& latest)
{
    settle();
    for (const std::string version : {"2023z", "2024a.1.0", "2024b", "2024c", "2024e"})
        update(version);
    update("2024d", "icutz44b.dat");
    put("TZVersionDiffRecord", "before");
    put("needs_cleanup", "of an earlier start");
    put("/var/db/icu", "-> /no");
    if (current != "system") {
        put("zoneinfo", current == "nothing" ? current : updates + current + "/zoneinfo");
        put("icutz", updates + current + "/icutz");
    }
    put("tz_latest", latest == "nothing" ? latest : updates + latest);
}

TEST(select_dataset, decides_by_schema_and_version)
{
    const std::string given_up = "Symlink points at data incompatible with installed system\n";
    const std::string reset = "Bad zoneinfo link \nInvalid current symlinks; resetting to system "
                              "partition\n";
    const std::string lost = "Unable to locate data; resetting to system partition\n";
    const std::string bad_path =
        "kelvo_dataset::create_components: bad path /var/db/timezone/tz/\n";
    const auto refused = [](const std::string& versions) {
        return "New update not compatible or older version: " + versions + "\n";
    };
    // In use, latest; printed; published, marker, record.
    const std::string cases[][6] = {
        {"system", "nothing", "", "system", "nothing", "before"},
        {"2024a.1.0", "nothing", "", "2024a.1.0", "nothing", "before"},
        {"system", "2024b", "", "2024b", "nothing", "2024a.1.0_2024b"},
        {"2024b", "2024c", "", "2024c", "", "2024b_2024c"},
        {"2024b", "2024b", refused("2024b vs. 2024b"), "2024b", "nothing", "before"},
        {"2024b", "2024d", refused("2024d vs. 2024b"), "2024b", "nothing", "before"},
        {"2023z", "nothing", given_up, "system", "", "before"},
        {"2023z", "2024b", given_up, "2024b", "", "2024a.1.0_2024b"},
        {"2024d", "2024e", given_up, "2024e", "", "2024a.1.0_2024e"},
        {"2023z", "2023z", given_up + refused("2023z vs. 2023z"), "system", "", "before"},
        // The latest is measured against the dataset that was given up, not the one in use.
        {"2024d", "2024b", given_up + refused("2024b vs. 2024d"), "system", "", "before"},
        {"2023z", "2024a.1.0", given_up, "2024a.1.0", "", "2024a.1.0_2024a.1.0"},
        {"nothing", "2024b", reset, "2024b", "nothing", "2024a.1.0_2024b"},
        {"nothing", "2023z", reset + refused("2023z vs. 2024a.1.0"), "system", "nothing", "before"},
        {"2024b", "", bad_path + lost, "system", "nothing", "before"},
        {"2024b", "2147483648a", lost, "system", "nothing", "before"},
    };
    for (const auto& [current, latest, printed, published, marker, record] : cases) {
        SCOPED_TRACE(current + " in use, " + latest + " the latest");
        disk_with(current, latest);
        EXPECT_EQ(start(), printed);
        const std::string update = updates + published;
        EXPECT_EQ(at("zoneinfo"), published == "system" ? system_tree : update + "/zoneinfo");
        EXPECT_EQ(at("icutz"), published == "system" ? "nothing" : update + "/icutz");
        EXPECT_EQ(at("/var/db/icu"), "nothing");
        EXPECT_EQ(at("needs_cleanup"), marker);
        EXPECT_EQ(at("TZVersionDiffRecord"), record);
    }
}

TEST(select_dataset, goes_on_when_something_is_in_the_way)
{
    const auto start_with_directory_at = [](const std::string& name) {
        disk_with("2024b", "2024c");
        put(name, "directory");
        put("/var/db/icutz", "-> /no");
        return start();
    };
    const std::string lost = "Unable to locate data; resetting to system partition\n";
    const std::string icu = "remove: could not remove /var/db/timezone/icutz\n"
                            "unlink of ICU softlink failed\n";
    const std::string zoneinfo =
        "remove: could not remove /var/db/timezone/zoneinfo\nUnlink of zoneinfo softlink failed\n"
        "create_symlink: from /var/db/timezone/zoneinfo to /usr/share/zoneinfo.default\n";

    EXPECT_EQ(start_with_directory_at("TZVersionDiffRecord"), "");
    EXPECT_EQ(at("/var/db/icutz"), "nothing");
    start_with_directory_at("needs_cleanup");
    EXPECT_EQ(at("TZVersionDiffRecord"), "2024b_2024c");
    EXPECT_EQ(outcome_of(quorrel::touch_needs_cleanup, true),
              "Cannot touch file /var/db/timezone/needs_cleanup: Is a directory\n");

    const std::string printed = start_with_directory_at("icutz");
    EXPECT_TRUE(printed.starts_with(icu + "create_symlink: ") && printed.ends_with(lost + icu));
    EXPECT_EQ(at("zoneinfo"), system_tree);
    EXPECT_EQ(at("/var/db/icutz"), "-> /no") << "the first failure ends the removals";
    EXPECT_EQ(at("needs_cleanup"), "nothing") << "it comes after the links";

    EXPECT_TRUE(start_with_directory_at("zoneinfo").ends_with(zoneinfo + lost + zoneinfo));
    EXPECT_EQ(at("icutz"), "-> /var/db/timezone/tz/2024b/icutz") << "it comes second";
    disk_with("nothing", "nothing");
    put("tz_latest", "directory");
    EXPECT_EQ(start(), "read_symlink: /var/db/timezone/tz_latest\n" + lost) << "it is read first";
}
