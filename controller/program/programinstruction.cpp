#include "controller/program/programinstruction.h"

#include <cmath>
#include <functional>

#include "controller/core/controllercontext.h"
#include "controller/files/fileset.h"
#include "controller/welding/weld.h"
#include "controller/welding/wireandgas.h"

namespace welmo::controller {

namespace {

/// An instruction that takes no time.
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
    ArcOn(QString arcOnFile, QString weldFile)
        : m_arcOnFile(std::move(arcOnFile))
        , m_weldFile(std::move(weldFile))
    { }

    Reply begin(ProgramStage &stage) override
    {
        Reply reply = stage.weld.openSeam(m_arcOnFile, m_weldFile, stage.arc);
        if (reply.ok() && stage.arc == Weld::Arc::Real)
            stage.track.open(stage.line);
        return reply;
    }
    std::optional<Reply> step(ProgramStage &stage) override
    {
        return stage.weld.holdsTorch() ? std::nullopt : std::make_optional<Reply>();
    }

private:
    QString m_arcOnFile;
    QString m_weldFile;
};

class ArcOff : public ProgramInstruction
{
public:
    explicit ArcOff(QString file)
        : m_file(std::move(file))
    { }

    Reply begin(ProgramStage &stage) override
    {
        Reply reply = stage.weld.closeSeam(m_file);
        if (reply.ok())
            stage.track.close(stage.line);
        return reply;
    }
    std::optional<Reply> step(ProgramStage &stage) override
    {
        return stage.weld.isWelding() ? std::nullopt : std::make_optional<Reply>();
    }

private:
    QString m_file;
};

/// Wire or gas for a time; in a dry run only the time passes.
class Timed : public ProgramInstruction
{
public:
    using Start = std::function<Reply(WireAndGas &)>;

    Timed(double seconds, Start start)
        : m_left(std::round(seconds * 1000))
        , m_start(std::move(start))
    { }

    Reply begin(ProgramStage &stage) override { return resume(stage); }
    std::optional<Reply> step(ProgramStage &stage) override
    {
        if (!stage.dry && !stage.wireAndGas.runsForProgram())
            return refusedFor(WrongState, {QStringLiteral("wire_stopped")},
                              QStringLiteral("it was stopped"));
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
    double m_left; // ms; a line may ask for more than an integer holds
    Start m_start;
};

std::unique_ptr<ProgramInstruction> makeWire(const tl::ParsedLine &line, WireAndGas::Wire direction)
{
    return std::make_unique<Timed>(
        *line.seconds, [direction](WireAndGas &wire) { return wire.moveByProgram(direction); });
}

std::unique_ptr<ProgramInstruction> makeGas(const tl::ParsedLine &line)
{
    return std::make_unique<Timed>(*line.seconds,
                                   [](WireAndGas &gas) { return gas.flowByProgram(); });
}

std::unique_ptr<ProgramInstruction> makeWeaveOn(const QString &file)
{
    return std::make_unique<Switch>(
        [file](ProgramStage &stage) { return readWeave(stage.context, file, &stage.weave); });
}

std::unique_ptr<ProgramInstruction> makeWeaveOff()
{
    return std::make_unique<Switch>([](ProgramStage &stage) {
        stage.weave.reset();
        return Reply{};
    });
}

} // namespace

std::unique_ptr<ProgramInstruction> makeInstruction(const tl::ParsedLine &line)
{
    using tl::Word;
    switch (line.instruction->word) {
    case Word::ArcOn:
        return std::make_unique<ArcOn>(*line.files[0], *line.files[1]);
    case Word::ArcOff:
        return std::make_unique<ArcOff>(*line.files[0]);
    case Word::WeaveOn:
        return makeWeaveOn(*line.files[0]);
    case Word::WeaveOff:
        return makeWeaveOff();
    case Word::FeedOnWire:
        return makeWire(line, WireAndGas::Wire::Feeding);
    case Word::FeedBackWire:
        return makeWire(line, WireAndGas::Wire::Retracting);
    case Word::DetectGas:
        return makeGas(line);
    case Word::MoveJ:
    case Word::MoveL:
    case Word::WMoveL:
    case Word::MoveC:
    case Word::WMoveC:
        return makeMove(line);
    case Word::SegOn:
    case Word::SegOff:
        break; // no form offers them
    }
    return nullptr;
}

Reply readWeave(const Reader &reader, const QString &file, std::optional<Weave> *weave)
{
    weave->reset();
    Reply stored =
        schema::weave().hasFile(file) ? reader.load(schema::weave().node(), file) : Reply{};
    if (!stored.ok())
        return stored;
    if (!stored.value.isValid())
        return refusedFor(OutOfRange, {QStringLiteral("no_file"), {file}},
                          QStringLiteral("there is no file \"%1\"").arg(file));
    *weave = Weave(stored.value.toMap());
    return {};
}

} // namespace welmo::controller
