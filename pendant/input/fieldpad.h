#pragma once

#include <QFrame>
#include <QPointer>

class QGridLayout;
class QPushButton;
class QVBoxLayout;

namespace welmo::pendant {

/// Keys on the screen for one field, which keeps the focus: a touch of a key acts as if it were
/// typed. Deleted with its window.
class FieldPad : public QFrame
{
    Q_OBJECT
public:
    /// The keys act on @p field; the pad is shown over @p parent.
    FieldPad(QWidget *field, QWidget *parent);

    QWidget *field() const { return m_field; }
    /// Places the pad within @p area of its parent, beside the field without covering it.
    void place(const QRect &area);

signals:
    /// What was typed is to be accepted, or dropped; the pad can then be closed.
    void entered();
    void cancelled();

protected:
    static constexpr int keyHeight = 50;

    QVBoxLayout *column() const { return m_column; }
    /// Adds a key that does nothing yet.
    QPushButton *addKey(QGridLayout *grid, const QString &text, int row, int column, int width = 1);
    void type(Qt::Key key, const QString &text = {});

private:
    QPointer<QWidget> m_field;
    QVBoxLayout *m_column;
};

} // namespace welmo::pendant
