#include "file_tree.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

const std::filesystem::path data = "/var/db/timezone";

int run(const std::string& command)
{
    setenv("PROGRAM", QUORREL_PROGRAM, 1);
    setenv("DISK", QUORREL_TOOLS "/disk", 1);
    return std::system(("IFS=; " + command).c_str()); // the paths may contain blanks
}

void put(const std::string& name, const std::string& thing)
{
    std::filesystem::create_directories((data / name).parent_path());
    std::filesystem::remove_all(data / name);
    if (thing.starts_with("-> "))
        std::filesystem::create_symlink(thing.substr(3), data / name);
    else if (thing == directory)
        put(name + "/below", "");
    else if (thing == empty_directory)
        create_directory(data / name);
    else if (thing != nothing)
        std::ofstream(data / name) << thing;
}

void fresh_disk(const std::string& in_use, const std::string& latest)
{
    umask(022);
    if (run("$DISK plain '" + in_use + "' '" + latest + "'") != 0)
        std::exit(1);
}

std::string start(const std::string& command)
{
    const std::string all =
        "$DISK show >/var/before && (" + command + ") && $DISK show >/var/after";
    const std::string warnings = warnings_of([&] { EXPECT_EQ(run(all), 0) << command; });
    run("diff /var/before /var/after | sed -n 's|/var/db/timezone/|~/|g; s/^> //p' >/var/changes");
    return warnings + (std::ostringstream() << std::ifstream("/var/changes").rdbuf()).str();
}

std::string warnings_of(const std::function<void()>& action, bool full)
{
    std::string warnings, thrown;
    testing::internal::CaptureStderr();
    try {
        action();
    } catch (int error) {
        thrown = std::string("threw ") + std::strerror(error) + "\n";
    } catch (const std::out_of_range&) {
        thrown = "threw out of range\n";
    }
    std::istringstream printed(testing::internal::GetCapturedStderr());
    for (std::string line; std::getline(printed, line);) {
        const auto begin = line.find(": ") + 2, end = line.rfind(": ");
        EXPECT_LT(begin, end) << "no error text: " << line;
        warnings += line.substr(begin, full ? line.npos : end - begin) + "\n";
    }
    return std::regex_replace(warnings, std::regex("/var/db/timezone/"), "~/") + thrown;
}
