<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>ProgramCheck</name>
    <message>
        <source>no file %1 in the project</source>
        <translation>项目中没有文件 %1</translation>
    </message>
    <message>
        <source>no point %1 in the project</source>
        <translation>项目中没有点 %1</translation>
    </message>
    <message>
        <source>%1 is read as %2</source>
        <translation>%1 被读作 %2</translation>
    </message>
    <message>
        <source>ArcOn without ArcOff</source>
        <translation>ArcOn 没有对应的 ArcOff</translation>
    </message>
    <message>
        <source>ArcOff without ArcOn</source>
        <translation>ArcOff 没有对应的 ArcOn</translation>
    </message>
    <message>
        <source>WeaveOn without WeaveOff</source>
        <translation>WeaveOn 没有对应的 WeaveOff</translation>
    </message>
    <message>
        <source>WeaveOff without WeaveOn</source>
        <translation>WeaveOff 没有对应的 WeaveOn</translation>
    </message>
    <message>
        <source>no speed %1 in the project</source>
        <translation>项目中没有速度 %1</translation>
    </message>
    <message>
        <source>no zone %1 in the project</source>
        <translation>项目中没有转弯区 %1</translation>
    </message>
    <message>
        <source>no tool %1 in the project</source>
        <translation>项目中没有工具 %1</translation>
    </message>
    <message>
        <source>no work object %1 in the project</source>
        <translation>项目中没有工件 %1</translation>
    </message>
    <message>
        <source>a weld move outside ArcOn and ArcOff welds nothing</source>
        <translation>ArcOn 与 ArcOff 之外的焊接运动不会焊接</translation>
    </message>
    <message>
        <source>no weld move follows before the weaving ends</source>
        <translation>摆弧结束前没有焊接运动</translation>
    </message>
    <message>
        <source>%1 is no instruction; %2 may be meant</source>
        <translation>%1 不是指令；可能是 %2</translation>
    </message>
    <message>
        <source>%1 is not carried out</source>
        <translation>%1 不会执行</translation>
    </message>
    <message>
        <source>%1 was taught in %2; the line uses %3</source>
        <translation>%1 在 %2 中示教；本行使用 %3</translation>
    </message>
    <message>
        <source>%1 was taught with %2; the line uses %3</source>
        <translation>%1 以 %2 示教；本行使用 %3</translation>
    </message>
    <message>
        <source>the auxiliary point and the target are the same</source>
        <translation>辅助点与目标点相同</translation>
    </message>
    <message>
        <source>the line reads %1</source>
        <translation>格式为 %1</translation>
    </message>
    <message>
        <source>%1: files are %2 to %3</source>
        <translation>%1：文件为 %2 至 %3</translation>
    </message>
    <message>
        <source>%1: a file&apos;s name stands in quotes</source>
        <translation>%1：文件名须加双引号</translation>
    </message>
    <message>
        <source>%1 is no time in seconds</source>
        <translation>%1 不是以秒为单位的时间</translation>
    </message>
    <message>
        <source>%1: the shortest time is %2 s</source>
        <translation>%1：最短时间为 %2 s</translation>
    </message>
    <message>
        <source>nothing can have the name %1</source>
        <translation>%1 不能作为名称</translation>
    </message>
</context>
<context>
    <name>ProgramLine</name>
    <message>
        <source>arcon tl command format error</source>
        <translation>arcon 指令格式错误</translation>
    </message>
    <message>
        <source>arcoff tl command format error</source>
        <translation>arcoff 指令格式错误</translation>
    </message>
    <message>
        <source>wmovel tl command format error</source>
        <translation>wmovel 指令格式错误</translation>
    </message>
    <message>
        <source>wmovec tl command format error</source>
        <translation>wmovec 指令格式错误</translation>
    </message>
    <message>
        <source>weaveon tl command format error</source>
        <translation>weaveon 指令格式错误</translation>
    </message>
    <message>
        <source>weaveoff tl command format error</source>
        <translation>weaveoff 指令格式错误</translation>
    </message>
    <message>
        <source>feedonwire tl command format error</source>
        <translation>feedonwire 指令格式错误</translation>
    </message>
    <message>
        <source>feedbackwire tl command format error</source>
        <translation>feedbackwire 指令格式错误</translation>
    </message>
    <message>
        <source>detectgas tl command format error</source>
        <translation>detectgas 指令格式错误</translation>
    </message>
    <message>
        <source>segon tl command format error</source>
        <translation>segon 指令格式错误</translation>
    </message>
    <message>
        <source>segoff tl command format error</source>
        <translation>segoff 指令格式错误</translation>
    </message>
    <message>
        <source>arcondata format error</source>
        <translation>起弧数据格式错误</translation>
    </message>
    <message>
        <source>arcdata format error</source>
        <translation>焊接数据格式错误</translation>
    </message>
    <message>
        <source>arcoffdata format error</source>
        <translation>收弧数据格式错误</translation>
    </message>
    <message>
        <source>weavedata format error</source>
        <translation>摆弧数据格式错误</translation>
    </message>
    <message>
        <source>segdata format error</source>
        <translation>分段数据格式错误</translation>
    </message>
    <message>
        <source>speed format error</source>
        <translation>速度格式错误</translation>
    </message>
    <message>
        <source>zone format error</source>
        <translation>转弯区格式错误</translation>
    </message>
    <message>
        <source>tool format error</source>
        <translation>工具格式错误</translation>
    </message>
    <message>
        <source>wobj format error</source>
        <translation>工件格式错误</translation>
    </message>
    <message>
        <source>feedonwire time format error</source>
        <translation>送丝时间格式错误</translation>
    </message>
    <message>
        <source>feedbackwire time format error</source>
        <translation>退丝时间格式错误</translation>
    </message>
    <message>
        <source>detectgas time format error</source>
        <translation>检气时间格式错误</translation>
    </message>
    <message>
        <source>point format error</source>
        <translation>点格式错误</translation>
    </message>
    <message>
        <source>movej format error</source>
        <translation>movej 格式错误</translation>
    </message>
    <message>
        <source>movel format error</source>
        <translation>movel 格式错误</translation>
    </message>
    <message>
        <source>movec format error</source>
        <translation>movec 格式错误</translation>
    </message>
    <message>
        <source>Feed Wire Time(s): </source>
        <translation>送丝时间(s)：</translation>
    </message>
    <message>
        <source>Back Wire Time(s): </source>
        <translation>退丝时间(s)：</translation>
    </message>
    <message>
        <source>Detect Gas Time(s): </source>
        <translation>检气时间(s)：</translation>
    </message>
</context>
</TS>
