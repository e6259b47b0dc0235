#include "settings/weavefunctionpage.h"

#include <QVBoxLayout>

#include "data/arcweldservice.h"

WeaveFunctionPage::WeaveFunctionPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("weaveFunction"), tr("Weave Function"), owner)
    , m_editor(new welmo::WeaveEditor(wgt()))
{
    setObjectName(name());
    auto *layout = new QVBoxLayout(wgt());
    layout->setContentsMargins(0, 0, 0, 0); // the editor has margins of its own
    layout->addWidget(m_editor);
    m_editor->initUI(this, welmo::WeaveEditor::Home{});
}

void WeaveFunctionPage::initPage()
{
    if (welmo::arcweld::isConnected())
        m_editor->file().select();
}
