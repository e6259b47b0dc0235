#include <QStackedWidget>
#include <malloc.h>

#include "bench/bench.h"
#include "bench/module.h"
#include "bench/rawforms.h"
#include "bench/stage.h"
#include "schema/names.h"
#include "settings/devicessettingpage.h"
#include "settings/processsettingspage.h"
#include "settings/weavefunctionpage.h"
#include "settings/weldingoptionspage.h"
#include "widgets/stylerules.h"

namespace bench {

namespace {

constexpr int pageCount = 4;
constexpr int monitorWidth = 360;
const QString fromUic = QStringLiteral("the same page from uic");

// The page's widget is inside the styled page around it, and is deleted with it.
template<typename Page>
void openPage(Bench &bench, testsupport::FormHost &host, const QString &name,
              QWidget *(*raw)(QWidget *))
{
    QWidget around(host.window());
    welmo::applyStyleRules(&around);
    const auto open = [&](const auto &make) {
        return cost([&] {
            QWidget *widget = make();
            widget->resize(pageSize);
            widget->grab();
        });
    };
    const auto ours = [&] {
        host.takeRequests();
        std::unique_ptr<Page> page;
        return open([&] {
            page = std::make_unique<Page>(&around, nullptr);
            page->initPage();
            return page->wgt();
        });
    };
    const auto floor = [&] {
        std::unique_ptr<QWidget> page;
        return open([&] {
            page.reset(raw(&around));
            return page.get();
        });
    };
    bench.row(QStringLiteral("open the page %1").arg(name), fromUic, ours, floor);
}

void openPages(Bench &bench)
{
    testsupport::FormHost host;
    openPage<DevicesSettingPage>(bench, host, QStringLiteral("Device Setting"), raw::devices);
    openPage<WeldingOptionsPage>(bench, host, QStringLiteral("Welding Options"), raw::options);
    openPage<ProcessSettingsPage>(bench, host, QStringLiteral("Process Setting"), raw::process);
    openPage<WeaveFunctionPage>(bench, host, QStringLiteral("Weave Function"), raw::weave);
}

void switchPages(Bench &bench)
{
    Module module(testsupport::FormHost::Connected);
    module.load();
    const QList<QToolButton *> buttons = module.buttons();
    for (QToolButton *button : buttons) { // the first visit builds the page
        button->click();
        module.page()->grab();
    }
    QWidget *rawPage = raw::arcWeldPage(module.host.window(), pageCount);
    rawPage->resize(pageSize);
    auto *stack = rawPage->findChild<QStackedWidget *>();
    int ourTurn = 0;
    int floorTurn = 0;
    const auto ours = [&] {
        module.host.takeRequests();
        return cost([&] {
            buttons[++ourTurn % pageCount]->click();
            module.page()->grab();
        });
    };
    const auto floor = [&] {
        return cost([&] {
            stack->setCurrentIndex(++floorTurn % pageCount);
            rawPage->grab();
        });
    };
    bench.row(QStringLiteral("switch to another sub-page"),
              QStringLiteral("a QStackedWidget with the pages from uic"), ours, floor);
}

// Against painting alone, which both sides do.
void updates(Bench &bench)
{
    Module module(testsupport::FormHost::Connected);
    module.load();
    for (QToolButton *button : module.buttons())
        button->click();
    QWidget *group = testsupport::child(pando::frame().center, "gbx_arconParam");
    auto *files = testsupport::child<QComboBox>(group, "cbx_arconParamFileNumber");
    const Trial paint = [group] { return cost([group] { group->grab(); }); };
    int turn = 0;
    for (int i : {1, 0}) // the first visit creates the file
        files->setCurrentIndex(i);
    bench.row(
        QStringLiteral("choose another arc-start file"), QStringLiteral("paint the group"),
        [&] {
            module.host.takeRequests();
            return cost([&] {
                files->setCurrentIndex(++turn % 2);
                group->grab();
            });
        },
        paint);

    pando::frame().rightSide->switchTo(QStringLiteral("welmo.page"));
    QWidget *monitor = pando::frame().rightSide;
    monitor->resize(monitorWidth, pageSize.height());
    monitor->show();
    bench.row(
        QStringLiteral("show the welder's new values in the monitor"),
        QStringLiteral("paint the monitor"),
        [&] {
            return cost([&] {
                module.host.notify(welmo::names::welderState,
                                   QVariantMap{{QStringLiteral("current"), 100 + ++turn % 50},
                                               {QStringLiteral("voltage"), 20 + turn % 5},
                                               {QStringLiteral("welding_speed"), 5 + turn % 7}});
                monitor->grab();
            });
        },
        [monitor] { return cost([monitor] { monitor->grab(); }); });
}

void loadLibrary(Bench &bench)
{
    const auto ours = [] {
        Module module(testsupport::FormHost::Down);
        return cost([&] {
            module.load();
            module.page()->grab();
        });
    };
    const auto floor = [] {
        testsupport::FormHost host(testsupport::FormHost::Down);
        return opening([&host] {
            raw::monitor(host.window());
            return raw::arcWeldPage(host.window(), 1);
        })();
    };
    bench.row(QStringLiteral("load the library, paint the first page"),
              QStringLiteral("a window with the same widgets"), ours, floor);
}

// The growth of the GUI thread's heap by @p build, in KiB.
template<typename Build>
double kibibytes(const Build &build)
{
    const size_t before = mallinfo2().uordblks;
    build();
    return (double(mallinfo2().uordblks) - double(before)) / 1024;
}

void memory(Bench &bench)
{
    const auto ours = [] {
        Module module(testsupport::FormHost::Connected);
        return kibibytes([&] {
            module.load();
            for (QToolButton *button : module.buttons()) {
                button->click();
                module.page()->grab();
            }
            module.host.takeRequests();
        });
    };
    const auto floor = [] {
        testsupport::FormHost host;
        return kibibytes([&] {
            raw::monitor(host.window());
            QWidget *page = raw::arcWeldPage(host.window(), pageCount);
            page->resize(pageSize);
            auto *stack = page->findChild<QStackedWidget *>();
            for (int i = 0; i < pageCount; ++i) {
                stack->setCurrentIndex(i);
                page->grab();
            }
        });
    };
    bench.fewTrials(QStringLiteral("memory after all pages were opened"),
                    QStringLiteral("the same widgets from uic"), QStringLiteral("KiB"), ours,
                    floor);
}

} // namespace

void pages(Bench &bench)
{
    openPages(bench);
    switchPages(bench);
    updates(bench);
    loadLibrary(bench);
    memory(bench);
}

} // namespace bench
