<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>WeldBook</name>
    <message>
        <source>Weld Book</source>
        <translation>焊接记录</translation>
    </message>
</context>
<context>
    <name>welmo::book::BackupFile</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>无法读取 %1</translation>
    </message>
    <message>
        <source>was written by a newer version (format %1, known is %2)</source>
        <translation>由更新的版本写入（格式 %1，已知 %2）</translation>
    </message>
    <message>
        <source>is damaged, or no backup</source>
        <translation>已损坏，或不是备份文件</translation>
    </message>
</context>
<context>
    <name>welmo::book::BackupPage</name>
    <message>
        <source>Take one of another cell, too</source>
        <translation>也接受其他单元的备份</translation>
    </message>
    <message>
        <source>Restore what is ticked</source>
        <translation>恢复勾选项</translation>
    </message>
    <message>
        <source>Make a backup</source>
        <translation>创建备份</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>See what differs</source>
        <translation>查看差异</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>备份</translation>
    </message>
    <message>
        <source>Tick all</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Tick none</source>
        <translation>全不选</translation>
    </message>
    <message>
        <source>backup written: %1</source>
        <translation>备份已写入：%1</translation>
    </message>
    <message>
        <source>%1 is of another cell</source>
        <translation>%1 属于其他单元</translation>
    </message>
    <message>
        <source>Written %1. %2 places differ.</source>
        <translation>写于 %1。%2 处不同。</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Now → in the backup</source>
        <translation>当前 → 备份</translation>
    </message>
    <message>
        <source>nothing is ticked</source>
        <translation>未勾选任何项</translation>
    </message>
    <message>
        <source>%1 restored</source>
        <translation>%1 已恢复</translation>
    </message>
    <message>
        <source>A backup holds all files and their releases, options, points, tools and limits.</source>
        <translation>备份包含全部文件及其发布、选项、点、工具和限值。</translation>
    </message>
    <message>
        <source>Choose a backup, and see what differs from it in the cell.</source>
        <translation>请选择一个备份，查看其与单元的差异。</translation>
    </message>
    <message>
        <source>There is no backup in this folder yet.</source>
        <translation>此文件夹中尚无备份。</translation>
    </message>
    <message>
        <source>Nothing differs: the cell is as it was in this backup.</source>
        <translation>没有差异：单元与此备份一致。</translation>
    </message>
</context>
<context>
    <name>welmo::book::BookPage</name>
    <message>
        <source>Weld Book</source>
        <translation>焊接记录</translation>
    </message>
    <message>
        <source>Welds</source>
        <translation>焊缝</translation>
    </message>
    <message>
        <source>Trend</source>
        <translation>趋势</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>备份</translation>
    </message>
</context>
<context>
    <name>welmo::book::Bookkeeper</name>
    <message>
        <source>current</source>
        <translation>电流</translation>
    </message>
    <message>
        <source>voltage</source>
        <translation>电压</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>heat input</source>
        <translation>热输入</translation>
    </message>
    <message>
        <source>%1 samples of the last seam were dropped, the disk is too slow</source>
        <translation>上一条焊缝丢失了 %1 个采样，磁盘过慢</translation>
    </message>
    <message>
        <source>%1 records were closed as interrupted: the recorder had ended</source>
        <translation>%1 条记录按中断结束：记录程序曾退出</translation>
    </message>
    <message>
        <source>weld book: %1</source>
        <translation>焊接记录：%1</translation>
    </message>
    <message>
        <source>%1 line %2, %3</source>
        <translation>%1 第 %2 行，%3</translation>
    </message>
    <message>
        <source>%1: %2 %3 %4 is outside its limits</source>
        <translation>%1：%2 %3 %4 超出限值</translation>
    </message>
    <message>
        <source>%1; this controller lets it pass</source>
        <translation>%1；此控制器未予拒绝</translation>
    </message>
</context>
<context>
    <name>welmo::book::CellWriter</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>无法读取 %1</translation>
    </message>
    <message>
        <source>; what was written before could not be put back (%1)</source>
        <translation>；此前写入的内容无法恢复（%1）</translation>
    </message>
    <message>
        <source>%1 was changed since, so it is left as it is</source>
        <translation>%1 此后已被修改，保持不变</translation>
    </message>
