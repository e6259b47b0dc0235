#pragma once

#include <QVariant>
#include <vector>

#include "controller/core/request.h"

namespace welmo::controller {

/// One known child of a payload: its dotted key, its type and, for numbers, its range.
struct Field
{
    enum class Type { Text, Boolean, Number, Integer, ThreeIntegers };

    const char *key = nullptr;
    Type type{};
    double lowest = 0;
    double highest = 0;
};

using Fields = std::vector<Field>;

// What the tables of fields are written with.
Field text(const char *key);
Field boolean(const char *key);
Field number(const char *key, double lowest, double highest);
/// A number without a fraction; 3.0 passes, and is stored as 3.
Field integer(const char *key, int lowest, int highest);
Field threeIntegers(const char *key, int lowest, int highest);

enum class Missing { Allowed, Refused };

/// @p payload, a plain value, checked against @p fields. The reply carries it with its integers
/// made ints, or says what is wrong. Texts are not compared with lists of codes, and children that
/// no field names are kept: newer welders and newer pendants know more than this controller.
Reply checked(const QVariant &payload, const Fields &fields, Missing missing);

/// The value at the dotted @p path in maps within maps; invalid when there is none.
QVariant childAt(const QVariant &map, const QString &path);
/// @p map with @p value at the dotted @p path, maps made on the way.
QVariantMap withChild(const QVariantMap &map, const QString &path, const QVariant &value);

} // namespace welmo::controller
