#pragma once

#include <QWidget>

class QLabel;

namespace welmo {

/// Warns that the line uses another tool or work object than the point was taught with, since the
/// robot would then go elsewhere, and offers the point's own. Hidden while they agree.
class TaughtNotice : public QWidget
{
    Q_OBJECT
public:
    explicit TaughtNotice(QWidget *parent = nullptr);

    /// @p point is a name; an empty @p tool or @p workObject is not compared.
    void compare(const QString &point, const QString &tool, const QString &workObject);

signals:
    /// The line is to use these; an empty one stays as it is.
    void ownWanted(const QString &tool, const QString &workObject);

private:
    QLabel *m_text;
    QString m_tool;
    QString m_workObject;
};

} // namespace welmo
