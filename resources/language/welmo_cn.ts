<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>ArcWeldPage</name>
    <message>
        <source>Arc Weld</source>
        <translation>弧焊</translation>
    </message>
    <message>
        <source>Device Setting</source>
        <translation>设备设置</translation>
    </message>
    <message>
        <source>Welding Options</source>
        <translation>焊接选项</translation>
    </message>
    <message>
        <source>Process Setting</source>
        <translation>工艺设置</translation>
    </message>
    <message>
        <source>Weave Function</source>
        <translation>摆弧功能</translation>
    </message>
</context>
<context>
    <name>ArcoffInsertWidget</name>
    <message>
        <source>ArcOff Parameter File Number</source>
        <translation>收弧参数文件号</translation>
    </message>
</context>
<context>
    <name>ArcoffPropertyWidget</name>
    <message>
        <source>ArcOffData</source>
        <translation>收弧数据</translation>
    </message>
</context>
<context>
    <name>ArconInsertWidget</name>
    <message>
        <source>ArcOn Parameter File Number</source>
        <translation>起弧参数文件号</translation>
    </message>
    <message>
        <source>Weld Parameter File Number</source>
        <translation>焊接参数文件号</translation>
    </message>
</context>
<context>
    <name>ArconPropertyWidget</name>
    <message>
        <source>ArcOnData</source>
        <translation>起弧数据</translation>
    </message>
    <message>
        <source>ArcData</source>
        <translation>焊接数据</translation>
    </message>
</context>
<context>
    <name>Connection</name>
    <message>
        <source>tessa is not connected</source>
        <translation>控制器没有连接</translation>
    </message>
    <message>
        <source>tessa not connected</source>
        <translation>控制器未连接</translation>
    </message>
</context>
<context>
    <name>DevicesSettingPage</name>
    <message>
        <source>Device Setting</source>
        <translation>设备设置</translation>
    </message>
    <message>
        <source>Welding Function</source>
        <translation>焊接功能</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Wheather to Connect the Actual WeldMachine</source>
        <translation>是否连接实际焊机</translation>
    </message>
    <message>
        <source>WeldMachine Selection</source>
        <translation>焊机选择</translation>
    </message>
    <message>
        <source>Communication Protocol</source>
        <translation>通信协议</translation>
    </message>
    <message>
        <source>Brand</source>
        <translation>品牌</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>电流</translation>
    </message>
    <message>
        <source>enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>disable</source>
        <translation>停用</translation>
    </message>
    <message>
        <source>device error</source>
        <translation>设备失败</translation>
    </message>
    <message>
        <source>device success</source>
        <translation>设备成功</translation>
    </message>
    <message>
        <source>connect the actual weldMachine</source>
        <translation>连接实际焊机</translation>
    </message>
    <message>
        <source>don't connect the actual weldMachine</source>
        <translation>不连接实际焊机</translation>
    </message>
    <message>
        <source>fail</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>success</source>
        <translation>成功</translation>
    </message>
</context>
<context>
    <name>FieldTable</name>
    <message>
        <source>%1: the value "%2" of "%3" is not offered here and is kept</source>
        <translation>%1：“%3”的值“%2”不在此处的选项中，保持不变</translation>
    </message>
    <message>
        <source>%1: the value "%2" of "%3" is not offered here; a save stores what is shown</source>
        <translation>%1：“%3”的值“%2”在此不可选，保存时将存入所显示的值</translation>
    </message>
    <message>
        <source>%1: of "%2", %3 is stored and %4 is shown</source>
        <translation>%1：“%2”存储的是 %3，显示的是 %4</translation>
    </message>
</context>
<context>
    <name>FileForm</name>
    <message>
        <source>%1: changes were not saved</source>
        <translation>%1：更改未保存</translation>
    </message>
    <message>
        <source>%1 is not saved: it was not read, and what is shown is not its content</source>
        <translation>%1 未保存：该文件未能读取，显示的不是其内容</translation>
    </message>
    <message>
        <source>%1: "%2" was changed elsewhere to %3 and is being edited here; another save replaces it</source>
        <translation>%1：“%2”已在别处改为 %3，而此处正在编辑；再次保存将覆盖它</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>未读取</translation>
    </message>
    <message>
        <source>not read: no link</source>
        <translation>未读取：无连接</translation>
    </message>
