#pragma once

#include <QFrame>

class QLabel;
class QPushButton;
class QScrollArea;

namespace tessa {
class BaseContentWidget;
}

namespace welmo::pendant {

/// Shows one instruction form: what it is for on top, the form, and the buttons that take it over
/// or drop it.
class FormPane : public QFrame
{
    Q_OBJECT
public:
    explicit FormPane(QWidget *parent = nullptr);

    /// Opens the form that inserts an instruction; an empty @p word is a line as text.
    void openInsert(const QString &word, int line);
    /// Opens the form of the line's instruction, or the line as text when nobody has a form for it.
    /// @p isFaithful is false when the text does not show all that the file holds.
    void openEdit(const QString &text, int line, bool isFaithful);
    bool isOpen() const { return m_form; }

signals:
    /// The operator wants this line. It is closed by then.
    void accepted(const QString &text);
    void closed();

private:
    void show(tessa::BaseContentWidget *form, const QString &heading, const QString &button);
    void fill(const QString &text, bool isFaithful);
    void warn(const QString &reason);
    void onAcceptClicked();
    void ask(const QString &text, const QString &reason);
    void finish(const QString &text);
    void close();

    QLabel *m_heading;
    QLabel *m_syntax;
    QLabel *m_old;
    QLabel *m_warning;
    QScrollArea *m_area;
    QPushButton *m_accept;
    tessa::BaseContentWidget *m_form = nullptr;
    QString m_before; // null for an insert form
};

} // namespace welmo::pendant
