#include "disk.h"
#include "run.h"

namespace
{

// Runs a command that has to activate an update, to correct the localtime link, and to delete what
// earlier runs left.
std::string eventful_run(const std::string& command)
{
    fresh_disk("2024b", "2024c");
    put("needs_cleanup", empty_directory);
    put("/var/db/icu", empty_directory);
    put("localtime", "-> /usr/share/zoneinfo/Zone");
    return run("cd /usr/share/zoneinfo.default; " + command);
}

const std::string corrected = "~/localtime -> ~/zoneinfo/Zone\n/var/db/icu nothing\n";

} // namespace

TEST(surroundings, do_not_stop_a_run_if_broken)
{
    const std::string activated =
        "~/zoneinfo -> ~/tz/2024c/zoneinfo\n~/icutz -> ~/tz/2024c/icutz\n"
        "~/needs_cleanup file 664 \n~/TZVersionDiffRecord file 644 2024b_2024c\n" +
        corrected;
    const std::string readers_gone = "mkfifo /var/pipe; exec 3<>/var/pipe 4>/var/pipe 3<&-; ";
    const std::string huge = "ulimit -s 256; printf '%01000000d2024a' 0 >+VERSION; ";
    EXPECT_EQ(eventful_run("umask 2; $PROGRAM 2>&-"), activated) << "no standard error";
    EXPECT_EQ(eventful_run("umask 2; " + readers_gone + "$PROGRAM 2>&4"), activated)
        << "nobody reads standard error";
    EXPECT_EQ(eventful_run("umask 2; " + huge + "$PROGRAM 2>/dev/null"), activated)
        << "a release word longer than the stack";

    const std::string outcome = eventful_run("ulimit -f 0; $PROGRAM 2>/var/file");
    EXPECT_TRUE(outcome.ends_with("~/TZVersionDiffRecord file 644 \n" + corrected))
        << "no file may grow: " << outcome;
    EXPECT_EQ(eventful_run("echo 2147483648a >+VERSION; $PROGRAM"),
              "Unable to locate data; resetting to system partition\n"
              "Correcting localtime link to ~/zoneinfo/Zone\n~/needs_cleanup nothing\n" +
                  corrected)
        << "not even the system partition can be published";
}
