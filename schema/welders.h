#pragma once

#include <QStringList>
#include <QVector>

#include "schema/row.h"

namespace welmo::schema {

/// A kind of welding machine, by the texts that the controller stores for it.
struct Welder
{
    QString protocol;
    QString brand;
    QString type;
    QVector<int> currents; ///< the rated currents in which it is built, A
    QStringList workModes; ///< its modes: source texts of choices::workModes()
};

/// Every welder that can be chosen; a new controller has the first.
const QVector<Welder> &welders();

/// One of the catalogue's texts in the language of the pendant.
QString shownWelderText(const QString &text);

/// The setting of the welder: the switches and the chosen machine.
class WelderSettingSet : public Set
{
public:
    WelderSettingSet();

    SwitchRow enable{*this, "enable"};
    SwitchRow connectToWelder{*this, "connect_to_welder"};
    NameRow protocol;
    NameRow brand;
    NameRow type;
    IntegerRow ratedCurrent;
};

const WelderSettingSet &welderSetting();

} // namespace welmo::schema
