#include "file_tree.h"

#include <gtest/gtest.h>

#include <err.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace file_tree
{
namespace
{

void make_room(const std::string& path)
{
    std::filesystem::path directory;
    for (const auto& name : std::filesystem::path(path).parent_path()) {
        directory /= name;
        if (!is_directory(symlink_status(directory))) {
            std::filesystem::remove(directory);
            std::filesystem::create_directory(directory);
        }
    }
    std::filesystem::remove_all(path);
}

} // namespace

void clear()
{
    for (const char* root : {"/var", "/usr/share"}) {
        struct statfs status;
        if (statfs(root, &status) != 0 || status.f_type != TMPFS_MAGIC)
            errx(1, "%s is the machine's own: run the tests in tools/sandbox", root);
        for (const auto& entry : std::filesystem::directory_iterator(root))
            std::filesystem::remove_all(entry);
    }
    std::filesystem::create_directories("/var/db/timezone/tz");
}

void file(const std::string& path, const std::string& content, mode_t mode)
{
    make_room(path);
    std::ofstream(path) << content;
    ASSERT_EQ(chmod(path.c_str(), mode), 0) << path;
}

void link(const std::string& path, const std::string& target)
{
    make_room(path);
    std::filesystem::create_symlink(target, path);
}

std::string at(const std::string& path)
{
    const auto status = std::filesystem::symlink_status(path);
    if (is_symlink(status))
        return "-> " + std::filesystem::read_symlink(path).string();
    if (!is_regular_file(status))
        return is_directory(status) ? "directory" : "nothing";
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

void system_partition(const std::string& release, const std::string& icu_schema)
{
    file("/usr/share/zoneinfo.default/+VERSION", release + "\n");
    file("/usr/share/icu/icutzformat.txt", icu_schema + "\n");
}

void update(const std::string& version, const std::string& icu_file)
{
    const std::string directory = "/var/db/timezone/tz/" + version;
    file(directory + "/zoneinfo/+VERSION", "2024z\n");
    file(directory + "/icutz/" + icu_file);
}

std::string warnings_of(const std::function<void()>& action)
{
    testing::internal::CaptureStderr();
    action();
    std::istringstream printed(testing::internal::GetCapturedStderr());
    std::string warnings;
    for (std::string line; std::getline(printed, line);) {
        const auto begin = line.find(": ") + 2, end = line.rfind(": ");
        EXPECT_LT(begin, end) << "no error text: " << line;
        warnings += line.substr(begin, end - begin) + "\n";
    }
    return warnings;
}

std::string start(const std::function<void()>& prepare)
{
    return warnings_of([&] {
        const pid_t child = fork();
        if (child == 0) {
            prepare();
            execl(QUORREL_PROGRAM, QUORREL_PROGRAM, "argument", nullptr);
            _exit(127);
        }
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << (WIFSIGNALED(status) ? "killed by a signal" : "exit status");
    });
}

} // namespace file_tree
