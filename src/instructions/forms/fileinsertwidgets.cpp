#include "instructions/forms/fileinsertwidgets.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

#include "tl/lineformat.h"
#include "widgets/touchcombo.h"

namespace welmo {

FileInsertWidget::FileInsertWidget(tl::Word word, QWidget *parent)
    : InsertForm(word, parent)
{
    auto *layout = new QFormLayout(this);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

void FileInsertWidget::addFile(const QString &label, const QString &comboName)
{
    auto *combo = new QComboBox(this);
    combo->setObjectName(comboName);
    makeTouchable(combo);
    combo->addItems(tl::fileNames(word(), m_combos.size()));
    static_cast<QFormLayout *>(layout())->addRow(label, combo);
    m_combos.append(combo);
}

QString FileInsertWidget::ToString()
{
    QStringList files;
    for (const QComboBox *combo : qAsConst(m_combos))
        files.append(combo->currentText());
    return tl::formatFileLine(word(), files);
}

} // namespace welmo

using namespace welmo::tl;

ArconInsertWidget::ArconInsertWidget(QWidget *parent)
    : FileInsertWidget(Word::ArcOn, parent)
{
    addFile(tr("ArcOn Parameter File Number"), QStringLiteral("cbxArconData"));
    addFile(tr("Weld Parameter File Number"), QStringLiteral("cbxArcData"));
    connect(combo(0), qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ArconInsertWidget::onArconDataSelectChanged);
    connect(combo(1), qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ArconInsertWidget::onArcDataSelectChanged);
    m_arconData = combo(0)->currentText();
    m_arcData = combo(1)->currentText();
}

void ArconInsertWidget::onArconDataSelectChanged(int)
{
    m_arconData = combo(0)->currentText();
}

void ArconInsertWidget::onArcDataSelectChanged(int)
{
    m_arcData = combo(1)->currentText();
}

QString ArconInsertWidget::ToString()
{
    return formatFileLine(word(), {m_arconData, m_arcData});
}

ArcoffInsertWidget::ArcoffInsertWidget(QWidget *parent)
    : FileInsertWidget(Word::ArcOff, parent)
{
    addFile(tr("ArcOff Parameter File Number"), QStringLiteral("cbxArcoffData"));
}

WeaveOnInsertWidget::WeaveOnInsertWidget(QWidget *parent)
    : FileInsertWidget(Word::WeaveOn, parent)
{
    // This label is Chinese in every language, as on the pendants in the field.
    addFile(QStringLiteral("摆弧参数(weavedata)："), QStringLiteral("cbxWeaveData"));
}

SegOnInsertWidget::SegOnInsertWidget(QWidget *parent)
    : FileInsertWidget(Word::SegOn, parent)
{
    addFile(tr("SegData(segdata): "), QStringLiteral("cbxSegFileNumber"));
}
