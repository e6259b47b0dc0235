#include "desk.h"

#include <utility>

#include "controller/json.h"
#include "fuzz.h"
#include "link/requests.h"
#include "pando/frame.h"

using tessa::LinkReply;
using tessa::LinkRequest;

VirtualCell::VirtualCell()
    : m_controller(*m_store, m_faults, m_journal, [this] { return m_now; })
{
    m_controller.setNotify([this](const QString &path, const QVariant &values) {
        require(controller::isPlain(values), "what is told is plain", path);
        if (told)
            told(path, values);
    });
    require(m_controller.start().ok(), "the controller starts");
}

void VirtualCell::pass(int ms)
{
    m_now += ms;
    m_controller.tick();
}

QVariantMap VirtualCell::values()
{
    QVariantMap values;
    const auto nodes = m_controller.nodes();
    for (auto node = nodes.begin(); node != nodes.end(); ++node)
        values.insert(node.key(), handle({controller::Request::Kind::Get, node.key()}).value);
    return values;
}

class Desk::DirectLink : public tessa::ControllerLink
{
public:
    LinkReply call(const LinkRequest &request, int) override
    {
        const bool reads =
            request.kind == LinkRequest::Kind::Get || request.kind == LinkRequest::Kind::Watch;
        if (reads && answer)
            return {0, *answer};
        const controller::Reply reply = cell.handle(links::toController(request));
        return {reply.code, reply.value};
    }
    void open() override { }
    void close() override { }
    bool isUp() const override { return true; }

    VirtualCell cell;
    std::optional<QVariant> answer;
};

Desk::Desk()
{
    auto &frame = pando::frame();
    frame.center = new pando::CenterWidget(&m_window);
    frame.rightSide = new pando::ExpandSideBar(&m_window);
    frame.status = new pando::StatusBar(&m_window);
    m_host = std::make_unique<tessa::Host>(tessa::HostOptions{m_folder.path()});
    m_host->workspace()->bindTree("welmo", ":/welmo/template/welmo.json", false);
    QObject::connect(m_host->helper(), &tessa::ManagerHelper::logThrown, m_host.get(),
                     [this](const QObject *, const QString &level, const QString &text) {
                         m_messages.append({level, text});
                     });
    auto link = std::make_unique<DirectLink>();
    m_link = link.get();
    m_link->cell.told = [this](const QString &path, const QVariant &values) {
        emit m_link->notified(path, values);
    };
    m_host->setLink(std::move(link));
}

Desk::~Desk() = default;

VirtualCell &Desk::cell()
{
    return m_link->cell;
}

void Desk::setAnswer(const std::optional<QVariant> &value)
{
    m_link->answer = value;
}

void Desk::notify(const QString &path, const QVariant &values)
{
    emit m_link->notified(path, values);
}

QStringList Desk::take(const QString &level)
{
    QStringList texts;
    for (const auto &[its, text] : std::exchange(m_messages, {})) {
        if (its == level)
            texts.append(text);
    }
    return texts;
}
