#pragma once

#include <QString>
#include <stdexcept>

class QAbstractSpinBox;
class QComboBox;
class QWidget;

namespace testsupport {

/// An operator could not touch this: it is not there, covered, or disabled.
class OutOfReach : public std::runtime_error
{
public:
    explicit OutOfReach(const QString &why)
        : std::runtime_error(why.toStdString())
    { }
};

/// Touches widgets as an operator does: through the window system, where the widget is seen. Throws
/// OutOfReach if an operator could not do that.
namespace finger {

/// The least width and height for a finger, in pixels.
constexpr int smallestTouch = 45;

/// Touches the middle of @p target, which is scrolled into sight first.
void touch(QWidget *target);
/// Opens the combo and touches its row @p row.
void choose(QComboBox *combo, int row);
/// Replaces what stands in the field by typing @p text, and leaves the field.
void type(QAbstractSpinBox *field, const QString &text);

} // namespace finger

} // namespace testsupport
