import QtQuick
import QtTest
import Nestlet.Companion

ViewTest {
    id: test

    name: "ElidedText"

    Component {
        id: view

        ElidedText {
            width: 120
            text: "A text that needs more room than this"
        }
    }

    function test_endsInDots() {
        const text = show(view, {});
        verify(text.truncated);
        compare(text.lineCount, 1);
        verify(text.contentWidth <= 120);
        compareFont(text.font, 13, Font.Normal);
        compareColor(text.color, Theme.primary, "text");
    }
    function test_theTooltipSaysAllOfIt() {
        const text = show(view, {});
        mouseMove(text, 20, 8);
        tryVerify(() => mac.helpTag(text) === text.text);
        leave();
        tryVerify(() => mac.helpTag(text) === "");
    }
    function test_aLongTooltipHasLines() {
        const text = show(view, {text: "word ".repeat(300)});
        mouseMove(text, 20, 8);
        tryVerify(() => mac.helpTag(text) === text.text);
        const tag = mac.helpTagSize(text);
        verify(tag.width <= 340);
        verify(tag.height > 100 && tag.height < 160);
        leave();
        tryVerify(() => mac.helpTag(text) === "");
    }
    function test_isOneLineWhateverItsBreaks() {
        const text = show(view, {text: "Two\nlines"});
        compare(text.lineCount, 1);
        verify(text.truncated);
    }
    function test_whatFitsHasNoTooltip() {
        const text = show(view, {text: "Short"});
        mouseMove(text, 4, 8);
        verify(!text.truncated);
        text.width = 10;
        tryVerify(() => text.HelpTag.isShown);
        text.width = 120;
        verify(!text.HelpTag.isShown);
    }
    function test_isNoMarkup() {
        const text = show(view, {text: "<b>&amp;</b>", width: 200});
        const plain = show(view, {text: "xbx", width: 200});
        verify(text.contentWidth > 1.5 * plain.contentWidth);
    }
    function test_beginsAtTheLeadingEdge_data() {
        return [{tag: "in Latin letters", text: "abc"}, {tag: "in Hebrew ones", text: "\u05D0\u05D1\u05D2"}];
    }
    function test_beginsAtTheLeadingEdge(data) {
        const text = show(view, {text: data.text});
        compare(text.effectiveHorizontalAlignment, Text.AlignLeft);
        text.LayoutMirroring.enabled = true;
        compare(text.effectiveHorizontalAlignment, Text.AlignRight);
    }
    function test_isPartOfWhatIsNamed() {
        compare(mac.told(show(view, {})), {});
    }
}
