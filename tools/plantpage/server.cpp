#include "tools/plantpage/server.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <httplib.h>
#include <string_view>

#include "tools/plantpage/content.h"
#include "tools/plantpage/sessions.h"

using welmo::book::PlantBook;

// A library's resources are there only once somebody names them, outside of any namespace.
static void initResources()
{
    Q_INIT_RESOURCE(plantpage);
}

namespace plantpage {

namespace {

constexpr size_t threads = 24; // each serves one connection, which a browser keeps a while
constexpr int keepAliveSeconds = 3;
constexpr size_t mostBytes = 4096; // of what a browser sends
constexpr auto afterRefusal = std::chrono::seconds(1); // so that nobody tries many passwords
constexpr int unauthorized = 401;
constexpr int notFound = 404;
constexpr int failed = 503;

constexpr std::string_view cookieName = "welmo_session=";

QString text(const std::string &value)
{
    return QString::fromStdString(value);
}

void answer(httplib::Response &response, const QJsonObject &content, int status = 200)
{
    response.status = status;
    response.set_content(QJsonDocument(content).toJson(QJsonDocument::Compact).toStdString(),
                         "application/json");
}

void refuse(httplib::Response &response, int status, const QString &reason)
{
    answer(response, {{QStringLiteral("error"), reason}}, status);
}

QString tokenOf(const httplib::Request &request)
{
    const std::string cookies = request.get_header_value("Cookie");
    const size_t at = cookies.find(cookieName);
    if (at == std::string::npos)
        return {};
    const size_t begin = at + cookieName.size();
    return text(cookies.substr(begin, cookies.find(';', begin) - begin));
}

void setCookie(httplib::Response &response, const QString &token)
{
    const std::string life = token.isEmpty() ? "; Max-Age=0" : "";
    response.set_header("Set-Cookie",
                        std::string(cookieName) + token.toStdString()
                            + "; Path=/; HttpOnly; SameSite=Strict" + life);
}

content::Question questionOf(const httplib::Request &request)
{
    return {text(request.get_param_value("from")).toLongLong(),
            text(request.get_param_value("until")).toLongLong(),
            text(request.get_param_value("cell"))};
}

} // namespace

Server::Server(Sessions *sessions, const Watch *watch, OpenBook openBook)
    : m_sessions(sessions)
    , m_watch(watch)
    , m_openBook(std::move(openBook))
    , m_server(std::make_unique<httplib::Server>())
{ }

Server::~Server()
{
    m_server->stop();
    if (m_thread.joinable())
        m_thread.join();
}

QString Server::start(const Options &options)
{
    initResources();
    m_server->new_task_queue = [] { return new httplib::ThreadPool(threads); };
    m_server->set_keep_alive_timeout(keepAliveSeconds);
    m_server->set_payload_max_length(mostBytes);
    m_server->set_tcp_nodelay(true);
    // Nothing of another origin, and no script within the page.
    m_server->set_default_headers({{"Content-Security-Policy", "default-src 'self'"},
                                   {"X-Content-Type-Options", "nosniff"},
                                   {"Referrer-Policy", "no-referrer"},
                                   {"Cache-Control", "no-store"}});
    addFiles(options.chartScript);
    addSession();
    addQuestions();
    const std::string host = options.host.toStdString();
    m_port = options.port;
    if (m_port == 0)
        m_port = m_server->bind_to_any_port(host);
    else if (!m_server->bind_to_port(host, m_port))
        m_port = -1;
    if (m_port < 0)
        return QStringLiteral("cannot listen on %1:%2").arg(options.host).arg(options.port);
    m_thread = std::thread([this] { m_server->listen_after_bind(); });
    return {};
}

void Server::addFiles(const QString &chartScript)
{
    const auto serve = [this](const std::string &path, const QString &name, const char *type) {
        QFile file(name);
        (void)file.open(QFile::ReadOnly); // those of the program are there, the other was checked
        m_server->Get(path,
                      [data = file.readAll().toStdString(), type](const httplib::Request &,
                                                                  httplib::Response &response) {
                          response.set_content(data, type);
                      });
    };
    const QString folder = QStringLiteral(":/plantpage/web/");
    static const QHash<QString, const char *> types{
        {QStringLiteral("html"), "text/html; charset=utf-8"},
        {QStringLiteral("css"), "text/css"},
        {QStringLiteral("js"), "text/javascript"},
        {QStringLiteral("svg"), "image/svg+xml"}};
    const QStringList names = QDir(folder).entryList();
    for (const QString &name : names)
        serve('/' + name.toStdString(), folder + name, types.value(QFileInfo(name).suffix()));
    serve("/", folder + QStringLiteral("index.html"), "text/html; charset=utf-8");
    serve("/chart.js", chartScript, "text/javascript");
}

void Server::addSession()
{
    m_server->Post(
        "/session", [this](const httplib::Request &request, httplib::Response &response) {
            const QJsonObject asked =
                QJsonDocument::fromJson(QByteArray::fromStdString(request.body)).object();
            const QString user = asked.value(QStringLiteral("user")).toString();
            const QString password = asked.value(QStringLiteral("password")).toString();
            const Sessions::Answer answered = user.isEmpty() || password.isEmpty()
                ? Sessions::Answer{{}, QStringLiteral("a name and a password are needed")}
                : m_sessions->signIn(user, password);
            if (answered.token.isEmpty()) {
                std::this_thread::sleep_for(afterRefusal);
                refuse(response, unauthorized, answered.problem);
                return;
            }
            setCookie(response, answered.token);
            answer(response, {});
        });
    m_server->Delete("/session",
                     [this](const httplib::Request &request, httplib::Response &response) {
                         m_sessions->signOut(tokenOf(request));
                         setCookie(response, {});
                         answer(response, {});
                     });
}

Server::Answer Server::forViewers(const std::function<void(const Viewer &, const httplib::Request &,
                                                           httplib::Response &)> &answerTo) const
{
    return [this, answerTo](const httplib::Request &request, httplib::Response &response) {
        if (const auto viewer = m_sessions->viewer(tokenOf(request)))
            answerTo(*viewer, request, response);
        else
            refuse(response, unauthorized, QStringLiteral("not signed in"));
    };
}

void Server::addQuestions()
{
    m_server->Get("/api/plant",
                  forViewers([this](const Viewer &viewer, const auto &, auto &response) {
                      answer(response, content::plant(viewer, *m_watch));
                  }));
    m_server->Get("/api/reasons", forViewers([](const Viewer &, const auto &, auto &response) {
                      answer(response, content::reasons());
                  }));
    using FromBook =
        std::function<QJsonObject(const Viewer &, PlantBook &, const httplib::Request &)>;
    const auto add = [this](const char *path, const FromBook &read) {
        m_server->Get(
            path,
            forViewers([this, read](const Viewer &viewer, const auto &request, auto &response) {
                QString problem;
                const auto book = m_openBook(&problem);
                if (!book)
                    return refuse(response, failed, problem);
                const QJsonObject content = read(viewer, *book, request);
                if (!book->errorText().isEmpty())
                    return refuse(response, failed, book->errorText());
                answer(response, content, content.isEmpty() ? notFound : 200);
            }));
    };
    using Read = QJsonObject (*)(const Viewer &, PlantBook &, const content::Question &);
    const std::pair<const char *, Read> lists[] = {{"/api/sums", &content::sums},
                                                   {"/api/seams", &content::seams},
                                                   {"/api/alarms", &content::alarms},
                                                   {"/api/changes", &content::changes}};
    for (const auto &[path, read] : lists) {
        add(path, [read = read](const Viewer &viewer, PlantBook &book, const auto &request) {
            return read(viewer, book, questionOf(request));
        });
    }
    add("/api/seam", [](const Viewer &viewer, PlantBook &book, const auto &request) {
        return content::seam(viewer, book, text(request.get_param_value("id")).toLongLong());
    });
}

} // namespace plantpage
