#include "pendant/pages/jogpad.h"

#include <QGridLayout>

#include "pendant/theme/look.h"
#include "pendant/window/keyholds.h"
#include "tessa/physicalbutton.h"

namespace welmo::pendant {

namespace {

const QString keySet = QStringLiteral("pendant.jog");
constexpr int keyWidth = 104;
constexpr int keyHeight = 48;

} // namespace

JogPad::JogPad(tessa::PhysicalKeys *keys, KeyHolds *holds, QWidget *parent)
    : HoldSurface(holds, parent)
    , m_keys(keys)
{
    setObjectName(QStringLiteral("pndJogPad"));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(2, 1);
    tessa::PhysicalKeys::Set set;
    set.name = keySet;
    set.onPage = true;
    for (int axis = 0; axis < axisCount; ++axis) {
        addAxis(grid, axis);
        for (const int direction : {-1, 1}) {
            tessa::PhysicalButton button;
            button.action = [this, axis, direction](bool down) {
                down ? emit pressed(axis, direction) : emit released();
            };
            set.firstGroup.append(button);
        }
    }
    keys->regist(this, set);
    connect(keys, &tessa::PhysicalKeys::heldChanged, this, &JogPad::refresh);
    connect(keys, &tessa::PhysicalKeys::enabledChanged, this, &JogPad::refresh);
    refresh();
}

void JogPad::addAxis(QGridLayout *grid, int axis)
{
    grid->addWidget(addKey(), axis, 0);
    m_names.push_back(new QLabel(this));
    m_names.back()->setObjectName(QStringLiteral("lblJogAxis"));
    grid->addWidget(m_names.back(), axis, 1);
    m_values.push_back(new QLabel(this));
    m_values.back()->setObjectName(QStringLiteral("lblJogValue%1").arg(axis));
    m_values.back()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(m_values.back(), axis, 2);
    grid->addWidget(addKey(), axis, 3);
}

QLabel *JogPad::addKey()
{
    auto *face = new QLabel(this);
    face->setObjectName(QStringLiteral("lblJogKey"));
    face->setFixedSize(keyWidth, keyHeight);
    face->setAlignment(Qt::AlignCenter);
    face->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_faces.push_back(face);
    return face;
}

void JogPad::setAxes(const QStringList &names, const QStringList &units)
{
    m_units = units;
    for (int axis = 0; axis < axisCount; ++axis) {
        m_names[size_t(axis)]->setText(names.at(axis));
        m_faces[2 * size_t(axis)]->setText(names.at(axis) + QStringLiteral(" −"));
        m_faces[2 * size_t(axis) + 1]->setText(names.at(axis) + QStringLiteral(" +"));
    }
}

void JogPad::setValue(int axis, double value)
{
    m_values[size_t(axis)]->setText(QString::number(value, 'f', 1) + QLatin1Char(' ')
                                    + m_units.value(axis));
}

void JogPad::setUsable(bool usable)
{
    m_keys->setEnabled(keySet, usable);
}

int JogPad::keyAt(const QPoint &point) const
{
    for (size_t key = 0; key < m_faces.size(); ++key) {
        if (m_faces[key]->geometry().contains(point))
            return hostKey(int(key));
    }
    return -1;
}

int JogPad::hostKey(int key) const
{
    return m_keys->firstOf(keySet) + key;
}

void JogPad::refresh()
{
    for (size_t key = 0; key < m_faces.size(); ++key) {
        const int number = hostKey(int(key));
        m_faces[key]->setEnabled(m_keys->isEnabled(number));
        setStyleWord(m_faces[key], "held",
                     m_keys->isHeld(number) ? QStringLiteral("yes") : QStringLiteral("no"));
    }
}

} // namespace welmo::pendant
