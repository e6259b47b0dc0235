#include "pendant/program/programrun.h"

#include "pendant/program/programdocument.h"
#include "pendant/program/runresult.h"
#include "pendant/state/reasontext.h"
#include "schema/names.h"
#include "tessa/managerhelper.h"

namespace welmo::pendant {

namespace {

ProgramRun::State stateNamed(const QString &word)
{
    using State = ProgramRun::State;
    static const QHash<QString, State> states{{QStringLiteral("idle"), State::Idle},
                                              {QStringLiteral("running"), State::Running},
                                              {QStringLiteral("paused"), State::Paused},
                                              {QStringLiteral("error"), State::Failed}};
    return states.value(word, State::Unknown);
}

} // namespace

ProgramRun::ProgramRun(ProgramDocument *document, QObject *parent)
    : QObject(parent)
    , m_document(document)
{
    setObjectName(QStringLiteral("ProgramRun"));
    auto *node = xservice()->watchNode(names::programState);
    connect(node, &kelp::ModuleObject::changed, this, &ProgramRun::follow);
    connect(tessa::ManagerHelper::instance()->controllerManager(),
            &tessa::ControllerManager::rcConnected, this, &ProgramRun::reload);
    connect(xservice(), &XService::connectedChanged, this, [this](bool connected) {
        if (!connected) {
            m_wasUnderWay = isUnderWay();
            m_state = State::Unknown;
            emit changed();
        }
    });
    connect(document, &ProgramDocument::contentsChanged, this, &ProgramRun::changed);
    xservice()->watch(this, names::programState, true);
    if (xservice()->isConnected())
        reload();
}

void ProgramRun::reload()
{
    const auto answer = xservice()->get(this, names::programState);
    follow(answer->toVariant());
}

void ProgramRun::follow(const QVariant &values)
{
    const QVariantMap map = values.toMap();
    const auto take = [&map](const char *key, auto &member) {
        const QVariant value = map.value(QLatin1String(key));
        if (value.isValid())
            member = value.value<std::decay_t<decltype(member)>>();
    };
    QString word;
    take("state", word);
    take("name", m_name);
    take("line", m_line);
    take("message", m_message);
    take("result", m_result);
    take("reweld", m_reweld);
    take("stepped", m_stepped);
    if (!word.isEmpty()) {
        m_state = stateNamed(word);
        m_wasUnderWay = false;
    }
    emit changed();
}

int ProgramRun::line() const
{
    const bool isThere = isUnderWay() || m_state == State::Failed;
    return isThere && isOurs() ? m_line - 1 : -1;
}

bool ProgramRun::isOurs() const
{
    return m_document->isSent() && m_document->title() == m_name;
}

QString ProgramRun::reweldPlace() const
{
    if (!isOurs() || m_reweld.value(QStringLiteral("line")).toInt() == 0)
        return {};
    return QString::number(m_reweld.value(QStringLiteral("from")).toDouble(), 'f', 1);
}

bool ProgramRun::endedBadly() const
{
    const bool hasFaults = !itemsOf(m_result.value(QStringLiteral("faults"))).isEmpty();
    return m_state == State::Failed || (m_state == State::Idle && hasFaults);
}

QString ProgramRun::text() const
{
    switch (m_state) {
    case State::Unknown:
        return tr("No connection to the controller");
    case State::Idle:
        if (m_result.value(QStringLiteral("end")).toString().isEmpty())
            return tr("Ready");
        return isOurs() ? tr("Ready (%1)").arg(runResultText(m_result))
                        : tr("Ready (%1: %2)").arg(m_name, runResultText(m_result));
    case State::Running:
        return tr("%1 runs, line %2").arg(m_name).arg(m_line);
    case State::Paused:
        return tr("%1 is paused at line %2").arg(m_name).arg(m_line);
    case State::Failed:
        return tr("%1: %2").arg(m_name, runResultText(m_result));
    }
    return {};
}

void ProgramRun::start()
{
    if (m_state == State::Paused || load())
        send(names::runProgram, {}, tr("The controller did not start the program (%1)"));
}

void ProgramRun::runFrom(int line)
{
    if (m_state == State::Paused)
        stop();
    startAt(names::runProgram, line);
}

void ProgramRun::step(int line)
{
    if (m_state == State::Paused)
        send(names::stepProgram, {}, tr("The controller made no step (%1)"));
    else
        startAt(names::stepProgram, line);
}

void ProgramRun::stepBack()
{
    const QVariantMap back{{QStringLiteral("back"), true}};
    send(names::stepProgram, back, tr("The controller made no step (%1)"));
}

// The program is sent first: the controller may have another one of the same name.
void ProgramRun::reweld()
{
    if (load())
        send(names::reweldProgram, {}, tr("The controller did not weld again (%1)"));
}

void ProgramRun::startAt(const QString &command, int line)
{
    const QVariantMap from{{QStringLiteral("line"), line + 1}};
    if (load())
        send(command, from, tr("The controller did not start the program (%1)"));
}

bool ProgramRun::load()
{
    const QVariantMap program{
        {QStringLiteral("name"), m_document->title()},
        {QStringLiteral("text"), QString::fromUtf8(m_document->text().toBytes())}};
    if (!send(names::loadProgram, program, tr("The controller did not take the program (%1)")))
        return false;
    m_document->setSent();
    return true;
}

void ProgramRun::pause()
{
    send(names::pauseProgram, {}, tr("The controller did not pause the program (%1)"));
}

void ProgramRun::stop()
{
    send(names::stopProgram, {}, tr("The controller did not stop the program (%1)"));
}

bool ProgramRun::send(const QString &command, const QVariant &value, const QString &failure)
{
    const auto answer = xservice()->execCommand(this, command, value);
    const int code = answer->getInt(0);
    if (code != 0)
        tessa::ManagerHelper::instance()->throwLog(this, QStringLiteral("error"),
                                                   failure.arg(answerText(*answer)));
    return code == 0;
}

} // namespace welmo::pendant
