#pragma once

#include "settings/basesubpage.h"
#include "settings/weaveeditor.h"

/// The sub-page on which the operator picks a weave file, edits it and saves it.
class WeaveFunctionPage : public BaseSubPage
{
    Q_OBJECT
public:
    WeaveFunctionPage(QWidget *parent, QObject *owner);

    /// Reads the file again and shows it; while it cannot be read the form stays as it is.
    void initPage() override;

    void initParamDefault() { m_editor->initParamDefault(); }
    void initParamValue() { m_editor->initParamValue(); }
    void useWeaveDefaultNode() { m_editor->useWeaveDefaultNode(); }
    void getWeaveParam() { m_editor->getWeaveParam(); }
    void setWeaveParam() { m_editor->setWeaveParam(); }
    void storeWeaveParam() { m_editor->storeWeaveParam(); }
    int saveWeaveParam() { return m_editor->saveWeaveParam(); }
    bool validateParam() { return m_editor->validateParam(); }

public slots:
    void onFileNumberChanged(int index) { m_editor->onFileNumberChanged(index); }
    void onStandardTypeChanged(int index) { m_editor->onStandardTypeChanged(index); }
    void onPatternChanged(int index) { m_editor->onPatternChanged(index); }
    void onElevationTypeChanged(int index) { m_editor->onElevationTypeChanged(index); }
    void onStayTypeChanged(int index) { m_editor->onStayTypeChanged(index); }
    void switchStayTime() { m_editor->switchStayTime(); }
    void onCancelButtonClicked() { m_editor->onCancelButtonClicked(); }
    void onSaveButtonClicked() { m_editor->onSaveButtonClicked(); }

private:
    welmo::WeaveEditor *m_editor;
};
