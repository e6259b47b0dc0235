#include "controller/core/fields.h"
#include "controller/core/json.h"
#include "data/fileform.h"
#include "fuzz.h"
#include "settings/arcoffgroup.h"
#include "settings/arcongroup.h"
#include "settings/segparameterwidget.h"
#include "settings/weaveeditor.h"
#include "settings/weldgroup.h"
#include "support/formhost.h"

namespace {

/// The forms of the five sets, each on its first file.
struct Forms
{
    Forms()
    {
        arcon.initUI(&arcon);
        weld.initUI(&weld);
        arcoff.initUI(&arcoff);
        weave.initUI(&weave, {});
        seg.init();
        for (auto *group : std::initializer_list<welmo::ProcessGroup *>{&arcon, &weld, &arcoff})
            add(group->file());
        add(weave.file());
        add(seg.file());
    }
    void add(welmo::FileForm &form)
    {
        form.start();
        forms.insert(form.set().name, {&form, read(form)});
    }
    QVariant read(const welmo::FileForm &form)
    {
        return host.stored(form.set().node(), form.combo()->currentText());
    }
    int write(const welmo::FileForm &form, const QVariant &file)
    {
        return host.store(form.set().node(), form.combo()->currentText(), file);
    }

    testsupport::FormHost host;
    welmo::ArconGroup arcon{host.window()};
    welmo::WeldGroup weld{host.window()};
    welmo::ArcoffGroup arcoff{host.window()};
    welmo::WeaveEditor weave{host.window()};
    SegParameterWidget seg{host.window()};
    QMap<QString, std::pair<welmo::FileForm *, QVariant>>
        forms; // with the file that they start from
};

// As the host's tree has it: there a list of maps is a map.
QVariantMap inTree(const QVariant &value)
{
    kelp::ModuleObject tree("tree");
    tree.importFromVariant(nullptr, value, false);
    return tree.toVariant().toMap();
}

} // namespace

/// A parameter file: the set's name on a line of its own, then what is written to the controller,
/// or, if that refuses it, what another controller might answer; shown, saved, and shown and saved
/// again.
void fuzz(const QByteArray &input)
{
    static Forms all;
    if (welmo::controller::repeatsKey(input))
        return; // does not come in
    const int end = input.indexOf('\n');
    const auto found = all.forms.constFind(input.left(qMax(0, end)));
    const std::optional<QVariant> value =
        welmo::controller::fromJson('[' + input.mid(end + 1) + ']');
    if (found == all.forms.constEnd() || !value)
        return;
    auto &[form, start] = *found;
    require(all.write(*form, start) == 0, "every input has the same start", start.toString());
    form->select();

    const bool accepted = all.write(*form, *value) == 0;
    require(accepted || kelp::sameValue(all.read(*form), start), "what is refused changes nothing");
    require(!accepted || kelp::sameValue(all.read(*form), *value), "what is accepted is kept");
    if (!accepted)
        all.host.link()->answerToReads = value;
    form->select();
    all.host.link()->answerToReads.reset();
    all.host.takeMessages();
    all.host.takeRequests();
    if (!form->holdsChosenFile())
        return;
    const int saved = form->save();
    require(!accepted || saved == 0, "what was accepted once is when it was shown");
    if (saved != 0)
        return;
    const QVariant stored = all.read(*form);
    form->select();
    require(form->save() == 0
                && welmo::controller::toJson(all.read(*form)) == welmo::controller::toJson(stored),
            "showing and saving again changes nothing");
    if (!inTree(*value).contains("name"))
        return;
    for (const auto &row : form->fields().fields()) {
        const QVariant code = welmo::controller::childAt(*value, row->key());
        const auto *choice = dynamic_cast<welmo::ChoiceField *>(row.get());
        if (choice && code.userType() == QMetaType::QString
            && qobject_cast<QComboBox *>(choice->editor())->findData(code) < 0)
            require(welmo::controller::childAt(stored, row->key()) == code,
                    "a code of others is kept", row->key());
    }
    QVariantMap kept = inTree(*value);
    for (const auto &row : form->fields().fields())
        kept.remove(row->key().section('.', 0, 0));
    const QVariantMap present = stored.toMap();
    for (auto it = kept.begin(); it != kept.end(); ++it)
        require(kelp::sameValue(present.value(it.key()), it.value()), "what no row has is kept",
                it.key());
}
