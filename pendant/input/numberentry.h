#pragma once

#include <QObject>
#include <QPointer>

class QAbstractSpinBox;
class QKeyEvent;
class QLineEdit;

namespace welmo::pendant {

/// How numbers are typed, in every page and the package's too. The decimal sign is the point,
/// whatever the environment says; a comma becomes one, and nothing separates thousands. A number is
/// taken whole: what is out of range can be typed, and is refused when it is entered. A field that
/// gets the focus is selected whole. Follows the whole application.
class NumberEntry : public QObject
{
    Q_OBJECT
public:
    /// To be made before the first field, which takes its format from then on.
    explicit NumberEntry(QObject *parent = nullptr);

    /// Takes what is typed in the field that has the focus; false when it was refused, and the
    /// field shows again what it had.
    bool enter();
    /// Gives that field back what it had when it got the focus.
    void takeBack();

    bool eventFilter(QObject *object, QEvent *event) override;

    /// Whether it holds a number that can be typed; a date has none.
    static bool isField(const QObject *object);
    /// The text of @p box without what stands before and behind the number.
    static QString typed(const QAbstractSpinBox *box);
    static QString lowest(const QAbstractSpinBox *box);
    static QString highest(const QAbstractSpinBox *box);
    static bool takesSign(const QAbstractSpinBox *box);
    static bool takesPoint(const QAbstractSpinBox *box);
    /// Where its text is edited.
    static QLineEdit *lineOf(const QAbstractSpinBox *box);

signals:
    /// A number was out of range: one line that says so.
    void refused(const QString &line);

private:
    void begin(QAbstractSpinBox *box);
    bool onKey(const QKeyEvent *event);

    QPointer<QAbstractSpinBox> m_box; // that has the focus
    double m_before = 0;
};

} // namespace welmo::pendant
