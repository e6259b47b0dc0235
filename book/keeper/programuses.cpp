#include "book/keeper/programuses.h"

#include <QDir>

#include "tl/parse.h"
#include "tl/programfile.h"
#include "tl/programtext.h"

namespace welmo::book {

namespace {

QStringList filesOf(const tl::ParsedLine &line)
{
    QStringList files;
    for (const std::optional<QString> &file : line.files)
        files.append(file.value_or(QString()));
    files.append(line.weaveFile());
    files.removeAll(QString());
    files.removeDuplicates();
    return files;
}

void add(ProgramUses *uses, const QString &file, const QString &program, int line)
{
    QVector<ProgramUse> &of = (*uses)[file];
    if (of.isEmpty() || of.last().program != program)
        of.append({program, {}});
    of.last().lines.append(line);
}

} // namespace

ProgramUses readProgramUses(const QString &folder)
{
    ProgramUses uses;
    const QStringList programs =
        QDir(folder).entryList({QStringLiteral("*.tl")}, QDir::Files, QDir::Name);
    for (const QString &program : programs) {
        QString problem;
        const auto bytes = tl::readProgram(QDir(folder).filePath(program), &problem);
        const QStringList lines = tl::ProgramText(bytes.value_or(QByteArray())).lines();
        for (int i = 0; i < lines.size(); ++i) {
            for (const QString &file : filesOf(tl::parse(lines[i])))
                add(&uses, file, program, i + 1);
        }
    }
    return uses;
}

QString usesText(const QVector<ProgramUse> &uses)
{
    QStringList all;
    for (const ProgramUse &use : uses) {
        QStringList lines;
        for (const int line : use.lines)
            lines.append(QString::number(line));
        all.append(use.program + QLatin1Char(' ') + lines.join(QStringLiteral(", ")));
    }
    return all.join(QStringLiteral("; "));
}

} // namespace welmo::book
