#include "book/keeper/cellwriter.h"

#include <kelp/moduleobject.h>
#include <tessa/xservice.h>

#include "book/keeper/filedefaults.h"
#include "book/keeper/filewatch.h"
#include "book/records/filecontent.h"
#include "schema/filesets.h"
#include "schema/names.h"
#include "schema/optionsets.h"
#include "schema/reasons.h"

namespace welmo::book {

namespace {

// Sets lists as such: a list of maps would become children with names from the maps.
void fill(kelp::ModuleObject *node, const QVariant &value)
{
    if (value.userType() == QMetaType::QVariantList) {
        node->setList(nullptr, {}, value.toList(), false);
    } else if (value.userType() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            fill(node->c(it.key(), true), *it);
    } else {
        node->set(nullptr, {}, value, false);
    }
}

XService::Answer send(CellWriter *sender, const CellChange &change)
{
    if (!change.value.isValid()) {
        const QString set = change.node.mid(names::arcWeldPrefix.size());
        return xservice()->execCommand(sender, names::removePrefix + set,
                                       QVariant(QStringList{change.key}));
    }
    kelp::ModuleObject payload(change.key);
    fill(&payload, change.value);
    return change.key.isEmpty() ? xservice()->set(sender, change.node, &payload)
                                : xservice()->set(sender, change.node, change.key, &payload);
}

QString placeOf(const CellChange &change)
{
    return change.key.isEmpty() ? change.node : change.key;
}

QVariant listIn(const kelp::ModuleObject *node)
{
    QVariantList items;
    for (const kelp::ModuleObject *item : node->cmobjs())
        items.append(item->toVariant());
    return items;
}

// The reason that came with a refusal, else the code's text.
QString why(const kelp::ModuleObject *answer)
{
    const QString reason = answer->r(QStringLiteral("reason"))->getString();
    if (reason.isEmpty())
        return schema::codeText(answer->getInt(0));
    return schema::reasonText(reason, answer->r(QStringLiteral("arguments"))->getList());
}

// What to write to undo a change: an option set cannot be removed, so its defaults are written.
QVariant insteadOf(const CellChange &change)
{
    const schema::FileSet *file = schema::setOfFile(change.key);
    if (file && change.node == file->node() && !file->isRemovable)
        return defaultContent(*file, change.key);
    const std::initializer_list<const schema::Set *> options{
        &schema::running(), &schema::anticollision(), &schema::clamping()};
    for (const schema::Set *set : options) {
        if (change.node == set->node())
            return defaultsOf(*set);
    }
    return {};
}

// Without what the controller adds itself.
QVariant asWritten(const QString &node, const QVariant &value)
{
    QVariantMap map = value.toMap();
    if (node != names::released)
        return value;
    map.remove(QStringLiteral("user"));
    map.remove(QStringLiteral("time"));
    return map;
}

} // namespace

bool holds(const CellChange &change, const QVariant &stored)
{
    return sameValues(asWritten(change.node, stored), asWritten(change.node, change.value));
}

std::optional<QVariant> CellWriter::read(const QString &node, const QString &key)
{
    const auto answer =
        key.isEmpty() ? xservice()->get(this, node) : xservice()->get(this, node, key);
    if (!answer || (answer->getInt(0) != 0 && answer->cmobjs().isEmpty()))
        return {};
    if (node == names::project && !key.isEmpty())
        return listIn(answer.get());
    return answer->cmobjs().isEmpty() ? QVariant() : answer->toVariant();
}

std::optional<QVector<CellChange>> CellWriter::asStored(const QVector<CellChange> &changes,
                                                        QString *problem)
{
    QVector<CellChange> stored;
    for (const CellChange &change : changes) {
        const std::optional<QVariant> now = read(change.node, change.key);
        if (!now) {
            *problem = tr("%1 cannot be read").arg(placeOf(change));
            return {};
        }
        stored.append({change.node, change.key, now->isValid() ? *now : insteadOf(change)});
    }
    return stored;
}

bool CellWriter::write(const QVector<CellChange> &changes, int *done, QString *problem)
{
    for (*done = 0; *done < changes.size(); ++*done) {
        const CellChange &change = changes[*done];
        const auto answer = send(this, change);
        if (answer && answer->getInt(0) == 0)
            continue;
        *problem = QStringLiteral("%1: %2").arg(placeOf(change),
                                                answer ? why(answer.get()) : schema::codeText(-1));
        return false;
    }
    return true;
}

bool CellWriter::writeOrTakeBack(const QVector<CellChange> &changes,
                                 const QVector<CellChange> &before, QString *problem)
{
    int done = 0;
    m_isWhole = true;
    if (write(changes, &done, problem))
        return true;
    QString again;
    int back = 0;
    m_isWhole = write(before.mid(0, done), &back, &again);
    if (!m_isWhole)
        *problem += tr("; what was written before could not be put back (%1)").arg(again);
    return false;
}

bool CellWriter::apply(const QString &title, const QVector<CellChange> &changes, QString *problem)
{
    const auto before = asStored(changes, problem);
    if (!before || !writeOrTakeBack(changes, *before, problem))
        return false;
    m_steps.append({title, *before, changes});
    if (m_steps.size() > mostSteps)
        m_steps.removeFirst();
    emit stepsChanged();
    return true;
}

bool CellWriter::undo(QString *problem)
{
    const Step step = m_steps.value(m_steps.size() - 1);
    const auto now = asStored(step.after, problem);
    if (!now)
        return false;
    for (int i = 0; i < now->size(); ++i) {
        if (holds(step.after[i], now->at(i).value))
            continue;
        *problem = tr("%1 was changed since, so it is left as it is").arg(placeOf(step.after[i]));
        m_steps.removeLast();
        emit stepsChanged();
        return false;
    }
    if (!writeOrTakeBack(step.before, step.after, problem))
        return false;
    m_steps.removeLast();
    emit stepsChanged();
    return true;
}

} // namespace welmo::book
