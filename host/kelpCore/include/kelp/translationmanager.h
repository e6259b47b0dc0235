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

    /// Loads one .qm file; it becomes active when it is of the host's language: one whose name ends
    /// in "_cn" for zh_CN, any other for English. False when the file cannot be loaded: its texts
    /// stay in English.
    bool installQMTranslator(const QString &path);

private:
    QString m_language;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

} // namespace kelp

/// The running host's translations; never null while a host runs.
kelp::TranslationManager *translator();
