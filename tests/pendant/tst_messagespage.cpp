#include <QLabel>
#include <QTableView>
#include <QTest>

#include "support/rows.h"
#include "support/testpendant.h"

using testsupport::Rows;
using testsupport::TestPendant;

class TestMessagesPage : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_pendant = std::make_unique<TestPendant>();
        m_pendant->open("messages");
        m_pendant->click("btnClearMessages");
        auto *helper = m_pendant->host()->helper();
        helper->throwLog(nullptr, "info", "first");
        helper->throwLog(nullptr, "error", "second");
        helper->throwLog(this, "warning", "third");
    }
    void cleanup() { m_pendant.reset(); }
    void levels()
    {
        const Rows<QString, QStringList> rows{
            {"all", "btnLevel_", QStringList{"third", "second", "first"}},
            {"error", "btnLevel_error", QStringList{"second"}},
            {"warning", "btnLevel_warning", QStringList{"third"}},
            {"info", "btnLevel_info", QStringList{"first"}},
        };
        for (const auto &[name, button, texts] : rows) {
            m_pendant->click(button);
            QCOMPARE(shown(), texts);
        }
        m_pendant->click("btnClearMessages");
        QCOMPARE(shown(), QStringList());
    }
    void detail()
    {
        auto *table = m_pendant->find<QTableView>("tblMessages");
        const QPoint row = table->visualRect(table->model()->index(0, 1)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, row);
        const auto *detail = m_pendant->find<QLabel>("lblMessageDetail");
        QCOMPARE(detail->text(), "third\nFrom: TestMessagesPage");
        m_pendant->click("btnClearMessages");
        QVERIFY(!detail->text().contains("third"));
    }
    void chinese()
    {
        testsupport::Setup setup;
        setup.language = "zh_CN";
        m_pendant->restart(setup);
        m_pendant->host()->helper()->throwLog(nullptr, "error", "text");
        const auto *model = m_pendant->find<QTableView>("tblMessages")->model();
        QCOMPARE(model->index(0, tessa::MessageLog::Level).data().toString(),
                 QString::fromUtf8("错误"));
    }

private:
    QStringList shown()
    {
        const auto *model = m_pendant->find<QTableView>("tblMessages")->model();
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row)
            texts.append(model->index(row, tessa::MessageLog::Text).data().toString());
        return texts;
    }

    std::unique_ptr<TestPendant> m_pendant;
};

QTEST_MAIN(TestMessagesPage)
#include "tst_messagespage.moc"
