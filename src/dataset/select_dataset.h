#pragma once

namespace quorrel
{

// The dataset phase: decides which dataset the system uses, and publishes it.
//
// The dataset that the zoneinfo link names stays in use if it is compatible with the system
// partition and not older. Otherwise the system partition is published and needs_cleanup is
// created. If the link names no dataset, the system partition is published. Then the latest update
// is activated if it is compatible with the system partition and newer than the dataset that was in
// use at the start, even if that one was given up. Activating it creates needs_cleanup if another
// update was in use until then, and writes TZVersionDiffRecord.
//
// Throws nothing. Data that cannot be read is treated as missing. Three more failures are passed
// over: creating needs_cleanup, writing TZVersionDiffRecord, and removing an ICU link that is not
// replaced. On any other, it warns and publishes the system partition; if that fails too, the links
// stay as the failure leaves them.
void select_dataset() noexcept;

} // namespace quorrel
