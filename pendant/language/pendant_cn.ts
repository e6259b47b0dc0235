<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ArcChecks</name>
    <message>
        <source>Link to the controller</source>
        <translation>与控制器的连接</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>down</source>
        <translation>已断开</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>电源</translation>
    </message>
    <message>
        <source>on</source>
        <translation>开</translation>
    </message>
    <message>
        <source>off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>Emergency stop</source>
        <translation>急停</translation>
    </message>
    <message>
        <source>released</source>
        <translation>已松开</translation>
    </message>
    <message>
        <source>pressed</source>
        <translation>已按下</translation>
    </message>
    <message>
        <source>Weld mode</source>
        <translation>焊接模式</translation>
    </message>
    <message>
        <source>Welder</source>
        <translation>焊机</translation>
    </message>
    <message>
        <source>enabled</source>
        <translation>已启用</translation>
    </message>
    <message>
        <source>not enabled</source>
        <translation>未启用</translation>
    </message>
    <message>
        <source>Actual welding machine</source>
        <translation>实际焊机</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Welder's own state</source>
        <translation>焊机状态</translation>
    </message>
    <message>
        <source>no error</source>
        <translation>无错误</translation>
    </message>
    <message>
        <source>error</source>
        <translation>报错</translation>
    </message>
    <message>
        <source>Gas</source>
        <translation>保护气</translation>
    </message>
    <message>
        <source>there is pressure</source>
        <translation>有气压</translation>
    </message>
    <message>
        <source>no gas</source>
        <translation>无保护气</translation>
    </message>
    <message>
        <source>Wire</source>
        <translation>焊丝</translation>
    </message>
    <message>
        <source>moves</source>
        <translation>可送丝</translation>
    </message>
    <message>
        <source>does not move</source>
        <translation>不动</translation>
    </message>
    <message>
        <source>End of the wire</source>
        <translation>焊丝末端</translation>
    </message>
    <message>
        <source>free</source>
        <translation>自由</translation>
    </message>
    <message>
        <source>sticks at the end</source>
        <translation>粘丝</translation>
    </message>
    <message>
        <source>Ignition</source>
        <translation>起弧</translation>
    </message>
    <message>
        <source>strikes</source>
        <translation>可起弧</translation>
    </message>
    <message>
        <source>does not strike</source>
        <translation>无法起弧</translation>
    </message>
    <message>
        <source>Arc</source>
        <translation>电弧</translation>
    </message>
    <message>
        <source>stays</source>
        <translation>稳定</translation>
    </message>
    <message>
        <source>breaks off</source>
        <translation>断弧</translation>
    </message>
    <message>
        <source>Controller's disk</source>
        <translation>控制器磁盘</translation>
    </message>
    <message>
        <source>has room</source>
        <translation>有空间</translation>
    </message>
    <message>
        <source>full</source>
        <translation>已满</translation>
    </message>
    <message>
        <source>ArcOn in %1</source>
        <translation>%1 中的 ArcOn</translation>
    </message>
    <message>
        <source>no seam begins</source>
        <translation>没有焊缝起点</translation>
    </message>
    <message>
        <source>there</source>
        <translation>存在</translation>
    </message>
    <message>
        <source>Arc-start file</source>
        <translation>起弧文件</translation>
    </message>
    <message>
        <source>Welding file</source>
        <translation>焊接文件</translation>
    </message>
    <message>
        <source>%1: %2 A of %3 A</source>
        <translation>%1：%2 A / %3 A</translation>
    </message>
    <message>
        <source>there is no %1</source>
        <translation>没有 %1</translation>
    </message>
</context>
<context>
    <name>FileFacts</name>
    <message>
        <source>nothing burns at %1</source>
        <translation>%1 起不了弧</translation>
    </message>
    <message>
        <source>the machine gives %1</source>
        <translation>焊机最大 %1</translation>
    </message>
    <message>
        <source>the controller has no such file</source>
        <translation>控制器中没有该文件</translation>
    </message>
    <message>
        <source>the crater is not filled</source>
        <translation>不填弧坑</translation>
    </message>
</context>
<context>
    <name>JsonFile</name>
    <message>
        <source>%1:%2:%3: not valid JSON: %4</source>
        <translation>%1:%2:%3：不是有效的 JSON：%4</translation>
    </message>
    <message>
        <source>%1: cannot be read: %2</source>
        <translation>%1：无法读取：%2</translation>
    </message>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1：无法写入：%2</translation>
    </message>
