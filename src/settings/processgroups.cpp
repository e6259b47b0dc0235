#include "settings/processgroups.h"

#include <QCoreApplication>

#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo {

namespace {

struct ProcessForm
{
    Q_DECLARE_TR_FUNCTIONS(ProcessForm)
};

} // namespace

void ProcessGroups::useDefaultNode()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->file().useDefaultNode();
}

void ProcessGroups::getParamFromTessa()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->file().get();
}

void ProcessGroups::reload()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->file().select();
}

void ProcessGroups::initVariant()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->initVariant();
}

void ProcessGroups::initParamRange()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->initParamRange();
}

void ProcessGroups::initParamValue()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->file().start();
}

void ProcessGroups::setupMode(QLabel *label, QComboBox *combo, const QStringList &items,
                              const QString &labelText)
{
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (group->setupMode(label, combo, items, labelText))
            return;
    }
}

void ProcessGroups::changeCurrentMode(const QObject *sender, int index)
{
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender == group->currentMode())
            group->onCurrentModeChanged(index);
    }
}

void ProcessGroups::changeVoltageMode(const QObject *sender, int index)
{
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender == group->voltageMode())
            group->onVoltageModeChanged(index);
    }
}

void ProcessGroups::switchVoltageMode(const QDoubleSpinBox *box, int mode)
{
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (box == group->voltage())
            group->handleSwitchVoltageMode(mode);
    }
}

void ProcessGroups::getWelderParamRange()
{
    if (!arcweld::isConnected())
        return;
    const auto limits = WelderLimits::read(m_home);
    if (!limits)
        return;
    for (ProcessGroup *group : qAsConst(m_groups))
        group->applyWelder(*limits);
}

void ProcessGroups::selectFile(const QObject *sender)
{
    if (!arcweld::isConnected()) {
        report::warning(m_home, report::notConnected());
        return;
    }
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender == group->file().combo())
            group->file().select();
    }
}

void ProcessGroups::save(const QObject *sender)
{
    if (!report::requireConnection(m_home))
        return;
    int result = 0;
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender != group->saveButton())
            continue;
        if (!group->file().maySave())
            return;
        result = group->file().save();
    }
    if (result != 0)
        report::error(m_home, ProcessForm::tr("save parameter error"));
    else
        report::info(m_home, ProcessForm::tr("save parameter succeed"));
}

void ProcessGroups::cancel(const QObject *sender)
{
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender == group->cancelButton())
            group->file().show();
    }
}

} // namespace welmo
