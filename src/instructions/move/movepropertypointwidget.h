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
    using Motion = welmo::robot::Motion;
    using Setter = std::function<void(const QStringList &parts)>;

    explicit MovePropertyPointWidget(QWidget *parent = nullptr);
    ~MovePropertyPointWidget() override;

    /// @p type is "movel" (a target point) or "movec" (an auxiliary point before it). Without an
    /// auxiliary point, calls that concern it do nothing.
    void initialize(const QString &type);
    /// Fills the points' lists; what is chosen stays chosen.
    void setPointlist();
    /// Reads the lists, and what is shown of the points, again after the project changed.
    void refresh();

    /// The function's name ("default" without one), the point's name, then the numbers.
    static QStringList splitPoint(const QString &text);
    /// Selects the point that @p text names, in @p combo, and passes the parts of the text to @p
    /// setter. A point that the list lacks is added, since the line names it, and reported unless
    /// it is a built-in one.
    void handleSetPoint(QComboBox *combo, const QString &text, const Setter &setter);
    /// Show one point argument of a line.
    void setTargetPoint(const QString &text);
    void setAuxPoint(const QString &text);
    void setTargetOffsAndComplex(const QStringList &parts);
    void setAuxOffsAndComplex(const QStringList &parts);

    /// The point arguments of the line, the auxiliary point first.
    QString getParam() const;

    // These work on either point, and do nothing if @p point is null.
    static void computeComplex(welmo::PointGroup *point);
    static void saveLocation(welmo::PointGroup *point);
    static void updateLocation(welmo::PointGroup *point);
    static void moveToPoint(welmo::PointGroup *point, Motion motion);
    static void moveToComplex(welmo::PointGroup *point, Motion motion);

public slots:
    void updateTool(const QString &tool);
    void updateWobj(const QString &wobj);
    void onTabChanged(int index);

    void onRbtnOffsTargetChanged() { m_target->forgetComplex(); }
    void onRbtnOffsAuxChanged()
    {
        if (m_aux)
            m_aux->forgetComplex();
    }
    void onTargetOffsConfirmClicked() { computeComplex(m_target); }
    void onAuxOffsConfirmClicked() { computeComplex(m_aux); }
    void onTargetConfirmClicked() { saveLocation(m_target); }
    void onAuxConfirmClicked() { saveLocation(m_aux); }
    void onTargetUpdateLocationClicked() { updateLocation(m_target); }
    void onAuxUpdateLocationClicked() { updateLocation(m_aux); }
    void onTargetPointMoveJtoClicked() { moveToPoint(m_target, Motion::Joint); }
    void onTargetPointMoveLtoClicked() { moveToPoint(m_target, Motion::Linear); }
    void onTargetComplexMoveJtoClicked() { moveToComplex(m_target, Motion::Joint); }
    void onTargetComplexMoveLtoClicked() { moveToComplex(m_target, Motion::Linear); }
    void onAuxPointMoveJtoClicked() { moveToPoint(m_aux, Motion::Joint); }
    void onAuxPointMoveLtoClicked() { moveToPoint(m_aux, Motion::Linear); }
    void onAuxComplexMoveJtoClicked() { moveToComplex(m_aux, Motion::Joint); }
    void onAuxComplexMoveLtoClicked() { moveToComplex(m_aux, Motion::Linear); }
    void stopMove() { m_target->stopMove(); }

signals:
    /// A point was taught with these, and the line is to use them.
    void toolAndObjectWanted(const QString &tool, const QString &workObject);

private:
    welmo::PointGroup *addGroup(const QString &name, const QString &title);
    QList<welmo::PointGroup *> groups() const;

    QTabWidget *m_tabs;
    welmo::PointGroup *m_target;
    welmo::PointGroup *m_aux = nullptr; ///< null unless the move is circular
};
