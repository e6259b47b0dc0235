#include <QMetaProperty>

#include "controller/core/json.h"
#include "fuzz.h"
#include "pando/moduleframework.h"
#include "support/formhost.h"

namespace {

/// The module as a host starts it, with all of its pages.
struct Module
{
    Module()
    {
        auto *framework = host.host().helper()->framework();
        require(framework->create("welmo"), "there is the module");
        framework->start();
        require(host.connect(), "it watches what it shows");
        for (auto *button : host.window()->findChildren<QToolButton *>()) {
            if (button->isCheckable() && button->parent()->objectName() == "wgtNav")
                buttons.append(button);
        }
        require(buttons.size() == 4, "there are its pages");
        settle();
        settle();
        texts = shown();
    }
    // Every page reads what it shows when it is opened.
    void open()
    {
        for (QToolButton *button : qAsConst(buttons))
            button->click();
    }
    // Shows the controller's own values again.
    void settle()
    {
        host.link()->answerToReads.reset();
        for (const QString &path : watched) {
            host.notify(path, QVariant());
            host.notify(path, host.stored(path));
        }
        open();
    }
    QStringList shown()
    {
        QStringList all;
        for (const auto *widget : host.window()->findChildren<QWidget *>()) {
            if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_"))
                continue;
            const auto *label = qobject_cast<const QLabel *>(widget);
            all.append(widget->objectName() + ": "
                       + (label ? label->text()
                                : widget->metaObject()->userProperty().read(widget).toString()));
        }
        return all;
    }

    const QStringList watched{"arc_weld.weld_mode", "arc_weld.welder_state",
                              "arc_weld.device_param", "arc_weld.anticollision_state"};
    testsupport::FormHost host{testsupport::FormHost::Down};
    QList<QToolButton *> buttons;
    QStringList texts;
};

} // namespace

/// The input is a value: the controller tells it of every node and answers every question with it.
void fuzz(const QByteArray &input)
{
    static Module module;
    if (welmo::controller::repeatsKey(input))
        return; // no controller hands that in
    const std::optional<QVariant> value = welmo::controller::fromJson('[' + input + ']');
    if (!value)
        return;
    for (const QString &path : module.watched)
        module.host.notify(path, *value);
    module.host.link()->answerToReads = value;
    module.open();
    module.settle();
    module.settle(); // again, since the first voltage was clamped for the mode before
    module.host.takeMessages();
    module.host.takeRequests();
    const QStringList texts = module.shown();
    require(texts.size() == module.texts.size(), "pages keep their controls");
    for (int i = 0; i < texts.size(); ++i)
        require(texts.at(i) == module.texts.at(i), "nothing is left behind",
                module.texts.at(i) + " / " + texts.at(i));
}