</context>
<context>
    <name>welmo::book::Database</name>
    <message>
        <source>there is no such file</source>
        <translation>没有此文件</translation>
    </message>
    <message>
        <source>Qt&apos;s driver %1 is not installed</source>
        <translation>未安装Qt驱动程序%1</translation>
    </message>
    <message>
        <source>the folder cannot be created</source>
        <translation>无法创建文件夹</translation>
    </message>
    <message>
        <source>cannot be opened (%1)</source>
        <translation>无法打开（%1）</translation>
    </message>
    <message>
        <source>is damaged or no such database (%1)</source>
        <translation>已损坏或不是此类数据库（%1）</translation>
    </message>
    <message>
        <source>belongs to another program</source>
        <translation>属于另一个程序</translation>
    </message>
    <message>
        <source>was written by a newer version (format %1, known is %2)</source>
        <translation>由更新的版本写入（格式 %1，已知 %2）</translation>
    </message>
    <message>
        <source>cannot be written (%1)</source>
        <translation>无法写入（%1）</translation>
    </message>
</context>
<context>
    <name>welmo::book::FieldWords</name>
    <message>
        <source>Annotation</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Work mode</source>
        <translation>工作模式</translation>
    </message>
    <message>
        <source>Current mode</source>
        <translation>电流模式</translation>
    </message>
    <message>
        <source>Voltage mode</source>
        <translation>电压模式</translation>
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
        <source>Hold time</source>
        <translation>保持时间</translation>
    </message>
    <message>
        <source>Detection time</source>
        <translation>检测时间</translation>
    </message>
    <message>
        <source>Confirmation time</source>
        <translation>确认时间</translation>
    </message>
    <message>
        <source>Gas pre-flow time</source>
        <translation>提前送气时间</translation>
    </message>
    <message>
        <source>Pre-arc time</source>
        <translation>预起弧时间</translation>
    </message>
    <message>
        <source>Slow wire feed</source>
        <translation>慢送丝速度</translation>
    </message>
    <message>
        <source>Early wire feed</source>
        <translation>提前送丝时间</translation>
    </message>
    <message>
        <source>Ramp time</source>
        <translation>渐变时间</translation>
    </message>
    <message>
        <source>Strike again</source>
        <translation>再起弧</translation>
    </message>
    <message>
        <source>Strike again: attempts</source>
        <translation>再起弧：次数</translation>
    </message>
    <message>
        <source>Strike again: retract delay</source>
        <translation>再起弧：回抽延时</translation>
    </message>
    <message>
        <source>Strike again: retract time</source>
        <translation>再起弧：回抽时间</translation>
    </message>
    <message>
        <source>Strike again: current step</source>
        <translation>再起弧：电流增量</translation>
    </message>
    <message>
        <source>Strike again: voltage step</source>
        <translation>再起弧：电压增量</translation>
    </message>
    <message>
        <source>Scratch on failure</source>
        <translation>失败后刮擦</translation>
    </message>
    <message>
        <source>Scratch start</source>
        <translation>刮擦起弧</translation>
    </message>
    <message>
        <source>Scratch start: distance</source>
        <translation>刮擦起弧：距离</translation>
    </message>
    <message>
        <source>Scratch start: way back</source>
        <translation>刮擦起弧：返回速度</translation>
    </message>
    <message>
        <source>Scratch start: step</source>
        <translation>刮擦起弧：步长</translation>
    </message>
    <message>
        <source>Scratch start: offset</source>
        <translation>刮擦起弧：偏移</translation>
    </message>
    <message>
        <source>Welding speed</source>
        <translation>焊接速度</translation>
    </message>
    <message>
        <source>Arc break: detection time</source>
        <translation>断弧：检测时间</translation>
    </message>
    <message>
        <source>Arc break: what follows</source>
        <translation>断弧：处理方式</translation>
    </message>
    <message>
        <source>Arc break: way back</source>
        <translation>断弧：回退距离</translation>
    </message>
    <message>
        <source>Gas post-flow time</source>
        <translation>滞后停气时间</translation>
    </message>
    <message>
        <source>Retract time</source>
        <translation>回抽时间</translation>
    </message>
    <message>
        <source>Stuck wire: detection time</source>
        <translation>粘丝：检测时间</translation>
    </message>
    <message>
        <source>Weaving by</source>
        <translation>摆动基准</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>摆动形状</translation>
    </message>
    <message>
        <source>Weave length or frequency</source>
        <translation>摆动长度或频率</translation>
    </message>
    <message>
        <source>Amplitude, left</source>
        <translation>左摆幅</translation>
    </message>
    <message>
        <source>Amplitude, right</source>
        <translation>右摆幅</translation>
    </message>
    <message>
        <source>Dwell type</source>
        <translation>停留方式</translation>
    </message>
    <message>
        <source>Dwell</source>
        <translation>停留</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Direction of the waveform</source>
        <translation>波形方向</translation>
    </message>
    <message>
        <source>Elevation type</source>
        <translation>仰角类型</translation>
    </message>
    <message>
        <source>Elevation, left</source>
        <translation>左仰角</translation>
    </message>
    <message>
        <source>Elevation, right</source>
        <translation>右仰角</translation>
    </message>
    <message>
        <source>Inclination</source>
        <translation>倾角</translation>
    </message>
    <message>
        <source>Segment type</source>
        <translation>分段类型</translation>
    </message>
    <message>
        <source>Speed between welds</source>
        <translation>空走速度</translation>
    </message>
    <message>
        <source>Welded distance</source>
        <translation>焊接距离</translation>
    </message>
    <message>
        <source>Distance between welds</source>
        <translation>空走距离</translation>
    </message>
    <message>
        <source>Arc start</source>
        <translation>起弧</translation>
    </message>
    <message>
        <source>Welding</source>
        <translation>焊接</translation>
    </message>
    <message>
        <source>Arc end</source>
        <translation>收弧</translation>
    </message>
    <message>
        <source>Weaving</source>
        <translation>摆动</translation>
    </message>
    <message>
        <source>Segments</source>
        <translation>分段</translation>
    </message>
    <message>
        <source>Anti-stick</source>
        <translation>防粘丝</translation>
    </message>
    <message>
        <source>Anti-stick: current</source>
        <translation>防粘丝：电流</translation>
    </message>
    <message>
        <source>Anti-stick: voltage</source>
        <translation>防粘丝：电压</translation>
    </message>
    <message>
        <source>Anti-stick: time</source>
        <translation>防粘丝：时间</translation>
    </message>
    <message>
        <source>Running parameters</source>
        <translation>运行参数</translation>
    </message>
    <message>
        <source>Anti-collision</source>
        <translation>防碰撞</translation>
    </message>
    <message>
        <source>Wire-clamping torch</source>
        <translation>夹丝焊枪</translation>
    </message>
    <message>
        <source>Tool and work object</source>
        <translation>工具与工件</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>Work objects</source>
        <translation>工件坐标系</translation>
    </message>
    <message>
        <source>User frames</source>
        <translation>用户坐标系</translation>
    </message>
    <message>
        <source>Limits of %1</source>
        <translation>%1 的限值</translation>
    </message>
    <message>
        <source>is not there</source>
        <translation>不存在</translation>
    </message>
    <message>
        <source>%1 items differ</source>
        <translation>%1 项不同</translation>
    </message>
    <message>
        <source>%1 values differ</source>
        <translation>%1 个参数不同</translation>
    </message>
    <message>
        <source>Variables</source>
        <translation>变量</translation>
    </message>
    <message>
        <source>Release of %1</source>
        <translation>%1 的发布</translation>
    </message>
