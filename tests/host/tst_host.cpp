#include <QAbstractButton>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "tessa/basecontentwidget.h"
#include "tessa/basepage.h"
#include "tessa/host.h"
#include "tessa/tlmanager.h"

using tessa::ControllerStatus;
using tessa::MessageLog;

namespace {

class Page : public tessa::BasePage
{
public:
    explicit Page(QObject *owner = nullptr)
        : BasePage("page", "Title", owner)
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

class RefusingForm : public Form
{
public:
    using Form::Form;
    bool CheckInsert() override { return false; }
};

void change(ControllerStatus *status, const QString &condition)
{
    if (condition == "state")
        status->setState(ControllerStatus::State::Fault);
    else if (condition == "mode")
        status->setMode(ControllerStatus::Mode::Automatic);
    else if (condition == "power")
        status->setPower(ControllerStatus::Power::Off);
    else
        status->setLevel(ControllerStatus::Level::Viewer);
}

} // namespace

/// tessa: the host as a whole: availability, messages, the message box, the program editor's door.
class tst_Host : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<tessa::Host>(tessa::HostOptions{m_folder.filePath("data")});
        QVERIFY(m_host->helper()->log()->entries().isEmpty());
    }
    void cleanup() { m_host.reset(); }
    void aPageIsAvailableByStateModePowerAndLevel_data()
    {
        QTest::addColumn<QString>("condition");
        for (const char *condition : {"state", "mode", "power", "level"})
            QTest::newRow(condition) << QString(condition);
    }
    void aPageIsAvailableByStateModePowerAndLevel()
    {
        QFETCH(QString, condition);
        Page page;
        QVERIFY(page.isAvailable());
        status()->setState(ControllerStatus::State::Running);
        status()->setLevel(ControllerStatus::Level::Operator);
        QVERIFY(page.isAvailable());
        change(status(), condition);
        QVERIFY(!page.isAvailable());
    }
    void aPageHearsOfTheConditionsItFollows_data()
    {
        QTest::addColumn<QString>("condition");
        QTest::addColumn<int>("updates");
        QTest::newRow("state") << "state" << 1;
        QTest::newRow("mode") << "mode" << 1;
        QTest::newRow("power") << "power" << 1;
        QTest::newRow("level, not followed") << "level" << 0;
    }
    void aPageHearsOfTheConditionsItFollows()
    {
        QFETCH(QString, condition);
        Page page;
        page.autoUpdate(false, false, false, true);
        page.autoUpdate(true, true, true, false);
        for (int i = 0; i < 2; ++i)
            change(status(), condition);
        QTEST(page.updates, "updates");
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
    void troubleAtTheStartIsInTheLog_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("theme");
        QTest::newRow("theme") << m_folder.filePath("data") << "no/such/theme.json";
        QTest::newRow("data folder")
            << m_folder.filePath("file/below") << ":/tessa/theme/dark.json";
    }
    void troubleAtTheStartIsInTheLog()
    {
        QFETCH(QString, folder);
        QFETCH(QString, theme);
        QFile file(m_folder.filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        m_host.reset();
        m_host = std::make_unique<tessa::Host>(tessa::HostOptions{folder, "en", theme});
        const auto &entries = m_host->helper()->log()->entries();
        QCOMPARE(entries.size(), 1);
        QCOMPARE(entries.first().level, QString("error"));
        QVERIFY(entries.first().text.startsWith(folder) || entries.first().text.startsWith(theme));
    }
    void aLastSaveThatFailsEndsTheHostAllTheSame()
    {
        m_host->workspace()->bindTree("tree", ":/no/template", true)->set(nullptr, "a", 1);
        QSignalSpy appended(m_host->helper()->log(), &MessageLog::appended);
        QVERIFY(QDir(m_folder.filePath("data")).removeRecursively());
        m_host.reset();
        QCOMPARE(appended.size(), 1);
    }
    void theMessageBoxTellsWhetherTheButtonWasPressed_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("pressed");
        QTest::newRow("pressed") << "press" << true;
        QTest::newRow("Escape") << "escape" << false;
        QTest::newRow("closed") << "close" << false;
    }
    void theMessageBoxTellsWhetherTheButtonWasPressed()
    {
        QFETCH(QString, how);
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
        QTEST(m_host->helper()->execMsgOk("title", "question", "OK"), "pressed");
        QCOMPARE(seen, QString("question|OK"));
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
        QCOMPARE(manager->insertWidgetCreators["Sample"](&parent)->parent(), &parent);
        m_host.reset();
        QCOMPARE(tessa::TlManager::getTlManager(), manager);
        QVERIFY(manager->insertWidgetCreators.isEmpty()); // their code goes with the package
    }
    void aFormAnswersForItself()
    {
        Form form(nullptr);
        QVERIFY(form.CheckInsert() && form.CheckReplace());
        QVERIFY(form.ToJsonValue().isNull());
        QCOMPARE(form.GetLabel(), QString());
        QVERIFY(!RefusingForm(nullptr).CheckReplace());
    }

private:
    ControllerStatus *status() { return m_host->helper()->status(); }

    QTemporaryDir m_folder;
    std::unique_ptr<tessa::Host> m_host;
};

QTEST_MAIN(tst_Host)
#include "tst_host.moc"
