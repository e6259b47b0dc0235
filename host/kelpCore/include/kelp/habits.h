#pragma once

namespace kelp {

/// Behaviour that differs between hosts, on which a package must not rely. This host uses the
/// defaults; tests also run with the opposite.
struct Habits
{
    bool repeatsChanges = false; ///< writing an equal value also emits changed()
    bool roundsIntegers = false; ///< 12.5 reads as 13
    bool firstWatchFires = false; ///< the first subscription notifies the values that it found
    bool tellsWholeNodes = false; ///< a notification holds all known values of its node
    bool tellsInsideCalls = false; ///< a call that loses the link emits that before it returns
    bool deletesLastFirst = false; ///< the sub-module that was added last is destroyed first
};

/// The habits of the running host.
Habits &habits();

} // namespace kelp
