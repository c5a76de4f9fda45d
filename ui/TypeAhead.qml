import QtQuick
import Nestlet.Companion

/// Leads to a row of a list by the first letters of its name. Letters typed within a second belong
/// together; the same one again goes on to the next match.
QtObject {
    id: root

    property string typedText
    /// The next row after `row`, going round, whose name begins with the text is looked for.
    signal searched(text: string, row: int)

    readonly property Timer pause: Timer {
        interval: 1000
        onTriggered: root.typedText = ""
    }

    /// False: the key is no letter of a name.
    function take(event: var, currentRow: int): bool {
        const isFirstBlank = event.text.trim() === "" && root.typedText === ""; // it acts
        if (isFirstBlank || !TypedText.isTyped(event.text, event.modifiers))
            return false;
        const goesOn = event.text === root.typedText;
        root.typedText = goesOn ? event.text : root.typedText + event.text;
        root.pause.restart();
        const isFirst = root.typedText.length === 1;
        root.searched(root.typedText, isFirst ? currentRow : Math.max(-1, currentRow - 1));
        return true;
    }
}
