#pragma once

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <memory>

#include "instructions/movepropertypointwidget.h"
#include "instructions/wmovecpropertywidget.h"
#include "support/formhost.h"

using testsupport::child;
using testsupport::FormHost;

using Values = QVector<double>;

inline const QString getPosition = QStringLiteral("tl_program.get_rob_pos");
inline const QString moveCommand = QStringLiteral("motion.move.to_point");
inline const QString stopCommand = QStringLiteral("motion.move.stop");
inline const QStringList axes{"sbxX", "sbxY", "sbxZ", "sbxA", "sbxB", "sbxC"};

inline QVariant at(const QVariant &map, const QString &path)
{
    QVariant value = map;
    for (const QString &part : path.split('.'))
        value = value.toMap().value(part);
    return value;
}

inline Values valuesAt(const QVariant &frame)
{
    Values values;
    for (const char *path :
         {"pos.x", "pos.y", "pos.z", "ori.euler.a", "ori.euler.b", "ori.euler.c"})
        values.append(at(frame, path).toDouble());
    return values;
}

inline QVariantMap poseAnswer(const Values &v)
{
    const QVariantMap euler{{"a", v[3]}, {"b", v[4]}, {"c", v[5]}};
    const QVariantMap frame{{"pos", QVariantMap{{"x", v[0]}, {"y", v[1]}, {"z", v[2]}}},
                            {"ori", QVariantMap{{"euler", euler}}}};
    return {{"pose", QVariantMap{{"frame", frame}}}, {"q", QVariantList{1, 2, 3, 4, 5, 6}}};
}

/// Touches the host's question as soon as it is there.
inline void answerQuestion(bool agree, QString *asked = nullptr)
{
    QTimer::singleShot(0, qApp, [agree, asked] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            qFatal("there is no question");
        if (asked)
            *asked = box->text();
        if (agree)
            box->buttons().first()->click();
        else
            box->reject();
    });
}

/// The property form of a circular move; half of the tests look at one point, half at the other.
struct Desk
{
    FormHost host;
    std::unique_ptr<WMoveCPropertyWidget> form;
    QWidget *group;

    explicit Desk(const QString &which = "wgtTarget",
                  const QString &line = "WMoveC p6,p7,v20,z5,torch1,fixture1")
        : form(std::make_unique<WMoveCPropertyWidget>(host.window()))
        , group(child(form.get(), which))
    {
        form->FillWith(line);
        host.takeRequests();
    }

    MovePropertyPointWidget *panel() const
    {
        return child<MovePropertyPointWidget>(form.get(), "MovePropertyPointWidget");
    }
    QPushButton *button(const QString &name) const { return child<QPushButton>(group, name); }
    Values position() const
    {
        Values values;
        for (const QString &axis : axes)
            values.append(child<QDoubleSpinBox>(child(group, "wgtPosition"), axis)->value());
        return values;
    }
    QStringList computed() const
    {
        QStringList texts;
        for (const QString &axis : axes)
            texts.append(child<QLineEdit>(child(group, "wgtComplex"), axis)->text());
        texts.removeAll(QString());
        return texts;
    }
    QStringList said() { return host.takeMessages(); }
    QVariant sent() { return host.link()->lastPayload; }
};

inline const Values poseOfP7{800, 0, 200, 180, 0, 180};
inline const Values somewhere{12.5, -3, 450.125, 1, 2, 3};
