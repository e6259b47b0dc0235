#pragma once

#include <QDialog>

class QScrollArea;
class WeaveWidget;

/// Edits the one weave file that a program line names; other files cannot be chosen.
class WeaveDataDialog : public QDialog
{
    Q_OBJECT
public:
    explicit WeaveDataDialog(QWidget *parent = nullptr);

    void initUI(const QString &name);
    /// Gives the dialog the editor's preferred size, no higher than a form's place on the screen.
    void adjustDialogSize();
    bool isSaveClicked() const;
    QString getCurrentWeaveData() const;

protected:
    /// Draws its own border: many pendants run without a window manager.
    void paintEvent(QPaintEvent *event) override;

private:
    QScrollArea *scrollArea;
    WeaveWidget *wgtWeaveData;
};
