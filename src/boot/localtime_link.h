#pragma once

namespace quorrel
{

// Makes sure that the localtime link points into the published zoneinfo tree. A link that does is
// left alone, whether its zone exists or not; one into the tree's older place is corrected;
// anything else is replaced by a link to America/Los_Angeles.
//
// Comes last in a start, since a corrected target is looked up through the published zoneinfo link.
// Prints "Correcting localtime link to TARGET" and "localtime link invalid; resetting to ZONE", and
// what reading and creating the link print. Throws nothing, also when the link cannot be created.
void repair_localtime_link() noexcept;

} // namespace quorrel
