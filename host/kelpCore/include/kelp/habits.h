#pragma once

namespace kelp {

/// What a host may do one way or the other, and a package must not rely on. This host keeps to the
/// defaults; tests turn them round.
struct Habits
{
    bool repeatsChanges = false; ///< a write of an equal value is told by changed() as well
    bool roundsIntegers = false; ///< 12.5 reads as 13
    bool firstWatchFires = false; ///< the first subscription tells what it found
    bool tellsWholeNodes = false; ///< a notification carries all that is known of its node
    bool tellsInsideCalls = false; ///< a call that loses the link tells so before it returns
    bool deletesLastFirst = false; ///< of sub-modules, the one that was added last goes first
};

/// Those of the running host.
Habits &habits();

} // namespace kelp
