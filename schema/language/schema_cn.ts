<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>Choices</name>
    <message>
        <source>Flat Characteristic</source>
        <translation>平特性</translation>
    </message>
    <message>
        <source>Low Spatter</source>
        <translation>低飞溅</translation>
    </message>
    <message>
        <source>Pulse</source>
        <translation>脉冲</translation>
    </message>
    <message>
        <source>Double Pulse</source>
        <translation>双脉冲</translation>
    </message>
    <message>
        <source>DC Spot Welding</source>
        <translation>直流点焊</translation>
    </message>
    <message>
        <source>Pulsed Spot Welding</source>
        <translation>脉冲点焊</translation>
    </message>
    <message>
        <source>Deep Penetration</source>
        <translation>深熔</translation>
    </message>
    <message>
        <source>Fast Pulse</source>
        <translation>快速脉冲</translation>
    </message>
    <message>
        <source>Low Spatter Spot Welding</source>
        <translation>低飞溅点焊</translation>
    </message>
    <message>
        <source>ASMT</source>
        <translation>ASMT</translation>
    </message>
    <message>
        <source>ASMT Spot Welding</source>
        <translation>ASMT 点焊</translation>
    </message>
    <message>
        <source>Job</source>
        <translation>JOB 模式</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>电流</translation>
    </message>
    <message>
        <source>Wire Feed</source>
        <translation>送丝</translation>
    </message>
    <message>
        <source>Unified</source>
        <translation>一元化</translation>
    </message>
    <message>
        <source>Separate</source>
        <translation>分别</translation>
    </message>
    <message>
        <source>Continue Running</source>
        <translation>继续运行</translation>
    </message>
    <message>
        <source>Stop and Alarm</source>
        <translation>停止并报警</translation>
    </message>
    <message>
        <source>Auto Arc Reignition</source>
        <translation>自动再起弧</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>周期</translation>
    </message>
    <message>
        <source>No Weaving</source>
        <translation>无摆动</translation>
    </message>
    <message>
        <source>Triangular</source>
        <translation>三角</translation>
    </message>
    <message>
        <source>Sine</source>
        <translation>正弦</translation>
    </message>
    <message>
        <source>Circular</source>
        <translation>圆形</translation>
    </message>
    <message>
        <source>Figure-8</source>
        <translation>8 字形</translation>
    </message>
    <message>
        <source>Robot Stay</source>
        <translation>机器人停留</translation>
    </message>
    <message>
        <source>Weave Stay</source>
        <translation>摆动停留</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>正常</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>反向</translation>
    </message>
    <message>
        <source>V-Pattern</source>
        <translation>V 形</translation>
    </message>
</context>
<context>
    <name>Inputs</name>
    <message>
        <source>No signal</source>
        <translation>无信号</translation>
    </message>
</context>
<context>
    <name>Welders</name>
    <message>
        <source>Ethercat</source>
        <translation>EtherCAT</translation>
    </message>
    <message>
        <source>Aotai</source>
        <translation>Aotai</translation>
    </message>
    <message>
        <source>RL/RPL</source>
        <translation>RL/RPL</translation>
    </message>
    <message>
        <source>RP/RPH</source>
        <translation>RP/RPH</translation>
    </message>