</context>
<context>
    <name>MonitorPage</name>
    <message>
        <source>Welding Monitoring</source>
        <translation>焊接监控</translation>
    </message>
    <message>
        <source>Set value</source>
        <translation>设定值</translation>
    </message>
    <message>
        <source>Welding variables</source>
        <translation>焊接变量</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>电流</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>电压</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Actual value</source>
        <translation>实际值</translation>
    </message>
    <message>
        <source>Welding speed</source>
        <translation>焊接速度</translation>
    </message>
    <message>
        <source>Advanced monitoring</source>
        <translation>高级监控</translation>
    </message>
    <message>
        <source>Welding time</source>
        <translation>焊接时间</translation>
    </message>
    <message>
        <source>Welding distance</source>
        <translation>焊接距离</translation>
    </message>
    <message>
        <source>Welding wire used</source>
        <translation>焊丝用量</translation>
    </message>
    <message>
        <source>save error</source>
        <translation>保存失败</translation>
    </message>
    <message>
        <source>save succeed</source>
        <translation>保存成功</translation>
    </message>
    <message>
        <source>no weld data in use</source>
        <translation>没有正在使用的焊接数据</translation>
    </message>
    <message>
        <source>%1: %2 %4 is stored, %3 %4 is shown</source>
        <translation>%1：存储值为 %2 %4，显示为 %3 %4</translation>
    </message>
</context>
<context>
    <name>MoveInsertWidget</name>
    <message>
        <source>Auxiliary point</source>
        <translation>辅助点</translation>
    </message>
    <message>
        <source>Target point</source>
        <translation>目标点</translation>
    </message>
</context>
<context>
    <name>MovePropertyPointWidget</name>
    <message>
        <source>Auxiliary point</source>
        <translation>辅助点</translation>
    </message>
    <message>
        <source>Target point</source>
        <translation>目标点</translation>
    </message>
    <message>
        <source>There is no point %1 in the project</source>
        <translation>工程中没有点 %1</translation>
    </message>
</context>
<context>
    <name>ParameterFile</name>
    <message>
        <source>%1: read parameter error</source>
        <translation>%1：读取参数失败</translation>
    </message>
    <message>
        <source>remove parameter error</source>
        <translation>删除参数失败</translation>
    </message>
    <message>
        <source>remove parameter success</source>
        <translation>删除参数成功</translation>
    </message>
    <message>
        <source>%1: could not be created</source>
        <translation>%1：无法创建</translation>
    </message>
</context>
<context>
    <name>PointList</name>
    <message>
        <source>create point fail</source>
        <translation>创建点失败</translation>
    </message>
</context>
<context>
    <name>PointRobot</name>
    <message>
        <source>get robot position fail</source>
        <translation>获取机器人位置失败</translation>
    </message>
</context>
<context>
    <name>ProcessForm</name>
    <message>
        <source>save parameter error</source>
        <translation>保存参数失败</translation>
    </message>
    <message>
        <source>save parameter succeed</source>
        <translation>保存参数成功</translation>
    </message>
</context>
<context>
    <name>ProcessSettingsPage</name>
    <message>
        <source>Process Setting</source>
        <translation>工艺设置</translation>
    </message>
    <message>
        <source>welder state error</source>
        <translation>焊机状态错误</translation>
    </message>
    <message>
        <source>enable error</source>
        <translation>启用失败</translation>
    </message>
    <message>
        <source>enable succeed</source>
        <translation>启用成功</translation>
    </message>
</context>
<context>
    <name>SegOnInsertWidget</name>
    <message>
        <source>SegData(segdata): </source>
        <translation>分段数据(segdata)：</translation>
    </message>
</context>
<context>
    <name>SegParameterPage</name>
    <message>
        <source>Seg Parameter</source>
        <translation>分段参数</translation>
    </message>
</context>
<context>
    <name>SegParameterWidget</name>
    <message>
        <source>Seg Parameter</source>
        <translation>分段参数</translation>
    </message>
    <message>
        <source>Seg File Number</source>
        <translation>分段文件号</translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Seg Type</source>
        <translation>分段类型</translation>
    </message>
    <message>
        <source>Non-welded Speed</source>
        <translation>非焊接段速度</translation>
    </message>
    <message>
        <source>Welded Distance</source>
        <translation>焊接段距离</translation>
    </message>
    <message>
        <source>Non-welded Distance</source>
        <translation>非焊接段距离</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>segdata format error</source>
        <translation>分段数据格式错误</translation>
    </message>
    <message>
        <source>save parameter fail</source>
        <translation>保存参数未成功</translation>
    </message>
    <message>
        <source>save parameter succeed</source>
        <translation>保存参数成功</translation>
    </message>
