#pragma once

class QWidget;

namespace bench {

/// The package's forms and pages from uic alone, put together and styled as the package does it,
/// with the same parts hidden; nothing is connected, listed or filled.
namespace raw {

QWidget *arcOn(QWidget *parent);
QWidget *arcOff(QWidget *parent);
QWidget *moveL(QWidget *parent);
QWidget *moveC(QWidget *parent);
QWidget *weaveOn(QWidget *parent);
QWidget *feedOnWire(QWidget *parent);

// Pages get their style from the page around them.
QWidget *devices(QWidget *parent);
QWidget *options(QWidget *parent);
QWidget *process(QWidget *parent);
QWidget *weave(QWidget *parent);

/// The page around the four, with its strip of buttons; @p pages of them on a stack, the first one
/// shown. The stack is its child.
QWidget *arcWeldPage(QWidget *parent, int pages);
QWidget *monitor(QWidget *parent);

} // namespace raw

} // namespace bench
