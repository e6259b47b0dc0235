#include <QHBoxLayout>
#include <QtTest>

#include "kelp/workspace.h"
#include "pando/frame.h"
#include "pando/moduleframework.h"
#include "support/datarows.h"

using pando::BModule;
using pando::ModuleFramework;
using namespace testsupport;

namespace {

/// A module that notes its steps, and adds a sub-module in one of them.
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

// "render" of "a b": a render, a afterRender, b render, b afterRender
QString steps(const QString &names, const QString &modules)
{
    QStringList list;
    for (const QString &module : modules.split(' ')) {
        for (const QString &name : names.split(' '))
            list << module + ' ' + name << module + " after" + name.at(0).toUpper() + name.mid(1);
    }
    return list.join(", ");
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
    void theStepsComeInOrder()
    {
        QVERIFY(!m_framework.create("unknown"));
        bfactory()->regist("a", [](QObject *) -> BModule * { return nullptr; });
        QVERIFY(!m_framework.create("a"));
        create("a", "setup"); // the newer creator counts
        create("b");
        QCOMPARE(m_framework.modules().size(), 2);
        m_framework.start();
        QCOMPARE(takeCalls(),
                 QStringList({steps("init setup", "a a1 b"), steps("render", "a a1 b"),
                              steps("idle", "a a1 b")})
                     .join(", "));
        create("c");
        m_framework.start(); // starts only the new one
        QCOMPARE(takeCalls(), steps("init setup render idle", "c"));
        m_framework.stop();
        QCOMPARE(
            takeCalls(),
            QString("a beforeDetach, a1 beforeDetach, b beforeDetach, c beforeDetach, "
                    "a detach, a1 detach, b detach, c detach, c gone, b gone, a gone, a1 gone"));
    }
    void aSubmoduleCatchesUp_data()
    {
        addRows<QString>(
            {// the step in which the sub-module is added; the last step before its first
             {"init", "a afterSetup"},
             {"setup", "a afterSetup"},
             {"render", "a afterRender"},
             {"idle", "a afterIdle"},
             {"", "a afterIdle"}});
    }
    void aSubmoduleCatchesUp()
    {
        const auto &[addsIn, after] = currentRow<QString>();
        create("a", addsIn);
        m_framework.start();
        if (addsIn.isEmpty())
            static_cast<Recorder *>(m_framework.modules().constFirst())->add();
        QVERIFY(m_calls.contains("a1 init"));
        QCOMPARE(m_calls.at(m_calls.indexOf("a1 init") - 1), after);
        QCOMPARE(m_calls.filter("a1 ").join(", "), steps("init setup render idle", "a1"));
    }
    void aPageIsFoundByItsKey()
    {
        Recorder module("a", &m_calls);
        QCOMPARE(instantiatedRightExpandSideWidget(&module), nullptr); // a host may have none
        pando::CenterWidget center;
        pando::frame().center = &center;
        QCOMPARE(instantiatedCenterWidget(&module), &center);
        auto *second = new QWidget;
        center.addPage(this, "first", new QWidget);
        center.addPage(this, "second", second);
        QVERIFY(center.switchTo("second") && center.currentWidget() == second);
        delete second; // a page's owner may delete it
        QVERIFY(!center.switchTo("second") && !center.switchTo("third"));
    }
    void itemsStandBeforeOthers()
    {
        pando::StatusBar bar;
        for (const char *key : {"a", "b"})
            bar.addItem(this, key, new QWidget);
        bar.addBeforeItem(this, "x", "b", new QWidget);
        bar.addBeforeItem(this, "y", "nowhere", new QWidget);
        int place = 0;
        for (const char *key : {"a", "x", "b", "y"})
            QCOMPARE(bar.layout()->itemAt(place++)->widget(), bar.item(key));
    }

private:
    void create(const QString &name, const QString &addsIn = {})
    {
        bfactory()->regist(name, [this, name, addsIn](QObject *parent) -> BModule * {
            return new Recorder(name, &m_calls, addsIn, parent);
        });
        QVERIFY(m_framework.create(name));
    }

    QString takeCalls() { return std::exchange(m_calls, {}).join(", "); }

    QStringList m_calls;
    ModuleFramework m_framework;
};

QTEST_MAIN(tst_LifeCycle)
#include "tst_lifecycle.moc"
