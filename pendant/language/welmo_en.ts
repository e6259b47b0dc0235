<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="zh_CN">
<context>
    <name>MoveParamWidget</name>
    <message>
        <source>速度(V)：</source>
        <translation>Speed (V):</translation>
    </message>
    <message>
        <source>转弯区(Z)：</source>
        <translation>Zone (Z):</translation>
    </message>
    <message>
        <source>工具(T)：</source>
        <translation>Tool (T):</translation>
    </message>
    <message>
        <source>工件(W)：</source>
        <translation>Work object (W):</translation>
    </message>
    <message>
        <source>摆动变量(weavedata)：</source>
        <translation>Weave data (weavedata):</translation>
    </message>
    <message>
        <source>详细</source>
        <translation>Details</translation>
    </message>
</context>
</TS>
