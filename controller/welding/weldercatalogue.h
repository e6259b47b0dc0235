#pragma once

#include <QStringList>
#include <QVariantMap>
#include <QVector>

namespace welmo::controller {

/// A kind of welding machine that the controller can drive.
struct WelderModel
{
    QString protocol;
    QString maker;
    QString model;
    QStringList workModes; ///< in the texts that a pendant shows and translates
};

/// A choice among the models: null when there is no such model.
const WelderModel *findWelder(const QString &protocol, const QString &maker, const QString &model);
/// The model that a new controller is set to.
const WelderModel &firstWelder();
/// The rated currents, in ampere, that every model comes in.
const QVector<int> &ratedCurrents();
/// Modes and voltage ranges of a model with a rated current: what a pendant offers.
QVariantMap deviceParamOf(const WelderModel &model, int ratedCurrent);

} // namespace welmo::controller