</context>
<context>
    <name>TlArcWeldDefine</name>
    <message>
        <source>Arc On</source>
        <translation>弧焊</translation>
    </message>
</context>
<context>
    <name>WeaveDataDialog</name>
    <message>
        <source>WeaveDataDetails</source>
        <translation>摆弧数据详情</translation>
    </message>
</context>
<context>
    <name>WeaveFunctionPage</name>
    <message>
        <source>Weave Function</source>
        <translation>摆弧功能</translation>
    </message>
</context>
<context>
    <name>WeaveWidget</name>
    <message>
        <source>weavedata format error</source>
        <translation>摆弧数据格式错误</translation>
    </message>
</context>
<context>
    <name>WeldingOptionsPage</name>
    <message>
        <source>Welding Options</source>
        <translation>焊接选项</translation>
    </message>
    <message>
        <source>The welder is not ready.</source>
        <translation>焊机未就绪。</translation>
    </message>
    <message>
        <source>Base Setting</source>
        <translation>基本设置</translation>
    </message>
    <message>
        <source>Empty running Cartesian speed</source>
        <translation>空运行笛卡尔速度</translation>
    </message>
    <message>
        <source>Jog Wire Feed/Reverse Speed</source>
        <translation>点动送丝/退丝速度</translation>
    </message>
    <message>
        <source>Flow Detection Time</source>
        <translation>检气时间</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Anti-Collision Setting</source>
        <translation>防碰撞设置</translation>
    </message>
    <message>
        <source>Anti-Collision Switch</source>
        <translation>防碰撞开关</translation>
    </message>
    <message>
        <source>DI Selection</source>
        <translation>DI 选择</translation>
    </message>
    <message>
        <source>Anti-Collision Shield</source>
        <translation>防碰撞屏蔽</translation>
    </message>
    <message>
        <source>Wire Torch Mode Setting</source>
        <translation>夹丝枪模式设置</translation>
    </message>
    <message>
        <source>Mode Switch</source>
        <translation>模式开关</translation>
    </message>
    <message>
        <source>save running parameter error</source>
        <translation>保存运行参数失败</translation>
    </message>
    <message>
        <source>save running parameter success</source>
        <translation>保存运行参数成功</translation>
    </message>
    <message>
        <source>enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>disable</source>
        <translation>停用</translation>
    </message>
    <message>
        <source>anti-collision device error</source>
        <translation>防碰撞设备失败</translation>
    </message>
    <message>
        <source>anti-collision device success</source>
        <translation>防碰撞设备成功</translation>
    </message>
    <message>
        <source>anti-collision device shielding error</source>
        <translation>防碰撞设备屏蔽失败</translation>
    </message>
    <message>
        <source>anti-collision device shielding success</source>
        <translation>防碰撞设备屏蔽成功</translation>
    </message>
    <message>
        <source>wire clamping torch mode error</source>
        <translation>夹丝枪模式失败</translation>
    </message>
    <message>
        <source>wire clamping torch mode success</source>
        <translation>夹丝枪模式成功</translation>
    </message>
</context>
<context>
    <name>Welmo</name>
    <message>
        <source>Arc Weld</source>
        <translation>弧焊</translation>
    </message>
