#pragma once

#include <optional>

#include "controller/core/reader.h"
#include "controller/robot/robotarm.h"

namespace welmo::controller {

/// What the robot project says by name: tools, work objects, points and speeds. A name that the
/// project does not have is refused, with the name in the text.
class ProjectData
{
public:
    /// @p reader is borrowed.
    explicit ProjectData(const Reader &reader)
        : m_reader(reader)
    { }

    /// Stands for the base frame, or for a work object's own user frame.
    static const QString noFrame;

    /// The pose in a map that holds it as "pose.frame", as all of the project's do.
    static Frame frameIn(const QVariant &map);
    /// The inverse, without the outer "pose".
    static QVariantMap poseMap(const Frame &frame);

    /// The tip of a tool in the flange's frame; without a name the tool of the tool page.
    Reply toolTip(const QString &name, Frame *frame) const;
    /// @p name, or without one what is chosen on the tool page of that kind: "tool" or "wobj".
    QString chosen(const QString &kind, const QString &name) const;
    /// A work object in the base frame.
    Reply reference(const QString &userFrame, const QString &workObject, Frame *frame) const;
    /// A point in its work object's frame, and that work object's name.
    Reply point(const QString &name, Frame *frame, QString *workObject) const;
    /// Millimetres a second.
    Reply speed(const QString &name, double *speed) const;
    /// Only whether there is such a zone: every point is gone to exactly.
    Reply zone(const QString &name) const;

private:
    Reply item(const QString &kind, const QString &name) const;

    const Reader &m_reader;
};

} // namespace welmo::controller
