#include "kelp/translationmanager.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTranslator>

#include "kelp/workspace.h"

namespace kelp {

TranslationManager::TranslationManager(const QString &language)
    : m_language(language)
    , m_sources([this](const char *context, const char *source, const char *disambiguation, int n) {
        return translate(context, source, disambiguation, n);
    })
{
    QCoreApplication::installTranslator(&m_sources);
}

TranslationManager::~TranslationManager()
{
    QCoreApplication::removeTranslator(&m_sources);
}

bool TranslationManager::installQMTranslator(const QString &path)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(path))
        return false;
    const bool chinese = QFileInfo(path).completeBaseName().endsWith(QLatin1String("_cn"));
    const QWriteLocker lock(&m_lock);
    if (chinese == (m_language == QLatin1String("zh_CN")))
        m_translators.push_back(std::move(translator));
    return true;
}

// As the application does it, the newest file is asked first. Other threads translate as well.
QString TranslationManager::translate(const char *context, const char *source,
                                      const char *disambiguation, int n) const
{
    const QReadLocker lock(&m_lock);
    QString text;
    for (auto each = m_translators.rbegin(); each != m_translators.rend() && text.isNull(); ++each)
        text = (*each)->translate(context, source, disambiguation, n);
    return text;
}

} // namespace kelp

kelp::TranslationManager *translator()
{
    return kelp::Workspace::current()->translations();
}
