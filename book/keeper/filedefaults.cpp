#include "book/keeper/filedefaults.h"

namespace welmo::book {

namespace {

void insert(QVariantMap *map, const QString &key, const QVariant &value)
{
    const QString head = key.section(QLatin1Char('.'), 0, 0);
    const QString rest = key.section(QLatin1Char('.'), 1);
    if (rest.isEmpty()) {
        map->insert(head, value);
        return;
    }
    QVariantMap below = map->value(head).toMap();
    insert(&below, rest, value);
    map->insert(head, below);
}

} // namespace

QVariantMap defaultsOf(const schema::Set &set)
{
    QVariantMap content;
    for (const schema::Row *row : set.rows()) {
        insert(&content, QString::fromLatin1(row->key), row->defaultValue());
        if (row->twinKey())
            insert(&content, QString::fromLatin1(row->twinKey()), row->defaultValue());
    }
    return content;
}

QVariantMap defaultContent(const schema::FileSet &set, const QString &file)
{
    QVariantMap content = defaultsOf(set);
    content.insert(QString::fromLatin1(set.fileName.key), file);
    return content;
}

} // namespace welmo::book
