#include "pendant/program/hostreader.h"

#include "schema/names.h"
#include "tessa/host.h"

namespace welmo::pendant {

namespace {

QVariant projectList(const QString &key)
{
    QVariantList items;
    for (const kelp::ModuleObject *item : m(names::project + QLatin1Char('.') + key)->cmobjs())
        items.append(item->toVariant());
    return items;
}

QVariant readNode(const QString &path)
{
    if (path == names::toolPage)
        return m(names::toolPage)->toVariant();
    return xservice()->get(nullptr, path)->toVariant();
}

} // namespace

controller::Reply HostReader::load(const QString &path, const QString &key,
                                   const QVariant &fallback) const
{
    const bool isList = path == names::project;
    const QString place = isList ? path + key : path;
    if (!m_read.contains(place))
        m_read.insert(place, isList ? projectList(key) : readNode(path));
    QVariant value = m_read.value(place);
    if (!isList && !key.isEmpty())
        value = value.toMap().value(key);
    return controller::Reply::with(value.isValid() ? value : fallback);
}

} // namespace welmo::pendant
