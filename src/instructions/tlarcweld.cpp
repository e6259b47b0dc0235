#include "instructions/tlarcweld.h"

#include "instructions/forms/arcoffpropertywidget.h"
#include "instructions/forms/arconpropertywidget.h"
#include "instructions/forms/fileinsertwidgets.h"
#include "instructions/forms/timedwidgets.h"
#include "instructions/forms/weaveonpropertywidget.h"
#include "instructions/forms/wordwidgets.h"
#include "instructions/move/moveforms.h"

using namespace welmo::tl;

namespace {

const QString groupKey = QStringLiteral("INS_GROUP_ARCON");

using Create = tessa::BaseContentWidget *(*)(QWidget *parent);

template<typename Widget>
tessa::BaseContentWidget *create(QWidget *parent)
{
    return new Widget(parent);
}

// The forms that have a class of their own.
struct Forms
{
    Word word;
    Create insert;
    Create property;
};

template<typename InsertWidget, typename PropertyWidget>
constexpr Forms forms(Word word)
{
    return {word, &create<InsertWidget>, &create<PropertyWidget>};
}

constexpr Forms ownForms[] = {
    forms<ArconInsertWidget, ArconPropertyWidget>(Word::ArcOn),
    forms<ArcoffInsertWidget, ArcoffPropertyWidget>(Word::ArcOff),
    forms<WMoveLInsertWidget, WMoveLPropertyWidget>(Word::WMoveL),
    forms<WMoveCInsertWidget, WMoveCPropertyWidget>(Word::WMoveC),
    forms<WeaveOnInsertWidget, WeaveOnPropertyWidget>(Word::WeaveOn),
    forms<WeaveOffInsertWidget, WeaveOffPropertyWidget>(Word::WeaveOff),
    forms<FeedOnWireInsertWidget, FeedOnWirePropertyWidget>(Word::FeedOnWire),
    forms<FeedBackWireInsertWidget, FeedBackWirePropertyWidget>(Word::FeedBackWire),
    forms<DetectGasInsertWidget, DetectGasPropertyWidget>(Word::DetectGas),
};

// The widget classes that serve all instructions of a kind; null for kinds that need one each.
template<typename TimedWidget, typename WordWidget>
std::function<tessa::BaseContentWidget *(QWidget *)> shared(const Instruction &instruction)
{
    const Word word = instruction.word;
    switch (instruction.kind) {
    case Kind::Timed:
        return [word](QWidget *parent) { return new TimedWidget(word, parent); };
    case Kind::Bare:
        return [word](QWidget *parent) { return new WordWidget(word, parent); };
    case Kind::Files:
    case Kind::Move:
        break;
    }
    return {};
}

} // namespace

TlArcWeldDefine::TlArcWeldDefine(QObject *parent)
    : QObject(parent)
    , m_manager(tessa::TlManager::getTlManager())
{
    initArcWeldGroup();
}

void TlArcWeldDefine::add(const Instruction &instruction)
{
    const QString name = instruction.text();
    m_manager->instructionNames.append(name);
    m_manager->sTexts.insert(QStringLiteral("s_") + name, QString());
    m_manager->cTexts.insert(QStringLiteral("c_") + name, QString());
    m_manager->syntaxTemplates.insert(name, QString::fromLatin1(instruction.syntax));
    m_manager->instructionTexts.insert(name, QString());
    auto insert = shared<welmo::TimedInsertWidget, welmo::WordInsertWidget>(instruction);
    auto property = shared<welmo::TimedPropertyWidget, welmo::WordPropertyWidget>(instruction);
    for (const Forms &own : ownForms) {
        if (own.word == instruction.word) {
            insert = own.insert;
            property = own.property;
        }
    }
    m_manager->insertWidgetCreators.insert(name, insert);
    m_manager->propertyWidgetCreators.insert(name, property);
}

void TlArcWeldDefine::initArcWeldGroup()
{
    QStringList members;
    for (const Instruction &instruction : instructions) {
        if (instruction.standing != Standing::Registered)
            continue;
        members.append(instruction.text());
        add(instruction);
    }
    m_manager->groupMembers[groupKey].append(members);
    m_manager->instructionGroups.append({tr("Arc On"), groupKey});
}
