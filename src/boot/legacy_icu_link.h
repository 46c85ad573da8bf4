#pragma once

namespace quorrel
{

// Carries the ICU link of the older layout, /var/db/icutz, over to /var/db/timezone/icutz, unless a
// link there leads somewhere already, and removes the older one, whether it was carried over or
// not. A dangling older link counts as none and stays. A dangling link at the new place is not
// replaced: carrying over fails then.
//
// Prints "Could not migrate /var/db/icutz to /var/db/timezone/icutz" and "Could not remove
// /var/db/icutz", each after the warning of the operation that failed. Throws nothing.
void migrate_legacy_icu_link() noexcept;

} // namespace quorrel
