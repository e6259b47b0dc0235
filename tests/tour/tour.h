#pragma once

#include <functional>

#include "support/testpendant.h"

namespace tour {

/// Runs steps on a pendant, prints a line for each, and takes pictures.
class Tour : public testsupport::TestPendant
{
public:
    explicit Tour(const QString &pictureFolder);

    /// Runs @p act, which returns what was seen, and prints "ok" or "FAILED" with that. A step
    /// fails by throwing; its picture is taken even so, and the next step runs.
    void step(const QString &what, const std::function<QString()> &act);
    void step(const QString &what, const QString &pictureName, const std::function<QString()> &act);
    /// Takes a picture of the window; pictures are numbered.
    void takePicture(const QString &name);

    /// These return what is seen; if that is not @p wanted, the step fails.
    static QString require(const QString &seen, const QString &wanted);
    QString requireMessage(const QString &wanted) { return require(lastMessage(), wanted); }
    QString requireText(const char *label, const QString &wanted);
    QString requireStored(const QString &node, const QString &file, const char *key,
                          const QString &wanted);
    QString text(const char *label) { return find<QLabel>(label)->text(); }
    int current() { return text("lblActualCurrent").toInt(); }
    /// These wait for a larger current, or for a text in the label; else the step fails.
    QString awaitCurrent(int least);
    QString awaitText(const char *label, const QString &part);
    QString cell(const char *table, int row, int column);
    void touchRow(const char *table, int row);
    /// Waits until @p isSo; the step fails when that takes too long.
    static QString await(const QString &what, const std::function<bool()> &isSo);

    void strike(Qt::Key key);

    int failures() const { return m_failures; }

private:
    void tell(bool ok, const QString &what, const QString &seen);

    QString m_folder;
    int m_pictures = 0;
    int m_failures = 0;
};

// The parts of the walk; main.cpp has their order.
void firstStart(Tour &tour);
void processSetting(Tour &tour);
void restart(Tour &tour);
void linkDown(Tour &tour);
void hostPages(Tour &tour);
void processConfiguration(Tour &tour);
void handleKeys(Tour &tour);
void programEditor(Tour &tour);
void weld(Tour &tour);
void weldBook(Tour &tour);
void weldBookFiles(Tour &tour);
void weldBookRelease(Tour &tour);
void weldBookBackup(Tour &tour);
void alarm(Tour &tour);
void reweld(Tour &tour);
void jog(Tour &tour);
void path(Tour &tour);
void example(Tour &tour);
void display(Tour &tour);

} // namespace tour
