#pragma once

#include <QMap>
#include <QObject>
#include <QTimer>
#include <functional>

#include "book/records/bookthread.h"
#include "book/records/filehistory.h"

namespace welmo::schema {
class FileSet;
}

namespace welmo::book {

/// The parameter files as the controller has them, and which version of each that is. A change,
/// made by whomever, becomes a new version in the book; who made it is looked up in the
/// controller's audit, where there is one.
class FileWatch : public QObject
{
    Q_OBJECT
public:
    /// @p keeping is borrowed.
    FileWatch(BookThread *keeping, QObject *parent = nullptr);

    /// Hands over what the book knew; nothing gets a version before.
    void load(const QVector<FileVersion> &newest);
    /// Reads everything, and hears of changes from now on: the link has come up.
    void listen();

    /// By name; each as the controller told it.
    const QMap<QString, QVariant> &files() const { return m_files; }
    /// 0 for a file that the book never saw.
    qint64 version(const QString &file) const { return m_newest.value(file).number; }
    FileVersion newest(const QString &file) const { return m_newest.value(file); }

    static const schema::FileSet *setOf(const QString &file);

signals:
    void changed();
    /// A line: what could not be kept.
    void failed(const QString &line);

private:
    struct Unnamed
    {
        QString file;
        qint64 number;
    };

    void follow(const schema::FileSet &set);
    void readAll(const schema::FileSet &set);
    void take(const QString &file, const QVariant &content);
    void note(const QString &file);
    void keep(const std::function<bool(FileHistory)> &work);
    void askWho();
    void name(const Unnamed &version, const QVariantList &audit);

    BookThread *m_keeping;
    QMap<QString, QVariant> m_files;
    QHash<QString, FileVersion> m_newest;
    QVector<Unnamed> m_unnamed;
    QTimer m_soon; // many changes come at once, and the audit is long
    bool m_loaded = false;
};

} // namespace welmo::book
