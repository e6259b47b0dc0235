#pragma once

#include <functional>

#include "support/testpendant.h"

namespace tour {

/// One walk through the pendant: runs steps, tells each in one line, takes pictures on the way.
class Tour : public testsupport::TestPendant
{
public:
    explicit Tour(const QString &pictureFolder);

    /// Runs @p act, which answers what was seen, and prints "ok" or "FAILED" with it. A step that
    /// throws has failed; the walk goes on, with a picture of what is seen then.
    void step(const QString &what, const std::function<QString()> &act);
    void step(const QString &what, const QString &pictureName, const std::function<QString()> &act);
    /// A picture of the window as it is, numbered in the order of the walk.
    void takePicture(const QString &name);

    /// These end the running step as failed when what is seen is not @p wanted; they answer it.
    static QString require(const QString &seen, const QString &wanted);
    QString requireMessage(const QString &wanted) { return require(lastMessage(), wanted); }
    QString requireText(const char *label, const QString &wanted);
    QString requireStored(const QString &node, const QString &file, const char *key,
                          const QString &wanted);
    QString text(const char *label) { return find<QLabel>(label)->text(); }
    int current() { return text("lblActualCurrent").toInt(); }
    /// Wait for more than this current, or for a text in the label.
    QString awaitCurrent(int least);
    QString awaitText(const char *label, const QString &part);
    QString cell(const char *table, int row, int column);
    void touchRow(const char *table, int row);
    /// Waits until it is so; the step has failed when it takes too long.
    static QString await(const QString &what, const std::function<bool()> &isSo);

    void strike(Qt::Key key);

    int failures() const { return m_failures; }

private:
    void tell(bool ok, const QString &what, const QString &seen);

    QString m_folder;
    int m_pictures = 0;
    int m_failures = 0;
};

// The walk, in its order.
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
