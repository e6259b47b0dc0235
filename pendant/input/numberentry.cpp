#include "pendant/input/numberentry.h"

#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpressionValidator>
#include <QSpinBox>

namespace welmo::pendant {

namespace {

const QString point = QStringLiteral(".");

// Calls @p call with the box as its own class: the two have the same operations, but no base with
// them.
template<typename Call>
auto with(const QAbstractSpinBox *box, Call call)
{
    if (const auto *real = qobject_cast<const QDoubleSpinBox *>(box))
        return call(real);
    return call(qobject_cast<const QSpinBox *>(box));
}

QString shapeOf(const QAbstractSpinBox *box)
{
    const auto *real = qobject_cast<const QDoubleSpinBox *>(box);
    return with(box, [&](const auto *field) {
        return QStringLiteral("(%1)?%2[0-9]*%3(%4)?")
            .arg(QRegularExpression::escape(field->prefix()),
                 NumberEntry::takesSign(box) ? QStringLiteral("[-+]?") : QString(),
                 real ? QStringLiteral("(\\.[0-9]{0,%1})?").arg(real->decimals()) : QString(),
                 QRegularExpression::escape(field->suffix()));
    });
}

bool isInRange(const QAbstractSpinBox *box)
{
    bool isNumber = false;
    const double number = NumberEntry::typed(box).toDouble(&isNumber);
    return isNumber && with(box, [number](const auto *field) {
               return number >= field->minimum() && number <= field->maximum();
           });
}

QString shortest(double value)
{
    return QString::number(value, 'f', QLocale::FloatingPointShortest);
}

void setValue(QAbstractSpinBox *box, double value)
{
    if (auto *real = qobject_cast<QDoubleSpinBox *>(box))
        real->setValue(value);
    else
        qobject_cast<QSpinBox *>(box)->setValue(int(value));
}

} // namespace

NumberEntry::NumberEntry(QObject *parent)
    : QObject(parent)
{
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    QLocale::setDefault(plain);
    QCoreApplication::instance()->installEventFilter(this);
}

bool NumberEntry::isField(const QObject *object)
{
    const bool number =
        qobject_cast<const QDoubleSpinBox *>(object) || qobject_cast<const QSpinBox *>(object);
    return number && !static_cast<const QAbstractSpinBox *>(object)->isReadOnly();
}

QLineEdit *NumberEntry::lineOf(const QAbstractSpinBox *box)
{
    return box->findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
}

QString NumberEntry::typed(const QAbstractSpinBox *box)
{
    QString text = lineOf(box)->text();
    with(box, [&](const auto *field) {
        if (!field->prefix().isEmpty() && text.startsWith(field->prefix()))
            text.remove(0, field->prefix().size());
        if (!field->suffix().isEmpty() && text.endsWith(field->suffix()))
            text.chop(field->suffix().size());
        return 0;
    });
    return text.trimmed();
}

QString NumberEntry::lowest(const QAbstractSpinBox *box)
{
    return shortest(with(box, [](const auto *field) { return double(field->minimum()); }));
}

QString NumberEntry::highest(const QAbstractSpinBox *box)
{
    return shortest(with(box, [](const auto *field) { return double(field->maximum()); }));
}

bool NumberEntry::takesSign(const QAbstractSpinBox *box)
{
    return with(box, [](const auto *field) { return field->minimum() < 0; });
}

bool NumberEntry::takesPoint(const QAbstractSpinBox *box)
{
    const auto *real = qobject_cast<const QDoubleSpinBox *>(box);
    return real && real->decimals() > 0;
}

// Replaces the field's validator, which drops a digit that makes the number too large and keeps the
// rest.
void NumberEntry::begin(QAbstractSpinBox *box)
{
    m_box = box;
    m_focused = box;
    m_before = with(box, [](const auto *field) { return double(field->value()); });
    QLineEdit *line = lineOf(box);
    delete line->findChild<QRegularExpressionValidator *>();
    line->setValidator(new QRegularExpressionValidator(QRegularExpression(shapeOf(box)), line));
    // Queued, since the press that gives the focus sets the cursor afterwards.
    QMetaObject::invokeMethod(box, "selectAll", Qt::QueuedConnection);
}

bool NumberEntry::enter()
{
    if (!m_box)
        return true;
    if (isInRange(m_box)) {
        m_box->interpretText();
        m_before = with(m_box, [](const auto *field) { return double(field->value()); });
        return true;
    }
    const QString text = typed(m_box);
    takeBack();
    bool isNumber = false;
    text.toDouble(&isNumber);
    if (isNumber) {
        emit refused(tr("%1 is out of range: %2 to %3. It stays %4.")
                         .arg(text, lowest(m_box), highest(m_box), typed(m_box)));
    }
    return !isNumber;
}

void NumberEntry::takeBack()
{
    if (!m_box)
        return;
    setValue(m_box, m_before);
    m_box->selectAll();
}

bool NumberEntry::onKey(const QKeyEvent *event)
{
    const bool commands = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (commands)
        return false;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !enter();
    case Qt::Key_Comma: {
        QKeyEvent asPoint(event->type(), Qt::Key_Period, event->modifiers(), point);
        QCoreApplication::sendEvent(m_box, &asPoint);
        return true;
    }
    default:
        return false;
    }
}

bool NumberEntry::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        if (isField(object))
            begin(static_cast<QAbstractSpinBox *>(object));
        return false;
    case QEvent::FocusOut:
        if (object == m_focused) {
            if (isField(object)) // false while it is being destroyed
                enter();
            m_box = nullptr;
            m_focused = nullptr;
        }
        return false;
    case QEvent::KeyPress:
        return object == m_focused && onKey(static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

} // namespace welmo::pendant
