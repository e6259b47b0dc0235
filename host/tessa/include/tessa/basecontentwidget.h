#pragma once

#include <QJsonValue>
#include <QString>
#include <QWidget>

namespace tessa {

/// Base of every instruction form of the program editor. An insert form writes a new line, a
/// property form is filled with an existing line and writes it anew.
class BaseContentWidget : public QWidget
{
    Q_OBJECT
public:
    explicit BaseContentWidget(QWidget *parent)
        : QWidget(parent)
    { }

    // The order of these operations is part of the binary contract with the forms.

    /// Loads the text of an existing program line. Insert forms ignore it; a property form that
    /// cannot read the line reports so and keeps what it showed.
    virtual void FillWith(const QString &line) = 0;
    /// The program line that the form's fields describe.
    virtual QString ToString() = 0;
    virtual QJsonValue ToJsonValue();
    /// Asked before an insert form's line is inserted.
    virtual bool CheckInsert();
    /// Asked before a property form's line replaces the old one.
    virtual bool CheckReplace();
    virtual void RefreshProgramData();
    virtual QString GetLabel();
};

} // namespace tessa
