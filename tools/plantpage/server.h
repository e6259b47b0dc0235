#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <thread>

#include "book/plant/plantbook.h"

namespace httplib {
class Server;
struct Request;
struct Response;
} // namespace httplib

namespace plantpage {

class Sessions;
class Watch;
struct Viewer;

/// Serves the page to browsers, read only, on threads of its own.
class Server
{
public:
    /// Opens the plant's book for one request, on that request's thread; null with a line if that
    /// fails.
    using OpenBook = std::function<std::unique_ptr<welmo::book::PlantBook>(QString *problem)>;

    struct Options
    {
        QString host; ///< this machine: passwords come unencrypted
        int port = 0; ///< 0: any that is free
        QString chartScript; ///< the file of Chart.js
    };

    /// Both have to outlive the server.
    Server(Sessions *sessions, const Watch *watch, OpenBook openBook);
    ~Server();

    /// Returns one line if the port cannot be used.
    QString start(const Options &options);
    int port() const { return m_port; }

private:
    using Answer = std::function<void(const httplib::Request &, httplib::Response &)>;

    void addFiles(const QString &chartScript);
    void addSession();
    void addQuestions();
    Answer forViewers(const std::function<void(const Viewer &, const httplib::Request &,
                                               httplib::Response &)> &answerTo) const;

    Sessions *m_sessions;
    const Watch *m_watch;
    const OpenBook m_openBook;
    int m_port = 0;
    std::unique_ptr<httplib::Server> m_server;
    std::thread m_thread;
};

} // namespace plantpage
