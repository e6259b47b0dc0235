#include "instructions/forms/weavewidget.h"

#include "data/report.h"

namespace {

// Programs in the field rely on what a file created from an instruction starts with.
constexpr double instructionFrequency = 0.01;

} // namespace

WeaveWidget::WeaveWidget(QWidget *parent)
    : WeaveEditor(parent)
{
    initUI(this, Home{instructionFrequency, false});
    connect(this, &WeaveEditor::saved, this, [this] {
        setSaveClicked(true);
        emit closeDialog();
    });
    connect(this, &WeaveEditor::cancelled, this, &WeaveWidget::closeDialog);
}

QString WeaveWidget::getCurrentFileNum()
{
    return file().combo()->currentText();
}

void WeaveWidget::setCurrentFileNum(const QString &name)
{
    if (!file().choose(name)) {
        welmo::report::error(this, tr("weavedata format error"));
        return;
    }
    onFileNumberChanged(file().combo()->currentIndex());
}

void WeaveWidget::unableCbxFileNum()
{
    file().combo()->setEnabled(false);
}
