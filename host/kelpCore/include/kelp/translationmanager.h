#pragma once

#include <QString>
#include <memory>
#include <vector>

class QTranslator;

namespace kelp {

/// The application's translations. Modules hand in their files; the host's language decides which
/// of them is active, so a module never asks what language it runs in.
class TranslationManager
{
public:
    /// @p language "en" (the source texts) or "zh_CN".
    explicit TranslationManager(const QString &language);
    ~TranslationManager();

    QString language() const { return m_language; }

    /// Loads one .qm file; it becomes active when its name ends in the suffix of the host's
    /// language ("_cn" for zh_CN). False when the file cannot be loaded: texts stay in English.
    bool installQMTranslator(const QString &path);

private:
    QString m_language;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

} // namespace kelp

/// The running host's translations; never null while a host runs.
kelp::TranslationManager *translator();
