#pragma once

#include <QFrame>

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

/// In place of an instruction: the form of a whole seam.
inline const QString seamWord = QStringLiteral("#seam");

/// Shows one instruction form: what it is for on top, the form, and the buttons that take it over
/// or drop it.
class FormPane : public QFrame
{
    Q_OBJECT
public:
    explicit FormPane(ProgramCheck *check, QWidget *parent = nullptr);

    /// Opens the form that inserts an instruction; an empty @p word is a line as text.
    /// The form starts from what @p above, a line of the program, names.
    void openInsert(const QString &word, int line, const QString &above = {});
    /// Opens the form of the line's instruction, or the line as text when nobody has a form for it.
    /// The form sees the instruction alone: indentation and comment are kept for it.
    /// @p isFaithful is false when the text does not show all that the file holds.
    void openEdit(const QString &text, int line, bool isFaithful);
    bool isOpen() const { return m_form; }

signals:
    /// The operator wants this line. It is closed by then.
    void accepted(const QString &text);
    /// After accepted(): the operator wants to insert the same instruction after it.
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
    void onAcceptClicked();
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
    QString m_word; // that is inserted
    tl::ParsedLine m_before; // empty for an insert form
    QString m_lost; // what the form did not take over of it
};

} // namespace welmo::pendant
