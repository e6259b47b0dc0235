#pragma once

#include "settings/weaveeditor.h"

/// The weave editor inside an instruction's form or dialog.
class WeaveWidget : public welmo::WeaveEditor
{
    Q_OBJECT
public:
    explicit WeaveWidget(QWidget *parent = nullptr);

    QString getCurrentFileNum();
    /// Chooses the file and shows it; an unknown name is reported and changes nothing.
    void setCurrentFileNum(const QString &name);
    /// Fixes the file: it can be edited, but no other can be chosen.
    void unableCbxFileNum();

    /// Whether the last close came from a successful save.
    void setSaveClicked(bool clicked) { m_saveClicked = clicked; }
    bool getSaveClicked() const { return m_saveClicked; }

signals:
    /// Emitted after a successful save, or after the edits were dropped.
    void closeDialog();

private:
    bool m_saveClicked = false;
};
