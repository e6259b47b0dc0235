#include <QJsonDocument>
#include <QtTest>

#include "allsets.h"
#include "data/inputs.h"
#include "support/formhost.h"

using namespace welmo;
using testsupport::FormHost;

namespace {

/// What every set stores, and what its choices are called on the way.
struct Record
{
    QMap<QString, QByteArray> stored; ///< by set and choice
    QMap<QString, QString> shown;
};

QByteArray bytesOf(const kelp::ModuleObject &file)
{
    return QJsonDocument::fromVariant(file.toVariant()).toJson();
}

// Every combo goes through all of its choices; a set has as many records as its longest list.
Record record(const QString &language)
{
    FormHost host(FormHost::Connected, language);
    Record result;
    for (const SetUnderTest &set : allSets(host.window())) {
        for (int round = 0; round < 12; ++round) {
            const QString where = QString("%1 %2").arg(set.name).arg(round);
            kelp::ModuleObject file("file");
            for (const auto &field : set.fields->rows()) {
                auto *combo = qobject_cast<QComboBox *>(field->editor());
                if (!combo)
                    continue;
                // The first input is "No signal", the one text that is stored as it is shown.
                const int skip = combo->itemText(0) == inputs::noSignal();
                const QSignalBlocker blocker(combo);
                combo->setCurrentIndex(skip + round % (combo->count() - skip));
                result.shown[where + ' ' + field->key()] = combo->currentText();
            }
            set.fields->store(&file);
            result.stored[where] = bytesOf(file);
            set.fields->show(&file);
            kelp::ModuleObject again("file");
            set.fields->store(&again);
            result.stored[where + " again"] = bytesOf(again);
        }
        if (!set.defaults->hasCmobj("signal"))
            result.stored[set.name + " defaults"] = bytesOf(*set.defaults);
    }
    if (!host.takeMessages().isEmpty())
        qFatal("a set was not shown as it was stored");
    return result;
}

} // namespace

/// The language of the pendant changes what is shown, and not one byte of what is stored.
class tst_Language : public QObject
{
    Q_OBJECT

private slots:
    void storedBytesAreTheSame()
    {
        const Record english = record("en");
        const Record chinese = record("zh_CN");
        QVERIFY(english.stored.size() > 100);
        QCOMPARE(chinese.stored, english.stored);
        // The other language was on: nearly every choice is called something else.
        int translated = 0;
        int same = 0;
        for (auto it = english.shown.begin(); it != english.shown.end(); ++it) {
            const bool name = it.value().contains(QRegularExpression("data\\d|^DI\\d|^v(\\d|max)"));
            if (!name)
                ++(chinese.shown.value(it.key()) == it.value() ? same : translated);
        }
        QVERIFY2(translated > 10 * same, qPrintable(QString("%1 of %2").arg(same).arg(translated)));
    }

    void noSignalIsStoredAsItIsShown()
    {
        FormHost host(FormHost::Connected, "zh_CN");
        const QString text = inputs::noSignal();
        QVERIFY(text != "No signal");
        for (const SetUnderTest &set : allSets(host.window())) {
            if (set.name == "anticollision")
                QCOMPARE(set.defaults->r("signal")->getString(), text);
        }
    }
};

QTEST_MAIN(tst_Language)
#include "tst_language.moc"
