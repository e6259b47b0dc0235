#include "bench/bench.h"
#include "bench/filling.h"
#include "bench/rawforms.h"
#include "bench/stage.h"
#include "instructions/forms/arcoffpropertywidget.h"
#include "instructions/forms/arconpropertywidget.h"
#include "instructions/forms/timedwidgets.h"
#include "instructions/forms/weaveonpropertywidget.h"
#include "instructions/move/moveforms.h"

namespace bench {

namespace {

template<typename Form>
void openForm(Bench &bench, testsupport::FormHost &host, const QString &name,
              QWidget *(*raw)(QWidget *))
{
    QWidget *window = host.window();
    bench.row(QStringLiteral("open %1").arg(name), QStringLiteral("the same form from uic"),
              opening([&host, window] {
                  host.takeRequests();
                  return new Form(window);
              }),
              opening([window, raw] { return raw(window); }));
}

} // namespace

void forms(Bench &bench)
{
    testsupport::FormHost host;
    openForm<ArconPropertyWidget>(bench, host, QStringLiteral("ArcOn"), raw::arcOn);
    openForm<ArcoffPropertyWidget>(bench, host, QStringLiteral("ArcOff"), raw::arcOff);
    openForm<WMoveLPropertyWidget>(bench, host, QStringLiteral("WMoveL"), raw::moveL);
    openForm<WMoveCPropertyWidget>(bench, host, QStringLiteral("WMoveC"), raw::moveC);
    openForm<WeaveOnPropertyWidget>(bench, host, QStringLiteral("WeaveOn"), raw::weaveOn);
    openForm<FeedOnWirePropertyWidget>(bench, host, QStringLiteral("FeedOnWire"), raw::feedOnWire);
    fillAndStore(bench);
}

} // namespace bench
