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
</TS>
