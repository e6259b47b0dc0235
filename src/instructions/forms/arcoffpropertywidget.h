#pragma once

#include "instructions/forms/instructionform.h"
#include "settings/processgroups.h"

class ArcoffGroup;

/// Property form of ArcOff: the arc-end file that the line names.
class ArcoffPropertyWidget : public PropertyForm
{
    Q_OBJECT
public:
    explicit ArcoffPropertyWidget(QWidget *parent);

    void FillWith(const QString &line) override;
    QString ToString() override;

    void useArcoffDefaultNode() { arcoff().useDefaultNode(); }
    void useDefaultNode() { m_groups.useDefaultNode(); }
    void initArcoffParamDefault() { arcoff().writeDefaults(); }
    void getArcoffParam() { arcoff().get(); }
    void getParamFromTessa() { m_groups.getParamFromTessa(); }
    void storeArcoffParam() { arcoff().store(); }
    void setArcoffParam() { arcoff().show(); }
    int saveArcoffParam() { return arcoff().save(); }
    void selectArcoffFileNum() { arcoff().select(); }

public slots:
    void onParamFileNumberChanged(int) { m_groups.selectFile(sender()); }
    void onSaveButtonClicked() { m_groups.save(sender()); }
    void onCancelButtonClicked() { m_groups.cancel(sender()); }
    void onArcOffDataFoldButtonClicked();

private:
    welmo::FileForm &arcoff();

    ArcoffGroup *m_arcoff;
    ProcessGroups m_groups;
};
