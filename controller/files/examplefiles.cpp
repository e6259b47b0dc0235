#include "controller/files/examplefiles.h"

#include "controller/core/fields.h"
#include "schema/filesets.h"
#include "schema/welders.h"

namespace welmo::controller {

namespace {

/// Settings for a fillet of one bead; A and V at the torch, mm/s along the seam.
struct Steel
{
    int thickness; // mm
    double startCurrent, startVoltage;
    double current, voltage;
    int speed;
    double craterCurrent, craterVoltage;
};

constexpr Steel steels[] = {
    {3, 140, 20, 135, 19.5, 8, 90, 17},
    {6, 210, 24, 220, 25.5, 7, 130, 20},
    {10, 250, 27, 280, 29.5, 5, 160, 22},
};

void put(QVariantMap &file, const schema::Row &row, const QVariant &value)
{
    file = withChild(file, QLatin1String(row.key), value);
}

QVariantMap newFile(const schema::Set &set)
{
    QVariantMap file;
    for (const schema::Row *row : set.rows())
        put(file, *row, row->defaultValue());
    return file;
}

Store::Change fileOf(const schema::ProcessSet &set, int number, const Steel &steel, double current,
                     double voltage)
{
    QVariantMap file = newFile(set);
    const QString name = set.prefix + QString::number(number);
    put(file, set.fileName, name);
    put(file, set.annotation, QString::fromUtf8("%1 mm, Ø 1.2 mm").arg(steel.thickness));
    put(file, set.voltageMode, QLatin1String(schema::codes::separate));
    put(file, set.current, current);
    put(file, set.voltage, voltage);
    return {set.node(), name, file};
}

QVector<Store::Change> exampleFiles()
{
    QVector<Store::Change> changes;
    int number = 0;
    for (const Steel &steel : steels) {
        ++number;
        changes.append(
            fileOf(schema::arcOn(), number, steel, steel.startCurrent, steel.startVoltage));
        Store::Change weld = fileOf(schema::weld(), number, steel, steel.current, steel.voltage);
        QVariantMap file = weld.value.toMap();
        put(file, schema::weld().weldSpeed, steel.speed);
        weld.value = file;
        changes.append(weld);
        changes.append(
            fileOf(schema::arcOff(), number, steel, steel.craterCurrent, steel.craterVoltage));
    }
    return changes;
}

QVariantMap connectedWelder()
{
    const schema::WelderSettingSet &set = schema::welderSetting();
    QVariantMap setting = newFile(set);
    put(setting, set.enable, true);
    put(setting, set.connectToWelder, true);
    return setting;
}

} // namespace

Reply addExampleFiles(ControllerContext &context)
{
    for (const schema::FileSet *set : schema::fileSets()) {
        Reply present = context.loadAll(set->node());
        if (!present.ok() || !present.value.toMap().isEmpty())
            return present;
    }
    QVector<Store::Change> changes = exampleFiles();
    if (!context.load(names::welderSetting).value.isValid())
        changes.append({names::welderSetting, {}, connectedWelder()});
    return context.save(changes);
}

} // namespace welmo::controller
