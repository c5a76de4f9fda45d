<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AppPickerSheet</name>
    <message numerus="yes">
        <source>%n app(s)</source>
        <translation>
            <numerusform>%n app</numerusform>
            <numerusform>%n apps</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FolderItemsSection</name>
    <message numerus="yes">
        <source>%n item(s)</source>
        <translation>
            <numerusform>%n item</numerusform>
            <numerusform>%n items</numerusform>
        </translation>
    </message>
</context>
</TS>
