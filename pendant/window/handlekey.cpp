#include "pendant/window/handlekey.h"

#include <QGridLayout>
#include <QLabel>

#include "pendant/theme/look.h"

namespace welmo::pendant {

namespace {

constexpr int hintWidth = 18;
constexpr int pictureSize = 48;
constexpr int smallestTouch = 64;
constexpr int highest = 92; // more would not make it easier to hit

} // namespace

HandleKey::HandleKey(const tessa::PhysicalButton &button, const QString &hint, QWidget *parent)
    : QFrame(parent)
    , m_unpressed(button.unpressed)
    , m_pressed(button.pressed)
    , m_hint(addLabel(QStringLiteral("lblKeyHint"), hint))
    , m_picture(addLabel(QStringLiteral("lblKeyPicture"), QString()))
    , m_label(addLabel(QStringLiteral("lblKeyLabel"), button.label))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(button.label);
    setMinimumHeight(smallestTouch);
    setMaximumHeight(highest);
    m_label->setWordWrap(true);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 2, 0, 2);
    grid->setSpacing(0);
    grid->setColumnMinimumWidth(0, hintWidth);
    grid->setColumnMinimumWidth(2, hintWidth);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    grid->addWidget(m_hint, 0, 0, Qt::AlignTop);
    grid->addWidget(m_picture, 0, 1);
    grid->addWidget(m_label, 1, 0, 1, 3);
}

QLabel *HandleKey::addLabel(const QString &name, const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

void HandleKey::show(bool enabled, bool held)
{
    setEnabled(enabled);
    const QIcon &icon = held ? m_pressed : m_unpressed;
    m_picture->setPixmap(
        icon.pixmap({pictureSize, pictureSize}, enabled ? QIcon::Normal : QIcon::Disabled));
    setStyleWord(this, "held", held ? QStringLiteral("yes") : QStringLiteral("no"));
}

} // namespace welmo::pendant
