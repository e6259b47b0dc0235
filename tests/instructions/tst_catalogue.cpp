#include <QJsonValue>
#include <QSet>
#include <QTest>

#include "instructions/tlarcweld.h"
#include "support/formhost.h"
#include "tessa/basecontentwidget.h"

using tessa::TlManager;

namespace {

const QString group = QStringLiteral("INS_GROUP_ARCON");
const QStringList names{"ArcOn",    "ArcOff",     "WMoveL",       "WMoveC",   "WeaveOn",
                        "WeaveOff", "FeedOnWire", "FeedBackWire", "DetectGas"};

} // namespace

/// What the package enters into the program editor's tables.
class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void tables()
    {
        testsupport::FormHost host;
        TlManager *manager = TlManager::getTlManager();
        manager->instructionNames.append("MoveJ");
        manager->groupMembers[group].append("Another");
        {
            TlArcWeldDefine define(nullptr);
        }
        QCOMPARE(manager->instructionNames, QStringList{"MoveJ"} + names);
        QCOMPARE(manager->groupMembers.value(group), QStringList{"Another"} + names);
        QCOMPARE(manager->instructionGroups, (QList<QPair<QString, QString>>{{"Arc On", group}}));
        QVERIFY(manager->instructionSet.isEmpty());
        for (const QString &name : names) {
            QCOMPARE(manager->cTexts.value("c_" + name, "none"), QString());
            QCOMPARE(manager->sTexts.value("s_" + name, "none"), QString());
            QCOMPARE(manager->instructionTexts.value(name, "none"), QString());
        }
        for (const char *name : {"SegOn", "SegOff"}) {
            QVERIFY(!manager->insertWidgetCreators.contains(name));
            QVERIFY(!manager->propertyWidgetCreators.contains(name));
        }
        QCOMPARE(manager->syntaxTemplates.value("WMoveC"),
                 QString("WMoveC AuxPoint, ToPoint, Speed, Zone, Tool, [Wobj], [\"weavedata\"]"));
        QCOMPARE(manager->syntaxTemplates.value("ArcOn"),
                 QString("ArcOn \"arcondata\", \"arcdata\""));
    }
    /// Each factory gives its own class, owned by the parent, which keeps to the common contract.
    void forms()
    {
        testsupport::FormHost host;
        TlArcWeldDefine define(nullptr);
        const auto *manager = TlManager::getTlManager();
        for (const QString &name : names) {
            auto *insert = manager->insertWidgetCreators.value(name)(host.window());
            auto *property = manager->propertyWidgetCreators.value(name)(host.window());
            QString prefix = name;
            prefix.replace("ArcO", "Arco");
            QCOMPARE(insert->metaObject()->className(), qPrintable(prefix + "InsertWidget"));
            QCOMPARE(property->metaObject()->className(), qPrintable(prefix + "PropertyWidget"));
            for (tessa::BaseContentWidget *form : {insert, property}) {
                QCOMPARE(form->parentWidget(), host.window());
                QVERIFY(form->CheckInsert() && form->CheckReplace());
                QVERIFY(form->ToJsonValue().isNull() && form->GetLabel().isEmpty());
                QVERIFY2(form->ToString().startsWith(name), qPrintable(form->ToString()));
            }
            const QString line = insert->ToString();
            host.takeMessages();
            insert->FillWith("nonsense, that no form reads");
            QCOMPARE(insert->ToString(), line);
            QCOMPARE(host.takeMessages(), QStringList());
        }
    }
};

QTEST_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
