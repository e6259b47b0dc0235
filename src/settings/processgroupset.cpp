#include "settings/processgroupset.h"

#include <QCoreApplication>

#include "data/controller.h"
#include "data/report.h"

using namespace welmo;

namespace {

struct ProcessForm
{
    Q_DECLARE_TR_FUNCTIONS(ProcessForm)
};

} // namespace

void ProcessGroupSet::useDefaultNode()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->file().useDefaultNode();
}

void ProcessGroupSet::getParamFromTessa()
{
    for (ProcessGroup *group : qAsConst(m_groups))
        group->file().get();
}

void ProcessGroupSet::reload()
{
    QList<ProcessGroup *> read;
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (group->file().get())
            read.append(group);
    }
    for (ProcessGroup *group : qAsConst(read))
        group->file().show();
}

void ProcessGroupSet::getWelderParamRange()
{
    if (!controller::isConnected())
        return;
    const auto limits = WelderLimits::read(m_home);
    if (!limits)
        return;
    for (ProcessGroup *group : qAsConst(m_groups))
        group->applyWelder(*limits);
}

void ProcessGroupSet::selectFile(const QObject *sender)
{
    if (!controller::isConnected()) {
        report::warning(m_home, ProcessForm::tr("tessa not connected"));
        return;
    }
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender == group->file().combo())
            group->file().select();
    }
}

void ProcessGroupSet::save(const QObject *sender)
{
    if (!controller::isConnected()) {
        report::error(m_home, ProcessForm::tr("tessa is not connected"));
        return;
    }
    int result = 0;
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender == group->saveButton())
            result = group->file().save();
    }
    if (result != 0)
        report::error(m_home, ProcessForm::tr("save parameter error"));
    else
        report::info(m_home, ProcessForm::tr("save parameter succeed"));
}

void ProcessGroupSet::cancel(const QObject *sender)
{
    for (ProcessGroup *group : qAsConst(m_groups)) {
        if (sender == group->cancelButton())
            group->file().show();
    }
}
