#pragma once

namespace quorrel
{

// Migrates the ICU link of the legacy layout: copies /var/db/icutz to /var/db/timezone/icutz,
// unless that already resolves to something, and removes /var/db/icutz, whether it was copied or
// not. A dangling /var/db/icutz is treated as missing and left in place. A dangling
// /var/db/timezone/icutz is not replaced, so the migration fails.
//
// Warns if the migration or the removal fails. Throws nothing.
void migrate_legacy_icu_link() noexcept;

// Deletes /var/db/icu, where the legacy layout had its ICU data, unless it is a directory with
// something in it. Warns of nothing and throws nothing.
void delete_legacy_icu_data() noexcept;

} // namespace quorrel
