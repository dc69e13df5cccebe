import QtQuick 1.1
import "style.js" as Style

// A keyboard for names: letters small and large, digits, and the other characters on a second page.
Rectangle {
    id: keyboard

    property bool isShifted: false
    property bool hasSymbols: false
    property variant rows: hasSymbols
        ? ["1234567890", "+-=_~()[]{", "}&%#@!$'^,", ";.\u00e0\u00e9\u00e8\u00f1\u00df"]
        : isShifted ? ["1234567890", "QWERTYUIOP", "ASDFGHJKL\u00c4", "ZXCVBNM\u00d6\u00dc"]
                    : ["1234567890", "qwertyuiop", "asdfghjkl\u00e4", "zxcvbnm\u00f6\u00fc"]

    signal typed(string character)
    signal erased

    height: column.height + 12
    color: Style.pressed

    function reset() {
        isShifted = false;
        hasSymbols = false;
    }

    Column {
        id: column
        anchors.centerIn: parent
        spacing: 6

        Repeater {
            model: keyboard.rows

            Row {
                property string characters: modelData

                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 6

                Repeater {
                    model: characters.length

                    Key {
                        width: 72
                        text: characters.charAt(index)
                        onClicked: keyboard.typed(text)
                    }
                }
            }
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 6

            Key {
                width: 110
                text: "Shift"
                isHeld: keyboard.isShifted
                onClicked: keyboard.isShifted = !keyboard.isShifted
            }

            Key {
                width: 110
                text: keyboard.hasSymbols ? "abc" : "#+="
                onClicked: keyboard.hasSymbols = !keyboard.hasSymbols
            }

            Key {
                objectName: "key: "
                width: 266
                text: "Space"
                onClicked: keyboard.typed(" ")
            }

            Key {
                width: 72
                text: "-"
                onClicked: keyboard.typed(text)
            }

            Key {
                width: 72
                text: "."
                onClicked: keyboard.typed(text)
            }

            Key {
                width: 118
                text: "Erase"
                onClicked: keyboard.erased()
            }
        }
    }
}
