#include "data/parameterset.h"

namespace welmo {

QStringList ParameterSet::fileNames(const QList<int> &numbers) const
{
    QStringList names;
    for (int number : numbers)
        names.append(prefix + QString::number(number));
    return names;
}

QList<int> ParameterSet::allNumbers()
{
    QList<int> numbers;
    for (int number = 1; number <= fileCount; ++number)
        numbers.append(number);
    return numbers;
}

namespace sets {

const ParameterSet &arcon()
{
    static const ParameterSet set{"process_setting", "arcon_param", "arcondata"};
    return set;
}

const ParameterSet &weld()
{
    static const ParameterSet set{"process_setting", "weld_param", "arcdata"};
    return set;
}

const ParameterSet &arcoff()
{
    static const ParameterSet set{"process_setting", "arcoff_param", "arcoffdata"};
    return set;
}

const ParameterSet &weave()
{
    static const ParameterSet set{"weave_function", "weave_param", "weavedata"};
    return set;
}

const ParameterSet &seg()
{
    static const ParameterSet set{"seg_parameter", "seg_param", "segdata"};
    return set;
}

} // namespace sets

} // namespace welmo
