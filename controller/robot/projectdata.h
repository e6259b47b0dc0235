#pragma once

#include <optional>

#include "controller/core/reader.h"
#include "controller/robot/robotarm.h"

namespace welmo::controller {

/// Looks up the robot project's tools, work objects, points and speeds by name. An unknown name is
/// refused, with the name in the text.
class ProjectData
{
public:
    /// @p reader must outlive this.
    explicit ProjectData(const Reader &reader)
        : m_reader(reader)
    { }

    /// The name of the base frame, or of a work object's own user frame.
    static const QString noFrame;

    /// The pose at "pose.frame" in a map of the project.
    static Frame frameIn(const QVariant &map);
    /// The inverse, without the outer "pose".
    static QVariantMap poseMap(const Frame &frame);

    /// The tip of a tool in the flange's frame; an empty name is the tool of the tool page.
    Reply toolTip(const QString &name, Frame *frame) const;
    /// @p name or, if it is empty, the tool page's choice of that kind: "tool" or "wobj".
    QString chosen(const QString &kind, const QString &name) const;
    /// A work object in the base frame.
    Reply reference(const QString &userFrame, const QString &workObject, Frame *frame) const;
    /// A point in its work object's frame, and that work object's name.
    Reply point(const QString &name, Frame *frame, QString *workObject) const;
    /// In mm/s.
    Reply speed(const QString &name, double *speed) const;
    /// Only checks that there is such a zone: every point is reached exactly.
    Reply zone(const QString &name) const;

private:
    Reply item(const QString &kind, const QString &name) const;

    const Reader &m_reader;
};

} // namespace welmo::controller
