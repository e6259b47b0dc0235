#include "controller/files/fileset.h"

#include <algorithm>
#include <map>

namespace welmo::controller {

namespace {

using schema::Range;
using schema::Stored;
using schema::Unit;

// The widest range that makes sense for a number in this unit.
Range widest(Unit unit)
{
    switch (unit) {
    case Unit::None:
        return {0, 1000};
    case Unit::ByCurrentMode:
    case Unit::Ampere:
        return {0, 5000};
    case Unit::ByVoltageMode:
        return {0, 10000};
    case Unit::Millisecond:
    case Unit::ByReferenceAndDwell:
    case Unit::Second:
        return {0, 1000000};
    case Unit::ByReference:
    case Unit::Millimetre:
    case Unit::MillimetrePerSecond:
        return {0, 100000};
    case Unit::MetrePerMinute:
        return {0, 100};
    case Unit::Degree:
        return {-360, 360};
    }
    return {};
}

// Includes the pendant's range, so that what it offers is never refused.
Range accepted(const schema::Row &row)
{
    const Range wide = widest(row.unit);
    return {std::min(wide.minimum, row.range.minimum), std::max(wide.maximum, row.range.maximum)};
}

Field fieldOf(const schema::Row &row, const char *key, Range range)
{
    switch (row.stored) {
    case Stored::Text:
        return text(key);
    case Stored::Boolean:
        return boolean(key);
    case Stored::Integer:
        return integer(key, int(range.minimum), int(range.maximum));
    case Stored::Real:
        return number(key, range.minimum, range.maximum);
    case Stored::Integers:
        return threeIntegers(key, int(range.minimum), int(range.maximum));
    }
    return {};
}

Fields generousFieldsOf(const schema::Set &set)
{
    Fields fields;
    for (const schema::Row *row : set.rows()) {
        fields.push_back(fieldOf(*row, row->key, accepted(*row)));
        if (row->twinKey())
            fields.push_back(fieldOf(*row, row->twinKey(), accepted(*row)));
    }
    return fields;
}

std::map<const schema::FileSet *, Fields> fieldsOfAll()
{
    std::map<const schema::FileSet *, Fields> all;
    for (const schema::FileSet *set : schema::fileSets())
        all.emplace(set, generousFieldsOf(*set));
    return all;
}

} // namespace

const Fields &fieldsOf(const schema::FileSet &set)
{
    static const auto all = fieldsOfAll();
    return all.at(&set);
}

Fields strictFieldsOf(const schema::Set &set)
{
    Fields fields;
    for (const schema::Row *row : set.rows())
        fields.push_back(fieldOf(*row, row->key, row->range));
    return fields;
}

} // namespace welmo::controller
