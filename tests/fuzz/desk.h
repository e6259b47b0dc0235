#pragma once

#include <QTemporaryDir>
#include <QWidget>
#include <optional>

#include "controller/controller.h"
#include "controller/faults.h"
#include "controller/journal.h"
#include "controller/store.h"
#include "tessa/host.h"

/// A controller in memory with a clock that somebody turns.
class VirtualCell
{
public:
    VirtualCell();

    controller::Reply handle(const controller::Request &request)
    {
        return m_controller.handle(request);
    }
    /// Lets that many milliseconds pass.
    void pass(int ms);
    /// A store's values, by node.
    QVariantMap values();

    std::function<void(const QString &path, const QVariant &values)> told;

private:
    std::unique_ptr<controller::Store> m_store = controller::Store::inMemory();
    controller::Faults m_faults;
    controller::Journal m_journal;
    qint64 m_now = 1000;
    controller::Controller m_controller;
};

/// What forms and pages need around them: a host, a frame, and a controller on the same thread, so
/// that a call costs no more than its work.
class Desk
{
public:
    Desk();
    ~Desk();

    QWidget *window() { return &m_window; }
    tessa::Host &host() { return *m_host; }
    VirtualCell &cell();
    /// What the controller is to answer to every read and subscription from now on.
    void setAnswer(const std::optional<QVariant> &value);
    /// The controller tells that a node has these values.
    void notify(const QString &path, const QVariant &values);
    /// The messages since the last call: their texts, if they are of that level.
    QStringList take(const QString &level);

private:
    class DirectLink;

    QTemporaryDir m_folder;
    QWidget m_window; // goes after the host, whose modules have their widgets in here
    std::unique_ptr<tessa::Host> m_host;
    DirectLink *m_link;
    QVector<QPair<QString, QString>> m_messages;
};
