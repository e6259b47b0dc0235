#include "data/parameterfile.h"

#include <QCoreApplication>

#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo::parameterfile {

namespace {

const QString nameKey = QStringLiteral("name");

struct ParameterFile
{
    Q_DECLARE_TR_FUNCTIONS(ParameterFile)
};

kelp::ModuleObject *moduleTree()
{
    return m(QStringLiteral("welmo"));
}

kelp::ModuleObject *makeLocalCopy(QObject *sender, const schema::FileSet &set, const QString &file)
{
    moduleTree()->set(sender, set.localPath(file), QString(), true);
    return moduleTree()->r(set.localPath(file));
}

kelp::ModuleObject *keepAnswer(QObject *sender, const schema::FileSet &set, const QString &file,
                               const kelp::ModuleObject *answer)
{
    kelp::ModuleObject *local = moduleTree()->r(set.localPath(file));
    if (host::isMissing(local))
        local = makeLocalCopy(sender, set, file);
    // Equal values are not written: a host may report that as a change, and two forms on the same
    // file would then reload each other without end.
    if (host::toVariant(local) != host::toVariant(answer))
        local->copyFrom(sender, answer, true, true);
    return local;
}

// False if the controller did not take the file.
bool create(QObject *sender, const schema::FileSet &set, const QString &file,
            kelp::ModuleObject *&data)
{
    kelp::ModuleObject *local = makeLocalCopy(sender, set, file);
    local->copyFrom(sender, data, true, true);
    data = local;
    data->set(sender, nameKey, file, true);
    const bool taken = xservice()->set(sender, set.node(), file, data)->getInt(0) == 0;
    if (!taken)
        report::error(sender, ParameterFile::tr("%1: could not be created").arg(file));
    // Copying the node onto itself changes nothing; it is kept because controllers in the field
    // know this order of calls.
    data->copyFrom(sender, moduleTree()->r(set.localPath(file)), true, true);
    return taken;
}

} // namespace

Fetch handleGetParam(QObject *sender, const schema::FileSet &set, const QComboBox *combo,
                     kelp::ModuleObject *&data, const std::function<void()> &useDefault)
{
    const QString file = combo->currentText();
    if (file.isEmpty())
        return Fetch::Failed; // without a key the whole set would be read, and written
    const auto answer = xservice()->get(sender, set.node(), file);
    if (arcweld::readFailed(answer)) {
        report::readFailed(sender, file);
        return Fetch::Failed;
    }
    if (answer->hasCmobj(nameKey, false)) {
        data = keepAnswer(sender, set, file, answer.get());
        return Fetch::Read;
    }
    kelp::ModuleObject *before = data;
    useDefault();
    if (create(sender, set, file, data))
        return Fetch::Created;
    data = before; // values that the controller does not have must not be shown
    return Fetch::Failed;
}

int handleSaveParam(QObject *sender, const schema::FileSet &set, const QComboBox *combo,
                    kelp::ModuleObject *data, const std::function<void()> &store)
{
    const QString file = combo->currentText();
    store();
    return xservice()->set(sender, set.node(), file, data)->getInt(0);
}

void handleFileNumChanged(QObject *sender, const QComboBox *combo, kelp::ModuleObject *&data,
                          const schema::FileSet &set, const std::function<void()> &useDefault,
                          const std::function<void()> &setForm)
{
    if (handleGetParam(sender, set, combo, data, useDefault) != Fetch::Failed)
        setForm();
}

void handleRemoveParam(QObject *sender, const schema::FileSet &set, const QList<int> &numbers)
{
    if (!report::requireConnection())
        return;
    const QVariant files = set.fileNames(numbers);
    if (xservice()->execCommand(nullptr, set.removeCommand(), files)->getInt(0) != 0)
        report::error(sender, ParameterFile::tr("remove parameter error"));
    else
        report::info(sender, ParameterFile::tr("remove parameter success"));
}

kelp::ModuleObject *defaultNode(const schema::FileSet &set)
{
    kelp::ModuleObject *node = moduleTree();
    for (const QString &part : set.defaultPath().split(QLatin1Char('.')))
        node = node->c(part, true);
    return node;
}

} // namespace welmo::parameterfile
