#include "run.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

std::string abbreviated(const std::string& text)
{
    return std::regex_replace(text, std::regex("/var/db/timezone/"), "~/");
}

int shell(const std::string& command)
{
    setenv("PROGRAM", QUORREL_PROGRAM, 1);
    setenv("STATUS", QUORREL_PROGRAM "-status", 1);
    setenv("DISK", QUORREL_TOOLS "/disk", 1);
    setenv("COMMAND", ("IFS=; " + command).c_str(), 1); // the paths may contain spaces
    const int status = std::system("exec timeout 30 sh -c \"$COMMAND\"");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string run(const std::string& command)
{
    shell("$DISK show >/var/before");
    const std::string printed = warnings_of(
        [&] { EXPECT_EQ(shell("exec >&2; " + command), 0) << command << ", 124 if it hung"; });
    shell("$DISK show | diff /var/before - | sed -n 's/^> //p; s/^< also/gone/p' >/var/changes");
    std::ostringstream changes;
    changes << std::ifstream("/var/changes").rdbuf();
    return printed + abbreviated(changes.str());
}

std::string warnings_of(const std::function<void()>& action, bool full)
{
    std::string warnings, thrown;
    const int standard_error = dup(STDERR_FILENO);
    const int file = open("/var/warnings", O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0644);
    dup2(file, STDERR_FILENO);
    try {
        action();
    } catch (int error) {
        thrown = std::string("threw ") + (error == -1 ? "-1" : std::strerror(error)) + "\n";
    } catch (const std::out_of_range&) {
        thrown = "threw out of range\n";
    }
    dup2(standard_error, STDERR_FILENO);
    close(standard_error);
    close(file);
    std::ifstream printed("/var/warnings");
    for (std::string line; std::getline(printed, line);) {
        const auto begin = line.find(": ") + 2, end = line.rfind(": ");
        EXPECT_LT(begin, end) << "no error text: " << line;
        warnings += line.substr(begin, full ? line.npos : end - begin) + "\n";
    }
    return abbreviated(warnings) + thrown;
}
