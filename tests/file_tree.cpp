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

const std::filesystem::path data = "/var/db/timezone";

void put(const std::string& name, const std::string& thing)
{
    std::filesystem::create_directories((data / name).parent_path());
    std::filesystem::remove_all(data / name);
    if (thing.starts_with("-> "))
        std::filesystem::create_symlink(thing.substr(3), data / name);
    else if (thing == "directory")
        put(name + "/below", "");
    else if (thing != "nothing")
        std::ofstream(data / name) << thing;
}

std::string at(const std::string& name)
{
    const auto status = std::filesystem::symlink_status(data / name);
    if (is_symlink(status))
        return "-> " + std::filesystem::read_symlink(data / name).string();
    if (!is_regular_file(status))
        return is_directory(status) ? "directory" : "nothing";
    return (std::ostringstream() << std::ifstream(data / name).rdbuf()).str();
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
    put("zoneinfo", "-> /usr/share/zoneinfo.default");
    put("localtime", "-> /var/db/timezone/zoneinfo/Zone");
}

void update(const std::string& version, const std::string& icu_file)
{
    put("tz/" + version + "/zoneinfo/+VERSION", "2099z\n"); // an update's name counts, not this
    put("tz/" + version + "/zoneinfo/Zone", "TZif");
    put("tz/" + version + "/icutz/" + icu_file, "");
}

std::string outcome_of(const std::function<void()>& action, bool error_texts)
{
    std::string outcome, thrown;
    testing::internal::CaptureStderr();
    try {
        action();
    } catch (int error) {
        thrown = "threw " + std::to_string(error) + "\n";
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
    command.replace(command.find("PROGRAM"), 7, "'" QUORREL_PROGRAM "'");
    return outcome_of([&] { EXPECT_EQ(std::system(command.c_str()), 0) << command; });
}
