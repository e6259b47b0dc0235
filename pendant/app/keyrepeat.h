#pragma once

namespace welmo::pendant {

/// Asks an X server to repeat a key that stays down as presses alone. Otherwise it sends a release
/// before each, and what a handle key holds stutters whenever the toolkit does not recognise one.
/// Nothing elsewhere.
void repeatWithoutReleases();

} // namespace welmo::pendant
