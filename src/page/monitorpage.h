#pragma once

#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <memory>

#include <tessa/basepage.h>

#include "data/arcweldservice.h"

namespace Ui {
class MonitorPage;
}
class QDoubleSpinBox;
class QPushButton;

/// The side bar's panel while welding: the actual values, and current and voltage of the data in
/// use, which can be trimmed.
class MonitorPage : public tessa::BasePage
{
    Q_OBJECT
public:
    MonitorPage(QWidget *parent, QObject *owner);
    ~MonitorPage() override;

    void render() override;
    QWidget *wgt() const { return m_wgt; }

public slots:
    void onChangeCurrentClicked();
    void onChangeVoltageClicked();
    void onSaveClicked();
    /// Reads the data of that name and shows its set values.
    void onWeldingNameChanged();
    /// Shows what the notification holds; other values stay.
    void onWelderStateChanged(const QVariant &value);

private:
    void followController();
    void followLink();
    void followFiles();
    /// Shows the controller's welder state and the data in use.
    void reload();
    /// Reads the data again, except what is being trimmed; false if it could not be read. What was
    /// both trimmed here and changed elsewhere is reported and put into @p overlap.
    bool takeOver(QStringList *overlap = nullptr);
    void onFilesChanged(const QVariant &files);
    bool fetch();
    void showData();
    void show(const QString &key, QDoubleSpinBox *box, double *shown);
    void step(QDoubleSpinBox *box);
    QString node() const;

    QPointer<QWidget> m_wgt;
    std::unique_ptr<Ui::MonitorPage> ui;
    double m_shownCurrent = 0; ///< as read or saved; a box that differs is being trimmed
    double m_shownVoltage = 0;
    bool m_isLoaded = false; ///< the link was up at least once since the page was made
    QString m_told; ///< the last warning of a value that a box cannot show
    welmo::host::Answer m_data; ///< the welding data as last read
};
