#include "components/kelvo_icu.h"
#include "components/kelvo_zoneinfo.h"

#include "disk.h"
#include "run.h"

#include <sys/stat.h>

#include <filesystem>

using namespace quorrel;

namespace
{

const std::string update = "/var/db/timezone/tz/2022a", icutz = update + "/icutz";
const std::string unknown = "No ICU schema found for ~/tz/2022a\n";

// Returns the warnings, and then "same" if the update's schema is the system's, given in its file.
std::string compare_with(const std::string& system_schema)
{
    std::string result;
    put("/usr/share/icu/icutzformat.txt", system_schema);
    return warnings_of([&] {
               result = kelvo_icu(update).compatible_schema(kelvo_icu()) ? "same" : "other";
           })
        .append(result);
}

} // namespace

TEST(components, find_no_schema_in_another_name)
{
    const row cases[] = {
        {"the letter is lower-case", "icutz44L.dat", ""},
        {"there is a letter", "icutz44.dat", ""},
        {"there is a digit", "icutzl.dat", ""},
        {"the prefix is icutz", "icut44l.dat", ""},
        {"the letter is l, b or e", "icutz44x.dat", ""},
        {"there is one letter", "icutz44le.dat", ""},
        {"the full stop is no wildcard", "icutz44lxdat", ""},
        {"nothing stands before the name", "xicutz44l.dat", ""},
        {"nothing follows the name", "icutz44l.dat.bak", ""},
        {"a directory is ignored, and what is in it", "icutz44l.dat/icutz44l.dat", ""},
        {"a link is ignored", "icutz44l.dat", "-> /usr/share/icu/icutzformat.txt"},
        {"the directory may be a file", "", ""},
    };
    for (const auto& [rule, name, thing] : cases) {
        fresh_disk();
        put(name.empty() ? icutz : icutz + "/" + name, thing);
        EXPECT_EQ(compare_with(""), unknown + "same") << rule;
    }
}

TEST(components, compare_schemas_as_text)
{
    fresh_disk();
    put("/var/elsewhere/icutz0129b.dat", "");
    put(icutz, "-> /var/elsewhere");
    EXPECT_EQ(compare_with("\n\v\f\r\t 0129b 1"), "same") << "the first word counts";
    for (const std::string other : {"129b", "0129B"})
        EXPECT_EQ(compare_with(other), "other");
    chmod("/var/elsewhere/icutz0129b.dat", 0640);
    EXPECT_EQ(compare_with("0129b"), unknown + "other") << "others may read a data file";
}

TEST(components, take_the_schema_of_the_first_file)
{
    fresh_disk();
    put(icutz + "/icutz1l.dat", "");
    put(icutz + "/icutz2e.dat", "");
    const auto first = std::filesystem::directory_iterator(icutz)->path().filename();
    EXPECT_EQ(compare_with(first.string().substr(5, 2)), "same");
}

TEST(components, judge_another_kind)
{
    EXPECT_TRUE(kelvo_zoneinfo().compatible_schema(kelvo_icu()));
    EXPECT_EQ(warnings_of([] { EXPECT_FALSE(kelvo_icu().compatible_schema(kelvo_zoneinfo())); }),
              "kelvo_icu::compatible_schema: could not dynamic_cast other component\n");
}

#ifdef __GLIBC__ // whose fts_open(3) takes no path of 64 KiB
TEST(components, throw_the_error_of_a_walk_that_cannot_begin)
{
    const std::string path(1 << 16, 'x'), error = "File name too long";
    EXPECT_EQ(warnings_of([&] { const kelvo_icu icu(path); }, with_error_texts),
              "tz_icu::initialize: fts_open of " + path + "/icutz failed, " + error + ": " + error +
                  "\nthrew " + error + "\n");
}
#endif
