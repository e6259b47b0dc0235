#include <QHBoxLayout>
#include <QTemporaryDir>
#include <QtTest>

#include "kelp/workspace.h"
#include "pando/frame.h"
#include "pando/moduleframework.h"
#include "support/rows.h"

using pando::BModule;
using pando::ModuleFramework;
using testsupport::Rows;

namespace {

/// Writes down what the host does with it, and adds a sub-module in one of its steps.
class Recorder : public BModule
{
    Q_OBJECT
public:
    Recorder(const QString &name, QStringList *calls, const QString &addsIn = {},
             QObject *parent = nullptr)
        : BModule(parent)
        , m_name(name)
        , m_calls(calls)
        , m_addsIn(addsIn)
    { }
    ~Recorder() override { note("gone"); }

    QString name() const override { return m_name; }
    void init() override { note("init"); }
    void afterInit() override { note("afterInit"); }
    void setup() override { note("setup"); }
    void afterSetup() override { note("afterSetup"); }
    void render() override { note("render"); }
    void afterRender() override { note("afterRender"); }
    void idle() override { note("idle"); }
    void afterIdle() override { note("afterIdle"); }
    void beforeDetach() override { note("beforeDetach"); }
    void detach() override { note("detach"); }

    void add() { addSubmodule(new Recorder(m_name + "1", m_calls, {}, this)); }

private:
    void note(const QString &step)
    {
        m_calls->append(m_name + ' ' + step);
        if (step == m_addsIn)
            add();
    }

    QString m_name;
    QStringList *m_calls;
    QString m_addsIn;
};

QStringList steps(const QString &module, const QStringList &names)
{
    QStringList list;
    for (const QString &name : names)
        list << module + ' ' + name << module + " after" + name.at(0).toUpper() + name.mid(1);
    return list;
}

} // namespace

