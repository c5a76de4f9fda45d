pragma ComponentBehavior: Bound

import QtQuick

/// What is said to those who don't see the window, for as long as it takes to be heard. Each time it is
/// something new that comes to be shown: what is said twice is heard twice, and what is said next takes
/// the words from nobody's mouth.
Item {
    id: root

    readonly property int duration: 5000

    function say(text: string) {
        const words = sentence.createObject(root, {
            "text": text
        }) as Item;
        words.visible = true; // which is what is told
    }

    Component {
        id: sentence

        Item {
            id: words

            required property string text

            width: 1
            height: 1
            visible: false
            Accessible.role: Accessible.AlertMessage
            Accessible.name: words.text

            Timer {
                running: words.visible
                interval: root.duration
                onTriggered: words.destroy()
            }
        }
    }
}