</context>
<context>
    <name>welmo::book::FileCard</name>
    <message>
        <source>Compare with</source>
        <translation>比较对象</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>When</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>By</source>
        <translation>用户</translation>
    </message>
    <message>
        <source>What changed</source>
        <translation>修改内容</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>已删除</translation>
    </message>
    <message>
        <source>made again</source>
        <translation>重新创建</translation>
    </message>
    <message>
        <source>as found</source>
        <translation>初次记录</translation>
    </message>
    <message>
        <source>the version before</source>
        <translation>上一版本</translation>
    </message>
    <message>
        <source>the file as it is now</source>
        <translation>当前文件</translation>
    </message>
    <message>
        <source>version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>now</source>
        <translation>当前</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>nothing to compare</source>
        <translation>无可比较</translation>
    </message>
    <message>
        <source>no difference</source>
        <translation>无差异</translation>
    </message>
    <message>
        <source>Not released</source>
        <translation>未发布</translation>
    </message>
    <message>
        <source>A version that the book does not have, %1</source>
        <translation>焊接记录中没有的版本，%1</translation>
    </message>
    <message>
        <source>Version %1, %2</source>
        <translation>版本 %1，%2</translation>
    </message>
</context>
<context>
    <name>welmo::book::FileModel</name>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>主要参数</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>修改时间</translation>
    </message>
    <message>
        <source>By</source>
        <translation>用户</translation>
    </message>
    <message>
        <source>In programs</source>
        <translation>所在程序</translation>
    </message>
    <message>
        <source>Welds</source>
        <translation>焊缝数</translation>
    </message>
