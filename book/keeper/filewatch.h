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

/// The parameter files as the controller has them, and the version number of each. Every change,
/// whoever made it, becomes a new version in the book; its author is looked up in the controller's
/// audit, if there is one.
class FileWatch : public QObject
{
    Q_OBJECT
public:
    /// @p keeping must outlive this.
    FileWatch(BookThread *keeping, QObject *parent = nullptr);

    /// Passes the versions that the book has; files get no new version before.
    void load(const QVector<FileVersion> &newest);
    /// Reads everything and follows changes; called each time the link has come up.
    void listen();

    /// By name, as the controller sent them.
    const QMap<QString, QVariant> &files() const { return m_files; }
    /// 0 for a file that the book has never seen.
    qint64 version(const QString &file) const { return m_newest.value(file).number; }
    FileVersion newest(const QString &file) const { return m_newest.value(file); }

signals:
    void changed();
    /// A version was added; an invalid value stands for no file.
    void noted(const QString &file, const QVariant &before, const QVariant &after);
    /// One line: what could not be stored.
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
    // Delays the look at the audit, which is long, until changes that come together are in.
    QTimer m_soon;
    bool m_loaded = false;
};

} // namespace welmo::book
