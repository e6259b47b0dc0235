#include <QAbstractButton>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "support/rows.h"
#include "tessa/basecontentwidget.h"
#include "tessa/basepage.h"
#include "tessa/host.h"
#include "tessa/tlmanager.h"

using tessa::ControllerStatus;
using tessa::MessageLog;
using testsupport::Rows;

namespace {

class Page : public tessa::BasePage
{
public:
    Page()
        : BasePage("page", "Title", nullptr)
    { }
    void updateAvailability() override { ++updates; }
    using BasePage::autoUpdate;

    int updates = 0;
};

/// A form that overrides only what it must.
class Form : public tessa::BaseContentWidget
{
public:
    using BaseContentWidget::BaseContentWidget;
    void FillWith(const QString &) override { }
    QString ToString() override { return {}; }
};

using Change = void (*)(ControllerStatus *);
const Rows<Change, int> changes{
    // how often a page hears of it that follows all but the level
    {"state", [](ControllerStatus *s) { s->setState(ControllerStatus::State::Fault); }, 1},
    {"mode", [](ControllerStatus *s) { s->setMode(ControllerStatus::Mode::Automatic); }, 1},
    {"power", [](ControllerStatus *s) { s->setPower(ControllerStatus::Power::Off); }, 1},
    {"level", [](ControllerStatus *s) { s->setLevel(ControllerStatus::Level::Viewer); }, 0},
};

} // namespace

/// tessa: the host as a whole: availability, messages, the message box, the program editor's door.
class tst_Host : public QObject
{
    Q_OBJECT

private slots:
    void init() { start(m_folder.filePath("data")); }
    void cleanup() { m_host.reset(); }
    void aPageIsAvailableByStateModePowerAndLevel()
    {
        for (const auto &[name, change, updates] : changes) {
            init();
            ControllerStatus *status = m_host->helper()->status();
            Page page;
            QVERIFY(page.isAvailable());
            status->setState(ControllerStatus::State::Running);
            status->setLevel(ControllerStatus::Level::Operator);
            QVERIFY(page.isAvailable());
            page.autoUpdate(false, false, false, true);
            page.autoUpdate(true, true, true, false);
            for (int i = 0; i < 2; ++i)
                change(status);
            QVERIFY(!page.isAvailable());
            QCOMPARE(page.updates, updates);
        }
    }
    void messagesStandNewestFirstAndOldOnesGo()
    {
        auto *helper = tessa::ManagerHelper::instance();
        MessageLog *log = helper->log();
        QSignalSpy appended(log, &MessageLog::appended);
        const QTimer unnamed;
        Page named;
        named.setObjectName("somebody");
        helper->throwLog(nullptr, "info", "first");
        helper->throwLog(&named, "error", "second");
        helper->throwLog(&unnamed, "warning", "third");
        QStringList lines;
        for (const MessageLog::Entry &entry : log->entries())
            lines.append(QStringList{entry.level, entry.text, entry.sender}.join('|'));
        QCOMPARE(lines,
                 QStringList({"warning|third|QTimer", "error|second|somebody", "info|first|"}));
        QCOMPARE(log->index(1, MessageLog::Text).data().toString(), QString("second"));
        QCOMPARE(log->index(1, 0).data(MessageLog::LevelRole).toString(), QString("error"));
        QCOMPARE(appended.size(), 3);
        for (int i = 3; i <= MessageLog::capacity; ++i)
            helper->throwLog(nullptr, "info", {});
        QCOMPARE(log->rowCount(), int(MessageLog::capacity));
        QCOMPARE(log->entries().last().text, QString("second"));
    }
    void troubleAtTheStartIsInTheLog()
    {
        QFile file(m_folder.filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const Rows<QString, QString> rows{
            {"theme", m_folder.filePath("data"), "no/such/theme.json"},
            {"data folder", file.fileName() + "/below", ":/tessa/theme/dark.json"},
        };
        for (const auto &[name, folder, theme] : rows) {
            start(folder, theme);
            const auto &entries = m_host->helper()->log()->entries();
            QCOMPARE(entries.size(), 1);
            QCOMPARE(entries.first().level, QString("error"));
            QVERIFY(entries.first().text.startsWith(name == "theme" ? theme : folder));
        }
    }
    void aLastSaveThatFailsEndsTheHostAllTheSame()
    {
        m_host->workspace()->bindTree("tree", ":/no/template", true)->set(nullptr, "a", 1);
        QSignalSpy appended(m_host->helper()->log(), &MessageLog::appended);
        QVERIFY(QDir(m_folder.filePath("data")).removeRecursively());
        m_host.reset();
        QCOMPARE(appended.size(), 1);
    }
    void theMessageBoxTellsWhetherTheButtonWasPressed()
    {
        for (const QByteArray how : {"press", "escape", "close"}) {
            QString seen;
            QTimer::singleShot(0, this, [&] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                QAbstractButton *button = box->buttons().first();
                seen = box->text() + '|' + button->text();
                if (how == "press")
                    button->click();
                else if (how == "escape")
                    QTest::keyClick(box, Qt::Key_Escape);
                else
                    box->close();
            });
            QCOMPARE(m_host->helper()->execMsgOk("title", "question", "OK"), how == "press");
            QCOMPARE(seen, QString("question|OK"));
        }
    }
    void thereIsNobodyBetweenHosts()
    {
        QCOMPARE(m("orbo.handle.max_jog_speed")->getInt(), 100);
        const double override = m("orbo.handle.jog.override")->getDouble();
        QVERIFY(override > 0 && override <= 1);
        m_host.reset();
        QCOMPARE(tessa::ManagerHelper::instance(), nullptr);
        QCOMPARE(xservice(), nullptr);
        QVERIFY(m("orbo.handle")->isMissing());
    }
    void instructionsGoWithTheHost()
    {
        auto *manager = tessa::TlManager::getTlManager();
        manager->insertWidgetCreators["Sample"] = [](QWidget *parent) { return new Form(parent); };
        QWidget parent;
        tessa::BaseContentWidget *form = manager->insertWidgetCreators["Sample"](&parent);
        QCOMPARE(form->parent(), &parent);
        QVERIFY(form->CheckInsert() && form->CheckReplace()); // the base answers
        QVERIFY(form->ToJsonValue().isNull() && form->GetLabel().isEmpty());
        m_host.reset();
        QCOMPARE(tessa::TlManager::getTlManager(), manager);
        QVERIFY(manager->insertWidgetCreators.isEmpty()); // their code goes with the package
    }

private:
    void start(const QString &folder, const QString &theme = tessa::HostOptions().themeFile)
    {
        m_host.reset();
        m_host = std::make_unique<tessa::Host>(tessa::HostOptions{folder, "en", theme});
    }

    QTemporaryDir m_folder;
    std::unique_ptr<tessa::Host> m_host;
};

QTEST_MAIN(tst_Host)
#include "tst_host.moc"
