#include "disk.h"
#include "run.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>
#include <vector>

namespace
{

std::string text_of(const char* path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return abbreviated(text.str());
}

// Runs quorrel-status. Leaves the commands that it prints in /var/cure, and returns its sentences
// and, in a last line, its status.
std::string problems()
{
    shell("$STATUS >/var/all 2>&1; echo $? >>/var/all; sed -n 's/^    //p' /var/all >/var/cure; "
          "sed '1,/^unused /d; /^$/d; /^    /d' /var/all >/var/problems");
    return text_of("/var/problems");
}

const std::string zone = "ln -sfn ~/zoneinfo/Zone ~/localtime\n";
const std::string etc = "ln -sfn /usr/share/zoneinfo/Zone /etc/localtime\n";
const std::string icutz = "ln -sfn ~/tz/2024e/icutz ~/icutz\n";
const std::string publish = "ln -sfn ~/tz/2024e/zoneinfo ~/zoneinfo\n";
const std::string latest = "ln -sfn ~/tz/2024e ~/tz_latest\n";
const std::string release = "(umask 022; echo 2024a >/usr/share/zoneinfo.default/+VERSION)\n";
const std::string schema = "(umask 022; echo 44l >/usr/share/icu/icutzformat.txt)\n";
const std::string icu = "(umask 022; mkdir -p /usr/share/icu)\n";

// Breaks a disk that is in order, with 2024e in use and the latest. In the shell, S is the system
// partition's tree.
const struct {
    std::string breakage, sentence, cure;
} faults[] = {
    // The system partition.
    {"rm -r $S", "The system partition's zoneinfo tree, /usr/share/zoneinfo.default, is missing.",
     ""},
    {"cp --remove-destination $S/Zone /etc/localtime; rm -r $S icutz tz tz_latest; ln -sfn $S "
     "zoneinfo",
     "Put the tree of this system's image", ""},
    {"rm $S/+VERSION", "/+VERSION is missing. Its tree is release 2024a.", release},
    {"echo >$S/+VERSION", "/+VERSION is blank. Its tree is release 2024a.", release},
    {"echo 2024a.1 >$S/+VERSION", "begins with 2024a.1, which is not a tz release.", release},
    {"echo 2147483648a >$S/+VERSION", "with 2147483648a, which is not a tz release.", release},
    {"rm $S/+VERSION; mkfifo $S/+VERSION", "/+VERSION is not a regular file.",
     "mv /usr/share/zoneinfo.default/+VERSION /usr/share/zoneinfo.default/+VERSION.old && " +
         release},
    {"cd tz/2024b/zoneinfo; echo no >+VERSION; ln -sf $PWD/+VERSION $S", "begins with no, which",
     "mv /usr/share/zoneinfo.default/+VERSION /usr/share/zoneinfo.default/+VERSION.old && " +
         release},
    {"rm $S/+VERSION $S/tzdata.zi", "Write the release that the tree was built from into it", ""},
    {"rm -r /usr/share/icu", "/icutzformat.txt is missing. The updates have 44l.", icu + schema},
    {"rm -r /usr/share/icu; : >/usr/share/icu",
     "/icutzformat.txt is missing. The updates have 44l.",
     "mv /usr/share/icu /usr/share/icu.old && " + icu + schema},
    {"echo 44I >/usr/share/icu/icutzformat.txt",
     "begins with 44I, which is not an ICU schema, so updates", schema},
    {"rm /usr/share/icu/* icutz tz_latest; ln -sfn $S zoneinfo", "Write the schema that this", ""},
    // What is in use.
    {"rm zoneinfo", "The zoneinfo link is missing.", publish},
    {"rm zoneinfo; mkdir zoneinfo", "~/zoneinfo is not a link.",
     "mv ~/zoneinfo ~/zoneinfo.old && " + publish},
    {"ln -sfn tz/2024e/zoneinfo zoneinfo",
     "names tz/2024e/zoneinfo, which is not a dataset's tree. The newest good update is 2024e.",
     publish},
    {"ln -sfn $PWD/tz/2024e/icutz zoneinfo; chmod 700 tz/2024e",
     "names ~/tz/2024e/icutz, which is not a dataset's tree.",
     "chmod -R go+rX ~/tz/2024e\n" + publish},
    {"ln -sfn $PWD/tz/2022a/zoneinfo zoneinfo", "2022a is in use, but is not installed.", publish},
    {"mv tz/2024e tz/2024f", "2024e is in use, but is not installed.",
     "ln -sfn ~/tz/2024f/zoneinfo ~/zoneinfo\nln -sfn ~/tz/2024f/icutz ~/icutz\n"
     "ln -sfn ~/tz/2024f ~/tz_latest\n"},
    {"ln -sfn $PWD/tz/2023z/zoneinfo zoneinfo", "but is older than the system partition.", publish},
    {"ln -sfn $PWD/tz/2024d/zoneinfo zoneinfo",
     "but has ICU schema 44b, but the system partition has 44l.", publish},
    {"rm -r tz/2024b/zoneinfo; ln -sfn $PWD/tz/2024b/zoneinfo zoneinfo",
     "but has no zoneinfo tree.", publish},
    {"rm tz/2024b/zoneinfo/Zone; ln -sfn $PWD/tz/2024b/zoneinfo zoneinfo",
     "Update 2024b is in use, but lacks the zone Zone.", publish},
    {"rm tz_latest icutz $S/Zone $S/+VERSION $S/tzdata.zi; ln -sfn $S zoneinfo",
     "Write the release that the tree was built from into it", ""},
    {"rm tz_latest icutz $S/Zone /usr/share/icu/*; ln -sfn $S zoneinfo",
     "Write the schema that this", ""},
    {"rm tz_latest icutz $S/Zone tz/2024[bce]/zoneinfo/Zone; ln -sfn $S zoneinfo",
     "No dataset has the zone Zone.", ""},
    {"rm -r tz/2024[bce]; chmod 750 $S/America", "2024e is in use, but is not installed.",
     "chmod -R go+rX /usr/share/zoneinfo.default\nln -sfn /usr/share/zoneinfo.default ~/zoneinfo\n"
     "rm ~/icutz\nrm ~/tz_latest\n"},
    // The ICU link.
    {"rm icutz", "The ICU link is missing, but 2024e is in use.", icutz},
    {"rm icutz; mkdir icutz", "~/icutz is not a link, but 2024e is in use.",
     "mv ~/icutz ~/icutz.old && " + icutz},
    {"ln -sfn $PWD/tz/2024b/icutz icutz", "names update 2024b, but 2024e is in use.", icutz},
    {"ln -sfn /var/no icutz", "The ICU link names /var/no, but 2024e is in use.", icutz},
    {"rm tz_latest; ln -sfn $S zoneinfo", "The system partition is in use, which needs no ICU link",
     "rm ~/icutz\n"},
    {"ln -s /var/no /var/db/icutz", "/var/db/icutz, the legacy ICU link, is left over.",
     "rm /var/db/icutz\n"},
    // The latest update.
    {"rm tz_latest; : >tz_latest", "tz_latest is not a link.",
     "cp -p ~/tz_latest ~/tz_latest.old && " + latest},
    {"ln -sfn tz/2024e tz_latest", "tz_latest has the relative target tz/2024e.", latest},
    {"mkdir -p /var/no/zoneinfo; mkfifo /var/no/zoneinfo/+VERSION; ln -sfn /var/no tz_latest",
     "tz_latest names /var/no, which is not an update.", latest},
    {"ln -sfn $PWD/tz/2024e/ tz_latest", "has a slash at the end of its target.", latest},
    {"ln -sfn $PWD/tz/$(printf %0256d 1) tz_latest", "1, which is not installed.", latest},
    {"ln -sfn $PWD/tz/2024E tz_latest", "update 2024E, which is not installed.", latest},
    {"mkdir tz/2024e.1.0-rc1; ln -sfn $PWD/tz/2024e.1.0-rc1 tz_latest",
     "which has a name that is not a version.", latest},
    {"mkdir tz/2147483648a; ln -sfn $PWD/tz/2147483648a tz_latest",
     "which has a number above 2147483647 in its name.", latest},
    {"rm tz/2024b/icutz/*; ln -sfn $PWD/tz/2024b tz_latest", "which has no ICU data file.", latest},
    {": >tz/2024b/icutz/icutz7e.dat; ln -sfn $PWD/tz/2024b tz_latest",
     "which has ICU data files of several schemas.", latest},
    {"rm tz/2024b/zoneinfo/+*; mkfifo tz/2024b/zoneinfo/+VERSION; ln -sfn $PWD/tz/2024b tz_latest",
     "which has a pipe or a device at zoneinfo/+VERSION, which would stall a run.", latest},
    {"ln -sfn $PWD/tz/2024a.1.0 tz_latest", "which is not newer than the system partition.",
     latest},
    {"ln -sfn $PWD/tz/2024c tz_latest", "2024c, which is older than 2024e, which is in use.",
     latest},
    // The local zone.
    {"rm localtime", "The localtime link is missing.", zone},
    {"rm localtime; : >localtime", "~/localtime is not a link.",
     "cp -p ~/localtime ~/localtime.old && " + zone},
    {"ln -sfn /usr/share/zoneinfo/Zone localtime", "which is not in the published tree.", zone},
    {"ln -sfn $PWD/zoneinfo/America/Los_Angeles localtime",
     "names the zone America/Los_Angeles, but the local zone is Zone.", zone},
    {"ln -sfn $PWD/No localtime; ln -sfn $PWD/zoneinfo/No /etc/localtime",
     "No dataset has the zone No.", ""},
    {"ln -sfn zoneinfo/Zone localtime; ln -sfn $PWD/localtime /etc/localtime",
     "The localtime link names zoneinfo/Zone, which is not in the published tree.", zone},
    {"ln -sfn $PWD/zoneinfo/ localtime", "The localtime link names no zone.", zone},
    {"ln -sfn /usr/share/zoneinfo/No /etc/localtime", "does not name an existing zone.", etc},
    {"rm /etc/localtime", "/etc/localtime is missing.", etc},
    {"cp --remove-destination $S/Zone /etc/localtime", "is a copy, which follows no update.",
     "cp -p /etc/localtime /etc/localtime.old && " + etc},
    {"ln -sfn $S/Zone /etc/localtime", "default/Zone, which follows no update.", etc},
    {"rm localtime /etc/localtime; ln -s $PWD/localtime /etc/localtime",
     "It is not known which zone was meant", ""},
    {"ln -sfn $PWD/zoneinfo/America/Los_Angeles localtime; rm /etc/localtime",
     "/etc/localtime is missing. It is not known which zone was meant", ""},
    // Those who read it.
    {"chmod 700 tz /var/db", "Other users cannot enter /var/db ~/tz,",
     "chmod go+rx /var/db ~/tz\n"},
    {"chmod 640 tz/2024e/zoneinfo/Zone", "Other users cannot read ~/tz/2024e/zoneinfo/Zone,",
     "chmod -R go+rX ~/tz/2024e\n"},
    {"chmod 640 tz/2024e/icutz/*", "Other users cannot read ~/tz/2024e/icutz/icutz44l.dat,",
     "chmod -R go+rX ~/tz/2024e\n"},
    {"rm icutz tz_latest; ln -sfn $S zoneinfo; chmod 640 $S/Zone",
     "Other users cannot read /usr/share/zoneinfo.default/Zone, as their programs must.",
     "chmod -R go+rX /usr/share/zoneinfo.default\n"},
    {"ln -sfn $PWD/tz/2024c tz_latest; chmod 750 tz/2024[ce]",
     "which is older than 2024e, which is in use.", "chmod -R go+rX ~/tz/2024e\n" + latest},
    {"rm icutz; ln -sfn $S zoneinfo; chmod 750 tz/2024e/zoneinfo",
     "Other users cannot read ~/tz/2024e/zoneinfo,", "chmod -R go+rX ~/tz/2024e\n"},
    // The place.
    {"mv $PWD /var/moved", "/var/db/timezone is missing.", "(umask 022; mkdir -p ~/tz)\n" + zone},
    {"mv $PWD /var/moved; ln -s /var/no /var/db/timezone", "/var/db/timezone is not a directory.",
     "mv /var/db/timezone /var/db/timezone.old && (umask 022; mkdir -p ~/tz)\n" + zone},
    {"chmod 555 $PWD",
     "The owner or the mode of /var/db/timezone keeps quorrel from writing there.",
     "chmod u+rwx /var/db/timezone\n"},
};

// Returns patterns: a word in capitals stands for any text, and more may follow.
std::vector<std::regex> items_of_the_manual_page()
{
    std::vector<std::regex> items;
    std::istringstream page(text_of(QUORREL_TOOLS "/../system/quorrel-status.8"));
    for (std::string line; std::getline(page, line);)
        if (line.starts_with(".It \"")) {
            const std::string text = line.substr(5, line.size() - 6);
            const std::string escaped = std::regex_replace(text, std::regex("[.+]"), "\\$&");
            items.emplace_back(std::regex_replace(escaped, std::regex("[A-Z]{4,}"), ".*") + " .*");
        }
    return items;
}

} // namespace

