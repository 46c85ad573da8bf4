#include "fs/paths.h"
#include "status/problems.h"
#include "status/state.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

using namespace quorrel::status;

namespace
{

constexpr char help[] =
    "quorrel-status prints which time-zone data is in use now and will be after the next run,\n"
    "and the local zone. It then prints each problem, with the commands that cure it indented.\n"
    "Paste them into a root shell, run quorrel, and ask again. quorrel-status changes nothing.\n"
    "Its status is 0 if it finds no problem, 1 if it finds one, and 2 if it cannot look at\n"
    "something or write its output. Its manual page is quorrel-status(8).\n";

// Replaces control characters, so that a file name cannot fake a line of output.
std::string shown(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return std::iscntrl(c) != 0; }, '?');
    return text;
}

void print_row(const char* title, const std::string& text)
{
    std::printf("%-20s%s\n", title, text.empty() ? "none" : shown(text).c_str());
}

std::string with_schema(const std::string& name, const dataset& data)
{
    if (!data.is_installed)
        return name + " (not installed)";
    return name + "   " +
           (!data.schema.empty() ? "schema " + data.schema
            : data.is_system()   ? "no schema"
                                 : "no ICU data");
}

std::string short_name(const dataset& data)
{
    return data.is_system() ? "system partition" : data.name;
}

std::string latest_row(const state& now)
{
    if (!now.latest)
        return now.tz_latest.is_link() ? now.tz_latest.target : "";
    const std::string row = with_schema(now.latest->name, *now.latest);
    if (!now.latest_verdict.refusal.empty() && now.latest->is_installed &&
        now.system_faults.empty())
        return row + "   refused: " + now.latest_verdict.refusal;
    if (now.uses(*now.latest))
        return row + "   in use";
    return now.after_next_run == now.latest->path ? row + "   to be activated" : row;
}

// Returns the local zone, and the time that a program without TZ sees.
std::string zone_row(const state& now)
{
    const std::string name = now.zone.name.empty() ? "unknown" : now.zone.name;
    if (now.zone.link.is_missing() && name == "UTC")
        return name;
    if (!now.zone.is_sound)
        return name + ", but programs show UTC";
    setenv("TZ", ":/etc/localtime", 1);
    const std::time_t seconds = std::time(nullptr);
    char time[64];
    std::strftime(time, sizeof time, "%a %F %T %z %Z", std::localtime(&seconds));
    return name + (now.zone.name.empty() ? ", but programs show " : ", ") + time;
}

std::string unused_row(const state& now)
{
    std::string names;
    for (const dataset& update : now.updates)
        if (!now.uses(update) && (!now.latest || now.latest->path != update.path) &&
            now.icutz.target != update.icu_directory) {
            const std::string fault = fault_seen_in(update, now.right_zone);
            names += (names.empty() ? "" : " ") + update.name +
                     (fault.empty() ? "" : " (" + fault + ")");
        }
    return names;
}

std::string after_row(const state& now)
{
    if (!now.after_next_run)
        return "unknown";
    return now.after_next_run->empty()
               ? "system partition"
               : now.after_next_run->substr(std::strlen(quorrel::paths::update_directory));
}

void print(const state& now)
{
    const std::string release = now.system.name == ".1.0" ? "no release" : now.system.name;
    print_row("system partition", with_schema(release, now.system));
    print_row("in use", now.in_use ? with_schema(short_name(*now.in_use), *now.in_use) : "");
    print_row("tz_latest", latest_row(now));
    print_row("after the next run", after_row(now));
    print_row("local zone", zone_row(now));
    print_row("unused", unused_row(now));
}

void print(const finding& found, const char* before, const char* indent)
{
    std::printf("\n%s%s\n", before, shown(found.sentence).c_str());
    for (const std::string& command : found.commands)
        std::printf("%s%s\n", indent, command.c_str());
}

int report()
{
    const state now = read_state();
    const findings found = find_problems(now);
    print(now);
    for (const finding& problem : found.problems)
        print(problem, "", "    ");
    if (found.problems.empty())
        std::puts("\nNo problem found.");
    for (const finding& remark : found.remarks)
        print(remark, "Remark: ", "");
    return found.problems.empty() ? 0 : 1;
}

// Prints what the arguments ask for. Returns the exit status.
int answer(const std::vector<std::string>& arguments)
{
    if (arguments.empty())
        return report();
    if (arguments == std::vector<std::string>{"--help"})
        std::fputs(help, stdout);
    else if (arguments == std::vector<std::string>{"--version"})
        std::fputs("quorrel-status " QUORREL_VERSION "\n", stdout);
    else
        throw std::invalid_argument("its only arguments are --help and --version");
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // quorrel's own warnings describe what a run would do: silence them.
    const int messages = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (std::freopen("/dev/null", "w", stderr) == nullptr)
        std::fclose(stderr);
    try {
        const int status = answer({argv + 1, argv + argc});
        if (std::fflush(stdout) != 0)
            throw std::runtime_error("standard output cannot be written");
        return status;
    } catch (const std::system_error& failure) {
        const bool is_refused = failure.code() == std::errc::permission_denied;
        dprintf(messages, "quorrel-status: %s%s\n", failure.what(),
                is_refused ? " (run it as root)" : "");
    } catch (const std::exception& failure) {
        dprintf(messages, "quorrel-status: %s\n", failure.what());
    }
    return 2;
}
