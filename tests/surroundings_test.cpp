#include "file_tree.h"

// Runs a start that has to activate an update, to correct the localtime link, and to delete what
// earlier starts left.
std::string eventful_start(const std::string& command, const std::string& release = "2024a")
{
    fresh_disk("2024b", "2024c");
    put("needs_cleanup", "of an earlier start");
    put("/var/db/icu", "-> /var/no");
    put("/usr/share/zoneinfo.default/+VERSION", release);
    put("localtime", "-> /usr/share/zoneinfo/Zone");
    return start(command);
}

const std::string corrected = "localtime -> ~/zoneinfo/Zone\n/var/db/icu nothing\n";

const std::string activated = "zoneinfo -> ~/tz/2024c/zoneinfo\nicutz -> ~/tz/2024c/icutz\n"
                              "needs_cleanup file \nTZVersionDiffRecord file 2024b_2024c\n" +
                              corrected;

TEST(surroundings, broken_do_not_stop_a_start)
{
    for (const std::string command :
         {"$PROGRAM 2>/dev/full", "$PROGRAM <&- >&- 2>&-", "$PROGRAM 2>&-",
          "umask 777; $PROGRAM 2>/dev/null",
          // A pipe whose only reader is gone.
          "mkfifo /var/pipe; exec 3<>/var/pipe 4>/var/pipe 3<&-; $PROGRAM 2>&4"})
        EXPECT_EQ(eventful_start(command), activated) << command;
    const std::string outcome = eventful_start("ulimit -f 0; $PROGRAM 2>/var/file");
    EXPECT_TRUE(outcome.ends_with("TZVersionDiffRecord file \n" + corrected)) << outcome;
}

TEST(surroundings, a_release_of_any_length_is_read_on_a_small_stack)
{
    const std::string zeros(1 << 20, '0');
    for (const std::string& release : {zeros + "2024a", "2024a" + zeros}) {
        const std::string outcome = eventful_start("ulimit -s 256; $PROGRAM", release);
        EXPECT_EQ(outcome.starts_with("Cannot parse"), release.starts_with("2")) << release[0];
        EXPECT_TRUE(outcome.ends_with("\n" + activated)) << release[0];
    }
}

TEST(surroundings, a_lost_dataset_phase_does_not_stop_a_start)
{
    // A named pipe in place of +VERSION holds the phase, or its fallback, until a signal comes.
    // What an aborted step held is leaked.
    const std::string hold = "export ASAN_OPTIONS=detect_leaks=0; "
                             "cd /usr/share/zoneinfo.default; mv +VERSION text; "
                             "mkfifo +VERSION pipe; $PROGRAM & exec 3>+VERSION; ";
    const std::string abort_once = "mv text +VERSION; kill -ABRT $!; wait $!";
    const std::string abort_twice =
        "mv pipe +VERSION; kill -ABRT $!; exec 4>+VERSION; kill -ABRT $!; wait $!";
    const std::string printed = "Unable to locate data; resetting to system partition\n"
                                "Correcting localtime link to ~/zoneinfo/Zone\n";
    const std::string reset = "zoneinfo -> /usr/share/zoneinfo.default\nicutz nothing\n";
    const std::string deleted = "needs_cleanup nothing\n" + corrected;
    EXPECT_EQ(eventful_start(hold + abort_once), printed + reset + deleted);
    EXPECT_EQ(eventful_start(hold + abort_twice), printed + deleted);
    // With this release the system partition cannot be published either.
    EXPECT_EQ(eventful_start("$PROGRAM", "2147483648a"), printed + deleted);
}
