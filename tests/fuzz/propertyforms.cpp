#include <QHash>
#include <algorithm>

#include "fuzz.h"
#include "instructions/tlarcweld.h"
#include "pendant/program/hostproject.h"
#include "support/formhost.h"
#include "tessa/basecontentwidget.h"
#include "tl/checker.h"
#include "tl/normalform.h"
#include "tl/parse.h"

using namespace welmo::tl;

namespace {

/// The editor's forms, each made once, and the line that each starts from.
struct Editor
{
    struct Form
    {
        tessa::BaseContentWidget *widget;
        QString start;
    };

    Editor()
        : checker(*welmo::pendant::hostProject())
    {
        const auto creators = tessa::TlManager::getTlManager()->propertyWidgetCreators;
        for (auto creator = creators.begin(); creator != creators.end(); ++creator) {
            auto *widget = creator.value()(host.window());
            const bool moves = creator.key().startsWith("WMove");
            forms.insert(creator.key(), {widget, widget->ToString() + (moves ? ",\"NULL\"" : "")});
        }
    }

    testsupport::FormHost host;
    TlArcWeldDefine instructions{nullptr};
    welmo::tl::Checker checker;
    QHash<QString, Form> forms;
};

QStringList expected(const welmo::tl::Findings &findings)
{
    QStringList messages;
    for (const welmo::tl::Finding &finding : findings) {
        if (finding.message)
            messages.append(finding.message);
    }
    return messages;
}

} // namespace

/// The input is a line: the property form of its instruction reads it and writes it again, as in
/// the program editor.
void fuzz(const QByteArray &input)
{
    static Editor editor;
    const QString line = textOf(input).section('\n', 0, 0);
    const ParsedLine parsed = parse(line);
    const auto found = editor.forms.constFind(parsed.word.text);
    if (found == editor.forms.constEnd())
        return;
    tessa::BaseContentWidget *form = found->widget;
    form->FillWith(found->start);
    editor.host.takeMessages();
    editor.host.takeRequests();

    form->FillWith(parsed.code());
    const QStringList said = editor.host.takeErrors();
    QStringList finds = expected(editor.checker.checkLine(parsed, 0));
    std::sort(finds.begin(), finds.end());
    require(said == finds, "form and checker say the same", line + ": " + said.join(", "));

    const QString written = form->ToString();
    require(parse(written).instruction == parsed.instruction, "a form writes its instruction",
            written);
    if (!said.isEmpty())
        return;
    form->FillWith(found->start);
    form->FillWith(written);
    require(form->ToString() == written, "what a form writes it reads and writes again", written);
    // A time box has two decimals; the editor warns when it shows another time.
    if (!normalCode(parsed).isNull())
        require(keepsAll(parsed, written) || parsed.instruction->kind == Kind::Timed,
                "nothing is lost silently", line + " / " + written);
}