/// kelpPando: the life cycle of modules and sub-modules, and the places of the frame.
class tst_LifeCycle : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        m_framework.stop();
        m_calls.clear();
    }
    void modulesComeThroughTheFactory()
    {
        QVERIFY(!m_framework.create("unknown"));
        bfactory()->regist("a", [](QObject *) -> BModule * { return nullptr; });
        QVERIFY(!m_framework.create("a"));
        create("a"); // registered again: the newer creator counts
        QCOMPARE(m_framework.modules().size(), 1);
        QCOMPARE(m_calls, QStringList());
    }
    void theStepsComeInOrder()
    {
        create("a", "setup");
        create("b");
        m_framework.start();
        const QStringList begin{"init", "setup"};
        QCOMPARE(m_calls,
                 steps("a", begin) + steps("a1", begin) + steps("b", begin) + steps("a", {"render"})
                     + steps("a1", {"render"}) + steps("b", {"render"}) + steps("a", {"idle"})
                     + steps("a1", {"idle"}) + steps("b", {"idle"}));
    }
    void aSubmoduleCatchesUp()
    {
        const Rows<QString> rows{
            // the last step before the sub-module, added in that step, takes its first
            {"init", "a afterSetup"}, {"setup", "a afterSetup"}, {"render", "a afterRender"},
            {"idle", "a afterIdle"},  {"", "a afterIdle"},
        };
        for (const auto &[addsIn, after] : rows) {
            cleanup();
            create("a", addsIn);
            m_framework.start();
            if (addsIn.isEmpty())
                static_cast<Recorder *>(m_framework.modules().first())->add();
            QVERIFY(m_calls.contains("a1 init"));
            QCOMPARE(m_calls.at(m_calls.indexOf("a1 init") - 1), after);
            QCOMPARE(m_calls.filter("a1 "), steps("a1", {"init", "setup", "render", "idle"}));
        }
    }
    void startingAgainLeavesModulesAlone()
    {
        create("a", "setup");
        m_framework.start();
        m_calls.clear();
        create("b");
        m_framework.start();
        QCOMPARE(m_calls, steps("b", {"init", "setup", "render", "idle"}));
        m_calls.clear();
        m_framework.stop(); // the end is detach, then destruction
        QCOMPARE(m_calls.join(", "),
                 QString("a beforeDetach, a1 beforeDetach, b beforeDetach, a detach, a1 detach, "
                         "b detach, b gone, a gone, a1 gone"));
    }
    void aModuleIsHandedOverOnce()
    {
        Recorder owner("a", &m_calls);
        auto *child = new Recorder("b", &m_calls, {}, &owner);
        owner.addSubmodule(child);
        owner.addSubmodule(child);
        QCOMPARE(owner.submodules(), QList<BModule *>{child});
        QCOMPARE(child->parent(), nullptr);
    }
    void treesAreBoundByPath()
    {
        QTemporaryDir folder;
        kelp::Workspace host(folder.path(), "en");
        Recorder module("a", &m_calls);
        module.mobj()->set(nullptr, "before", 1);
        QVERIFY(module.mobj()->isMissing());
        module.bindMobj("one.two");
        QCOMPARE(module.mobj(), m("one.two"));
        Recorder other("b", &m_calls);
        other.bindMobj("one.two");
        QCOMPARE(other.mobj(), module.mobj());
    }
    void aPageIsFoundByItsKey()
    {
        Recorder module("a", &m_calls);
        QCOMPARE(instantiatedRightExpandSideWidget(&module), nullptr); // a host may have none
        pando::CenterWidget center;
        pando::frame().center = &center;
        QCOMPARE(instantiatedCenterWidget(&module), &center);
        const QPointer<QWidget> first = new QWidget;
        auto *second = new QWidget;
        center.addPage(this, "first", first);
        center.addPage(this, "second", second);
        QVERIFY(center.switchTo("second") && center.currentWidget() == second);
        QCOMPARE(center.currentKey(), QString("second"));
        center.switchTo("first");
        auto *again = new QWidget;
        center.addPage(this, "first", again);
        QVERIFY(first.isNull());
        QCOMPARE(center.currentWidget(), again);
        delete second; // its owner may take a page away
        QVERIFY(!center.switchTo("second") && !center.switchTo("third"));
    }
    void theSideBarIsHiddenUntilShown()
    {
        QWidget window;
        auto *bar = new pando::ExpandSideBar(&window);
        auto *page = new QWidget;
        bar->addPage(this, "page", page);
        window.show();
        QVERIFY(bar->switchTo("page") && bar->isHidden());
        bar->show();
        QVERIFY(page->isVisible());
    }
    void itemsStandBeforeOthers()
    {
        const Rows<QString, QString, QString> rows{
            {"before", "x", "b", "axb"},
            {"unknown place", "x", "nowhere", "abx"},
            {"replaced", "a", "b", "ab"},
        };
        for (const auto &[name, key, before, expected] : rows) {
            pando::StatusBar bar;
            bar.addItem(this, "a", new QWidget);
            bar.addItem(this, "b", new QWidget);
            auto *item = new QWidget;
            bar.addBeforeItem(this, key, before, item);
            QCOMPARE(bar.item(key), item);
            QString order;
            for (int i = 0; i < bar.layout()->count(); ++i) {
                for (const QString known : {"a", "b", "x"}) {
                    if (bar.item(known) == bar.layout()->itemAt(i)->widget())
                        order.append(known);
                }
            }
            QCOMPARE(order, expected);
        }
    }

private:
    void create(const QString &name, const QString &addsIn = {})
    {
        bfactory()->regist(name, [this, name, addsIn](QObject *parent) -> BModule * {
            return new Recorder(name, &m_calls, addsIn, parent);
        });
        QVERIFY(m_framework.create(name));
    }

    QStringList m_calls;
    ModuleFramework m_framework;
};

QTEST_MAIN(tst_LifeCycle)
#include "tst_lifecycle.moc"
