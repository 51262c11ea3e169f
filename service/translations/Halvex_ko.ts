<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko" sourcelanguage="en">
<context>
    <name>Plugin::Halvex::CNodeDecouplerDataModelBase</name>
    <message>
        <source>Decoupler for %1</source>
        <translation>%1용 디커플러</translation>
    </message>
</context>
</TS>
