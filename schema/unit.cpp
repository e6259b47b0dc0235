#include "schema/unit.h"

namespace welmo::schema {

QString symbol(Unit unit)
{
    switch (unit) {
    case Unit::None:
    case Unit::ByCurrentMode:
    case Unit::ByVoltageMode:
    case Unit::ByReference:
    case Unit::ByReferenceAndDwell:
        return {};
    case Unit::Ampere:
        return units::ampere;
    case Unit::Millisecond:
        return units::ms;
    case Unit::Second:
        return units::second;
    case Unit::Millimetre:
        return units::mm;
    case Unit::MillimetrePerSecond:
        return units::mmPerSecond;
    case Unit::MetrePerMinute:
        return units::metrePerMinute;
    case Unit::Degree:
        return units::degree;
    }
    return {};
}

} // namespace welmo::schema
