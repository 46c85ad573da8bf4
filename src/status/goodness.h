#pragma once

#include "status/disk.h"

#include <optional>
#include <string>

// Which datasets are good: fit to be in use on this disk. A run checks less. Nothing here throws
// but std::bad_alloc; whatever parses a version warns as tz_version does.
namespace quorrel::status
{

// Returns whether the text is a tz release, for example "2026b".
[[nodiscard]] bool is_release(const std::string& text);

// Returns whether the text is an ICU schema, for example "44l".
[[nodiscard]] bool is_schema(const std::string& text);

// Returns the system partition's version, or the one that its tree was built from; unset if neither
// is known.
[[nodiscard]] tz_version system_version(const disk& now);

// Returns the schema that all updates have, or an empty string. An update with several does not
// count.
[[nodiscard]] std::string schema_of_updates(const disk& now);

// Returns the system partition's schema or, if that is lost, that of the update in use or of all
// updates; an empty string if none is known.
[[nodiscard]] std::string system_schema(const disk& now);

// Returns whether some dataset that could be used has the local zone.
[[nodiscard]] bool zone_can_be_had(const disk& now);

// Returns what is wrong with a dataset, to be read after "update 2024b.1.0", or an empty string.
[[nodiscard]] std::string fault_in(const disk& now, const dataset& data);

// Returns the newest installed update that has no fault and is newer than the system partition, as
// any is if that has no tree; if only its version is not known, the one in use, if that has no
// fault; none if the schema is not known.
[[nodiscard]] std::optional<dataset> find_best(const disk& now);

} // namespace quorrel::status
