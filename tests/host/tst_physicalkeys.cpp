#include <QtTest>

#include "fakelink.h"
#include "support/datarows.h"
#include "tessa/host.h"

using namespace testsupport;
using tessa::PhysicalButton;

namespace {

/// A host, and an owner of keys that note what they do.
struct Fixture
{
    QTemporaryDir folder;
    std::unique_ptr<tessa::Host> host =
        std::make_unique<tessa::Host>(tessa::HostOptions{folder.path()});
    std::unique_ptr<QObject> owner = std::make_unique<QObject>();
    tessa::PhysicalKeys *keys = host->keys();
    QStringList acted;
    int more = 0; ///< sets of keys that a release adds

    /// Adds a set with a key for each letter.
    void add(const QString &set, const QString &first, const QString &second = {})
    {
        const auto buttons = [this](const QString &labels) {
            QList<PhysicalButton> list;
            for (const QChar letter : labels) {
                const QString label(letter);
                list.append({label, {}, {}, [this, label](bool down) {
                                 // An action may still reach the controller when the host ends.
                                 if (xservice())
                                     acted.append(label + (down ? " down" : " up"));
                                 for (int i = 0; i < more && !down; ++i)
                                     add(QString::number(i), "x");
                             }});
            }
            return list;
        };
        registerPhysicalButtons(owner.get(), set, buttons(first), buttons(second), {QString()});
    }
    void enable(bool on = true) { enableRegisterPhysicalButtons(owner.get(), "one", on); }
};

using Step = void (*)(Fixture &);

} // namespace

/// tessa: the handle keys. Every press is followed by exactly one release.
class tst_PhysicalKeys : public QObject
{
    Q_OBJECT

private slots:
    void keysStandInGroupsAndRegistrationOrder()
    {
        Fixture b;
        b.add("one", "ab", "c");
        b.add("two", "", "d");
        b.add("one", "e", "c");
        QString labels;
        for (int key = 0; key < b.keys->count(); ++key)
            labels += b.keys->button(key).label;
        QCOMPARE(labels, "ecd");
    }
    void aPressIsFollowedByOneRelease_data()
    {
        const Step press = [](Fixture &b) { b.keys->press(1); };
        const Step release = [](Fixture &b) { b.keys->release(1); };
        const Step enable = [](Fixture &b) { b.enable(); };
        const Step disable = [](Fixture &b) { b.enable(false); };
        const Step registerAgain = [](Fixture &b) { b.add("one", "ab"); };
        const Step leaveWindow = [](Fixture &b) { b.keys->releaseAll(); };
        const Step endHost = [](Fixture &b) { b.host.reset(); };
        const Step willAddSets = [](Fixture &b) { b.more = 10; };
        const Step endOwner = [](Fixture &b) { b.owner.reset(); };
        addRows<QVector<Step>, QString>(
            {{"off until enabled", QVector<Step>{press}, ""},
             {"held", QVector<Step>{enable, press, press}, "b down"},
             {"released", QVector<Step>{enable, press, release, release}, "b down, b up"},
             {"disabled", QVector<Step>{enable, press, disable, release}, "b down, b up"},
             {"a fresh press", QVector<Step>{enable, press, disable, enable, release, press},
              "b down, b up, b down"},
             {"replaced", QVector<Step>{enable, press, registerAgain, release}, "b down, b up"},
             {"window left", QVector<Step>{enable, press, leaveWindow, release}, "b down, b up"},
             {"an action changes the sets", QVector<Step>{enable, willAddSets, press, disable},
              "b down, b up"},
             {"end of the host", QVector<Step>{enable, press, endHost}, "b down, b up"},
             {"the actions have gone too", QVector<Step>{enable, press, endOwner, release},
              "b down"}});
    }
    void aPressIsFollowedByOneRelease()
    {
        const auto &[name, steps, acted] = currentRow<QVector<Step>, QString>();
        Fixture b;
        b.add("one", "ab");
        b.add("two", "c");
        for (const Step step : steps)
            step(b);
        QCOMPARE(b.acted.join(", "), acted);
    }
    void theHeartbeatTellsWhetherAKeyIsHeld()
    {
        Fixture b;
        auto *link = new FakeLink;
        b.host->setLink(std::unique_ptr<FakeLink>(link));
        b.add("one", "a");
        b.enable();
        link->setUp(true);
        QTRY_VERIFY(link->beats.contains(false));
        b.keys->press(0);
        QCOMPARE(link->beats.last(), true); // the press itself sends a beat
        b.keys->release(0);
        QTRY_COMPARE(link->beats.last(), false);
    }
};

QTEST_MAIN(tst_PhysicalKeys)
#include "tst_physicalkeys.moc"
