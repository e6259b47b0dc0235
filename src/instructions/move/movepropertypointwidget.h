#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

#include "instructions/move/pointgroup.h"

class QComboBox;
class QTabWidget;

/// The point panel of a welding move's property form: the target point and, for a circular move,
/// the auxiliary point, one to a tab.
class MovePropertyPointWidget : public QWidget
{
    Q_OBJECT
public:
    using Setter = std::function<void(const QStringList &parts)>;

    explicit MovePropertyPointWidget(QWidget *parent = nullptr);
    ~MovePropertyPointWidget() override;

    /// @p type is "movel" (a target point) or "movec" (an auxiliary point before it). Without an
    /// auxiliary point, what concerns it does nothing.
    void initialize(const QString &type);
    /// Fills the points' lists; what is chosen stays chosen.
    void setPointlist();

    /// The function's name ("default" without one), the point's name, then the numbers.
    static QStringList splitPoint(const QString &text);
    /// Chooses the point that @p text names, in @p combo, and hands the parts of the text to
    /// @p setter. A point that the list lacks is chosen nevertheless, since the line keeps it, and
    /// warned of unless it is a built-in one.
    void handleSetPoint(QComboBox *combo, const QString &text, const Setter &setter);
    /// Show one point argument of a line.
    void setTargetPoint(const QString &text);
    void setAuxPoint(const QString &text);
    void setTargetOffsAndComplex(const QStringList &parts);
    void setAuxOffsAndComplex(const QStringList &parts);

    /// The point arguments of the line, the auxiliary point first.
    QString getParam() const;

public slots:
    void updateTool(const QString &tool);
    void updateWobj(const QString &wobj);
    void onTabChanged(int index);

    void onRbtnOffsTargetChanged() { m_target->forgetComplex(); }
    void onRbtnOffsAuxChanged() { aux(&welmo::PointGroup::forgetComplex); }
    void onTargetOffsConfirmClicked() { m_target->computeComplex(); }
    void onAuxOffsConfirmClicked() { aux(&welmo::PointGroup::computeComplex); }
    void onTargetConfirmClicked() { m_target->saveLocation(); }
    void onAuxConfirmClicked() { aux(&welmo::PointGroup::saveLocation); }
    void onTargetUpdateLocationClicked() { m_target->updateLocation(); }
    void onAuxUpdateLocationClicked() { aux(&welmo::PointGroup::updateLocation); }
    void onTargetPointMoveJtoClicked() { m_target->moveToPoint(welmo::robot::Motion::Joint); }
    void onTargetPointMoveLtoClicked() { m_target->moveToPoint(welmo::robot::Motion::Linear); }
    void onTargetComplexMoveJtoClicked() { m_target->moveToComplex(welmo::robot::Motion::Joint); }
    void onTargetComplexMoveLtoClicked() { m_target->moveToComplex(welmo::robot::Motion::Linear); }
    void onAuxPointMoveJtoClicked()
    {
        aux(&welmo::PointGroup::moveToPoint, welmo::robot::Motion::Joint);
    }
    void onAuxPointMoveLtoClicked()
    {
        aux(&welmo::PointGroup::moveToPoint, welmo::robot::Motion::Linear);
    }
    void onAuxComplexMoveJtoClicked()
    {
        aux(&welmo::PointGroup::moveToComplex, welmo::robot::Motion::Joint);
    }
    void onAuxComplexMoveLtoClicked()
    {
        aux(&welmo::PointGroup::moveToComplex, welmo::robot::Motion::Linear);
    }
    void stopMove() { m_target->stopMove(); }

signals:
    /// The line shall use these: a point was taught with them.
    void toolAndObjectWanted(const QString &tool, const QString &workObject);

private:
    welmo::PointGroup *addGroup(const QString &name, const QString &title);
    QList<welmo::PointGroup *> groups() const;
    template<typename... Arguments>
    void aux(void (welmo::PointGroup::*action)(Arguments...), Arguments... arguments)
    {
        if (m_aux)
            (m_aux->*action)(arguments...);
    }

    QTabWidget *m_tabs;
    welmo::PointGroup *m_target;
    welmo::PointGroup *m_aux = nullptr; ///< only while the move is circular
};
