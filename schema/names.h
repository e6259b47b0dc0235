#pragma once

#include <QString>

/// The names of nodes, commands and payloads that a pendant uses: the contract, misspellings
/// included.
namespace welmo::names {

inline const QString arcWeldPrefix = QStringLiteral("arc_weld.");
inline const QString runningParam = QStringLiteral("arc_weld.running_param");
inline const QString anticollisionParam = QStringLiteral("arc_weld.anticollision_param");
inline const QString anticollisionState = QStringLiteral("arc_weld.anticollision_state");
inline const QString clampingTorchParam = QStringLiteral("arc_weld.wire_clamping_torch_param");
inline const QString weldMode = QStringLiteral("arc_weld.weld_mode");
inline const QString welderState = QStringLiteral("arc_weld.welder_state");
inline const QString welderSetting = QStringLiteral("arc_weld.welder_setting");
inline const QString deviceParam = QStringLiteral("arc_weld.device_param");

inline const QString setAnticollision = QStringLiteral("arc_weld.set_anticollision");
inline const QString setClampingTorchMode = QStringLiteral("arc_weld.set_wire_clamping_torch_mode");
inline const QString setWeldMode = QStringLiteral("arc_weld.set_weld_mode");
inline const QString setWelder = QStringLiteral("arc_weld.set_welder");
inline const QString enableWeldParam = QStringLiteral("arc_weld.enable_weld_param");
inline const QString removePrefix = QStringLiteral("arc_weld.remove.");
/// How far operators may trim a parameter file, by the file's name; see schema::Release.
inline const QString released = QStringLiteral("arc_weld.released");
inline const QString removeReleased = removePrefix + QStringLiteral("released");
inline const QString wireFeed = QStringLiteral("arc_weld.wire_feed");
inline const QString gasFlow = QStringLiteral("arc_weld.gas_flow");

// The misspelt "feel" is what the controllers in the field expect.
inline const QString wireFeelPayload = QStringLiteral("wire_feel");
inline const QString wireFeelBackPayload = QStringLiteral("wire_feel_back");

inline const QString welderStateRate = QStringLiteral("arc_weld.welder_state_rate");

inline const QString journal = QStringLiteral("cell.journal");

inline const QString audit = QStringLiteral("cell.audit");
inline const QString alarms = QStringLiteral("cell.alarms");
inline const QString acknowledgeAlarms = QStringLiteral("cell.alarms.acknowledge");
inline const QString cellIdentity = QStringLiteral("cell.identity");
inline const QString cellState = QStringLiteral("cell.state");
inline const QString switchCell = QStringLiteral("cell.switch");
inline const QString control = QStringLiteral("cell.control");
inline const QString takeControl = QStringLiteral("cell.control.take");
inline const QString giveControl = QStringLiteral("cell.control.give");

inline const QString project = QStringLiteral("orbo.project");
inline const QString signalDetail = QStringLiteral("orbo.robot.io.signal_detail");
inline const QString toolPage = QStringLiteral("orbo.toolpage");

inline const QString robotPosition = QStringLiteral("tl_program.get_rob_pos");
inline const QString programState = QStringLiteral("tl_program.state");
inline const QString loadProgram = QStringLiteral("tl_program.load");
inline const QString runProgram = QStringLiteral("tl_program.run");
inline const QString stepProgram = QStringLiteral("tl_program.step");
inline const QString reweldProgram = QStringLiteral("tl_program.reweld");
inline const QString pauseProgram = QStringLiteral("tl_program.pause");
inline const QString stopProgram = QStringLiteral("tl_program.stop");
inline const QString moveToPoint = QStringLiteral("motion.move.to_point");
inline const QString startJog = QStringLiteral("motion.jog.start");
inline const QString stopJog = QStringLiteral("motion.jog.stop");
inline const QString robotState = QStringLiteral("motion.state");
inline const QString stopMove = QStringLiteral("motion.move.stop");

} // namespace welmo::names
