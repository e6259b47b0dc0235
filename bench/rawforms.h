#pragma once

class QWidget;

namespace bench {

/// The package's forms and pages as uic makes them, arranged and styled like the package's, with
/// the same parts hidden, but without connections, items and values.
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

/// The page around the four, with its strip of buttons; @p pages of them on a stack, its child,
/// which shows the first one.
QWidget *arcWeldPage(QWidget *parent, int pages);
QWidget *monitor(QWidget *parent);

} // namespace raw

} // namespace bench