</context>
<context>
    <name>welmo::book::FilesPage</name>
    <message>
        <source>All sets</source>
        <translation>全部类型</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>全部文件</translation>
    </message>
    <message>
        <source>Used by programs</source>
        <translation>程序使用中</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>未使用</translation>
    </message>
    <message>
        <source>Copy to</source>
        <translation>复制到</translation>
    </message>
    <message>
        <source>Defaults</source>
        <translation>默认值</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 个文件</translation>
    </message>
    <message>
        <source>%1 cannot be copied to itself</source>
        <translation>%1 不能复制到自身</translation>
    </message>
    <message>
        <source>%1 copied to %2</source>
        <translation>%1 已复制到 %2</translation>
    </message>
    <message>
        <source>%1 back to version %2</source>
        <translation>%1 已恢复到版本 %2</translation>
    </message>
    <message>
        <source>%1 set to the defaults</source>
        <translation>%1 已恢复默认值</translation>
    </message>
    <message>
        <source>%1 stays, programs use it: %2</source>
        <translation>%1 未删除，程序正在使用：%2</translation>
    </message>
    <message>
        <source>%1 removed</source>
        <translation>%1 已删除</translation>
    </message>
    <message>
        <source>taken back: %1</source>
        <translation>已撤销：%1</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>发布</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>恢复</translation>
    </message>
</context>
<context>
    <name>welmo::book::LimitsPanel</name>
    <message>
        <source>at least</source>
        <translation>下限</translation>
    </message>
    <message>
        <source>at most</source>
        <translation>上限</translation>
    </message>
    <message>
        <source>The end that is not judged delays the alarm by as much.</source>
        <translation>结尾不判定的时间会使报警延迟同样的时间。</translation>
    </message>
    <message>
        <source>Not judged at start and end</source>
        <translation>起始和结尾不判定</translation>
    </message>
    <message>
        <source>Learn from good welds</source>
        <translation>从合格焊缝学习</translation>
    </message>
    <message>
        <source>No limits</source>
        <translation>不设限值</translation>
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
        <source>Limits of %1</source>
        <translation>%1 的限值</translation>
    </message>
    <message>
        <source>Learnt from %1 welds.</source>
        <translation>从 %1 条焊缝学得。</translation>
    </message>
    <message>
        <source>Set by hand.</source>
        <translation>手动设定。</translation>
    </message>
    <message>
        <source>This file has no limits.</source>
        <translation>此文件没有限值。</translation>
    </message>
    <message>
        <source>There are %1 good welds with this file; it takes at least %2.</source>
        <translation>此文件有 %1 条合格焊缝；至少需要 %2 条。</translation>
    </message>
    <message>
        <source>From %1 good welds: mean ± 3 σ. Nothing is in force before it is saved.</source>
        <translation>来自 %1 条合格焊缝：平均值 ± 3 σ。保存后才生效。</translation>
    </message>
    <message>
        <source>%1: the lower limit is above the upper one.</source>
        <translation>%1：下限高于上限。</translation>
    </message>
    <message>
        <source>Thermal efficiency, of every file</source>
        <translation>热效率（所有文件）</translation>
    </message>
