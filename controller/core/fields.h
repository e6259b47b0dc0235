#pragma once

#include <QVariant>
#include <vector>

#include "controller/core/request.h"
#include "schema/values.h"

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

// These make the rows of the tables of fields.
Field text(const char *key);
Field boolean(const char *key);
Field number(const char *key, double lowest, double highest);
/// A number without a fraction; 3.0 is accepted and stored as 3.
Field integer(const char *key, int lowest, int highest);
Field threeIntegers(const char *key, int lowest, int highest);

enum class Missing { Allowed, Refused };

/// Checks the plain value @p payload against @p fields. The reply holds it with its integers
/// converted to int, or says what is wrong. Codes are not checked, and unknown children are kept,
/// since newer welders and pendants may know more than this controller.
Reply checked(const QVariant &payload, const Fields &fields, Missing missing);

using schema::childAt;
/// @p map with @p value set at the dotted @p path; missing maps are made.
QVariantMap withChild(const QVariantMap &map, const QString &path, const QVariant &value);

} // namespace welmo::controller
