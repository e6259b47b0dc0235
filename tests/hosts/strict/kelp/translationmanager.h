#pragma once

#include <QString>

namespace kelp {

class TranslationManager
{
public:
    void installQMTranslator(const QString &path);
};

} // namespace kelp

kelp::TranslationManager *translator();
