#pragma once

#include <QImage>

#include "book/records/limits.h"

namespace welmo::book {

/// A course for paper: a strip for each of current, voltage and speed, limits as bands, the set
/// value dashed.
QImage coursePicture(const Seam &seam, const Course &course, const Limits &limits, QSize size);

} // namespace welmo::book
