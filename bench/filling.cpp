#include "bench/filling.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSignalBlocker>

#include "bench/bench.h"
#include "bench/rawforms.h"
#include "bench/rawwidgets.h"
#include "data/fileform.h"
#include "settings/arcongroup.h"
#include "settings/weaveeditor.h"
#include "support/formhost.h"

namespace bench {

namespace {

/// The floor: the same values written to widgets without connections, and read from them into a
/// map.
class RawFields
{
public:
    /// Finds the widgets in @p form by the names of the rows' editors, and gives them the same
    /// items.
    RawFields(const welmo::FieldTable &fields, const QWidget *form)
    {
        for (const auto &row : fields.fields()) {
            const QString name = row->editor()->objectName();
            auto *widget = testsupport::child<QWidget>(form, name);
            add(row->key(), row->editor(), widget);
        }
    }

    void set(const QVariantMap &values) const
    {
        setAll(values, m_integers, [](auto *box, const QVariant &v) { box->setValue(v.toInt()); });
        setAll(values, m_reals, [](auto *box, const QVariant &v) { box->setValue(v.toDouble()); });
        setAll(values, m_texts, [](auto *edit, const QVariant &v) { edit->setText(v.toString()); });
        setAll(values, m_choices,
               [](auto *combo, const QVariant &v) { combo->setCurrentIndex(combo->findData(v)); });
    }

    QVariantMap read() const
    {
        QVariantMap values;
        for (const auto &[key, box] : m_integers)
            values.insert(key, box->value());
        for (const auto &[key, box] : m_reals)
            values.insert(key, box->value());
        for (const auto &[key, edit] : m_texts)
            values.insert(key, edit->text());
        for (const auto &[key, combo] : m_choices)
            values.insert(key, combo->currentData());
        return values;
    }

private:
    template<typename Widget>
    using Fields = std::vector<std::pair<QString, Widget *>>;

    void add(const QString &key, const QWidget *editor, QWidget *widget)
    {
        if (auto *integer = qobject_cast<QSpinBox *>(widget)) {
            const auto *box = qobject_cast<const QSpinBox *>(editor);
            integer->setRange(box->minimum(), box->maximum());
            m_integers.emplace_back(key, integer);
        } else if (auto *real = qobject_cast<QDoubleSpinBox *>(widget)) {
            const auto *box = qobject_cast<const QDoubleSpinBox *>(editor);
            real->setRange(box->minimum(), box->maximum());
            m_reals.emplace_back(key, real);
        } else if (auto *text = qobject_cast<QLineEdit *>(widget)) {
            m_texts.emplace_back(key, text);
        } else if (auto *choice = qobject_cast<QComboBox *>(widget)) {
            const auto *combo = qobject_cast<const QComboBox *>(editor);
            for (int i = 0; i < combo->count(); ++i)
                choice->addItem(combo->itemText(i), combo->itemData(i));
            m_choices.emplace_back(key, choice);
        }
    }

    template<typename Widget, typename Set>
    static void setAll(const QVariantMap &values, const Fields<Widget> &fields, const Set &set)
    {
        for (const auto &[key, widget] : fields) {
            const QSignalBlocker blocker(widget);
            set(widget, values.value(key));
        }
    }

    Fields<QSpinBox> m_integers;
    Fields<QDoubleSpinBox> m_reals;
    Fields<QLineEdit> m_texts;
    Fields<QComboBox> m_choices;
};

// The value changed, for a second file in which every number and switch differs.
QVariant changed(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::Int:
        return value.toInt() + 1;
    case QMetaType::Double:
        return value.toDouble() + 1;
    case QMetaType::QVariantList: {
        QVariantList list = value.toList();
        std::transform(list.begin(), list.end(), list.begin(), changed);
        return list;
    }
    case QMetaType::QVariantMap: {
        QVariantMap map = value.toMap();
        std::transform(map.begin(), map.end(), map.begin(), changed);
        return map;
    }
    default:
        return value;
    }
}

QVariant at(const QVariant &file, const QString &key)
{
    QVariant value = file;
    for (const QString &part : key.split('.'))
        value = value.toMap().value(part);
    return value;
}

QVariantMap flat(const welmo::FieldTable &fields, const QVariant &file)
{
    QVariantMap values;
    for (const auto &row : fields.fields())
        values.insert(row->key(), at(file, row->key()));
    return values;
}

void compareFilling(Bench &bench, testsupport::FormHost &host, const QString &name,
                    welmo::FileForm &form, const QWidget *rawForm)
{
    const QString node = form.set().node();
    const QStringList files = form.set().fileNames().mid(0, 2);
    const QString angles = QStringLiteral("elevation_angle");
    form.start(); // creates the first file
    QVariantMap second = changed(host.stored(node, files[0])).toMap();
    second.insert(QStringLiteral("name"), files[1]);
    if (second.contains(angles)) // a V pattern has no angles
        second.insert(angles, at(host.stored(node, files[0]), angles));
    if (host.store(node, files[1], second) != 0)
        qFatal("the second file was refused");
    const RawFields raw(form.fields(), rawForm);
    const QVariantMap values[] = {flat(form.fields(), host.stored(node, files[0])),
                                  flat(form.fields(), second)};
    int ourTurn = 0;
    int floorTurn = 0;
    QVariantMap readBack;
    const auto ours = [&] {
        form.choose(files[++ourTurn % 2]);
        form.get();
        host.takeRequests();
        return cost([&form] {
            form.show();
            form.store();
        });
    };
    const auto floor = [&] {
        const QVariantMap &next = values[++floorTurn % 2];
        return cost([&] {
            raw.set(next);
            readBack = raw.read();
        });
    };
    bench.row(QStringLiteral("fill and store %1").arg(name),
              QStringLiteral("set and read the widgets, signals blocked"), ours, floor);
}

} // namespace

void fillAndStore(Bench &bench)
{
    testsupport::FormHost host;
    QObject owner;
    auto *arcon = new welmo::ArconGroup(host.window());
    arcon->initUI(&owner);
    compareFilling(bench, host, QStringLiteral("an arc-start file"), arcon->file(),
                   new RawArconGroup(host.window()));
    auto *weave = new welmo::WeaveEditor(host.window());
    weave->initUI(&owner, welmo::WeaveEditor::Home{});
    compareFilling(bench, host, QStringLiteral("a weave file"), weave->file(),
                   raw::weave(host.window()));
}

} // namespace bench
