#include "pendant/program/lineform.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace welmo::pendant {

LineForm::LineForm(QWidget *parent)
    : HostForm(parent)
    , m_text(new QLineEdit(this))
{
    m_text->setObjectName(QStringLiteral("ledtLine"));
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(8);
    layout->addWidget(new QLabel(tr("The line as text"), this));
    layout->addWidget(m_text);
    layout->addStretch(1);
    setFocusProxy(m_text);
}

void LineForm::FillWith(const QString &line)
{
    m_text->setText(line);
}

QString LineForm::ToString()
{
    return m_text->text();
}

} // namespace welmo::pendant
