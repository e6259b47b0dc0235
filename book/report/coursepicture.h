#pragma once

#include <QImage>

#include "book/records/limits.h"

namespace welmo::book {

/// A course for printing: a strip each for current, voltage and speed, with the limits as bands and
/// the set values dashed.
QImage coursePicture(const Seam &seam, const Course &course, const Limits &limits, QSize size);

} // namespace welmo::book
