#include "instructions/forms/arcoffpropertywidget.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "instructions/forms/formscroller.h"
#include "settings/arcoffgroup.h"
#include "tl/lineformat.h"

using namespace welmo;

ArcoffPropertyWidget::ArcoffPropertyWidget(QWidget *parent)
    : PropertyForm(tl::Word::ArcOff, parent)
    , m_tabs(new QTabWidget(this))
    , m_arcoff(FormScroller::addTab<ArcoffGroup>(m_tabs, tr("ArcOffData")))
    , m_groups(this, {m_arcoff})
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    m_groups.initUI(this);
}

FileForm &ArcoffPropertyWidget::arcoff()
{
    return m_arcoff->file();
}

void ArcoffPropertyWidget::FillWith(const QString &line)
{
    const tl::ParsedLine parsed = read(line);
    if (!parsed.files.empty() && parsed.files.front())
        arcoff().combo()->setCurrentText(*parsed.files.front());
    report(parsed.problems);
}

QString ArcoffPropertyWidget::ToString()
{
    return tl::formatFileLine(word(), {arcoff().combo()->currentText()});
}

void ArcoffPropertyWidget::onArcOffDataFoldButtonClicked()
{
    m_arcoff->onFoldButtonClicked();
}
