#pragma once

#include <QFrame>
#include <QPointer>

class QGridLayout;
class QPushButton;
class QVBoxLayout;

namespace welmo::pendant {

/// Keys on the screen for one field, which keeps the focus: what is touched here reaches it as if
/// it were typed. Goes with its window.
class FieldPad : public QFrame
{
    Q_OBJECT
public:
    /// @p field is where the keys go; the pad lies over @p parent.
    FieldPad(QWidget *field, QWidget *parent);

    QWidget *field() const { return m_field; }
    /// Beside its field, and not over it, within @p area of its parent.
    void place(const QRect &area);

signals:
    /// What was typed is to be taken, or not; then the pad is not wanted any more.
    void entered();
    void cancelled();

protected:
    static constexpr int keyHeight = 50;

    QVBoxLayout *column() const { return m_column; }
    /// A key of the pad; it types nothing yet.
    QPushButton *addKey(QGridLayout *grid, const QString &text, int row, int column, int width = 1);
    void type(Qt::Key key, const QString &text = {});

private:
    QPointer<QWidget> m_field;
    QVBoxLayout *m_column;
};

} // namespace welmo::pendant
