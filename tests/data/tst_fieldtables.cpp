#include "data/inputs.h"
#include "instructions/forms/weavewidget.h"
#include "settings/arcoffgroup.h"
#include "settings/arcongroup.h"
#include "settings/segparameterwidget.h"
#include "settings/weldgroup.h"
#include "settings/weldingoptionspage.h"
#include "support/datarows.h"
#include "support/files.h"
#include "support/formhost.h"

using namespace welmo;
using namespace testsupport;

namespace {

/// The lines of contracts.txt below each heading of this kind, by the name in the heading.
QMap<QString, QStringList> readContracts(const QString &kind)
{
    QMap<QString, QStringList> contracts;
    QString heading;
    for (const QString &line : QString::fromUtf8(contentOf(CONTRACTS)).split('\n')) {
        if (line.startsWith("  ") && heading.section(' ', 0, 0) == kind)
            contracts[heading.section(' ', 1)].append(line.trimmed());
        else if (!line.startsWith(' ') && !line.isEmpty())
            heading = line;
    }
    return contracts;
}

const QMap<QString, QStringList> contracts = readContracts("set");
const QMap<QString, QStringList> choiceContracts = readContracts("choice");

/// One line of a contract.
struct Expected
{
    QString key, type;
    QVariant value; ///< the default
    QVariantList range; ///< both ends of a number's range

    explicit Expected(const QString &line)
    {
        const QStringList words = line.split(' ', Qt::SkipEmptyParts);
        key = words.at(0);
        type = words.at(1);
        value = words.at(2) == "-" ? QString() : words.at(2);
        for (const QString &end : words.value(3).split("..", Qt::SkipEmptyParts))
            range.append(type == "int" ? QVariant(end.toInt()) : end.toDouble());
        if (value == "No_signal")
            value = inputs::noSignal(); // the only text that is stored in the language shown
        else if (type == "ints")
            value = QVariantList{0, 0, 0};
        else if (!range.isEmpty() || type == "twin")
            value.convert(words.at(2).contains('.') ? QMetaType::Double : QMetaType::Int);
        else if (value == "true" || value == "false")
            value = value.toBool();
    }
    /// Values to try: both ends of a range, every choice, on and off.
    QVariantList offeredBy(const QWidget *editor) const
    {
        if (!range.isEmpty())
            return range;
        if (type == "ints")
            return {QVariantList{1, 2, 3}, QVariantList{0, 10000, 0}};
        if (type == "bool")
            return {true, false};
        QVariantList items;
        if (const auto *combo = qobject_cast<const QComboBox *>(editor)) {
            for (int i = 0; i < combo->count(); ++i)
                items.append(combo->itemData(i).isValid() ? combo->itemData(i)
                                                          : combo->itemText(i));
            return items;
        }
        return {QStringLiteral("seam 1"), QStringLiteral("\u6469 \"'.,{}")};
    }
};

/// A parameter set, and the form that edits it.
struct SetUnderTest
{
    FieldTable *fields = nullptr;
    std::shared_ptr<QObject> form;
};

/// By their names in the contracts. "weave instruction" is "weave" with another default.
std::map<QString, SetUnderTest> allSets(QWidget *window)
{
    std::map<QString, SetUnderTest> sets;
    const auto add = [&sets](const char *name, auto form, FieldTable &fields) {
        sets[name] = {&fields, form};
    };
    const auto group = [&add](const char *name, const std::shared_ptr<ProcessGroup> &form) {
        form->initUI(form.get());
        form->file().start();
        add(name, form, form->file().fields());
    };
    group("arcon", std::make_shared<ArconGroup>(window));
    group("weld", std::make_shared<WeldGroup>(window));
    group("arcoff", std::make_shared<ArcoffGroup>(window));
    const auto page = std::make_shared<WeaveEditor>(window);
    page->initUI(page.get(), {});
    add("weave", page, page->file().fields());
    const auto instruction = std::make_shared<WeaveWidget>(window);
    add("weave instruction", instruction, instruction->file().fields());
    const auto seg = std::make_shared<SegParameterWidget>(window);
    seg->init();
    add("seg", seg, seg->file().fields());
    const auto options = std::make_shared<WeldingOptionsPage>(window, window);
    add("running", options, options->running().fields());
    add("anticollision", options, options->anticollision().fields());
    add("clamping", options, options->clamping().fields());
    return sets;
}

QStringList setNames()
{
    QStringList names = contracts.keys();
    names.removeOne("process"); // its keys are part of other sets
    return names << "weave instruction";
}

QStringList contractOf(const QString &set)
{
    QStringList lines = contracts.value(set.section(' ', 0, 0));
    if (lines.removeOne("process"))
        lines += contracts.value("process");
    if (set == "weave instruction")
        lines.replaceInStrings("frequency real 0.1", "frequency real 0.01");
    return lines;
}

/// The value in the control, as it would be stored.
QVariant shownBy(const Field &field)
{
    kelp::ModuleObject file("file");
    field.store(nullptr, &file);
    return file.r(field.key())->value();
}

void edit(const Field &field, const QVariant &value)
{
    const QSignalBlocker blocker(field.editor()); // keeps the rules of the form out
    if (const auto *list = dynamic_cast<const IntegersField *>(&field)) {
        for (size_t i = 0; i < list->boxes().size(); ++i)
            list->boxes()[i]->setValue(value.toList().value(int(i)).toInt());
    } else if (auto *combo = qobject_cast<QComboBox *>(field.editor())) {
        const int index = combo->findData(value);
        combo->setCurrentIndex(index >= 0 ? index : combo->findText(value.toString()));
    } else {
        field.editor()->metaObject()->userProperty().write(field.editor(), value);
    }
}

QStringList leaves(const kelp::ModuleObject *node, const QString &path = {})
{
    QStringList keys;
    for (const kelp::ModuleObject *each : node->cmobjs()) {
        const QString key = path + each->name();
        keys += each->cmobjCount() == 0 ? QStringList(key) : leaves(each, key + '.');
    }
    keys.sort();
    return keys;
}

QString onlyInOne(const QStringList &a, const QStringList &b)
{
    QStringList keys;
    for (const QString &key : a + b) {
        if (!a.contains(key) || !b.contains(key))
            keys.append(key);
    }
    return keys.join(' ');
}

} // namespace

