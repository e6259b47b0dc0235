#pragma once

#include <QObject>
#include <QVariant>

namespace welmo::pendant {

class ProgramDocument;

/// The program on the controller: sends it, starts, pauses and stops it, and follows its line.
class ProgramRun : public QObject
{
    Q_OBJECT
public:
    enum class State { Unknown, Idle, Running, Paused, Failed };

    explicit ProgramRun(ProgramDocument *document, QObject *parent = nullptr);

    State state() const { return m_state; }
    /// Whether the run that ended last failed, or finished with a fault.
    bool endedBadly() const;
    /// True while the controller runs a program or has paused it; if the link was lost meanwhile,
    /// until the state is known again.
    bool isUnderWay() const
    {
        return m_state == State::Running || m_state == State::Paused || m_wasUnderWay;
    }
    /// The line that the controller is at, or failed at; -1 if it is at none, or runs another
    /// program than the one shown.
    int line() const;
    /// The state in words for the operator.
    QString text() const;

    /// Whether the program is paused after steps: a seam that they touched has no arc when it goes
    /// on.
    bool isStepped() const { return m_state == State::Paused && m_stepped; }

    /// The place in the shown program from which a seam can be welded again, in mm with one
    /// decimal; empty if there is none.
    QString reweldPlace() const;

    /// Sends the program as it is shown and starts it, or resumes it if it is paused.
    void start();
    /// As start(), but from @p line, counted from 0; a paused run ends.
    void runFrom(int line);
    /// Runs one line without an arc: the next one if paused, otherwise @p line.
    void step(int line);
    void stepBack();
    void reweld();
    void pause();
    void stop();

signals:
    void changed();

private:
    bool isOurs() const;
    bool load();
    void startAt(const QString &command, int line);
    bool send(const QString &command, const QVariant &value, const QString &failure);
    void reload();
    void follow(const QVariant &values);

    ProgramDocument *m_document;
    State m_state = State::Unknown;
    QString m_name;
    QString m_message;
    QVariantMap m_result;
    QVariantMap m_reweld;
    int m_line = 0; // counted from 1, 0 for none
    bool m_stepped = false;
    bool m_wasUnderWay = false; // when the link was lost
};

} // namespace welmo::pendant
