#include "disk.h"
#include "run.h"

#include <fstream>
#include <sstream>

namespace
{

std::string text_of(const char* path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return abbreviated(text.str());
}

// Runs quorrel-status and returns what it says below its table, without empty lines, and in a last
// line its status. Leaves the commands for a cure in /var/cure.
std::string told(const std::string& command = "$STATUS")
{
    shell(command + " >/var/all 2>&1; echo $? >>/var/all; sed -n 's/^    //p' /var/all >/var/cure; "
                    "sed '1,/^unused /d; /^$/d' /var/all >/var/told");
    return text_of("/var/told");
}

// Lays out a disk on which all is well, with 2024e in use and the latest, and changes it: in the
// shell, S is the system partition's tree and U that of 2024e.
void change(const std::string& command)
{
    fresh_disk("2024e", "2024e");
    shell("cd /var/db/timezone; S=/usr/share/zoneinfo.default; U=tz/2024e/zoneinfo; " + command);
}

const std::string best = " The newest good update is 2024e.\n";
const std::string zoneinfo = "    ln -sfn ~/tz/2024e/zoneinfo ~/zoneinfo\n";
const std::string icutz = "    ln -sfn ~/tz/2024e/icutz ~/icutz\n";
const std::string latest = "    ln -sfn ~/tz/2024e ~/tz_latest\n";
const std::string etc = "    ln -sfn /usr/share/zoneinfo/Zone /etc/localtime\n";
const std::string zone = "    ln -sfn ~/zoneinfo/Zone ~/localtime\n";
const std::string lost = ", so every run ends on the system partition.";
const std::string never = ", so a run never uses it.";
const std::string agent = " If the update agent wrote it, correct the agent too.";
const std::string back = ", so the next run goes back to the system partition.";
const std::string again = " Have it installed again.\n";
const std::string stays = ", so it does not change with an update.\n";
const std::string right_zone =
    " Link /etc/localtime to the right zone, for example /usr/share/zoneinfo/Europe/Paris.\n";
const std::string closed = "Not every user can read all of this, so programs may show UTC, and a "
                           "run may leave an update unused: ";
const std::string renamed = " If the zone was renamed, set its new name instead, because the next "
                            "update will lack the old one too.\n";
const std::string no_run = "quorrel.service has not run since the boot, or it failed. \"systemctl "
                           "status quorrel.service\" says why. When the cause is gone, run "
                           "\"systemctl restart quorrel.service\".\n";
const std::string mount = " If it is a file system of its own, mount it, now and at every boot. "
                          "Otherwise create it, and run "
                          "quorrel.\n";

std::string newer(const std::string& update)
{
    return "Remark: the installed update " + update +
           " is good and newer than what is in use, but ~/tz_latest does not point to it. To "
           "activate it, paste this and run quorrel:\nln -sfn ~/tz/" +
           update + " ~/tz_latest\n";
}

} // namespace

