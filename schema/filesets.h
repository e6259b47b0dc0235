#pragma once

#include <limits>

#include "schema/processsets.h"

namespace welmo::schema {

class WeaveSet : public FileSet
{
public:
    /// @p frequency is the default of a new file: page and instruction differ, and programs in the
    /// field rely on both. The instruction's 0.01 is below the range and shown as 0.1.
    explicit WeaveSet(double frequency);

    ChoiceRow reference{*this, "weaving_reference", choices::weaveReferences(), codes::cycle};
    ChoiceRow pattern{*this, "pattern", choices::weavePatterns(), codes::triangular};
    RealRow lengthOrFrequency; ///< the range is the frequency's; a length takes 1 to 500
    RealRow amplitude{*this,      "amplitude.left", 0.1,
                      {0.1, 100}, Unit::Millimetre, AlsoStoredAs{"amplitude.right"}};
    ChoiceRow dwellType{*this, "dwell_type", choices::weaveDwellTypes(), codes::robotStay};
    IntegersRow dwellTime{*this, "dwell_time", {0, 10000}, Unit::ByReferenceAndDwell};
    RealRow radius{*this, "radius", 0.1, {0.1, 100}, Unit::Millimetre};
    ChoiceRow phaseInvert{*this, "phase_invert", choices::waveformDirections(), false};
    ChoiceRow elevationType{*this, "elevation_type", choices::elevationTypes(), codes::vPattern};
    RealRow leftElevation{*this, "elevation_angle.left", 0, {-90, 90}, Unit::Degree};
    RealRow rightElevation{*this, "elevation_angle.right", 0, {-90, 90}, Unit::Degree};
    RealRow inclination{*this, "inclination_angle", 0, {-90, 90}, Unit::Degree};
};

class SegSet : public FileSet
{
public:
    SegSet();

    ChoiceRow segType{*this, "seg_type", choices::segTypes(), codes::normalSegment};
    NameRow nonWeldedSpeed{*this, "non_welded_speed", QStringLiteral("v5")};
    RealRow weldedDistance{*this, "welded_distance", 0.1, anyDistance, Unit::Millimetre};
    RealRow nonWeldedDistance{*this, "non_welded_distance", 0.1, anyDistance, Unit::Millimetre};

private:
    static constexpr Range anyDistance{0.1, std::numeric_limits<double>::max()};
};

const WeaveSet &weave();
/// The same set with the instruction's own default.
const WeaveSet &weaveOfInstruction();
const SegSet &seg();

/// Every set of files that the controller keeps.
const std::vector<const FileSet *> &fileSets();
/// The set that has a file of this name; null if none has.
const FileSet *setOfFile(const QString &file);

} // namespace welmo::schema
