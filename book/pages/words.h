#pragma once

#include <QColor>
#include <QCoreApplication>
#include <QString>

#include "book/records/seam.h"

class QLabel;
class QWidget;

namespace welmo::book {

/// The names of the codes in a record, and values as they are shown; "–" for an unknown one.
class Words
{
    Q_DECLARE_TR_FUNCTIONS(welmo::book::Words)
public:
    static QString verdict(Verdict verdict);
    static QString ending(const QString &code);
    static QString mode(const QString &code);
    /// Every reason in a record, in words.
    static QString reasons(const QString &codes);
    static QString number(const std::optional<double> &value, int decimals,
                          const QString &unit = {});
    static QString text(const QString &text);
    /// A pendant without a sign-in has its level as user.
    static QString user(const QString &name);
    /// Local date and time.
    static QString moment(qint64 msUtc);
    /// Local date and time of an ISO text; another text as it is.
    static QString moment(const QString &iso);
    static QString notTold() { return tr("not told"); }
};

/// A colour of the theme in use.
QColor themeColor(const char *key);
QColor verdictColor(Verdict verdict);

/// A label of a kind that the style rules know: "name", "value", "big", "head", "hint".
QLabel *makeLabel(const QString &text, const char *kind, QWidget *parent);
/// Sets the property that the style rules select by, and styles the widget again.
void setStyleWord(QWidget *widget, const char *name, const QString &word);

} // namespace welmo::book
