#include "schema/filesets.h"

#include <algorithm>

namespace welmo::schema {

WeaveSet::WeaveSet(double frequency)
    : FileSet(QStringLiteral("weave_function"), QStringLiteral("weave_param"),
              QStringLiteral("weavedata"), Removal::None)
    , lengthOrFrequency(*this, "weave_length_frequency", frequency, {0.1, 5.0}, Unit::ByReference)
{ }

SegSet::SegSet()
    : FileSet(QStringLiteral("seg_parameter"), QStringLiteral("seg_param"),
              QStringLiteral("segdata"), Removal::None)
{ }

const WeaveSet &weave()
{
    static const WeaveSet set(0.1);
    return set;
}

const WeaveSet &weaveOfInstruction()
{
    static const WeaveSet set(0.01);
    return set;
}

const SegSet &seg()
{
    static const SegSet set;
    return set;
}

const std::vector<const FileSet *> &fileSets()
{
    static const std::vector<const FileSet *> sets{&arcOn(), &weld(), &arcOff(), &weave(), &seg()};
    return sets;
}

const FileSet *setOfFile(const QString &file)
{
    const auto &sets = fileSets();
    const auto found = std::find_if(sets.begin(), sets.end(),
                                    [&](const FileSet *set) { return set->hasFile(file); });
    return found == sets.end() ? nullptr : *found;
}

} // namespace welmo::schema
