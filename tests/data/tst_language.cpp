#include <QJsonDocument>
#include <QtTest>

#include "allsets.h"
#include "data/inputs.h"
#include "support/formhost.h"

using namespace welmo;
using testsupport::FormHost;

/// The language of the pendant changes what is shown, and not one byte of what is stored.
class tst_Language : public QObject
{
    Q_OBJECT

    QMap<QString, QByteArray> m_stored; // by set and choice
    QMap<QString, QString> m_shown;
    QString m_noSignal;

    static QByteArray store(const SetUnderTest &set)
    {
        kelp::ModuleObject file("file");
        set.fields->store(&file);
        set.fields->show(&file);
        set.fields->store(&file);
        return QJsonDocument::fromVariant(file.toVariant()).toJson();
    }
    // Every combo goes through all of its choices, as many rounds as the longest list has.
    void record(const QString &language)
    {
        FormHost host(FormHost::Connected, language);
        m_stored.clear();
        m_shown.clear();
        m_noSignal = inputs::noSignal();
        for (const SetUnderTest &set : allSets(host.window())) {
            for (int round = 0; round < 12; ++round) {
                const QString where = QString("%1 %2 ").arg(set.name).arg(round);
                for (const auto &field : set.fields->rows()) {
                    auto *combo = qobject_cast<QComboBox *>(field->editor());
                    if (!combo)
                        continue;
                    // The first input is "No signal", the one text that is stored as it is shown.
                    const int first = combo->itemText(0) == m_noSignal;
                    const QSignalBlocker blocker(combo);
                    combo->setCurrentIndex(first + round % (combo->count() - first));
                    m_shown[where + field->key()] = combo->currentText();
                }
                m_stored[where] = store(set);
            }
            kelp::ModuleObject defaults("default");
            set.fields->writeDefaults(&defaults);
            QCOMPARE(defaults.r("signal")->getString(m_noSignal), m_noSignal);
            defaults.removeChild("signal");
            m_stored[set.name] = QJsonDocument::fromVariant(defaults.toVariant()).toJson();
        }
        QCOMPARE(host.takeMessages(), QStringList());
    }

private slots:
    void storedBytesAreTheSame()
    {
        record("en");
        const auto stored = m_stored;
        const auto shown = m_shown;
        QCOMPARE(m_noSignal, QString("No signal"));
        record("zh_CN");
        QVERIFY(m_noSignal != "No signal");
        QVERIFY(stored.size() > 100);
        QCOMPARE(m_stored, stored);
        // The other language was on: but for names, every choice is called something else.
        for (auto it = shown.begin(); it != shown.end(); ++it) {
            const bool name = it.value().contains(QRegularExpression("data\\d|^DI\\d|^v(\\d|max)"));
            QCOMPARE(m_shown.value(it.key()) == it.value(), name || it.value() == "ASMT");
        }
    }
};

QTEST_MAIN(tst_Language)
#include "tst_language.moc"
