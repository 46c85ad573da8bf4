#include "status/disk.h"
#include "status/goodness.h"
#include "status/problems.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <stdexcept>

using namespace quorrel::status;

namespace
{

// Replaces what would let a name pass for another line.
std::string shown(std::string text)
{
    for (char& c : text)
        if (std::iscntrl(static_cast<unsigned char>(c)))
            c = '?';
    return text;
}

void print(const char* title, const std::string& text)
{
    std::printf("%-20s%s\n", title, text.empty() ? "none" : shown(text).c_str());
}

// The local time as programs see it that know no other zone, or an empty string.
std::string local_time(const disk& now)
{
    struct stat status;
    if (stat("/etc/localtime", &status) != 0 || !S_ISREG(status.st_mode))
        return now.zone.empty() ? "" : now.zone + ", but /etc/localtime leads to no file";
    setenv("TZ", ":/etc/localtime", 1);
    const std::time_t seconds = std::time(nullptr);
    char text[64];
    std::strftime(text, sizeof text, "%a %F %T %z %Z", std::localtime(&seconds));
    return (now.zone.empty() ? "unknown" : now.zone) + ", " + text;
}

// Returns the updates that no link names, a word each.
std::string unused(const disk& now)
{
    std::string names;
    for (const dataset& update : now.updates)
        if ((!now.in_use || now.in_use->path != update.path) &&
            (!now.latest || now.latest->path != update.path) &&
            now.icutz.target != update.icu_directory)
            names += (names.empty() ? "" : " ") + update.name;
    return names;
}

void print(const disk& now)
{
    const auto or_none = [](const std::string& version) {
        return version == ".1.0" ? "none" : version; // a system partition without a release
    };
    const auto version_and_schema = [&](const std::optional<dataset>& data) {
        return !data ? ""
                     : or_none(data->name) + "   ICU " +
                           (data->schemas.empty() ? "none" : *data->schemas.begin());
    };
    print("system partition", version_and_schema(now.system));
    print("in use", version_and_schema(now.in_use));
    print("latest update", version_and_schema(now.latest));
    print("after the next run", or_none(now.version_after_next_run));
    print("local zone", local_time(now));
    print("unused", unused(now));
}

// Prints what is unusual, but no problem.
void print_remarks(const disk& now, bool is_well)
{
    if (!now.publishes_usr_share)
        std::puts("\nRemark: /usr/share/zoneinfo is not a link to the published tree, so programs "
                  "that ask for a zone by name do not follow updates.");
    const std::string schema = schema_of_updates(now);
    if (is_schema(now.schema.word) && !schema.empty() && schema != now.schema.word)
        std::printf("\nRemark: all updates have ICU schema %s, but %s says %s.\n", schema.c_str(),
                    now.schema.at.path.c_str(), now.schema.word.c_str());
    if (is_well && now.best && (!now.latest || now.best->version > now.latest->version) &&
        now.best->version > (now.in_use ? now.in_use->version : quorrel::tz_version()))
        std::printf("\nRemark: update %s is newer and good, but tz_latest does not name it. To use "
                    "it, link it "
                    "and run quorrel:\n"
                    "ln -sfn %s %s\n",
                    now.best->name.c_str(), now.best->path.c_str(), now.tz_latest.path.c_str());
}

void print(const problem& found)
{
    std::printf("\n%s\n", shown(found.sentence).c_str());
    for (const std::string& command : found.commands)
        std::printf("    %s\n", command.c_str());
}

} // namespace

// Ends with status 0 if there is no problem, 1 if there is one, 2 if it cannot tell.
int main(int argc, char** /*argv*/)
{
    if (argc > 1) {
        std::fputs("usage: quorrel-status\n", stderr);
        return 2;
    }
    // The warnings of the program's own code say what a run would, not what is to be done.
    const int messages = fcntl(STDERR_FILENO, F_DUPFD, STDERR_FILENO + 1);
    if (std::freopen("/dev/null", "w", stderr) == nullptr)
        std::fclose(stderr);
    try {
        const disk now = read_disk();
        const std::vector<problem> problems = find_problems(now);
        print(now);
        for (const problem& found : problems)
            print(found);
        print_remarks(now, problems.empty());
        if (std::fflush(stdout) != 0)
            throw std::runtime_error("standard output cannot be written");
        return problems.empty() ? 0 : 1;
    } catch (const std::exception& failure) {
        dprintf(messages, "quorrel-status: %s\n", failure.what());
        return 2;
    }
}