TEST(status, finds_each_fault_and_prints_what_cures_it)
{
    const std::vector<std::regex> explained = items_of_the_manual_page();
    for (const auto& [breakage, sentence, cure] : faults) {
        fresh_disk("2024e", "2024e");
        put("/usr/share/zoneinfo.default/tzdata.zi", "# version 2024a\n");
        shell("cd /var/db/timezone; S=/usr/share/zoneinfo.default; " + breakage);
        const std::string found = problems();
        EXPECT_NE(found.find(sentence), found.npos) << breakage << ": " << found;
        EXPECT_TRUE(std::any_of(explained.begin(), explained.end(),
                                [&](const std::regex& item) {
                                    return std::regex_match(found.substr(0, found.find('\n')) + " ",
                                                            item);
                                }))
            << "not in the manual page: " << found;
        EXPECT_EQ(std::count(found.begin(), found.end(), '\n'), 2) << breakage << ": " << found;
        EXPECT_EQ(text_of("/var/cure"), cure) << breakage;
        if (!cure.empty()) {
            EXPECT_EQ(shell("sh -e /var/cure; $PROGRAM 2>/var/printed"), 0) << breakage;
            EXPECT_TRUE(problems().ends_with("0\n")) << breakage;
        }
    }
}

TEST(status, says_what_is_there)
{
    const auto lines = [] {
        shell("$STATUS | sed '/^$/,$d; s/^\\(local zone.*\\),.*/\\1/' >/var/lines");
        return text_of("/var/lines");
    };
    fresh_disk("2024b", "2024e");
    put("icutz", "-> /var/db/timezone/tz/2024c/icutz");
    put("tz/new\nline", directory);
    EXPECT_EQ(lines(), "system partition    2024a.1.0   ICU 44l\n"
                       "in use              2024b   ICU 44l\n"
                       "latest update       2024e   ICU 44l\n"
                       "after the next run  2024e\n"
                       "local zone          Zone\n"
                       "unused              new?line 2023z 2024a 2024a.1.0 2024d\n");
    shell("rm /var/db/timezone/TZV*; mkfifo /var/db/timezone/TZVersionDiffRecord");
    EXPECT_NE(lines().find("after the next run  unknown\n"), std::string::npos);
    shell("rm -r /usr/share/icu /usr/share/zoneinfo.default /var/db/timezone/tz*; rm "
          "/var/db/timezone/zoneinfo");
    EXPECT_EQ(lines(), "system partition    none   ICU none\n"
                       "in use              none\n"
                       "latest update       none\n"
                       "after the next run  none\n"
                       "local zone          Zone\n"
                       "unused              none\n");
}

TEST(status, remarks_on_what_is_unusual_but_no_problem)
{
    const std::string newer = "Remark: update 2024e is newer and good, but tz_latest does not name "
                              "it. To use it, link it "
                              "and run quorrel:\n" +
                              latest + "0\n";
    for (const std::string& named : {std::string("2024b"), nothing}) {
        fresh_disk("2024b", named);
        EXPECT_EQ(problems(), newer) << named;
    }
    put("/etc/localtime", "-> /var/db/timezone/localtime");
    put("/usr/share/zoneinfo", directory);
    EXPECT_TRUE(problems().ends_with("do not follow updates.\n" + newer));

    fresh_disk();
    put("tz/2024d", nothing);
    put("/usr/share/icu/icutzformat.txt", "45l");
    EXPECT_EQ(problems(), "Remark: all updates have ICU schema 44l, but "
                          "/usr/share/icu/icutzformat.txt says 45l.\n0\n");
}
