#pragma once

#include <QFrame>
#include <functional>

#include "tl/parsedline.h"

class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace tessa {
class BaseContentWidget;
}

namespace welmo::pendant {

class ProgramCheck;

/// Stands for an instruction's word: the form of a whole seam.
inline const QString seamWord = QStringLiteral("#seam");

/// Shows one instruction form: its title on top, the form, and the buttons to accept or drop it.
class FormPane : public QFrame
{
    Q_OBJECT
public:
    explicit FormPane(ProgramCheck *check, QWidget *parent = nullptr);

    /// Opens the form that inserts an instruction; an empty @p word means a line as text.
    /// The form starts with the names in @p above, a line of the program.
    void openInsert(const QString &word, int line, const QString &above = {});
    /// Opens the form of the line's instruction, or the line as text if there is no form for it.
    /// The form gets only the instruction; indentation and comment are kept for it. @p isFaithful
    /// is false if the text does not show all bytes of the file's line.
    void openEdit(const QString &text, int line, bool isFaithful);
    bool isOpen() const { return m_form; }

signals:
    /// The operator accepted this line. The pane is closed by then.
    void accepted(const QString &text);
    /// Follows accepted(): the operator wants to insert the same instruction again after it.
    void anotherWanted(const QString &word);
    void closed();

private:
    void show(tessa::BaseContentWidget *form, const QString &heading, const QString &button);
    void addTop(QVBoxLayout *layout);
    void addButtons(QVBoxLayout *layout);
    void fill(bool isFaithful);
    void followFiles();
    void showFiles();
    QStringList read(const QString &text);
    void warn(const QString &reason);
    void accept();
    void onAcceptClicked();
    void onCancelClicked();
    bool mayGo(const std::function<void()> &goOn);
    bool saveFiles();
    void check(const QString &written);
    QString around(const QString &written) const;
    void ask(const QString &text, const QString &reason);
    void finish(const QString &text);
    void close();

    ProgramCheck *m_check;
    QLabel *m_heading = nullptr;
    QLabel *m_syntax = nullptr;
    QLabel *m_old = nullptr;
    QLabel *m_warning = nullptr;
    QScrollArea *m_area;
    QPushButton *m_accept = nullptr;
    QPushButton *m_goOn = nullptr;
    QLabel *m_files = nullptr;
    tessa::BaseContentWidget *m_form = nullptr;
    bool m_inserts = false;
    bool m_goesOn = false;
    QString m_word; // the word to insert
    tl::ParsedLine m_before; // empty for an insert form
    QString m_lost; // what the form did not take over from it
};

} // namespace welmo::pendant
