#include "instructions/tlarcweld.h"

#include "instructions/forms/arcoffpropertywidget.h"
#include "instructions/forms/arconpropertywidget.h"
#include "instructions/forms/fileinsertwidgets.h"
#include "instructions/forms/timedwidgets.h"
#include "instructions/forms/weaveonpropertywidget.h"
#include "instructions/forms/wordwidgets.h"
#include "instructions/move/moveforms.h"

using welmo::tl::Instruction;

namespace {

const QString groupKey = QStringLiteral("INS_GROUP_ARCON");

template<typename Widget>
tessa::BaseContentWidget *create(QWidget *parent)
{
    return new Widget(parent);
}

} // namespace

TlArcWeldDefine::TlArcWeldDefine(QObject *parent)
    : QObject(parent)
    , m_manager(tessa::TlManager::getTlManager())
{
    initArcWeldGroup();
}

template<typename InsertWidget, typename PropertyWidget>
void TlArcWeldDefine::add(Instruction instruction, const QString &syntax)
{
    const QString name = welmo::tl::instructionName(instruction);
    m_members.append(name);
    m_manager->instructionNames.append(name);
    m_manager->sTexts.insert(QStringLiteral("s_") + name, QString());
    m_manager->cTexts.insert(QStringLiteral("c_") + name, QString());
    m_manager->syntaxTemplates.insert(name, syntax);
    m_manager->instructionTexts.insert(name, QString());
    m_manager->insertWidgetCreators.insert(name, &create<InsertWidget>);
    m_manager->propertyWidgetCreators.insert(name, &create<PropertyWidget>);
}

void TlArcWeldDefine::initArcWeldGroup()
{
    add<ArconInsertWidget, ArconPropertyWidget>(Instruction::ArcOn,
                                                R"(ArcOn "arcondata", "arcdata")");
    add<ArcoffInsertWidget, ArcoffPropertyWidget>(Instruction::ArcOff, R"(ArcOff "arcoffdata")");
    add<WMoveLInsertWidget, WMoveLPropertyWidget>(
        Instruction::WMoveL, R"(WMoveL ToPoint, Speed, Zone, Tool, [Wobj], ["weavedata"])");
    add<WMoveCInsertWidget, WMoveCPropertyWidget>(
        Instruction::WMoveC,
        R"(WMoveC AuxPoint, ToPoint, Speed, Zone, Tool, [Wobj], ["weavedata"])");
    add<WeaveOnInsertWidget, WeaveOnPropertyWidget>(Instruction::WeaveOn, R"(WeaveOn "weavedata")");
    add<WeaveOffInsertWidget, WeaveOffPropertyWidget>(Instruction::WeaveOff, "WeaveOff");
    add<FeedOnWireInsertWidget, FeedOnWirePropertyWidget>(Instruction::FeedOnWire, "FeedOnWire t");
    add<FeedBackWireInsertWidget, FeedBackWirePropertyWidget>(Instruction::FeedBackWire,
                                                              "FeedBackWire t");
    add<DetectGasInsertWidget, DetectGasPropertyWidget>(Instruction::DetectGas, "DetectGas t");
    m_manager->groupMembers[groupKey].append(m_members);
    m_manager->instructionGroups.append({tr("Arc On"), groupKey});
}
