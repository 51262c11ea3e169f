<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Plugin::Halvex::CNodeDecouplerDataModelBase</name>
    <message>
        <source>Decoupler for %1</source>
        <translation>%1 用デカップラー</translation>
    </message>
</context>
</TS>