</context>
<context>
    <name>Levels</name>
    <message>
        <source>Viewer</source>
        <translation>访客</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>操作员</translation>
    </message>
    <message>
        <source>Programmer</source>
        <translation>编程员</translation>
    </message>
    <message>
        <source>Administrator</source>
        <translation>管理员</translation>
    </message>
</context>
<context>
    <name>Reasons</name>
    <message>
        <source>line %1, %2</source>
        <translation>第 %1 行，%2</translation>
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
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>RunResult</name>
    <message>
        <source>, %1</source>
        <translation>，%1</translation>
    </message>
    <message>
        <source>1 line ignored</source>
        <translation>忽略 1 行</translation>
    </message>
    <message>
        <source>%1 lines ignored</source>
        <translation>忽略 %1 行</translation>
    </message>
    <message>
        <source>the arc was still on</source>
        <translation>电弧仍未熄灭</translation>
    </message>
    <message>
        <source>; </source>
        <translation>；</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>stopped by a fault</source>
        <translation>因故障停止</translation>
    </message>
    <message>
        <source>finished</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>1 fault: %1</source>
        <translation>1 个故障：%1</translation>
    </message>
    <message>
        <source>%1 faults, the first: %2</source>
        <translation>%1 个故障，首个：%2</translation>
    </message>
    <message>
        <source>simulated, no arc</source>
        <translation>仿真，无电弧</translation>
    </message>
    <message>
        <source>test run, no arc</source>
        <translation>试运行，无电弧</translation>
    </message>
    <message>
        <source>%1 of %2 seams, %3 of %4 mm</source>
        <translation>焊缝 %1/%2，%3/%4 mm</translation>
    </message>
</context>
<context>
    <name>WrittenLine</name>
    <message>
        <source>a name is missing; choose a point, or make one with "New point here"</source>
        <translation>缺少名称；请选择一个点，或用“在此新建点”创建</translation>
    </message>
    <message>
        <source>it holds a name that no line can hold</source>
        <translation>其中有程序行无法表示的名称</translation>
    </message>
</context>
<context>
    <name>kelp::TreeFile</name>
    <message>
        <source>%1: is not a JSON object</source>
        <translation>%1：不是 JSON 对象</translation>
    </message>
</context>
<context>
    <name>tessa::Host</name>
    <message>
        <source>%1: the data folder cannot be written</source>
        <translation>%1：数据文件夹不可写</translation>
    </message>
</context>
<context>
    <name>tessa::MessageLog</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>级别</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>From</source>
        <translation>来源</translation>
    </message>
</context>
<context>
    <name>tessa::ThemeManager</name>
    <message>
        <source>%1: is not a list of style rules</source>
        <translation>%1：不是样式规则列表</translation>
    </message>
    <message>
        <source>%1: unknown theme tokens: %2</source>
        <translation>%1：未知的主题标记：%2</translation>
    </message>
    <message>
        <source>%1: rule %2 has no selector</source>
        <translation>%1：规则 %2 没有选择器</translation>
    </message>
</context>
<context>
    <name>welmo::controller::StoreFile</name>
    <message>
        <source>cannot be opened (%1)</source>
        <translation>无法打开（%1）</translation>
    </message>
    <message>
        <source>cannot be written</source>
        <translation>无法写入</translation>
    </message>
    <message>
        <source>the folder cannot be created</source>
        <translation>无法创建文件夹</translation>
    </message>
    <message>
        <source>is in use by another program</source>
        <translation>正被其他程序使用</translation>
    </message>
    <message>
        <source>cannot be locked (%1)</source>
        <translation>无法锁定（%1）</translation>
    </message>
    <message>
        <source>is damaged (%1)</source>
        <translation>已损坏（%1）</translation>
    </message>
    <message>
        <source>cannot be set up (%1)</source>
        <translation>无法初始化（%1）</translation>
    </message>
    <message>
        <source>belongs to another program</source>
        <translation>属于其他程序</translation>
    </message>
    <message>
        <source>was written by a newer version (format %1, known is %2)</source>
        <translation>由更新的版本写入（格式 %1，已知格式 %2）</translation>
    </message>
    <message>
        <source>is a copy of a store in use, without what was written last: such a copy is made by controllerd backup</source>
        <translation>是使用中数据库的副本，缺少最后写入的内容：请用 controllerd backup 制作副本</translation>
    </message>
    <message>
        <source>holds nothing, as a copy does that was made of a store in use</source>
        <translation>没有内容，可能是使用中数据库的副本</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>为空</translation>
    </message>
    <message>
        <source>was written by an earlier version: start a controller on it once</source>
        <translation>由较早的版本写入：请先用控制器启动一次</translation>
    </message>
    <message>
        <source>is not a controller store (%1)</source>
        <translation>不是控制器数据库（%1）</translation>
    </message>
