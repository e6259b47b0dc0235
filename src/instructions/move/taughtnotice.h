#pragma once

#include <QWidget>

class QLabel;

namespace welmo {

/// Says that a point was taught with another tool, or in another work object, than the line uses,
/// and offers the point's own: the robot would go elsewhere than it was taught. Hidden where they
/// agree.
class TaughtNotice : public QWidget
{
    Q_OBJECT
public:
    explicit TaughtNotice(QWidget *parent = nullptr);

    /// @p point by its name; an empty @p tool or @p workObject is not compared.
    void compare(const QString &point, const QString &tool, const QString &workObject);

signals:
    /// The line shall use these; one that is empty stays as it is.
    void ownWanted(const QString &tool, const QString &workObject);

private:
    QLabel *m_text;
    QString m_tool;
    QString m_workObject;
};

} // namespace welmo
