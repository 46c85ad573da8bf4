#pragma once

#include "components/kelvo_dataset_component.h"

#include <string>
#include <string_view>

namespace quorrel
{

// The ICU time-zone data of a dataset, published as /var/db/timezone/icutz.
class kelvo_icu final : public kelvo_dataset_component
{
public:
    // Finds the data of an update, or of the system partition if the path is empty, and its schema.
    // The system partition's is the word in icutzformat.txt. An update's stands in the name of its
    // data file, the first in directory order that others may read: a regular file directly in the
    // ICU directory, named icutz, digits, one of the letters l, b and e, and .dat. For example,
    // icutz44l.dat has schema 44l.
    //
    // Warns if an update has no such file. If its directory cannot be walked, warns and throws the
    // error number as an int. May also throw std::bad_alloc.
    explicit kelvo_icu(const std::string& path = {});

    // Returns the data's schema, for example "44l", or an empty string if it is unknown.
    [[nodiscard]] const std::string& schema_text() const { return schema; }

    // Returns the schema in the name of a data file, or an empty string for another name. May throw
    // std::bad_alloc.
    [[nodiscard]] static std::string schema_in(std::string_view file_name);

    // Returns whether libraries that read `other`'s data can read this data too: whether both have
    // the same schema, or neither has any. Warns if `other` is another kind of component.
    [[nodiscard]] bool compatible_schema(const kelvo_dataset_component& other) const override;

    // Also removes the legacy link, /var/db/icutz, unless removing the first one failed. The system
    // partition has no ICU link: publishing it only removes both.
    void publish_link() const override;

private:
    void initialize(); // finds the schema

    // The data's format, for example "44l": a number, and a letter for byte order and character
    // family. Compared as text; empty if unknown.
    std::string schema;
    std::string icu_dir;
};

} // namespace quorrel
