#include "bench/rawforms.h"

#include <QStackedWidget>
#include <QTabWidget>
#include <QToolButton>

#include "instructions/forms/formscroller.h"
#include "ui_rawarcweldpage.h"
#include "ui_rawdevicessettingpage.h"
#include "ui_rawmonitorpage.h"
#include "ui_rawmoveparamwidget.h"
#include "ui_rawpointgroup.h"
#include "ui_rawprocesssettingspage.h"
#include "ui_rawweaveeditor.h"
#include "ui_rawweldingoptionspage.h"
#include "vu/xtheme.h"
#include "widgets/stylerules.h"

namespace bench::raw {

namespace {

template<typename Form>
QWidget *bare(QWidget *parent)
{
    auto *widget = new QWidget(parent);
    Form form;
    form.setupUi(widget);
    return widget;
}

QWidget *styled(QWidget *parent)
{
    auto *form = new QWidget(parent);
    welmo::applyStyleRules(form);
    return form;
}

QVBoxLayout *layoutOf(QWidget *form, bool margins)
{
    auto *layout = new QVBoxLayout(form);
    if (!margins)
        layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

QWidget *pointPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(bare<Ui::RawPointGroup>(page));
    layout->addStretch();
    return page;
}

QWidget *move(QWidget *parent, const QStringList &points)
{
    QWidget *form = styled(parent);
    auto *layout = layoutOf(form, true);
    auto *tabs = new QTabWidget(form);
    tabs->setTabBarAutoHide(true);
    for (const QString &title : points)
        tabs->addTab(pointPage(), title);
    layout->addWidget(tabs);
    layout->addWidget(bare<Ui::RawMoveParamWidget>(form));
    layout->addStretch();
    return form;
}

} // namespace

QWidget *arcOn(QWidget *parent)
{
    QWidget *form = styled(parent);
    auto *tabs = new QTabWidget(form);
    welmo::FormScroller::addTab<RawArconGroup>(tabs, QStringLiteral("ArcOnData"));
    auto *weld = welmo::FormScroller::addTab<RawWeldGroup>(tabs, QStringLiteral("ArcData"));
    weld->findChild<QWidget *>(QStringLiteral("btnWeldingEnable"))->hide();
    layoutOf(form, false)->addWidget(tabs);
    return form;
}

QWidget *arcOff(QWidget *parent)
{
    QWidget *form = styled(parent);
    auto *tabs = new QTabWidget(form);
    welmo::FormScroller::addTab<RawArcoffGroup>(tabs, QStringLiteral("ArcOffData"));
    layoutOf(form, false)->addWidget(tabs);
    return form;
}

QWidget *moveL(QWidget *parent)
{
    return move(parent, {QStringLiteral("Target point")});
}

QWidget *moveC(QWidget *parent)
{
    return move(parent, {QStringLiteral("Auxiliary point"), QStringLiteral("Target point")});
}

QWidget *weaveOn(QWidget *parent)
{
    QWidget *form = styled(parent);
    auto *tabs = new QTabWidget(form);
    auto *editor = welmo::FormScroller::addTab<QWidget>(tabs, QStringLiteral("weavedata"));
    Ui::RawWeaveEditor().setupUi(editor);
    editor->findChild<QWidget *>(QStringLiteral("wgtPreview"))->hide();
    layoutOf(form, false)->addWidget(tabs);
    return form;
}

QWidget *feedOnWire(QWidget *parent)
{
    QWidget *form = styled(parent);
    auto *layout = new QHBoxLayout(form);
    layout->addWidget(new QLabel(QStringLiteral("Feed Wire Time(s): "), form), 0, Qt::AlignTop);
    layout->addWidget(new QDoubleSpinBox(form), 1, Qt::AlignTop);
    return form;
}

QWidget *devices(QWidget *parent)
{
    return bare<Ui::RawDevicesSettingPage>(parent);
}

QWidget *options(QWidget *parent)
{
    return bare<Ui::RawWeldingOptionsPage>(parent);
}

QWidget *process(QWidget *parent)
{
    return bare<Ui::RawProcessSettingsPage>(parent);
}

QWidget *weave(QWidget *parent)
{
    return bare<Ui::RawWeaveEditor>(parent);
}

QWidget *arcWeldPage(QWidget *parent, int pages)
{
    QWidget *page = styled(parent);
    page->setAttribute(Qt::WA_StyledBackground);
    Ui::RawArcWeldPage form;
    form.setupUi(page);
    for (const char *icon : {"ArconDeviceSetting", "ArconWeldingOptions", "ArconProcessSetting",
                             "ArconWeaveFunction"}) {
        auto *button = new QToolButton(form.wgtNav);
        button->setMinimumSize(0, 45);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setText(QString::fromLatin1(icon));
        const auto file = QStringLiteral(":/welmo/images/%1.png").arg(QString::fromLatin1(icon));
        button->setIcon(vu::xtheme::pixmap(file, QStringLiteral("black")));
        form.navLayout->addWidget(button);
    }
    auto *stack = new QStackedWidget(form.wgtContent);
    form.contentLayout->addWidget(stack);
    const auto makers = {devices, options, process, weave};
    for (int i = 0; i < pages; ++i)
        stack->addWidget(makers.begin()[i](stack));
    return page;
}

QWidget *monitor(QWidget *parent)
{
    QWidget *page = styled(parent);
    Ui::RawMonitorPage form;
    form.setupUi(page);
    return page;
}

} // namespace bench::raw
