#include "data/inputs.h"

#include <QCoreApplication>
#include <QTranslator>
#include <algorithm>

#include <kelp/moduleobject.h>
#include <vu/paths.h>

#include "schema/row.h"

namespace welmo::inputs {

namespace {

constexpr int digitalInput = 1; // signal_type of an input, as the controller numbers them

} // namespace

QString noSignal()
{
    return QCoreApplication::translate("Inputs", schema::noSignalSource);
}

QStringList noSignalTexts()
{
    QTranslator chinese;
    chinese.load(vu::languagePath(QStringLiteral("welmo_cn"), {}, QStringLiteral("welmo")));
    return {QString::fromLatin1(schema::noSignalSource),
            chinese.translate("Inputs", schema::noSignalSource)};
}

QStringList getDIRange()
{
    QStringList names{noSignal()};
    const auto inputs = m(QStringLiteral("orbo.robot.io.signal_detail"))->cmobjs(false);
    for (const kelp::ModuleObject *input : inputs) {
        if (!input->r(QStringLiteral("is_default_IO"))->getBool(false)
            && input->r(QStringLiteral("signal_type"))->getInt(0) == digitalInput)
            names.append(input->name());
    }
    sortInputs(names);
    return names;
}

bool ioCompare(const QString &a, const QString &b)
{
    const QStringList left = a.split(QLatin1Char('_'));
    const QStringList right = b.split(QLatin1Char('_'));
    if (left.size() < 2)
        return true;
    if (right.size() < 2)
        return false;
    const int leftBoard = left.first().midRef(2).toInt();
    const int rightBoard = right.first().midRef(2).toInt();
    if (leftBoard != rightBoard)
        return leftBoard < rightBoard;
    return left.at(1).toInt() < right.at(1).toInt();
}

void sortInputs(QStringList &names)
{
    std::stable_sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        return ioCompare(a, b) && !ioCompare(b, a);
    });
}

} // namespace welmo::inputs