</context>
<context>
    <name>welmo::links::ControllerRunner</name>
    <message>
        <source>%1: the project data cannot be kept (%2)</source>
        <translation>%1：无法保存工程数据（%2）</translation>
    </message>
</context>
<context>
    <name>welmo::links::MqttSession</name>
    <message>
        <source>%1 keeps other data than before</source>
        <translation>%1 中的数据与之前不同</translation>
    </message>
    <message>
        <source>%1 was written by somebody else meanwhile</source>
        <translation>%1 期间已被他人写入</translation>
    </message>
    <message>
        <source>%1 was saved by %2 at %3</source>
        <translation>%1 已由 %2 于 %3 保存</translation>
    </message>
    <message>
        <source>nobody holds control: take it first</source>
        <translation>无人持有控制权，请先获取</translation>
    </message>
    <message>
        <source>%1 holds control</source>
        <translation>控制权由 %1 持有</translation>
    </message>
    <message>
        <source>%1 is not for the user %2</source>
        <translation>用户 %2 无权使用 %1</translation>
    </message>
    <message>
        <source>%1 does not answer: there is no such cell, or %2 may not reach it</source>
        <translation>%1 无应答：没有该单元，或 %2 无权访问</translation>
    </message>
</context>
<context>
    <name>welmo::links::TlsContext</name>
    <message>
        <source>%1: no certificates to trust</source>
        <translation>%1：没有可信证书</translation>
    </message>
    <message>
        <source>the broker's certificate has expired</source>
        <translation>代理服务器的证书已过期</translation>
    </message>
    <message>
        <source>the broker's certificate is for another host</source>
        <translation>代理服务器的证书属于其他主机</translation>
    </message>
    <message>
        <source>the broker's certificate is signed by nobody who is trusted</source>
        <translation>代理服务器的证书未由可信机构签发</translation>
    </message>
    <message>
        <source>the broker's certificate is refused: %1</source>
        <translation>代理服务器的证书被拒绝：%1</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::AlarmBanner</name>
    <message>
        <source>Show line</source>
        <translation>显示行</translation>
    </message>
    <message>
        <source>Acknowledge</source>
        <translation>确认</translation>
    </message>
    <message>
        <source>Link lost %1: the robot may still weld, use the emergency stop</source>
        <translation>%1 连接中断：机器人可能仍在焊接，请使用急停</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>%1, and %2 more</source>
        <translation>%1，另有 %2 条</translation>
    </message>
    <message>
        <source>Why?</source>
        <translation>为什么？</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::AlarmList</name>
    <message>
        <source>The controller did not take the acknowledgement (%1)</source>
        <translation>控制器未接受确认（%1）</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::AnswersPanel</name>
    <message>
        <source>How it answers</source>
        <translation>应答方式</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延迟</translation>
    </message>
    <message>
        <source>Request for</source>
        <translation>请求对象</translation>
    </message>
    <message>
        <source>Refusal</source>
        <translation>拒绝原因</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>Storage failed (%1)</source>
        <translation>存储失败（%1）</translation>
    </message>
    <message>
        <source>Wrong state (%1)</source>
        <translation>状态不符（%1）</translation>
    </message>
    <message>
        <source>Out of range (%1)</source>
        <translation>超出范围（%1）</translation>
    </message>
    <message>
        <source>Refuse one such</source>
        <translation>拒绝一次</translation>
    </message>
    <message>
        <source>Lose one answer</source>
        <translation>丢失一次应答</translation>
    </message>
    <message>
        <source>Refuse the next such request</source>
        <translation>拒绝下一次此类请求</translation>
    </message>
    <message>
        <source>Lose the next answer</source>
        <translation>丢弃下一次应答</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ArcCheckPage</name>
    <message>
        <source>Why is there no arc?</source>
        <translation>为什么没有电弧？</translation>
    </message>
    <message>
        <source>Go there</source>
        <translation>前往</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Nothing is in the way of an arc.</source>
        <translation>没有什么妨碍起弧。</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::Cell</name>
    <message>
        <source>Real mode: the next run strikes an arc</source>
        <translation>真实模式：下次运行将起弧</translation>
    </message>
    <message>
        <source>State unknown</source>
        <translation>状态未知</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>空闲</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>运行中</translation>
    </message>
    <message>
        <source>Welding</source>
        <translation>焊接中</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>Real welding</source>
        <translation>真实焊接</translation>
    </message>
    <message>
        <source>Simulation</source>
        <translation>仿真</translation>
    </message>
    <message>
        <source>Test run</source>
        <translation>试运行</translation>
    </message>
    <message>
        <source>The cell's switches could not be turned</source>
        <translation>无法切换单元开关</translation>
    </message>
    <message>
        <source>Gas flows</source>
        <translation>送气中</translation>
    </message>
    <message>
        <source>Gas off</source>
        <translation>气体关闭</translation>
    </message>
    <message>
        <source>Wire feeds</source>
        <translation>送丝中</translation>
    </message>
    <message>
        <source>Wire goes back</source>
        <translation>退丝中</translation>
    </message>
    <message>
        <source>Wire still</source>
        <translation>焊丝静止</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::CellPanel</name>
    <message>
        <source>The cell</source>
        <translation>单元</translation>
    </message>
    <message>
        <source>Operating mode</source>
        <translation>操作模式</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>手动</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>电源</translation>
    </message>
    <message>
        <source>Power off</source>
        <translation>断电</translation>
    </message>
    <message>
        <source>Power on</source>
        <translation>上电</translation>
    </message>
    <message>
        <source>User level</source>
        <translation>用户级别</translation>
    </message>
    <message>
        <source>Emergency stop pressed</source>
        <translation>急停已按下</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ControlPanel</name>
    <message>
        <source>Control</source>
        <translation>控制权</translation>
    </message>
    <message>
        <source>Take control</source>
        <translation>获取控制权</translation>
    </message>
    <message>
        <source>Give control back</source>
        <translation>交还控制权</translation>
    </message>
    <message>
        <source>Nobody knows while the link is down.</source>
        <translation>链接断开时无法得知。</translation>
    </message>
    <message>
        <source>This pendant holds control, as %1.</source>
        <translation>本示教器以 %1 的身份持有控制权。</translation>
    </message>
    <message>
        <source>Nobody holds control.</source>
        <translation>无人持有控制权。</translation>
    </message>
    <message>
        <source>%1 holds control. Stopping works from here too.</source>
        <translation>控制权由 %1 持有。此处仍可停止。</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ControllerPage</name>
    <message>
        <source>Controller</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>连接</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::FaultsPanel</name>
    <message>
        <source>What is broken</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>The controller cannot be reached</source>
        <translation>控制器无法访问</translation>
    </message>
    <message>
        <source>Its disk is full</source>
        <translation>控制器磁盘已满</translation>
    </message>
    <message>
        <source>The welder reports an error</source>
        <translation>焊机报错</translation>
    </message>
    <message>
        <source>There is no gas</source>
        <translation>没有保护气</translation>
    </message>
    <message>
        <source>Mend everything</source>
        <translation>全部恢复</translation>
    </message>
    <message>
        <source>The arc does not strike</source>
        <translation>无法起弧</translation>
    </message>
    <message>
        <source>The arc breaks off</source>
        <translation>断弧</translation>
    </message>
    <message>
        <source>The wire does not move</source>
        <translation>焊丝不动</translation>
    </message>
    <message>
        <source>The wire freezes at the end of a weld</source>
        <translation>收弧时粘丝</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::FileKeeper</name>
    <message>
        <source>New</source>
        <translation>新建</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>%1 was changed by somebody else since it was opened here.</source>
        <translation>%1 在此处打开后已被他人修改。</translation>
    </message>
    <message>
        <source>%1 saved</source>
        <translation>%1 已保存</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved.</source>
        <translation>%1 有未保存的更改。</translation>
    </message>
    <message>
        <source>Drop the changes</source>
        <translation>放弃更改</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::FilesPane</name>
    <message>
        <source>Elsewhere…</source>
        <translation>其他位置…</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Open a program</source>
        <translation>打开程序</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>示例</translation>
    </message>
    <message>
        <source>Save the program as</source>
        <translation>程序另存为</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>%1: no programs</source>
        <translation>%1：没有程序</translation>
    </message>
    <message>
        <source>There is a program %1 already.</source>
        <translation>程序 %1 已存在。</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Programs (*.tl);;All files (*)</source>
        <translation>程序 (*.tl);;所有文件 (*)</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::FormPane</name>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>a line</source>
        <translation>一行</translation>
    </message>
    <message>
        <source>Insert %1 as line %2</source>
        <translation>插入 %1 为第 %2 行</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>第 %1 行</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>the file holds bytes here that are no text</source>
        <translation>文件此处含有非文本字节</translation>
    </message>
    <message>
        <source>it holds more than the form shows</source>
        <translation>该行内容多于表单所显示的</translation>
    </message>
    <message>
        <source>the form shows other values</source>
        <translation>表单显示的值与该行不同</translation>
    </message>
    <message>
        <source>The form did not take over all of this line: %1.</source>
        <translation>表单未能完整读取此行：%1。</translation>
    </message>
    <message>
        <source>The form did not take over all of the old line: %1.</source>
        <translation>表单未能完整读取原来的行：%1。</translation>
    </message>
    <message>
        <source>The new line could not be read again: %1.</source>
        <translation>新的行无法再次读取：%1。</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>新：%1</translation>
    </message>
    <message>
        <source>Old: %1
