#include "support/formhost.h"

#include <QSignalSpy>

using tessa::LinkReply;
using tessa::LinkRequest;
using Kind = LinkRequest::Kind;

namespace testsupport {

namespace {

constexpr int patient = 60000; // ms; no healthy call takes that long

} // namespace

RecordingLink::RecordingLink()
{
    connect(&inner, &ControllerLink::upChanged, this, &ControllerLink::upChanged);
    connect(&inner, &ControllerLink::notified, this, &ControllerLink::notified);
    connect(&inner, &ControllerLink::problem, this, &ControllerLink::problem);
}

LinkReply RecordingLink::call(const LinkRequest &request, int)
{
    static const QMap<Kind, QString> words{
        {Kind::Get, "get"}, {Kind::Set, "set"}, {Kind::Watch, "watch"}, {Kind::Command, "do"}};
    const QString text =
        QStringList{words.value(request.kind), request.path, request.key}.join(' ').trimmed();
    requests.append(text);
    if (request.kind == Kind::Set || request.kind == Kind::Command)
        lastPayload = request.payload;
    if (text == breakAt) {
        inner.close();
        return {LinkReply::Lost, {}};
    }
    if (answers.contains(text))
        return {0, answers.value(text)};
    if (answerToReads && (request.kind == Kind::Get || request.kind == Kind::Watch))
        return {0, *answerToReads};
    return inner.call(request, patient);
}

FormHost::FormHost(Link link, const QString &language)
{
    auto &frame = pando::frame();
    frame.center = new pando::CenterWidget(&m_window);
    tessa::HostOptions options{m_folder.path(), language};
    if (isNasty()) {
        options.habits = nastyHabits();
    } else {
        frame.rightSide = new pando::ExpandSideBar(&m_window);
        frame.status = new pando::StatusBar(&m_window);
    }
    m_host = std::make_unique<tessa::Host>(options);
    m_host->workspace()->bindTree("welmo", ":/welmo/template/welmo.json", false);
    translator()->installQMTranslator(":/welmo/language/welmo_cn.qm");
    QObject::connect(m_host->helper(), &tessa::ManagerHelper::logThrown, m_host.get(), [this] {
        const auto &entry = m_host->helper()->log()->entries().first();
        m_messages.append(entry.level + ": " + entry.text + " [" + entry.sender + "]");
    });
    auto recording = std::make_unique<RecordingLink>();
    m_link = recording.get();
    m_host->setLink(std::move(recording));
    if (link == Down)
        m_link->close();
    else if (!wait(true))
        qFatal("the controller did not come up");
    takeRequests();
}

FormHost::~FormHost()
{
    if (isNasty()) // such a host destroys the frame before the modules
        qDeleteAll(m_window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
}

bool FormHost::isNasty()
{
    return qEnvironmentVariable("WELMO_HOST") == QLatin1String("nasty");
}

bool FormHost::connect()
{
    m_link->breakAt.clear();
    m_link->open();
    return wait(true);
}

void FormHost::spoil(Failure failure, const QString &request)
{
    if (failure == LinkDown)
        disconnect();
    else if (failure == Refused)
        faults()->setCode(request.section(' ', 1, 1), 7);
    else if (failure == NoAnswer)
        m_link->breakAt = request;
    else if (failure == DiskFull)
        faults()->set(welmo::controller::Faults::Fault::DiskFull, true);
}

bool FormHost::wait(bool up)
{
    QSignalSpy changed(m_host->service(), &XService::connectedChanged);
    while (m_host->service()->isConnected() != up) {
        if (!changed.wait())
            return false;
    }
    return true;
}

QString FormHost::typeHalf(QAbstractSpinBox *box, const QString &text)
{
    m_window.show();
    m_window.activateWindow();
    if (!QTest::qWaitForWindowActive(&m_window))
        qFatal("the window does not come to the front");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
    return box->text();
}

QStringList FormHost::takeErrors()
{
    QStringList errors;
    for (const QString &message : takeMessages()) {
        if (message.startsWith("error: "))
            errors.append(message.left(message.lastIndexOf(" [")).mid(7));
    }
    errors.sort();
    return errors;
}

QVariant FormHost::stored(const QString &path, const QString &key)
{
    return m_link->inner.call({Kind::Get, path, key, {}}, patient).value;
}

int FormHost::store(const QString &path, const QString &key, const QVariant &value)
{
    return m_link->inner.call({Kind::Set, path, key, value}, patient).code;
}

} // namespace testsupport
