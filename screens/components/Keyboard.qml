import QtQuick 1.1
import "style.js" as Style

// A keyboard for names: letters small and large, digits, and the other characters on a second page.
// Keys stand from left to right in every language.
Rectangle {
    id: keyboard

    property bool isShifted: false
    property bool hasSymbols: false
    property variant rows: hasSymbols
        ? ["1234567890", "+-=_~()[]{", "}&%#@!$'^,", ";.\u00e0\u00e9\u00e8\u00f1\u00df"]
        : isShifted ? ["1234567890", "QWERTYUIOP", "ASDFGHJKL\u00c4", "ZXCVBNM\u00d6\u00dc"]
                    : ["1234567890", "qwertyuiop", "asdfghjkl\u00e4", "zxcvbnm\u00f6\u00fc"]

    // The character that was typed.
    property string character

    signal typed
    signal erased

    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true
    height: column.height + 8
    color: Style.pressed

    function reset() {
        isShifted = false;
        hasSymbols = false;
    }

    function type(newCharacter) {
        character = newCharacter;
        typed();
    }

    Column {
        id: column
        anchors.centerIn: parent
        spacing: 5

        Repeater {
            model: keyboard.rows.length

            Row {
                property string characters: keyboard.rows[index]

                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 6

                Repeater {
                    model: characters.length

                    Key {
                        text: characters.charAt(index)
                        onClicked: keyboard.type(text)
                    }
                }
            }
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 6

            Key {
                objectName: "key:Shift"
                width: 118
                text: qsTr("Shift")
                isHeld: keyboard.isShifted
                onClicked: keyboard.isShifted = !keyboard.isShifted
            }

            Key {
                objectName: "key:#+="
                width: 100
                text: keyboard.hasSymbols ? "abc" : "#+="
                onClicked: keyboard.hasSymbols = !keyboard.hasSymbols
            }

            Key {
                objectName: "key: "
                width: 254
                text: qsTr("Space")
                onClicked: keyboard.type(" ")
            }

            Key {
                text: "-"
                onClicked: keyboard.type(text)
            }

            Key {
                text: "."
                onClicked: keyboard.type(text)
            }

            Key {
                objectName: "key:Erase"
                width: 132
                text: qsTr("Erase")
                onClicked: keyboard.erased()
            }
        }
    }
}