New: %2</source>
        <translation>旧：%1
新：%2</translation>
    </message>
    <message>
        <source>Back to the form</source>
        <translation>返回表单</translation>
    </message>
    <message>
        <source>This line cannot be inserted: %1.</source>
        <translation>无法插入此行：%1。</translation>
    </message>
    <message>
        <source>Use the point's own</source>
        <translation>使用该点自己的</translation>
    </message>
    <message>
        <source>Insert and go on</source>
        <translation>插入并继续</translation>
    </message>
    <message>
        <source>a seam</source>
        <translation>一条焊缝</translation>
    </message>
    <message>
        <source>This form shows values of a file that are not saved.</source>
        <translation>此表单显示的文件数值尚未保存。</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Drop the changes</source>
        <translation>放弃更改</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::HeaderBar</name>
    <message>
        <source>Welding cell</source>
        <translation>焊接单元</translation>
    </message>
    <message>
        <source>State of the cell</source>
        <translation>单元状态</translation>
    </message>
    <message>
        <source>Link to the controller</source>
        <translation>与控制器的连接</translation>
    </message>
    <message>
        <source>Weld mode</source>
        <translation>焊接模式</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::HomePage</name>
    <message>
        <source>Home</source>
        <translation>主页</translation>
    </message>
    <message>
        <source>Arc welding on a robot pendant</source>
        <translation>机器人示教器上的弧焊</translation>
    </message>
    <message>
        <source>The pendant holds the welding package; the controller, the robot and the welder behind it are simulated. Everything here can be tried: nothing moves and no wire burns.</source>
        <translation>示教器中装有焊接工艺包，其后的控制器、机器人和焊机均为仿真。这里的一切都可以放心尝试：没有任何部件会运动，也不会消耗焊丝。</translation>
    </message>
    <message>
        <source>First steps</source>
        <translation>入门步骤</translation>
    </message>
    <message>
        <source>Open Arc Weld in the navigation, then Process Setting.</source>
        <translation>在导航栏中打开“弧焊”，再选择“工艺设置”。</translation>
    </message>
    <message>
        <source>Choose a file, such as arcondata3. One that is not there yet starts with the defaults.</source>
        <translation>选择一个文件，例如 arcondata3。尚不存在的文件将以默认值创建。</translation>
    </message>
    <message>
        <source>Change a value and save. It is still there when the pendant is started again.</source>
        <translation>修改一个值并保存。示教器重新启动后，该值仍然保留。</translation>
    </message>
    <message>
        <source>Switch the device on under Device Setting, then hold a key at the right edge, or F1 to F7: wire feeds until it is let go.</source>
        <translation>在“设备设置”中启用设备，然后按住右侧边缘的按键或 F1 至 F7：按住送丝键时送丝，松开即停。</translation>
    </message>
    <message>
        <source>Take the link down at the top right, or name a fault on the Controller page, and see what the pages tell.</source>
        <translation>在右上角断开连接，或在“控制器”页面设置一个故障，然后观察各页面的提示。</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>打开%1</translation>
    </message>
    <message>
        <source>Controller</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>Files are kept in</source>
        <translation>文件保存位置</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>The pages start anew: save first.</source>
        <translation>各页面将重新启动，请先保存。</translation>
    </message>
    <message>
        <source>Weld the example</source>
        <translation>焊接示例</translation>
    </message>
    <message>
        <source>Version %1, no licence chosen</source>
        <translation>版本 %1，未选择许可证</translation>
    </message>
    <message>
        <source>Why is there no arc?</source>
        <translation>为什么没有电弧？</translation>
    </message>
    <message>
        <source>It keeps the parameter files, at</source>
        <translation>参数文件保存在控制器中，位于</translation>
    </message>
    <message>
        <source>This pendant keeps its programs in</source>
        <translation>本示教器的程序保存在</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::LineForm</name>
    <message>
        <source>The line as text</source>
        <translation>行文本</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::LinesPane</name>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Other line</source>
        <translation>其他行</translation>
    </message>
    <message>
        <source>The program is empty: insert a line, or open a program.</source>
        <translation>程序为空：请插入一行，或打开一个程序。</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>未发现问题</translation>
    </message>
    <message>
        <source>1 finding</source>
        <translation>1 个问题</translation>
    </message>
    <message>
        <source>%1 findings</source>
        <translation>%1 个问题</translation>
    </message>
    <message>
        <source>Whole seam</source>
        <translation>整条焊缝</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::LinkControl</name>
    <message>
        <source>Link off</source>
        <translation>连接已断开</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>正在连接…</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::MessageModel</name>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>信息</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::MessagesPage</name>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>Touch a message to read it in full.</source>
        <translation>点按一条消息可查看全文。</translation>
    </message>
    <message>
        <source>%1
