#include "pendant/theme/look.h"

#include <QApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QWidget>

#include "vu/xtheme.h"

namespace welmo::pendant {

namespace {

// The one family that is always added: Chinese texts appear in every language.
const QString chineseFamily = QStringLiteral("WenQuanYi Micro Hei");

QPixmap withDistance(const QPixmap &picture)
{
    if (picture.isNull()) // a theme may lack pictures
        return picture;
    const int width = picture.height() * besideTextSize.width() / besideTextSize.height();
    QPixmap wide(width, picture.height());
    wide.fill(Qt::transparent);
    QPainter(&wide).drawPixmap(0, 0, picture);
    return wide;
}

} // namespace

QFont themeFont(const vu::xtheme::Theme &theme, const QString &key)
{
    static const QRegularExpression form(QStringLiteral("^(bold )?(\\d+)px (.+)$"));
    const auto match = form.match(theme.token(QStringLiteral("font"), key));
    QFont font;
    if (!match.hasMatch())
        return font;
    QStringList families;
    for (const QString &family : match.captured(3).split(QLatin1Char(',')))
        families.append(family.trimmed().remove(QLatin1Char('"')));
    if (!families.contains(chineseFamily))
        families.append(chineseFamily);
    font.setFamilies(families);
    font.setPixelSize(match.captured(2).toInt());
    font.setBold(!match.captured(1).isEmpty());
    return font;
}

QPalette themePalette(const vu::xtheme::Theme &theme)
{
    const auto color = [&theme](const char *key) { return theme.color(QString::fromLatin1(key)); };
    QPalette palette(color("btn_bkg"), color("center_bkg"));
    palette.setColor(QPalette::Window, color("panel_bkg"));
    palette.setColor(QPalette::Base, color("input_bkg"));
    palette.setColor(QPalette::AlternateBase, color("off_bkg"));
    palette.setColor(QPalette::ToolTipBase, color("panel_bkg"));
    palette.setColor(QPalette::Highlight, color("topic"));
    palette.setColor(QPalette::HighlightedText, color("white"));
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                      QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, color("text"));
        palette.setColor(QPalette::Disabled, role, color("text_off"));
    }
    palette.setColor(QPalette::PlaceholderText, color("text_off"));
    return palette;
}

bool isUsable(const vu::xtheme::Theme &theme)
{
    return theme.color(QStringLiteral("text")).isValid()
        && theme.color(QStringLiteral("panel_bkg")).isValid()
        && !theme.token(QStringLiteral("font"), QStringLiteral("default")).isEmpty();
}

void applyTheme()
{
    const auto &theme = vu::xtheme::current();
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(themePalette(theme));
    QApplication::setFont(themeFont(theme, QStringLiteral("default")));
}

QIcon besideText(const QPixmap &picture)
{
    return QIcon(withDistance(picture));
}

QIcon inkBesideText(const QString &key)
{
    const QString path = vu::xtheme::current().imagePath(key);
    QIcon icon = besideText(vu::xtheme::pixmap(path, QStringLiteral("text")));
    icon.addPixmap(withDistance(vu::xtheme::pixmap(path, QStringLiteral("white"))), QIcon::Normal,
                   QIcon::On);
    return icon;
}

QIcon inkIcon(const QString &key, const QString &ink)
{
    const QString path = vu::xtheme::current().imagePath(key);
    QIcon icon(vu::xtheme::pixmap(path, ink));
    icon.addPixmap(vu::xtheme::pixmap(path, QStringLiteral("text_off")), QIcon::Disabled);
    return icon;
}

QPixmap themePixmap(const QString &key)
{
    return QPixmap(vu::xtheme::current().imagePath(key));
}

void setStyleWord(QWidget *widget, const char *name, const QString &word)
{
    if (widget->property(name) == word)
        return;
    widget->setProperty(name, word);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace welmo::pendant