// If a row has commands, all is well after they are pasted twice and quorrel is run.
TEST(status, says_what_is_wrong_and_what_cures_it)
{
    const row rows[] = {
        // clang-format off
        {"zoneinfo points to a tree", "rm zoneinfo", "~/zoneinfo is missing." + best + zoneinfo},
        {"a directory in its place is kept", "rm zoneinfo; mkdir zoneinfo", "~/zoneinfo is not a link." + best + "    [ -h ~/zoneinfo ] || mv ~/zoneinfo ~/zoneinfo.old-$(date +%s)\n" + zoneinfo},
        {"only a dataset's tree counts", "ln -sfn $PWD/tz/2024e zoneinfo", "~/zoneinfo points to ~/tz/2024e, which is no dataset's tree." + best + zoneinfo},
        {"an update may be gone", "rm -r tz/2024e", "~/zoneinfo points to update 2024e, which is not installed. The newest good update is 2024c.\n    ln -sfn ~/tz/2024c/zoneinfo ~/zoneinfo\n~/icutz points to ~/tz/2024e/icutz, but update 2024c is to be used.\n    ln -sfn ~/tz/2024c/icutz ~/icutz\n"},
        {"without a good update the system partition is used", "rm -r tz/202[34]?", "~/zoneinfo points to update 2024e, which is not installed. Without a good update, the system partition is used.\n    ln -sfn /usr/share/zoneinfo.default ~/zoneinfo\n~/icutz exists, but the system partition is to be used and needs no ICU link.\n    rm -f ~/icutz\n"},
        {"an update has a tree", "rm -r tz/2024c/zoneinfo; ln -sfn $PWD/tz/2024c/zoneinfo zoneinfo; ln -sfn $PWD/tz/2024c/icutz icutz", "~/zoneinfo points to update 2024c, which has no zoneinfo tree." + best + zoneinfo + "~/icutz points to ~/tz/2024c/icutz, but update 2024e is to be used.\n" + icutz},
        {"the tree has the zone", "rm tz/2024c/zoneinfo/Zone; ln -sfn $PWD/tz/2024c/zoneinfo zoneinfo", "~/zoneinfo points to update 2024c, which lacks the zone Zone. The newest good update is 2024e." + renamed + zoneinfo},
        {"the zone is compiled", "echo HTML >tz/2024c/zoneinfo/Zone; ln -sfn $PWD/tz/2024c/zoneinfo zoneinfo", "~/zoneinfo points to update 2024c, which has a damaged file for the zone Zone." + best + zoneinfo},
        {"the zone is whole", "printf TZif2cut >tz/2024c/zoneinfo/Zone; ln -sfn $PWD/tz/2024c/zoneinfo zoneinfo", "~/zoneinfo points to update 2024c, which has a damaged file for the zone Zone." + best + zoneinfo},
        {"a run knows the link", "ln -sfn tz/2024e/zoneinfo zoneinfo; rm tz_latest", "~/zoneinfo points to tz/2024e/zoneinfo instead of ~/tz/2024e/zoneinfo" + back + "\n" + zoneinfo},
        {"a run knows the name", "mv tz/2024e tz/e; rm tz_latest; ln -sfn $PWD/tz/e/* .", "~/tz/e is in use, but its name is not a version" + back + again + newer("2024c")},
        {"a run finds ICU data", "rm tz_latest tz/2024e/icutz/*", "update 2024e is in use, but has no ICU data file" + back + again},
        {"a release that stalls is found in use", "rm tz_latest; mkfifo x; mv x $U/+VERSION", "~/tz/2024e/zoneinfo/+VERSION is a pipe, a device or a huge file, which stalls a run. Remove it.\n"},
        {"so is a record", "rm TZ*; mkfifo TZVersionDiffRecord", "~/TZVersionDiffRecord is a pipe, which stalls every run that activates an update.\n    [ ! -e ~/TZVersionDiffRecord ] || mv ~/TZVersionDiffRecord ~/TZVersionDiffRecord.old-$(date +%s)\n"},
        {"a run does not take an older update for want of a link that it knows", "ln -sfn tz/2024e/zoneinfo zoneinfo; ln -sfn $PWD/tz/2024c tz_latest", "~/zoneinfo points to tz/2024e/zoneinfo instead of ~/tz/2024e/zoneinfo, so the next run goes back to ~/tz/2024c.\n" + zoneinfo},
        {"icutz belongs to what is in use", "ln -sfn $PWD/tz/2024b/icutz icutz", "~/icutz points to ~/tz/2024b/icutz, but update 2024e is to be used.\n" + icutz},
        {"the latest is a link", "rm tz_latest; mkdir tz_latest", "~/tz_latest is not a link" + lost + best + "    [ -h ~/tz_latest ] || mv ~/tz_latest ~/tz_latest.old-$(date +%s)\n" + latest},
        {"the latest is below tz/", "ln -sfn /var tz_latest", "~/tz_latest points to /var, which is no update in ~/tz" + lost + best + latest},
        {"its target is absolute", "ln -sfn tz/2024e tz_latest", "~/tz_latest points to tz/2024e, which is not exactly an update's path" + lost + agent + best + latest},
        {"its target ends with the name", "ln -sfn $PWD/tz/2024e/ tz_latest", "~/tz_latest points to ~/tz/2024e/, which is not exactly an update's path" + never + agent + best + latest},
        {"its numbers are not too big", "ln -sfn $PWD/tz/2147483648a tz_latest", "~/tz_latest points to ~/tz/2147483648a, which has a number above 2147483647 in its name" + lost + best + latest},
        {"it does not stall", "cp -r tz/2024e tz/2024f; rm tz/2024f/zoneinfo/+*; mkfifo tz/2024f/zoneinfo/+VERSION; ln -sfn $PWD/tz/2024f tz_latest", "~/tz_latest points to ~/tz/2024f, which has a pipe, a device or a huge file at zoneinfo/+VERSION, which stalls a run." + best + latest},
        {"its name is a version", "mkdir tz/rc; ln -sfn $PWD/tz/rc tz_latest", "~/tz_latest points to ~/tz/rc, which has a name that is not a version" + never + again},
        {"it has ICU data", "mkdir tz/2024f; ln -sfn $PWD/tz/2024f tz_latest", "~/tz_latest points to ~/tz/2024f, which has no ICU data file" + never + again},
        {"it can be used when activated", "cp -r tz/2024e tz/2024f; rm tz/2024f/zoneinfo/Zone; ln -sfn $PWD/tz/2024f tz_latest", "~/tz_latest points to ~/tz/2024f, which lacks the zone Zone." + best + latest},
        {"even if it is older than the image", "ln -sfn $PWD/tz/2024b/* .; : >$U/Zone; echo 2025a >$S/+VERSION", "~/tz_latest points to ~/tz/2024e, which has a damaged file for the zone Zone. No installed update can replace the system partition.\n    rm -f ~/tz_latest\n"},
        {"even if only the run after the next takes it", "ln -sfn $PWD/tz/2024d/* .; rm tz/2024c/zoneinfo/Zone; ln -sfn $PWD/tz/2024c tz_latest", "~/tz_latest points to ~/tz/2024c, which lacks the zone Zone." + best + latest},
        {"without a good update it is removed", "rm -r tz/* icutz; ln -sfn $S zoneinfo; ln -sfn /var tz_latest", "~/tz_latest points to /var, which is no update in ~/tz" + lost + " No installed update can replace the system partition.\n    rm -f ~/tz_latest\n"},
        {"permissions are opened where they are", "chmod 700 /var/db tz", closed + "/var/db ~/tz.\n    chmod a+x /var/db\n    chmod a+x ~/tz\n"},
        {"an update is opened as a whole", "chmod 600 $U/Zone tz/2024e/icutz/*", closed + "~/tz/2024e/icutz ~/tz/2024e/zoneinfo.\n    chmod -R a+rX ~/tz/2024e/icutz\n    chmod -R a+rX ~/tz/2024e/zoneinfo\n"},
        {"so is one that is to be activated", "ln -sfn $PWD/tz/2024c/* .; chmod 600 tz/2024e/icutz/*", closed + "~/tz/2024e/icutz.\n    chmod -R a+rX ~/tz/2024e/icutz\n"},
        {"the image is opened by its maker", "chmod 600 $S/Zone", closed + "/usr/share/zoneinfo.default. Correct the permissions; for what belongs to the image, do that in the image.\n"},
        {"a run can write", "chmod 555 .", "The owner or the permissions of /var/db/timezone keep quorrel from writing there.\n    chmod u+rwx /var/db/timezone\n"},
        {"a file system may be missing", "rm -r $PWD; ln -s /data /var/db/timezone", "/var/db/timezone leads to /data, which is missing." + mount},
        {"that of the updates, too", "rm -r tz", "~/tz is missing." + mount},
        {"a file is no directory", "rm -r $PWD; : >/var/db/timezone", "/var/db/timezone is not a directory.\n"},
        {"the image has a tree", "rm -r $S", "The system partition's zoneinfo tree, /usr/share/zoneinfo.default, is missing. Correct the image.\n"},
        {"the tree has a release", "rm $S/+VERSION", "/usr/share/zoneinfo.default/+VERSION is missing, empty or not a file. Correct the image.\n"},
        {"the release is bare", "echo 2024a.1.0 >$S/+VERSION", "/usr/share/zoneinfo.default/+VERSION begins with 2024a.1.0, which is not a tz release. Correct the image.\n"},
        {"the release is the tree's", "echo '# version 2024c' >$S/tzdata.zi", "/usr/share/zoneinfo.default/+VERSION says 2024a, but its tree is 2024c, so a run may choose older data. The file has to say 2024c. Correct the image.\n"},
        {"a schema is known", "rm /usr/share/icu/*", "/usr/share/icu/icutzformat.txt is missing, empty or not a file. Correct the image.\n"},
        {"it is a schema", "echo 44I >/usr/share/icu/icutzformat.txt", "/usr/share/icu/icutzformat.txt begins with 44I, which is not an ICU schema. Correct the image.\n"},
        {"the usual tree is the published one", "rm $S/../zoneinfo; ln -s $S $S/../zoneinfo", "/usr/share/zoneinfo is not a link to ~/zoneinfo, so programs that read it do not follow updates, or show UTC. Correct the image.\n"},
        {"the link that is proposed follows updates", "rm $S/../zoneinfo /etc/localtime", "/usr/share/zoneinfo is not a link to ~/zoneinfo, so programs that read it do not follow updates, or show UTC. Correct the image.\nThe local zone is unknown: /etc/localtime is missing; ~/localtime points to ~/zoneinfo/Zone. Link /etc/localtime to the right zone, for example ~/zoneinfo/Europe/Paris.\n"},
        {"the image has the zone that it will be asked for", "rm tz_latest $S/Zone; echo 2025a >$S/+VERSION", "After the next run the system partition will be in use, but it lacks the zone Zone. Correct the image.\n"},
        {"also if the run after that takes it", "ln -sfn $PWD/tz/2024b/* .; rm $S/Zone; echo 2025a >$S/+VERSION", "After the next run but one the system partition will be in use, but it lacks the zone Zone. Correct the image.\n"},
        {"/etc/localtime is no directory", "rm /etc/localtime; mkdir /etc/localtime; rm localtime", "The local zone is unknown: /etc/localtime is not a link. Move it away, and link /etc/localtime to the right zone, for example /usr/share/zoneinfo/Europe/Paris.\n"},
        {"/etc/localtime leads through the published tree", "ln -sfn $S/Zone /etc/localtime", "/etc/localtime points to /usr/share/zoneinfo.default/Zone" + stays + etc},
        {"not by its text alone", "ln -sfn /usr/share/zoneinfo/no/../Zone /etc/localtime", "/etc/localtime points to /usr/share/zoneinfo/no/../Zone" + stays + etc},
        {"a copy is confirmed by its content", "cp --remove-destination $U/Zone /etc/localtime; chmod 600 /etc/localtime", "/etc/localtime is a copy" + stays + "    [ -h /etc/localtime ] || cp -p /etc/localtime /etc/localtime.old-$(date +%s)\n" + etc},
        {"a name without the content is none", "printf 'TZif\\0other' >/etc/x; mv /etc/x /etc/localtime; echo Else >/etc/timezone", "The local zone is unknown: /etc/localtime is not a link; ~/localtime points to ~/zoneinfo/Zone; /etc/timezone says Else." + right_zone},
        {"nor is a name that leads back", "cp --remove-destination $U/Zone /etc/localtime; ln -s /etc/localtime $U; rm localtime; echo localtime >/etc/timezone", "The local zone is unknown: /etc/localtime is not a link." + right_zone},
        {"two names with the content are none", "cp --remove-destination $U/Zone /etc/localtime; echo America/Los_Angeles >/etc/timezone", "The local zone is unknown: /etc/localtime is not a link; ~/localtime points to ~/zoneinfo/Zone; /etc/timezone says America/Los_Angeles. Link /etc/localtime to the right zone, for example /usr/share/zoneinfo/America/Los_Angeles.\n"},
        {"some dataset has the zone", "ln -sfn /usr/share/zoneinfo/Zonne /etc/localtime", "/etc/localtime points to Zonne, but no dataset that can be used has that zone." + right_zone},
        {"a missing link means UTC, unless another zone is named", "rm /etc/localtime", "The local zone is unknown: /etc/localtime is missing; ~/localtime points to ~/zoneinfo/Zone." + right_zone},
        {"a reset zone is told by /etc/timezone", "ln -sfn $PWD/zoneinfo/America/Los_Angeles localtime; ln -sfn $PWD/localtime /etc/localtime; cp -r $S/America $U; echo Zone >/etc/timezone", "The local zone is unknown: /etc/localtime points to ~/localtime; ~/localtime points to ~/zoneinfo/America/Los_Angeles, to which a run resets a missing link; /etc/timezone says Zone. Link ~/localtime to the right zone, for example ~/zoneinfo/Zone.\n"},
        {"a localtime link that is read exists", "ln -sfn $PWD/localtime /etc/localtime; rm localtime", "The local zone is unknown: /etc/localtime points to ~/localtime; ~/localtime is missing. Link ~/localtime to the right zone, for example ~/zoneinfo/Europe/Paris.\n"},
        {"a localtime link that is read survives a run", "ln -sfn $PWD/localtime /etc/localtime; ln -sfn zoneinfo/Zone localtime", "~/localtime points to zoneinfo/Zone, so the next run resets it to America/Los_Angeles.\n" + zone},
        {"a link into the legacy place is corrected by a run", "ln -sfn $PWD/localtime /etc/localtime; ln -sfn /usr/share/zoneinfo/Zone localtime; rm icutz", "~/icutz is missing, but update 2024e is to be used.\n" + icutz},
        {"the next boot has a run", "mkdir -p /run/systemd/system /run/quorrel /etc/systemd/system; ln -s /dev/null /etc/systemd/system/quorrel.service", "quorrel.service is masked, so quorrel does not run at boot. If that is not intended, run \"systemctl unmask quorrel.service\" and \"systemctl start quorrel.service\".\n"},
        {"a run has run", "mkdir -p /run/systemd/system", no_run},
        // clang-format on
    };
    for (const auto& [rule, command, outcome] : rows) {
        change(command);
        EXPECT_EQ(told(), outcome + "1\n") << rule;
        if (outcome.find("\n    ") != outcome.npos) {
            EXPECT_EQ(shell("umask 077; sh -e /var/cure && sh -e /var/cure && $PROGRAM 2>&-"), 0)
                << rule;
            EXPECT_TRUE(told().starts_with("No problem found.\n")) << rule << ": " << told();
        }
    }
}

