#include "disk.h"
#include "run.h"

TEST(boot, migrates_and_removes_the_legacy_icu_link)
{
    const std::string gone = "/var/db/icutz nothing\n";
    const std::string failed = "Could not migrate /var/db/icutz to ~/icutz\n";
    const struct {
        std::string rule, legacy_link, link, outcome;
    } cases[] = {
        {"the target is copied as it is, even if it resolves in /var/db only", "-> timezone",
         nothing, "~/icutz -> timezone\n" + gone},
        {"a link that resolves is kept", "-> timezone", "-> /var", gone},
        {"a link that dangles is kept too, and in the way", "-> timezone", "-> /var/no",
         "create_symlink: from ~/icutz to timezone\n" + failed + gone},
        {"a legacy link that dangles is left alone", "-> /var/no", nothing, unchanged},
        {"so is one that loops", "-> icutz", nothing, unchanged},
        {"a legacy directory is left alone", directory, nothing,
         "read_symlink: /var/db/icutz\n" + failed +
             "remove: could not remove /var/db/icutz\nCould not remove /var/db/icutz\n"},
    };
    for (const auto& [rule, legacy_link, link, outcome] : cases) {
        fresh_disk();
        put("/var/db/icu", directory); // not empty, so it stays too
        put("/var/db/icutz", legacy_link);
        put("icutz", link);
        EXPECT_EQ(run(), outcome) << rule;
    }

    // The decision would remove a link that dangles, so that nothing would be in the way.
    fresh_disk();
    put("/var/db/icutz", "-> timezone");
    put("icutz", "-> /var/no");
    put("zoneinfo", nothing);
    EXPECT_TRUE(run().starts_with("create_symlink: from ~/icutz to timezone\n" + failed))
        << "it comes before the decision";
}

TEST(boot, leaves_corrects_or_resets_the_localtime_link)
{
    const std::string correcting = "Correcting localtime link to ~/zoneinfo";
    const std::string unread = "read_symlink: ~/localtime\n";
    const std::string resetting = "localtime link invalid; resetting to America/Los_Angeles\n";
    const std::string reset = resetting + "~/localtime -> ~/zoneinfo/America/Los_Angeles\n";
    const row cases[] = {
        {"a zone need not exist", "-> /var/db/timezone/zoneinfo/No", unchanged},
        {"no zone need be named", "-> /var/db/timezone/zoneinfo", unchanged},
        {"one byte less is another place", "-> /var/db/timezone/zoneinf", reset},
        {"a legacy target is corrected", "-> /usr/share/zoneinfo/Zone",
         correcting + "/Zone\n~/localtime -> ~/zoneinfo/Zone\n"},
        {"the legacy place is a plain prefix, and the corrected target has to exist",
         "-> /usr/share/zoneinfo.default/Zone", correcting + ".default/Zone\n" + reset},
        {"a relative target is another place", "-> zoneinfo/Zone", reset},
        {"a link may be missing", nothing, reset},
        {"an empty directory is replaced", empty_directory, unread + reset},
        {"any other directory is in the way", directory,
         unread + resetting +
             "create_symlink: from ~/localtime to ~/zoneinfo/America/Los_Angeles\n"},
    };
    for (const auto& [rule, localtime, outcome] : cases) {
        fresh_disk("2024b"); // which has no America/Los_Angeles
        put("localtime", localtime);
        EXPECT_EQ(run(), outcome) << rule;
    }
}

TEST(boot, does_without_its_directories)
{
    fresh_disk();
    put("tz", nothing);
    for (const std::string release : {"", "2024a.1.0"}) {
        put("/usr/share/zoneinfo.default/+VERSION", release);
        const std::string unparsed = "Cannot parse version string " + release + ".1.0";
        const std::string both = unparsed + ", results.size() = 0\n" + unparsed + "\n";
        EXPECT_EQ(run(), both + both) << "there may be neither updates nor a plain release";
    }
    put("/var/db/timezone", nothing);
    EXPECT_EQ(run("$PROGRAM 2>/dev/null"), unchanged) << "none is made";
}
