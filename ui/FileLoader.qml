import QtQuick

/// Makes what a QML file describes, while it is wanted. The file, and those that it names, are read when
/// it is first wanted: a program starts sooner without what is mostly not shown.
Loader {
    id: root

    /// Empty: nothing is wanted.
    required property string file
    /// What it is made with, and told when it changes.
    property var properties: ({})
    property bool isComplete: false // the properties are known only then
    /// It is there: what it signals can be connected, until it is gone.
    signal made(item: var)

    function load() {
        if (root.file === "")
            root.source = "";
        else
            root.setSource(root.file, root.properties);
    }

    function tell() {
        for (const name in root.properties)
            root.item[name] = root.properties[name];
    }

    onLoaded: root.made(root.item)
    onFileChanged: {
        if (root.isComplete)
            root.load();
    }
    onPropertiesChanged: {
        if (root.item)
            root.tell();
    }
    Component.onCompleted: {
        root.isComplete = true;
        if (root.file !== "")
            root.load();
    }
}
