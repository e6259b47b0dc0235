#pragma once

namespace bench::count {

/// Whether instructions are counted instead of time. The environment names a file for the counts,
/// WELMO_COUNTS; this program then runs under valgrind's callgrind or, for another processor, under
/// an emulator with the plugin in bench/emulator.
bool isOn();
/// Starts to count, on all threads.
void begin();
/// How many instructions were carried out since begin().
double end();

} // namespace bench::count
