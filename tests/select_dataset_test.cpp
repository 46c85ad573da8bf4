#include "dataset/cleanup_marker.h"

#include "disk.h"
#include "run.h"

#include <filesystem>

TEST(select_dataset, decides_by_schema_and_version)
{
    // Printed.
    const std::string bad_path = "kelvo_dataset::create_components: bad path ";
    const std::string no_version =
        "Cannot parse version string /, results.size() = 0\n"
        "Cannot parse version string /\nNo ICU schema found for ~/tz//\n";
    const std::string no_schema = "No ICU schema found for ~/tz/2022a\n";
    const std::string started_over = "Invalid current symlinks; resetting to system partition\n";
    const std::string no_link = "Bad zoneinfo link \n" + started_over;
    const std::string zoneinfo_unread = "read_symlink: ~/zoneinfo\n" + started_over;
    const std::string latest_unread = "read_symlink: ~/tz_latest\n"; // before the zoneinfo link
    const std::string out_of_use = "Symlink points at data incompatible with installed system\n";
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
    const std::string zoneinfo_reset = "~/zoneinfo -> /usr/share/zoneinfo.default\n";
    const std::string reset = zoneinfo_reset + "~/icutz nothing\n";
    const std::string marked = "~/needs_cleanup file 644 \n";
    const std::string legacy_gone = "/var/db/icutz nothing\n";
    const auto published = [](const std::string& update) {
        return "~/zoneinfo -> ~/tz/" + update + "/zoneinfo\n~/icutz -> ~/tz/" + update + "/icutz\n";
    };
    const auto activated = [&](const std::string& previous, const std::string& update,
                               const std::string& marker) {
        return published(update) + marker + "~/TZVersionDiffRecord file 644 " + previous + "_" +
               update + "\n";
    };

    const struct {
        std::string rule, in_use, latest, outcome, directory_at = nothing;
    } cases[] = {
        {"a newer update is activated", "2024b", "2024c", activated("2024b", "2024c", marked)},
        {"an update as old as the system partition stays", "2024a.1.0", "2024b",
         activated("2024a.1.0", "2024b", marked)},
        {"the latest is in use", "2024b", "2024b", refused + "2024b vs. 2024b\n"},
        {"the latest has another schema", "2024b", "2024d", refused + "2024d vs. 2024b\n"},
        {"another schema in use", "2024d", "2024e",
         out_of_use + activated("2024a.1.0", "2024e", marked)},
        {"the latest is older than the one taken out of use", "2024d", "2024b",
         out_of_use + refused + "2024b vs. 2024d\n" + reset + marked},
        {"the latest is in use, but older than the system partition", "2023z", "2023z",
         out_of_use + refused + "2023z vs. 2023z\n" + reset + marked},
        {"the latest is older than the system partition, but newer than the one in use", "2023z",
         "2024a", out_of_use + activated("2024a.1.0", "2024a", marked)},
        {"the one in use is gone", "2022a", nothing, no_schema + out_of_use + reset + marked},
        {"a first run, without a link", nothing, "2024b",
         no_link + activated("2024a.1.0", "2024b", "")},
        {"an update older than the system partition", nothing, "2023z",
         no_link + refused + "2023z vs. 2024a.1.0\n" + zoneinfo_reset},
        {"tz_latest points to tz/ itself", "2023z", "",
         out_of_use + bad_path + "~/tz/\n" + lost + reset + marked},
        {"tz_latest points elsewhere", "2024b", "/var/db/timezone/tZ/2024c",
         bad_path + "~/tZ/2024c\n" + lost + reset},
        {"tz_latest is relative", "2024b", "tz/2024c", bad_path + "tz/2024c\n" + lost + reset},
        {"tz_latest points to no version", "2024b", "/var/db/timezone/tz//",
         no_version + refused + "/ vs. 2024b\n"},
        {"a number out of range", "2024b", "2147483648a", lost + reset},
        // With a directory in the way, and a legacy ICU link that dangles.
        {"no record can be written", "2024b", "2024c", published("2024c") + marked + legacy_gone,
         "TZVersionDiffRecord"},
        {"no marker can be made", "2024b", "2024c",
         untouched + activated("2024b", "2024c", "") + legacy_gone, "needs_cleanup"},
        {"icutz cannot be replaced", "2024b", "2024c",
         icutz_stuck + icutz_blocked + lost + icutz_stuck + zoneinfo_reset, "icutz"},
        {"zoneinfo cannot be replaced", "2024b", nothing,
         zoneinfo_unread + zoneinfo_stuck + lost + zoneinfo_stuck, "zoneinfo"},
        {"tz_latest is read first", nothing, "2024c",
         latest_unread + lost + zoneinfo_reset + legacy_gone, "tz_latest"},
    };
    for (const auto& [rule, in_use, latest, outcome, directory_at] : cases) {
        fresh_disk(in_use, latest);
        if (directory_at != nothing) {
            put(directory_at, directory);
            put("/var/db/icutz", "-> /var/no");
        }
        EXPECT_EQ(run(), outcome) << rule;
    }

    fresh_disk("2024b", "2024c");
    put("tz/2024b/zoneinfo", nothing);
    put("tz/2024c/zoneinfo", nothing);
    EXPECT_EQ(run(), activated("2024b", "2024c", marked)) << "no rule looks at trees";
}

TEST(select_dataset, leaves_a_marker_as_it_is)
{
    const std::filesystem::path marker = "/var/db/timezone/needs_cleanup";
    fresh_disk();
    put("needs_cleanup", "content");
    const auto an_hour_ago = last_write_time(marker) - std::chrono::hours(1);
    last_write_time(marker, an_hour_ago);
    EXPECT_EQ(warnings_of(quorrel::touch_needs_cleanup), "");
    EXPECT_EQ(last_write_time(marker), an_hour_ago);
    EXPECT_EQ(file_size(marker), 7);
    put("needs_cleanup", directory);
    EXPECT_EQ(warnings_of(quorrel::touch_needs_cleanup, with_error_texts),
              "Cannot touch file ~/needs_cleanup: Is a directory\n");
}
