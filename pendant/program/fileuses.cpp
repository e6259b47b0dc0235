#include "pendant/program/fileuses.h"

namespace welmo::pendant {

void FileUses::add(const tl::ParsedLine &line, int number)
{
    for (const auto &file : line.files) {
        if (file)
            add(*file, number);
    }
    if (const QString weave = line.weaveFile(); tl::weaveFileNames().contains(weave))
        add(weave, number);
    if (line.instruction || !line.hasCode())
        return;
    if (const tl::Instruction *meant = tl::meantBy(line.word.text))
        add(line.word.text, number, meant->text());
}

void FileUses::add(const QString &name, int number, const QString &meant)
{
    const auto place = m_places.constFind(name);
    if (place == m_places.constEnd()) {
        m_places.insert(name, m_uses.size());
        m_uses.append({name, {number}, meant});
    } else {
        m_uses[*place].lines.append(number);
    }
}

} // namespace welmo::pendant