/// Every key of every set: default, range, choices and storing, the same in both languages.
class tst_FieldTables : public QObject
{
    Q_OBJECT

    std::unique_ptr<FormHost> m_host;
    QString m_language;
    std::map<QString, SetUnderTest> m_sets;
    FieldTable *m_fields = nullptr;

    /// Makes the forms anew only for another language.
    void use(const QString &language, const QString &set)
    {
        if (language != m_language) {
            m_sets.clear();
            m_host.reset();
            m_host = std::make_unique<FormHost>(FormHost::Connected, language);
            m_sets = allSets(m_host->window());
            m_language = language;
        }
        m_fields = m_sets.at(set).fields;
    }
    /// Shows a file of defaults, with @p value at @p key.
    void show(kelp::ModuleObject &file, const QString &key = {}, const QVariant &value = {})
    {
        m_fields->writeDefaults(&file);
        if (!key.isEmpty())
            file.set(this, key, value);
        m_host->takeMessages();
        m_fields->show(&file);
    }
    void checkChoices(const QComboBox *combo, const QStringList &choices)
    {
        QCOMPARE(combo->count(), choices.size());
        for (int i = 0; i < combo->count(); ++i) {
            const QString text = choices.at(i).section('=', 0, 0);
            QCOMPARE(combo->itemData(i).toString(), choices.at(i).section('=', 1));
            QCOMPARE(combo->itemText(i) == text, m_language == "en" || text == "ASMT");
        }
    }
    void checkStoring(const Field &field, const QVariantList &offered)
    {
        for (int i = 0; i < offered.size(); ++i) {
            kelp::ModuleObject file("file");
            show(file);
            edit(field, offered[i]);
            m_fields->store(&file);
            const QVariant stored = file.r(field.key())->value();
            QCOMPARE(stored, offered[i]);
            QCOMPARE(stored.userType(), offered[i].userType());
            if (field.row().twinKey())
                QCOMPARE(file.r(field.row().twinKey())->value(), offered[i]);
            // Showing the file again drops an edit.
            edit(field, offered[(i + 1) % offered.size()]);
            m_fields->show(&file);
            if (field.key() != "name") // the combo decides it, not the file
                QCOMPARE(shownBy(field), offered[i]);
        }
    }
    void checkClamping(const Field &field, const Expected &expected)
    {
        const double step = expected.type == "int" ? 1 : 0.01;
        for (const int end : {0, 1}) {
            kelp::ModuleObject file("file");
            show(file, field.key(), expected.range[end].toDouble() + (end == 0 ? -step : step));
            QCOMPARE(shownBy(field), expected.range[end]);
        }
        const double fraction = expected.range[0].toDouble() + 1.5;
        kelp::ModuleObject file("file");
        show(file, field.key(), fraction);
        QCOMPARE(shownBy(field).toDouble() == int(fraction), expected.type != "real");
    }
    void checkUnknownCode(const Field &field)
    {
        auto *combo = qobject_cast<QComboBox *>(field.editor());
        const bool isSpeed = field.key() == "non_welded_speed"; // which stores what it shows
        kelp::ModuleObject file("file7");
        show(file);
        const int before = combo->currentIndex();
        show(file, field.key(), "out_of_the_blue");
        QCOMPARE(combo->currentIndex(), isSpeed ? before : -1);
        const QString message = m_host->takeMessages().join('|');
        static const QRegularExpression start("^warning: (file7|\\w+_param)\\b");
        QVERIFY2(message.contains(start) && message.contains("out_of_the_blue")
                     && message.contains(field.label()),
                 qPrintable(message));
        m_fields->store(&file);
        QCOMPARE(file.r(field.key())->getString(),
                 isSpeed ? combo->currentText() : QString("out_of_the_blue"));
        QSet<QString> chosen;
        for (const int index : {combo->count() - 1, 0}) {
            combo->setCurrentIndex(index);
            m_fields->store(&file);
            chosen.insert(file.r(field.key())->getString());
        }
        QCOMPARE(chosen.size(), qMin(2, combo->count()));
        QVERIFY(!chosen.contains("out_of_the_blue"));
    }
    /// A key that an older file lacks is no mistake, and the next save stores its default.
    void checkMissing(const Field &field, const QVariant &byDefault)
    {
        kelp::ModuleObject old("file7");
        m_host->takeMessages();
        m_fields->show(&old);
        QCOMPARE(m_host->takeMessages(), QStringList());
        QCOMPARE(shownBy(field), byDefault);
        m_fields->store(&old);
        QCOMPARE(old.r(field.key())->value(), byDefault);
    }

private slots:
    void everyKey_data()
    {
        std::vector<Row<QString, QString, QString>> rows;
        for (const char *language : {"en", "zh_CN"}) {
            for (const QString &set : setNames()) {
                for (const QString &line : contractOf(set)) {
                    const QString row = set + ' ' + line.section(' ', 0, 0) + ' ' + language;
                    rows.push_back({row.toUtf8(), language, set, line});
                }
            }
        }
        addRows(rows);
    }
    void everyKey()
    {
        const auto &[name, language, set, line] = currentRow<QString, QString, QString>();
        use(language, set);
        const Expected expected(line);
        kelp::ModuleObject file("default");
        show(file);
        const QVariant fresh = file.r(expected.key)->value();
        QCOMPARE(fresh, expected.value);
        QCOMPARE(fresh.userType(), expected.value.userType());
        if (expected.type == "twin" || expected.type == "hidden")
            return; // it has no control of its own
        const auto row = std::find_if(m_fields->fields().begin(), m_fields->fields().end(),
                                      [&](auto &each) { return each->key() == expected.key; });
        QVERIFY2(row != m_fields->fields().end(), "no control is bound to it");
        const Field &field = **row;
        const auto *combo = qobject_cast<const QComboBox *>(field.editor());
        if (choiceContracts.contains(expected.type))
            checkChoices(combo, choiceContracts.value(expected.type));
        const bool isName = expected.key == "name"; // the combo decides it, not the file
        const bool tooLow = fresh == 0.01; // the box cannot show this default
        if (!isName)
            checkMissing(field, tooLow ? QVariant(0.1) : fresh);
        QVERIFY(isName || tooLow || shownBy(field) == fresh);
        checkStoring(field, expected.offeredBy(field.editor()));
        if (!expected.range.isEmpty())
            checkClamping(field, expected);
        if (combo && !isName && fresh.type() != QVariant::Bool)
            checkUnknownCode(field);
    }
    void noKeyBesides_data()
    {
        std::vector<Row<>> sets;
        for (const QString &set : setNames())
            sets.push_back({set.toUtf8()});
        addRows(sets);
    }
    // No form writes a key that the contract lacks.
    void noKeyBesides()
    {
        const QString set = std::get<0>(currentRow<>());
        use("en", set);
        QStringList keys;
        for (const QString &line : contractOf(set))
            keys.append(Expected(line).key);
        keys.sort();
        kelp::ModuleObject fresh("default");
        show(fresh);
        QCOMPARE(onlyInOne(leaves(&fresh), keys), QString());
        kelp::ModuleObject stored("file");
        m_fields->store(&stored);
        keys.removeOne("re_arcon.scratch_on_failure"); // has no control, so no save writes it
        QCOMPARE(onlyInOne(leaves(&stored), keys), QString());
    }
};

QTEST_MAIN(tst_FieldTables)
#include "tst_fieldtables.moc"
