#include <QtTest>

#include "support/datarows.h"
#include "vu/calc.h"

using namespace testsupport;
using kelp::ModuleObject;
using Pose = QVector<double>; // x, y, z, a, b, c

namespace {

const QStringList paths{"pos.x", "pos.y", "pos.z", "ori.euler.a", "ori.euler.b", "ori.euler.c"};

void write(ModuleObject *node, const Pose &pose)
{
    for (int i = 0; i < pose.size(); ++i)
        node->set(nullptr, paths.at(i), pose.at(i));
}

Pose read(const ModuleObject &node)
{
    Pose pose;
    for (const QString &path : paths)
        pose.append(qRound64(node.r(path)->getDouble() * 1e6) / 1e6);
    return pose;
}

} // namespace

/// kelpvu: pose arithmetic on data objects.
class tst_Calc : public QObject
{
    Q_OBJECT

private slots:
    void posesCombine_data()
    {
        addRows<Pose, Pose, Pose, Pose>(
            {// a pose, and another relative to it; the two combined in the tool, and as an offset
             {"missing values count as 0", Pose{1}, Pose{}, Pose{1, 0, 0, 0, 0, 0},
              Pose{1, 0, 0, 0, 0, 0}},
             {"about z", Pose{1, 2, 3, 0, 0, 90}, Pose{10, 0, 0, 0, 0, 20},
              Pose{1, 12, 3, 0, 0, 110}, Pose{11, 2, 3, 0, 0, 90}},
             {"a about x, then c about z, fixed axes", Pose{0, 0, 0, 90, 0, 90},
              Pose{0, 0, 1, 0, 0, 0}, Pose{1, 0, 0, 90, 0, 90}, Pose{0, 0, 1, 90, 0, 90}},
             {"b before c", Pose{0, 0, 0, 0, 90, 90}, Pose{1, 0, 0, 0, 0, 0},
              Pose{0, 0, -1, 0, 90, 90}, Pose{1, 0, 0, 0, 90, 90}},
             {"where b is 90, c takes all", Pose{0, 0, 0, 30, 90, 50}, Pose{},
              Pose{0, 0, 0, 0, 90, 20}, Pose{0, 0, 0, 0, 90, 20}},
             {"tool upside down", Pose{0, 0, 500, 180, 0, 0}, Pose{1, 2, 3, 0, 10, 0},
              Pose{1, -2, 497, 180, -10, 0}, Pose{1, 2, 503, 180, 0, 0}}});
    }
    void posesCombine()
    {
        const auto &[name, pose, relative, inTool, offset] = currentRow<Pose, Pose, Pose, Pose>();
        ModuleObject from("from");
        ModuleObject by("by");
        ModuleObject moved("moved");
        write(&from, pose);
        write(&by, relative);
        vu::calc::offs(&from, &by, &moved);
        QCOMPARE(read(moved), offset);
        vu::calc::toolreltool(&from, &by, &from); // onto itself
        QCOMPARE(read(from), inTool);
    }
};

QTEST_GUILESS_MAIN(tst_Calc)
#include "tst_calc.moc"
