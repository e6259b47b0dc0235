#include "tools/plantpage/sessions.h"

#include <QDeadlineTimer>
#include <QRandomGenerator>
#include <chrono>
#include <future>

#include "link/mqtt/plantreader.h"

using welmo::links::PlantReader;

namespace plantpage {

namespace {

constexpr int mostSessions = 100;
constexpr auto patience = std::chrono::seconds(10); // of who signs in
constexpr auto idle = std::chrono::minutes(30); // an open page asks each second
constexpr int sweepMs = 60 * 1000;

QString newToken()
{
    QByteArray random;
    for (int i = 0; i < 4; ++i) {
        const quint64 part = QRandomGenerator::system()->generate64();
        random.append(reinterpret_cast<const char *>(&part), sizeof(part));
    }
    return QString::fromLatin1(random.toHex());
}

} // namespace

class Session
{
public:
    Session(const welmo::links::BrokerAddress &address, bool readsAll)
        : viewer{address.user, readsAll}
        , reader({address, {}, false})
    { }

    Viewer viewer;
    bool isAccepted = false;
    int refusals = 0; // by how many of the brokers
    QDeadlineTimer until{idle};
    PlantReader reader;
};

Sessions::Sessions(const welmo::links::BrokerAddress &address)
    : m_address(address)
{
    connect(&m_idle, &QTimer::timeout, this, &Sessions::endIdle);
    m_idle.start(sweepMs);
}

Sessions::~Sessions() = default;

Sessions::Answer Sessions::signIn(const QString &user, const QString &password)
{
    const auto promised = std::make_shared<std::promise<Answer>>();
    auto future = promised->get_future();
    const Answered answered = [promised](const Answer &answer) { promised->set_value(answer); };
    QMetaObject::invokeMethod(
        this, [=] { begin(user, password, answered); }, Qt::QueuedConnection);
    if (future.wait_for(patience) == std::future_status::ready)
        return future.get();
    return {{}, QStringLiteral("the broker does not answer")};
}

void Sessions::begin(const QString &user, const QString &password, const Answered &answered)
{
    if (m_sessions.size() >= mostSessions) {
        answered({{}, QStringLiteral("too many people are signed in")});
        return;
    }
    welmo::links::BrokerAddress address = m_address;
    address.user = user;
    address.password = password;
    const QString token = newToken();
    auto made = std::make_unique<Session>(address, user == m_address.user);
    Session *session = made.get();
    {
        const std::lock_guard lock(m_mutex);
        m_sessions[token] = std::move(made);
    }
    connect(&session->reader, &PlantReader::heard, this, [this, session](const QString &cell) {
        const std::lock_guard lock(m_mutex);
        session->viewer.cells.insert(cell);
    });
    connect(&session->reader, &PlantReader::reached, this, [this, session, token, answered] {
        if (accept(session))
            answered({token, {}});
    });
    connect(&session->reader, &PlantReader::problem, this,
            [this, session, token, answered](const QString &line) {
                if (session->isAccepted || ++session->refusals != m_address.count())
                    return;
                // A broker that accepts late must not answer again.
                disconnect(&session->reader, nullptr, this, nullptr);
                answered({{}, line});
                // Not now: the reader is still at it.
                QTimer::singleShot(0, this, [this, token] { end(token); });
            });
    session->reader.start();
}

/// False if it was accepted before.
bool Sessions::accept(Session *session)
{
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(session->isAccepted, true))
            return false;
    }
    emit occupied(true);
    return true;
}

void Sessions::end(const QString &token)
{
    decltype(m_sessions)::node_type ended; // whose connections end without the lock
    {
        const std::lock_guard lock(m_mutex);
        ended = m_sessions.extract(token);
    }
    emit occupied(!m_sessions.empty());
}

void Sessions::signOut(const QString &token)
{
    QMetaObject::invokeMethod(
        this, [this, token] { end(token); }, Qt::QueuedConnection);
}

std::optional<Viewer> Sessions::viewer(const QString &token)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_sessions.find(token);
    if (found == m_sessions.end() || !found->second->isAccepted)
        return std::nullopt;
    found->second->until = QDeadlineTimer(idle);
    return found->second->viewer;
}

void Sessions::endIdle()
{
    QStringList due;
    for (const auto &[token, session] : m_sessions) {
        if (session->until.hasExpired())
            due.append(token);
    }
    for (const QString &token : qAsConst(due))
        end(token);
}

} // namespace plantpage
