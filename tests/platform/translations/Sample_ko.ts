<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko" sourcelanguage="en">
<context>
    <name>CSamplePlugin</name>
    <message>
        <source>a camera</source>
        <translation>카메라</translation>
    </message>
</context>
</TS>