TEST(status, finds_no_problem_where_all_is_well)
{
    const std::string reset = "Remark: ~/localtime points to America/Los_Angeles. That may be the "
                              "wrong zone, because a run resets a missing link to it.\n";
    const std::string unread =
        "Remark: ~/localtime is missing, but the local zone is Zone. To link it "
        "to that zone, paste this:\nln -sfn ~/zoneinfo/Zone ~/localtime\n";
    const row rows[] = {
        // clang-format off
        {"the latest is in use", "", ""},
        {"the latest is to be activated", "ln -sfn $PWD/tz/2024c/* .", ""},
        {"a newer update may wait", "ln -sfn $PWD/tz/2024c/* .; rm tz_latest", newer("2024e")},
        {"there may be no update", "rm -r tz tz_latest icutz; ln -sfn $S zoneinfo", ""},
        {"the image has caught up", "echo 2024e >$S/+VERSION", ""},
        {"the image has another schema", "echo 45l >/usr/share/icu/icutzformat.txt", ""},
        {"the latest has another schema", "cp -r tz/2024d tz/2024f; ln -sfn $PWD/tz/2024f tz_latest", ""},
        {"the latest is older", "ln -sfn $PWD/tz/2024b tz_latest", ""},
        {"the latest is gone", "ln -sfn $PWD/tz/2024f tz_latest", ""},
        {"links are relative, and lead through others", "mv /var/db /var/d; ln -s ../var/d /var/db; ln -sfn ../usr/share/zoneinfo/./Zone /etc/localtime; ln -sfn tz//2024e/zoneinfo zoneinfo; ln -sfn ../timezone/tz/2024e/icutz icutz", ""},
        {"a run puts a link right that it refuses", "ln -sfn tz/2024e/zoneinfo zoneinfo", ""},
        {"programs ask another link", "ln -sfn /var/x /etc/localtime; ln -s /usr/share/zoneinfo/Zone /var/x", ""},
        {"programs ask the localtime link", "ln -sfn $PWD/localtime /etc/localtime", ""},
        {"a run goes by its beginning", "ln -sfn $PWD/localtime /etc/localtime; ln -sfn $PWD/zoneinfo/./Zone localtime", ""},
        {"the localtime link is not asked", "rm localtime", unread},
        {"it may have been reset", "ln -sfn $PWD/zoneinfo/America/Los_Angeles localtime; ln -sfn $PWD/localtime /etc/localtime; cp -r $S/America $U", reset},
        {"a missing link means UTC", "rm /etc/localtime; ln -sfn $PWD/zoneinfo/UTC localtime", "Remark: /etc/localtime is missing, so the local time is UTC.\n"},
        {"nobody uses a closed update, or the rest of one", "chmod 0 tz/2024c; install -m 0 /dev/null tz/2024e/signature", ""},
        {"systemd has run the unit, which may be a link", "mkdir -p /run/systemd/system /run/quorrel /etc/systemd/system; ln -s /srv/x /etc/systemd/system/quorrel.service", ""},
        // clang-format on
    };
    for (const auto& [rule, command, remarks] : rows) {
        change(command);
        EXPECT_EQ(told(), "No problem found.\n" + remarks + "0\n") << rule;
    }
}

