#include "data/weldersetting.h"

#include "schema/welders.h"

namespace welmo::weldersetting {

QString choiceKey(const char *key)
{
    return QStringLiteral("device_param.%1").arg(QLatin1String(key));
}

void keep(QObject *sender, kelp::ModuleObject *tree, const host::Answer &setting)
{
    const auto &rows = schema::welderSetting();
    const auto node = [&](const schema::Row &row) { return setting->r(QLatin1String(row.key)); };
    for (const schema::NameRow *row : {&rows.protocol, &rows.brand, &rows.type})
        tree->set(sender, choiceKey(row->key), node(*row)->getString(QString()), true);
    tree->set(sender, choiceKey(rows.ratedCurrent.key), node(rows.ratedCurrent)->getInt(0), true);
    tree->set(sender, QLatin1String(rows.enable.key), node(rows.enable)->getBool(false), true);
}

} // namespace welmo::weldersetting
