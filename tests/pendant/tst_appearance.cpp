#include <QAbstractItemView>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QtTest>

#include "pando/frame.h"
#include "support/datarows.h"
#include "support/programtouch.h"
#include "support/testpendant.h"
#include "tessa/tlmanager.h"

using namespace testsupport;

namespace {

constexpr int smallestTouch = 45;

bool showsItsText(const QWidget *widget)
{
    const auto *label = qobject_cast<const QLabel *>(widget);
    if (label && label->wordWrap())
        return label->heightForWidth(label->width()) <= label->height();
    // The last message is cut with dots on purpose.
    if (label && label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
        return true;
    if (const auto *combo = qobject_cast<const QComboBox *>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        const QRect place = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, combo);
        return combo->fontMetrics().horizontalAdvance(combo->currentText()) <= place.width();
    }
    return widget->sizeHint().width() <= widget->width();
}

/// What of @p shown is cut off, too small for a finger, or has to be scrolled sideways.
QStringList misfits(const QWidget *shown)
{
    QStringList list;
    for (const auto *widget : shown->findChildren<QWidget *>()) {
        const bool isTouched = qobject_cast<const QAbstractButton *>(widget)
            || qobject_cast<const QComboBox *>(widget);
        const auto *bar = qobject_cast<const QScrollBar *>(widget);
        const bool fits = bar
            ? bar->orientation() == Qt::Vertical
            : !isTouched || (widget->height() >= smallestTouch && widget->width() >= smallestTouch);
        const bool isRead = isTouched || qobject_cast<const QLabel *>(widget);
        if (widget->isVisible() && !(fits && (!isRead || showsItsText(widget))))
            list.append(widget->metaObject()->className() + (' ' + widget->objectName()));
    }
    return list;
}

} // namespace

class TestAppearance : public QObject
{
    Q_OBJECT
private slots:
    void everythingFits_data()
    {
        addRows<QString, QString>({{"en light", "en", "light"}, {"zh_CN dark", "zh_CN", "dark"}});
    }
    void everythingFits()
    {
        const auto &[name, language, theme] = currentRow<QString, QString>();
        Setup setup;
        setup.language = language;
        setup.theme = theme;
        TestPendant pendant(setup);
        for (const auto &entry : pendant.messages())
            QVERIFY2(!entry.text.contains("theme tokens"), qPrintable(entry.text));
        for (const char *page : {"home", "messages", "controller"}) {
            pendant.open(page);
            QCOMPARE(misfits(pendant.window()).join("\n"), QString());
        }
        // First without the link, so that no welder has told its ranges yet.
        for (const bool down : {true, false}) {
            pendant.faults()->set(welmo::controller::Faults::Fault::LinkDown, down);
            QVERIFY(down ? pendant.waitDisconnected() : pendant.waitConnected());
            pendant.open("arcweldpackage");
            for (auto *subPage : pendant.find("wgtNav")->findChildren<QToolButton *>()) {
                finger::touch(subPage);
                for (int i = 0; i < 3; ++i)
                    QCoreApplication::processEvents(); // the page is laid out, then its bars
                QCOMPARE(misfits(pendant.window()).join("\n"), QString());
            }
        }
        pando::frame().rightSide->show();
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        QCOMPARE(pendant.window()->size(), QSize(1280, 800));
        QCOMPARE(misfits(pando::frame().rightSide).join("\n"), QString());
        pando::frame().rightSide->hide();
        ProgramTouch program(pendant);
        for (const QString &instruction : tessa::TlManager::getTlManager()->instructionNames) {
            program.insert(instruction);
            for (const char *next : {"btnFormAccept", "btnFormCancel"}) { // insert, then edit
                QCoreApplication::processEvents();
                QCOMPARE(misfits(pendant.window()).join("\n"), QString());
                pendant.click(next);
                if (next == QLatin1String("btnFormAccept"))
                    pendant.click("btnEditLine");
            }
        }
        QCOMPARE(pendant.window()->size(), QSize(1280, 800));
    }
};

QTEST_MAIN(TestAppearance)
#include "tst_appearance.moc"
