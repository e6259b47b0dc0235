#pragma once

#include <QReadWriteLock>
#include <QString>
#include <memory>
#include <vector>

#include "kelp/textsources.h"

namespace kelp {

/// The application's translations. Modules install their files, and the host's language decides
/// which of them are active, so that a module need not know the language.
class TranslationManager
{
public:
    /// @p language is "en" (the source texts) or "zh_CN".
    explicit TranslationManager(const QString &language);
    ~TranslationManager();

    QString language() const { return m_language; }

    /// Loads one .qm file. It is active if it is of the host's language: a name ending in "_cn" for
    /// zh_CN, any other for English. False if the file cannot be loaded; its texts stay in English.
    bool installQMTranslator(const QString &path);

    /// What the application translated last.
    const TextSources &sources() const { return m_sources; }

private:
    QString translate(const char *context, const char *source, const char *disambiguation,
                      int n) const;

    QString m_language;
    mutable QReadWriteLock m_lock;
    TextSources m_sources; // asks the others
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

} // namespace kelp

/// The running host's translations; never null while a host runs.
kelp::TranslationManager *translator();
