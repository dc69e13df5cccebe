import QtQuick 1.1
import "style.js" as Style

// A row of tabs on the blue bar.
Row {
    id: tabs

    property variant names: []
    property int current: 0
    property int tabWidth: 96

    signal chosen(int index)

    Repeater {
        model: tabs.names

        Rectangle {
            property bool isCurrent: index === tabs.current

            objectName: "tab:" + modelData
            width: tabs.tabWidth
            height: tabs.height
            color: isCurrent ? "white" : area.pressed ? Style.lightBlue : Style.blue

            Rectangle {
                width: parent.width
                height: 4
                color: Style.lightBlue
                visible: parent.isCurrent
            }

            Label {
                anchors.fill: parent
                horizontalAlignment: Text.AlignHCenter
                text: modelData
                color: parent.isCurrent ? Style.blue : "white"
            }

            MouseArea {
                id: area
                anchors.fill: parent
                onClicked: tabs.chosen(index)
            }
        }
    }
}
