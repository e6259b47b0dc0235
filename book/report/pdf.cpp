#include "book/report/pdf.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFont>
#include <QPageLayout>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>

#include "book/report/coursepicture.h"
#include "book/report/tables.h"

namespace welmo::book {

namespace {

constexpr int dotsPerInch = 150;
constexpr QSize pictureSize{640, 380}; // in 1/96 inch, the unit of text documents
const QString pictureName = QStringLiteral("course");

const QString style = QStringLiteral(
    "body { color: #17212B } h1 { font-size: 14pt } td, th { padding: 1px 8px 1px 0px; "
    "white-space: nowrap }"
    "th { text-align: left }"
    "td.number, th.number { text-align: right } .red { color: #B3261E } .amber { color: #864C00 }"
    ".green { color: #1A6930 } .none { color: #4A5865 }");

// Style sheets have no say over a document's own font.
QFont pageFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("WenQuanYi Micro Hei")});
    font.setPointSizeF(8);
    return font;
}

QString cell(const QString &text, const QString &kind = {})
{
    return QStringLiteral("<td class=\"%1\">%2</td>").arg(kind, text.toHtmlEscaped());
}

QString shown(const QVariant &value)
{
    if (value.isNull())
        return QStringLiteral("–");
    return value.type() == QVariant::Double ? QString::number(value.toDouble(), 'g', 5)
                                            : value.toString();
}

bool print(QTextDocument *document, const QString &file, const QString &title, QString *problem)
{
    QPdfWriter writer(file);
    writer.setTitle(title);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins({15, 15, 15, 15}, QPageLayout::Millimeter);
    document->setDocumentMargin(0);
    document->documentLayout()->setPaintDevice(&writer);
    const QSizeF page(writer.width(), writer.height());
    document->setPageSize(page);
    // What is wider than the page, such as a table with long names, is printed smaller.
    const qreal wide = document->documentLayout()->documentSize().width() / page.width();
    if (wide > 1)
        document->setPageSize(page * wide);
    document->print(&writer);
    QFile written(file);
    if (written.open(QIODevice::ReadOnly) && written.read(4) == "%PDF")
        return true;
    *problem = QStringLiteral("%1: cannot be written").arg(file);
    return false;
}

QString seamHtml(const Seam &seam)
{
    QString html = QStringLiteral("<h1>Weld %1 <span class=\"%2\">%2</span></h1>"
                                  "<p><img src=\"%3\" width=\"%4\"></p>")
                       .arg(seam.id)
                       .arg(verdictWord(seam.verdict), pictureName)
                       .arg(pictureSize.width());
    const QString trouble = QStringList{seam.reason, alarmText(seam)}.join(QStringLiteral("  "));
    html += QStringLiteral("<p class=\"%1\">%2</p><table>")
                .arg(verdictWord(seam.verdict), trouble.toHtmlEscaped());
    QVector<ReportValue> values = reportValues(seam);
    values.erase(std::remove_if(values.begin(), values.end(),
                                [](const ReportValue &value) {
                                    return value.name == QLatin1String("alarm")
                                        || value.name == QLatin1String("reason"); // told above
                                }),
                 values.end());
    const int half = (values.size() + 1) / 2;
    for (int row = 0; row < half; ++row) {
        html += QStringLiteral("<tr>");
        for (const int i : {row, row + half}) {
            if (i < values.size())
                html += cell(values[i].name)
                    + cell(shown(values[i].value), QStringLiteral("number")) + cell(values[i].unit);
        }
        html += QStringLiteral("</tr>");
    }
    return html + QStringLiteral("</table>");
}

QString dayHtml(const QDate &day, const QVector<Seam> &seams)
{
    int counts[4] = {};
    QString rows;
    for (const Seam &seam : seams) {
        const QString verdict = verdictWord(seam.verdict);
        ++counts[static_cast<int>(seam.verdict)];
        rows += QStringLiteral("<tr>")
            + cell(seam.startedAt().time().toString(QStringLiteral("HH:mm:ss")))
            + cell(verdict, verdict)
            + cell(shown(seam.program.isEmpty() ? QVariant() : seam.program))
            + cell(QString::number(seam.line), QStringLiteral("number")) + cell(seam.weldFile)
            + cell(QString::number(seam.current.mean, 'f', 0), QStringLiteral("number"))
            + cell(QString::number(seam.voltage.mean, 'f', 1), QStringLiteral("number"))
            + cell(QString::number(seam.arcTime, 'f', 1), QStringLiteral("number"))
            + cell(QString::number(seam.length, 'f', 0), QStringLiteral("number"))
            + cell(seam.heatInput ? QString::number(*seam.heatInput, 'f', 3) : QStringLiteral("–"),
                   QStringLiteral("number"))
            + cell(seam.ended) + QStringLiteral("</tr>");
    }
    QString html = QStringLiteral("<h1>Welds of %1</h1><p>%2 welds")
                       .arg(day.toString(Qt::ISODate))
                       .arg(seams.size());
    for (const Verdict verdict : {Verdict::Green, Verdict::Amber, Verdict::Red, Verdict::None})
        html += QStringLiteral(", <span class=\"%1\">%1 %2</span>")
                    .arg(verdictWord(verdict))
                    .arg(counts[static_cast<int>(verdict)]);
    return html
        + QStringLiteral(
               "</p><table><tr><th>start</th><th>verdict</th><th>program</th>"
               "<th class=\"number\">line</th><th>file</th><th class=\"number\">A</th><th "
               "class=\"number\">V</th><th class=\"number\">arc s</th><th class=\"number\">mm</th>"
               "<th class=\"number\">kJ/mm</th><th>ended</th></tr>")
        + rows + QStringLiteral("</table>");
}

} // namespace

bool writeSeamPdf(const QString &file, const Seam &seam, const Course &course, const Limits &limits,
                  QString *problem)
{
    QTextDocument document;
    document.setDefaultFont(pageFont());
    document.setDefaultStyleSheet(style);
    document.addResource(QTextDocument::ImageResource, QUrl(pictureName),
                         coursePicture(seam, course, limits, pictureSize * 3));
    document.setHtml(seamHtml(seam));
    return print(&document, file, QStringLiteral("Weld %1").arg(seam.id), problem);
}

bool writeDayPdf(const QString &file, const QDate &day, const QVector<Seam> &seams,
                 QString *problem)
{
    QTextDocument document;
    document.setDefaultFont(pageFont());
    document.setDefaultStyleSheet(style);
    document.setHtml(dayHtml(day, seams));
    return print(&document, file, QStringLiteral("Welds of %1").arg(day.toString(Qt::ISODate)),
                 problem);
}

} // namespace welmo::book
