#pragma once

namespace tessa {
class Host;
}

namespace welmo::pendant {

/// Tells in the message log why the controller refused a parameter file, after what the package
/// says itself: that it was not saved.
void tellRefusals(tessa::Host *host);

} // namespace welmo::pendant
