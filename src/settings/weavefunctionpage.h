#pragma once

#include "settings/basesubpage.h"

class WeaveEditor;

/// The sub-page on which the operator picks a weave file, edits it and saves it.
class WeaveFunctionPage : public BaseSubPage
{
    Q_OBJECT
public:
    WeaveFunctionPage(QWidget *parent, QObject *owner);

    /// Reads the file again and shows it; while it cannot be read the form stays as it is.
    void initPage() override;

    void initParamDefault();
    void useWeaveDefaultNode();
    void getWeaveParam();
    void setWeaveParam();
    void storeWeaveParam();
    int saveWeaveParam();
    bool validateParam();

private:
    WeaveEditor *m_editor;
};
