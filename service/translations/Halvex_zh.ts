<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh" sourcelanguage="en">
<context>
    <name>Plugin::Halvex::CNodeDecouplerDataModelBase</name>
    <message>
        <source>Decoupler for %1</source>
        <translation>%1 解耦器</translation>
    </message>
</context>
</TS>