</context>
<context>
    <name>welmo::book::ReleasePanel</name>
    <message>
        <source>%1 ± %2 %</source>
        <translation>%1 ± %2 %</translation>
    </message>
    <message>
        <source>%1 locked</source>
        <translation>%1锁定</translation>
    </message>
    <message>
        <source>all locked</source>
        <translation>全部锁定</translation>
    </message>
    <message>
        <source>released %1 by %2: %3</source>
        <translation>由 %2 于 %1 发布：%3</translation>
    </message>
    <message>
        <source>, </source>
        <translation>，</translation>
    </message>
    <message>
        <source>Release the file as it is now</source>
        <translation>按当前内容发布</translation>
    </message>
    <message>
        <source>at most</source>
        <translation>最多</translation>
    </message>
    <message>
        <source>an operator may set</source>
        <translation>操作员可设</translation>
    </message>
    <message>
        <source>0 locks a value. All other values of a released file are locked for operators; programmers and administrators are not bound.</source>
        <translation>0 表示锁定。已发布文件的其他值对操作员全部锁定；编程员和管理员不受限制。</translation>
    </message>
    <message>
        <source>Withdraw</source>
        <translation>撤销发布</translation>
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
        <source>What an operator may change in %1</source>
        <translation>操作员可在 %1 中更改的内容</translation>
    </message>
    <message>
        <source>Changed since: %1</source>
        <translation>此后的更改：%1</translation>
    </message>
    <message>
        <source>not released: an operator may change everything</source>
        <translation>未发布：操作员可更改全部内容</translation>
    </message>
    <message>
        <source>%1. This controller does not refuse anything: the weld book warns in the message log after a change that goes too far.</source>
        <translation>%1。此控制器不拒绝任何更改：超限更改后，焊接记录会在消息日志中发出警告。</translation>
    </message>
    <message>
        <source>%1 is released</source>
        <translation>%1 已发布</translation>
    </message>
    <message>
        <source>%1 is no longer released</source>
        <translation>%1 已不再发布</translation>
    </message>
</context>
<context>
    <name>welmo::book::Releases</name>
    <message>
        <source>%1 released</source>
        <translation>%1 已发布</translation>
    </message>
    <message>
        <source>%1: release withdrawn</source>
        <translation>%1：发布已撤销</translation>
    </message>
</context>
<context>
    <name>welmo::book::Restorer</name>
    <message>
        <source>a restore that was cut off was taken back</source>
        <translation>中断的恢复已撤回</translation>
    </message>
    <message>
        <source>a restore that was cut off could not be taken back: %1</source>
        <translation>中断的恢复无法撤回：%1</translation>
    </message>
</context>
<context>
    <name>welmo::book::SeamCard</name>
    <message>
        <source>set</source>
        <translation>设定</translation>
    </message>
    <message>
        <source>mean</source>
        <translation>平均</translation>
    </message>
    <message>
        <source>min … max</source>
        <translation>最小 … 最大</translation>
    </message>
    <message>
        <source>Current, A</source>
        <translation>电流，A</translation>
    </message>
    <message>
        <source>Voltage, V</source>
        <translation>电压，V</translation>
    </message>
    <message>
        <source>Speed, mm/s</source>
        <translation>速度，mm/s</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1，第 %2 行</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Welding</source>
        <translation>焊接</translation>
    </message>
    <message>
        <source>Arc start</source>
        <translation>起弧</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>模式</translation>
    </message>
    <message>
        <source>Arc end</source>
        <translation>收弧</translation>
    </message>
    <message>
        <source>User</source>
        <translation>用户</translation>
    </message>
    <message>
        <source>Arc time</source>
        <translation>燃弧时间</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>Gas time</source>
        <translation>送气时间</translation>
    </message>
    <message>
        <source>Wire</source>
        <translation>焊丝</translation>
    </message>
    <message>
        <source>Arc energy</source>
        <translation>电弧能量</translation>
    </message>
    <message>
        <source>Struck again</source>
        <translation>再引弧</translation>
    </message>
    <message>
        <source>Heat input</source>
        <translation>热输入</translation>
    </message>
    <message>
        <source>Touch a weld to see its record.</source>
        <translation>点按焊缝查看其记录。</translation>
    </message>
    <message>
        <source>%1, trimmed %2×</source>
        <translation>%1，已微调 %2 次</translation>
    </message>
</context>
<context>
    <name>welmo::book::SeamModel</name>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
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
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>kJ/mm</source>
        <translation>kJ/mm</translation>
    </message>
