#pragma once

#include <QTranslator>
#include <QVariant>
#include <array>
#include <functional>

namespace kelp {

/// Remembers which texts were translated last. A module hands the message log a finished text; with
/// this the log finds out what it was made of, and can show it in another language.
class TextSources : public QTranslator
{
    Q_OBJECT
public:
    /// Translates like QTranslator::translate(); null for no translation.
    using Translate = std::function<QString(const char *context, const char *source,
                                            const char *disambiguation, int n)>;

    explicit TextSources(Translate translate);

    QString translate(const char *context, const char *source, const char *disambiguation = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return false; }

    /// What @p text was made of: {context, source, arguments}, where an argument is made likewise
    /// or is a text, or {parts}, two of them; an invalid value if it was not translated lately.
    /// JSON can hold it.
    QVariant sourceOf(const QString &text) const;
    /// The text of a source in the present language.
    static QString shown(const QVariant &source);

private:
    struct Text
    {
        QByteArray context, source;
        QString shown;
    };

    QVariant partsOf(const QString &text) const;

    mutable std::array<Text, 64> m_last;
    mutable size_t m_next = 0;
    Translate m_translate;
};

} // namespace kelp
