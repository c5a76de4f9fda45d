<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AppPickerSheet</name>
    <message numerus="yes">
        <source>%Ln app(s)</source>
        <translation>
            <numerusform>%Ln app</numerusform>
            <numerusform>%Ln apps</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FolderItemsSection</name>
    <message numerus="yes">
        <source>%Ln item(s)</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
</context>
</TS>
