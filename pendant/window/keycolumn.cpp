#include "pendant/window/keycolumn.h"

#include <QVBoxLayout>

#include "pendant/window/handlekey.h"
#include "tessa/physicalbutton.h"

namespace welmo::pendant {

namespace {

constexpr int columnWidth = 100;
constexpr int keySpacing = 2;
constexpr int groupSpacing = 14;
// Against the column's end: the keys take all the height that they can use.
constexpr int keyStretch = 100;

} // namespace

KeyColumn::KeyColumn(tessa::PhysicalKeys *keys, KeyHolds *holds, QWidget *parent)
    : HoldSurface(holds, parent)
    , m_keys(keys)
    , m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("pndKeys"));
    setFixedWidth(columnWidth);
    m_layout->setContentsMargins(6, 6, 6, 6);
    m_layout->setSpacing(keySpacing);
    connect(keys, &tessa::PhysicalKeys::setsChanged, this, &KeyColumn::rebuild);
    connect(keys, &tessa::PhysicalKeys::enabledChanged, this, &KeyColumn::refresh);
    connect(keys, &tessa::PhysicalKeys::heldChanged, this, &KeyColumn::refresh);
    rebuild();
}

void KeyColumn::rebuild()
{
    m_faces.clear();
    while (QLayoutItem *item = m_layout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (int key = 0; key < m_keys->count(); ++key) {
        if (!m_keys->isOnHandle(key))
            continue;
        if (!m_faces.isEmpty() && m_keys->startsGroup(key))
            m_layout->addSpacing(groupSpacing);
        auto *face = new HandleKey(m_keys->button(key), QStringLiteral("F%1").arg(key + 1), this);
        m_faces.insert(key, face);
        m_layout->addWidget(face, keyStretch);
    }
    m_layout->addStretch(1);
    setVisible(!m_faces.isEmpty());
    refresh();
}

void KeyColumn::refresh()
{
    for (auto face = m_faces.begin(); face != m_faces.end(); ++face)
        face.value()->show(m_keys->isEnabled(face.key()), m_keys->isHeld(face.key()));
}

int KeyColumn::keyAt(const QPoint &point) const
{
    for (auto face = m_faces.begin(); face != m_faces.end(); ++face) {
        if (face.value()->geometry().contains(point))
            return face.key();
    }
    return -1;
}

} // namespace welmo::pendant
