#include "file_tree.h"

#include <err.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

void put(const std::string& path, const std::string& thing)
{
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::filesystem::remove_all(path);
    if (thing.starts_with("-> "))
        std::filesystem::create_symlink(thing.substr(3), path);
    else if (thing == "directory")
        put(path + "/below", "");
    else if (thing != "nothing")
        std::ofstream(path) << thing;
}

std::string at(const std::string& path)
{
    const auto status = std::filesystem::symlink_status(path);
    if (is_symlink(status))
        return "-> " + std::filesystem::read_symlink(path).string();
    if (!is_regular_file(status))
        return is_directory(status) ? "directory" : "nothing";
    return (std::ostringstream() << std::ifstream(path).rdbuf()).str();
}

void settle()
{
    umask(022);
    for (const char* root : {"/var", "/usr/share"}) {
        struct statfs status;
        if (statfs(root, &status) != 0 || status.f_type != TMPFS_MAGIC)
            errx(1, "%s is the machine's own: run the tests in tools/sandbox", root);
        for (const auto& entry : std::filesystem::directory_iterator(root))
            std::filesystem::remove_all(entry);
    }
    put("/usr/share/zoneinfo.default/+VERSION", "2024a\n");
    put("/usr/share/zoneinfo.default/Zone", "TZif");
    put("/usr/share/icu/icutzformat.txt", "44l\n");
    put("/var/db/timezone/zoneinfo", "-> /usr/share/zoneinfo.default");
    put("/var/db/timezone/localtime", "-> /var/db/timezone/zoneinfo/Zone");
}

void update(const std::string& version, const std::string& icu_file)
{
    const std::string directory = "/var/db/timezone/tz/" + version;
    put(directory + "/zoneinfo/+VERSION", "2099z\n"); // an update's name counts, not this
    put(directory + "/zoneinfo/Zone", "TZif");
    put(directory + "/icutz/" + icu_file, "");
}

std::string outcome_of(const std::function<void()>& action, bool error_texts)
{
    std::string outcome, thrown;
    testing::internal::CaptureStderr();
    try {
        action();
    } catch (int error) {
        thrown = "threw " + std::to_string(error) + "\n";
    } catch (const std::invalid_argument& invalid) {
        thrown = std::string("threw ") + invalid.what() + "\n";
    } catch (const std::out_of_range&) {
        thrown = "threw out of range\n";
    }
    std::istringstream printed(testing::internal::GetCapturedStderr());
    for (std::string line; std::getline(printed, line);) {
        const auto begin = line.find(": ") + 2, end = line.rfind(": ");
        EXPECT_LT(begin, end) << "no error text: " << line;
        outcome += line.substr(begin, error_texts ? line.npos : end - begin) + "\n";
    }
    return outcome + thrown;
}

std::string start(std::string command)
{
    command.replace(command.find("PROGRAM"), 7, QUORREL_PROGRAM);
    return outcome_of([&] { EXPECT_EQ(std::system(command.c_str()), 0) << command; });
}
