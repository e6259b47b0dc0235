#pragma once

#include "book/records/seamrecorder.h"

namespace testsupport {

/// Keeps what a recorder finds out, and drives it through welds in time that only counts here.
class Workshop : public welmo::book::SeamSink
{
public:
    void opened(const welmo::book::Seam &) override { ++begun; }
    void sampled(const welmo::book::Samples &more) override { course += more; }
    void closed(const welmo::book::Seam &seam) override { seams.append(seam); }
    void exceeded(const welmo::book::Seam &, const welmo::book::BandRow &band,
                  double value) override
    {
        alarms.append(
            QStringLiteral("%1 %2 after %3 ms").arg(band.name).arg(value).arg(now.steady - newsAt));
    }

    void tell(const QVariantMap &news)
    {
        newsAt = now.steady;
        recorder.tellWelder(news, now);
    }
    void phase(const QString &word) { tell({{"phase", word}}); }
    void arc(double current, double voltage = 20, double speed = 5)
    {
        tell({{"current", current}, {"voltage", voltage}, {"welding_speed", speed}});
    }
    void pass(int ms)
    {
        for (int i = 0; i < ms / 20; ++i) {
            now.wall += 20;
            now.steady += 20;
            if (now.steady % 100 == 0)
                recorder.tick(now);
        }
    }
    void forget()
    {
        seams.clear();
        course.clear();
    }
    /// A seam as the virtual controller tells it.
    void weld(int ms, double current = 180)
    {
        tell({{"phase", "pre_flow"}, {"welding_name", "arcondata1"}});
        pass(500);
        phase("ignition");
        arc(current);
        pass(200);
        tell({{"phase", "welding"}, {"welding_name", "arcdata1"}});
        pass(ms);
        tell({{"phase", "crater"}, {"welding_name", "arcoffdata1"}});
        pass(200);
        quit();
    }
    void quit()
    {
        arc(0, 0, 0);
        phase("post_flow");
        pass(300);
        phase("idle");
        pass(1000);
    }

    /// The welding file is trimmed and saved.
    void save(const QString &name)
    {
        file = {8, {190, {}, {}}};
        recorder.tellFile(name);
    }

    welmo::book::FileInUse file;
    welmo::book::Moment now{1700000000000, 60, 1000};
    welmo::book::SeamRecorder recorder{this};
    QVector<welmo::book::Seam> seams;
    welmo::book::Samples course;
    QStringList alarms;
    int begun = 0;
    qint64 newsAt = 0;
};

} // namespace testsupport
