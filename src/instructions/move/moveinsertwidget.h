#pragma once

#include <QWidget>
#include <memory>

#include "instructions/move/pointedit.h"

class MoveParamWidget;
class QGroupBox;

/// The panel of a welding move's insert form: the points, and speed, zone, tool, work object and
/// weave file.
class MoveInsertWidget : public QWidget
{
    Q_OBJECT
public:
    explicit MoveInsertWidget(QWidget *parent = nullptr);
    ~MoveInsertWidget() override;

    /// @p type is "movel" (a target point) or "movec" (an auxiliary point before it).
    void initialize(const QString &type);
    /// Fills the points' lists and starts with the tool and the work object that are active on the
    /// pendant.
    void initUI();
    void initPointList();
    /// Reads the project's lists again. The user's choices stay; a tool or work object that was
    /// preselected as active follows the active one.
    void refresh();

    void resetSbxTarget();
    void resetSbxAux();
    /// The whole argument text after the instruction word.
    QString getParam() const;

    /// Adds a project point where the robot is, seen with @p tool in @p wobj, and selects it as the
    /// auxiliary or the target point. An empty @p name is generated.
    void autoAddNewPoint(const QString &name, bool auxiliary, const QString &tool,
                         const QString &wobj);

public slots:
    void onBtnTargetOffsClicked();
    void onBtnTargetReltoolClicked();
    void onBtnAuxOffsClicked();
    void onBtnAuxReltoolClicked();

private:
    QGroupBox *makeBox(const QString &title, welmo::PointEdit *edit);
    void addNotice(QGroupBox *box, const welmo::PointEdit *edit);

    welmo::PointEdit *m_aux;
    welmo::PointEdit *m_target;
    QGroupBox *m_auxBox;
    MoveParamWidget *m_parameters;
};