TEST(status, prints_a_row_for_each_thing)
{
    const auto table = [] {
        shell("$STATUS | sed '/^$/,$d; s/, [A-Z][a-z][a-z] .*//' >/var/table");
        return text_of("/var/table");
    };
    change("ln -sfn $PWD/tz/2024b/* .; ln -sfn $PWD/tz/2024c/icutz icutz; mkdir 'tz/new\nline'; "
           "echo HTML "
           ">tz/2024d/zoneinfo/Zone");
    EXPECT_EQ(table(), "system partition    2024a.1.0   schema 44l\n"
                       "in use              2024b   schema 44l\n"
                       "tz_latest           2024e   schema 44l   to be activated\n"
                       "after the next run  2024e\n"
                       "local zone          Zone\n"
                       "unused              new?line (has no zoneinfo tree) 2023z 2024a 2024a.1.0 "
                       "2024d (has a damaged file for the zone Zone)\n");
    change("rm zoneinfo");
    EXPECT_NE(
        table().find(
            "in use              none\ntz_latest           2024e   schema 44l   to be activated\n"),
        std::string::npos);
    shell("cd /var/db/timezone; rm TZ*; mkfifo TZVersionDiffRecord; rm /etc/localtime");
    EXPECT_NE(
        table().find(
            "after the next run  unknown\nlocal zone          unknown, but programs show UTC\n"),
        std::string::npos);
    change("ln -sfn $PWD/tz/2023z/* .; ln -sfn $PWD/tz/2024a tz_latest");
    EXPECT_NE(table().find("tz_latest           2024a   schema 44l   to be activated\nafter the "
                           "next run  2024a\n"),
              std::string::npos);
    for (const char* const close : {"chmod 0 /usr/share/icu/*", "chmod 711 tz/2024e/icutz"}) {
        change(close);
        EXPECT_EQ(shell("$STATUS | grep -q '^after the next run  unknown$'"), 0) << close;
    }
    change("echo 2025a >/usr/share/zoneinfo.default/+VERSION; ln -sfn $PWD/tz/2024b tz_latest");
    EXPECT_NE(table().find("tz_latest           2024b   schema 44l   refused: not newer than the "
                           "system partition\nafter the next run  system partition\n"),
              std::string::npos);
    change("ln -sfn $PWD/tz/2024a.1.0/* .; ln -sfn $PWD/tz/2024a.1.0 tz_latest");
    EXPECT_NE(
        table().find(
            "tz_latest           2024a.1.0   schema 44l   in use\nafter the next run  2024a.1.0\n"),
        std::string::npos);
    change("ln -sfn $PWD/tz/2024f tz_latest; echo 'Zone Zone 3 - XYZ' >/var/zone; zic -d $U "
           "/var/zone");
    EXPECT_EQ(shell("$STATUS | grep -q '^tz_latest  *2024f (not installed)$'"), 0);
    EXPECT_EQ(shell("TZ=UTC0 $STATUS | grep -q '^local zone  *Zone, .* +0300 XYZ$'"), 0);
    change("rm -r $S /usr/share/icu tz tz_latest zoneinfo");
    EXPECT_EQ(table(), "system partition    no release   no schema\n"
                       "in use              none\n"
                       "tz_latest           none\n"
                       "after the next run  system partition\n"
                       "local zone          Zone, but programs show UTC\n"
                       "unused              none\n");
}

