#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>

#include "tour/tour.h"

namespace tour {

void weldBookBackup(Tour &tour)
{
    QString folder;
    const testsupport::Setup first = tour.setup();
    const QTemporaryDir other;
    tour.step("everything goes into a backup", [&] {
        tour.click("btnBackup");
        folder = tour.find<QLineEdit>("ledBackupFolder")->text();
        tour.click("btnMakeBackup");
        return Tour::await("written",
                           [&] { return tour.lastMessage().contains("backup written"); });
    });
    tour.step(
        "on a second data folder it is another cell's, until the user agrees", "book-restore", [&] {
            testsupport::Setup second = first;
            second.dataFolder = other.path();
            tour.restart(second);
            tour.open("weldbook");
            tour.click("btnBackup");
            tour.find<QLineEdit>("ledBackupFolder")->setText(folder);
            emit tour.find<QLineEdit>("ledBackupFolder")->editingFinished();
            tour.click("btnReadBackup");
            Tour::await("refused", [&] { return tour.lastMessage().contains("of another cell"); });
            tour.click("chbOtherCell");
            tour.click("btnReadBackup");
            const auto *items = tour.find<QTableView>("tblRestore")->model();
            return Tour::await("differences", [&] { return items->rowCount() > 5; });
        });
    tour.step("and all files are there", [&] {
        tour.click("btnRestore");
        Tour::await("restored", [&] { return tour.lastMessage().contains(" restored"); });
        tour.click("btnReadBackup");
        const auto *items = tour.find<QTableView>("tblRestore")->model();
        Tour::await("no difference", [&] { return items->rowCount() == 0; });
        return tour.requireStored("weld_param", "arcdata1", "arc_break_param.arc_break_option",
                                  "stop_and_alarm");
    });
    tour.restart(first);
}

} // namespace tour
