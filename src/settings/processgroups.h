#pragma once

#include <QList>
#include <QObject>

#include "data/arcweldservice.h"
#include "settings/processgroup.h"

namespace welmo {

/// The process groups of one home, a page or an instruction's form, and the handlers of the home's
/// buttons: the sender tells the group.
class ProcessGroups
{
public:
    /// @p home is the sender of what is reported. The groups are read and shown in this order.
    ProcessGroups(QObject *home, const QList<ProcessGroup *> &groups)
        : m_home(home)
        , m_groups(groups)
    { }

    /// Sets up every group, connects its file combo box and buttons to the home's slots, applies
    /// the welder's modes and shows the first files.
    template<typename Home>
    void initUI(Home *home);

    void useDefaultNode();
    /// Reads every group's chosen file.
    void getParamFromTessa();
    /// Reads every group's chosen file and shows it.
    void reload();
    /// Applies the modes and voltage ranges of the connected welder.
    void getWelderParamRange();

    // Handlers that the homes forward, to the group of the sender or box, or to every group.
    void initVariant();
    void initParamRange();
    void initParamValue();
    void setupMode(QLabel *label, QComboBox *combo, const QStringList &items,
                   const QString &labelText);
    void changeCurrentMode(const QObject *sender, int index);
    void changeVoltageMode(const QObject *sender, int index);
    void switchVoltageMode(const QDoubleSpinBox *box, int mode);

    /// A file combo box changed: its group reads and shows the file.
    void selectFile(const QObject *sender);
    /// Saves the group whose button sent the signal, and reports the outcome. Any other sender
    /// saves nothing and success is reported all the same; other parts of the pendant rely on that.
    void save(const QObject *sender);
    /// Shows the group's file again as it was last read or stored.
    void cancel(const QObject *sender);

private:
    QObject *m_home;
    QList<ProcessGroup *> m_groups;
    QObject m_guard; ///< ends the connection with the groups
};

template<typename Home>
void ProcessGroups::initUI(Home *home)
{
    // Connected before the groups' own: the modes decide what can be shown of a file.
    arcweld::onConnected(&m_guard, [this] { getWelderParamRange(); });
    for (ProcessGroup *group : qAsConst(m_groups)) {
        group->initUI(home);
        QObject::connect(group->file().combo(), qOverload<int>(&QComboBox::currentIndexChanged),
                         home, &Home::onParamFileNumberChanged);
        QObject::connect(group->saveButton(), &QPushButton::clicked, home,
                         &Home::onSaveButtonClicked);
        QObject::connect(group->cancelButton(), &QPushButton::clicked, home,
                         &Home::onCancelButtonClicked);
    }
    getWelderParamRange();
    initParamValue();
}

} // namespace welmo
