#pragma once

#include <QObject>
#include <QString>

namespace tessa {
class Host;
}

namespace welmo::pendant {

/// Opens and closes the link, and describes its state.
class LinkControl : public QObject
{
    Q_OBJECT
public:
    enum class State { Off, Connecting, Up };

    explicit LinkControl(tessa::Host *host, QObject *parent = nullptr);

    State state() const;
    /// The state in words for the operator.
    QString text() const;
    /// The state as a word for style rules: "off", "connecting" or "up".
    QString word() const;
    /// Path of the state's picture in the theme.
    QString picture() const;

    bool isWanted() const { return m_wanted; }
    /// Opens the link, which then keeps trying, or closes it.
    void setWanted(bool wanted);

signals:
    void changed();

private:
    tessa::Host *m_host;
    bool m_wanted = true;
};

} // namespace welmo::pendant
