#include "components/kelvo_icu.h"

#include "fs/paths.h"
#include "fs/primitives.h"
#include "fs/small_file.h"

#include <err.h>
#include <fts.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <cstring>
#include <memory>

namespace quorrel
{
namespace
{

struct close_walk {
    void operator()(FTS* walk) const { fts_close(walk); }
};

// Returns whether the entry is a regular file directly in the walk's root that others may read.
bool is_public_file(const FTSENT& entry)
{
    return entry.fts_errno == 0 && entry.fts_level == 1 && entry.fts_namelen > 0 &&
           entry.fts_info == FTS_F && (entry.fts_statp->st_mode & S_IROTH) != 0;
}

// Returns the schema in the name of the directory's first ICU data file, or an empty string.
std::string find_schema(std::string directory)
{
    char* const roots[] = {directory.data(), nullptr};
    const std::unique_ptr<FTS, close_walk> walk(
        fts_open(roots, FTS_COMFOLLOW | FTS_PHYSICAL | FTS_XDEV, nullptr));
    if (walk == nullptr) {
        const int error = errno;
        warn("tz_icu::initialize: fts_open of %s failed, %s", directory.c_str(),
             std::strerror(error));
        throw error;
    }
    while (const FTSENT* entry = fts_read(walk.get())) {
        if (!is_public_file(*entry))
            continue;
        if (const std::string schema = kelvo_icu::schema_in(entry->fts_name); !schema.empty())
            return schema;
    }
    return {};
}

} // namespace

kelvo_icu::kelvo_icu(const std::string& path)
    : kelvo_dataset_component(path),
      icu_dir(path.empty() ? paths::system_icu : path + paths::update_icu)
{
    initialize();
}

void kelvo_icu::initialize()
{
    if (dataset_path.empty()) {
        schema = fs::first_word(icu_dir + paths::icu_format_file);
        return;
    }
    schema = find_schema(icu_dir);
    if (schema.empty())
        warn("No ICU schema found for %s", dataset_path.c_str());
}

// A data file's name is icutz([0-9]+[lbe])\.dat and nothing else.
std::string kelvo_icu::schema_in(std::string_view file_name)
{
    constexpr std::string_view begin = "icutz", end = ".dat", digits = "0123456789",
                               letters = "lbe";
    if (!file_name.starts_with(begin) || !file_name.ends_with(end))
        return {};
    const std::string_view schema =
        file_name.substr(begin.size(), file_name.size() - begin.size() - end.size());
    const bool is_schema = schema.size() >= 2 &&
                           schema.find_first_not_of(digits) == schema.size() - 1 &&
                           letters.find(schema.back()) != letters.npos;
    return std::string(is_schema ? schema : "");
}

bool kelvo_icu::compatible_schema(const kelvo_dataset_component& other) const
{
    const auto* const icu = dynamic_cast<const kelvo_icu*>(&other);
    if (icu == nullptr) {
        warn("kelvo_icu::compatible_schema: could not dynamic_cast other component");
        return false;
    }
    return schema == icu->schema;
}

void kelvo_icu::publish_link() const
{
    const std::string link = paths::icu_link;
    try {
        fs::remove(link);
        fs::remove(paths::legacy_icu_link);
    } catch (...) {
        // If the old link blocks a new one, create_symlink reports it.
        warn("unlink of ICU softlink failed");
    }
    if (!dataset_path.empty())
        fs::create_symlink(icu_dir, link);
}

} // namespace quorrel
