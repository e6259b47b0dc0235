#include "book/plant/seamcontent.h"

#include "book/records/columns.h"

namespace welmo::book {

namespace {

const QString courseKey = QStringLiteral("course");
const QString rateKey = QStringLiteral("course_rate");

constexpr int mostSamples = 36000; // one hour as recorded, ten hours thinned
constexpr int partSamples = 3000; // a text of a message has at most 64 K characters
constexpr int mostParts = mostSamples / partSamples;

} // namespace

QVariantMap toContent(const Seam &seam, const Samples &samples)
{
    QVariantMap content;
    for (const Column &column : seamColumns()) {
        const QVariant value = column.get(seam);
        if (!value.isNull())
            content.insert(column.name, value);
    }
    const bool isLong = samples.size() > mostSamples;
    const Samples fewer = isLong
        ? thinned(samples, Course::fullRate / Course::thinRate).mid(0, mostSamples)
        : samples;
    QVariantList parts;
    for (int first = 0; first < fewer.size(); first += partSamples)
        parts.append(QString::fromLatin1(packed(fewer.mid(first, partSamples)).toBase64()));
    content.insert(courseKey, parts);
    content.insert(rateKey, isLong ? Course::thinRate : Course::fullRate);
    return content;
}

bool SeamContent::read(const QVariantMap &content)
{
    for (const Column &column : seamColumns())
        column.set(seam, content.value(column.name));
    const QVariantList parts = content.value(courseKey).toList();
    for (const QVariant &part : parts)
        course.append(QByteArray::fromBase64(part.toString().toLatin1()));
    rate = content.value(rateKey).toInt();
    return seam.started > 0 && !seam.isOpen() && parts.size() <= mostParts && rate > 0
        && rate <= Course::fullRate;
}

} // namespace welmo::book
