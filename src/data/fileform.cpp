#include "data/fileform.h"

#include <QCoreApplication>
#include <QSignalBlocker>
#include <utility>

#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo {

FileForm::FileForm(QObject *owner, const schema::FileSet &set, QComboBox *combo,
                   std::function<void()> afterShow)
    : m_owner(owner)
    , m_set(set)
    , m_combo(combo)
    , m_controls(combo)
    , m_fields(owner, set)
    , m_afterShow(std::move(afterShow))
    , m_shown(set.prefix, nullptr)
{
    m_overtaken.setSingleShot(true);
    QObject::connect(&m_overtaken, &QTimer::timeout, &m_overtaken,
                     [this] { reloadKeepingEdits(); });
}

FileForm::~FileForm()
{
    const bool isHostThere = !host::isMissing(m(QStringLiteral("welmo")));
    if (m_controls && isHostThere && isEdited() && holdsChosenFile())
        reportLoss(nullptr, m_data->name()); // the owner is going as well
}

void FileForm::prepare()
{
    const QSignalBlocker blocker(m_combo);
    m_combo->clear();
    m_combo->addItems(m_set.fileNames());
    m_fields.prepare();
}

void FileForm::useDefaultNode()
{
    m_data = parameterfile::defaultNode(m_set);
}

void FileForm::writeDefaults()
{
    m_fields.writeDefaults(parameterfile::defaultNode(m_set));
}

void FileForm::useFreshDefaults()
{
    // Another form of the set may have written defaults of its own since.
    writeDefaults();
    useDefaultNode();
}

bool FileForm::holdsChosenFile() const
{
    return m_data->name() == m_combo->currentText();
}

bool FileForm::get()
{
    return parameterfile::handleGetParam(m_owner, m_set, m_combo, m_data,
                                         [this] { useFreshDefaults(); })
        != parameterfile::Fetch::Failed;
}

void FileForm::store()
{
    m_fields.store(m_data);
}

void FileForm::show()
{
    m_fields.show(m_data);
    m_afterShow();
    markUnedited();
}

int FileForm::save()
{
    const int code =
        parameterfile::handleSaveParam(m_owner, m_set, m_combo, m_data, [this] { store(); });
    if (code == 0)
        markUnedited();
    return code;
}

void FileForm::collect(kelp::ModuleObject *values) const
{
    for (const auto &field : m_fields.fields()) {
        if (field->editor() != m_combo)
            field->store(nullptr, values);
    }
}

QMap<QString, QVariant> FileForm::edits() const
{
    if (!m_isKnown)
        return {};
    QMap<QString, QVariant> edits;
    kelp::ModuleObject now(m_set.prefix, nullptr);
    collect(&now);
    for (const auto &field : m_fields.fields()) {
        const kelp::ModuleObject *node = now.r(field->key()); // missing: nothing is chosen
        if (!host::isMissing(node)
            && host::toVariant(node) != host::toVariant(m_shown.r(field->key())))
            edits.insert(field->key(), host::toVariant(node));
    }
    return edits;
}

void FileForm::markUnedited()
{
    collect(&m_shown);
    m_isKnown = true;
    watchFile();
}

void FileForm::watchFile()
{
    if (!m_data || (m_data == m_watched && m_watching))
        return;
    QObject::disconnect(m_watching);
    m_watched = m_data;
    m_data->watch(true, true);
    m_watching =
        QObject::connect(m_data, &kelp::ModuleObject::changed, &m_overtaken,
                         [this](const QVariant &, const QVariant &, const QObject *sender) {
                             if (sender != m_owner)
                                 m_overtaken.start(0);
                         });
}

void FileForm::reportLoss(const QObject *sender, const QString &file)
{
    report::warning(
        sender, QCoreApplication::translate("FileForm", "%1: changes were not saved").arg(file));
}

void FileForm::reloadKeepingEdits()
{
    // Of the controller: a save that was refused leaves its values in the local copy.
    if (m_data != m_watched || !holdsChosenFile() || !arcweld::isConnected() || !get())
        return;
    const QMap<QString, QVariant> edited = edits();
    kelp::ModuleObject merged(m_data->name(), nullptr);
    merged.copyFrom(nullptr, m_data, true, true);
    QMap<QString, QVariant> shown;
    for (auto edit = edited.begin(); edit != edited.end(); ++edit) {
        shown.insert(edit.key(), host::toVariant(m_shown.r(edit.key())));
        merged.set(nullptr, edit.key(), edit.value(), true);
    }
    m_fields.show(&merged);
    m_afterShow();
    markUnedited();
    for (auto value = shown.begin(); value != shown.end(); ++value)
        m_shown.set(nullptr, value.key(), value.value(), true); // still edited
}

void FileForm::select()
{
    const bool isFile = m_data && m_data != parameterfile::defaultNode(m_set);
    const QString edited = isFile && isEdited() ? m_data->name() : QString();
    const auto showOther = [&] {
        if (!edited.isEmpty() && edited != m_data->name())
            reportLoss(m_owner, edited);
        show();
    };
    parameterfile::handleFileNumChanged(
        m_owner, m_combo, m_data, m_set, [this] { useFreshDefaults(); }, showOther);
}

bool FileForm::choose(const QString &name)
{
    const int index = m_combo->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        return false;
    const QSignalBlocker blocker(m_combo);
    m_combo->setCurrentIndex(index);
    return true;
}

void FileForm::start()
{
    writeDefaults();
    useDefaultNode();
    if (arcweld::isConnected())
        get();
    show();
}

} // namespace welmo
