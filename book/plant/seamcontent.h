#pragma once

#include <QVariantMap>

#include "book/records/course.h"
#include "book/records/seam.h"

namespace welmo::book {

/// A finished seam with its course as a message carries it: each of seamColumns() that is known, by
/// its name, "course_rate", and "course", a list of parts in base64.
QVariantMap toContent(const Seam &seam, const Samples &samples);

/// A seam out of such a message; false if it is none, or of an impossible size.
struct SeamContent
{
    Seam seam;
    QVector<QByteArray> course; ///< its parts, each as packed() makes it
    int rate = Course::fullRate;

    bool read(const QVariantMap &content);
};

} // namespace welmo::book
