#pragma once

namespace bench::count {

/// Whether instructions are counted instead of time: this program runs under valgrind's callgrind,
/// and the environment names its output file, WELMO_COUNTS.
bool isOn();
/// Starts to count, on all threads.
void begin();
/// How many instructions were carried out since begin().
double end();

} // namespace bench::count
