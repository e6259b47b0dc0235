#include <QRegularExpression>
#include <QScrollBar>
#include <QStyleOptionComboBox>

#include "pando/frame.h"
#include "support/datarows.h"
#include "support/programtouch.h"
#include "support/testpendant.h"
#include "tessa/tlmanager.h"

using namespace testsupport;

namespace {

// Texts of the weave forms that are never translated, and names of languages.
const QStringList inEveryLanguage{"摆弧参数(weavedata)：", "摆弧参数(weavedata)", "中文",
                                  "English"};

QStringList textsOf(const QWidget *widget)
{
    QStringList texts;
    for (const char *name : {"text", "title", "toolTip", "placeholderText", "suffix"})
        texts.append(widget->property(name).toString());
    if (const auto *combo = qobject_cast<const QComboBox *>(widget))
        texts += itemsOf(combo).split('|');
    if (const auto *tabs = qobject_cast<const QTabWidget *>(widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts.append(tabs->tabText(i));
    }
    return texts;
}

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

/// Its text is not cut off, and it is large enough for a finger.
bool fits(const QWidget *widget)
{
    const bool isTouched =
        qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QComboBox *>(widget);
    if (isTouched && qMin(widget->height(), widget->width()) < finger::smallestTouch)
        return false;
    return (!isTouched && !qobject_cast<const QLabel *>(widget)) || showsItsText(widget);
}

/// What is wrong with the widgets that are visible.
QStringList complaints(QWidget *window, const QRegularExpression &foreign)
{
    QStringList wrong;
    if (window->size() != QSize(1280, 800))
        wrong.append(QString("%1 x %2").arg(window->width()).arg(window->height()));
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (!widget->isVisible())
            continue;
        const QString name = widget->metaObject()->className() + (' ' + widget->objectName());
        const auto *area = qobject_cast<QAbstractScrollArea *>(widget);
        const bool mayHide = widget->objectName() == "sideArea"; // only its border
        if (area && !mayHide && area->horizontalScrollBar()->maximum() > 0)
            wrong.append("sideways: " + name);
        const QWidget *monitor = pando::frame().rightSide; // an open monitor narrows the page
        if ((monitor->isHidden() || monitor->isAncestorOf(widget)) && !fits(widget))
            wrong.append("cut off or small: " + name);
        for (const QString &text : textsOf(widget)) {
            if (foreign.match(text).hasMatch() && !inEveryLanguage.contains(text))
                wrong.append(text);
        }
    }
    return wrong;
}

} // namespace

/// Every page and form is in one language, fits beside the monitor, and has nothing that is cut off
/// or too small for a finger.
class TestPages : public QObject
{
    Q_OBJECT
private slots:
    void wholeAndInOneLanguage_data()
    {
        const QString chinese = "[\\x{4e00}-\\x{9fff}]";
        const QString sentence = "\\b[A-Za-z][a-z]+ [a-z]{2,}\\b";
        addRows<QString, QString, QString, bool>(
            {{"English", "en", "light", chinese, false},
             {"English, monitor open", "en", "light", chinese, true},
             {"Chinese", "zh_CN", "dark", sentence, false},
             {"Chinese, monitor open", "zh_CN", "dark", sentence, true}});
    }
    void wholeAndInOneLanguage()
    {
        const auto &[name, language, theme, foreign, monitor] =
            currentRow<QString, QString, QString, bool>();
        Setup setup;
        setup.language = language;
        setup.theme = theme;
        setup.example = setup.withBook = true;
        TestPendant pendant(setup);
        if (monitor) {
            pando::frame().rightSide->switchTo("welmo.page");
            pando::frame().rightSide->show();
        }
        const QRegularExpression wrongText(foreign);
        QStringList wrong;
        const auto look = [&](const QString &place) {
            for (int i = 0; i < 3; ++i)
                QCoreApplication::processEvents(); // the page is laid out first, then its scroll
                                                   // bars
            for (const QString &complaint : complaints(pendant.window(), wrongText))
                wrong.append(place + ": " + complaint);
        };
        const auto lookAtEach = [&](const char *navigation) {
            for (QToolButton *entry : pendant.find(navigation)->findChildren<QToolButton *>()) {
                finger::touch(entry);
                look(entry->objectName() + entry->text());
            }
        };
        for (const auto &entry : pendant.messages())
            QVERIFY2(!entry.text.contains("theme tokens"), qPrintable(entry.text));
        lookAtEach("pndNav");
        pendant.open("home");
        pendant.click("btnWhyNoArc");
        look("checks");
        // Without the link first: then no welder has told its ranges.
        for (const bool down : {true, false}) {
            pendant.faults()->set(welmo::controller::Faults::Fault::LinkDown, down);
            QVERIFY(down ? pendant.waitDisconnected() : pendant.waitConnected());
            pendant.open("arcweldpackage");
            lookAtEach("wgtNav");
        }
        ProgramTouch program(pendant);
        program.open("fillet.tl");
        pendant.click("btnProgramLook");
        look("files");
        pendant.click("btnRunCheckBack");
        for (const QString &word : tessa::TlManager::getTlManager()->instructionNames) {
            program.insert(word);
            look("insert " + word);
            pendant.click("btnFormAccept");
            pendant.click("btnEditLine");
            look("edit " + word);
            pendant.click("btnFormCancel");
        }
        QVERIFY2(wrong.isEmpty(), qPrintable('\n' + wrong.join('\n')));
    }
};

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