</context>
<context>
    <name>welmo::ArcoffGroup</name>
    <message>
        <source>ArcOff Parameter</source>
        <translation>收弧参数</translation>
    </message>
    <message>
        <source>ArcOff Parameter File Number</source>
        <translation>收弧参数文件号</translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>ArcOff Current</source>
        <translation>收弧电流</translation>
    </message>
    <message>
        <source>ArcOff Voltage</source>
        <translation>收弧电压</translation>
    </message>
    <message>
        <source>ArcOff Time</source>
        <translation>收弧时间</translation>
    </message>
    <message>
        <source>Stop Flow Delay Time</source>
        <translation>滞后停气时间</translation>
    </message>
    <message>
        <source>ArcOff Detection Time</source>
        <translation>收弧检测时间</translation>
    </message>
    <message>
        <source>ArcOff Pull Wire Time</source>
        <translation>收弧回抽时间</translation>
    </message>
    <message>
        <source>Wire Sticking Detection Time</source>
        <translation>粘丝检测时间</translation>
    </message>
    <message>
        <source>Anti-Stick Function Switch</source>
        <translation>防粘丝开关</translation>
    </message>
    <message>
        <source>Anti-Stick Current</source>
        <translation>防粘丝电流</translation>
    </message>
    <message>
        <source>Anti-Stick Voltage</source>
        <translation>防粘丝电压</translation>
    </message>
    <message>
        <source>Anti-Stick Time</source>
        <translation>防粘丝时间</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Fold ArcOff Advanced Parameter</source>
        <translation>收起收弧高级参数</translation>
    </message>
    <message>
        <source>Unfold ArcOff Advanced Parameter</source>
        <translation>展开收弧高级参数</translation>
    </message>
</context>
<context>
    <name>welmo::ArconGroup</name>
    <message>
        <source>ArcOn Parameter</source>
        <translation>起弧参数</translation>
    </message>
    <message>
        <source>ArcOn Parameter File Number</source>
        <translation>起弧参数文件号</translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>ArcOn Current</source>
        <translation>起弧电流</translation>
    </message>
    <message>
        <source>ArcOn Voltage</source>
        <translation>起弧电压</translation>
    </message>
    <message>
        <source>ArcOn Time</source>
        <translation>起弧时间</translation>
    </message>
    <message>
        <source>ArcOn Detect Time</source>
        <translation>起弧检测时间</translation>
    </message>
    <message>
        <source>ArcOn Confirm Time</source>
        <translation>起弧确认时间</translation>
    </message>
    <message>
        <source>BeforeFlow Time</source>
        <translation>提前送气时间</translation>
    </message>
    <message>
        <source>BeforeArcOn Time</source>
        <translation>提前起弧时间</translation>
    </message>
    <message>
        <source>Slow Wire Feed Speed</source>
        <translation>慢送丝速度</translation>
    </message>
    <message>
        <source>BeforeWireOut</source>
        <translation>提前送丝时间</translation>
    </message>
    <message>
        <source>ShadingTime</source>
        <translation>渐变时间</translation>
    </message>
    <message>
        <source>Arc Reignition</source>
        <translation>重新起弧</translation>
    </message>
    <message>
        <source>RetryTimes</source>
        <translation>重试次数</translation>
    </message>
    <message>
        <source>RetratWaitTime</source>
        <translation>回抽等待时间</translation>
    </message>
    <message>
        <source>RetractTime</source>
        <translation>回抽时间</translation>
    </message>
    <message>
        <source>Current Increase</source>
        <translation>电流增量</translation>
    </message>
    <message>
        <source>Voltage Increase</source>
        <translation>电压增量</translation>
    </message>
    <message>
        <source>MoveArcOn</source>
        <translation>移动起弧</translation>
    </message>
    <message>
        <source>MoveDis</source>
        <translation>移动距离</translation>
    </message>
    <message>
        <source>ReturnSpeed</source>
        <translation>返回速度</translation>
    </message>
    <message>
        <source>StepDis</source>
        <translation>步进距离</translation>
    </message>
    <message>
        <source>Retry Offset</source>
        <translation>重试偏移</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Fold ArcOn Advanced Parameter</source>
        <translation>收起起弧高级参数</translation>
    </message>
    <message>
        <source>Unfold ArcOn Advanced Parameter</source>
        <translation>展开起弧高级参数</translation>
    </message>
