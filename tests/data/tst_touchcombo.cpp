#include <QAbstractItemView>
#include <QtTest>

#include "support/formhost.h"
#include "widgets/stylerules.h"
#include "widgets/touchcombo.h"

/// The rows of a list are as high as a finger, however the list is opened for the first time.
class tst_TouchCombo : public QObject
{
    Q_OBJECT

private slots:
    void rowsFitAFinger()
    {
        testsupport::FormHost host;
        welmo::applyStyleRules(host.window());
        for (const bool byKey : {false, true}) {
            QComboBox combo(host.window());
            combo.addItems({"one", "two", "three"});
            welmo::makeTouchable(&combo);
            welmo::makeTouchable(&combo);
            host.window()->show();
            combo.show();
            if (byKey)
                QTest::keyClick(&combo, Qt::Key_F4);
            else
                QTest::mouseClick(&combo, Qt::LeftButton);
            QTRY_VERIFY(combo.view()->isVisible());
            QVERIFY(combo.view()->visualRect(combo.model()->index(1, 0)).height() >= 45);
            combo.hidePopup();
        }
    }
};

QTEST_MAIN(tst_TouchCombo)
#include "tst_touchcombo.moc"
