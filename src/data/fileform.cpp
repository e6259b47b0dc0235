#include "data/fileform.h"

#include <QCoreApplication>
#include <QSignalBlocker>
#include <utility>

#include "data/controller.h"
#include "data/report.h"

namespace welmo {

FileForm::FileForm(QObject *owner, const ParameterSet &set, QComboBox *combo,
                   std::function<void()> afterShow)
    : m_owner(owner)
    , m_set(set)
    , m_combo(combo)
    , m_fields(owner)
    , m_afterShow(std::move(afterShow))
{
    kelp::ModuleObject *section = m(QStringLiteral("welmo"))->c(m_set.section, true);
    section->watch(true, true);
    m_overtaken.setSingleShot(true);
    QObject::connect(&m_overtaken, &QTimer::timeout, &m_overtaken, [this] { takeOver(); });
    QObject::connect(section, &kelp::ModuleObject::changed, &m_overtaken,
                     [this](const QVariant &, const QVariant &, const QObject *sender) {
                         if (sender != m_owner)
                             m_overtaken.start(0);
                     });
}

FileForm::~FileForm()
{
    const bool isHostThere = !m(QStringLiteral("welmo"))->isMissing();
    if (isHostThere && isEdited() && holdsChosenFile())
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
    settle();
}

int FileForm::save()
{
    const int code =
        parameterfile::handleSaveParam(m_owner, m_set, m_combo, m_data, [this] { store(); });
    if (code == 0)
        settle();
    return code;
}

FileForm::Values FileForm::values() const
{
    Values values;
    for (const auto &row : m_fields.rows()) {
        kelp::ModuleObject file(m_set.prefix);
        if (row->editor() != m_combo)
            row->store(nullptr, &file);
        values.push_back(file.toVariant());
    }
    return values;
}

void FileForm::settle()
{
    m_shown = values();
    m_seen = m_data ? m_data->toVariant() : QVariant();
}

void FileForm::reportLoss(const QObject *sender, const QString &file)
{
    report::warning(
        sender, QCoreApplication::translate("FileForm", "%1: changes were not saved").arg(file));
}

void FileForm::takeOver()
{
    if (!m_data || !holdsChosenFile() || m_seen == m_data->toVariant())
        return;
    const Values before = values();
    kelp::ModuleObject merged(m_data->name());
    merged.copyFrom(nullptr, m_data);
    for (size_t i = 0; i < before.size(); ++i) {
        if (before[i] != m_shown[i])
            merged.importFromVariant(nullptr, before[i]);
    }
    m_fields.show(&merged);
    m_afterShow();
    const Values shown = std::exchange(m_shown, values());
    for (size_t i = 0; i < before.size(); ++i) {
        if (before[i] != shown[i])
            m_shown[i] = shown[i]; // still edited
    }
    m_seen = m_data->toVariant();
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
    if (controller::isConnected())
        get();
    show();
}

} // namespace welmo
