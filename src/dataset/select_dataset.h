#pragma once

#include "dataset/kelvo_dataset.h"

namespace quorrel
{

// Returns whether the dataset that the zoneinfo link points to stays in use: whether it is
// compatible with the system partition and not older.
[[nodiscard]] bool may_stay(const kelvo_dataset& current, const kelvo_dataset& system);

// Returns whether the latest update is activated: whether it is compatible with the system
// partition and newer than the dataset that the zoneinfo link points to, even if that may not
// stay.
[[nodiscard]] bool may_replace(const kelvo_dataset& current, const kelvo_dataset& latest,
                               const kelvo_dataset& system);

// The dataset phase: decides which dataset the system uses, and publishes it.
//
// If the dataset that the zoneinfo link points to may not stay, or the link cannot be read or
// points to none, the system partition is published. Then the latest update is published if it may
// replace what the link pointed to, or the system partition if it pointed to none. needs_cleanup is
// created if either of the two takes an update out of use. TZVersionDiffRecord is written if the
// latest update is published.
//
// Throws nothing. Data that cannot be read is treated as missing. Three more failures are passed
// over: creating needs_cleanup, writing TZVersionDiffRecord, and removing an ICU link that is not
// replaced. On any other, it warns and publishes the system partition, without needs_cleanup; if
// that fails too, the links are as the failure left them.
void select_dataset() noexcept;

} // namespace quorrel
