#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "fakelink.h"
#include "tessa/host.h"

using tessa::PhysicalButton;
using tessa::PhysicalKeys;

/// tessa: the handle keys. Every press is followed by exactly one release.
class tst_PhysicalKeys : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<tessa::Host>(tessa::HostOptions{m_folder.path()});
        m_owner = std::make_unique<QObject>();
        m_keys = m_host->keys();
        m_acted.clear();
    }
    void cleanup()
    {
        m_owner.reset();
        m_host.reset();
    }
    void keysStandInGroupsAndRegistrationOrder()
    {
        registerSet("one", {"a", "b"}, {"c"});
        registerSet("two", {}, {"d"});
        registerSet("one", {"e"}, {"c"});
        QStringList labels;
        for (int key = 0; key < m_keys->count(); ++key)
            labels.append(m_keys->button(key).label);
        QCOMPARE(labels, QStringList({"e", "c", "d"}));
        for (const int outside : {-1, 3}) {
            m_keys->press(outside);
            m_keys->release(outside);
            QVERIFY(!m_keys->isHeld(outside) && !m_keys->isEnabled(outside));
        }
    }
    void keysActWhileTheirSetIsEnabled()
    {
        registerSet("one", {"a"}, {"b"});
        registerSet("two", {"c"}, {});
        m_keys->press(0);
        QCOMPARE(m_acted, QStringList());
        enableRegisterPhysicalButtons(m_owner.get(), "one", true);
        for (int key = 0; key < 3; ++key)
            m_keys->press(key);
        QCOMPARE(m_acted, QStringList({"a down", "b down"}));
        // A key that was disabled while it was held needs a fresh press.
        for (const bool enabled : {false, true})
            enableRegisterPhysicalButtons(m_owner.get(), "one", enabled);
        QVERIFY(!m_keys->isHeld(0));
        m_keys->press(0);
        QCOMPARE(m_acted.mid(2), QStringList({"a up", "b up", "a down"}));
    }
    void aHeldKeyIsReleasedOnce()
    {
        for (const QString event :
             {"release", "disable", "register again", "window left", "end of the host"}) {
            cleanup();
            init();
            registerSet("other", {"x"}, {});
            registerSet("one", {"a"}, {"b"});
            enableRegisterPhysicalButtons(m_owner.get(), "one", true);
            m_keys->press(2);
            m_keys->press(2);
            QVERIFY(m_keys->isHeld(2));
            if (event == "disable")
                enableRegisterPhysicalButtons(m_owner.get(), "one", false);
            else if (event == "register again")
                registerSet("one", {"a"}, {"b"});
            else if (event == "window left")
                m_keys->releaseAll();
            else if (event == "end of the host")
                m_host.reset();
            else
                m_keys->release(2);
            QCOMPARE(m_acted, QStringList({"b down", "b up"}));
            if (m_host)
                m_keys->release(2);
            QCOMPARE(m_acted.size(), 2);
        }
    }
    void aSetGoesWithItsOwner()
    {
        registerSet("one", {"a"}, {});
        enableRegisterPhysicalButtons(m_owner.get(), "one", true);
        m_keys->press(0);
        QSignalSpy changed(m_keys, &PhysicalKeys::setsChanged);
        m_owner.reset();
        QVERIFY(m_keys->count() == 0 && changed.count() == 1);
        m_keys->release(0);
        QCOMPARE(m_acted, QStringList("a down"));
    }
    void anActionMayChangeTheSets()
    {
        const auto registerAgain = [this](bool down) {
            m_acted.append(down ? "down" : "up");
            if (!down) {
                for (int i = 0; i < 10; ++i)
                    registerSet(QString::number(i), {"x"}, {});
            }
        };
        registerPhysicalButtons(m_owner.get(), "one", {{"a", {}, {}, registerAgain}}, {}, {});
        enableRegisterPhysicalButtons(m_owner.get(), "one", true);
        m_keys->press(0);
        enableRegisterPhysicalButtons(m_owner.get(), "one", false);
        QCOMPARE(m_acted, QStringList({"down", "up"}));
        QCOMPARE(m_keys->count(), 11);
    }
    void theHeartbeatTellsWhetherAKeyIsHeld()
    {
        auto *link = new FakeLink;
        m_host->setLink(std::unique_ptr<FakeLink>(link));
        registerSet("one", {"a"}, {});
        enableRegisterPhysicalButtons(m_owner.get(), "one", true);
        link->setUp(true);
        QTRY_VERIFY(link->beats.contains(false));
        m_keys->press(0);
        QCOMPARE(link->beats.last(), true); // with the press, not a beat later
        m_keys->release(0);
        QTRY_COMPARE(link->beats.last(), false);
    }

private:
    void registerSet(const QString &set, const QStringList &first, const QStringList &second)
    {
        const auto buttons = [this](const QStringList &labels) {
            QList<PhysicalButton> list;
            for (const QString &label : labels) {
                list.append({label, {}, {}, [this, label](bool down) {
                                 // At the end of the host too, while there is a way to the
                                 // controller.
                                 if (xservice())
                                     m_acted.append(label + (down ? " down" : " up"));
                             }});
            }
            return list;
        };
        registerPhysicalButtons(m_owner.get(), set, buttons(first), buttons(second), {QString()});
    }

    QTemporaryDir m_folder;
    std::unique_ptr<tessa::Host> m_host;
    std::unique_ptr<QObject> m_owner;
    PhysicalKeys *m_keys = nullptr;
    QStringList m_acted;
};

QTEST_MAIN(tst_PhysicalKeys)
#include "tst_physicalkeys.moc"
