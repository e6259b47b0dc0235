#include "book/pages/bookpage.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <tessa/managerhelper.h>
#include <vu/stylesheet.h>

#include "book/pages/backuppage.h"
#include "book/pages/filespage.h"
#include "book/pages/limitspanel.h"
#include "book/pages/releasepanel.h"
#include "book/pages/trendpage.h"
#include "book/pages/weldspage.h"

namespace welmo::book {

BookPage::BookPage(Bookkeeper *keeper, QWidget *parent, QObject *owner)
    : BasePage(QStringLiteral("weldbook"), tr("Weld Book"), owner)
    , m_wgt(new QWidget(parent))
    , m_tabs(new QButtonGroup(m_wgt))
    , m_pages(new QStackedWidget(m_wgt))
{
    m_wgt->setObjectName(QStringLiteral("weldBookPage"));
    m_wgt->setAttribute(Qt::WA_StyledBackground);
    auto *title = new QWidget(m_wgt);
    title->setObjectName(QStringLiteral("wgtTitle"));
    title->setAttribute(Qt::WA_StyledBackground);
    auto *bar = new QHBoxLayout(title);
    bar->setContentsMargins(16, 6, 16, 6);
    bar->setSpacing(8);
    auto *label = new QLabel(tr("Weld Book"), title);
    label->setObjectName(QStringLiteral("lblTitle"));
    bar->addWidget(label);
    bar->addStretch(1);

    auto *welds = new WeldsPage(keeper, m_pages);
    auto *limits = new LimitsPanel(keeper, m_pages);
    auto *release = new ReleasePanel(keeper, m_pages);
    addTab(bar, tr("Welds"), "btnWelds", welds);
    addTab(bar, tr("Trend"), "btnTrend", new TrendPage(keeper, m_pages));
    auto *files = new FilesPage(keeper, m_pages);
    addTab(bar, tr("Files"), "btnFiles", files);
    addTab(bar, tr("Backup"), "btnBackup", new BackupPage(keeper, m_pages));
    m_pages->addWidget(limits);
    m_pages->addWidget(release);
    connect(welds, &WeldsPage::limitsWanted, this, [this, limits](const QString &file) {
        limits->edit(file);
        m_pages->setCurrentWidget(limits);
    });
    connect(limits, &LimitsPanel::done, this, [this, welds] { m_pages->setCurrentWidget(welds); });
    connect(files, &FilesPage::releaseWanted, this, [this, release](const QString &file) {
        release->edit(file);
        m_pages->setCurrentWidget(release);
    });
    connect(release, &ReleasePanel::done, this,
            [this, files] { m_pages->setCurrentWidget(files); });

    auto *column = new QVBoxLayout(m_wgt);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(title);
    // Beside an open side bar the pages may get less room than they want; the window must not grow.
    m_wgt->setMinimumSize(1, 1);
    m_pages->setContentsMargins(12, 10, 12, 10);
    column->addWidget(m_pages, 1);
}

BookPage::~BookPage()
{
    delete m_wgt;
}

void BookPage::addTab(QHBoxLayout *bar, const QString &title, const char *name, QWidget *page)
{
    auto *button = new QPushButton(title, m_wgt);
    button->setObjectName(QString::fromLatin1(name));
    button->setCheckable(true);
    button->setChecked(m_pages->count() == 0);
    button->setMinimumWidth(110);
    m_tabs->addButton(button);
    bar->addWidget(button);
    m_pages->addWidget(page);
    connect(button, &QPushButton::clicked, m_pages,
            [this, page] { m_pages->setCurrentWidget(page); });
}

void BookPage::render()
{
    auto *theme = tessa::ManagerHelper::instance()->themeManager();
    setRecursiveWidgetStyleSheet(
        m_wgt, theme->genStyleSheet(QStringLiteral(":/weldbook/render/book.json")));
    // Widgets that were measured before they had a style must be styled again.
    for (QWidget *widget : m_wgt->findChildren<QWidget *>()) {
        widget->style()->unpolish(widget);
        widget->style()->polish(widget);
    }
}

} // namespace welmo::book
