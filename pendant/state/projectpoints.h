#pragma once

#include <QObject>
#include <QVariantList>
#include <functional>

namespace tessa {
class Host;
}

namespace welmo::pendant {

/// The points of the robot project, changed on the controller first and then in the host's tree.
/// What was not done is in the message log, with the reason.
class ProjectPoints : public QObject
{
    Q_OBJECT
public:
    explicit ProjectPoints(tessa::Host *host, QObject *parent = nullptr);

    QStringList names() const;
    /// Where the point is, with which tool and in which work object, in words.
    QString detail(const QString &name) const;

    bool rename(const QString &name, const QString &to);
    bool remove(const QString &name);
    /// The point is where the robot is now, seen with the tool and in the work object that it was
    /// taught with.
    bool touchUp(const QString &name);

signals:
    void changed();

private:
    using Change = std::function<bool(QVariantList &points, int row)>;

    bool edit(const QString &name, const Change &change, const QString &done);
    bool fail(const QString &text);

    tessa::Host *m_host;
};

} // namespace welmo::pendant
