#include "data/fileform.h"

#include <QSignalBlocker>
#include <utility>

#include "data/controller.h"

namespace welmo {

FileForm::FileForm(QObject *owner, const ParameterSet &set, QComboBox *combo,
                   std::function<void()> afterShow)
    : m_owner(owner)
    , m_set(set)
    , m_combo(combo)
    , m_fields(owner)
    , m_afterShow(std::move(afterShow))
{ }

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
}

int FileForm::save()
{
    return parameterfile::handleSaveParam(m_owner, m_set, m_combo, m_data, [this] { store(); });
}

void FileForm::select()
{
    parameterfile::handleFileNumChanged(
        m_owner, m_combo, m_data, m_set, [this] { useFreshDefaults(); }, [this] { show(); });
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
