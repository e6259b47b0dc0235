#include "instructions/forms/arconpropertywidget.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "instructions/forms/formscroller.h"
#include "settings/arcongroup.h"
#include "settings/weldgroup.h"
#include "tl/lineformat.h"

using namespace welmo;

ArconPropertyWidget::ArconPropertyWidget(QWidget *parent)
    : PropertyForm(tl::Word::ArcOn, parent)
    , m_tabs(new QTabWidget(this))
    , m_arcon(FormScroller::addTab<ArconGroup>(m_tabs, tr("ArcOnData")))
    , m_weld(FormScroller::addTab<WeldGroup>(m_tabs, tr("ArcData")))
    , m_groups(this, {m_arcon, m_weld})
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    m_groups.initUI(this);
    connect(m_tabs, &QTabWidget::currentChanged, this, &ArconPropertyWidget::onTabChanged);
}

FileForm &ArconPropertyWidget::arcon()
{
    return m_arcon->file();
}

FileForm &ArconPropertyWidget::weld()
{
    return m_weld->file();
}

void ArconPropertyWidget::FillWith(const QString &line)
{
    const tl::ParsedLine parsed = read(line);
    const QList<QComboBox *> combos{arcon().combo(), weld().combo()};
    for (size_t i = 0; i < parsed.files.size(); ++i) {
        if (parsed.files[i])
            combos.at(int(i))->setCurrentText(*parsed.files[i]);
    }
    report(parsed.problems);
}

QString ArconPropertyWidget::ToString()
{
    return tl::formatFileLine(word(),
                              {arcon().combo()->currentText(), weld().combo()->currentText()});
}

void ArconPropertyWidget::onArconLeadTimeEditFinished()
{
    m_arcon->onArconLeadTimeEditFinished();
}

void ArconPropertyWidget::onArcBreakOptionChanged(int index)
{
    m_weld->onArcBreakOptionChanged(index);
}

void ArconPropertyWidget::onArcOnDataFoldButtonClicked()
{
    m_arcon->onFoldButtonClicked();
}

void ArconPropertyWidget::onArcDataFoldButtonClicked()
{
    m_weld->onFoldButtonClicked();
}

void ArconPropertyWidget::onTabChanged(int index)
{
    if (index == 0)
        onArcDataFoldButtonClicked();
    else if (index == 1)
        onArcOnDataFoldButtonClicked();
}
