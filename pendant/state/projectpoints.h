#pragma once

#include <QObject>
#include <QVariantList>
#include <functional>

namespace tessa {
class Host;
}

namespace welmo::pendant {

/// The points of the robot project, changed first on the controller, then in the host's tree.
/// Failures are reported in the message log with the reason.
class ProjectPoints : public QObject
{
    Q_OBJECT
public:
    explicit ProjectPoints(tessa::Host *host, QObject *parent = nullptr);

    QStringList names() const;
    /// The point's place, tool and work object, in words.
    QString detail(const QString &name) const;

    bool rename(const QString &name, const QString &to);
    /// Adds a copy under the first free name of its kind, as p5 for p3; returns the name, or an
    /// empty text.
    QString copy(const QString &name);
    bool remove(const QString &name);
    /// Moves the point to the robot's position, read with the tool and in the work object that the
    /// point was taught with.
    bool touchUp(const QString &name);

signals:
    void changed();

private:
    using Change = std::function<bool(QVariantList &points, int row)>;

    bool edit(const QString &name, const Change &change, const std::function<QString()> &done);
    bool fail(const QString &text);

    tessa::Host *m_host;
};

} // namespace welmo::pendant
