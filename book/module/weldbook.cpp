#include "book/module/weldbook.h"

#include <QDir>

#include <kelp/registry.h>
#include <kelp/translationmanager.h>
#include <kelp/workspace.h>
#include <pando/frame.h>
#include <tessa/managerhelper.h>
#include <vu/paths.h>
#include <vu/xnav.h>

#include "book/keeper/bookkeeper.h"
#include "book/pages/bookpage.h"

namespace {

const QString moduleName = QStringLiteral("weldbook");
const QString pageKey = QStringLiteral("weldbook.page");

// The folder for a file of the book; the data folder is all that it needs of a host besides what
// every package uses.
QString folderFor(const QString &name)
{
    return QDir(kelp::Workspace::current()->dataFolder()).filePath(name);
}

} // namespace

WeldBook::WeldBook(QObject *parent)
    : BModule(parent)
{
    translator()->installQMTranslator(
        vu::languagePath(QStringLiteral("book_cn"), vu::LanguageType{}, moduleName));
    tessa::ManagerHelper::instance()->registQrcAlias(moduleName);
    m_keeper = std::make_unique<welmo::book::Bookkeeper>(folderFor(moduleName),
                                                         folderFor(QStringLiteral("programs")));
}

WeldBook::~WeldBook() = default;

QString WeldBook::name() const
{
    return moduleName;
}

void WeldBook::init()
{
    kelp::ModuleObject *entry =
        vu::xnav::registerPage(this, tr("Weld Book"), QStringLiteral("robot.pack"), QString(), -1);
    entry->set(this, QStringLiteral("nav"), pageKey, true);
    entry->set(this, QStringLiteral("key"), moduleName, true);
    entry->set(this, QStringLiteral("icon"), QStringLiteral("widget/weld_book"), true);
}

void WeldBook::setup()
{
    pando::CenterWidget *center = instantiatedCenterWidget(this);
    auto *page = new welmo::book::BookPage(m_keeper.get(), center, this);
    addSubmodule(page);
    center->addPage(this, pageKey, page->wgt());
}

void WeldBook::render()
{
    m_keeper->start();
}

void WeldBook::detach()
{
    m_keeper.reset();
}
