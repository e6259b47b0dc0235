#include "kelp/textsources.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QThread>

namespace kelp {

namespace {

const QString contextKey = QStringLiteral("context");
const QString sourceKey = QStringLiteral("source");
const QString partsKey = QStringLiteral("parts");
const QString argumentsKey = QStringLiteral("arguments");

// What arg() replaces.
const QRegularExpression &place()
{
    static const QRegularExpression pattern(QStringLiteral("%(\\d{1,2})"));
    return pattern;
}

int literalsIn(const QString &text)
{
    return QString(text).remove(place()).size();
}

// The arguments by their numbers if @p text was made of @p pattern.
QVariantMap argumentsOf(const QString &text, const QString &pattern)
{
    if (!pattern.contains(QLatin1Char('%')))
        return {};
    QString expression;
    QStringList numbers;
    int from = 0;
    auto places = place().globalMatch(pattern);
    while (places.hasNext()) {
        const auto each = places.next();
        expression += QRegularExpression::escape(pattern.mid(from, each.capturedStart() - from));
        const int known = numbers.indexOf(each.captured(1));
        expression += known < 0 ? QStringLiteral("(.+?)") : QStringLiteral("\\%1").arg(known + 1);
        if (known < 0)
            numbers.append(each.captured(1));
        from = each.capturedEnd();
    }
    expression += QRegularExpression::escape(pattern.mid(from));
    const QRegularExpression whole(QRegularExpression::anchoredPattern(expression),
                                   QRegularExpression::DotMatchesEverythingOption);
    const auto match = whole.match(text);
    QVariantMap arguments;
    for (int i = 0; i < numbers.size() && match.hasMatch(); ++i)
        arguments.insert(numbers.at(i), match.captured(i + 1));
    return arguments;
}

} // namespace

TextSources::TextSources(Translate translate)
    : m_translate(std::move(translate))
{ }

QString TextSources::translate(const char *context, const char *source, const char *disambiguation,
                               int n) const
{
    const QString translation = m_translate(context, source, disambiguation, n);
    if (n < 0 && QThread::currentThread() == thread()) {
        m_last[m_next] = {context, source,
                          translation.isNull() ? QString::fromUtf8(source) : translation};
        m_next = (m_next + 1) % m_last.size();
    }
    return translation;
}

// The text with the most signs of its own is meant: "%1: %2" fits too often.
QVariant TextSources::sourceOf(const QString &text) const
{
    const Text *best = nullptr;
    QVariantMap arguments;
    for (size_t i = 0; i < m_last.size(); ++i) {
        const Text &each = m_last[(m_next + m_last.size() - 1 - i) % m_last.size()];
        const int literals = literalsIn(each.shown);
        if (literals == 0 || (best && literals <= literalsIn(best->shown)))
            continue;
        const QVariantMap found = argumentsOf(text, each.shown);
        if (found.isEmpty() && text != each.shown)
            continue;
        best = &each;
        arguments = found;
    }
    if (!best)
        return partsOf(text);
    for (QVariant &argument : arguments) {
        if (const QVariant source = sourceOf(argument.toString()); source.isValid())
            argument = source;
    }
    return QVariantMap{{contextKey, QString::fromUtf8(best->context)},
                       {sourceKey, QString::fromUtf8(best->source)},
                       {argumentsKey, arguments}};
}

// Modules put some messages together from two texts.
QVariant TextSources::partsOf(const QString &text) const
{
    for (const Text &each : m_last) {
        if (each.shown.isEmpty() || !text.startsWith(each.shown))
            continue;
        const QVariant rest = sourceOf(text.mid(each.shown.size()));
        if (rest.isValid())
            return QVariantMap{{partsKey, QVariantList{sourceOf(each.shown), rest}}};
    }
    return {};
}

QString TextSources::shown(const QVariant &source)
{
    const QVariantMap map = source.toMap();
    const QVariantList parts = map.value(partsKey).toList();
    if (!parts.isEmpty())
        return shown(parts.first()) + shown(parts.last());
    if (!map.contains(sourceKey))
        return source.toString();
    const QVariantMap arguments = map.value(argumentsKey).toMap();
    const QString pattern =
        QCoreApplication::translate(map.value(contextKey).toString().toUtf8().constData(),
                                    map.value(sourceKey).toString().toUtf8().constData());
    QString text;
    int from = 0;
    auto places = place().globalMatch(pattern);
    while (places.hasNext()) {
        const auto each = places.next();
        const QVariant argument = arguments.value(each.captured(1), each.captured());
        text += pattern.mid(from, each.capturedStart() - from) + shown(argument);
        from = each.capturedEnd();
    }
    return text + pattern.mid(from);
}

} // namespace kelp
