#pragma once

namespace quorrel
{

// Carries the ICU link of the older layout, /var/db/icutz, over to /var/db/timezone/icutz if the
// link there is missing or dangling, and removes the older link in any case. A dangling older link
// counts as none and stays.
//
// Prints "Could not migrate /var/db/icutz to /var/db/timezone/icutz" and "Could not remove
// /var/db/icutz", each after the warning of the operation that failed. Throws nothing.
void migrate_legacy_icu_link() noexcept;

} // namespace quorrel
