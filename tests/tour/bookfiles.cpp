#include <QComboBox>
#include <QTableView>
#include <QTest>

#include "tour/tour.h"

namespace tour {

namespace {

QString text(Tour &tour, const char *table, int row, int column)
{
    return tour.find<QTableView>(table)->model()->index(row, column).data().toString();
}

void touchRow(Tour &tour, const char *name, const QString &first)
{
    auto *table = tour.find<QTableView>(name);
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        if (text(tour, name, row, 0) != first)
            continue;
        table->scrollTo(table->model()->index(row, 0));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualRect(table->model()->index(row, 0)).center());
    }
}

QString cellOf(Tour &tour, const QString &file, int column)
{
    const auto *files = tour.find<QTableView>("tblFiles")->model();
    const QModelIndexList found = files->match(files->index(0, 0), Qt::DisplayRole, file);
    return found.isEmpty() ? QString() : found.first().siblingAtColumn(column).data().toString();
}

} // namespace

void weldBookFiles(Tour &tour)
{
    tour.step("the book shows where a file is used", "book-files", [&] {
        tour.open("weldbook");
        tour.click("btnFiles");
        Tour::await("programs", [&] { return cellOf(tour, "arcdata2", 5) == "tour.tl 1"; });
        touchRow(tour, "tblFiles", "arcdata1");
        Tour::await("versions", [&] { return text(tour, "tblVersions", 0, 0).toInt() > 1; });
        return Tour::await("welds", [&] { return cellOf(tour, "arcdata1", 6).toInt() > 0; });
    });
    tour.step("what changed is there, old and new", "book-compare", [&] {
        Tour::await("who", [&] { return text(tour, "tblVersions", 0, 2) == "administrator"; });
        return text(tour, "tblDifferences", 0, 0);
    });
    tour.step("a file is copied, and the copy taken back", [&] {
        tour.choose("cbxCopyTarget", "arcdata7");
        tour.click("btnCopyFile");
        tour.requireMessage("info: arcdata1 copied to arcdata7");
        tour.requireStored("weld_param", "arcdata7", "arc_break_param.arc_break_option",
                           "stop_and_alarm");
        tour.click("btnUndoFiles");
        return tour.requireMessage("info: taken back: arcdata1 copied to arcdata7");
    });
    tour.step("an earlier version is put back, and the later one again", [&] {
        touchRow(tour, "tblVersions", "1");
        tour.click("btnBackToVersion");
        tour.requireMessage("info: arcdata1 back to version 1");
        tour.click("btnUndoFiles");
        return tour.requireStored("weld_param", "arcdata1", "arc_break_param.arc_break_option",
                                  "stop_and_alarm");
    });
    tour.step("a file that a program names is not removed", "book-refused", [&] {
        touchRow(tour, "tblFiles", "arcdata2");
        tour.click("btnRemoveFile");
        return Tour::await("refused", [&] {
            return tour.lastMessage() == "error: arcdata2 stays, programs use it: tour.tl 1";
        });
    });
}

} // namespace tour