</context>
<context>
    <name>welmo::HandleKeys</name>
    <message>
        <source>wire feeding</source>
        <translation>送丝</translation>
    </message>
    <message>
        <source>cancel wire feeding</source>
        <translation>停止送丝</translation>
    </message>
    <message>
        <source>wire reverse</source>
        <translation>退丝</translation>
    </message>
    <message>
        <source>cancel wire reverse</source>
        <translation>停止退丝</translation>
    </message>
    <message>
        <source>Wire feed</source>
        <translation>送丝</translation>
    </message>
    <message>
        <source>Air supply</source>
        <translation>送气</translation>
    </message>
    <message>
        <source>Jog V+</source>
        <translation>点动速度+</translation>
    </message>
    <message>
        <source>Mode switching</source>
        <translation>模式切换</translation>
    </message>
    <message>
        <source>Pull back wire</source>
        <translation>退丝</translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation>监控</translation>
    </message>
    <message>
        <source>Jog V-</source>
        <translation>点动速度-</translation>
    </message>
    <message>
        <source>welder state error</source>
        <translation>焊机状态错误</translation>
    </message>
    <message>
        <source>%1 fail</source>
        <translation>%1失败</translation>
    </message>
    <message>
        <source>%1 success</source>
        <translation>%1成功</translation>
    </message>
    <message>
        <source>Switching welding operation mode failed!</source>
        <translation>焊接运行模式切换失败！</translation>
    </message>
</context>
<context>
    <name>welmo::PointEdit</name>
    <message>
        <source>New point here</source>
        <translation>在此新建点</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>原点位</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>偏移</translation>
    </message>
    <message>
        <source>Relative to tool</source>
        <translation>相对工具</translation>
    </message>
</context>
<context>
    <name>welmo::PointGroup</name>
    <message>
        <source>Point</source>
        <translation>点位</translation>
    </message>
    <message>
        <source>Computed</source>
        <translation>计算结果</translation>
    </message>
    <message>
        <source>Read robot position</source>
        <translation>读取机器人位置</translation>
    </message>
    <message>
        <source>Compute</source>
        <translation>计算</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Move to point:</source>
        <translation>移动到点位：</translation>
    </message>
    <message>
        <source>Joint</source>
        <translation>关节</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>直线</translation>
    </message>
    <message>
        <source>Move to computed:</source>
        <translation>移动到计算结果：</translation>
    </message>
    <message>
        <source>Edited</source>
        <translation>已编辑</translation>
    </message>
    <message>
        <source>Robot position</source>
        <translation>机器人位置</translation>
    </message>
    <message>
        <source>Determine the refresh point?</source>
        <translation>确定刷新点位吗？</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>get robot position fail</source>
        <translation>获取机器人位置失败</translation>
    </message>
    <message>
        <source>Robot</source>
        <translation>机器人</translation>
    </message>
    <message>
        <source>move to point fail</source>
        <translation>移动到点失败</translation>
    </message>
    <message>
        <source>stop move fail</source>
        <translation>停止运动失败</translation>
    </message>
</context>
<context>
    <name>welmo::ProcessGroup</name>
    <message>
        <source>Current Mode</source>
        <translation>电流模式</translation>
    </message>
    <message>
        <source>Voltage Mode</source>
        <translation>电压模式</translation>
    </message>
    <message>
        <source>Arc Mode</source>
        <translation>焊接模式</translation>
    </message>
    <message>
        <source>the welder offers unknown modes: %1</source>
        <translation>焊机提供了未知的模式：%1</translation>
    </message>
</context>
<context>
    <name>welmo::TaughtNotice</name>
    <message>
        <source>Use the point's own</source>
        <translation>使用该点自身的</translation>
    </message>
    <message>
        <source>%1 was taught in %2; the line uses %3</source>
        <translation>%1 在 %2 中示教；该行使用 %3</translation>
    </message>
    <message>
        <source>%1 was taught with %2; the line uses %3</source>
        <translation>%1 用 %2 示教；该行使用 %3</translation>
    </message>