</context>
<context>
    <name>Reasons</name>
    <message>
        <source>arc lost at %1 mm</source>
        <translation>在 %1 mm 处断弧</translation>
    </message>
    <message>
        <source>arc lost at %1 mm and struck again</source>
        <translation>在 %1 mm 处断弧后重新起弧</translation>
    </message>
    <message>
        <source>the wire does not move</source>
        <translation>焊丝不动</translation>
    </message>
    <message>
        <source>the wire sticks in the seam</source>
        <translation>焊丝粘在焊缝中</translation>
    </message>
    <message>
        <source>wire or gas was stopped</source>
        <translation>送丝或送气被停止</translation>
    </message>
    <message>
        <source>no gas</source>
        <translation>无保护气</translation>
    </message>
    <message>
        <source>the arc does not strike</source>
        <translation>无法起弧</translation>
    </message>
    <message>
        <source>the file says 0 A, so there is no arc</source>
        <translation>文件中电流为 0 A，因此没有电弧</translation>
    </message>
    <message>
        <source>the welder reports an error</source>
        <translation>焊机报错</translation>
    </message>
    <message>
        <source>the welder is not enabled</source>
        <translation>焊机未启用</translation>
    </message>
    <message>
        <source>the actual welding machine is not connected</source>
        <translation>未连接实际焊机</translation>
    </message>
    <message>
        <source>"%1" is unknown and was ignored</source>
        <translation>“%1”未知，已忽略</translation>
    </message>
    <message>
        <source>%1: the arguments are not right</source>
        <translation>%1：参数不正确</translation>
    </message>
    <message>
        <source>there is no file "%1"</source>
        <translation>没有文件“%1”</translation>
    </message>
    <message>
        <source>the project has no "%2" (%1)</source>
        <translation>工程中没有“%2”（%1）</translation>
    </message>
    <message>
        <source>%1 is no point</source>
        <translation>%1 不是点</translation>
    </message>
    <message>
        <source>the robot does not reach %1</source>
        <translation>机器人无法到达 %1</translation>
    </message>
    <message>
        <source>the power is off</source>
        <translation>电源已关闭</translation>
    </message>
    <message>
        <source>the cell is in a fault</source>
        <translation>单元处于故障状态</translation>
    </message>
    <message>
        <source>the pendant was gone for a second, so the run was paused</source>
        <translation>示教器失联一秒，运行已暂停</translation>
    </message>
    <message>
        <source>the controller cannot keep data</source>
        <translation>控制器无法保存数据</translation>
    </message>
    <message>
        <source>stored data are damaged: %1</source>
        <translation>存储的数据已损坏：%1</translation>
    </message>
    <message>
        <source>%1: an operator may set a current of %3 to %4, not %2</source>
        <translation>%1：操作员可将电流设为 %3 至 %4，不能设为 %2</translation>
    </message>
    <message>
        <source>%1: an operator may set a voltage of %3 to %4, not %2</source>
        <translation>%1：操作员可将电压设为 %3 至 %4，不能设为 %2</translation>
    </message>
    <message>
        <source>%1: an operator may set a speed of %3 to %4, not %2</source>
        <translation>%1：操作员可将速度设为 %3 至 %4，不能设为 %2</translation>
    </message>
    <message>
        <source>%1 is released: an operator may not change "%2"</source>
        <translation>%1 已发布：操作员不能更改“%2”</translation>
    </message>
    <message>
        <source>the controller refuses: %1</source>
        <translation>控制器拒绝：%1</translation>
    </message>
    <message>
        <source>no line was carried out before</source>
        <translation>前面没有已执行的行</translation>
    </message>
    <message>
        <source>no seam lacks its arc</source>
        <translation>没有缺弧的焊缝</translation>
    </message>
    <message>
        <source>the controller was not reached</source>
        <translation>无法连接控制器</translation>
    </message>
    <message>
        <source>not in its present state (7)</source>
        <translation>当前状态下不允许 (7)</translation>
    </message>
    <message>
        <source>another pendant holds control (12)</source>
        <translation>另一示教器持有控制权 (12)</translation>
    </message>
    <message>
        <source>the user may not do that (13)</source>
        <translation>用户无此权限 (13)</translation>
    </message>
    <message>
        <source>code %1</source>
        <translation>代码 %1</translation>
    </message>
    <message>
        <source>in automatic mode nobody moves the robot by hand</source>
        <translation>自动模式下不能手动移动机器人</translation>
    </message>
    <message>
        <source>a program has the robot</source>
        <translation>程序正在使用机器人</translation>
    </message>
    <message>
        <source>the robot moves already</source>
        <translation>机器人已在移动</translation>
    </message>
    <message>
        <source>the robot does not get there</source>
        <translation>机器人无法到达</translation>
    </message>
    <message>
        <source>the robot gets no further in this direction</source>
        <translation>机器人在此方向上已到极限</translation>
    </message>
    <message>
        <source>the pendant was gone for a second</source>
        <translation>示教器失联一秒</translation>
    </message>
    <message>
        <source>no arc: the seam's ArcOn is line %1, and it did not run</source>
        <translation>没有电弧：焊缝的 ArcOn 在第 %1 行，而它没有执行</translation>
    </message>
</context>
</TS>
