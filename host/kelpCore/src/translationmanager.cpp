#include "kelp/translationmanager.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTranslator>

#include "kelp/workspace.h"

namespace kelp {

TranslationManager::TranslationManager(const QString &language)
    : m_language(language)
{ }

TranslationManager::~TranslationManager()
{
    for (const auto &translator : m_translators)
        QCoreApplication::removeTranslator(translator.get());
}

bool TranslationManager::installQMTranslator(const QString &path)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(path))
        return false;
    const bool chinese = QFileInfo(path).completeBaseName().endsWith(QLatin1String("_cn"));
    if (chinese == (m_language == QLatin1String("zh_CN")))
        QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
    return true;
}

} // namespace kelp

kelp::TranslationManager *translator()
{
    return kelp::Workspace::current()->translations();
}
