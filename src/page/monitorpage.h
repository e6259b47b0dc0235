#pragma once

#include <QPointer>
#include <QVariant>
#include <memory>

#include <tessa/basepage.h>

#include "data/controller.h"

namespace Ui {
class MonitorPage;
}
class QDoubleSpinBox;
class QPushButton;

/// The side bar's panel while welding: the actual values, and the current and voltage of the data
/// in use to trim.
class MonitorPage : public tessa::BasePage
{
    Q_OBJECT
public:
    MonitorPage(QWidget *parent, QObject *owner);
    ~MonitorPage() override;

    void render() override;
    QWidget *wgt() const override { return m_wgt; }

public slots:
    void onChangeCurrentClicked();
    void onChangeVoltageClicked();
    void onSaveClicked();
    /// Reads the data of that name and shows its set values.
    void onWeldingNameChanged();
    /// Shows what the notification holds; what it does not hold stays.
    void onWelderStateChanged(const QVariant &value);

private:
    void step(QDoubleSpinBox *box);
    void take(const QString &key, const QDoubleSpinBox *box);
    QString node() const;

    QPointer<QWidget> m_wgt;
    std::unique_ptr<Ui::MonitorPage> ui;
    XService::Answer m_data; ///< the welding data last read; null when it could not be read
};
