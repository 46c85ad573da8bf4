#pragma once

namespace quorrel
{

// The dataset phase: decides which dataset the system uses, and publishes it.
//
// The dataset that the zoneinfo link names stays in use if it is compatible with the system
// partition and not older; otherwise the system partition is published. Then the latest update is
// published if it is compatible with the system partition and newer than the dataset that the
// zoneinfo link named, or than the system partition if it named none. needs_cleanup is created if
// the dataset that the link named is no longer used, unless it is the system partition.
// TZVersionDiffRecord is written if the latest update is published.
//
// Throws nothing. Data that cannot be read is treated as missing. Three more failures are passed
// over: creating needs_cleanup, writing TZVersionDiffRecord, and removing an ICU link that is not
// replaced. On any other, it warns and publishes the system partition; if that fails too, the links
// stay as the failure leaves them.
void select_dataset() noexcept;

} // namespace quorrel
