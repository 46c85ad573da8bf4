#include "boot/protect_data_directories.h"

#include "file_tree.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdarg>

TEST(boot, keeps_corrects_or_resets_the_localtime_link)
{
    const std::string tree = "-> /var/db/timezone/zoneinfo";
    const std::string corrected = "Correcting localtime link to ~/zoneinfo";
    const std::string refused = "localtime link invalid; resetting to America/Los_Angeles\n";
    const std::string reset = refused + "localtime -> ~/zoneinfo/America/Los_Angeles\n";
    const std::string blocked =
        "create_symlink: from ~/localtime to ~/zoneinfo/America/Los_Angeles\n";
    const std::pair<std::string, std::string> outcomes[] = {
        {tree + "/No", unchanged},
        {tree, unchanged},
        {"-> /var/db/timezone/zoneinf", reset},
        {"-> /usr/share/zoneinfo/Zone", corrected + "/Zone\nlocaltime -> ~/zoneinfo/Zone\n"},
        {"-> /usr/share/zoneinfo/No", corrected + "/No\n" + reset},
        {"-> /usr/share/zoneinfo.default/Zone", corrected + ".default/Zone\n" + reset},
        {"-> /usr/share/zoneinf", reset},
        {nothing, reset},
        {empty_directory, "read_symlink: ~/localtime\n" + reset},
        {directory, "read_symlink: ~/localtime\n" + refused + blocked},
    };
    for (const auto& [localtime, outcome] : outcomes) {
        fresh_disk("2024b"); // which has no America/Los_Angeles
        put("localtime", localtime);
        EXPECT_EQ(start(), outcome) << localtime;
    }
}

TEST(boot, migrates_and_removes_the_legacy_icu_link)
{
    const std::string gone = "/var/db/icutz nothing\n";
    const std::string failed = "Could not migrate /var/db/icutz to ~/icutz\n";
    const std::string blocked = "create_symlink: from ~/icutz to timezone\n" + failed;
    const std::string unreadable = "read_symlink: /var/db/icutz\n" + failed;
    const std::string cases[][3] = {
        // The target resolves in /var/db only, but it is copied as it is.
        {"-> timezone", nothing, "icutz -> timezone\n" + gone},
        {"-> timezone", "-> /var", gone},
        {"-> timezone", "-> /var/no", blocked + gone},
        {"-> /var/no", nothing, unchanged},
        {directory, nothing,
         unreadable + "remove: could not remove /var/db/icutz\nCould not remove /var/db/icutz\n"},
    };
    for (const auto& [legacy, current, outcome] : cases) {
        fresh_disk();
        put("/var/db/icutz", legacy);
        put("icutz", current);
        EXPECT_EQ(start(), outcome) << legacy << current;
    }
}

std::string protections;

// Replaces the C library's in the test program, to record a command that only some systems have.
extern "C" int fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    const std::string place = faccessat(descriptor, "tz", F_OK, 0) == 0 ? "data" : "updates";
    if (command == 64)
        protections += place + " " + std::to_string(va_arg(arguments, int)) + "\n";
    va_end(arguments);
    return 0;
}

TEST(boot, protects_the_data_directories)
{
    fresh_disk();
    close(0); // the next descriptor to be used
    quorrel::protect_data_directories();
    EXPECT_EQ(protections, "data 4\nupdates 4\n");
    EXPECT_EQ(dup(1), 0) << "a descriptor stays open";
    put("tz", "a file, which is no directory");
    quorrel::protect_data_directories();
    EXPECT_EQ(protections, "data 4\nupdates 4\ndata 4\n");
}
