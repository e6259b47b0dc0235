#include "book/pages/words.h"

#include <QHash>
#include <QLabel>
#include <QStringList>
#include <QStyle>

#include <vu/xtheme.h>

#include "book/keeper/bookkeeper.h"
#include "book/records/limits.h"

namespace welmo::book {

QString Words::verdict(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Green:
        return tr("Good");
    case Verdict::Amber:
        return tr("Check");
    case Verdict::Red:
        return tr("Bad");
    case Verdict::None:
        break;
    }
    return tr("Not judged");
}

QString Words::ending(const QString &code)
{
    if (code.isEmpty())
        return tr("running");
    const QHash<QString, QString> words{{ending::regular, tr("as programmed")},
                                        {ending::stopped, tr("stopped before its end")},
                                        {ending::alarm, tr("by an alarm")},
                                        {ending::linkLost, tr("link lost, the rest is unknown")},
                                        {ending::interrupted, tr("recording was interrupted")}};
    return words.value(code, code);
}

QString Words::mode(const QString &code)
{
    const QHash<QString, QString> words{{QStringLiteral("real"), tr("welding")},
                                        {QStringLiteral("simu"), tr("simulation")},
                                        {QStringLiteral("test_run"), tr("test run")}};
    return words.value(code, text(code));
}

QString Words::reasons(const QString &codes)
{
    const QHash<QString, QString> words{{reason::alarm, tr("alarm")},
                                        {reason::near, tr("near its limits")},
                                        {reason::restrike, tr("arc struck again")},
                                        {reason::interruption, tr("interrupted arc")},
                                        {reason::stopped, tr("stopped")},
                                        {reason::incomplete, tr("not recorded to its end")}};
    QStringList all;
    for (const QString &code : codes.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        all.append(words.contains(code) ? words.value(code)
                                        : tr("%1 outside its limits").arg(bandTitle(code)));
    return all.join(tr(", "));
}

QString Words::number(const std::optional<double> &value, int decimals, const QString &unit)
{
    if (!value)
        return QStringLiteral("–");
    const QString digits = QString::number(*value, 'f', decimals);
    return unit.isEmpty() ? digits : digits + QLatin1Char(' ') + unit;
}

QString Words::text(const QString &text)
{
    return text.isEmpty() ? notTold() : text;
}

QString Words::user(const QString &name)
{
    const QHash<QString, QString> levels{{QStringLiteral("viewer"), tr("viewer")},
                                         {QStringLiteral("operator"), tr("operator")},
                                         {QStringLiteral("programmer"), tr("programmer")},
                                         {QStringLiteral("administrator"), tr("administrator")}};
    return levels.value(name, text(name));
}

QString Words::moment(qint64 msUtc)
{
    return QDateTime::fromMSecsSinceEpoch(msUtc).toString(QStringLiteral("MM-dd HH:mm"));
}

QString Words::moment(const QString &iso)
{
    const QDateTime time = QDateTime::fromString(iso, Qt::ISODate).toLocalTime();
    return time.isValid() ? time.toString(QStringLiteral("yyyy-MM-dd HH:mm")) : iso;
}

QColor themeColor(const char *key)
{
    return vu::xtheme::current().color(QString::fromLatin1(key));
}

QColor verdictColor(Verdict verdict)
{
    const char *const keys[] = {"text_dim", "ok", "warning", "error"};
    return themeColor(keys[static_cast<int>(verdict)]);
}

QLabel *makeLabel(const QString &text, const char *kind, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setProperty("func", QString::fromLatin1(kind));
    return label;
}

void setStyleWord(QWidget *widget, const char *name, const QString &word)
{
    if (widget->property(name) == word)
        return;
    widget->setProperty(name, word);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace welmo::book
