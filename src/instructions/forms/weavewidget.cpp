#include "instructions/forms/weavewidget.h"

#include "data/report.h"
#include "schema/filesets.h"

WeaveWidget::WeaveWidget(QWidget *parent)
    : WeaveEditor(parent)
{
    initUI(this, Home{welmo::schema::weaveOfInstruction(), false});
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
