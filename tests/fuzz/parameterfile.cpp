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
    /// By the set's name, each with the file that it starts from.
    QMap<QString, std::pair<welmo::FileForm *, QVariant>> forms;
};

} // namespace

/// The input is the set's name, a line end and a parameter file. The file is written to the
/// controller; if that refuses it, another controller answers with it. The form shows and saves it
/// twice.
void fuzz(const QByteArray &input)
{
    static Forms all;
    if (welmo::controller::repeatsKey(input))
        return; // no controller hands that in
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
}
