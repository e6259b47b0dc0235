#pragma once

#include <QObject>
#include <QPointer>

class QAbstractSpinBox;
class QKeyEvent;
class QLineEdit;

namespace welmo::pendant {

/// How numbers are typed on all pages, the packages' included. The decimal sign is the point in
/// every language; a typed comma becomes one, and thousands are not separated. A number is checked
/// as a whole: one out of range can be typed, and is refused when it is entered. A field that gets
/// the focus is selected completely. Works in the whole application.
class NumberEntry : public QObject
{
    Q_OBJECT
public:
    /// To be made before the first field, whose format it sets.
    explicit NumberEntry(QObject *parent = nullptr);

    /// Accepts what was typed in the focused field. False if it was refused; the field then shows
    /// its old value.
    bool enter();
    /// Restores the value that the focused field had when it got the focus.
    void takeBack();

    bool eventFilter(QObject *object, QEvent *event) override;

    /// Whether the object is a box for a number that can be typed; a date's is not.
    static bool isField(const QObject *object);
    /// The text of @p box without prefix and suffix.
    static QString typed(const QAbstractSpinBox *box);
    static QString lowest(const QAbstractSpinBox *box);
    static QString highest(const QAbstractSpinBox *box);
    static bool takesSign(const QAbstractSpinBox *box);
    static bool takesPoint(const QAbstractSpinBox *box);
    /// The line edit inside @p box.
    static QLineEdit *lineOf(const QAbstractSpinBox *box);

signals:
    /// A number was out of range; @p line says so.
    void refused(const QString &line);

private:
    void begin(QAbstractSpinBox *box);
    bool onKey(const QKeyEvent *event);

    QPointer<QAbstractSpinBox> m_box; // the box with the focus
    const QObject *m_focused = nullptr; // the same, to compare with: it may be half destroyed
    double m_before = 0;
};

} // namespace welmo::pendant
