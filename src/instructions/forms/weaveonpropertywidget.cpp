#include "instructions/forms/weaveonpropertywidget.h"

#include <QDebug>
#include <QTabWidget>
#include <QVBoxLayout>

#include "instructions/forms/formscroller.h"
#include "instructions/forms/weavewidget.h"
#include "tl/lineformat.h"

using namespace welmo::tl;

WeaveOnPropertyWidget::WeaveOnPropertyWidget(QWidget *parent)
    : PropertyForm(Word::WeaveOn, parent)
{
    auto *tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("twgtWeaveData"));
    // This label is Chinese in every language, as on the pendants in the field.
    wgtWeaveData =
        welmo::FormScroller::addTab<WeaveWidget>(tabs, QStringLiteral("摆弧参数(weavedata)"));
    wgtWeaveData->setObjectName(QStringLiteral("wgtWeaveData"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabs);
}

void WeaveOnPropertyWidget::FillWith(const QString &line)
{
    const ParsedLine parsed = read(line);
    if (parsed.names.isEmpty())
        report(parsed.problems);
    else
        wgtWeaveData->setCurrentFileNum(parsed.names.front()); // reports a name that is wrong
}

QString WeaveOnPropertyWidget::ToString()
{
    const QString name = wgtWeaveData->getCurrentFileNum();
    qDebug() << "return weavedata" << name;
    return formatFileLine(word(), {name});
}
