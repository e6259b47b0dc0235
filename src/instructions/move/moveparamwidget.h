#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

namespace Ui {
class MoveParamWidget;
}
class QComboBox;
class WeaveDataDialog;

/// Speed, zone, tool, work object and weave file of a welding move.
class MoveParamWidget : public QWidget
{
    Q_OBJECT
public:
    explicit MoveParamWidget(QWidget *parent = nullptr);
    ~MoveParamWidget() override;

    /// Reads the project's lists again; what is chosen stays chosen where it is still there.
    void refresh();

    // Each selects the entry of that name; an unknown name is reported and leaves the choice as it
    // is.
    void setSpeedText(const QString &text);
    void setZoneText(const QString &text);
    void setToolText(const QString &text);
    void setWobj(const QString &text);
    /// @p text is the name in double quotes.
    void setWeaveData(const QString &text);
    /// Selects the tool and the work object that are active on the pendant, where they are listed.
    /// A later call follows them unless the user chose others.
    void chooseActive();
    /// Selects the tool and work object of a point; an empty name leaves the choice as it is.
    void useTaught(const QString &tool, const QString &workObject);

    QString tool() const;
    QString wobj() const;
    /// The arguments of the line after the points.
    QString getParam() const;

public slots:
    /// Opens the chosen weave file in a dialog, without waiting for it. Does nothing without a
    /// weave file, and while the dialog of an earlier press is open.
    void onBtnDetailClicked();

signals:
    void toolChanged(const QString &name);
    void wobjChanged(const QString &name);

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void select(QComboBox *combo, const QString &name, const char *message);

    void fill(QComboBox *combo, const QStringList &names);

    std::unique_ptr<Ui::MoveParamWidget> ui;
    QString m_activeTool; ///< the active tool when it was last selected
    QString m_activeWobj;
    void setDetailsBlocked(bool blocked);

    /// True while the details dialog is open: a second dialog would edit the same file, and the
    /// line must go on naming the file that is being edited.
    bool m_detailsBlocked = false;
    QPointer<WeaveDataDialog> m_details;
};