</context>
<context>
    <name>welmo::WeaveEditor</name>
    <message>
        <source>Weave Setting</source>
        <translation>摆弧设置</translation>
    </message>
    <message>
        <source>Weave Parameter File Number</source>
        <translation>摆弧参数文件号</translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Weave Standard</source>
        <translation>摆动基准</translation>
    </message>
    <message>
        <source>Weave Pattern</source>
        <translation>摆动形状</translation>
    </message>
    <message>
        <source>Amplitude</source>
        <translation>振幅</translation>
    </message>
    <message>
        <source>Waveform Direction</source>
        <translation>波形方向</translation>
    </message>
    <message>
        <source>Weave Radius</source>
        <translation>摆动半径</translation>
    </message>
    <message>
        <source>Angle Setting</source>
        <translation>角度设置</translation>
    </message>
    <message>
        <source>Elevation Type</source>
        <translation>仰角类型</translation>
    </message>
    <message>
        <source>Inclination</source>
        <translation>倾角</translation>
    </message>
    <message>
        <source>Left Elevation</source>
        <translation>左仰角</translation>
    </message>
    <message>
        <source>Right Elevation</source>
        <translation>右仰角</translation>
    </message>
    <message>
        <source>Stay Setting</source>
        <translation>停留设置</translation>
    </message>
    <message>
        <source>Stay Type</source>
        <translation>停留类型</translation>
    </message>
    <message>
        <source>Left Stay</source>
        <translation>左停留</translation>
    </message>
    <message>
        <source>Center Stay</source>
        <translation>中间停留</translation>
    </message>
    <message>
        <source>Right Stay</source>
        <translation>右停留</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Weave Length</source>
        <translation>摆动长度</translation>
    </message>
    <message>
        <source>Weave Frequency</source>
        <translation>摆动频率</translation>
    </message>
    <message>
        <source>The frequency multiplied by the amplitude must be less than 50</source>
        <translation>频率与振幅的乘积必须小于 50</translation>
    </message>
    <message>
        <source>The sum of the elevation angles must not be 0, 180, or -180</source>
        <translation>左右仰角之和不能为 0、180 或 -180</translation>
    </message>
    <message>
        <source>save parameter error</source>
        <translation>保存参数失败</translation>
    </message>
    <message>
        <source>save parameter succeed</source>
        <translation>保存参数成功</translation>
    </message>
</context>
<context>
    <name>welmo::WeldGroup</name>
    <message>
        <source>Weld Parameter</source>
        <translation>焊接参数</translation>
    </message>
    <message>
        <source>Weld Parameter File Number</source>
        <translation>焊接参数文件号</translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>WeldCurrent</source>
        <translation>焊接电流</translation>
    </message>
    <message>
        <source>WeldVoltage</source>
        <translation>焊接电压</translation>
    </message>
    <message>
        <source>WeldSpeed</source>
        <translation>焊接速度</translation>
    </message>
    <message>
        <source>Shdingtime</source>
        <translation>渐变时间</translation>
    </message>
    <message>
        <source>Arc Detect Time</source>
        <translation>断弧检测时间</translation>
    </message>
    <message>
        <source>Arc Break Option</source>
        <translation>断弧处理</translation>
    </message>
    <message>
        <source>BackDistance</source>
        <translation>回退距离</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Fold Weld Advanced Parameter</source>
        <translation>收起焊接高级参数</translation>
    </message>
    <message>
        <source>Unfold Weld Advanced Parameter</source>
        <translation>展开焊接高级参数</translation>
    </message>
</context>
<context>
    <name>welmo::WeldModeIndicator</name>
    <message>
        <source>test run mode</source>
        <translation>试运行模式</translation>
    </message>
    <message>
        <source>test run</source>
        <translation>试运行</translation>
    </message>
    <message>
        <source>simulation mode</source>
        <translation>仿真模式</translation>
    </message>
    <message>
        <source>simulation</source>
        <translation>仿真</translation>
    </message>
    <message>
        <source>real mode</source>
        <translation>真实焊接模式</translation>
    </message>
    <message>
        <source>real welding</source>
        <translation>真实焊接</translation>
    </message>
    <message>
        <source>Switch to  </source>
        <translation>切换到  </translation>
    </message>
</context>
<context>
    <name>MoveParamWidget</name>
    <message>
        <source>%1 is no longer in the project; %2 is chosen</source>
        <translation>工程中已没有%1；已改选%2</translation>
    </message>
    <message>
        <source>速度(V)：</source>
        <translation>速度(V)：</translation>
    </message>
    <message>
        <source>转弯区(Z)：</source>
        <translation>转弯区(Z)：</translation>
    </message>
    <message>
        <source>工具(T)：</source>
        <translation>工具(T)：</translation>
    </message>
    <message>
        <source>工件(W)：</source>
        <translation>工件(W)：</translation>
    </message>
    <message>
        <source>摆动变量(weavedata)：</source>
        <translation>摆动变量(weavedata)：</translation>
    </message>
    <message>
        <source>详细</source>
        <translation>详细</translation>
    </message>
</context>
</TS>
