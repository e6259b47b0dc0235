#include <QtTest>

#include "kelp/moduleobject.h"
#include "support/datarows.h"

using kelp::ModuleObject;
using namespace testsupport;

namespace {

const QVariantMap tree{{"b", QVariantMap{{"x", 1}, {"y", "two"}}}, {"a", 2.5}};

QVariantMap tool(const char *id, int mass)
{
    return {{"id", QString::fromLatin1(id)}, {"mass", mass}};
}

} // namespace

/// kelpCore: the value tree.
class tst_ModuleObject : public QObject
{
    Q_OBJECT

private slots:
    void aMissingNodeReadsAsTheDefaultAndIgnoresWrites()
    {
        ModuleObject root("root");
        ModuleObject other("other");
        other.importFromVariant(nullptr, tree);
        ModuleObject *missing = root.r("no.such.node");
        missing->set(nullptr, QString(), 5);
        missing->set(nullptr, "deeper.key", 5);
        missing->setList(nullptr, "list", {1});
        missing->importFromVariant(nullptr, tree);
        missing->copyFrom(nullptr, &other);
        missing->c("child", true)->set(nullptr, QString(), 1);
        QVERIFY(root.c("no")->isMissing() && root.cmobj(-1)->isMissing());
        QVERIFY(missing->getInt(7) == 7 && missing->getDouble(1.5) == 1.5
                && missing->getBool(true));
        QCOMPARE(missing->getString("none"), QString("none"));
        QVERIFY(missing->getList().isEmpty() && missing->cmobjs(true).isEmpty());
    }
    void valuesConvert_data()
    {
        // The defaults are true, -9, -9.5 and "?".
        addRows<QVariant, bool, int, double, QString>(
            {{"none", QVariant(), true, -9, -9.5, "?"},
             {"bool", false, false, 0, 0.0, "false"},
             {"a fraction is dropped", 12.5, true, 12, 12.5, "12.5"},
             {"towards zero", -12.9, true, -12, -12.9, "-12.9"},
             {"number as text", "12.5", true, 12, 12.5, "12.5"},
             {"text", "abc", true, -9, -9.5, "abc"},
             {"false as text", "false", false, -9, -9.5, "false"},
             {"empty text", "", false, -9, -9.5, ""},
             {"list", QVariantList{1}, true, -9, -9.5, "?"},
             {"beyond int", 5000000000LL, true, INT_MAX, 5e9, "5000000000"}});
    }
    void valuesConvert()
    {
        const auto &[name, value, asBool, asInt, asDouble, asString] =
            currentRow<QVariant, bool, int, double, QString>();
        ModuleObject node("node");
        node.set(nullptr, QString(), value);
        QCOMPARE(node.getBool(true), asBool);
        QCOMPARE(node.getInt(-9), asInt);
        QCOMPARE(node.getDouble(-9.5), asDouble);
        QCOMPARE(node.getString("?"), asString);
    }
    void aPathIsMadeByWriting()
    {
        ModuleObject root("root");
        ModuleObject *leaf = root.set(nullptr, "a.b.c", 5);
        QCOMPARE(leaf, root.r("a.b")->c("c"));
        QCOMPARE(leaf, m("a.b.c", &root));
        QCOMPARE(leaf->pmobj()->name(), QString("b"));
        // The name of a direct child may contain points and is no path then.
        root.c("x.y", true)->set(nullptr, QString(), 1);
        QVERIFY(root.hasCmobj("x.y") && root.r("x.y")->isMissing());
    }
    void childrenKeepTheirOrderAndNamesAreUnique()
    {
        ModuleObject root("root");
        for (const char *path : {"z", "a.inner", "m"})
            root.set(nullptr, path, 1);
        QCOMPARE(root.cmobjNames(true), QStringList({"z", "a", "inner", "m"}));
        QCOMPARE(root.cmobj(2)->name(), QString("m"));
        QVERIFY(!root.hasCmobj("inner") && root.hasCmobj("inner", true));
        const auto *second = new ModuleObject("a", &root);
        QCOMPARE(root.cmobjNames(), QStringList({"z", "m", "a"}));
        QCOMPARE(root.c("a"), second);
        for (int i = 0; i < 3; ++i) {
            const QString name = ModuleObject::generateId(&root);
            QVERIFY(!root.hasCmobj(name));
            root.c(name, true);
        }
    }
    void aChildGoesWithItsParentAndLeavesIt()
    {
        auto root = std::make_unique<ModuleObject>("root");
        const QPointer<ModuleObject> leaf = root->set(nullptr, "a.b", 1);
        const QPointer<ModuleObject> last = root->set(nullptr, "c.d", 1);
        delete new ModuleObject("own", root.get());
        QVERIFY(root->removeChild("a") && !root->removeChild("a"));
        QCOMPARE(root->cmobjNames(), QStringList("c"));
        root.reset();
        QVERIFY(leaf.isNull() && last.isNull());
    }
    void changedFiresOnlyOnDifference_data()
    {
        addRows<QVariant, QVariant, bool>(
            {{"same number of another type", 1, 1.0, false},
             {"number and its text", 1, "1", true},
             {"bool and number", true, 1, true},
             {"same list", QVariantList{1, "a"}, QVariantList{1.0, "a"}, false},
             {"text within a list", QVariantList{1}, QVariantList{"1"}, true},
             {"longer list", QVariantList{1}, QVariantList{1, 2}, true},
             {"value gone", 1, QVariant(), true}});
    }
    void changedFiresOnlyOnDifference()
    {
        const auto &[name, before, after, fires] = currentRow<QVariant, QVariant, bool>();
        ModuleObject node("node");
        node.set(nullptr, QString(), before);
        node.watch();
        QSignalSpy spy(&node, &ModuleObject::changed);
        node.set(nullptr, QString(), after);
        QCOMPARE(!spy.isEmpty(), fires);
        QCOMPARE(node.value().userType(), after.userType());
    }
    void changedIsToldToWhoWatches()
    {
        ModuleObject root("root");
        ModuleObject *leaf = root.set(nullptr, "a.b", 1);
        QSignalSpy spy(leaf, &ModuleObject::changed);
        QSignalSpy above(&root, &ModuleObject::changed);
        root.set(nullptr, "a.b", 2);
        leaf->watch(true, false);
        root.watch(true, false);
        root.set(nullptr, "a.b", 3, false);
        QVERIFY(spy.isEmpty() && above.isEmpty());
        root.set(this, "a.b", 4);
        const QList<QVariant> told{4, 3, QVariant::fromValue<QObject *>(this)};
        QCOMPARE(spy, QList<QList<QVariant>>{told});
        QVERIFY(above.isEmpty());
        root.watch(true, true);
        leaf->watch(false);
        root.set(nullptr, "a.b", 5);
        QVERIFY(spy.size() == 1 && above.size() == 1);
        // A receiver may remove the node.
        leaf->watch();
        connect(leaf, &ModuleObject::changed, &root, [&root] { root.removeChild("a"); });
        leaf->set(nullptr, QString(), 6);
        QCOMPARE(root.cmobjCount(), 0);
    }
    void settingReplacesWhatStoodThere()
    {
        ModuleObject root("root");
        for (const QVariant &value :
             {QVariant(tree), QVariant(QVariantMap{{"a", 1}}), QVariant(5), QVariant(tree)}) {
            root.set(nullptr, "n", value);
            QCOMPARE(root.toVariant(), QVariant(QVariantMap{{"n", value}}));
        }
        QCOMPARE(root.r("n")->getInt(-1), -1);
        root.setList(nullptr, "n", {tool("t", 1)});
        QCOMPARE(root.r("n")->cmobjCount(), 0);
        QCOMPARE(root.r("n")->getList(), QVariantList{tool("t", 1)});
    }
    void importKeepsOrPrunes()
    {
        const QVariantMap news{{"b", QVariantMap{{"x", 9}}}, {"c", 3}};
        QVariantMap known{{"a", 2.5}, {"b", QVariantMap{{"x", 9}, {"y", "two"}}}};
        const auto imported = [&news](bool create, bool prune) {
            ModuleObject node("node");
            node.importFromVariant(nullptr, tree);
            node.importFromVariant(nullptr, news, true, create, prune);
            return node.toVariant().toMap();
        };
        QCOMPARE(imported(false, false), known);
        QCOMPARE(imported(true, true), news);
        known["c"] = 3;
        QCOMPARE(imported(true, false), known);
    }
    void aListOfMapsBecomesChildrenInItsOrder()
    {
        ModuleObject root("root");
        root.set(nullptr, "list", QVariantList{tool("z", 1), tool("a", 2)});
        QCOMPARE(root.r("list")->cmobjNames(), QStringList({"z", "a"}));
        const QPointer<ModuleObject> kept = root.r("list.z");
        root.set(nullptr, "list", QVariantList{tool("m", 3), tool("z", 4)});
        QCOMPARE(root.r("list")->cmobjNames(), QStringList({"m", "z"}));
        QCOMPARE(kept->r("mass")->getInt(), 4);
        root.set(nullptr, "list", QVariantList{QVariantMap{{"v", 1}}, QVariantMap{{"v", 2}}});
        QCOMPARE(root.r("list")->cmobjNames(), QStringList({"0", "1"}));
        root.set(nullptr, "list", QVariantList());
        QCOMPARE(root.r("list")->cmobjCount(), 0);
    }
    void copyingMakesEqualTrees()
    {
        ModuleObject from("from");
        ModuleObject to("to");
        for (const char *name : {"z", "a", "m"})
            from.set(nullptr, name, QString(name));
        from.set(nullptr, "m", tree);
        to.set(nullptr, "m.old", 1);
        to.set(nullptr, "a", "a")->watch();
        to.set(nullptr, "z", "other")->watch();
        QSignalSpy same(to.c("a"), &ModuleObject::changed);
        QSignalSpy different(to.c("z"), &ModuleObject::changed);
        to.copyFrom(nullptr, &from);
        QCOMPARE(to.toVariant(), from.toVariant());
        QCOMPARE(to.cmobjNames(true), from.cmobjNames(true));
        QVERIFY(same.isEmpty() && different.count() == 1);
        to.c("m")->copyFrom(nullptr, to.c("m")); // a copy onto itself
        QCOMPARE(to.toVariant(), from.toVariant());
        to.set(nullptr, "own", 1);
        to.copyFrom(nullptr, &from, true, false);
        QVERIFY(to.hasCmobj("own"));
    }
};

QTEST_GUILESS_MAIN(tst_ModuleObject)
#include "tst_moduleobject.moc"
