#include "fs/primitives.h"

#include "disk.h"
#include "run.h"

#include <unistd.h>

using namespace quorrel;

TEST(primitives, fail_with_one_warning_and_the_error_number_or_cut_a_target)
{
    fresh_disk();
    put("/var/file", "");
    EXPECT_EQ(warnings_of([] { fs::remove("/var/db"); }, with_error_texts),
              "remove: could not remove /var/db: Is a directory\nthrew Is a directory\n");
    EXPECT_EQ(warnings_of([] { (void)fs::read_symlink("/var/file/a"); }, with_error_texts),
              "read_symlink: /var/file/a: Not a directory\nthrew Not a directory\n");
    EXPECT_EQ(warnings_of([] { fs::create_symlink("a", "/var/no/b"); }, with_error_texts),
              "create_symlink: from /var/no/b to a: No such file or directory\nthrew No such file "
              "or directory\n");

    const std::string longest(1024, 'x'); // some file systems have no longer targets
    if (symlink((longest + "cut").c_str(), "/var/link") == 0) {
        EXPECT_EQ(fs::read_symlink("/var/link"), longest);
    }
}