TEST(status, answers_or_says_why_not)
{
    change("rm icutz; chmod 700 tz; mkdir -p /run/systemd/system");
    EXPECT_EQ(told(), closed +
                          "~/tz.\n    chmod a+x ~/tz\n~/icutz is missing, but update 2024e is to "
                          "be used.\n" +
                          icutz + no_run + "1\n")
        << "several problems are printed, and last what they may have caused";
    change("mv tz/2024e \"tz/it's\"; rm tz_latest; ln -sfn \"$PWD/tz/it's/zoneinfo\" .; chmod 700 "
           "tz/it*");
    EXPECT_NE(
        told().find("    chmod a+x '~/tz/it'\\''s'\n~/icutz points to ~/tz/2024e/icutz, but "
                    "update it's is to be used.\n    ln -sfn '~/tz/it'\\''s/icutz' ~/icutz\n"),
        std::string::npos)
        << "names are quoted";
    change("mv tz/2024e 'tz/\33[2J'; rm tz_latest; ln -sfn $PWD/tz/*2J/* .; chmod 700 tz/*2J");
    EXPECT_EQ(told().find('\33'), std::string::npos) << "names are no escape sequences";
    change("ln -sfn localtime /etc/localtime");
    EXPECT_TRUE(told().ends_with("1\n")) << "a loop ends";
    change("chmod 0 tz/2024e");
    EXPECT_EQ(shell("setpriv --bounding-set -all $STATUS >/var/out 2>/var/answer"), 2);
    EXPECT_TRUE(text_of("/var/answer").starts_with("quorrel-status: ")) << text_of("/var/answer");
    EXPECT_EQ(shell("$STATUS >/dev/full 2>/var/answer"), 2);
    EXPECT_EQ(text_of("/var/answer"), "quorrel-status: standard output cannot be written\n");
    EXPECT_EQ(shell("$STATUS --all 2>/var/answer"), 2);
    EXPECT_EQ(text_of("/var/answer"),
              "quorrel-status: its only arguments are --help and --version\n");
    EXPECT_EQ(
        shell(
            "[ $($STATUS --help | wc -l) = 5 ] && $STATUS --version | grep -q '^quorrel-status '"),
        0);
}
