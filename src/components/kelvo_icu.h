#pragma once

#include "components/kelvo_dataset_component.h"

namespace quorrel
{

// The ICU time-zone data of a dataset, published as /var/db/timezone/icutz.
class kelvo_icu final : public kelvo_dataset_component
{
public:
    // Finds the data of an update, or of the system partition if the path is empty, and its schema.
    // Prints and throws as `initialize` does.
    explicit kelvo_icu(const std::string& path = {});

    // True when `other` is ICU data of the very same schema; two unknown schemas are the same.
    // Prints "kelvo_icu::compatible_schema: could not dynamic_cast other component" if it is
    // another kind of component.
    [[nodiscard]] bool compatible_schema(const kelvo_dataset_component& other) const override;

    // Removes /var/db/icutz, the link's older place, as well, if the first could be removed. The
    // system partition has no ICU link: publishing it leaves neither. Prints "unlink of ICU
    // softlink failed" as well, when an old link cannot be removed.
    void publish_link() const override;

private:
    // Fills `schema`: for the system partition from icutzformat.txt, for an update from the name of
    // its data file. That is icutz, digits, one of l, b and e, and .dat: icutz44l.dat is schema
    // 44l. It lies directly in the update's ICU directory, is a regular file and readable by
    // others; the first in directory order counts.
    //
    // An update without such a file prints "No ICU schema found for PATH". Should fts_open(3) fail,
    // prints "tz_icu::initialize: fts_open of DIRECTORY failed, ERROR" and throws the error number
    // as an int.
    void initialize();

    // The data's format, "44l": a number, and a letter for byte order and character family.
    // Compared as text; empty when unknown.
    std::string schema;
    std::string icu_dir;
};

} // namespace quorrel
