#include "settings/weavefunctionpage.h"

#include <QVBoxLayout>

#include "data/arcweldservice.h"
#include "settings/weaveeditor.h"

WeaveFunctionPage::WeaveFunctionPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("weaveFunction"), tr("Weave Function"), owner)
    , m_editor(new WeaveEditor(wgt()))
{
    setObjectName(name());
    auto *layout = new QVBoxLayout(wgt());
    layout->setContentsMargins(0, 0, 0, 0); // the editor brings its own
    layout->addWidget(m_editor);
    m_editor->initUI(this, WeaveEditor::Home{});
}

void WeaveFunctionPage::initPage()
{
    if (welmo::arcweld::isConnected())
        m_editor->file().select();
}

void WeaveFunctionPage::initParamDefault()
{
    m_editor->file().writeDefaults();
}

void WeaveFunctionPage::useWeaveDefaultNode()
{
    m_editor->file().useDefaultNode();
}

void WeaveFunctionPage::getWeaveParam()
{
    m_editor->file().get();
}

void WeaveFunctionPage::setWeaveParam()
{
    m_editor->file().show();
}

void WeaveFunctionPage::storeWeaveParam()
{
    m_editor->file().store();
}

int WeaveFunctionPage::saveWeaveParam()
{
    return m_editor->file().save();
}

bool WeaveFunctionPage::validateParam()
{
    return m_editor->validateParam();
}
