#include "data/fileform.h"

#include <QCoreApplication>
#include <QSignalBlocker>
#include <utility>

#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo {

namespace {

const QString nameKey = QStringLiteral("name");

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(FileForm)
};

} // namespace

FileForm::FileForm(QObject *owner, const schema::FileSet &set, QComboBox *combo,
                   std::function<void()> afterShow)
    : m_owner(owner)
    , m_set(set)
    , m_combo(combo)
    , m_controls(combo)
    , m_fields(owner, set)
    , m_edits(m_fields, combo)
    , m_afterShow(std::move(afterShow))
{
    QObject::connect(xservice()->watchNode(set.node()), &kelp::ModuleObject::changed, &m_guard,
                     [this](const QVariant &files) { onFilesChanged(files); });
    QObject::connect(combo, qOverload<int>(&QComboBox::currentIndexChanged), &m_guard,
                     [this] { showWhetherHeld(); });
    arcweld::onConnected(&m_guard, [this] { onConnected(); });
    arcweld::onDisconnected(&m_guard, [this] { m_linkWasLost = true; });
}

FileForm::~FileForm()
{
    const bool isHostThere = !host::isMissing(m(QStringLiteral("welmo")));
    const QString edited = m_controls && isHostThere ? editedFile() : QString();
    if (!edited.isEmpty())
        FieldEdits::reportLoss(m_owner, edited);
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
    // Another form of the set may have written other defaults since.
    writeDefaults();
    useDefaultNode();
}

bool FileForm::holdsChosenFile() const
{
    return m_data && m_data->name() == m_combo->currentText();
}

bool FileForm::get()
{
    watchFile();
    const auto fetch = parameterfile::handleGetParam(m_owner, m_set, m_combo, m_data,
                                                     [this] { useFreshDefaults(); });
    if (fetch == parameterfile::Fetch::Failed) {
        showWhetherHeld();
        return false;
    }
    m_read = host::toVariant(m_data);
    return true;
}

void FileForm::store()
{
    m_fields.store(m_data);
}

void FileForm::show()
{
    setGrey(false);
    m_fields.show(m_data);
    m_afterShow();
    markUnedited();
    if (holdsChosenFile())
        m_fields.reportCuts(m_data);
    showWhetherHeld();
}

int FileForm::save()
{
    const int code =
        parameterfile::handleSaveParam(m_owner, m_set, m_combo, m_data, [this] { store(); });
    if (code == 0) {
        m_read = host::toVariant(m_data);
        markUnedited();
    }
    return code;
}

bool FileForm::maySave()
{
    const QString file = m_combo->currentText();
    if (!holdsChosenFile()) {
        report::error(m_owner,
                      Text::tr("%1 is not saved: it was not read, and what is shown is not "
                               "its content")
                          .arg(file));
        return false;
    }
    const auto theirs = xservice()->get(m_owner, m_set.node(), file);
    const bool isRead = !arcweld::readFailed(theirs) && theirs->hasCmobj(nameKey, false);
    if (!isRead || host::toVariant(theirs.get()) == m_read)
        return true; // the save itself reports what is wrong
    const QStringList overlap = reloadKeepingEdits(host::toVariant(theirs.get()));
    reportOverlap(overlap);
    return overlap.isEmpty();
}

void FileForm::watchFile()
{
    if (arcweld::isConnected())
        xservice()->watch(m_owner, m_set.node(), true);
}

QString FileForm::editedFile() const
{
    const bool isFile = m_data && m_data != parameterfile::defaultNode(m_set);
    return isFile && isEdited() ? m_data->name() : QString();
}

void FileForm::onFilesChanged(const QVariant &files)
{
    const QVariant theirs = files.toMap().value(m_combo->currentText());
    const bool isFile = theirs.toMap().contains(nameKey); // a removed file has no name
    if (isFile && holdsChosenFile() && theirs != m_read)
        reportOverlap(reloadKeepingEdits(theirs));
}

void FileForm::onConnected()
{
    watchFile();
    if (m_data && !holdsChosenFile())
        select();
}

QStringList FileForm::reloadKeepingEdits(const QVariant &theirs)
{
    m_read = theirs;
    setGrey(false);
    return m_edits.take(m_owner, m_data, theirs, [this](const kelp::ModuleObject *merged) {
        m_fields.showNews(merged);
        m_afterShow();
        m_fields.reportCuts(merged);
    });
}

void FileForm::reportOverlap(const QStringList &keys)
{
    m_edits.reportOverlap(m_owner, m_data->name(), keys, m_data);
}

void FileForm::showWhetherHeld()
{
    const bool held = holdsChosenFile();
    setGrey(!held);
    showWhetherRead(m_hint, held);
}

void FileForm::setGrey(bool grey)
{
    if (!grey) {
        for (auto each = m_enabled.begin(); each != m_enabled.end(); ++each)
            each.key()->setEnabled(each.value());
        m_enabled.clear();
        return;
    }
    for (const auto &field : m_fields.fields()) {
        for (QWidget *editor : field->editors()) {
            if (editor == m_combo || m_enabled.contains(editor))
                continue;
            m_enabled.insert(editor, editor->isEnabledTo(editor->parentWidget()));
            editor->setEnabled(false);
        }
    }
}

void FileForm::select()
{
    watchFile();
    if (keepEditsAfterLoss())
        return;
    const QString edited = editedFile();
    bool isRead = false;
    const auto showRead = [&] {
        isRead = true;
        m_read = host::toVariant(m_data);
        if (!edited.isEmpty())
            FieldEdits::reportLoss(m_owner, edited);
        show();
    };
    parameterfile::handleFileNumChanged(
        m_owner, m_combo, m_data, m_set, [this] { useFreshDefaults(); }, showRead);
    if (!isRead)
        showWhetherHeld();
}

// The host's pages read their files anew with every connection; that must not cost an edit.
bool FileForm::keepEditsAfterLoss()
{
    if (!std::exchange(m_linkWasLost, false) || !holdsChosenFile() || editedFile().isEmpty())
        return false;
    const auto theirs = xservice()->get(m_owner, m_set.node(), m_combo->currentText());
    if (arcweld::readFailed(theirs) || !theirs->hasCmobj(nameKey, false))
        return false; // select() tells
    reportOverlap(reloadKeepingEdits(host::toVariant(theirs.get())));
    return true;
}

void FileForm::refresh()
{
    if (m_read.isValid() && holdsChosenFile())
        reloadKeepingEdits(m_read);
}

bool FileForm::choose(const QString &name)
{
    const int index = m_combo->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        return false;
    const QSignalBlocker blocker(m_combo);
    m_combo->setCurrentIndex(index);
    showWhetherHeld();
    return true;
}

void FileForm::start()
{
    if (keepEditsAfterLoss())
        return;
    const QString edited = editedFile();
    writeDefaults();
    useDefaultNode();
    if (arcweld::isConnected())
        get();
    if (!edited.isEmpty())
        FieldEdits::reportLoss(m_owner, edited);
    show();
}

} // namespace welmo