From: %2</source>
        <translation>%1
来源：%2</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::NavPanel</name>
    <message>
        <source>Pendant</source>
        <translation>示教器</translation>
    </message>
    <message>
        <source>Packages</source>
        <translation>工艺包</translation>
    </message>
    <message>
        <source>System</source>
        <translation>系统</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::NumberEntry</name>
    <message>
        <source>%1 is out of range: %2 to %3. It stays %4.</source>
        <translation>%1 超出范围：%2 至 %3。保持为 %4。</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::NumberPad</name>
    <message>
        <source>was %1, %2 to %3</source>
        <translation>原值 %1，范围 %2 至 %3</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>确认</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::PendantApp</name>
    <message>
        <source>Home</source>
        <translation>主页</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Controller</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>工艺包</translation>
    </message>
    <message>
        <source>%1: lacks the colours and fonts of a theme</source>
        <translation>%1：缺少主题所需的颜色和字体</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>The example runs: one bead of 400 mm, the arc in the monitor; Stop ends it</source>
        <translation>示例正在运行：一道 400 mm 焊缝，电弧见监控；按“停止”结束</translation>
    </message>
    <message>
        <source>Jog</source>
        <translation>点动</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::PendantWindow</name>
    <message>
        <source>Pendant</source>
        <translation>示教器</translation>
    </message>
    <message>
        <source>Why is there no arc?</source>
        <translation>为什么没有电弧？</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Jog %1 %   %2   %3</source>
        <translation>点动 %1 %   %2   %3</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::PluginErrorPage</name>
    <message>
        <source>The library could not be used</source>
        <translation>无法使用该库</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>库文件</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Build the package, or name another library with --module PATH, and start the pendant again.</source>
        <translation>请先构建工艺包，或用 --module PATH 指定其他库，然后重新启动示教器。</translation>
    </message>
    <message>
        <source>Package error</source>
        <translation>工艺包错误</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::PluginLoader</name>
    <message>
        <source>%1: is not a module</source>
        <translation>%1：不是模块</translation>
    </message>
    <message>
        <source>%1: there is no such file</source>
        <translation>%1：文件不存在</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ProblemsPanel</name>
    <message>
        <source>Needs attention</source>
        <translation>需要处理</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ProgramDocument</name>
    <message>
        <source>the change of line %1</source>
        <translation>修改第 %1 行</translation>
    </message>
    <message>
        <source>the insertion of line %1</source>
        <translation>插入第 %1 行</translation>
    </message>
    <message>
        <source>the removal of line %1</source>
        <translation>删除第 %1 行</translation>
    </message>
    <message>
        <source>the move of line %1</source>
        <translation>移动第 %1 行</translation>
    </message>
    <message>
        <source>New program</source>
        <translation>新程序</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ProgramPage</name>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source> (changed)</source>
        <translation>（已更改）</translation>
    </message>
    <message>
        <source>Program: %1</source>
        <translation>程序：%1</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>路径</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ProgramRun</name>
    <message>
        <source>No connection to the controller</source>
        <translation>未连接控制器</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Ready (%1)</source>
        <translation>就绪（%1）</translation>
    </message>
    <message>
        <source>%1 runs, line %2</source>
        <translation>%1 正在运行，第 %2 行</translation>
    </message>
    <message>
        <source>The controller did not start the program (%1)</source>
        <translation>控制器未启动程序（%1）</translation>
    </message>
    <message>
        <source>The controller did not take the program (%1)</source>
        <translation>控制器未接收程序（%1）</translation>
    </message>
    <message>
        <source>The controller did not pause the program (%1)</source>
        <translation>控制器未暂停程序（%1）</translation>
    </message>
    <message>
        <source>The controller did not stop the program (%1)</source>
        <translation>控制器未停止程序（%1）</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1 is paused at line %2</source>
        <translation>%1 暂停在第 %2 行</translation>
    </message>
    <message>
        <source>The controller made no step (%1)</source>
        <translation>控制器未执行单步（%1）</translation>
    </message>
    <message>
        <source>The controller did not weld again (%1)</source>
        <translation>控制器未执行补焊（%1）</translation>
    </message>
    <message>
        <source>Ready (%1: %2)</source>
        <translation>就绪（%1：%2）</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::RunBar</name>
    <message>
        <source>Run</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件检查</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::RunCheckPane</name>
    <message>
        <source>Run all the same</source>
        <translation>仍然运行</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>行</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Exists</source>
        <translation>存在</translation>
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
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>问题</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>no</source>
        <translation>否</translation>
    </message>
    <message>
        <source>no instruction and passed over; %1 may be meant</source>
        <translation>不是指令，将被跳过；可能是 %1</translation>
    </message>
    <message>
        <source>The program names no parameter file</source>
        <translation>程序没有引用参数文件</translation>
    </message>
    <message>
        <source>Before the run: nothing is wrong</source>
        <translation>运行前检查：没有问题</translation>
    </message>
    <message>
        <source>Before the run: 1 finding</source>
        <translation>运行前检查：1 个问题</translation>
    </message>
    <message>
        <source>Before the run: %1 findings</source>
        <translation>运行前检查：%1 个问题</translation>
    </message>
    <message>
        <source>lies in a seam whose ArcOn is line %1: without it there is no arc</source>
        <translation>位于焊缝中，该焊缝的 ArcOn 在第 %1 行：不经过它就没有电弧</translation>
    </message>
    <message>
        <source>Run from line %1</source>
        <translation>从第 %1 行运行</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::TextPad</name>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>确认</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::StepBar</name>
    <message>
        <source>Run from here</source>
        <translation>从此行运行</translation>
    </message>
    <message>
        <source>Step back</source>
        <translation>单步后退</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>单步</translation>
    </message>
    <message>
        <source>Within a seam there is no arc until the next ArcOn</source>
        <translation>在焊缝中间开始时，到下一个 ArcOn 之前不起弧</translation>
    </message>
    <message>
        <source>One line, without an arc</source>
        <translation>只执行一行，不起弧</translation>
    </message>
    <message>
        <source>Re-weld from %1 mm</source>
        <translation>从 %1 mm 处补焊</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::JogPage</name>
    <message>
        <source>Jog</source>
        <translation>点动</translation>
    </message>
    <message>
        <source>Hold to move</source>
        <translation>按住移动</translation>
    </message>
    <message>
        <source>Along the base's axes</source>
        <translation>沿基坐标系轴</translation>
    </message>
    <message>
        <source>Along the tool's axes</source>
        <translation>沿工具坐标系轴</translation>
    </message>
    <message>
        <source>Along the work object's axes</source>
        <translation>沿工件坐标系轴</translation>
    </message>
    <message>
        <source>Each joint by itself</source>
        <translation>单关节</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Jog speed %1 %</source>
        <translation>点动速度 %1 %</translation>
    </message>
    <message>
        <source>No connection to the controller</source>
        <translation>未连接控制器</translation>
    </message>
    <message>
        <source>The robot does not move: %1</source>
        <translation>机器人未移动：%1</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::PointsPanel</name>
    <message>
        <source>Points of the project</source>
        <translation>工程点位</translation>
    </message>
    <message>
        <source>Name of the point</source>
        <translation>点位名称</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Touch up</source>
        <translation>修正</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Is %1 to be where the robot is now?</source>
        <translation>要把 %1 改为机器人的当前位置吗？</translation>
    </message>
    <message>
        <source>Remove the point %1? Programs that name it will not run.</source>
        <translation>删除点位 %1 吗？引用它的程序将无法运行。</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>The project has no points.</source>
        <translation>工程中没有点位。</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::ProjectPoints</name>
    <message>
        <source>x %1, y %2, z %3 mm; a %4, b %5, c %6°; %7 in %8</source>
        <translation>x %1、y %2、z %3 mm；a %4、b %5、c %6°；工具 %7，工件 %8</translation>
    </message>
    <message>
        <source>A point's name has letters, digits and _, and starts with no digit</source>
        <translation>点位名称只能包含字母、数字和下划线，且不能以数字开头</translation>
    </message>
    <message>
        <source>There is a point %1 already</source>
        <translation>点位 %1 已存在</translation>
    </message>
    <message>
        <source>%1 is %2 now</source>
        <translation>%1 已改名为 %2</translation>
    </message>
    <message>
        <source>%1 removed</source>
        <translation>%1 已删除</translation>
    </message>
    <message>
        <source>%1 is where the robot is now</source>
        <translation>%1 已改为机器人的当前位置</translation>
    </message>
    <message>
        <source>%1 was not changed (%2)</source>
        <translation>%1 未更改（%2）</translation>
    </message>
    <message>
        <source>the controller's list or the robot does not allow it</source>
        <translation>控制器的列表或机器人不允许</translation>
    </message>
    <message>
        <source>%1 is a copy of %2</source>
        <translation>%1 是 %2 的副本</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::RobotState</name>
    <message>
        <source>The robot moves</source>
        <translation>机器人正在移动</translation>
    </message>
    <message>
        <source>The robot has arrived</source>
        <translation>机器人已到达</translation>
    </message>
    <message>
        <source>The robot does not move: %1</source>
        <translation>机器人未移动：%1</translation>
    </message>
    <message>
        <source>The robot was stopped</source>
        <translation>机器人已停止</translation>
    </message>
    <message>
        <source>The robot was stopped: %1</source>
        <translation>机器人已停止：%1</translation>
    </message>
    <message>
        <source>The robot moves to a point</source>
        <translation>机器人正移向点位</translation>
    </message>
    <message>
        <source>The robot moves by hand</source>
        <translation>机器人正在点动</translation>
    </message>
    <message>
        <source>A program has the robot</source>
        <translation>程序正在使用机器人</translation>
    </message>
    <message>
        <source>Nobody knows where the robot is</source>
        <translation>机器人位置未知</translation>
    </message>
    <message>
        <source>The robot stands still</source>
        <translation>机器人静止</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::PathView</name>
    <message>
        <source>The program's path</source>
        <translation>程序路径</translation>
    </message>
    <message>
        <source>The program moves nowhere.</source>
        <translation>程序没有移动。</translation>
    </message>
    <message>
        <source>From above</source>
        <translation>俯视</translation>
    </message>
    <message>
        <source>From the side</source>
        <translation>侧视</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::PathPane</name>
    <message>
        <source>Expected: %1 min, arc %2 min, seams %3 mm, wire %4 m</source>
        <translation>预计：%1 分，燃弧 %2 分，焊缝 %3 mm，焊丝 %4 m</translation>
    </message>
    <message>
        <source>dashed: without an arc</source>
        <translation>虚线：不起弧</translation>
    </message>
    <message>
        <source>%1; without what cannot be carried out: line %2</source>
        <translation>%1；不含无法执行的第 %2 行</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::SeamForm</name>
    <message>
        <source>From</source>
        <translation>起点</translation>
    </message>
    <message>
        <source>To</source>
        <translation>终点</translation>
    </message>
    <message>
        <source>Speed of the bead</source>
        <translation>焊接速度</translation>
    </message>
    <message>
        <source>Arc-start file</source>
        <translation>起弧文件</translation>
    </message>
    <message>
        <source>Welding file</source>
        <translation>焊接文件</translation>
    </message>
    <message>
        <source>Arc-end file</source>
        <translation>收弧文件</translation>
    </message>
    <message>
        <source>Way in and out</source>
        <translation>进退距离</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::LockLine</name>
    <message>
        <source>The cell has a fault: values can be read, not changed</source>
        <translation>工作站有故障：数值可以查看，不能更改</translation>
    </message>
    <message>
        <source>Automatic mode: values can be read, not changed</source>
        <translation>自动模式：数值可以查看，不能更改</translation>
    </message>
    <message>
        <source>The power is off: values can be read, not changed</source>
        <translation>未上电：数值可以查看，不能更改</translation>
    </message>
    <message>
        <source>A viewer can read values, not change them</source>
        <translation>查看者可以查看数值，不能更改</translation>
    </message>
</context>
<context>
    <name>welmo::pendant::DialogShade</name>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>Senders</name>
    <message>
        <source>Device Setting</source>
        <translation>设备设置</translation>
    </message>
    <message>
        <source>Process Setting</source>
        <translation>工艺设置</translation>
    </message>
    <message>
        <source>Weave Function</source>
        <translation>摆弧功能</translation>
    </message>
    <message>
        <source>Welding Options</source>
        <translation>焊接选项</translation>
    </message>
    <message>
        <source>Weld Book</source>
        <translation>焊接记录</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>点位</translation>
    </message>
    <message>
        <source>Robot</source>
        <translation>机器人</translation>
    </message>
    <message>
        <source>Jog</source>
        <translation>点动</translation>
    </message>
    <message>
        <source>Cell</source>
        <translation>单元</translation>
    </message>
    <message>
        <source>Controller</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>Arc Weld</source>
        <translation>弧焊</translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation>监控</translation>
    </message>
</context>
</TS>
