#pragma once

#include "schema/row.h"

namespace welmo::schema {

/// A set that is a single node instead of numbered files.
class OptionSet : public Set
{
public:
    explicit OptionSet(const QString &setName)
        : Set(QStringLiteral("welding_options"), setName)
    { }
};

class RunningSet : public OptionSet
{
public:
    RunningSet();

    IntegerRow testRunSpeed{*this, "test_run_speed", 200, {1, 250}, Unit::MillimetrePerSecond};
    /// The default is a whole number; what the operator sets has decimals.
    RealRow wireFeedSpeed{*this, "wire_feed_speed", 1, {1, 21}, Unit::MetrePerMinute};
    IntegerRow gasDetectTime{*this, "gas_detect_time", 15, {1, 30}, Unit::Second};
};

class AnticollisionSet : public OptionSet
{
public:
    AnticollisionSet();

    SwitchRow enable{*this, "enable"};
    InputRow signal{*this, "signal"};
    SwitchRow block{*this, "block"};
};

class ClampingSet : public OptionSet
{
public:
    ClampingSet();

    ChoiceRow enable{*this, "enable", choices::modeSwitch(), false};
    InputRow signal{*this, "signal"};
};

const RunningSet &running();
const AnticollisionSet &anticollision();
const ClampingSet &clamping();

} // namespace welmo::schema
