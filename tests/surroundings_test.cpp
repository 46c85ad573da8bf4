#include "file_tree.h"

// Runs a start that has to activate an update, to correct the localtime link, and to delete what
// earlier starts left.
std::string eventful_start(const std::string& command)
{
    fresh_disk("2024b", "2024c");
    put("needs_cleanup", "of an earlier start");
    put("/var/db/icu", empty_directory);
    put("localtime", "-> /usr/share/zoneinfo/Zone");
    return start("cd /usr/share/zoneinfo.default; " + command);
}

const std::string corrected = "localtime -> ~/zoneinfo/Zone\n/var/db/icu nothing\n";

const std::string activated = "zoneinfo -> ~/tz/2024c/zoneinfo\nicutz -> ~/tz/2024c/icutz\n"
                              "needs_cleanup file \nTZVersionDiffRecord file 2024b_2024c\n" +
                              corrected;

TEST(surroundings, do_not_stop_a_start_if_broken)
{
    for (const std::string command :
         {"$PROGRAM 2>/dev/full", "$PROGRAM <&- >&- 2>&-", "$PROGRAM 2>&-",
          "umask 777; $PROGRAM 2>/dev/null",
          // A pipe whose only reader is gone.
          "mkfifo /var/pipe; exec 3<>/var/pipe 4>/var/pipe 3<&-; $PROGRAM 2>&4",
          // A release of 1 MB, good or bad, and a small stack.
          "printf '%01000000d2024a' 0 >+VERSION; ulimit -s 256; $PROGRAM 2>/dev/null",
          "printf '2024a%01000000d' 0 >+VERSION; ulimit -s 256; $PROGRAM 2>/dev/null"})
        EXPECT_EQ(eventful_start(command), activated) << command;
    const std::string outcome = eventful_start("ulimit -f 0; $PROGRAM 2>/var/file");
    EXPECT_TRUE(outcome.ends_with("TZVersionDiffRecord file \n" + corrected)) << outcome;
}

TEST(surroundings, a_lost_dataset_phase_does_not_stop_a_start)
{
    const std::string printed = "Unable to locate data; resetting to system partition\n"
                                "Correcting localtime link to ~/zoneinfo/Zone\n";
    const std::string deleted = "needs_cleanup nothing\n" + corrected;
    // With this release the system partition cannot be published either.
    EXPECT_EQ(eventful_start("echo 2147483648a >+VERSION; $PROGRAM"), printed + deleted);
}
