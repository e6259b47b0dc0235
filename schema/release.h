#pragma once

#include <QMap>
#include <QVariantMap>
#include <optional>

#include "schema/fileset.h"

namespace welmo::schema {

/// A parameter file's released version, and how far an operator may trim it from there. Values that
/// cannot be trimmed stay as they were released.
struct Release
{
    QVariantMap content = {}; ///< the file as it was released
    QMap<QString, double> percent = {}; ///< by the trimmed keys; 0 or missing: locked
    QString user = {}; ///< who set it
    QString time = {};

    bool exists() const { return !content.isEmpty(); }

    static Release from(const QVariant &map);
    QVariantMap toMap() const;
};

/// The keys of the values that an operator may trim, of those that the set has.
QStringList trimmedKeys(const Set &set);
/// The file's value; of a missing key the default.
QVariant valueIn(const Set &set, const QVariant &file, const QString &key);
/// What an operator may set for a trimmed key.
Range allowedBy(const Set &set, const Release &release, const QString &key);

/// A value that a release does not allow.
struct Breach
{
    QString key;
    QVariant value;
    std::optional<Range> allowed; ///< without it only the released value is allowed

    /// The code and arguments for reasonText().
    QString reason() const;
    QVariantList arguments(const QString &file) const;
};

/// The first value of @p wanted that the release does not allow. What stays as it is @p stored is
/// never a breach, so that somebody else's change does not keep an operator from trimming.
std::optional<Breach> breachOf(const Set &set, const Release &release, const QVariant &stored,
                               const QVariant &wanted);

} // namespace welmo::schema
