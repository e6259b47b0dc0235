#include "controller/program/programinstruction.h"

#include <cmath>
#include <functional>
#include <map>

#include "controller/core/controllercontext.h"
#include "controller/files/fileset.h"
#include "controller/welding/weld.h"
#include "controller/welding/wireandgas.h"

namespace welmo::controller {

namespace {

Reply needs(const ProgramLine &line, const char *what)
{
    return Reply::refused(BadPayload,
                          QStringLiteral("%1 needs %2").arg(line.word, QLatin1String(what)));
}

/// An instruction that is through as soon as it has begun.
class Switch : public ProgramInstruction
{
public:
    using Action = std::function<Reply(ProgramStage &)>;

    explicit Switch(Action action)
        : m_action(std::move(action))
    { }

    Reply begin(ProgramStage &stage) override { return m_action(stage); }
    std::optional<Reply> step(ProgramStage &) override { return Reply{}; }

private:
    Action m_action;
};

class ArcOn : public ProgramInstruction
{
public:
    explicit ArcOn(ProgramLine line)
        : m_line(std::move(line))
    { }

    Reply begin(ProgramStage &stage) override
    {
        if (m_line.arguments.size() != 2)
            return needs(m_line, "an arc-start file and a welding file");
        return stage.weld.openSeam(unquoted(m_line.arguments.first()),
                                   unquoted(m_line.arguments.last()), stage.dry);
    }
    std::optional<Reply> step(ProgramStage &stage) override
    {
        return stage.weld.holdsTorch() ? std::nullopt : std::make_optional<Reply>();
    }

private:
    ProgramLine m_line;
};

class ArcOff : public ProgramInstruction
{
public:
    explicit ArcOff(ProgramLine line)
        : m_line(std::move(line))
    { }

    Reply begin(ProgramStage &stage) override
    {
        if (m_line.arguments.size() != 1)
            return needs(m_line, "an arc-end file");
        return stage.weld.closeSeam(unquoted(m_line.arguments.first()));
    }
    std::optional<Reply> step(ProgramStage &stage) override
    {
        return stage.weld.isWelding() ? std::nullopt : std::make_optional<Reply>();
    }

private:
    ProgramLine m_line;
};

/// Wire or gas for a time; a dry run lets the time pass without them.
class Timed : public ProgramInstruction
{
public:
    using Start = std::function<Reply(WireAndGas &)>;

    Timed(ProgramLine line, Start start)
        : m_line(std::move(line))
        , m_start(std::move(start))
    { }

    Reply begin(ProgramStage &stage) override
    {
        constexpr double longest = 3600;
        bool good = false;
        const double seconds = m_line.arguments.value(0).toDouble(&good);
        if (m_line.arguments.size() != 1 || !good || !(seconds >= 0 && seconds <= longest))
            return needs(m_line, "a time in seconds, up to an hour");
        m_left = int(std::lround(seconds * 1000));
        return resume(stage);
    }
    std::optional<Reply> step(ProgramStage &stage) override
    {
        if (!stage.dry && !stage.wireAndGas.runsForProgram())
            return Reply::refused(WrongState, QStringLiteral("it was stopped"));
        if (--m_left > 0)
            return {};
        stage.wireAndGas.stopProgram();
        return Reply{};
    }
    void pause(ProgramStage &stage) override { stage.wireAndGas.stopProgram(); }
    Reply resume(ProgramStage &stage) override
    {
        return stage.dry ? Reply{} : m_start(stage.wireAndGas);
    }

private:
    ProgramLine m_line;
    Start m_start;
    int m_left = 0; // ms
};

std::unique_ptr<ProgramInstruction> makeWire(const ProgramLine &line, WireAndGas::Wire direction)
{
    return std::make_unique<Timed>(
        line, [direction](WireAndGas &wire) { return wire.moveByProgram(direction); });
}

std::unique_ptr<ProgramInstruction> makeWeaveOn(const ProgramLine &line)
{
    return std::make_unique<Switch>([line](ProgramStage &stage) {
        if (line.arguments.size() != 1)
            return needs(line, "a weave file");
        return readWeave(stage.context, unquoted(line.arguments.first()), &stage.weave);
    });
}

using Make = std::function<std::unique_ptr<ProgramInstruction>(const ProgramLine &)>;

const std::map<QString, Make> &makers()
{
    using Line = const ProgramLine &;
    static const std::map<QString, Make> table{
        {QStringLiteral("ArcOn"), [](Line line) { return std::make_unique<ArcOn>(line); }},
        {QStringLiteral("ArcOff"), [](Line line) { return std::make_unique<ArcOff>(line); }},
        {QStringLiteral("WeaveOn"), makeWeaveOn},
        {QStringLiteral("WeaveOff"),
         [](Line) {
             return std::make_unique<Switch>([](ProgramStage &stage) {
                 stage.weave.reset();
                 return Reply{};
             });
         }},
        {QStringLiteral("FeedOnWire"),
         [](Line line) { return makeWire(line, WireAndGas::Wire::Feeding); }},
        {QStringLiteral("FeedBackWire"),
         [](Line line) { return makeWire(line, WireAndGas::Wire::Retracting); }},
        {QStringLiteral("DetectGas"),
         [](Line line) {
             return std::make_unique<Timed>(line,
                                            [](WireAndGas &gas) { return gas.flowByProgram(); });
         }},
    };
    return table;
}

} // namespace

std::unique_ptr<ProgramInstruction> makeInstruction(const ProgramLine &line)
{
    const auto maker = makers().find(line.word);
    return maker == makers().end() ? makeMove(line) : maker->second(line);
}

Reply readWeave(const ControllerContext &context, const QString &file, std::optional<Weave> *weave)
{
    weave->reset();
    Reply stored =
        schema::weave().hasFile(file) ? context.load(schema::weave().node(), file) : Reply{};
    if (!stored.ok())
        return stored;
    if (!stored.value.isValid())
        return Reply::refused(OutOfRange, QStringLiteral("there is no file \"%1\"").arg(file));
    *weave = Weave(stored.value.toMap());
    return {};
}

} // namespace welmo::controller
