#pragma once

class QObject;
namespace tessa {
class Host;
}

namespace welmo::pendant {

/// Tells in the message log why the controller refused a parameter file, after what the package
/// says itself: that it was not saved; in the name of @p cell.
void tellRefusals(tessa::Host *host, QObject *cell);

} // namespace welmo::pendant
