#pragma once

#include <QJsonValue>
#include <QString>
#include <QWidget>

namespace tessa {

/// Base of every instruction form of the program editor. An insert form writes a new line; a
/// property form is filled from an existing line and writes it anew.
class BaseContentWidget : public QWidget
{
    Q_OBJECT
public:
    explicit BaseContentWidget(QWidget *parent)
        : QWidget(parent)
    { }

    // The order of these functions is part of the binary contract with the forms.

    /// Shows the text of an existing program line. Insert forms ignore it; a property form that
    /// cannot read the line reports that and keeps its values.
    virtual void FillWith(const QString &line) = 0;
    /// The program line that the form's fields describe.
    virtual QString ToString() = 0;
    virtual QJsonValue ToJsonValue();
    /// Called before an insert form's line is inserted, which it may refuse.
    virtual bool CheckInsert();
    /// Called before a property form's line replaces the old one, which it may refuse.
    virtual bool CheckReplace();
    virtual void RefreshProgramData();
    virtual QString GetLabel();
};

} // namespace tessa
