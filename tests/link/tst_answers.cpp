#include <QSignalSpy>
#include <QtTest>

#include "broker.h"
#include "link/mqttlink.h"
#include "linkwords.h"
#include "support/rows.h"

using controller::Reply;
using links::MqttLink;
using links::MqttMessage;

namespace {

/// Something in a cell's place that answers as a test wants it.
class OddCell
{
public:
    using Answer = std::function<void(OddCell &, const MqttMessage &request, MqttMessage good)>;

    OddCell(const links::BrokerAddress &address, Answer answer)
        : m_answer(std::move(answer))
        , m_client(
              {address, "cell-cell"},
              {[this] { m_client.subscribe(m_topics.request("+"), 1); }, [](const QString &) {},
               [this](const MqttMessage &message) { take(message); },
               [this] {
                   say(m_topics.alive(), links::wire::toMessage(links::wire::Alive{"boot", 1, 0}));
               }})
    {
        m_client.start();
    }
    ~OddCell() { m_client.stop(); }

    void say(const QString &topic, MqttMessage message)
    {
        message.topic = topic;
        m_client.publish(message);
    }

private:
    void take(const MqttMessage &message)
    {
        const auto request = links::wire::toRequest(message);
        const QVariantMap hello{{"session", "s"}, {"time", 1}, {"boot", "boot"}};
        MqttMessage reply = links::wire::toMessage(
            Reply::with(request->hello ? hello : QVariantMap{{"path", request->content.path}}));
        reply.correlation = message.correlation;
        if (request->hello)
            say(message.responseTopic, reply);
        else
            m_answer(*this, message, reply);
    }

    const links::wire::Topics m_topics{"cell"};
    Answer m_answer;
    links::MqttClient m_client;
};

} // namespace

/// What a pendant makes of answers that come as they should not.
class tst_Answers : public QObject
{
    Q_OBJECT
private slots:
    void everyCallGetsItsOwn();
    void whatIsNoAnswerTakesTheLinkDown();
};

void tst_Answers::everyCallGetsItsOwn()
{
    Broker broker;
    MqttMessage before;
    const testsupport::Rows<OddCell::Answer> rows{
        {"twice",
         [](OddCell &cell, const MqttMessage &request, const MqttMessage &good) {
             cell.say(request.responseTopic, good);
             cell.say(request.responseTopic, good);
         }},
        {"after that of an earlier call",
         [&before](OddCell &cell, const MqttMessage &request, const MqttMessage &good) {
             if (!before.correlation.isEmpty())
                 cell.say(request.responseTopic, before);
             before = good;
             cell.say(request.responseTopic, good);
         }},
        {"after one that nobody asked for",
         [](OddCell &cell, const MqttMessage &request, const MqttMessage &good) {
             MqttMessage stray = good;
             stray.correlation = "4711";
             cell.say(request.responseTopic, stray);
             cell.say(request.responseTopic, good);
         }},
    };
    for (const auto &[name, answer] : rows) {
        const OddCell cell(broker.as("cell"), answer);
        MqttLink link({broker.as("anna"), "cell"});
        link.open();
        QTRY_VERIFY_WITH_TIMEOUT(link.isUp(), patient);
        for (const QString path : {"a", "b", "c"}) {
            const LinkReply reply = link.call({Kind::Get, path, {}, {}}, patient);
            QCOMPARE(reply.value.toMap().value("path").toString(), path);
        }
    }
}

void tst_Answers::whatIsNoAnswerTakesTheLinkDown()
{
    Broker broker;
    const testsupport::Rows<QByteArray> rows{
        {"cut off", R"({"code":0,"value":{"pa)"}, {"empty", ""},
        {"without a code", R"({"value":1})"},     {"a text for the code", R"({"code":"0"})"},
        {"of another session", R"({"code":-3})"},
    };
    for (const auto &[name, payload] : rows) {
        const OddCell cell(
            broker.as("cell"),
            [payload = payload](OddCell &self, const MqttMessage &request, MqttMessage good) {
                good.payload = payload;
                self.say(request.responseTopic, good);
            });
        MqttLink link({broker.as("anna"), "cell"});
        QSignalSpy ups(&link, &MqttLink::upChanged);
        link.open();
        QTRY_VERIFY_WITH_TIMEOUT(link.isUp(), patient);
        QCOMPARE(link.call({Kind::Get, "a", {}, {}}, patient).code, LinkReply::Lost);
        QVERIFY(!link.isUp());
        QTRY_VERIFY_WITH_TIMEOUT(ups.count() >= 3, patient); // up, down, and up anew
    }
}

QTEST_GUILESS_MAIN(tst_Answers)
#include "tst_answers.moc"
