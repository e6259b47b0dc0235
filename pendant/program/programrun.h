#pragma once

#include <QObject>
#include <QVariant>

namespace welmo::pendant {

class ProgramDocument;

/// The program on the controller: sends it, starts, pauses and stops it, and follows where it is.
class ProgramRun : public QObject
{
    Q_OBJECT
public:
    enum class State { Unknown, Idle, Running, Paused, Failed };

    explicit ProgramRun(ProgramDocument *document, QObject *parent = nullptr);

    State state() const { return m_state; }
    /// True while the controller goes through a program, also through a paused one; and when the
    /// link was lost then, until it is known again.
    bool isUnderWay() const
    {
        return m_state == State::Running || m_state == State::Paused || m_wasUnderWay;
    }
    /// The line that the controller is at, or failed at; -1 when it is in none, or in a program
    /// that is not the one shown.
    int line() const;
    /// The state in words for the operator.
    QString text() const;

    /// Where a seam of the shown program can be welded again, in mm with one decimal; empty when
    /// none can.
    QString reweldPlace() const;

    /// Sends the program as it is shown and starts it, or goes on where it was paused.
    void start();
    /// The same from @p line, counted from 0, on; what was paused is over.
    void runFrom(int line);
    /// One line without an arc: the next one where it is paused, otherwise @p line.
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
    bool m_wasUnderWay = false; // when the link was lost
};

} // namespace welmo::pendant
