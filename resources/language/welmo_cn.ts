<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>ArcWeldPage</name>
    <message>
        <source>Arc Weld</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device Setting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Welding Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Process Setting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weave Function</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ArcoffGroup</name>
    <message>
        <source>ArcOff Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOff Parameter File Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOff Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOff Voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOff Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop Flow Delay Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOff Detection Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOff Pull Wire Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wire Sticking Detection Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anti-Stick Function Switch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anti-Stick Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anti-Stick Voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anti-Stick Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>secretly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>touch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>operation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fold ArcOff Advanced Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unfold ArcOff Advanced Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ArconGroup</name>
    <message>
        <source>ArcOn Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOn Parameter File Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOn Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOn Voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOn Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOn Detect Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ArcOn Confirm Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BeforeFlow Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BeforeArcOn Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Slow Wire Feed Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BeforeWireOut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ShadingTime</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arc Reignition</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RetryTimes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RetratWaitTime</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RetractTime</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current Increase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Voltage Increase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MoveArcOn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MoveDis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ReturnSpeed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>StepDis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry Offset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>secretly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>touch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>operation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fold ArcOn Advanced Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unfold ArcOn Advanced Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>m/min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mm/s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Choices</name>
    <message>
        <source>Flat Characteristic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Low Spatter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pulse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double Pulse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DC Spot Welding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pulsed Spot Welding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deep Penetration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fast Pulse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Low Spatter Spot Welding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ASMT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ASMT Spot Welding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wire Feed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unified</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Separate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue Running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop and Alarm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Arc Reignition</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DevicesSettingPage</name>
    <message>
        <source>Device Setting</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FieldTable</name>
    <message>
        <source>%1: unknown value &quot;%2&quot; of &quot;%3&quot; is shown as empty and kept</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProcessGroup</name>
    <message>
        <source>Current Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Voltage Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arc Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the welder offers unknown modes: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProcessSettingsPage</name>
    <message>
        <source>Process Setting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tessa not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tessa is not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>save parameter error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>save parameter succeed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>welder state error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>enable error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>enable succeed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WeaveFunctionPage</name>
    <message>
        <source>Weave Function</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WeldGroup</name>
    <message>
        <source>Weld Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weld Parameter File Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WeldCurrent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WeldVoltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WeldSpeed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shdingtime</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arc Detect Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arc Break Option</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BackDistance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>secretly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>touch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>operation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fold Weld Advanced Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unfold Weld Advanced Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mm/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mm</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WeldModeIndicator</name>
    <message>
        <source>test run mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>test run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>simulation mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>simulation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>real mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>real welding</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switch to  </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WeldingOptionsPage</name>
    <message>
        <source>Welding Options</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Welmo</name>
    <message>
        <source>Arc Weld</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>welmo::parameterfile</name>
    <message>
        <source>save parameter error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: read parameter error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tessa not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>remove parameter error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>remove parameter success</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
