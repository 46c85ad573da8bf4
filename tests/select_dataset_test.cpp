#include "dataset/cleanup_marker.h"

#include "file_tree.h"

#include <filesystem>

TEST(select_dataset, decides_by_schema_and_version)
{
    // Printed.
    const std::string bad_path = "kelvo_dataset::create_components: bad path ";
    const std::string no_version =
        "Cannot parse version string /, results.size() = 0\n"
        "Cannot parse version string /\nNo ICU schema found for ~/tz//\n";
    const std::string started_over = "Invalid current symlinks; resetting to system partition\n";
    const std::string no_link = "Bad zoneinfo link \n" + started_over;
    const std::string zoneinfo_unread = "read_symlink: ~/zoneinfo\n" + started_over;
    const std::string latest_unread = "read_symlink: ~/tz_latest\n"; // before the zoneinfo link
    const std::string given_up = "Symlink points at data incompatible with installed system\n";
    const std::string refused = "New update not compatible or older version: ";
    const std::string lost = "Unable to locate data; resetting to system partition\n";
    const std::string untouched = "Cannot touch file ~/needs_cleanup\n";
    const std::string zoneinfo_stuck =
        "remove: could not remove ~/zoneinfo\nUnlink of zoneinfo softlink failed\n"
        "create_symlink: from ~/zoneinfo to /usr/share/zoneinfo.default\n";
    const std::string icutz_stuck =
        "remove: could not remove ~/icutz\nunlink of ICU softlink failed\n";
    const std::string icutz_blocked = "create_symlink: from ~/icutz to ~/tz/2024c/icutz\n";
    // Changed.
    const std::string zoneinfo_reset = "zoneinfo -> /usr/share/zoneinfo.default\n";
    const std::string reset = zoneinfo_reset + "icutz nothing\n";
    const std::string marked = "needs_cleanup file \n", recorded = "TZVersionDiffRecord file ";
    const std::string legacy_gone = "/var/db/icutz nothing\n";
    const auto published = [](const std::string& update) {
        return "zoneinfo -> ~/tz/" + update + "/zoneinfo\nicutz -> ~/tz/" + update + "/icutz\n";
    };

    const struct {
        std::string in_use, latest, outcome, directory_at = nothing;
    } cases[] = {
        {"2024a.1.0", "2024b", published("2024b") + marked + recorded + "2024a.1.0_2024b\n"},
        {"system", "2024b", published("2024b") + recorded + "2024a.1.0_2024b\n"},
        {"2024b", "2024c", published("2024c") + marked + recorded + "2024b_2024c\n"},
        {"2024b", "2024b", refused + "2024b vs. 2024b\n"},
        {"2024b", "2024d", refused + "2024d vs. 2024b\n"},
        {"2024d", "2024e", given_up + published("2024e") + marked + recorded + "2024a.1.0_2024e\n"},
        // The latest is compared with the dataset that was given up, not with the one in use.
        {"2024d", "2024b", given_up + refused + "2024b vs. 2024d\n" + reset + marked},
        {"2023z", "2024a", given_up + published("2024a") + marked + recorded + "2024a.1.0_2024a\n"},
        {nothing, "2024b", no_link + published("2024b") + recorded + "2024a.1.0_2024b\n"},
        {nothing, "2023z", no_link + refused + "2023z vs. 2024a.1.0\n" + zoneinfo_reset},
        {"2023z", "", given_up + bad_path + "~/tz/\n" + lost + reset + marked},
        {"2024b", "/usr/share/zoneinfo.default",
         bad_path + "/usr/share/zoneinfo.default\n" + lost + reset},
        {"2024b", "/var/db/timezone/tz//", no_version + refused + "/ vs. 2024b\n"},
        {"2024b", "2147483648a", lost + reset},
        // With a directory in the way, and a dangling legacy ICU link.
        {"2024b", "2024c", published("2024c") + marked + legacy_gone, "TZVersionDiffRecord"},
        {"2024b", "2024c",
         untouched + published("2024c") + recorded + "2024b_2024c\n" + legacy_gone,
         "needs_cleanup"},
        {"2024b", "2024c", icutz_stuck + icutz_blocked + lost + icutz_stuck + zoneinfo_reset,
         "icutz"},
        {"2023z", nothing, given_up + icutz_stuck + zoneinfo_reset + marked, "icutz"},
        {"2024b", nothing, zoneinfo_unread + zoneinfo_stuck + lost + zoneinfo_stuck, "zoneinfo"},
        {nothing, "2024c", latest_unread + lost + zoneinfo_reset + legacy_gone, "tz_latest"},
    };
    for (const auto& [in_use, latest, outcome, directory_at] : cases) {
        fresh_disk(in_use, latest);
        if (directory_at != nothing) {
            put(directory_at, directory);
            put("/var/db/icutz", "-> /var/no");
        }
        EXPECT_EQ(start(), outcome) << in_use << " in use, " << latest << ", " << directory_at;
    }
}

TEST(select_dataset, creates_the_marker_or_leaves_it_as_it_is)
{
    const std::filesystem::path marker = "/var/db/timezone/needs_cleanup";
    fresh_disk();
    umask(026);
    quorrel::touch_needs_cleanup();
    EXPECT_EQ(static_cast<unsigned>(status(marker).permissions()), 0640U);

    put("needs_cleanup", "content");
    last_write_time(marker, {});
    EXPECT_EQ(warnings_of(quorrel::touch_needs_cleanup), "");
    EXPECT_TRUE(last_write_time(marker) == std::filesystem::file_time_type()) << "it was changed";
}
