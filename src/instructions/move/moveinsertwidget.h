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
    /// Reads all lists of the project again; what is chosen stays chosen, and what was preselected
    /// as active follows.
    void refresh();

    void resetSbxTarget();
    void resetSbxAux();
    /// The whole argument text after the instruction word.
    QString getParam() const;

    /// Adds a project point where the robot is, seen with @p tool in @p wobj, and chooses it as the
    /// auxiliary point when @p auxiliary is set, else as the target. An empty @p name is generated.
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