</context>
<context>
    <name>welmo::book::TrendPage</name>
    <message>
        <source>%1, line %2</source>
        <translation>%1，第 %2 行</translation>
    </message>
    <message>
        <source>No weld is running.</source>
        <translation>当前没有焊接。</translation>
    </message>
    <message>
        <source>No weld is running; the last minute of arc:</source>
        <translation>当前没有焊接；最近一分钟的电弧：</translation>
    </message>
</context>
<context>
    <name>welmo::book::WeldsPage</name>
    <message>
        <source>Today</source>
        <translation>今天</translation>
    </message>
    <message>
        <source>Since yesterday</source>
        <translation>昨天起</translation>
    </message>
    <message>
        <source>7 days</source>
        <translation>7 天</translation>
    </message>
    <message>
        <source>All days</source>
        <translation>所有日期</translation>
    </message>
    <message>
        <source>All verdicts</source>
        <translation>所有判定</translation>
    </message>
    <message>
        <source>All programs</source>
        <translation>所有程序</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>Lay another over it</source>
        <translation>叠加另一条</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>限值</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>over it: %1</source>
        <translation>叠加：%1</translation>
    </message>
    <message>
        <source>Touch the other weld</source>
        <translation>请点按另一条焊缝</translation>
    </message>
    <message>
        <source>%1 welds</source>
        <translation>%1 条焊缝</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>This list as CSV</source>
        <translation>列表导出为 CSV</translation>
    </message>
    <message>
        <source>This list as JSON, with courses</source>
        <translation>列表导出为 JSON（含曲线）</translation>
    </message>
    <message>
        <source>This weld as PDF</source>
        <translation>此焊缝导出为 PDF</translation>
    </message>
    <message>
        <source>Its day as PDF</source>
        <translation>当日焊缝导出为 PDF</translation>
    </message>
    <message>
        <source>written: %1</source>
        <translation>已写入：%1</translation>
    </message>
    <message>
        <source>%1 was not written: %2</source>
        <translation>%1 未写入：%2</translation>
    </message>
    <message>
        <source>1 weld</source>
        <translation>1 条焊缝</translation>
    </message>
</context>
<context>
    <name>welmo::book::Words</name>
    <message>
        <source>Good</source>
        <translation>合格</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>注意</translation>
    </message>
    <message>
        <source>Bad</source>
        <translation>不合格</translation>
    </message>
    <message>
        <source>Not judged</source>
        <translation>未判定</translation>
    </message>
    <message>
        <source>running</source>
        <translation>进行中</translation>
    </message>
    <message>
        <source>as programmed</source>
        <translation>按程序</translation>
    </message>
    <message>
        <source>stopped before its end</source>
        <translation>提前停止</translation>
    </message>
    <message>
        <source>by an alarm</source>
        <translation>因报警</translation>
    </message>
    <message>
        <source>link lost, the rest is unknown</source>
        <translation>连接中断，其余未知</translation>
    </message>
    <message>
        <source>recording was interrupted</source>
        <translation>记录被中断</translation>
    </message>
    <message>
        <source>welding</source>
        <translation>焊接</translation>
    </message>
    <message>
        <source>simulation</source>
        <translation>模拟</translation>
    </message>
    <message>
        <source>test run</source>
        <translation>试运行</translation>
    </message>
    <message>
        <source>alarm</source>
        <translation>报警</translation>
    </message>
    <message>
        <source>near its limits</source>
        <translation>接近限值</translation>
    </message>
    <message>
        <source>arc struck again</source>
        <translation>再次引弧</translation>
    </message>
    <message>
        <source>interrupted arc</source>
        <translation>电弧中断</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>not recorded to its end</source>
        <translation>未完整记录</translation>
    </message>
    <message>
        <source>%1 outside its limits</source>
        <translation>%1超出限值</translation>
    </message>
    <message>
        <source>, </source>
        <translation>，</translation>
    </message>
    <message>
        <source>not told</source>
        <translation>未告知</translation>
    </message>
    <message>
        <source>viewer</source>
        <translation>访客</translation>
    </message>
    <message>
        <source>operator</source>
        <translation>操作员</translation>
    </message>
    <message>
        <source>programmer</source>
        <translation>编程员</translation>
    </message>
    <message>
        <source>administrator</source>
        <translation>管理员</translation>
    </message>
</context>
</TS>
